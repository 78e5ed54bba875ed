#include "BooksDesk.h"
#include "accounts/frmDayBook.h"
#include "accounts/frmDueRegister.h"
#include "accounts/payrolls.h"
#include "base/session.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/ListView.h"

#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// The documents of a day, and the clients who owe.
class DayBookAndDuesTest : public QObject {
    Q_OBJECT

private slots:
    void theDayBookHasALineForEachDocument();
    void aDocumentOpensFromTheDayBook();
    void duesAreTheNegativeBalancesOfTheWorkingDate();
    void duesAreFilledEachTimeTheyComeToTheFront();
};

namespace {

template <typename Screen>
struct Shown : Screen {
    Shown() : list(control<ListView>(*this, "lvSummary")), fills(&list.list(), &ListModel::modelReset) { }
    bool show() { return driver::show(*this); }

    ListView &list;
    QSignalSpy fills;
};

using DayBook = Shown<frmDayBook>;
using Dues = Shown<frmDueRegister>;

const QDate today{2011, 4, 11};

} // namespace

void DayBookAndDuesTest::theDayBookHasALineForEachDocument()
{
    BooksDesk desk;
    desk.addVoucher(u"Payment"_s, u"Mohan"_s, u"Cash"_s, u"50"_s, today);
    desk.addVoucher(u"Receipt"_s, u"Asha Rao"_s, u"Cash"_s, u"50"_s, today.addDays(-1), u"Rest"_s);
    desk.addVoucher(u"Sales"_s, u"Asha Rao"_s, u"Sales"_s, u"9"_s, today.addDays(1));
    desk.addCard(2, 500, 100, today);
    desk.addCard(7, 900, 100, today);
    desk.cancelCard(7);
    desk.addWork(30);
    // The last voucher's leg stands on row 6, the cards' on the next six.
    QCOMPARE(payrolls::create(
                 {.worker = u"Mohan"_s, .rowIDs = {3}, .amount = 30, .from = {2011, 4, 1}, .to = {2011, 4, 30}}),
        7);
    DayBook book;
    QVERIFY(book.show());
    QVERIFY(book.list.hasFocus());
    const QStringList ofToday{u"11-Apr-2011|1|Payment|Mohan|50.00|"_s,
        u"11-Apr-2011|2|Sales|Asha Rao|500.00|Job Card # :2"_s,
        u"11-Apr-2011|7|Wages|Mohan|30.00|Wages [ From :01-Apr-2011 To 30-Apr-2011 ]"_s,
        u" | | |Total Vouchers : 3| | "_s};
    QCOMPARE(joined(book.list), ofToday);
    for (int column = 0; column < 6; ++column)
        QCOMPARE(lookOf(book.list, 0, column) + u'|' + lookOf(book.list, 3, column), u"|bold red"_s);
    QCOMPARE(book.list.list().tag(1), u"2|1"_s);
    QVERIFY(!book.list.list().at(3).hasTag());
    accessKey('f');
    type(u"10"_s);
    accessKey('v');
    QCOMPARE(joined(book.list),
        QStringList{u"10-Apr-2011|2|Receipt|Asha Rao|50.00|Rest"_s} + ofToday.mid(0, 3)
            + QStringList{u" | | |Total Vouchers : 4| | "_s});
    accessKey('t');
    type(u"9"_s);
    ModalScript script;
    script.expectBox(u"Invalid date selection!"_s);
    accessKey('v');
    QCOMPARE(book.list.list().rowCount(), 5);
}

void DayBookAndDuesTest::aDocumentOpensFromTheDayBook()
{
    BooksDesk desk;
    for (const QString &amount : {u"10"_s, u"20"_s})
        desk.addVoucher(u"Receipt"_s, u"Cash"_s, u"Asha Rao"_s, amount, today);
    DayBook book;
    QVERIFY(book.show());
    book.list.setCurrentRow(1);
    book.fills.clear();
    ModalScript script;
    script.expect(u"frmTransiction"_s, [&script](QWidget &voucher) {
        QCOMPARE(control<QLineEdit>(voucher, "txtAmount").text(), u"20.00"_s);
        script.expectMessage(u"Entry Updated."_s);
        accessKey('s');
        press(Qt::Key_Escape);
    });
    press(Qt::Key_Return);
    QTRY_VERIFY(script.isDone() && book.isActiveWindow());
    QCOMPARE(book.fills.size(), 1);
    QCOMPARE(book.list.currentRow(), 1);
}

void DayBookAndDuesTest::duesAreTheNegativeBalancesOfTheWorkingDate()
{
    BooksDesk desk;
    const QString title = u"Mr. 'O_Neill' 100% [A]"_s;
    desk.addAccount(title);
    desk.addCard(1, 500, 250, {2011, 4, 11});
    desk.addCard(2, 70, 0);
    desk.cancelCard(2);
    desk.addVoucher(u"Sales"_s, title, u"Sales"_s, u"0.1"_s);
    desk.addVoucher(u"Receipt"_s, u"Vikram Mehta"_s, u"Cash"_s, u"5"_s);
    desk.addVoucher(u"Sales"_s, u"Mohan"_s, u"Sales"_s, u"60"_s);
    Dues dues;
    QVERIFY(dues.show());
    QCOMPARE(joined(dues.list), (QStringList{u"Asha Rao|250.00"_s, title + u"|0.10"_s}));
    QCOMPARE(control<QLabel>(dues, "lblTotal").text(), u"Clients : 2    Total Due : 250.10"_s);
    QCOMPARE(dues.list.list().tag(0), 5);
    session::CurrentDate = {2011, 4, 10};
    dues.ExcuteSQl();
    QCOMPARE(joined(dues.list), QStringList{title + u"|0.10"_s});
}

void DayBookAndDuesTest::duesAreFilledEachTimeTheyComeToTheFront()
{
    BooksDesk desk;
    desk.addVoucher(u"Sales"_s, u"Asha Rao"_s, u"Sales"_s, u"40"_s);
    desk.addVoucher(u"Sales"_s, u"Vikram Mehta"_s, u"Sales"_s, u"60"_s);
    session::NeedRefresh = false;
    Dues dues;
    QVERIFY(dues.show());
    QCOMPARE(dues.fills.size(), 1);
    dues.list.setCurrentRow(0);
    ModalScript script;
    script.expect(u"frmAccountBook"_s, [&script](QWidget &book) {
        const auto &list = control<ListView>(book, "lvSummary");
        QCOMPARE(joined(list).first(), u"05-Apr-2011|1|Sales|Sales|40.00| |"_s);
        script.expect(u"frmTransiction"_s, [&script](QWidget &) {
            for (const QString &entered : {u"rec\r"_s, u"cash\r"_s, u"40"_s})
                type(entered);
            script.expectMessage(u"New Entry saved."_s);
            accessKey('s');
            press(Qt::Key_Escape);
        });
        accessKey('a');
        QTRY_COMPARE(joined(list).at(1), u"11-Apr-2011|3|Receipt|Cash| |40.00|"_s);
        press(Qt::Key_Escape);
    });
    press(Qt::Key_Return);
    QTRY_VERIFY(script.isDone() && dues.isActiveWindow());
    // Paid through the statement she drops out.
    QCOMPARE(joined(dues.list), QStringList{u"Vikram Mehta|60.00"_s});
}

CORVANE_TEST(DayBookAndDuesTest)
#include "tst_dayBookAndDues.moc"
