#include "masters/MasterEditor.h"

#include "MasterDesk.h"
#include "base/session.h"
#include "store/DataEnvironment.h"
#include "store/lookups.h"
#include "support/expectFault.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// What the editors of all masters have in common: names, saving, deleting.
class MasterEditorTest : public QObject {
    Q_OBJECT

private slots:
    void newOnesAreAddedOneAfterAnother_data();
    void newOnesAreAddedOneAfterAnother();
    void aNameMustBeGiven_data() { addMasters(); }
    void aNameMustBeGiven();
    void aNameMayNotBeTaken_data();
    void aNameMayNotBeTaken();
    void anotherCaseOfTheOwnNameIsNoOther_data() { addMasters(); }
    void anotherCaseOfTheOwnNameIsNoOther();
    void namesAreKeptAsTyped_data();
    void namesAreKeptAsTyped();
    void whatIsInUseStays_data();
    void whatIsInUseStays();
    void deletingAsksFirst_data() { addMasters(); }
    void deletingAsksFirst();
    void whatAnotherProgramDeletedIsNotSaved_data() { addMasters(); }
    void whatAnotherProgramDeletedIsNotSaved();
    void whatIsNotThereIsAFailure();

private:
    static void addMasters();
};

namespace {

const Master &master(int kind)
{
    return masters().at(static_cast<size_t>(kind));
}

void select(const QWidget &editor, int kind)
{
    if (kind == Account)
        control<kvComboBox>(editor, "cmbType").setText(u"Income"_s);
}

QString nameOf(MasterDesk &desk, const Master &master)
{
    return desk
        .lines(u"Select "_s + master.column + u" from "_s + master.table + u" where id="_s + QString::number(master.id))
        .join(u'|');
}

} // namespace

void MasterEditorTest::addMasters()
{
    QTest::addColumn<int>("kind");
    for (int kind = Client; kind <= Account; ++kind)
        QTest::newRow(master(kind).kind) << kind;
}

void MasterEditorTest::newOnesAreAddedOneAfterAnother_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("headings");
    QTest::newRow("client") << int(Client) << u"Add New Client|Edit Client Information"_s;
    QTest::newRow("worker") << int(Worker) << u"Add New Worker|Edit Worker Information"_s;
    QTest::newRow("item") << int(Item) << u"Add New Item|Edit Item"_s;
}

void MasterEditorTest::newOnesAreAddedOneAfterAnother()
{
    QFETCH(int, kind);
    QFETCH(QString, headings);
    MasterDesk desk;
    const auto shownScreens = [] {
        const auto windows = QApplication::topLevelWidgets();
        return std::count_if(windows.begin(), windows.end(),
            [](const QWidget *window) { return window->isVisible() && window->inherits("MasterEditor"); });
    };
    inScreen(
        master(kind).editor, [kind] { master(kind).edit(master(kind).id); },
        [&headings](QWidget &editor, ModalScript &) {
            QCOMPARE(control<QLabel>(editor, "lblTitle").text(), headings.section(u'|', 1, 1));
            QVERIFY(control<QPushButton>(editor, "Command2").isEnabled());
            press(Qt::Key_Escape);
        });
    ModalScript script;
    const std::function<void(int)> expectRound = [&](int round) {
        script.expect(master(kind).editor, [&, round](QWidget &editor) {
            QCOMPARE(shownScreens(), 1);
            QCOMPARE(control<QLabel>(editor, "lblTitle").text(), headings.section(u'|', 0, 0));
            QVERIFY(isEntered(control<kvTextBox>(editor, "txtName")));
            QVERIFY(control<kvTextBox>(editor, "txtName").text().isEmpty());
            QVERIFY(!control<QPushButton>(editor, "Command2").isEnabled());
            if (round == 3)
                return press(Qt::Key_Escape);
            type(u"new %1"_s.arg(round));
            session::NeedRefresh = false;
            script.expectMessage(master(kind).added);
            expectRound(round + 1);
            accessKey('s');
            QVERIFY(session::NeedRefresh);
        });
    };
    expectRound(0);
    master(kind).add();
    QVERIFY(script.isDone());
    QCOMPARE(desk.lines(u"Select "_s + master(kind).column + u" from "_s + master(kind).table + u" where "_s
                 + master(kind).column + u" like 'New%' order by id"_s),
        QStringList({u"New 0"_s, u"New 1"_s, u"New 2"_s}));
}

void MasterEditorTest::aNameMustBeGiven()
{
    QFETCH(int, kind);
    MasterDesk desk;
    const int before = desk.count(master(kind).table);
    inScreen(master(kind).editor, master(kind).add, [kind](QWidget &editor, ModalScript &script) {
        select(editor, kind);
        for (const QString &name : {QString(), u"   "_s}) {
            control<kvTextBox>(editor, "txtName").setText(name);
            script.expectMessage(master(kind).missing);
            accessKey('s');
            QVERIFY(script.isDone());
            QVERIFY(isEntered(control<kvTextBox>(editor, "txtName")));
        }
        press(Qt::Key_Escape);
    });
    QCOMPARE(desk.count(master(kind).table), before);
}

