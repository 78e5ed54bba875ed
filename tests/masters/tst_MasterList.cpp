#include "masters/MasterList.h"

#include "MasterDesk.h"
#include "base/session.h"
#include "store/DataEnvironment.h"
#include "ui/ListView.h"
#include "ui/kvTextBox.h"

#include <QElapsedTimer>
#include <QPushButton>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// The lists of the masters and the way from them to the editors.
class MasterListTest : public QObject {
    Q_OBJECT

private slots:
    void eachListHasItsOwn();
    void theSearchMovesTheSelection();
    void keysOfTheListWorkInTheSearchBox();
    void theSelectedOneOpens();
    void whatAnotherProgramDeletedIsTold();
    void theListIsFilledAgainOnlyWhenNeeded();
    void theSelectionStaysWithWhatItWasOn();
    void whatIsAddedIsFoundByTheLastSearch();
    void thousandsAreListedAndSearchedAtOnce();
};

namespace {

QString selected(const QWidget &screen)
{
    const auto &list = control<ListView>(screen, "lstSummary");
    return list.currentRow() < 0 ? QString() : list.list().cell(list.currentRow(), 0);
}

QString listed(const QWidget &screen)
{
    return driver::column(control<ListView>(screen, "lstSummary"), 0).join(u'|');
}

bool isSearching(const QWidget &screen)
{
    return isEntered(control<kvTextBox>(screen, "txtSearch"));
}

void expectOpened(ModalScript &script, const Master &master, const QString &name)
{
    script.expect(master.editor, [name](QWidget &editor) {
        QCOMPARE(control<kvTextBox>(editor, "txtName").text(), name);
        QVERIFY(isEntered(control<kvTextBox>(editor, "txtName")));
        press(Qt::Key_Escape);
    });
}

const Master &clients()
{
    return masters()[Client];
}

} // namespace

void MasterListTest::eachListHasItsOwn()
{
    const std::array<QString, 4> titles{u"Clients"_s, u"Workers"_s, u"Items"_s, u"Accounts"_s};
    const std::array<QString, 4> names{
        u"Asha Rao|chitra|Dev"_s, u"Babu Lal"_s, u"Coat"_s, u"Cash|Purchase|Rent|Sales|Wages"_s};
    MasterDesk desk;
    desk.addAccount(u"Dev"_s);
    desk.addAccount(u"chitra"_s);
    for (const Master &master : masters()) {
        for (const bool byEscape : {true, false}) {
            master.inList([&](QWidget &screen, ModalScript &script) {
                QCOMPARE(screen.windowTitle(), titles.at(master.kind));
                QCOMPARE(listed(screen), names.at(master.kind));
                QCOMPARE(selected(screen), QString());
                // The key is that of the clients alone.
                if (master.kind == Client)
                    expectOpened(script, master, {});
                press(Qt::Key_A, Qt::ControlModifier);
                QVERIFY(script.isDone());
                expectOpened(script, master, {});
                accessKey('a');
                // The next thing typed is a search again.
                QVERIFY(script.isDone() && isSearching(screen));
                if (byEscape)
                    return press(Qt::Key_Escape);
                auto &back = control<QPushButton>(screen, "Command2");
                QCOMPARE(back.text(), master.kind == Account ? u"Back"_s : u"&Back"_s);
                back.setFocus();
                press(Qt::Key_Return);
            });
        }
    }
}

void MasterListTest::theSearchMovesTheSelection()
{
    MasterDesk desk;
    for (const QString &name : {u"dev"_s, u"D'Souza"_s, u"50% Discount [old]"_s, u"[x] Mark"_s})
        desk.addAccount(name);
    const std::pair<QString, QString> cases[]{{u"d"_s, u"D'Souza"_s}, {u"DEV"_s, u"dev"_s}, {u"rao"_s, {}},
        {u"d'"_s, u"D'Souza"_s}, {u"50%"_s, u"50% Discount [old]"_s}, {u"%"_s, {}}, {u"["_s, u"[x] Mark"_s},
        {u"dev2"_s, {}}, {u"dex\b"_s, u"dev"_s}, {u"x\b"_s, u"50% Discount [old]"_s}};
    for (const auto &entry : cases) {
        clients().inList([&](QWidget &screen, ModalScript &script) {
            type(entry.first);
            QCOMPARE(selected(screen), entry.second);
            QCOMPARE(listed(screen).count(u'|'), 4);
            if (!entry.second.isEmpty())
                expectOpened(script, clients(), entry.second);
            press(Qt::Key_Return);
            QVERIFY(script.isDone() && isSearching(screen));
        });
    }
}

void MasterListTest::keysOfTheListWorkInTheSearchBox()
{
    const MasterDesk desk;
    masters()[Account].inList([](QWidget &screen, ModalScript &) {
        const std::pair<Qt::Key, QString> steps[]{{Qt::Key_Up, {}}, {Qt::Key_Down, u"Cash"_s}, {Qt::Key_Up, u"Cash"_s},
            {Qt::Key_Down, u"Purchase"_s}, {Qt::Key_End, u"Wages"_s}, {Qt::Key_Down, u"Wages"_s},
            {Qt::Key_Up, u"Sales"_s}, {Qt::Key_Home, u"Cash"_s}};
        for (const auto &[key, expected] : steps) {
            press(key);
            QCOMPARE(selected(screen), expected);
            QVERIFY(isSearching(screen));
        }
    });
}

