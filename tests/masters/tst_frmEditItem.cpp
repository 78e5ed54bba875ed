#include "masters/frmEditItem.h"

#include "MasterDesk.h"
#include "ui/kvTextBox.h"
#include "ui/kvTextBoxMultiLine.h"

#include <QRadioButton>

using namespace Qt::StringLiterals;
using driver::control;
using driver::press;
using driver::type;

/// An item: its numbers, its type and its measurement template.
class EditItemTest : public QObject {
    Q_OBJECT

private slots:
    void anItemIsEnteredByKeys();
    void numbersAreKeptOrToldAtTheirField();
    void templatesHoldNoBlankLines();
    void anInventoryItemHasNoMeasurements();
};

namespace {

const QString columns =
    u"Select Name, Fees, WorkerFees, ItemDetails, ProdcutionCap, OpPendingOrders, isInventory, NAMEHindi from Items where id="_s;

const Master &item()
{
    return masters()[Item];
}

kvTextBoxMultiLine &linesOf(const QWidget &editor)
{
    return control<kvTextBoxMultiLine>(editor, "txtItemDetails");
}

} // namespace

void EditItemTest::anItemIsEnteredByKeys()
{
    MasterDesk desk;
    item().inNew([](QWidget &editor, ModalScript &script) {
        const QString preset = u"Measurement 1\r\nMeasurement 2\r\nMeasurement 3=Default Value"_s;
        QCOMPARE(linesOf(editor).Text(), preset);
        QVERIFY(control<QRadioButton>(editor, "ckNotInv").isChecked());
        for (const char *entry : {"shirt", "350.5", "90", "12", "4"}) {
            type(QLatin1StringView(entry));
            press(Qt::Key_Return);
        }
        press(Qt::Key_Return);
        QVERIFY(isEntered(linesOf(editor)));
        // The pattern is selected and written over; Enter makes a line, Tab leaves.
        type(u"Length\r"_s);
        type(u"Collar=Round\t"_s);
        script.expectMessage(item().added).expect(item().editor, [preset](QWidget &next) {
            QCOMPARE(linesOf(next).Text(), preset);
            press(Qt::Key_Escape);
        });
        press(Qt::Key_Return);
    });
    QCOMPARE(desk.lines(columns + u'2'), QStringList{u"Shirt|350.5|90|Length\r\nCollar=Round|12|4|0|"_s});
    inScreen(
        item().editor, [] { item().edit(2); },
        [](QWidget &editor, ModalScript &) {
            const std::pair<const char *, QString> shown[]{{"txtFees", u"350.50"_s}, {"txtWorkerFees", u"90.00"_s},
                {"txtProductionCap", u"12"_s}, {"txtPendingOrdersBal", u"4"_s}};
            for (const auto &[name, text] : shown)
                QCOMPARE(control<kvTextBox>(editor, name).text(), text);
        });
}

void EditItemTest::numbersAreKeptOrToldAtTheirField()
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
            {{{}, u"0"_s}, {u"many"_s, u"0"_s}, {u"12 a day"_s, u"12"_s}, {u"2.5"_s, u"2.5"_s},
                {u"32767"_s, u"32767"_s}},
            {u"32768"_s, u"1e9"_s, u"-1"_s}, u"Production capacity must be a number from 0 to 32767!"_s},
        {"txtPendingOrdersBal", u"OpPendingOrders"_s, {{{}, u"0"_s}, {u"2.5"_s, u"2.5"_s}, {u"32767"_s, u"32767"_s}},
            {u"32768"_s, u"-1"_s}, u"Pending orders must be a number from 0 to 32767!"_s},
    };
    for (const auto &entry : cases) {
        MasterDesk desk;
        item().inEdit([&](QWidget &editor, ModalScript &script) {
            auto &box = control<kvTextBox>(editor, entry.field);
            const auto enter = [&box](const QString &text) {
                box.setFocus();
                box.selectAll();
                paste(text);
                // What a key does not type may still be set.
                if (box.text() != text)
                    box.setText(text);
            };
            const QString stored = u"Select %1 from Items where id=1"_s.arg(entry.column);
            for (const auto &[text, kept] : entry.kept) {
                enter(text);
                tells(script, 's', item().changed);
                QCOMPARE(desk.lines(stored), QStringList{kept});
            }
            const QStringList before = desk.lines(stored);
            // A fault is told before anything is overwritten.
            control<QRadioButton>(editor, "ckProduct").setChecked(true);
            for (const QString &text : entry.refused) {
                enter(text);
                tells(script, 's', entry.message);
                QVERIFY(isEntered(box));
                QCOMPARE(linesOf(editor).Text(), u"Chest\r\nWaist"_s);
                QCOMPARE(desk.lines(stored), before);
            }
        });
    }
}

