#include "MasterDesk.h"
#include "masters/frmEditClients.h"
#include "ui/DateField.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"
#include "ui/kvTextBoxMultiLine.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::paste;
using driver::press;
using driver::type;

/// What each editor has of its own: a client's key and birthday, an item's numbers and measurements, an account's type.
class EditorFieldsTest : public QObject {
    Q_OBJECT

private slots:
    void theOrderDeskGetsTheNameSavedLast();
    void aClientIsEnteredByEnterAlone();
    void anOpenedClientShowsWhatIsStored();
    void keysAreOneEach();
    void theNextKeyFollowsTheLastAccounts();
    void anItemIsEnteredByKeys();
    void numbersAreKeptOrToldAtTheirField();
    void templatesHoldNoBlankLines();
    void anInventoryItemHasNoMeasurements();
    void aNewAccountStaysOpenForChanges();
    void defaultAccountsStayAsTheyAre();
    void aChangeIsMeasuredByTheTitleOfTheOpening();
};

namespace {

const Master &client = masters()[Client];
const Master &item = masters()[Item];
const Master &account = masters()[Account];

kvTextBox &box(const QWidget &editor, const char *name)
{
    return control<kvTextBox>(editor, name);
}

kvTextBoxMultiLine &linesOf(const QWidget &editor)
{
    return control<kvTextBoxMultiLine>(editor, "txtItemDetails");
}

QString storedClient(MasterDesk &desk, int id)
{
    return desk
        .lines(u"Select Title, Key, Address, City, State, Mobile, dob, Type, Nature, readonly from Accounts "
               "where id=%1"_s.arg(id))
        .value(0);
}

QString storedItem(MasterDesk &desk, int id)
{
    return desk
        .lines(u"Select Name, Fees, WorkerFees, ItemDetails, ProdcutionCap, OpPendingOrders, isInventory, "
               "NAMEHindi from Items where id=%1"_s.arg(id))
        .value(0);
}

QString storedAccount(MasterDesk &desk, int id)
{
    return desk.lines(u"Select Title, Type, Nature, readonly from Accounts where id=%1"_s.arg(id)).value(0);
}

/// Enters one field after the other.
void enterEach(std::initializer_list<const char *> entries)
{
    for (const char *entry : entries) {
        type(QLatin1StringView(entry));
        press(Qt::Key_Return);
    }
}

} // namespace

void EditorFieldsTest::theOrderDeskGetsTheNameSavedLast()
{
    MasterDesk desk;
    const auto fromJobCard = [](const QString &typed) {
        QString name;
        inScreen(
            client.editor, [&name] { name = frmEditClients().AddNewFromJobCard(); },
            [&typed](QWidget &, ModalScript &script) {
                if (typed.isEmpty())
                    return press(Qt::Key_Escape);
                type(typed);
                // One client and not one after the other: the order waits.
                tells(script, 's', client.added);
            });
        return name;
    };
    QCOMPARE(fromJobCard(u"zoya o'neil"_s), u"Zoya O'neil"_s);
    QCOMPARE(fromJobCard({}), u"Zoya O'neil"_s);
    client.inEdit([](QWidget &editor, ModalScript &script) {
        box(editor, "txtName").setText(u"Asha Devi"_s);
        tells(script, 's', client.changed);
    });
    QCOMPARE(fromJobCard({}), u"Asha Devi"_s);
    QCOMPARE(desk.count(u"Accounts"_s), 8);
}

void EditorFieldsTest::aClientIsEnteredByEnterAlone()
{
    MasterDesk desk;
    client.inNew([](QWidget &editor, ModalScript &script) {
        enterEach({"bina joshi", "9829012345", "b7", "12, lake road", "udaipur", "rajasthan", "5/6/75"});
        QVERIFY(isEntered(control<QPushButton>(editor, "Command1")));
        client.expectLeft(script.expectMessage(client.added));
        press(Qt::Key_Return);
    });
    QCOMPARE(storedClient(desk, 8), u"Bina Joshi|B7|12, Lake Road|Udaipur|Rajasthan|9829012345|05-Jun-1975|0|0|0"_s);
}

