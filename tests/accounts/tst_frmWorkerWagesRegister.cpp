#include "accounts/frmWorkerWagesRegister.h"

#include "BooksDesk.h"
#include "accounts/frmPayrollDetails.h"
#include "base/session.h"
#include "base/values.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/ListView.h"
#include "ui/kvComboBox.h"

#include <QAbstractButton>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// What a worker has earned, and how it becomes a payroll.
class WagesRegisterTest : public QObject {
    Q_OBJECT

private slots:
    void aRowTellsTheWagesOfAGarment();
    void eachViewListsItsRows();
    void withoutAWorkerTheListIsEmpty();
    void aPayrollIsRefusedInOrder();
    void theLastRowsWagesArePosted();
    void listBoxAndDatesEachSayTheirPart();
    void whatCannotBeMadeIsToldAndTheScreenStays();
    void aGarmentOpensAndTheListFollows();
    void payrollDetailsListWhatItPaid();
};

namespace {

struct Register : frmWorkerWagesRegister {
    Register() : list(control<ListView>(*this, "lvSummary")), shown(driver::show(*this)) { }
    void view(const QString &worker, const char *option = "op1")
    {
        control<QAbstractButton>(*this, option).setFocus();
        press(Qt::Key_Space);
        accessKey('w');
        type(worker);
        press(Qt::Key_Return);
    }
    void setPeriod(const QString &from, const QString &to)
    {
        accessKey('f');
        type(from);
        accessKey('t');
        type(to);
        press(Qt::Key_Tab);
    }

    ListView &list;
    bool shown;
};

void clearWorker()
{
    accessKey('w');
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
}

/// The last two columns with numbers, and whether it is paid.
QStringList sums(const ListView &list)
{
    QStringList lines;
    const auto rows = driver::rows(list);
    for (const QStringList &row : rows)
        lines += row.value(5) + u' ' + row.value(6) + u' ' + row.value(8);
    return lines;
}

} // namespace

void WagesRegisterTest::aRowTellsTheWagesOfAGarment()
{
    BooksDesk desk;
    desk.addWork(100.5);
    desk.addWork(50.25, {2011, 4, 2});
    desk.connection.execute(
        u"Update Jobs_Detail set ItemSr=3, ClintName='Old name', CompletedDate=null, ItemID=99 where id=2"_s);
    Register screen;
    QVERIFY(screen.shown);
    QVERIFY(screen.list.list().rows().empty());
    screen.view(u"mohan"_s);
    QCOMPARE(joined(screen.list),
        (QStringList{u"02-Apr-2011|1 / 3|Old name|2||50.25|50.25||Unpaid"_s,
            u"05-Apr-2011|1 / 1|Asha Rao|2|Coat|100.50|150.75|08-Apr-2011|Unpaid"_s}));
    QCOMPARE(screen.list.list().tag(0), 2);
    QVERIFY(!session::NeedRefresh);
}

void WagesRegisterTest::eachViewListsItsRows()
{
    BooksDesk desk;
    for (const double wages : {10, 20, 30, 40, 50, 60})
        desk.addWork(wages);
    desk.connection.execute(u"Update Jobs_Detail set MarkAsPaid=2, PayrollID=7 where id=1"_s);
    desk.connection.execute(u"Update Jobs_Detail set DoneByWorker=0 where id=3"_s);
    desk.connection.execute(u"Update Jobs_Detail set DoneByWorker=4 where id=4"_s);
    desk.connection.execute(u"Update Jobs_Detail set WorkerID=8, ItemID=2 where id=5"_s);
    desk.connection.execute(u"Update Jobs_Detail set Date=#2-May-2011# where id=6"_s);
    Register screen;
    const auto &pieces = control<ListView>(screen, "lvDetails");
    const QString paid = u"10.00 10.00 Paid"_s;
    for (const auto &[option, listed] :
        {std::pair{"op1", QStringList{paid, u"20.00 30.00 Unpaid"_s, u"40.00 70.00 Unpaid"_s}},
            std::pair{"op2", QStringList{paid}},
            std::pair{"op3", QStringList{u"20.00 20.00 Unpaid"_s, u"40.00 60.00 Unpaid"_s}}}) {
        screen.view(u"mohan"_s, option);
        QCOMPARE(sums(screen.list), listed);
        // The pieces do not follow the view.
        QCOMPARE(joined(pieces), QStringList{u"Coat|6"_s});
    }
    control<QAbstractButton>(screen, "cmdDetails").click();
    QVERIFY(pieces.isVisible());
}

