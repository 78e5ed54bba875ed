#include "masters/MasterEditor.h"

#include "MasterDesk.h"
#include "base/session.h"
#include "store/DataEnvironment.h"
#include "store/lookups.h"
#include "support/expectFault.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::paste;
using driver::press;
using driver::type;

/// What the editors of all masters have in common: names, saving, deleting.
class MasterEditorTest : public QObject {
    Q_OBJECT

private slots:
    void newOnesAreAddedOneAfterAnother();
    void aNameMustBeGiven();
    void aNameMayNotBeTaken();
    void namesAreKeptAsTyped();
    void whatIsInUseStays();
    void deletingAsksFirst();
    void whatAnotherProgramDeletedIsNotSaved();
};

namespace {

kvTextBox &nameIn(const QWidget &editor)
{
    return control<kvTextBox>(editor, "txtName");
}

/// Fills in what else a new one needs.
void complete(const QWidget &editor, Kind kind)
{
    if (kind == Account)
        control<kvComboBox>(editor, "cmbType").setText(u"Income"_s);
}

QString storedName(MasterDesk &desk, const Master &master, int id = 0)
{
    return desk.lines(u"Select %1 from %2 where id=%3"_s.arg(master.column, master.table).arg(id > 0 ? id : master.id))
        .join(u'|');
}

int idOf(const Master &master, const QString &name)
{
    return GetFieldValue(u"ID"_s, master.table, master.column, name, DE().rsItems2).toInt();
}

qsizetype shownEditors()
{
    const auto windows = QApplication::topLevelWidgets();
    return std::count_if(windows.begin(), windows.end(),
        [](const QWidget *window) { return window->isVisible() && window->inherits("MasterEditor"); });
}

} // namespace

void MasterEditorTest::newOnesAreAddedOneAfterAnother()
{
    // An account stays open for changes instead.
    for (const Kind kind : {Client, Worker, Item}) {
        const Master &master = masters().at(kind);
        MasterDesk desk;
        master.inEdit([&master](QWidget &editor, ModalScript &) {
            QCOMPARE(control<QLabel>(editor, "lblTitle").text(), master.editing);
            QVERIFY(control<QPushButton>(editor, "Command2").isEnabled());
        });
        ModalScript script;
        const std::function<void(int)> expectRound = [&](int round) {
            script.expect(master.editor, [&, round](QWidget &editor) {
                QCOMPARE(shownEditors(), 1);
                QCOMPARE(control<QLabel>(editor, "lblTitle").text(), master.adding);
                QVERIFY(isEntered(nameIn(editor)) && nameIn(editor).text().isEmpty());
                QVERIFY(!control<QPushButton>(editor, "Command2").isEnabled());
                if (round == 3)
                    return press(Qt::Key_Escape);
                type(u"new %1"_s.arg(round));
                session::NeedRefresh = false;
                script.expectMessage(master.added);
                expectRound(round + 1);
                accessKey('s');
                QVERIFY(session::NeedRefresh);
            });
        };
        expectRound(0);
        master.add();
        for (const QString &name : {u"New 0"_s, u"New 1"_s, u"New 2"_s})
            QVERIFY2(idOf(master, name) > 0, qPrintable(name));
    }
}

void MasterEditorTest::aNameMustBeGiven()
{
    for (const Master &master : masters()) {
        MasterDesk desk;
        const int before = desk.count(master.table);
        master.inNew([&master](QWidget &editor, ModalScript &script) {
            complete(editor, master.kind);
            for (const QString &name : {QString(), u"   "_s}) {
                nameIn(editor).setText(name);
                tells(script, 's', master.missing);
                QVERIFY(isEntered(nameIn(editor)));
            }
        });
        QCOMPARE(desk.count(master.table), before);
    }
}

void MasterEditorTest::aNameMayNotBeTaken()
{
    const struct {
        Kind kind;
        QString name;
        bool taken;
    } cases[]{{Client, u"asha rao"_s, true}, {Client, u"Babu Lal"_s, true}, {Client, u"CASH"_s, true},
        {Client, u"Coat"_s, false}, {Worker, u"Asha Rao"_s, true}, {Worker, u"rent"_s, true}, {Item, u"COAT"_s, true},
        {Item, u"Asha Rao"_s, false}, {Account, u"cash"_s, true}, {Account, u"babu lal"_s, true},
        {Account, u"Ren"_s, false}, {Account, u"Ren%"_s, false}, {Client, u"x' or '1'='1"_s, false}};
    const QString given = u"Something Else"_s;
    for (const auto &entry : cases) {
        const Master &master = masters().at(entry.kind);
        const QString &name = entry.name;
        for (const bool isNew : {true, false}) {
            MasterDesk desk;
            if (!isNew)
                desk.connection.execute(u"update %1 set %2='%3' where id=%4"_s.arg(
                    master.table, master.column, given, QString::number(master.id)));
            // Its own name of before is free then.
            const bool refused = entry.taken && (isNew || name.compare(master.name, Qt::CaseInsensitive) != 0);
            (master.*(isNew ? &Master::inNew : &Master::inEdit))([&](QWidget &editor, ModalScript &script) {
                complete(editor, master.kind);
                paste(name);
                script.expectMessage(refused ? u"Duplicate!"_s : isNew ? master.added : master.changed);
                if (!refused && isNew && master.kind != Account)
                    master.expectLeft(script);
                accessKey('s');
                QCOMPARE(nameIn(editor).text(), name);
                QVERIFY(!refused || isEntered(nameIn(editor)));
            });
            QCOMPARE(idOf(master, given) > 0, !isNew && refused);
        }
    }
}