void EditItemTest::templatesHoldNoBlankLines()
{
    QStringList many;
    for (int i = 0; i < 200; ++i)
        many += u"Field %1=%1"_s.arg(i);
    const std::pair<QString, QString> cases[]{{u"Chest\n\n\nWaist"_s, u"Chest\r\nWaist"_s},
        {u"\n\nChest\n"_s, u"Chest"_s}, {u"Chest\n   \nWaist"_s, u"Chest\r\nWaist"_s},
        {u"Chest\r\n\r\nWaist\r\n"_s, u"Chest\r\nWaist"_s}, {u"\n\n"_s, {}},
        {u"Collar=Round=Old\n=x"_s, u"Collar=Round=Old\r\n=x"_s}, {many.join(u'\n'), many.join(u"\r\n"_s)}};
    MasterDesk desk;
    for (const auto &entry : cases) {
        item().inEdit([&entry](QWidget &editor, ModalScript &script) {
            auto &lines = linesOf(editor);
            lines.setFocus();
            press(Qt::Key_A, Qt::ControlModifier);
            paste(entry.first);
            press(Qt::Key_Tab);
            QCOMPARE(lines.Text(), entry.second);
            // The same where the command takes the focus.
            lines.setFocus();
            press(Qt::Key_End, Qt::ControlModifier);
            press(Qt::Key_Return);
            tells(script, 's', item().changed);
        });
        QCOMPARE(desk.lines(u"Select ItemDetails from Items where id=1"_s), QStringList{entry.second});
        item().inEdit([&entry](QWidget &editor, ModalScript &) { QCOMPARE(linesOf(editor).Text(), entry.second); });
    }
}

void EditItemTest::anInventoryItemHasNoMeasurements()
{
    MasterDesk desk;
    desk.connection.execute(u"update Items set NAMEHindi='dksV' where id=1"_s);
    item().inEdit([](QWidget &editor, ModalScript &script) {
        auto &inventory = control<QRadioButton>(editor, "ckProduct");
        auto &other = control<QRadioButton>(editor, "ckNotInv");
        QVERIFY(other.isChecked());
        inventory.click();
        QVERIFY(inventory.isChecked() && !other.isChecked() && !linesOf(editor).isEnabled());
        // Until it is saved nothing is lost.
        other.click();
        QVERIFY(!inventory.isChecked() && linesOf(editor).isEnabled());
        QCOMPARE(linesOf(editor).Text(), u"Chest\r\nWaist"_s);
        inventory.click();
        tells(script, 's', item().changed);
        QCOMPARE(linesOf(editor).Text(), u"Inventory"_s);
    });
    QCOMPARE(desk.lines(columns + u'1'), QStringList{u"Coat|400|150|Inventory|0|0|1|dksV"_s});
    item().inEdit(
        [](QWidget &editor, ModalScript &) { QVERIFY(control<QRadioButton>(editor, "ckProduct").isChecked()); });
}

CORVANE_TEST(EditItemTest)
#include "tst_frmEditItem.moc"
