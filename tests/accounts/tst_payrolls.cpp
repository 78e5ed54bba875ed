#include "accounts/payrolls.h"

#include "accounts/vouchers.h"
#include "base/session.h"
#include "store/codes.h"
#include "support/TestShop.h"
#include "support/expectFault.h"
#include "support/testRegistry.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// Payrolls and their undoing, on the file.
class PayrollTest : public QObject {
    Q_OBJECT

private slots:
    void aPayrollPostsItsAmountAndPaysItsGarments();
    void itsNumberIsTheLastVouchersRow();
    void removedItGivesItsGarmentsBack();
    void nothingIsWrittenWhereItCannotBeMade();
};

namespace {

constexpr int mohan = 5;
const QDate monday{2011, 4, 11};

struct Wages : TestShop {
    Wages()
    {
        session::CurrentDate = monday;
        addAccount(u"Mohan"_s, {}, accountType::Worker);
        for (int row = 1; row <= 3; ++row)
            addJobRow({.worker = mohan, .status = rowStatus::Completed});
    }
    [[nodiscard]] QStringList legs()
    {
        return lines(u"Select VID, Vtype, sr, Date, AccID, RefID, particulars, Remark, Amount, Status, isPayroll from "
                     "Postings order by id"_s);
    }
    [[nodiscard]] QStringList paid() { return lines(u"Select MarkAsPaid, PayrollID from Jobs_Detail order by id"_s); }
};

payrolls::Payroll payroll()
{
    return {.worker = u"mohan"_s, .rowIDs = {1, 3}, .amount = 30, .from = {2011, 4, 1}, .to = {2011, 4, 30}};
}

} // namespace

void PayrollTest::aPayrollPostsItsAmountAndPaysItsGarments()
{
    Wages shop;
    session::NeedRefresh = false;
    QCOMPARE(payrolls::create(payroll()), 1);
    const QString remark = u"Wages [ From :01-Apr-2011 To 30-Apr-2011 ]"_s;
    QCOMPARE(shop.legs(),
        (QStringList{u"1|2|1|11-Apr-2011|5|1|Wages|%1|30|0|1"_s.arg(remark),
            u"1|2|2|11-Apr-2011|1|5|Wages|%1|-30|0|1"_s.arg(remark)}));
    QCOMPARE(shop.paid(), (QStringList{u"1|1"_s, u"0|0"_s, u"1|1"_s}));
    QVERIFY(session::NeedRefresh);
}

void PayrollTest::itsNumberIsTheLastVouchersRow()
{
    Wages shop;
    // A job card's legs take row numbers, too.
    for (int leg = 0; leg < 5; ++leg)
        shop.addPosting(mohan, monday, 10);
    shop.connection.execute(u"Update Postings set vtype=1"_s);
    vouchers::SaveNew({.number = vouchers::GetNewNum(),
        .kind = u"Payment"_s,
        .date = monday,
        .mainAccount = u"Mohan"_s,
        .otherAccount = u"Cash"_s,
        .amount = u"100"_s});
    QCOMPARE(payrolls::GetNewNum(), 8);
    QCOMPARE(payrolls::create(payroll()), 8);
    QCOMPARE(vouchers::GetNewNum(), 9);
}

void PayrollTest::removedItGivesItsGarmentsBack()
{
    Wages shop;
    payrolls::create(payroll());
    // A job card of that number stays.
    shop.addPosting(mohan, monday, 10);
    shop.connection.execute(u"Update Postings set vtype=1, vid=1 where id=3"_s);
    shop.connection.execute(u"Update Jobs_Detail set MarkAsPaid=1, PayrollID=9 where id=2"_s);
    vouchers::remove(1, false);
    QCOMPARE(shop.paid(), (QStringList{u"1|1"_s, u"1|9"_s, u"1|1"_s}));
    vouchers::remove(1, true);
    QCOMPARE(shop.paid(), (QStringList{u"0|0"_s, u"1|9"_s, u"0|0"_s}));
    QCOMPARE(shop.lines(u"Select id from Postings"_s), QStringList{u"3"_s});
    QCOMPARE(shop.lines(u"Select DoneByWorker from Jobs_Detail"_s), (QStringList{u"1"_s, u"1"_s, u"1"_s}));
}

void PayrollTest::nothingIsWrittenWhereItCannotBeMade()
{
    for (const auto &[before, told] : {std::pair{u"Update Accounts set Title='Lohn' where Title='Wages'"_s,
                                           u"There is no account \"Wages\". Nothing was written."_s},
             std::pair{u"Delete * from Accounts where Title='Mohan'"_s, u"\"mohan\""_s},
             std::pair{u"Delete * from Jobs_Detail where id=3"_s, u"List them again."_s},
             std::pair{u"Update Jobs_Detail set MarkAsPaid=1 where id=3"_s, u"List them again."_s},
             std::pair{u"Insert into Postings (Id, VID, Vtype, sr, Date, AccID, particulars, Remark, Amount) values "
                       "(32767, 4, 2, 1, #01-Apr-2011#, 5, '', '', 5)"_s,
                 u"This payroll would need the number 32768, and payrolls go up to 32767. Nothing was written."_s}}) {
        Wages shop;
        shop.connection.execute(before);
        const QStringList everything = shop.legs() + shop.paid();
        const RuntimeError error = failureOf([] { payrolls::create(payroll()); });
        QVERIFY2(error.text().contains(told), qPrintable(error.text()));
        QVERIFY(error.canGoOn());
        QCOMPARE(shop.legs() + shop.paid(), everything);
    }
}

CORVANE_TEST(PayrollTest)
#include "tst_payrolls.moc"
