#include "jobcards/frmAddItem.h"

#include "OrderDesk.h"
#include "devices/shell.h"
#include "jobcards/ItemDetails.h"
#include "pictures/PictureBox.h"
#include "store/DataEnvironment.h"
#include "support/ModalScript.h"
#include "support/expectFault.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"
#include "ui/kvTextBoxMultiLine.h"

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

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
    void anEmptyValueIsStoredAsNA();
    void theChecksComeInTheirOrder();
    void enterInAnEmptyItemBoxCloses();
    void escapeLeavesTheRowsAlone();
    void anOpenedRowShowsAndTakesItsValues();
    void anItemLeftBringsItsValues_data();
    void anItemLeftBringsItsValues();
    void aRenamedItemBecomesNoOther();
    void aSecondEnterInTheNoteGoesToOK();
    void inventoryFollowsTheItemAndStaysOnByHand();
    void picturesAreShownOpenedAndCleared();
    void tooFewValuesAreAFailure();
    void theListKeepsOneSlotAndScrolls();
    void theColourIsKeptAsItsNumber();
};

namespace {

/// Opens the editor for a new row of Asha Rao and does `work` in it.
void onNewRow(clsJobCardData &rows, const std::function<void(QWidget &)> &work, bool expectCancelled)
{
    ModalScript script;
    script.expect(u"frmAddItem"_s, work);
    bool cancelled = !expectCancelled;
    frmAddItem().ItemDetails(rows, 5, cancelled);
    QVERIFY(script.isDone());
    QCOMPARE(cancelled, expectCancelled);
}

void onRow(clsJobCardData &rows, int index, const std::function<void(QWidget &)> &work)
{
    ModalScript script;
    script.expect(u"frmAddItem"_s, work);
    bool cancelled = true;
    frmAddItem().EditItemDetails(rows, 5, index, cancelled);
    QVERIFY(script.isDone());
}

QStringList measurements(const QWidget &editor)
{
    const auto &list = control<ItemDetails>(editor, "ItemDetails1");
    QStringList lines;
    for (int i = 0; i < list.count(); ++i) {
        QString label;
        QString value;
        list.ListItemText(i, label, value);
        lines += label + u'=' + value;
    }
    return lines;
}

QString note(const QWidget &editor)
{
    return control<QLabel>(editor, "lblLast").text();
}

} // namespace

void AddItemTest::aNewClientGetsTheMastersDefaults()
{
    OrderDesk desk;
    desk.addItem(u"Kurta"_s, u"Length\r\n\r\nCollar=Chinese=x\r\nNeck"_s, 500, 130);
    clsJobCardData rows;
    onNewRow(
        rows,
        [](QWidget &editor) {
            QCOMPARE(control<QLabel>(editor, "lblClint").text(), u"Asha Rao"_s);
            QCOMPARE(control<kvTextBox>(editor, "txtQnt").text(), u"1"_s);
            QCOMPARE(control<kvTextBox>(editor, "txtFees").text(), u"0"_s);
            type(u"kur"_s);
            QCOMPARE(measurements(editor), QStringList());
            press(Qt::Key_Return);
            QCOMPARE(measurements(editor), QStringList({u"Length="_s, u"Collar=Chinese"_s, u"Neck="_s}));
            QCOMPARE(note(editor), u"No Previous record found!"_s);
            QCOMPARE(control<kvTextBox>(editor, "txtFees").text(), u"500"_s);
            type(u"40"_s);
            accessKey('o');
        },
        false);
    QCOMPARE(rows.RowCount(), qint16(1));
    QCOMPARE(rows.ItemID(1), qint16(2));
    QCOMPARE(rows.ItemDetails(1), u"Length\r\nCollar\r\nNeck"_s);
    QCOMPARE(rows.ItemDetailsValue(1), u"40\r\nChinese\r\nNA"_s);
    QCOMPARE(rows.Amount(1), 500.0);
    QCOMPARE(rows.isInv(1), qint16(0));
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
    onNewRow(
        rows,
        [](QWidget &editor) {
            type(u"coat"_s);
            press(Qt::Key_Return);
            QCOMPARE(measurements(editor), QStringList({u"Chest=44"_s, u"Waist=38"_s}));
            QCOMPARE(note(editor), u"Previous JOB : 20-Apr-2011"_s);
            QCOMPARE(control<kvTextBoxMultiLine>(editor, "txtClientRemark").Text(), u"Long sleeves"_s);
            QVERIFY(control<QRadioButton>(editor, "opIsInv").isChecked());
            press(Qt::Key_Escape);
        },
        true);
    // A row opened again keeps the whole value; only the recall cuts it.
    onRow(newest, 1, [](QWidget &editor) {
        QCOMPARE(measurements(editor), QStringList({u"Chest=44=tight"_s, u"Waist=38"_s}));
        press(Qt::Key_Escape);
    });
}

