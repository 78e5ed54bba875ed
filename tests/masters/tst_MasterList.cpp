#include "masters/MasterList.h"

#include "MasterDesk.h"
#include "base/session.h"
#include "store/DataEnvironment.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/ListView.h"
#include "ui/kvTextBox.h"

#include <QElapsedTimer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// The lists of the masters and the way from them to the editors.
class MasterListTest : public QObject {
    Q_OBJECT

private slots:
    void eachListHasItsOwn_data();
    void eachListHasItsOwn();
    void theSearchMovesTheSelection_data();
    void theSearchMovesTheSelection();
    void keysOfTheListWorkInTheSearchBox();
    void theSelectedOneOpens_data() { addMasters(); }
    void theSelectedOneOpens();
    void whatAnotherProgramDeletedIsTold_data() { addMasters(); }
    void whatAnotherProgramDeletedIsTold();
    void newOnesAreAddedFromTheList_data() { addMasters(); }
    void newOnesAreAddedFromTheList();
    void theListIsFilledAgainOnlyWhenNeeded();
    void theSelectionStaysWithWhatItWasOn();
    void whatWasLookedForInVainIsFoundOnceAdded();
    void thousandsAreListedAndSearchedAtOnce();

private:
    static void addMasters();
};

namespace {

QString selected(const QWidget &screen)
{
    const auto &list = control<ListView>(screen, "lstSummary");
    return list.currentRow() < 0 ? QString() : list.list().cell(list.currentRow(), 0);
}

QStringList listed(const QWidget &screen)
{
    return driver::column(control<ListView>(screen, "lstSummary"), 0);
}

} // namespace

void MasterListTest::addMasters()
{
    QTest::addColumn<int>("kind");
    for (int kind = Client; kind <= Account; ++kind)
        QTest::newRow(masters().at(static_cast<size_t>(kind)).kind) << kind;
}

void MasterListTest::eachListHasItsOwn_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("names");
    QTest::addColumn<QString>("backCaption");
    QTest::addColumn<bool>("controlAAdds");
    QTest::newRow("clients") << int(Client) << u"Clients"_s << u"Asha Rao|chitra|Dev"_s << u"&Back"_s << true;
    QTest::newRow("workers") << int(Worker) << u"Workers"_s << u"Babu Lal"_s << u"&Back"_s << false;
    QTest::newRow("items") << int(Item) << u"Items"_s << u"Coat"_s << u"&Back"_s << false;
    QTest::newRow("accounts") << int(Account) << u"Accounts"_s << u"Cash|Purchase|Rent|Sales|Wages"_s << u"Back"_s
                              << false;
}

void MasterListTest::eachListHasItsOwn()
{
    QFETCH(int, kind);
    QFETCH(QString, title);
    QFETCH(QString, names);
    QFETCH(QString, backCaption);
    QFETCH(bool, controlAAdds);
    const Master &master = masters().at(static_cast<size_t>(kind));
    MasterDesk desk;
    desk.addAccount(u"Dev"_s);
    desk.addAccount(u"chitra"_s);
    for (const bool byEscape : {true, false}) {
        inScreen(master.list, master.openList, [&](QWidget &screen, ModalScript &script) {
            QCOMPARE(screen.objectName(), master.list);
            QCOMPARE(screen.windowTitle(), title);
            QCOMPARE(listed(screen).join(u'|'), names);
            QCOMPARE(selected(screen), QString());
            QCOMPARE(control<QPushButton>(screen, "Command1").text(), u"&Add New"_s);
            auto &back = control<QPushButton>(screen, "Command2");
            QCOMPARE(back.text(), backCaption);
            if (controlAAdds)
                script.expect(master.editor, [](QWidget &) { press(Qt::Key_Escape); });
            press(Qt::Key_A, Qt::ControlModifier);
            QVERIFY(script.isDone());
            if (byEscape)
                return press(Qt::Key_Escape);
            back.setFocus();
            press(Qt::Key_Return);
        });
    }
}

void MasterListTest::theSearchMovesTheSelection_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("found");
    const auto row = [](const char *name, const QString &typed, const QString &found) {
        QTest::newRow(name) << typed << found;
    };
    row("the first that begins so", u"d"_s, u"D'Souza"_s);
    row("in any case", u"DEV"_s, u"dev"_s);
    row("not in the middle", u"rao"_s, {});
    row("apostrophe", u"d'"_s, u"D'Souza"_s);
    row("percent sign", u"50%"_s, u"50% Discount [old]"_s);
    row("no pattern", u"%"_s, {});
    row("bracket", u"["_s, u"[x] Mark"_s);
    row("past the end of a name", u"dev2"_s, {});
    row("cut back", u"dex\b"_s, u"dev"_s);
    row("cut back to nothing", u"x\b"_s, u"50% Discount [old]"_s);
}