void MasterEditorTest::aNameMayNotBeTaken_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("taken");
    const auto row = [](const char *name, int kind, const QString &text, bool taken) {
        QTest::newRow(name) << kind << text << taken;
    };
    row("client of a client", Client, u"asha rao"_s, true);
    row("client of a worker", Client, u"Babu Lal"_s, true);
    row("client of an account", Client, u"CASH"_s, true);
    row("client of an item", Client, u"Coat"_s, false);
    row("worker of a client", Worker, u"Asha Rao"_s, true);
    row("worker of an account", Worker, u"rent"_s, true);
    row("item of an item", Item, u"COAT"_s, true);
    row("item of a client", Item, u"Asha Rao"_s, false);
    row("account of an account", Account, u"cash"_s, true);
    row("account of a worker", Account, u"babu lal"_s, true);
    row("part of a name", Account, u"Ren"_s, false);
    row("pattern", Account, u"Ren%"_s, false);
    row("apostrophe", Client, u"x' or '1'='1"_s, false);
}

void MasterEditorTest::aNameMayNotBeTaken()
{
    QFETCH(int, kind);
    QFETCH(QString, name);
    QFETCH(bool, taken);
    const QString given = u"Something Else"_s;
    for (const bool isNew : {true, false}) {
        MasterDesk desk;
        if (!isNew)
            desk.connection.execute(u"update %1 set %2='%3' where id=%4"_s.arg(
                master(kind).table, master(kind).column, given, QString::number(master(kind).id)));
        // Its own name of before is free then.
        const bool expected = taken && (isNew || name.compare(master(kind).name, Qt::CaseInsensitive) != 0);
        const auto open = [kind, isNew] { isNew ? master(kind).add() : master(kind).edit(master(kind).id); };
        inScreen(master(kind).editor, open, [&](QWidget &editor, ModalScript &script) {
            select(editor, kind);
            paste(name);
            script.expectMessage(expected ? u"Duplicate!"_s : isNew ? master(kind).added : master(kind).changed);
            if (!expected && isNew && kind != Account)
                script.expect(master(kind).editor, [](QWidget &) { press(Qt::Key_Escape); });
            accessKey('s');
            QCOMPARE(control<kvTextBox>(editor, "txtName").text(), name);
            QVERIFY(!expected || isEntered(control<kvTextBox>(editor, "txtName")));
            if (editor.isVisible())
                press(Qt::Key_Escape);
        });
        QCOMPARE(GetFieldValue(u"ID"_s, master(kind).table, master(kind).column, given, DE().rsaccounts).toInt() > 0,
            !isNew && expected);
    }
}

void MasterEditorTest::anotherCaseOfTheOwnNameIsNoOther()
{
    QFETCH(int, kind);
    MasterDesk desk;
    const QString upper = master(kind).name.toUpper();
    inScreen(
        master(kind).editor, [kind] { master(kind).edit(master(kind).id); },
        [&](QWidget &, ModalScript &script) {
            for (const QString &name : {upper, master(kind).name.toLower(), upper}) {
                control<kvTextBox>(*QApplication::activeModalWidget(), "txtName").setText(name);
                session::NeedRefresh = false;
                script.expectMessage(master(kind).changed);
                accessKey('s');
                QVERIFY(script.isDone());
                QVERIFY(session::NeedRefresh);
            }
            press(Qt::Key_Escape);
        });
    QCOMPARE(nameOf(desk, master(kind)), upper);
}

void MasterEditorTest::namesAreKeptAsTyped_data()
{
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("kept");
    const auto row = [](const char *name, const QString &text) { QTest::newRow(name) << text << text; };
    row("apostrophes", u"O'Neil''s 'Best'"_s);
    row("signs of patterns and statements", u"50% [off] #1 ; -- \"x\" `y` *?_"_s);
    row("ampersand", u"Rao & Sons"_s);
    row("blanks around it", u"  two  blanks "_s);
    row("small letters", u"de la cruz"_s);
    row("Hindi", u"\u0905\u0936\u094b\u0915 \u0915\u0941\u092e\u093e\u0930"_s);
    row("Arabic", u"\u0645\u062d\u0645\u062f \u0639\u0644\u064a"_s);
    row("emoji", u"\U0001F454 Tie \U0001F9F5"_s);
    row("very long", QString(10000, u'x'));
    QTest::newRow("line breaks") << u"Asha\r\nDevi\nRao"_s << u"Asha Devi Rao"_s;
}