void AddItemTest::anEmptyValueIsStoredAsNA()
{
    OrderDesk desk;
    clsJobCardData rows;
    onNewRow(
        rows,
        [](QWidget &) {
            type(u"coat"_s);
            press(Qt::Key_Return);
            accessKey('o');
        },
        false);
    QCOMPARE(rows.ItemDetailsValue(1), u"NA\r\nNA"_s);
    desk.addItem(u"Tie"_s, {}, 200, 0, true);
    onNewRow(
        rows,
        [](QWidget &editor) {
            type(u"tie"_s);
            press(Qt::Key_Return);
            QCOMPARE(measurements(editor), QStringList());
            accessKey('o');
        },
        false);
    QCOMPARE(rows.ItemDetails(2) + rows.ItemDetailsValue(2), QString());
    QCOMPARE(rows.isInv(2), qint16(-1));
}

void AddItemTest::theChecksComeInTheirOrder()
{
    OrderDesk desk;
    clsJobCardData rows;
    ModalScript script;
    script.expect(u"frmAddItem"_s, [&script](QWidget &editor) {
        const auto refuses = [&](const QString &message, const char *field) {
            script.expectMessage(message);
            accessKey('o');
            QVERIFY2(control<QWidget>(editor, field).hasFocus()
                    || control<QWidget>(editor, field).isAncestorOf(QApplication::focusWidget()),
                field);
        };
        auto &fees = control<kvTextBox>(editor, "txtFees");
        auto &quantity = control<kvTextBox>(editor, "txtQnt");
        quantity.setText(u"0"_s);
        refuses(u"Please Select Item!"_s, "cmbItems");
        type(u"coat"_s);
        refuses(u"Please Enter Fees!"_s, "txtFees");
        type(u"-12.5.0"_s);
        QCOMPARE(fees.text(), u"12.50"_s);
        refuses(u"Please Enter Quantity!"_s, "txtQnt");
        type(u"4.x"_s);
        QCOMPARE(quantity.text(), u"4"_s);
        quantity.setText(u"32768"_s);
        refuses(u"Quantity must be a whole number up to 32767!"_s, "txtQnt");
        quantity.setText(u"4"_s);
        fees.setText(u"1e300"_s);
        refuses(u"Fees are too high!"_s, "txtFees");
        quantity.setText(u"-40000"_s);
        refuses(u"Quantity must be a whole number up to 32767!"_s, "txtQnt");
        quantity.setText(u"0.4"_s);
        refuses(u"Quantity must be a whole number up to 32767!"_s, "txtQnt");
        quantity.setText(u"4"_s);
        fees.setText(u"150.50"_s);
        fees.setFocus();
        fees.selectAll();
        type(u".75"_s);
        QCOMPARE(fees.text(), u".75"_s);
        fees.setText(u"12.50"_s);
        accessKey('o');
    });
    bool cancelled = true;
    frmAddItem().ItemDetails(rows, 5, cancelled);
    QVERIFY(!cancelled);
    QCOMPARE(rows.Amount(1), 50.0);
    QCOMPARE(rows.Qty(1), qint16(4));
}

void AddItemTest::enterInAnEmptyItemBoxCloses()
{
    OrderDesk desk;
    clsJobCardData rows;
    onNewRow(
        rows, [](QWidget &) { press(Qt::Key_Return); }, true);
    QCOMPARE(rows.RowCount(), qint16(0));
}

void AddItemTest::escapeLeavesTheRowsAlone()
{
    OrderDesk desk;
    clsJobCardData rows = desk.rows(1);
    onRow(rows, 1, [](QWidget &editor) {
        control<kvTextBox>(editor, "txtQnt").setFocus();
        type(u"9"_s);
        press(Qt::Key_Escape);
    });
    QCOMPARE(rows.Qty(1), qint16(2));
}