void MasterListTest::theSelectedOneOpens()
{
    const MasterDesk desk;
    for (const Master &master : masters()) {
        master.inList([&master](QWidget &screen, ModalScript &script) {
            auto &list = control<ListView>(screen, "lstSummary");
            const auto opens = [&](const std::function<void()> &how) {
                expectOpened(script, master, master.name);
                how();
                QVERIFY(script.isDone());
            };
            // Nothing is selected.
            press(Qt::Key_Return);
            type(master.name.left(2));
            opens([] { press(Qt::Key_Return); });
            list.setFocus();
            opens([] { press(Qt::Key_Enter); });
            const QPoint place = list.visualRect(list.currentIndex()).center();
            QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
            opens([&] { QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place); });
        });
    }
}

void MasterListTest::whatAnotherProgramDeletedIsTold()
{
    for (const Master &master : masters()) {
        MasterDesk desk;
        master.inList([&](QWidget &screen, ModalScript &script) {
            type(master.name);
            Connection other;
            other.open(desk.path());
            other.execute(u"Delete from %1 where id=%2"_s.arg(master.table).arg(master.id));
            script.expectMessage(u"Another program has deleted or renamed \"%1\"."_s.arg(master.name));
            press(Qt::Key_Return);
            QVERIFY(!listed(screen).contains(master.name));
            // And what the other one adds is there without being asked for.
            session::NeedRefresh = false;
            other.execute(master.kind == Item
                    ? u"Insert into Items (Name, ItemDetails, Fees) values ('Zari Coat', '', 1)"_s
                    : u"Insert into Accounts (Title, Type) values ('Zari Coat', %1)"_s.arg(qMin(+master.kind, 2)));
            master.expectLeft(script);
            accessKey('a');
            QVERIFY(listed(screen).contains(u"Zari Coat"_s));
        });
    }
}

void MasterListTest::theListIsFilledAgainOnlyWhenNeeded()
{
    MasterDesk desk;
    clients().inList([&desk](QWidget &screen, ModalScript &script) {
        // The load asks for the first fill, and the flag stays for the others who look at it.
        QVERIFY(session::NeedRefresh);
        desk.addAccount(u"Another"_s);
        for (const bool needed : {false, true}) {
            session::NeedRefresh = needed;
            clients().expectLeft(script);
            accessKey('a');
            QCOMPARE(listed(screen).contains(u"Another"_s), needed);
            QCOMPARE(session::NeedRefresh, needed);
        }
    });
}

void MasterListTest::theSelectionStaysWithWhatItWasOn()
{
    const Master &item = masters()[Item];
    MasterDesk desk;
    for (const QString &name : {u"Bina"_s, u"Chitra"_s, u"Dev"_s})
        desk.addItem(name, {}, 1, 1);
    item.inList([&item](QWidget &screen, ModalScript &script) {
        const auto inEditor = [&](const std::function<void()> &work) {
            script.expect(item.editor, [&work](QWidget &) { work(); });
            press(Qt::Key_Return);
            QVERIFY(script.isDone());
        };
        type(u"co"_s);
        inEditor([&] {
            type(u"Zoya"_s);
            tells(script, 's', item.changed);
            press(Qt::Key_Escape);
        });
        QCOMPARE(listed(screen), u"Bina|Chitra|Dev|Zoya"_s);
        QCOMPARE(selected(screen), u"Zoya"_s);
        // The last search is typed over.
        type(u"c"_s);
        QCOMPARE(selected(screen), u"Chitra"_s);
        inEditor([&script] { deleteIt(script); });
        QCOMPARE(selected(screen), u"Dev"_s);
        press(Qt::Key_End);
        inEditor([&script] { deleteIt(script); });
        QCOMPARE(selected(screen), u"Dev"_s);
        QCOMPARE(listed(screen), u"Bina|Dev"_s);
    });
}

void MasterListTest::whatIsAddedIsFoundByTheLastSearch()
{
    MasterDesk desk;
    desk.addAccount(u"Bina"_s);
    clients().inList([](QWidget &screen, ModalScript &script) {
        const auto add = [&script](const QString &name) {
            script.expect(clients().editor, [&](QWidget &) {
                type(name);
                clients().expectLeft(script.expectMessage(clients().added));
                accessKey('s');
            });
            accessKey('a');
            QVERIFY(script.isDone());
        };
        // One was opened; what is selected after it stays, and opens, when another is added.
        type(u"asha"_s);
        expectOpened(script, clients(), u"Asha Rao"_s);
        press(Qt::Key_Return);
        press(Qt::Key_Down);
        add(u"anil"_s);
        QCOMPARE(selected(screen), u"Bina"_s);
        expectOpened(script, clients(), u"Bina"_s);
        press(Qt::Key_Return);
        // What was looked for in vain is there now.
        type(u"zo"_s);
        QCOMPARE(selected(screen), QString());
        add(u"zoya"_s);
        QCOMPARE(selected(screen), u"Zoya"_s);
        expectOpened(script, clients(), u"Zoya"_s);
        press(Qt::Key_Return);
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
    clients().inList([](QWidget &screen, ModalScript &script) {
        auto &list = control<ListView>(screen, "lstSummary");
        QCOMPARE(list.list().rowCount(), count + 1);
        QElapsedTimer timer;
        timer.start();
        type(u"client 04999"_s);
        // A tenth of a second a key would be felt; this is far below.
        QVERIFY2(timer.elapsed() < 600, qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(selected(screen), u"Client 04999"_s);
        const QSignalSpy resets(&list.list(), &QAbstractItemModel::modelReset);
        clients().expectLeft(script);
        press(Qt::Key_Return);
        QCOMPARE(resets.count(), 1);
        QCOMPARE(selected(screen), u"Client 04999"_s);
    });
}

CORVANE_TEST(MasterListTest)
#include "tst_MasterList.moc"
