#include "jobcards/frmAddItem.h"

#include "OrderDesk.h"
#include "jobcards/ItemDetails.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"
#include "ui/kvTextBoxMultiLine.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// One ordered item: what it brings back from the last order, what it refuses, what it leaves in the row.
class AddItemTest : public QObject {
    Q_OBJECT

private slots:
    void aNewClientGetsTheMastersDefaults();
    void aReturningClientGetsTheLastValues();
    void inventoryFollowsTheItemAndStaysOnByHand();
    void theChecksComeInTheirOrder();
    void whatIsGivenUpLeavesTheRowsAlone();
    void anOpenedRowShowsAndTakesItsValues();
    void anItemLeftBringsItsValues();
    void aRenamedItemBecomesNoOther();
    void aSecondEnterInTheNoteGoesToOK();
    void theListScrollsToWhereTheUserIs();
    void theColourIsKeptAsItsNumber();
};

namespace {

using Work = std::function<void(QWidget &, ModalScript &)>;

/// Opens the editor for a new row of Asha Rao, or for the one at `index`, and does `work` in it. What is open after
/// that is left with Escape. Whether the row was taken.
bool edit(clsJobCardData &rows, int index, const Work &work)
{
    ModalScript script;
    script.expect(u"frmAddItem"_s, [&](QWidget &editor) {
        work(editor, script);
        if (editor.isVisible())
            press(Qt::Key_Escape);
    });
    bool cancelled = false;
    if (index > 0)
        frmAddItem().EditItemDetails(rows, 5, index, cancelled);
    else
        frmAddItem().ItemDetails(rows, 5, cancelled);
    return !cancelled;
}

kvTextBox &field(const QWidget &editor, const char *name)
{
    return control<kvTextBox>(editor, name);
}

kvComboBox &itemIn(const QWidget &editor)
{
    return control<kvComboBox>(editor, "cmbItems");
}

QString measurements(const QWidget &editor)
{
    const auto &list = control<ItemDetails>(editor, "ItemDetails1");
    QStringList lines;
    for (int i = 0; i < list.count(); ++i) {
        QString label;
        QString value;
        list.ListItemText(i, label, value);
        lines += label + u'=' + value;
    }
    return lines.join(u' ');
}

QString told(const clsJobCardData &rows, int row)
{
    const auto lines = [](QString text) { return text.replace(u"\r\n"_s, u"/"_s); };
    return u"%1 %2 x%3 %4 %5 %6 %7"_s.arg(rows.ItemID(row))
        .arg(rows.ItemName(row))
        .arg(rows.Qty(row))
        .arg(rows.Amount(row), 0, 'f', 2)
        .arg(rows.isInv(row))
        .arg(lines(rows.ItemDetails(row)), lines(rows.ItemDetailsValue(row)));
}

QString note(const QWidget &editor)
{
    return control<QLabel>(editor, "lblLast").text();
}

void click(const QWidget &editor, const char *command)
{
    control<QPushButton>(editor, command).click();
}

} // namespace

void AddItemTest::aNewClientGetsTheMastersDefaults()
{
    OrderDesk desk;
    desk.addItem(u"Kurta"_s, u"Length\r\n\r\nCollar=Chinese=x\r\nNeck"_s, 500, 130);
    clsJobCardData rows;
    QVERIFY(edit(rows, 0, [](QWidget &editor, ModalScript &) {
        QCOMPARE(control<QLabel>(editor, "lblClint").text(), u"Asha Rao"_s);
        type(u"kur"_s);
        QCOMPARE(measurements(editor), QString());
        press(Qt::Key_Return);
        QCOMPARE(measurements(editor), u"Length= Collar=Chinese Neck="_s);
        QCOMPARE(note(editor), u"No Previous record found!"_s);
        QCOMPARE(field(editor, "txtFees").text(), u"500"_s);
        type(u"40"_s);
        accessKey('o');
    }));
    QCOMPARE(rows.RowCount(), qint16(1));
    QCOMPARE(told(rows, 1), u"2 Kurta x1 500.00 0 Length/Collar/Neck 40/Chinese/NA"_s);
    QCOMPARE(rows.Color(1), u"16777215"_s);
}

void AddItemTest::aReturningClientGetsTheLastValues()
{
    OrderDesk desk;
    desk.book(u"2"_s);
    JobCard second = desk.card(u"1"_s);
    second.JobDate = {2011, 4, 20};
    clsJobCardData newest = desk.rows(1);
    newest.SetItemDetailsValue(1, u"44=tight\r\n38"_s);
    newest.SetClientRemarks(1, u"Long sleeves"_s);
    JobCardStore().SaveNew(second, newest);
    clsJobCardData rows;
    QVERIFY(!edit(rows, 0, [](QWidget &editor, ModalScript &) {
        type(u"coat\r"_s);
        QCOMPARE(measurements(editor), u"Chest=44 Waist=38"_s);
        QCOMPARE(note(editor), u"Previous JOB : 20-Apr-2011"_s);
        QCOMPARE(control<kvTextBoxMultiLine>(editor, "txtClientRemark").Text(), u"Long sleeves"_s);
        QVERIFY(control<QRadioButton>(editor, "opIsInv").isChecked());
    }));
    // A row opened again keeps the whole value; only the recall cuts it.
    edit(newest, 1,
        [](QWidget &editor, ModalScript &) { QCOMPARE(measurements(editor), u"Chest=44=tight Waist=38"_s); });
}