void MasterEditorTest::namesAreKeptAsTyped()
{
    const QString signs = u"O'Neil''s & 50% [off] #1 ; -- \"x\" `y` *?_"_s;
    const QString blanks = u"  two  blanks "_s;
    for (const auto &[pasted, kept] :
        {std::pair{signs, signs}, {blanks, blanks}, {u"Asha\r\nDevi\nRao"_s, u"Asha Devi Rao"_s}}) {
        MasterDesk desk;
        for (const Master &master : masters()) {
            // One name for all kinds would be taken after the first.
            const QString ending = QString::number(master.kind);
            master.inNew([&, pasted = pasted](QWidget &editor, ModalScript &script) {
                complete(editor, master.kind);
                paste(pasted + ending);
                script.expectMessage(master.added);
                if (master.kind != Account)
                    master.expectLeft(script);
                accessKey('s');
            });
            const QString name = kept + ending;
            const int id = idOf(master, name);
            inScreen(
                master.editor, [&master, id] { master.edit(id); },
                [&](QWidget &editor, ModalScript &script) {
                    QCOMPARE(nameIn(editor).text(), name);
                    // In another case it is no other.
                    for (const QString &own : {name, name.toUpper(), name.toLower(), name}) {
                        nameIn(editor).setText(own);
                        session::NeedRefresh = false;
                        tells(script, 's', master.changed);
                        QVERIFY(session::NeedRefresh);
                        QCOMPARE(storedName(desk, master, id), own);
                    }
                });
        }
    }
}

void MasterEditorTest::whatIsInUseStays()
{
    const struct {
        Kind kind;
        QString use;
        bool stays;
    } cases[]{{Client, u"order"_s, true}, {Client, u"AccID"_s, false}, {Worker, u"order"_s, true},
        {Worker, u"AccID"_s, true}, {Worker, u"RefID"_s, false}, {Item, u"order"_s, true},
        {Item, u"cancelled order"_s, true}, {Account, u"AccID"_s, true}, {Account, u"RefID"_s, true},
        {Account, u"cancelled AccID"_s, true}};
    for (const auto &entry : cases) {
        const Master &master = masters().at(entry.kind);
        MasterDesk desk;
        const bool cancelled = entry.use.startsWith(u"cancelled");
        if (entry.use.endsWith(u"order"))
            desk.addJobRow({.worker = 6, .status = cancelled ? 4 : 0});
        else
            desk.addPosting(entry.use == u"RefID" ? 4 : master.id, QDate(2011, 4, 1), 100, cancelled ? 1 : 0);
        if (entry.use == u"RefID")
            desk.connection.execute(u"update Postings set RefID="_s + QString::number(master.id));
        master.inEdit([&entry](QWidget &, ModalScript &script) {
            deleteIt(script, entry.stays ? u"Cant't Delete!"_s : u"Deleted."_s);
        });
        QCOMPARE(storedName(desk, master), entry.stays ? master.name : QString());
    }
}

void MasterEditorTest::deletingAsksFirst()
{
    for (const Master &master : masters()) {
        MasterDesk desk;
        const int others = desk.count(master.table) - 1;
        session::NeedRefresh = false;
        master.inEdit([&](QWidget &, ModalScript &script) {
            for (const Qt::Key no : {Qt::Key_N, Qt::Key_Escape}) {
                script.expectMessage(u"Are you sure?"_s, no);
                accessKey('d');
                QCOMPARE(storedName(desk, master), master.name);
                QVERIFY(!session::NeedRefresh);
            }
            script.expectMessage(u"Are you sure?"_s, Qt::Key_Return).expectMessage(u"Deleted."_s);
            accessKey('d');
        });
        QVERIFY(session::NeedRefresh);
        QCOMPARE(storedName(desk, master), QString());
        QCOMPARE(desk.count(master.table), others);
    }
}

void MasterEditorTest::whatAnotherProgramDeletedIsNotSaved()
{
    for (const Master &master : masters()) {
        MasterDesk desk;
        master.inEdit([&](QWidget &editor, ModalScript &script) {
            Connection other;
            other.open(desk.path());
            other.execute(u"Delete from %1 where id=%2"_s.arg(master.table).arg(master.id));
            type(u"another name"_s);
            const QString typed = nameIn(editor).text();
            tells(script, 's', u"Another program has deleted this entry meanwhile. Nothing was saved."_s);
            QCOMPARE(nameIn(editor).text(), typed);
        });
        QCOMPARE(storedName(desk, master), QString());
        EXPECT_FAULT(Fault::NoCurrentRecord, master.edit(master.id));
    }
}

CORVANE_TEST(MasterEditorTest)
#include "tst_MasterEditor.moc"
