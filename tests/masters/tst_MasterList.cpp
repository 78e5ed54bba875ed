#include "masters/MasterList.h"

#include "MasterDesk.h"
#include "base/session.h"
#include "ui/ListView.h"
#include "ui/kvTextBox.h"

#include <QPushButton>

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
    void whatAnotherProgramDeletedIsTold();
    void theSelectionStaysWithWhatItWasOn();
    void whatIsAddedIsFoundByTheLastSearch();
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
        session::NeedRefresh = false;
        master.inList([&](QWidget &screen, ModalScript &script) {
            const auto opens = [&](const QString &name, QKeyCombination key) {
                expectOpened(script, master, name);
                press({key});
                QVERIFY(script.isDone());
                // The next thing typed is a search again.
                QVERIFY(isSearching(screen));
            };
            QCOMPARE(screen.windowTitle(), titles.at(master.kind));
            QCOMPARE(listed(screen), names.at(master.kind));
            QCOMPARE(selected(screen), QString());
            // Nothing is selected.
            press(Qt::Key_Return);
            // The key is that of the clients alone.
            if (master.kind == Client)
                opens({}, Qt::CTRL | Qt::Key_A);
            else
                press(Qt::Key_A, Qt::ControlModifier);
            opens({}, Qt::ALT | Qt::Key_A);
            type(master.name.left(2));
            opens(master.name, Qt::Key_Return);
            auto &back = control<QPushButton>(screen, "Command2");
            QCOMPARE(back.text(), master.kind == Account ? u"Back"_s : u"&Back"_s);
            back.setFocus();
            press(Qt::Key_Return);
        });
    }
}

void MasterListTest::theSearchMovesTheSelection()
{
    MasterDesk desk;
    for (const QString &name : {u"dev"_s, u"D'Souza"_s, u"50% Discount [old]"_s, u"[x] Mark"_s})
        desk.addAccount(name);
    clients().inList([](QWidget &screen, ModalScript &) {
        for (const auto &[typed, found] : {std::pair{u"d"_s, u"D'Souza"_s}, {u"DEV"_s, u"dev"_s}, {u"rao"_s, u""_s},
                 {u"d'"_s, u"D'Souza"_s}, {u"50%"_s, u"50% Discount [old]"_s}, {u"%"_s, u""_s}, {u"["_s, u"[x] Mark"_s},
                 {u"dev2"_s, u""_s}, {u"dex\b"_s, u"dev"_s}, {u"x\b"_s, u"50% Discount [old]"_s}}) {
            control<kvTextBox>(screen, "txtSearch").selectAll();
            type(typed);
            QCOMPARE(selected(screen), found);
            QCOMPARE(listed(screen).count(u'|'), 4);
        }
    });
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

CORVANE_TEST(MasterListTest)
#include "tst_MasterList.moc"