void MasterListTest::theSearchMovesTheSelection()
{
    QFETCH(QString, typed);
    QFETCH(QString, found);
    MasterDesk desk;
    for (const QString &name : {u"dev"_s, u"D'Souza"_s, u"50% Discount [old]"_s, u"[x] Mark"_s})
        desk.addAccount(name);
    inScreen(u"frmClients"_s, masters()[Client].openList, [&](QWidget &screen, ModalScript &script) {
        for (const QChar character : typed) {
            if (character == u'\b')
                press(Qt::Key_Backspace);
            else
                type(character);
        }
        QCOMPARE(selected(screen), found);
        QCOMPARE(listed(screen).size(), 5);
        if (!found.isEmpty()) {
            script.expect(u"frmEditClients"_s, [&found](QWidget &editor) {
                QCOMPARE(control<kvTextBox>(editor, "txtName").text(), found);
                press(Qt::Key_Escape);
            });
        }
        press(Qt::Key_Return);
        QVERIFY(script.isDone());
        QVERIFY(isEntered(control<kvTextBox>(screen, "txtSearch")));
        press(Qt::Key_Escape);
    });
}

void MasterListTest::keysOfTheListWorkInTheSearchBox()
{
    MasterDesk desk;
    inScreen(u"frmAccountsList"_s, masters()[Account].openList, [](QWidget &screen, ModalScript &) {
        const std::pair<Qt::Key, QString> steps[]{{Qt::Key_Up, {}}, {Qt::Key_Down, u"Cash"_s}, {Qt::Key_Up, u"Cash"_s},
            {Qt::Key_Down, u"Purchase"_s}, {Qt::Key_End, u"Wages"_s}, {Qt::Key_Down, u"Wages"_s},
            {Qt::Key_Up, u"Sales"_s}, {Qt::Key_Home, u"Cash"_s}};
        for (const auto &[key, expected] : steps) {
            press(key);
            QCOMPARE(selected(screen), expected);
            QVERIFY(isEntered(control<kvTextBox>(screen, "txtSearch")));
        }
        press(Qt::Key_Escape);
    });
}

void MasterListTest::theSelectedOneOpens()
{
    QFETCH(int, kind);
    const Master &master = masters().at(static_cast<size_t>(kind));
    MasterDesk desk;
    inScreen(master.list, master.openList, [&master](QWidget &screen, ModalScript &script) {
        auto &list = control<ListView>(screen, "lstSummary");
        const auto opens = [&](const std::function<void()> &how) {
            script.expect(master.editor, [&master](QWidget &editor) {
                QCOMPARE(editor.objectName(), master.editor);
                QCOMPARE(control<kvTextBox>(editor, "txtName").text(), master.name);
                QVERIFY(isEntered(control<kvTextBox>(editor, "txtName")));
                press(Qt::Key_Escape);
            });
            how();
            QVERIFY(script.isDone());
        };
        // Nothing is selected.
        press(Qt::Key_Return);
        type(master.name.left(2));
        opens([] { press(Qt::Key_Return); });
        opens([&list] {
            list.setFocus();
            press(Qt::Key_Enter);
        });
        const QPoint place = list.visualRect(list.currentIndex()).center();
        opens([&] {
            QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
            QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
        });
        press(Qt::Key_Escape);
    });
}

void MasterListTest::whatAnotherProgramDeletedIsTold()
{
    QFETCH(int, kind);
    const Master &master = masters().at(static_cast<size_t>(kind));
    MasterDesk desk;
    inScreen(master.list, master.openList, [&](QWidget &screen, ModalScript &script) {
        type(master.name);
        QCOMPARE(selected(screen), master.name);
        Connection other;
        other.open(desk.path());
        other.execute(u"Delete from %1 where id=%2"_s.arg(master.table).arg(master.id));
        script.expectMessage(u"Another program has deleted or renamed \"%1\"."_s.arg(master.name));
        press(Qt::Key_Return);
        QVERIFY(!listed(screen).contains(master.name));
        // And what the other one adds is there without being asked for.
        session::NeedRefresh = false;
        other.execute(master.table == u"Items"_s
                ? u"Insert into Items (Name, ItemDetails, Fees) values ('Zari Coat', '', 1)"_s
                : u"Insert into Accounts (Title, Type) values ('Zari Coat', %1)"_s.arg(kind == Account ? 2 : kind));
        script.expect(master.editor, [](QWidget &) { press(Qt::Key_Escape); });
        accessKey('a');
        QVERIFY(listed(screen).contains(u"Zari Coat"_s));
        press(Qt::Key_Escape);
    });
}

void MasterListTest::newOnesAreAddedFromTheList()
{
    QFETCH(int, kind);
    const Master &master = masters().at(static_cast<size_t>(kind));
    MasterDesk desk;
    inScreen(master.list, master.openList, [&master](QWidget &screen, ModalScript &script) {
        script.expect(master.editor, [](QWidget &editor) {
            QVERIFY(control<kvTextBox>(editor, "txtName").text().isEmpty());
            press(Qt::Key_Escape);
        });
        accessKey('a');
        QVERIFY(script.isDone());
        // The next thing typed is a search again.
        QVERIFY(isEntered(control<kvTextBox>(screen, "txtSearch")));
        press(Qt::Key_Escape);
    });
}

