#include "store/lookups.h"

#include "base/RuntimeError.h"
#include "store/DataEnvironment.h"
#include "store/defaultPeriod.h"
#include "store/settings.h"
#include "support/StoreFile.h"
#include "support/expectFault.h"
#include "support/testRegistry.h"

using namespace Qt::StringLiterals;

/// Lookups, list fills, balances and ratings, also of what another program wrote; and the period of a register.
class LookupsTest : public QObject {
    Q_OBJECT

private slots:
    void titlesAndNumbersFindEachOther();
    void anAnswerDoesNotOutliveAWrite();
    void listsShowABlankForWhatIsGone();
    void aFieldIsFoundOrMinusOne();
    void listsComeSorted();
    void balancesSumLivePostings();
    void ratingsRoundToEven();
    void whatAnotherProgramWroteIsSeen();
    void ownWritesAreNotTakenForAnothers();
    void thePeriodIsCountedFromItsFirstDay();
};

void LookupsTest::titlesAndNumbersFindEachOther()
{
    StoreFile file;
    file.addAccount(u"D'Souza"_s);
    QCOMPARE(GetAccountID(u"D'Souza"_s), 5);
    QCOMPARE(GetAccountID(u"cash"_s), 4);
    QCOMPARE(GetAccountTitle(2), u"Sales"_s);
    file.addItem(u"Tailor's Coat"_s, {}, 1200.5, 300);
    QCOMPARE(GetItemID(u"tailor's coat"_s), 1);
    QCOMPARE(GetItemName(1), u"Tailor's Coat"_s);
    QCOMPARE(GetItemFees(1), 1200.5);
    QCOMPARE(GetItemWorkerFees(u"Tailor's Coat"_s), 300.0);
    EXPECT_FAULT(Fault::NoCurrentRecord, (void)GetAccountID(u"Nobody"_s));
    EXPECT_FAULT(Fault::NoCurrentRecord, (void)GetAccountTitle(99));
    EXPECT_FAULT(Fault::NoCurrentRecord, (void)GetItemFees(99));
}

void LookupsTest::anAnswerDoesNotOutliveAWrite()
{
    const auto title = [](int id) {
        try {
            return GetAccountTitle(id);
        } catch (const RuntimeError &error) {
            return QString::number(error.number());
        }
    };
    const QString gone = QString::number(static_cast<int>(Fault::NoCurrentRecord));
    for (const auto &[statement, wages, cash] :
        {std::tuple{u"Update accounts set Title='Till' where id=4"_s, u"Wages"_s, u"Till"_s},
            std::tuple{u"UPDATE [ACCOUNTS] set Title='1'"_s, u"1"_s, u"1"_s},
            std::tuple{u"Delete from Accounts where id=4"_s, u"Wages"_s, gone},
            std::tuple{u"Delete * from Accounts"_s, gone, gone},
            std::tuple{u"Delete * from Postings"_s, u"Wages"_s, u"Cash"_s}}) {
        StoreFile file;
        file.addPosting(4, QDate(2011, 4, 1), 250);
        QCOMPARE(title(1) + title(4), u"WagesCash"_s);
        QCOMPARE(GetAccountID(u"cash"_s), 4);
        QCOMPARE(GetAccountBalance(4, {2011, 4, 1}), 250.0);
        // A second time: by then the statement is prepared.
        for (int round = 0; round < 2; ++round) {
            file.connection.execute(statement);
            QCOMPARE(title(1) + title(4), wages + cash);
            if (cash != u"Cash")
                EXPECT_FAULT(Fault::NoCurrentRecord, (void)GetAccountID(u"cash"_s));
            QCOMPARE(GetAccountBalance(4, {2011, 4, 1}), statement.contains("Postings"_L1) ? 0.0 : 250.0);
        }
    }
    StoreFile another;
    QCOMPARE(title(4), u"Cash"_s);
}

void LookupsTest::listsShowABlankForWhatIsGone()
{
    StoreFile file;
    // Enough of them for the whole column to be read at once.
    for (int number = 5; number < 50; ++number)
        file.addAccount(u"Account %1"_s.arg(number), {}, number % 2);
    file.connection.execute(u"Update Accounts set Mobile='98290' where id>4 and id<45"_s);
    for (int number = 5; number < 60; ++number) {
        QCOMPARE(titleOrBlank(number), number < 50 ? u"Account %1"_s.arg(number) : QString());
        // A worker's is none of a client's.
        QCOMPARE(mobileOrBlank(number), number < 45 && number % 2 == 0 ? u"98290"_s : QString());
    }
    QCOMPARE(itemNameOrBlank(1), QString());
    EXPECT_FAULT(Fault::NoCurrentRecord, (void)GetAccountTitle(55));
    file.connection.execute(u"Update Accounts set Mobile='1', Title='Asha' where id=46"_s);
    QCOMPARE(titleOrBlank(46) + mobileOrBlank(46), u"Asha1"_s);
}

