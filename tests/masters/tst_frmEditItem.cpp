#include "masters/frmEditItem.h"

#include "MasterDesk.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/kvTextBox.h"
#include "ui/kvTextBoxMultiLine.h"

#include <QRadioButton>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// An item: its numbers, its type and its measurement template.
class EditItemTest : public QObject {
    Q_OBJECT

private slots:
    void anItemIsEnteredByKeys();
    void numbersAreKeptOrToldAtTheirField_data();
    void numbersAreKeptOrToldAtTheirField();
    void templatesHoldNoBlankLines_data();
    void templatesHoldNoBlankLines();
    void anInventoryItemHasNoMeasurements();
};

namespace {

const QString columns =
    u"Select Name, Fees, WorkerFees, ItemDetails, ProdcutionCap, OpPendingOrders, isInventory, NAMEHindi from Items where id="_s;
const QString presetLines = u"Measurement 1\r\nMeasurement 2\r\nMeasurement 3=Default Value"_s;

void inEdit(const std::function<void(QWidget &, ModalScript &)> &work)
{
    inScreen(
        u"frmEditItem"_s, [] { frmEditItem().Edit(1); }, work);
}

void save(ModalScript &script, const QString &message)
{
    script.expectMessage(message);
    accessKey('s');
    QVERIFY(script.isDone());
}

} // namespace

void EditItemTest::anItemIsEnteredByKeys()
{
    MasterDesk desk;
    inScreen(
        u"frmEditItem"_s, [] { frmEditItem().AddNew(); },
        [](QWidget &editor, ModalScript &script) {
            auto &lines = control<kvTextBoxMultiLine>(editor, "txtItemDetails");
            QCOMPARE(lines.Text(), presetLines);
            QVERIFY(control<QRadioButton>(editor, "ckNotInv").isChecked());
            for (const char *entry : {"shirt", "350.5", "90", "12", "4"}) {
                type(QLatin1StringView(entry));
                press(Qt::Key_Return);
            }
            press(Qt::Key_Return);
            QVERIFY(isEntered(lines));
            // The pattern is selected and written over; Enter makes a line, Tab leaves.
            type(u"Length"_s);
            press(Qt::Key_Return);
            type(u"Collar=Round"_s);
            press(Qt::Key_Tab);
            script.expectMessage(u"New Item Added."_s);
            script.expect(u"frmEditItem"_s, [](QWidget &next) {
                QCOMPARE(control<kvTextBoxMultiLine>(next, "txtItemDetails").Text(), presetLines);
                press(Qt::Key_Escape);
            });
            press(Qt::Key_Return);
        });
    QCOMPARE(desk.lines(columns + u'2'), QStringList{u"Shirt|350.5|90|Length\r\nCollar=Round|12|4|0|"_s});
    inScreen(
        u"frmEditItem"_s, [] { frmEditItem().Edit(2); },
        [](QWidget &editor, ModalScript &) {
            QCOMPARE(control<kvTextBox>(editor, "txtFees").text(), u"350.50"_s);
            QCOMPARE(control<kvTextBox>(editor, "txtWorkerFees").text(), u"90.00"_s);
            QCOMPARE(control<kvTextBox>(editor, "txtProductionCap").text(), u"12"_s);
            QCOMPARE(control<kvTextBox>(editor, "txtPendingOrdersBal").text(), u"4"_s);
            press(Qt::Key_Escape);
        });
}

void EditItemTest::numbersAreKeptOrToldAtTheirField_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("column");
    /// What is stored, or the message.
    QTest::addColumn<QString>("outcome");
    const auto row = [](const char *field, const QString &text, const QString &column, const QString &outcome) {
        QTest::addRow("%s %s", field, qPrintable(text)) << QByteArray(field) << text << column << outcome;
    };
    const std::pair<const char *, QString> amounts[]{{"txtFees", u"Fees"_s}, {"txtWorkerFees", u"WorkerFees"_s}};
    for (const auto &[field, column] : amounts) {
        row(field, {}, column, u"0"_s);
        row(field, u"."_s, column, u"0"_s);
        row(field, u"12.345"_s, column, u"12.35"_s);
        row(field, u"1e9"_s, column, u"1000000000"_s);
    }
    row("txtFees", u"1000000000.01"_s, u"Fees"_s, u"Fees are too high!"_s);
    row("txtFees", u"1e300"_s, u"Fees"_s, u"Fees are too high!"_s);
    row("txtWorkerFees", u"99999999999999999999"_s, u"WorkerFees"_s, u"Worker's fees are too high!"_s);
    const std::pair<const char *, QString> counts[]{
        {"txtProductionCap", u"ProdcutionCap"_s}, {"txtPendingOrdersBal", u"OpPendingOrders"_s}};
    for (const auto &[field, column] : counts) {
        row(field, {}, column, u"0"_s);
        row(field, u"many"_s, column, u"0"_s);
        row(field, u"12 a day"_s, column, u"12"_s);
        row(field, u"2.5"_s, column, u"2.5"_s);
        row(field, u"32767"_s, column, u"32767"_s);
    }
    for (const QString &text : {u"32768"_s, u"1e9"_s, u"-1"_s}) {
        row("txtProductionCap", text, u"ProdcutionCap"_s, u"Production capacity must be a number from 0 to 32767!"_s);
        row("txtPendingOrdersBal", text, u"OpPendingOrders"_s, u"Pending orders must be a number from 0 to 32767!"_s);
    }
}