void WagesRegisterTest::withoutAWorkerTheListIsEmpty()
{
    BooksDesk desk;
    desk.addWork(10);
    Register screen;
    screen.view(u"mohan"_s);
    clearWorker();
    accessKey('v');
    QVERIFY(screen.list.list().rows().empty());
    screen.setPeriod(u"2/5/2011"_s, u"1/5/2011"_s);
    ModalScript script;
    script.expectBox(u"Invalid date selection!"_s);
    accessKey('v');
}

void WagesRegisterTest::aPayrollIsRefusedInOrder()
{
    BooksDesk desk;
    desk.addWork(0);
    desk.addWork(0);
    Register screen;
    ModalScript script;
    const auto refuses = [&](const QString &message) {
        script.expectMessage(message);
        accessKey('c');
        QVERIFY(script.isDone());
    };
    screen.setPeriod(u"2/5/2011"_s, u"1/5/2011"_s);
    refuses(u"Select Unpaid jobs only!"_s);
    screen.setPeriod(u"1/4/2011"_s, u"1/5/2011"_s);
    screen.view(u"mohan"_s);
    control<QAbstractButton>(screen, "op3").click();
    refuses(u"Select Unpaid jobs only!"_s);
    screen.view(u"mohini"_s, "op3");
    refuses(u"No job found to make payroll for this worker!"_s);
    clearWorker();
    refuses(u"Please select Worker!"_s);
    QTRY_VERIFY(control<kvComboBox>(screen, "cmbClient").hasFocus());
    screen.setPeriod(u"2/5/2011"_s, u"1/5/2011"_s);
    refuses(u"Invalid date selection!"_s);
    screen.setPeriod(u"1/4/2011"_s, u"1/5/2011"_s);
    screen.view(u"mohan"_s, "op3");
    script.expectBox(u"Balance is 0"_s);
    accessKey('c');
    QCOMPARE(desk.count(u"Postings"_s), 0);
    QCOMPARE(desk.paid(), (QStringList{u"0|0"_s, u"0|0"_s}));
}

void WagesRegisterTest::theLastRowsWagesArePosted()
{
    BooksDesk desk;
    Register screen;
    ModalScript script;
    const auto &information = control<QLabel>(screen, "lblPayroll");
    for (const auto &[last, sum] : {std::pair{30.0, u"180.00"_s}, std::pair{0.0, u"150.00"_s}}) {
        desk.connection.execute(u"Delete * from Postings"_s);
        for (const double wages : {100.0, 50.0, last})
            desk.addWork(wages);
        screen.view(u"mohan"_s, "op3");
        QCOMPARE(information.text(),
            u"Jobs to pay : 3    Their wages : %1    The payroll posts the last one's : %2"_s.arg(sum, Money(last)));
        // What was listed counts and not what is chosen now.
        control<QAbstractButton>(screen, "op1").click();
        script.expectBox(u"Payroll Created."_s);
        accessKey('c');
        QVERIFY(script.isDone());
        QCOMPARE(desk.lines(u"Select Amount from Postings order by id"_s),
            (QStringList{NumberText(last), NumberText(-last)}));
        QVERIFY(information.text().isEmpty());
        // The view that is chosen now has them, as paid.
        QCOMPARE(driver::column(screen.list, 8).sliced(screen.list.list().rowCount() - 3),
            (QStringList{u"Paid"_s, u"Paid"_s, u"Paid"_s}));
    }
    screen.view(u"mohan"_s, "op3");
    script.expectMessage(u"No job found to make payroll for this worker!"_s);
    accessKey('c');
    QCOMPARE(desk.count(u"Postings"_s), 2);
}

void WagesRegisterTest::listBoxAndDatesEachSayTheirPart()
{
    BooksDesk desk;
    desk.addWork(100);
    desk.addWork(40);
    Register screen;
    screen.view(u"mohan"_s, "op3");
    control<QAbstractButton>(screen, "op2").click();
    screen.setPeriod(u"2/1/2011"_s, u"3/1/2011"_s);
    accessKey('w');
    type(u"mohini"_s);
    ModalScript script;
    script.expectBox(u"Payroll Created."_s);
    accessKey('c');
    const QString remark = u"Wages [ From :02-Jan-2011 To 03-Jan-2011 ]"_s;
    QCOMPARE(
        desk.lines(u"Select VID, Date, AccID, RefID, Amount, particulars, Remark, Status, isPayroll from Postings"_s),
        (QStringList{
            u"1|11-Apr-2011|8|1|40|Wages|%1|0|1"_s.arg(remark), u"1|11-Apr-2011|1|8|-40|Wages|%1|0|1"_s.arg(remark)}));
    QCOMPARE(desk.paid(), (QStringList{u"1|1"_s, u"1|1"_s}));
}