void LookupsTest::aFieldIsFoundOrMinusOne()
{
    StoreFile file;
    file.addAccount(u"D'Souza"_s);
    Recordset &source = DE().rsaccounts;
    QCOMPARE(GetFieldValue(u"ID"_s, u"Accounts"_s, u"Title"_s, u"D'Souza"_s, source).toInt(), 5);
    QCOMPARE(GetFieldValue(u"*"_s, u"Accounts"_s, u"Title"_s, u"Nobody"_s, source).toInt(), -1);
    QCOMPARE(GetFieldValue(u"Mobile"_s, u"Accounts"_s, u"Title"_s, u"Cash"_s, source).toInt(), -1);
    QCOMPARE(GetFieldValueNum(u"*"_s, u"Accounts"_s, u"ID"_s, 4, source).toInt(), 4);
    QCOMPARE(GetFieldValueNum(u"*"_s, u"jobs"_s, u"ID"_s, 1, source).toInt(), -1);
    QVERIFY(!source.isOpen());
}

void LookupsTest::listsComeSorted()
{
    StoreFile file;
    for (const QString &title : {u"meena"_s, u"Asha"_s, u"Zoya"_s})
        file.addAccount(title);
    QCOMPARE(FillCombo(u"Title"_s, u"Accounts"_s, u" where Type=0"_s, DE().rsaccounts),
        QStringList({u"Asha"_s, u"meena"_s, u"Zoya"_s}));
    QCOMPARE(FillCombo(u"Title"_s, u"Accounts"_s, u" where type=2 and nature=0 "_s, DE().rsaccounts),
        QStringList({u"Cash"_s, u"Sales"_s}));
    const auto mobiles = [] {
        return FillComboAll(u"id"_s, u"Mobile"_s, u"Accounts where id<3"_s, DE().rsaccounts).join(u',');
    };
    QCOMPARE(mobiles(), u","_s);
    // What was written meanwhile is there.
    file.connection.execute(u"Update accounts set Mobile='98' where id=2"_s);
    QCOMPARE(mobiles(), u",98"_s);
}

void LookupsTest::balancesSumLivePostings()
{
    StoreFile file;
    const QDate day(2011, 4, 10);
    file.addPosting(9, day.addDays(-1), -1000);
    file.addPosting(9, day, 400.25);
    file.addPosting(9, day.addDays(1), 7);
    file.addPosting(9, day, 5000, 1);
    file.addPosting(9, QDate(1985, 11, 16), 90000);
    file.addPosting(9, QDate(1985, 11, 17), 1);
    QCOMPARE(GetAccountBalance(9, day), -598.75);
    QCOMPARE(GetAccountBalance(9, day.addDays(-1)), -999.0);
    QCOMPARE(GetAccountBalance(8, day), 0.0);
    QCOMPARE(GetAccountCredits(9, day, day), 400.25);
    QCOMPARE(GetAccountCredits(9, day, day.addDays(1)), 407.25);
    QCOMPARE(GetAccountDebits(9, day.addDays(-1), day), -1000.0);
    QCOMPARE(GetAccountDebits(9, day, day), 0.0);
    QCOMPARE(GetAccountCredits(9, day, day.addDays(-5)), 0.0);
    EXPECT_FAULT(Fault::Overflow, (void)GetAccountBalance(32768, day));
    QCOMPARE(GetAccountBalance(32767, day), 0.0);
}

void LookupsTest::ratingsRoundToEven()
{
    struct Rated {
        QList<int> scores;
        int score;
        int rating;
    };
    // Averages of 2.5, 3.5, exactly 1 and below; an unscored row counts.
    for (const auto &[scores, score, rating] : {Rated{{}, 0, 0}, Rated{{3, 2, 2, 3}, 10, 2}, Rated{{4, 3, 4, 3}, 14, 4},
             Rated{{1, 1}, 2, 0}, Rated{{1, 0}, 1, 0}, Rated{{5, 0, 0}, 5, 2}}) {
        StoreFile file;
        for (qsizetype row = 0; row < scores.size(); ++row) {
            file.addJobRow({.worker = 3});
            file.connection.execute(u"Update Jobs_Detail set Score=%1 where id=%2"_s.arg(scores.at(row)).arg(row + 1));
        }
        QCOMPARE(GetWorkerScore(3), score);
        QCOMPARE(GetWorkerRating(3), rating);
    }
}