void AddItemTest::anOpenedRowShowsAndTakesItsValues()
{
    OrderDesk desk;
    desk.addItem(u"Shirt"_s, u"Collar"_s, 300, 80);
    clsJobCardData rows = desk.rows(2);
    rows.SetSr(2, 17);
    rows.SetWorkerWagesDue(2, 99);
    onRow(rows, 2, [](QWidget &editor) {
        QCOMPARE(control<kvComboBox>(editor, "cmbItems").currentText(), u"Coat"_s);
        QCOMPARE(control<kvTextBox>(editor, "txtFees").text(), u"400"_s);
        QCOMPARE(control<kvTextBox>(editor, "txtQnt").text(), u"2"_s);
        QCOMPARE(control<kvTextBox>(editor, "txtRemark").text(), u"Wool"_s);
        QCOMPARE(measurements(editor), QStringList({u"Chest=40"_s, u"Waist=NA"_s}));
        QCOMPARE(note(editor), QString());
        QVERIFY(editor.findChild<kvTextBox *>(u"txtValue"_s)->hasFocus());
        control<kvComboBox>(editor, "cmbItems").setFocus();
        type(u"shirt"_s);
        press(Qt::Key_Return);
        control<kvTextBox>(editor, "txtRemark").setFocus();
        type(u"fine silk"_s);
        accessKey('o');
    });
    QCOMPARE(rows.RowCount(), qint16(2));
    QCOMPARE(rows.ItemName(1), u"Coat"_s);
    QCOMPARE(rows.ItemName(2), u"Shirt"_s);
    QCOMPARE(rows.ItemID(2), qint16(2));
    QCOMPARE(rows.Amount(2), 600.0);
    QCOMPARE(rows.Remarks(2), u"fine Silk"_s);
    QCOMPARE(rows.ItemDetails(2), u"Collar"_s);
    QCOMPARE(rows.isInv(2), qint16(0));
    QCOMPARE(rows.Sr(2), qint16(17));
    QCOMPARE(rows.WorkerWagesDue(2), 99.0);
}

void AddItemTest::anItemLeftBringsItsValues_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<bool>("isOpened");
    for (const char *way : {"Tab", "mouse", "OK"}) {
        QTest::newRow(qPrintable(u"%1, after another item"_s.arg(QLatin1StringView(way))))
            << QString::fromLatin1(way) << false;
        QTest::newRow(qPrintable(u"%1, in an opened row"_s.arg(QLatin1StringView(way))))
            << QString::fromLatin1(way) << true;
    }
}

void AddItemTest::anItemLeftBringsItsValues()
{
    QFETCH(QString, way);
    QFETCH(bool, isOpened);
    OrderDesk desk;
    desk.addItem(u"Shirt"_s, u"Collar"_s, 300, 80);
    clsJobCardData rows = desk.rows(2);
    onRow(rows, 2, [&](QWidget &editor) {
        control<kvComboBox>(editor, "cmbItems").setFocus();
        if (!isOpened) {
            type(u"coat"_s);
            press(Qt::Key_Return);
            control<kvComboBox>(editor, "cmbItems").setFocus();
        }
        // Passed through, the item leaves what stands there.
        control<kvTextBox>(editor, "txtFees").setText(u"410"_s);
        press(Qt::Key_Tab);
        QCOMPARE(control<kvTextBox>(editor, "txtFees").text(), u"410"_s);
        control<kvComboBox>(editor, "cmbItems").setFocus();
        type(u"shirt"_s);
        if (way == u"Tab"_s)
            press(Qt::Key_Tab);
        else if (way == u"mouse"_s) {
            press(Qt::Key_Escape);
            QTest::mouseClick(&control<kvTextBox>(editor, "txtRemark"), Qt::LeftButton);
        } else
            return accessKey('o');
        QVERIFY(editor.focusWidget() && editor.focusWidget()->isVisible());
        QCOMPARE(control<kvTextBox>(editor, "txtFees").text(), u"300"_s);
        QCOMPARE(measurements(editor).size(), 1);
        accessKey('o');
    });
    QCOMPARE(rows.ItemName(2), u"Shirt"_s);
    QCOMPARE(rows.Amount(2), 600.0);
    QCOMPARE(rows.ItemDetails(2), u"Collar"_s);
}