void EditorFieldsTest::anOpenedClientShowsWhatIsStored()
{
    MasterDesk desk;
    client.inEdit([](QWidget &editor, ModalScript &script) {
        // Never filled columns are empty fields, and become empty texts.
        for (const char *name : {"txtKey", "txtAddress", "txtCity", "txtState", "txtMobile"})
            QCOMPARE(box(editor, name).text(), QString());
        auto &birthday = control<DateField>(editor, "dateDob");
        QCOMPARE(birthday.birthday(), QDate(1980, 1, 31));
        QVERIFY(!control<QPushButton>(editor, "Command3").isEnabled());
        box(editor, "txtCity").setText(u"Kota"_s);
        birthday.setFocus(Qt::TabFocusReason);
        type(u"31/2/80"_s);
        tells(script, 's', u"\"31/2/80\" is not a date!"_s);
        QVERIFY(isEntered(birthday));
        press(Qt::Key_Delete);
        tells(script, 's', client.changed);
    });
    client.inEdit([](QWidget &editor, ModalScript &) {
        QVERIFY(control<DateField>(editor, "dateDob").isEmpty());
        box(editor, "txtCity").setText(u"Elsewhere"_s);
    });
    QCOMPARE(storedClient(desk, 5), u"Asha Rao|||Kota||||0|0|0"_s);
}

void EditorFieldsTest::keysAreOneEach()
{
    for (const auto &[key, isFree] : {std::pair{u"A13"_s, true}, {u"A12"_s, false}, {u"a12"_s, false}, {u""_s, true},
             {u"A' or 'a'='a"_s, true}, {u"own"_s, true}}) {
        for (const bool isNew : {true, false}) {
            // In another case it is a client's own and no other's.
            const bool saves = isFree && !(isNew && key == u"own");
            MasterDesk desk;
            desk.connection.execute(u"update Accounts set Key='Own' where id=5"_s);
            desk.connection.execute(u"update Accounts set Key='A12' where id=6"_s);
            desk.connection.execute(u"update Accounts set Key='' where id=7"_s);
            (client.*(isNew ? &Master::inNew : &Master::inEdit))([&, key = key](QWidget &editor, ModalScript &script) {
                box(editor, "txtName").setText(u"Asha Devi"_s);
                box(editor, "txtKey").setText(key);
                script.expectMessage(!saves ? u"Duplicate Key!"_s : isNew ? client.added : client.changed);
                if (saves && isNew)
                    client.expectLeft(script);
                accessKey('s');
                QVERIFY(saves || isEntered(box(editor, "txtKey")));
                // What it was saved with is its own from now on.
                if (saves && !isNew)
                    tells(script, 's', client.changed);
            });
            QCOMPARE(desk.lines(u"Select Key from Accounts where Title='Asha Devi'"_s),
                saves ? QStringList{key} : QStringList());
        }
    }
}

void EditorFieldsTest::theNextKeyFollowsTheLastAccounts()
{
    MasterDesk desk;
    desk.connection.execute(u"update Accounts set Key='90' where id=5"_s);
    for (const auto &[last, next] : {std::pair{u"'41'"_s, u"42"_s}, {u"'A12'"_s, u"1"_s}, {u"'12A'"_s, u"13"_s},
             {u"Null"_s, u"1"_s}, {u"'32767'"_s, u"32768"_s}}) {
        desk.connection.execute(u"update Accounts set Key=%1 where id=7"_s.arg(last));
        client.inNew([next = next](QWidget &editor, ModalScript &) {
            accessKey('g');
            QCOMPARE(box(editor, "txtKey").text(), next);
            QVERIFY(isEntered(box(editor, "txtKey")));
            press(Qt::Key_Return);
            QVERIFY(isEntered(box(editor, "txtAddress")));
        });
    }
}

void EditorFieldsTest::anItemIsEnteredByKeys()
{
    MasterDesk desk;
    item.inNew([](QWidget &editor, ModalScript &script) {
        const QString preset = u"Measurement 1\r\nMeasurement 2\r\nMeasurement 3=Default Value"_s;
        QCOMPARE(linesOf(editor).Text(), preset);
        QVERIFY(control<QRadioButton>(editor, "ckNotInv").isChecked());
        enterEach({"shirt", "350.5", "90", "12", "4", ""});
        QVERIFY(isEntered(linesOf(editor)));
        // The pattern is selected and written over; Enter makes a line, Tab leaves.
        type(u"Length\rCollar=Round\t"_s);
        script.expectMessage(item.added).expect(item.editor, [preset](QWidget &next) {
            QCOMPARE(linesOf(next).Text(), preset);
            press(Qt::Key_Escape);
        });
        press(Qt::Key_Return);
    });
    QCOMPARE(storedItem(desk, 2), u"Shirt|350.5|90|Length\r\nCollar=Round|12|4|0|"_s);
    inScreen(
        item.editor, [] { item.edit(2); },
        [](QWidget &editor, ModalScript &) {
            QStringList shown;
            for (const char *name : {"txtFees", "txtWorkerFees", "txtProductionCap", "txtPendingOrdersBal"})
                shown += box(editor, name).text();
            QCOMPARE(shown.join(u'|'), u"350.50|90.00|12|4"_s);
        });
}