void MasterEditorTest::namesAreKeptAsTyped()
{
    QFETCH(QString, pasted);
    QFETCH(QString, kept);
    MasterDesk desk;
    for (int kind = Client; kind <= Account; ++kind) {
        // One name for all kinds would be taken after the first.
        const QString ending = QString::number(kind);
        inScreen(master(kind).editor, master(kind).add, [&](QWidget &editor, ModalScript &script) {
            select(editor, kind);
            paste(pasted + ending);
            script.expectMessage(master(kind).added);
            if (kind != Account)
                script.expect(master(kind).editor, [](QWidget &) { press(Qt::Key_Escape); });
            accessKey('s');
            if (kind == Account)
                press(Qt::Key_Escape);
        });
        const QString name = kept + ending;
        const int id = GetFieldValue(u"ID"_s, master(kind).table, master(kind).column, name, DE().rsItems2).toInt();
        QVERIFY2(id > 0, master(kind).kind);
        inScreen(
            master(kind).editor, [kind, id] { master(kind).edit(id); },
            [&](QWidget &editor, ModalScript &script) {
                QCOMPARE(control<kvTextBox>(editor, "txtName").text(), name);
                script.expectMessage(master(kind).changed);
                accessKey('s');
                press(Qt::Key_Escape);
            });
        Recordset rows(desk.connection);
        rows.open(u"Select * from %1 where id=%2"_s.arg(master(kind).table).arg(id));
        QCOMPARE(rows.text(master(kind).column), name);
    }
}

void MasterEditorTest::whatIsInUseStays_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("use");
    QTest::addColumn<bool>("stays");
    const auto row = [](const char *name, int kind, const QString &use, bool stays) {
        QTest::newRow(name) << kind << use << stays;
    };
    row("client on a job card", Client, u"order"_s, true);
    row("client with postings", Client, u"AccID"_s, false);
    row("worker of a row", Worker, u"order"_s, true);
    row("worker with postings", Worker, u"AccID"_s, true);
    row("worker on the other side only", Worker, u"RefID"_s, false);
    row("item on a job card", Item, u"order"_s, true);
    row("item on a cancelled job card", Item, u"cancelled order"_s, true);
    row("account with postings", Account, u"AccID"_s, true);
    row("account on the other side only", Account, u"RefID"_s, true);
    row("account with cancelled postings", Account, u"cancelled AccID"_s, true);
}

void MasterEditorTest::whatIsInUseStays()
{
    QFETCH(int, kind);
    QFETCH(QString, use);
    QFETCH(bool, stays);
    MasterDesk desk;
    const bool cancelled = use.startsWith(u"cancelled");
    if (use.endsWith(u"order")) {
        desk.addOrder(5, 1, 6);
        if (cancelled)
            desk.connection.execute(u"update JOBS_DETAIL set DoneByWorker=4"_s);
    } else {
        desk.addPosting(use == u"RefID" ? 4 : master(kind).id, QDate(2011, 4, 1), 100, cancelled ? 1 : 0);
        if (use == u"RefID")
            desk.connection.execute(u"update Postings set RefID="_s + QString::number(master(kind).id));
    }
    inScreen(
        master(kind).editor, [kind] { master(kind).edit(master(kind).id); },
        [stays](QWidget &, ModalScript &script) {
            script.expectMessage(u"Are you sure?"_s, Qt::Key_Y);
            script.expectMessage(stays ? u"Cant't Delete!"_s : u"Deleted."_s);
            accessKey('d');
            if (stays)
                press(Qt::Key_Escape);
        });
    QCOMPARE(nameOf(desk, master(kind)), stays ? master(kind).name : QString());
}

void MasterEditorTest::deletingAsksFirst()
{
    QFETCH(int, kind);
    MasterDesk desk;
    const int others = desk.count(master(kind).table) - 1;
    session::NeedRefresh = false;
    inScreen(
        master(kind).editor, [kind] { master(kind).edit(master(kind).id); },
        [&](QWidget &, ModalScript &script) {
            for (const Qt::Key no : {Qt::Key_N, Qt::Key_Escape}) {
                script.expectMessage(u"Are you sure?"_s, no);
                accessKey('d');
                QCOMPARE(nameOf(desk, master(kind)), master(kind).name);
                QVERIFY(!session::NeedRefresh);
            }
            script.expectMessage(u"Are you sure?"_s, Qt::Key_Return).expectMessage(u"Deleted."_s);
            accessKey('d');
        });
    QVERIFY(session::NeedRefresh);
    QCOMPARE(nameOf(desk, master(kind)), QString());
    QCOMPARE(desk.count(master(kind).table), others);
}

void MasterEditorTest::whatAnotherProgramDeletedIsNotSaved()
{
    QFETCH(int, kind);
    MasterDesk desk;
    inScreen(
        master(kind).editor, [kind] { master(kind).edit(master(kind).id); },
        [&](QWidget &editor, ModalScript &script) {
            Connection other;
            other.open(desk.path());
            other.execute(u"Delete from %1 where id=%2"_s.arg(master(kind).table).arg(master(kind).id));
            type(u"another name"_s);
            const QString typed = control<kvTextBox>(editor, "txtName").text();
            session::NeedRefresh = false;
            script.expectMessage(u"Another program has deleted this entry meanwhile. Nothing was saved."_s);
            accessKey('s');
            QCOMPARE(control<kvTextBox>(editor, "txtName").text(), typed);
            press(Qt::Key_Escape);
        });
    QCOMPARE(nameOf(desk, master(kind)), QString());
}

void MasterEditorTest::whatIsNotThereIsAFailure()
{
    const MasterDesk desk;
    for (const Master &kind : masters())
        EXPECT_FAULT(Fault::NoCurrentRecord, kind.edit(99));
}

CORVANE_TEST(MasterEditorTest)
#include "tst_MasterEditor.moc"