void AddItemTest::inventoryFollowsTheItemAndStaysOnByHand()
{
    OrderDesk desk;
    desk.addItem(u"Tie"_s, {}, 200, 0, true);
    clsJobCardData rows;
    QVERIFY(edit(rows, 0, [](QWidget &editor, ModalScript &) {
        auto &inventory = control<QRadioButton>(editor, "opIsInv");
        type(u"tie\r"_s);
        QVERIFY(inventory.isChecked());
        itemIn(editor).setFocus();
        type(u"coat\r"_s);
        QVERIFY(!inventory.isChecked());
        inventory.click();
        inventory.click();
        accessKey('o');
    }));
    // An empty value is written down as such.
    QCOMPARE(told(rows, 1), u"1 Coat x1 400.00 -1 Chest/Waist NA/NA"_s);
}

void AddItemTest::theChecksComeInTheirOrder()
{
    OrderDesk desk;
    clsJobCardData rows;
    QVERIFY(edit(rows, 0, [](QWidget &editor, ModalScript &script) {
        const auto refuses = [&](const QString &message, const QString &name) {
            tells(script, 'o', message);
            QCOMPARE(focused(), name);
        };
        auto &fees = field(editor, "txtFees");
        auto &quantity = field(editor, "txtQnt");
        quantity.setText(u"0"_s);
        refuses(u"Please Select Item!"_s, u"cmbItems"_s);
        type(u"coat"_s);
        refuses(u"Please Enter Fees!"_s, u"txtFees"_s);
        type(u"-12.5.0"_s);
        QCOMPARE(fees.text(), u"12.50"_s);
        refuses(u"Please Enter Quantity!"_s, u"txtQnt"_s);
        type(u"4.x"_s);
        QCOMPARE(quantity.text(), u"4"_s);
        fees.setText(u"1e300"_s);
        refuses(u"Fees are too high!"_s, u"txtFees"_s);
        for (const QString &number : {u"32768"_s, u"-40000"_s, u"0.4"_s}) {
            quantity.setText(number);
            refuses(u"Quantity must be a whole number up to 32767!"_s, u"txtQnt"_s);
        }
        // The most there can be.
        fees.setText(u"12.50"_s);
        quantity.setText(u"32767"_s);
        accessKey('o');
    }));
    QCOMPARE(told(rows, 1), u"1 Coat x32767 409587.50 0  "_s);
}

void AddItemTest::whatIsGivenUpLeavesTheRowsAlone()
{
    OrderDesk desk;
    clsJobCardData rows = desk.rows(1);
    // Enter in an empty item box closes.
    QVERIFY(!edit(rows, 0, [](QWidget &, ModalScript &) { press(Qt::Key_Return); }));
    QVERIFY(!edit(rows, 1, [](QWidget &editor, ModalScript &) {
        field(editor, "txtQnt").setFocus();
        type(u"9"_s);
    }));
    QCOMPARE(rows.RowCount(), qint16(1));
    QCOMPARE(rows.Qty(1), qint16(2));
}

void AddItemTest::anOpenedRowShowsAndTakesItsValues()
{
    OrderDesk desk;
    desk.addItem(u"Shirt"_s, u"Collar"_s, 300, 80);
    clsJobCardData rows = desk.rows(2);
    rows.SetSr(2, 17);
    rows.SetWorkerWagesDue(2, 99);
    edit(rows, 2, [](QWidget &editor, ModalScript &) {
        QCOMPARE(itemIn(editor).currentText(), u"Coat"_s);
        for (const auto &[name, text] : {std::pair{"txtFees", u"400"_s}, {"txtQnt", u"2"_s}, {"txtRemark", u"Wool"_s}})
            QCOMPARE(field(editor, name).text(), text);
        QCOMPARE(measurements(editor), u"Chest=40 Waist=NA"_s);
        QCOMPARE(note(editor), QString());
        QVERIFY(field(editor, "txtValue").hasFocus());
        itemIn(editor).setFocus();
        type(u"shirt\r"_s);
        field(editor, "txtRemark").setFocus();
        type(u"fine silk"_s);
        accessKey('o');
    });
    QCOMPARE(rows.RowCount(), qint16(2));
    QCOMPARE(rows.ItemName(1), u"Coat"_s);
    QCOMPARE(told(rows, 2), u"2 Shirt x2 600.00 0 Collar NA"_s);
    QCOMPARE(rows.Remarks(2), u"fine Silk"_s);
    QCOMPARE(rows.Sr(2), qint16(17));
    QCOMPARE(rows.WorkerWagesDue(2), 99.0);
}