void WagesRegisterTest::whatCannotBeMadeIsToldAndTheScreenStays()
{
    const QString changed = u"The jobs have changed since they were listed. Nothing was written. List them again."_s;
    for (const auto &[meanwhile, told] : {std::pair{u"Update Jobs_Detail set MarkAsPaid=1 where id=2"_s, changed},
             std::pair{u"Delete * from Jobs_Detail where id=2"_s, changed},
             std::pair{u"Update Accounts set Title='Lohn' where Title='Wages'"_s,
                 u"There is no account \"Wages\". Nothing was written."_s},
             std::pair{u"Delete * from Accounts where Title='Mohan'"_s,
                 u"There is no account \"Mohan\". Nothing was written."_s},
             std::pair{u"Insert into Postings (Id, VID, Vtype, sr, Date, AccID, particulars, Remark, Amount) values "
                       "(32767, 4, 2, 1, #01-Apr-2011#, 5, '', '', 5)"_s,
                 u"This payroll would need the number 32768, and payrolls go up to 32767. Nothing was written."_s}}) {
        BooksDesk desk;
        for (const double wages : {40, 100})
            desk.addWork(wages);
        Register screen;
        screen.view(u"mohan"_s, "op3");
        desk.connection.execute(meanwhile);
        const QStringList before = desk.legs() + desk.paid();
        ModalScript script;
        script.expectBox(told);
        accessKey('c');
        QVERIFY(script.isDone() && screen.isVisible());
        QCOMPARE(desk.legs() + desk.paid(), before);
    }
}

void WagesRegisterTest::aGarmentOpensAndTheListFollows()
{
    BooksDesk desk;
    for (const double wages : {10, 20, 30})
        desk.addWork(wages);
    Register screen;
    screen.view(u"mohan"_s, "op3");
    screen.list.setCurrentRow(1);
    screen.list.setFocus();
    ModalScript script;
    script.expect(u"frmEditWorkerAssign"_s, [&desk](QWidget &) {
        // As its save does.
        desk.connection.execute(u"Update Jobs_Detail set WorkerWagesDue=25 where id=2"_s);
        session::NeedRefresh = true;
        press(Qt::Key_Escape);
    });
    press(Qt::Key_Return);
    QTRY_VERIFY(screen.isActiveWindow());
    QCOMPARE(sums(screen.list).last(), u"30.00 65.00 Unpaid"_s);
    QCOMPARE(screen.list.currentRow(), 1);
}

void WagesRegisterTest::payrollDetailsListWhatItPaid()
{
    BooksDesk desk;
    for (const double wages : {10, 20, 30})
        desk.addWork(wages, QDate(2011, 5, 20).addDays(-static_cast<int>(wages)));
    desk.connection.execute(u"Update Jobs_Detail set MarkAsPaid=1, PayrollID=58 where id<>2"_s);
    // By hand, and never finished.
    desk.connection.execute(u"Update Jobs_Detail set MarkAsPaid=0, DoneByWorker=0 where id=3"_s);
    session::NeedRefresh = false;
    ModalScript script;
    script.expect(u"frmPayrollDetails"_s, [](QWidget &screen) {
        const auto &list = control<ListView>(screen, "lvSummary");
        QCOMPARE(sums(list), (QStringList{u"10.00 10.00 Paid"_s, u"30.00 40.00 Unpaid"_s}));
        QCOMPARE(list.list().headerData(3, Qt::Horizontal).toString(), u"Qty."_s);
        QVERIFY(list.hasFocus());
        press(Qt::Key_Return);
        press(Qt::Key_Escape);
    });
    frmPayrollDetails().ExecuteSQL(u"Mohan"_s, 58);
    QVERIFY(session::NeedRefresh);
}

CORVANE_TEST(WagesRegisterTest)
#include "tst_frmWorkerWagesRegister.moc"
