#include "store/lookups.h"

#include "base/RuntimeError.h"
#include "store/DataEnvironment.h"
#include "support/StoreFile.h"
#include "support/expectFault.h"
#include "support/testRegistry.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// Lookups, list fills, balances and ratings.
class LookupsTest : public QObject {
    Q_OBJECT

private slots:
    void titlesAndNumbersFindEachOther();
    void anAnswerDoesNotOutliveAWrite();
    void anAnswerFromAGroupThatWasTakenBackIsForgotten();
    void listsShowABlankForWhatIsGone();
    void aFieldIsFoundOrMinusOne();
    void listsComeSorted();
    void aLookupTakesItsCommandObject();
    void balancesSumLivePostings();
    void ratingsRoundToEven();
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

void LookupsTest::anAnswerFromAGroupThatWasTakenBackIsForgotten()
{
    StoreFile file;
    Connection reader;
    reader.open(file.path());
    Connection::Statement reading(reader, "select * from Accounts", {}, {});
    QVERIFY(reading.step());
    EXPECT_FAULT(Fault::Locked, WriteGroup::run(file.connection, [&file] {
        file.connection.execute(u"Update Accounts set Title='Till' where id=4"_s);
        QCOMPARE(GetAccountTitle(4), u"Till"_s);
    }));
    QCOMPARE(GetAccountTitle(4), u"Cash"_s);
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

void LookupsTest::aLookupTakesItsCommandObject()
{
    StoreFile file;
    // Also an answer that is remembered costs the caller its rows: code that relies on them would fail only at times.
    for (int round = 0; round < 2; ++round) {
        DE().rsaccounts.open();
        (void)GetAccountTitle(1);
        QVERIFY(!DE().rsaccounts.isOpen());
        DE().rsJOBS_DETAIL2.open();
        (void)GetAccountBalance(1, {2011, 4, 1});
        QVERIFY(!DE().rsJOBS_DETAIL2.isOpen());
    }
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

CORVANE_TEST(LookupsTest)
#include "tst_lookups.moc"