void AddItemTest::anItemLeftBringsItsValues()
{
    enum Way { Tab, Mouse, OK };
    OrderDesk desk;
    desk.addItem(u"Shirt"_s, u"Collar"_s, 300, 80);
    for (const Way way : {Tab, Mouse, OK}) {
        clsJobCardData rows = desk.rows(1);
        edit(rows, 1, [&](QWidget &editor, ModalScript &) {
            itemIn(editor).setFocus();
            // Passed through, the item leaves what stands there.
            field(editor, "txtFees").setText(u"410"_s);
            press(Qt::Key_Tab);
            QCOMPARE(field(editor, "txtFees").text(), u"410"_s);
            itemIn(editor).setFocus();
            type(u"shirt"_s);
            if (way == OK)
                return accessKey('o');
            press(way == Tab ? Qt::Key_Tab : Qt::Key_Escape);
            if (way == Mouse)
                QTest::mouseClick(&field(editor, "txtRemark"), Qt::LeftButton);
            QCOMPARE(field(editor, "txtFees").text(), u"300"_s);
            QCOMPARE(measurements(editor), u"Collar="_s);
            accessKey('o');
        });
        QCOMPARE(told(rows, 1), u"2 Shirt x2 600.00 0 Collar NA"_s);
    }
}

void AddItemTest::aRenamedItemBecomesNoOther()
{
    OrderDesk desk;
    clsJobCardData rows = desk.rows(2);
    desk.connection.execute(u"update Items set Name='Coat of silk' where Name='Coat'"_s);
    edit(rows, 2, [](QWidget &editor, ModalScript &script) {
        itemIn(editor).setFocus();
        QCOMPARE(itemIn(editor).currentText(), u"Coat"_s);
        tells(script, 'o', u"Please Select Item!"_s);
        QCOMPARE(itemIn(editor).currentText(), u"Coat"_s);
        // Typed, it is what it begins.
        type(u"coat"_s);
        QCOMPARE(itemIn(editor).currentText(), u"Coat of silk"_s);
        accessKey('o');
    });
    QCOMPARE(rows.ItemName(2), u"Coat of silk"_s);
}

void AddItemTest::aSecondEnterInTheNoteGoesToOK()
{
    OrderDesk desk;
    clsJobCardData rows = desk.rows(1);
    edit(rows, 1, [](QWidget &editor, ModalScript &) {
        auto &clientNote = control<kvTextBoxMultiLine>(editor, "txtClientRemark");
        clientNote.setText({});
        clientNote.setFocus();
        type(u"one\rtwo\r"_s);
        QVERIFY(clientNote.hasFocus());
        press({Qt::Key_Return, Qt::Key_Return});
    });
    QCOMPARE(rows.ClientRemarks(1).count(u"\r\n"_s), 2);
}

void AddItemTest::theListScrollsToWhereTheUserIs()
{
    ItemDetails list(u"ItemDetails1"_s);
    list.resize(260, 160);
    for (int i = 0; i < 100; ++i)
        list.AddFeild(u"Field %1"_s.arg(i), QString::number(i));
    QVERIFY(driver::show(list));
    list.SetFocusToList();
    for (int move = 0; move < 80; ++move) {
        move < 60 ? press(Qt::Key_Return) : press(Qt::Key_Backtab, Qt::ShiftModifier);
        const QWidget *const focus = QApplication::focusWidget();
        const QRect place(focus->mapTo(list.viewport(), QPoint()), focus->size());
        QVERIFY(list.viewport()->rect().contains(place));
    }
    QVERIFY(list.findChildren<kvTextBox *>().at(40)->hasFocus());
}

void AddItemTest::theColourIsKeptAsItsNumber()
{
    OrderDesk desk;
    clsJobCardData rows = desk.rows(1);
    // Black is none.
    for (const QColor &color : {QColor(1, 2, 3), QColor(Qt::black)}) {
        QVERIFY(edit(rows, 1, [&color](QWidget &editor, ModalScript &script) {
            script.expect(u"QColorDialog"_s, [&color](QWidget &dialog) {
                dialog.setProperty("currentColor", color);
                press(Qt::Key_Return);
            });
            click(editor, "picColor");
            accessKey('o');
        }));
        QCOMPARE(rows.Color(1), QString::number(1 + 256 * 2 + 65536 * 3));
    }
}

CORVANE_TEST(AddItemTest)
#include "tst_frmAddItem.moc"
