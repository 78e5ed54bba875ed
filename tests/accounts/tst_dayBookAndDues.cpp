#include "BooksDesk.h"
#include "accounts/frmDayBook.h"
#include "accounts/frmDueRegister.h"
#include "accounts/payrolls.h"
#include "base/session.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/ListView.h"

#include <QLabel>
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
    void withoutDocumentsOrDebtorsNothingOpens();
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
    desk.addCard(2, 500, 0, today);
    DayBook book;
    QVERIFY(book.show());
    QCOMPARE(book.list.currentRow(), 0);
    ModalScript script;
    const auto opens = [&](int row, const QString &screen, const QString &saved, int fills) {
        book.list.setCurrentRow(row);
        book.fills.clear();
        script.expect(screen, [&](QWidget &) {
            if (!saved.isEmpty()) {
                script.expectMessage(saved);
                accessKey('s');
            }
            press(Qt::Key_Escape);
        });
        press(Qt::Key_Return);
        QTRY_VERIFY(script.isDone() && book.isActiveWindow());
        QCOMPARE(book.fills.size(), fills);
        QCOMPARE(book.list.currentRow(), row);
    };
    // By number, whatever was first.
    opens(1, u"frmTransiction"_s, {}, 0);
    opens(1, u"frmTransiction"_s, u"Entry Updated."_s, 1);
    opens(2, u"frmEditJOB"_s, u"Job Edited."_s, 1);
    opens(0, u"frmTransiction"_s, {}, 0);
    desk.connection.execute(u"Delete * from Jobs"_s);
    script.expectMessage(u"Job Card not found!"_s);
    book.list.setCurrentRow(2);
    press(Qt::Key_Return);
    QTRY_VERIFY(script.isDone());
    QVERIFY(!session::NeedRefresh || book.isVisible());
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
    ModalScript script;
    const auto opensAsha = [&](const ModalScript::Action &work) {
        dues.list.setCurrentRow(0);
        dues.fills.clear();
        script.expect(u"frmAccountBook"_s, [&work](QWidget &book) {
            work(book);
            press(Qt::Key_Escape);
        });
        press(Qt::Key_Return);
        QTRY_VERIFY(script.isDone() && dues.isActiveWindow());
        QCOMPARE(dues.fills.size(), 1);
    };
    opensAsha([](QWidget &book) {
        QCOMPARE(joined(control<ListView>(book, "lvSummary")).first(), u"05-Apr-2011|1|Sales|Sales|40.00| |"_s);
    });
    QCOMPARE(dues.list.currentRow(), 0);
    // Paid through the statement she drops out.
    opensAsha([&script](QWidget &) {
        script.expect(u"frmTransiction"_s, [&script](QWidget &) {
            type(u"rec"_s);
            press(Qt::Key_Return);
            type(u"cash"_s);
            press(Qt::Key_Return);
            type(u"40"_s);
            script.expectMessage(u"New Entry saved."_s);
            accessKey('s');
            press(Qt::Key_Escape);
        });
        accessKey('a');
    });
    QCOMPARE(joined(dues.list), QStringList{u"Vikram Mehta|60.00"_s});
}

void DayBookAndDuesTest::withoutDocumentsOrDebtorsNothingOpens()
{
    BooksDesk desk;
    DayBook book;
    QVERIFY(book.show());
    QCOMPARE(joined(book.list), QStringList{u" | | |Total Vouchers : 0| | "_s});
    press(Qt::Key_Return);
    QTRY_VERIFY(book.isActiveWindow());
    Dues dues;
    QVERIFY(dues.show());
    QVERIFY(joined(dues.list).isEmpty());
    press(Qt::Key_Return);
    QTRY_VERIFY(dues.isActiveWindow());
}

CORVANE_TEST(DayBookAndDuesTest)
#include "tst_dayBookAndDues.moc"