void EditItemTest::numbersAreKeptOrToldAtTheirField()
{
    QFETCH(QByteArray, field);
    QFETCH(QString, text);
    QFETCH(QString, column);
    QFETCH(QString, outcome);
    MasterDesk desk;
    const bool told = outcome.endsWith(u'!');
    const QString statement = u"Select %1 from Items where id=1"_s.arg(column);
    const QStringList before = desk.lines(statement);
    inEdit([&](QWidget &editor, ModalScript &script) {
        auto &box = control<kvTextBox>(editor, field.constData());
        box.setFocus();
        box.selectAll();
        paste(text);
        // What a key does not type may still be set.
        if (box.text() != text)
            box.setText(text);
        // A fault is told before anything is overwritten.
        if (told)
            control<QRadioButton>(editor, "ckProduct").setChecked(true);
        save(script, told ? outcome : u"Item Edited."_s);
        QVERIFY(!told || isEntered(box));
        QVERIFY(!told || control<kvTextBoxMultiLine>(editor, "txtItemDetails").Text() == u"Chest\r\nWaist");
        press(Qt::Key_Escape);
    });
    QCOMPARE(desk.lines(statement), told ? before : QStringList{outcome});
}

void EditItemTest::templatesHoldNoBlankLines_data()
{
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("kept");
    QTest::newRow("between") << u"Chest\n\n\nWaist"_s << u"Chest\r\nWaist"_s;
    QTest::newRow("around") << u"\n\nChest\n"_s << u"Chest"_s;
    QTest::newRow("of blanks") << u"Chest\n   \nWaist"_s << u"Chest\r\nWaist"_s;
    QTest::newRow("carriage returns") << u"Chest\r\n\r\nWaist\r\n"_s << u"Chest\r\nWaist"_s;
    QTest::newRow("nothing else") << u"\n\n"_s << QString();
    QTest::newRow("two equal signs") << u"Collar=Round=Old\n=x"_s << u"Collar=Round=Old\r\n=x"_s;
    QStringList many;
    for (int i = 0; i < 200; ++i)
        many += u"Field %1=%1"_s.arg(i);
    QTest::newRow("two hundred") << many.join(u'\n') << many.join(u"\r\n"_s);
}

void EditItemTest::templatesHoldNoBlankLines()
{
    QFETCH(QString, pasted);
    QFETCH(QString, kept);
    MasterDesk desk;
    inEdit([&](QWidget &editor, ModalScript &script) {
        auto &lines = control<kvTextBoxMultiLine>(editor, "txtItemDetails");
        lines.setFocus();
        press(Qt::Key_A, Qt::ControlModifier);
        paste(pasted);
        press(Qt::Key_Tab);
        QCOMPARE(lines.Text(), kept);
        // The same where the command takes the focus.
        lines.setFocus();
        press(Qt::Key_End, Qt::ControlModifier);
        press(Qt::Key_Return);
        save(script, u"Item Edited."_s);
        press(Qt::Key_Escape);
    });
    QCOMPARE(desk.lines(u"Select ItemDetails from Items where id=1"_s), QStringList{kept});
    inEdit([&](QWidget &editor, ModalScript &) {
        QCOMPARE(control<kvTextBoxMultiLine>(editor, "txtItemDetails").Text(), kept);
        press(Qt::Key_Escape);
    });
}

void EditItemTest::anInventoryItemHasNoMeasurements()
{
    MasterDesk desk;
    desk.connection.execute(u"update Items set NAMEHindi='dksV' where id=1"_s);
    inEdit([](QWidget &editor, ModalScript &script) {
        auto &inventory = control<QRadioButton>(editor, "ckProduct");
        auto &other = control<QRadioButton>(editor, "ckNotInv");
        auto &lines = control<kvTextBoxMultiLine>(editor, "txtItemDetails");
        QVERIFY(other.isChecked());
        inventory.click();
        QVERIFY(inventory.isChecked() && !other.isChecked() && !lines.isEnabled());
        // Until it is saved nothing is lost.
        other.click();
        QVERIFY(!inventory.isChecked() && lines.isEnabled());
        QCOMPARE(lines.Text(), u"Chest\r\nWaist"_s);
        inventory.click();
        save(script, u"Item Edited."_s);
        QCOMPARE(lines.Text(), u"Inventory"_s);
        press(Qt::Key_Escape);
    });
    QCOMPARE(desk.lines(columns + u'1'), QStringList{u"Coat|400|150|Inventory|0|0|1|dksV"_s});
    inEdit([](QWidget &editor, ModalScript &) {
        QVERIFY(control<QRadioButton>(editor, "ckProduct").isChecked());
        press(Qt::Key_Escape);
    });
}

CORVANE_TEST(EditItemTest)
#include "tst_frmEditItem.moc"