void LookupsTest::whatAnotherProgramWroteIsSeen()
{
    using Occasion = std::function<void(Recordset & row)>;
    const std::pair<const char *, Occasion> occasions[]{{"front", [](auto &) { DE().CN.noticeOtherWriters(); }},
        {"list", [](auto &) { QCOMPARE(FillCombo(u"Title"_s, u"Accounts"_s, {}, DE().rsaccounts).size(), 5); }},
        {"statement", [](auto &) { DE().CN.execute(u"Delete from rank"_s); }},
        {"row",
            [](auto &row) {
                row.set(u"NAME", u"Long Coat"_s);
                row.update();
            }},
        {"group", [](auto &) {
             WriteGroup::run(DE().CN, [] {
                 QCOMPARE(GetAccountTitle(5), u"Babu"_s);
                 QCOMPARE(GetAccountBalance(5, {2011, 4, 1}), 70.0);
             });
         }}};
    for (const auto &[name, act] : occasions) {
        StoreFile file;
        file.addAccount(u"Asha"_s);
        file.addItem(u"Coat"_s, u"Chest"_s, 400, 150);
        file.addPosting(5, QDate(2011, 4, 1), 100);
        Connection other;
        other.open(file.path());
        const quint64 before = DE().CN.otherWrites();
        QCOMPARE(GetAccountTitle(5), u"Asha"_s);
        QCOMPARE(GetItemFees(1), 400.0);
        QCOMPARE(GetAccountBalance(5, {2011, 4, 1}), 100.0);
        Recordset row(DE().CN);
        row.open(u"Select * from Items where id=1"_s);
        other.execute(u"Update Accounts set Title='Babu' where id=5"_s);
        other.execute(u"Update Items set FEES=450"_s);
        other.execute(u"Update Postings set Amount=70"_s);
        // A lookup by itself asks nothing of the file.
        QCOMPARE(GetAccountTitle(5), u"Asha"_s);
        act(row);
        QVERIFY2(GetAccountTitle(5) == u"Babu", name);
        QCOMPARE(GetItemFees(1), 450.0);
        QCOMPARE(GetAccountBalance(5, {2011, 4, 1}), 70.0);
        QVERIFY(DE().CN.otherWrites() > before);
        QCOMPARE(file.lines(u"Select FEES from Items"_s), QStringList{u"450"_s});
    }
}

void LookupsTest::ownWritesAreNotTakenForAnothers()
{
    StoreFile file;
    Connection other;
    other.open(file.path());
    QCOMPARE(GetAccountTitle(1), u"Wages"_s);
    const quint64 writes = DE().CN.otherWrites();
    const quint64 accounts = DE().CN.writeStamp("accounts");
    file.addPosting(4, QDate(2011, 4, 1), 100);
    DE().CN.execute(u"Update Postings set Amount=70"_s);
    Recordset looking(other);
    looking.open(u"Select * from Postings"_s);
    DE().CN.noticeOtherWriters();
    QCOMPARE(DE().CN.otherWrites(), writes);
    QCOMPARE(DE().CN.writeStamp("accounts"), accounts);
}

void LookupsTest::thePeriodIsCountedFromItsFirstDay()
{
    const StoreFile shop;
    QDate from;
    QDate to;
    const auto period = [&](const QString &stored = {}) {
        if (!stored.isNull())
            SaveSetting(setting::DefaultPeriod, stored);
        from = {2026, 1, 31};
        to = {2026, 12, 25};
        SetDefaultPeriod(to, from);
        return from.toString(Qt::ISODate) + u' ' + to.toString(Qt::ISODate);
    };
    QCOMPARE(period(), u"2011-04-01 2011-05-01"_s);
    SaveSetting(setting::UseDefaultFromDate, u"1"_s);
    SaveSetting(setting::DefaultFromDate, u"31-Jan-2026"_s);
    // A month is cut to a short one; what is no period leaves the caller's last day.
    const QStringList ends{u"2026-01-31"_s, u"2026-02-01"_s, u"2026-02-07"_s, u"2026-02-28"_s, u"2026-03-31"_s,
        u"2026-04-30"_s, u"2026-07-31"_s, u"2027-01-31"_s, u"2026-12-25"_s};
    for (int stored = 0; stored < ends.size(); ++stored)
        QCOMPARE(period(QString::number(stored)), u"2026-01-31 "_s + ends.at(stored));
    for (const QString &none : {u"-1"_s, u""_s})
        QCOMPARE(period(none), u"2026-01-31 2026-12-25"_s);
    SaveSetting(setting::DefaultFromDate, u"29-Feb-2024"_s);
    QCOMPARE(period(u"7"_s), u"2024-02-29 2025-02-28"_s);
    SaveSetting(setting::UseDefaultFromDate, u"0"_s);
    QCOMPARE(period(u"1"_s), u"2026-01-31 2026-02-01"_s);
    SaveSetting(setting::UseDefaultFromDate, u"1"_s);
    SaveSetting(setting::DefaultFromDate, u"31-Feb-2026"_s);
    EXPECT_FAULT(Fault::TypeMismatch, static_cast<void>(period()));
    QCOMPARE(from, QDate(2026, 1, 31));
}

CORVANE_TEST(LookupsTest)
#include "tst_lookups.moc"