void AddItemTest::aRenamedItemBecomesNoOther()
{
    OrderDesk desk;
    clsJobCardData rows = desk.rows(2);
    desk.connection.execute(u"update Items set Name='Coat of silk' where Name='Coat'"_s);
    ModalScript script;
    script.expect(u"frmAddItem"_s, [&script](QWidget &editor) {
        const auto &item = control<kvComboBox>(editor, "cmbItems");
        editor.findChild<kvComboBox *>(u"cmbItems"_s)->setFocus();
        QCOMPARE(item.currentText(), u"Coat"_s);
        script.expectMessage(u"Please Select Item!"_s);
        accessKey('o');
        QCOMPARE(item.currentText(), u"Coat"_s);
        // Typed, it is what it begins.
        type(u"coat"_s);
        QCOMPARE(item.currentText(), u"Coat of silk"_s);
        accessKey('o');
    });
    bool cancelled = true;
    frmAddItem().EditItemDetails(rows, 5, 2, cancelled);
    QCOMPARE(rows.ItemName(2), u"Coat of silk"_s);
}

void AddItemTest::aSecondEnterInTheNoteGoesToOK()
{
    OrderDesk desk;
    clsJobCardData rows = desk.rows(1);
    onRow(rows, 1, [](QWidget &editor) {
        auto &clientNote = control<kvTextBoxMultiLine>(editor, "txtClientRemark");
        clientNote.setText({});
        clientNote.setFocus();
        type(u"one"_s);
        press(Qt::Key_Return);
        type(u"two"_s);
        press(Qt::Key_Return);
        QVERIFY(clientNote.hasFocus());
        press(Qt::Key_Return);
        QVERIFY(control<QPushButton>(editor, "Command1").hasFocus());
        clientNote.setFocus();
        press(Qt::Key_End, Qt::ControlModifier);
        press(Qt::Key_Return);
        press(Qt::Key_Up);
        press(Qt::Key_Return);
        QVERIFY(clientNote.hasFocus());
        press(Qt::Key_Return);
        press(Qt::Key_Return);
    });
    QCOMPARE(rows.ClientRemarks(1).count(u"\r\n"_s), 4);
}

void AddItemTest::inventoryFollowsTheItemAndStaysOnByHand()
{
    OrderDesk desk;
    desk.addItem(u"Tie"_s, {}, 200, 0, true);
    clsJobCardData rows;
    onNewRow(
        rows,
        [](QWidget &editor) {
            auto &inventory = control<QRadioButton>(editor, "opIsInv");
            type(u"tie"_s);
            press(Qt::Key_Return);
            QVERIFY(inventory.isChecked());
            inventory.click();
            QVERIFY(inventory.isChecked());
            control<kvComboBox>(editor, "cmbItems").setFocus();
            type(u"coat"_s);
            press(Qt::Key_Return);
            QVERIFY(!inventory.isChecked());
            inventory.click();
            accessKey('o');
        },
        false);
    QCOMPARE(rows.isInv(1), qint16(-1));
}

void AddItemTest::picturesAreShownOpenedAndCleared()
{
    OrderDesk desk;
    const QString first = desk.folder.filePath(u"one.bmp"_s);
    const QString second = desk.folder.filePath(u"two.jpg"_s);
    QVERIFY(QImage(20, 20, QImage::Format_RGB32).save(first));
    QFile broken(second);
    QVERIFY(broken.open(QIODevice::WriteOnly) && broken.write("no picture") > 0);
    broken.close();
    clsJobCardData rows = desk.rows(1);
    rows.SetImg1(1, first);
    rows.SetImg2(1, second);
    QString opened;
    shell::replaceOpener([&opened](const QString &path) { opened = path; });
    onRow(rows, 1, [&](QWidget &editor) {
        auto &picture = control<PictureBox>(editor, "pic1");
        QVERIFY(picture.hasPicture());
        QVERIFY(!control<PictureBox>(editor, "pic2").hasPicture());
        QCOMPARE(control<kvTextBox>(editor, "picPath2").text(), second);
        QTest::mouseDClick(&picture, Qt::LeftButton);
        QCOMPARE(opened, first);
        control<QPushButton>(editor, "Command6").click();
        QVERIFY(!picture.hasPicture());
        QVERIFY(!QFile::exists(first));
        QVERIFY(QFile::exists(second));
        opened.clear();
        QTest::mouseDClick(&picture, Qt::LeftButton);
        QCOMPARE(opened, QString());
        accessKey('o');
    });
    shell::replaceOpener({});
    QCOMPARE(rows.img1(1), QString());
    QCOMPARE(rows.img2(1), second);

    // Cleaning takes the files at once, whatever becomes of the row, and brings the master's fields back.
    onRow(rows, 1, [](QWidget &editor) {
        control<QPushButton>(editor, "Command2").click();
        QCOMPARE(measurements(editor), QStringList({u"Chest="_s, u"Waist="_s}));
        QCOMPARE(control<kvTextBoxMultiLine>(editor, "txtClientRemark").Text(), QString());
        press(Qt::Key_Escape);
    });
    QVERIFY(!QFile::exists(second));
    QCOMPARE(rows.img2(1), second);
    onRow(rows, 1, [](QWidget &editor) {
        QCOMPARE(control<kvTextBox>(editor, "picPath2").text(), QString());
        press(Qt::Key_Escape);
    });
}