void MasterListTest::theListIsFilledAgainOnlyWhenNeeded()
{
    MasterDesk desk;
    inScreen(u"frmClients"_s, masters()[Client].openList, [&desk](QWidget &screen, ModalScript &script) {
        // The load asks for the first fill, and the flag stays for the others who look at it.
        QVERIFY(session::NeedRefresh);
        desk.addAccount(u"Another"_s);
        for (const bool needed : {false, true}) {
            session::NeedRefresh = needed;
            script.expect(u"frmEditClients"_s, [](QWidget &) { press(Qt::Key_Escape); });
            accessKey('a');
            QCOMPARE(listed(screen).contains(u"Another"_s), needed);
            QCOMPARE(session::NeedRefresh, needed);
        }
        press(Qt::Key_Escape);
    });
}

void MasterListTest::theSelectionStaysWithWhatItWasOn()
{
    MasterDesk desk;
    for (const QString &name : {u"Bina"_s, u"Chitra"_s, u"Dev"_s})
        desk.addAccount(name);
    inScreen(u"frmClients"_s, masters()[Client].openList, [](QWidget &screen, ModalScript &script) {
        const auto inEditor = [&script](const std::function<void()> &work) {
            script.expect(u"frmEditClients"_s, [&work](QWidget &) { work(); });
            press(Qt::Key_Return);
            QVERIFY(script.isDone());
        };
        type(u"b"_s);
        inEditor([&script] {
            type(u"zoya"_s);
            script.expectMessage(u"Client Information Updated."_s);
            accessKey('s');
            press(Qt::Key_Escape);
        });
        QCOMPARE(listed(screen), QStringList({u"Asha Rao"_s, u"Chitra"_s, u"Dev"_s, u"zoya"_s}));
        QCOMPARE(selected(screen), u"zoya"_s);
        // The last search is typed over.
        type(u"c"_s);
        QCOMPARE(selected(screen), u"Chitra"_s);
        const auto deleteIt = [&script] {
            script.expectMessage(u"Are you sure?"_s, Qt::Key_Y).expectMessage(u"Deleted."_s);
            accessKey('d');
        };
        inEditor(deleteIt);
        QCOMPARE(selected(screen), u"Dev"_s);
        press(Qt::Key_End);
        inEditor(deleteIt);
        QCOMPARE(selected(screen), u"Dev"_s);
        QCOMPARE(listed(screen), QStringList({u"Asha Rao"_s, u"Dev"_s}));
        press(Qt::Key_Escape);
    });
}

void MasterListTest::whatWasLookedForInVainIsFoundOnceAdded()
{
    MasterDesk desk;
    inScreen(u"frmClients"_s, masters()[Client].openList, [](QWidget &screen, ModalScript &script) {
        type(u"zo"_s);
        QCOMPARE(selected(screen), QString());
        script.expect(u"frmEditClients"_s, [&script](QWidget &) {
            type(u"zoya"_s);
            script.expectMessage(u"New Client Created."_s);
            script.expect(u"frmEditClients"_s, [](QWidget &) { press(Qt::Key_Escape); });
            accessKey('s');
        });
        accessKey('a');
        QVERIFY(script.isDone());
        QCOMPARE(selected(screen), u"Zoya"_s);
        press(Qt::Key_Escape);
    });
}

void MasterListTest::thousandsAreListedAndSearchedAtOnce()
{
    constexpr int count = 5000;
    MasterDesk desk;
    WriteGroup::run(desk.connection, [&desk] {
        Recordset rows(desk.connection);
        rows.open(u"Select * from Accounts where id=0"_s);
        for (int i = 0; i < count; ++i) {
            rows.addNew();
            rows.set(u"Title", u"Client %1"_s.arg(i, 5, 10, QChar(u'0')));
            rows.set(u"Type", 0);
        }
        rows.updateBatch();
    });
    inScreen(u"frmClients"_s, masters()[Client].openList, [](QWidget &screen, ModalScript &script) {
        auto &list = control<ListView>(screen, "lstSummary");
        QCOMPARE(list.list().rowCount(), count + 1);
        QElapsedTimer timer;
        timer.start();
        type(u"client 04999"_s);
        // A tenth of a second a key would be felt; this is far below.
        QVERIFY2(timer.elapsed() < 600, qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(selected(screen), u"Client 04999"_s);
        const QSignalSpy resets(&list.list(), &QAbstractItemModel::modelReset);
        script.expect(u"frmEditClients"_s, [](QWidget &) { press(Qt::Key_Escape); });
        press(Qt::Key_Return);
        QCOMPARE(resets.count(), 1);
        QCOMPARE(selected(screen), u"Client 04999"_s);
        press(Qt::Key_Escape);
    });
}

CORVANE_TEST(MasterListTest)
#include "tst_MasterList.moc"