void EditorFieldsTest::numbersAreKeptOrToldAtTheirField()
{
    const struct {
        const char *field;
        QString column;
        QList<std::pair<QString, QString>> kept;
        QStringList refused;
        QString message;
    } cases[]{
        {"txtFees", u"Fees"_s, {{{}, u"0"_s}, {u"."_s, u"0"_s}, {u"12.345"_s, u"12.35"_s}, {u"1e9"_s, u"1000000000"_s}},
            {u"1000000000.01"_s, u"1e300"_s}, u"Fees are too high!"_s},
        {"txtWorkerFees", u"WorkerFees"_s, {{{}, u"0"_s}, {u"12.345"_s, u"12.35"_s}, {u"1e9"_s, u"1000000000"_s}},
            {u"99999999999999999999"_s}, u"Worker's fees are too high!"_s},
        {"txtProductionCap", u"ProdcutionCap"_s,
            {{{}, u"0"_s}, {u"12 a day"_s, u"12"_s}, {u"2.5"_s, u"2.5"_s}, {u"32767"_s, u"32767"_s}},
            {u"32768"_s, u"-1"_s}, u"Production capacity must be a number from 0 to 32767!"_s},
        {"txtPendingOrdersBal", u"OpPendingOrders"_s, {{{}, u"0"_s}, {u"2.5"_s, u"2.5"_s}, {u"32767"_s, u"32767"_s}},
            {u"32768"_s, u"-1"_s}, u"Pending orders must be a number from 0 to 32767!"_s},
    };
    for (const auto &entry : cases) {
        MasterDesk desk;
        item.inEdit([&](QWidget &editor, ModalScript &script) {
            auto &field = box(editor, entry.field);
            const QString stored = u"Select %1 from Items where id=1"_s.arg(entry.column);
            for (const auto &[text, kept] : entry.kept) {
                field.setText(text);
                tells(script, 's', item.changed);
                QCOMPARE(desk.lines(stored), QStringList{kept});
            }
            const QStringList before = desk.lines(stored);
            // A fault is told before anything is overwritten.
            control<QRadioButton>(editor, "ckProduct").setChecked(true);
            for (const QString &text : entry.refused) {
                field.setText(text);
                tells(script, 's', entry.message);
                QVERIFY(isEntered(field));
                QCOMPARE(linesOf(editor).Text(), u"Chest\r\nWaist"_s);
                QCOMPARE(desk.lines(stored), before);
            }
        });
    }
}

void EditorFieldsTest::templatesHoldNoBlankLines()
{
    MasterDesk desk;
    for (const auto &[typed, kept] : {std::pair{u"Chest\n\n\nWaist"_s, u"Chest\r\nWaist"_s},
             {u"\n\nChest\n"_s, u"Chest"_s}, {u"Chest\r\n   \r\nWaist\r\n"_s, u"Chest\r\nWaist"_s}, {u"\n\n"_s, u""_s},
             {u"Collar=Round=Old\n=x"_s, u"Collar=Round=Old\r\n=x"_s}}) {
        item.inEdit([typed = typed, kept = kept](QWidget &editor, ModalScript &script) {
            auto &lines = linesOf(editor);
            lines.setFocus();
            press(Qt::Key_A, Qt::ControlModifier);
            paste(typed);
            press(Qt::Key_Tab);
            QCOMPARE(lines.Text(), kept);
            // The same where the command takes the focus.
            lines.setFocus();
            press({Qt::CTRL | Qt::Key_End, Qt::Key_Return});
            tells(script, 's', item.changed);
        });
        QCOMPARE(desk.lines(u"Select ItemDetails from Items where id=1"_s), QStringList{kept});
    }
}