void AddItemTest::tooFewValuesAreAFailure()
{
    OrderDesk desk;
    desk.book(u"1"_s);
    DE().CN.execute(u"update JOBS_DETAIL set ItemDetailsValue=''"_s);
    frmAddItem editor;
    EXPECT_FAULT(Fault::SubscriptOutOfRange, editor.LoadLastConfig(1, 5));
    DE().CN.execute(u"update JOBS_DETAIL set ItemDetails='Chest'"_s);
    editor.LoadLastConfig(1, 5);
    QCOMPARE(measurements(editor), QStringList{u"Chest=NA"_s});
    EXPECT_FAULT(Fault::SubscriptOutOfRange, editor.LoadEditItems(u"Chest"_s, u"40\r\n41"_s));
    EXPECT_FAULT(Fault::TypeMismatch, {
        clsJobCardData rows;
        rows.AddNewRow({});
        bool cancelled = true;
        frmAddItem().EditItemDetails(rows, 5, 1, cancelled);
    });
}

void AddItemTest::theListKeepsOneSlotAndScrolls()
{
    ItemDetails list(u"ItemDetails1"_s);
    list.resize(260, 160);
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 200; ++i)
            list.AddFeild(u"Field %1"_s.arg(i), QString::number(i));
        QCOMPARE(list.count(), 200);
        QCOMPARE(list.findChildren<kvTextBox *>().size(), 200);
        if (round == 0) {
            list.ClearList();
            QCOMPARE(list.count(), 0);
            QCOMPARE(list.findChildren<kvTextBox *>().size(), 1);
        }
    }
    QVERIFY(driver::show(list));
    list.SetFocusToList();
    QWidget *const label = list.findChild<QLabel *>(u"lblCap"_s);
    QVERIFY(label->styleSheet().contains(u"black"));
    const auto boxes = list.findChildren<kvTextBox *>();
    const auto move = [&list](Qt::Key key, Qt::KeyboardModifiers modifiers) {
        press(key, modifiers);
        const QWidget *const focus = QApplication::focusWidget();
        const QRect place(focus->mapTo(list.viewport(), QPoint()), focus->size());
        QVERIFY(list.viewport()->rect().contains(place));
    };
    for (int i = 0; i < 60; ++i)
        move(Qt::Key_Return, Qt::NoModifier);
    QVERIFY(boxes.at(60)->hasFocus());
    QVERIFY(label->styleSheet().isEmpty());
    for (int i = 0; i < 20; ++i)
        move(Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(boxes.at(40)->hasFocus());
}

void AddItemTest::theColourIsKeptAsItsNumber()
{
    OrderDesk desk;
    clsJobCardData rows = desk.rows(1);
    ModalScript script;
    script.expect(u"frmAddItem"_s, [&script](QWidget &editor) {
        script.expect(u"QColorDialog"_s, [](QWidget &dialog) {
            dialog.setProperty("currentColor", QColor(1, 2, 3));
            press(Qt::Key_Return);
        });
        control<QPushButton>(editor, "picColor").click();
        script.expect(u"QColorDialog"_s, [](QWidget &dialog) {
            dialog.setProperty("currentColor", QColor(Qt::black));
            press(Qt::Key_Return);
        });
        control<QPushButton>(editor, "picColor").click();
        accessKey('o');
    });
    bool cancelled = true;
    frmAddItem().EditItemDetails(rows, 5, 1, cancelled);
    QVERIFY(!cancelled);
    QCOMPARE(rows.Color(1), QString::number(1 + 256 * 2 + 65536 * 3));
}

CORVANE_TEST(AddItemTest)
#include "tst_frmAddItem.moc"
