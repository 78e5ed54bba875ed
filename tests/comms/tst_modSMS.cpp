#include "comms/modSMS.h"

#include "store/DataEnvironment.h"
#include "store/settings.h"
#include "support/TestShop.h"
#include "support/testRegistry.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// Texts, numbers and progress that messages tell.
class SmsTextTest : public QObject {
    Q_OBJECT

private slots:
    void draftsAreFilledAndSigned();
    void theShopsOwnDraftsAreFilled();
    void aMobileNumberIsThatOfAClient();
    void theContactLineSaysWhatThereIs();
    void progressCountsRows();
};

namespace {

void change(const QString &statement)
{
    DE().CN.execute(statement);
}

} // namespace

void SmsTextTest::draftsAreFilledAndSigned()
{
    TestShop shop;
    QCOMPARE(GetBookedSMS(12, 1250.5),
        u"Dear Customer\r Your Job ID # 12\r of Rs. 1250.5 has been booked. To track job status call us with this ID.\r\r\r"_s);
    QCOMPARE(GetCompletedSMS(12, 0),
        u"Dear Customer Your Job ID # 12 has been completed. Please visit our shop to collect clothes.\r\r\r"_s);
    QCOMPARE(GetDueSMS(u"-600"_s), u"Dear Customer\r Your Due Balance is : Rs. -600\r\r\r"_s);
    SaveSetting(setting::SmsTitle, u"Kovrel"_s);
    QVERIFY(GetBookedSMS(12, 1).endsWith(u"\r\r\rKovrel"_s));
    QVERIFY(!GetDueSMS(u"1"_s).contains(u"Kovrel"_s));
}

void SmsTextTest::theShopsOwnDraftsAreFilled()
{
    TestShop shop;
    for (const auto &[draft, text] :
        {std::pair{u"%eid% %amount% %eid%"_s, u"7 300 7\r"_s}, std::pair{u"%EID% %Amount%"_s, u"%EID% %Amount%\r"_s},
            std::pair{u"Thank you"_s, u"Thank you\r"_s}, std::pair{u""_s, u"\r"_s}}) {
        SaveSetting(setting::BookedSms, draft);
        SaveSetting(setting::CompletedSms, draft);
        QCOMPARE(GetBookedSMS(7, 300), text);
        QCOMPARE(GetCompletedSMS(7, 300), text);
    }
}

void SmsTextTest::aMobileNumberIsThatOfAClient()
{
    TestShop shop;
    shop.addAccount(u"Asha O'Brien"_s);
    shop.addAccount(u"Ravi"_s);
    shop.addAccount(u"Imran"_s, {}, 1);
    change(u"update Accounts set Mobile='98290' where id=5"_s);
    change(u"update Accounts set Mobile='77777' where id=6"_s);
    change(u"update Accounts set Mobile='55555' where id=7"_s);
    QCOMPARE(GetClientMobile(u"asha o'brien"_s, 0), u"98290"_s);
    QCOMPARE(GetClientMobile({}, 6), u"77777"_s);
    QCOMPARE(GetClientMobile(u"Asha O'Brien"_s, 6), u"77777"_s);
    // A worker has no part in this, and a number that is nobody's leaves what the name gave.
    QCOMPARE(GetClientMobile(u"Imran"_s, 7), QString());
    QCOMPARE(GetClientMobile(u"Asha O'Brien"_s, 7), u"98290"_s);
    QCOMPARE(GetClientMobile({}, 0), QString());
    change(u"update Accounts set Mobile=Null where id=5"_s);
    QCOMPARE(GetClientMobile(u"Asha O'Brien"_s, 0), QString());
}

void SmsTextTest::theContactLineSaysWhatThereIs()
{
    TestShop shop;
    shop.addAccount(u"Asha"_s);
    QCOMPARE(GetContactLine(5), u"No Information Found"_s);
    change(u"update Accounts set Mobile='98290', City='Jaipur' where id=5"_s);
    QCOMPARE(GetContactLine(5), u"98290      Jaipur    "_s);
    QCOMPARE(GetContactLine(6), QString());
    QCOMPARE(GetContactLine(0), QString());
}

void SmsTextTest::progressCountsRows()
{
    // A row is its status; "i" stands before one of bought goods. What it makes of the card: completed, delivered.
    for (const auto &[rows, progress] : {std::pair{u""_s, std::pair{true, true}}, {u"1 0"_s, {false, false}},
             {u"1 1"_s, {true, false}}, {u"1 i0"_s, {true, false}}, {u"2 2"_s, {false, true}},
             {u"2 i2"_s, {false, false}}, {u"1 i2"_s, {true, true}}}) {
        TestShop shop;
        for (const QString &row : rows.split(u' ', Qt::SkipEmptyParts))
            shop.addJobRow({.job = 7, .status = row.right(1).toInt(), .inventory = row.startsWith(u'i')});
        shop.addJobRow({.job = 8});
        QCOMPARE(std::pair(IsJobCompleted(7), IsJobDelivered(7)), progress);
    }
}

CORVANE_TEST(SmsTextTest)
#include "tst_modSMS.moc"