void EditorFieldsTest::anInventoryItemHasNoMeasurements()
{
    MasterDesk desk;
    desk.connection.execute(u"update Items set NAMEHindi='dksV' where id=1"_s);
    item.inEdit([](QWidget &editor, ModalScript &script) {
        auto &inventory = control<QRadioButton>(editor, "ckProduct");
        auto &other = control<QRadioButton>(editor, "ckNotInv");
        inventory.click();
        QVERIFY(!other.isChecked() && !linesOf(editor).isEnabled());
        // Until it is saved nothing is lost.
        other.click();
        QVERIFY(!inventory.isChecked() && linesOf(editor).isEnabled());
        QCOMPARE(linesOf(editor).Text(), u"Chest\r\nWaist"_s);
        inventory.click();
        tells(script, 's', item.changed);
        QCOMPARE(linesOf(editor).Text(), u"Inventory"_s);
    });
    QCOMPARE(storedItem(desk, 1), u"Coat|400|150|Inventory|0|0|1|dksV"_s);
    item.inEdit(
        [](QWidget &editor, ModalScript &) { QVERIFY(control<QRadioButton>(editor, "ckProduct").isChecked()); });
}

void EditorFieldsTest::aNewAccountStaysOpenForChanges()
{
    MasterDesk desk;
    account.inNew([&desk](QWidget &editor, ModalScript &script) {
        const auto &heading = control<QLabel>(editor, "lblTitle");
        auto &kind = control<kvComboBox>(editor, "cmbType");
        QCOMPARE(heading.text(), account.adding);
        // There is nothing to delete yet.
        accessKey('d');
        // A type is asked for before a taken title is told, and half an entry is none.
        type(u"cash"_s);
        for (int i = 0; i < 2; ++i) {
            tells(script, 's', u"Please select account type"_s);
            QVERIFY(isEntered(kind));
            type(u"i\b"_s);
        }
        type(u"\be\r"_s);
        tells(script, 's', u"Duplicate!"_s);
        QVERIFY(isEntered(box(editor, "txtName")));
        box(editor, "txtName").setText(u"Tea"_s);
        tells(script, 's', account.added);
        QCOMPARE(storedAccount(desk, 8), u"Tea|2|1|0"_s);
        QCOMPARE(heading.text(), account.editing);
        box(editor, "txtName").setText(u"TEA"_s);
        kind.setText(u"Income"_s);
        tells(script, 's', account.changed);
        QCOMPARE(storedAccount(desk, 8), u"TEA|2|0|0"_s);
        deleteIt(script);
    });
    QCOMPARE(desk.count(u"Accounts"_s), 7);
}

void EditorFieldsTest::defaultAccountsStayAsTheyAre()
{
    MasterDesk desk;
    int id = 0;
    for (const QString &row : {u"Wages|2|1|1"_s, u"Sales|2|0|1"_s, u"Purchase|2|1|1"_s, u"Cash|2|0|1"_s}) {
        ++id;
        inScreen(
            account.editor, [id] { account.edit(id); },
            [&row](QWidget &editor, ModalScript &script) {
                auto &name = box(editor, "txtName");
                auto &kind = control<kvComboBox>(editor, "cmbType");
                QCOMPARE(name.text(), row.section(u'|', 0, 0));
                QCOMPARE(QString::number(kind.currentIndex()), row.section(u'|', 2, 2));
                kind.setCurrentIndex(1 - kind.currentIndex());
                tells(script, 's', u"Cant't Rename!"_s);
                // Before it is looked whether the title is free, and after it is looked whether there is one.
                name.setText(u"Rent"_s);
                tells(script, 's', u"Cant't Rename!"_s);
                name.setText({});
                tells(script, 's', account.missing);
                tells(script, 'd', u"Cant't Delete!"_s);
            });
        QCOMPARE(storedAccount(desk, id), row);
    }
}

void EditorFieldsTest::aChangeIsMeasuredByTheTitleOfTheOpening()
{
    MasterDesk desk;
    const auto rename = [](const QString &title, const QStringList &messages) {
        account.inEdit([&](QWidget &editor, ModalScript &script) {
            box(editor, "txtName").setText(title);
            for (const QString &message : messages)
                tells(script, 's', message);
        });
    };
    // Renamed, it is known by its old title until it is opened anew.
    rename(u"Shop Rent"_s, {account.changed, u"Duplicate!"_s});
    rename(u"shop rent"_s, {account.changed, account.changed});
    QCOMPARE(storedAccount(desk, 7), u"shop rent|2|0|0"_s);
}

CORVANE_TEST(EditorFieldsTest)
#include "tst_editorFields.moc"
