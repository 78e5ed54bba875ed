#include "store/lookups.h"

#include "base/values.h"
#include "store/DataEnvironment.h"
#include "support/StoreFile.h"
#include "support/expectFault.h"
#include "support/testRegistry.h"

#include <QTest>

#include <random>

using namespace Qt::StringLiterals;

/// Lookups, list fills, balances and ratings.
class LookupsTest : public QObject {
    Q_OBJECT

private slots:
    void titlesAndNumbersFindEachOther();
    void anUnknownTitleIsAFailure();
    void anAnswerDoesNotOutliveAWrite_data();
    void anAnswerDoesNotOutliveAWrite();
    void anAnswerFromAGroupThatWasTakenBackIsForgotten();
    void manyAnswersAreAsGoodAsOne();
    void listsShowABlankForWhatIsGone();
    void aFieldIsFoundOrMinusOne();
    void listsComeSorted();
    void aLookupTakesItsCommandObject();
    void balancesSumLivePostings();
    void theJournalAnswersWhatTheStatementAnswers();
    void ratingsRoundToEven_data();
    void ratingsRoundToEven();
};

namespace {

void addItem(Connection &connection, const QString &name, double fees, double workerFees)
{
    Recordset items(connection);
    items.open(u"Select * from Items"_s);
    items.addNew();
    items.set(u"Name", name);
    items.set(u"ItemDetails", QString());
    items.set(u"Fees", fees);
    items.set(u"WorkerFees", workerFees);
    items.update();
}

void addScoredRow(Connection &connection, int workerID, int score)
{
    Recordset rows(connection);
    rows.open(u"Select * from Jobs_Detail where id=0"_s);
    rows.addNew();
    for (const QString &name : {u"DATE"_s, u"JobDelDate"_s, u"CuttingDate"_s})
        rows.set(name, QDate(2011, 4, 1));
    for (const QString &name : {u"JobID"_s, u"ClintID"_s, u"ItemID"_s, u"QNT"_s, u"FEES"_s, u"Amount"_s})
        rows.set(name, 1);
    for (const QString &name : {u"ClintName"_s, u"ItemName"_s, u"Remarks"_s, u"ItemDetails"_s, u"ItemDetailsValue"_s})
        rows.set(name, QString());
    rows.set(u"WorkerID", workerID);
    rows.set(u"Score", score);
    rows.update();
}

double statementSum(Connection &connection, const QString &condition, int id, QDate from, QDate to)
{
    Recordset rows(connection);
    rows.open(u"Select sum(Amount) from Postings where "_s + condition + u"status=0 and  AccID="_s + QString::number(id)
        + u" and date between #"_s + DateText(from) + u"# and #"_s + DateText(to) + u'#');
    return rows.value(0).isNull() ? 0.0 : rows.value(0).toDouble();
}

} // namespace

void LookupsTest::titlesAndNumbersFindEachOther()
{
    StoreFile file;
    file.addAccount(u"D'Souza"_s);
    QCOMPARE(GetAccountID(u"D'Souza"_s), 5);
    QCOMPARE(GetAccountID(u"cash"_s), 4);
    QCOMPARE(GetAccountTitle(2), u"Sales"_s);
    addItem(file.connection, u"Tailor's Coat"_s, 1200.5, 300);
    QCOMPARE(GetItemID(u"tailor's coat"_s), 1);
    QCOMPARE(GetItemName(1), u"Tailor's Coat"_s);
    QCOMPARE(GetItemFees(1), 1200.5);
    QCOMPARE(GetItemWorkerFees(u"Tailor's Coat"_s), 300.0);
}

void LookupsTest::anUnknownTitleIsAFailure()
{
    StoreFile file;
    EXPECT_FAULT(Fault::NoCurrentRecord, (void)GetAccountID(u"Nobody"_s));
    EXPECT_FAULT(Fault::NoCurrentRecord, (void)GetAccountTitle(99));
    EXPECT_FAULT(Fault::NoCurrentRecord, (void)GetItemFees(99));
}

void LookupsTest::anAnswerDoesNotOutliveAWrite_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<QStringList>("titles");
    const auto row = [](const QString &statement, const QStringList &titles) {
        QTest::newRow(qPrintable(statement)) << statement << titles;
    };
    row(u"Update accounts set Title='Till' where id=4"_s, {u"Wages"_s, u"Till"_s});
    row(u"UPDATE [ACCOUNTS] set Title='1'"_s, {u"1"_s, u"1"_s});
    row(u"Delete from Accounts where id=4"_s, {u"Wages"_s, {}});
    row(u"Delete * from Accounts"_s, {{}, {}});
    row(u"Delete * from Postings"_s, {u"Wages"_s, u"Cash"_s});
}

void LookupsTest::anAnswerDoesNotOutliveAWrite()
{
    QFETCH(const QString, statement);
    QFETCH(const QStringList, titles);
    StoreFile file;
    file.addPosting(4, QDate(2011, 4, 1), 250);
    QCOMPARE(GetAccountTitle(1), u"Wages"_s);
    QCOMPARE(GetAccountTitle(4), u"Cash"_s);
    QCOMPARE(GetAccountID(u"cash"_s), 4);
    QCOMPARE(GetAccountBalance(4, {2011, 4, 1}), 250.0);
    // A second time: by then the statement is prepared.
    for (int round = 0; round < 2; ++round) {
        file.connection.execute(statement);
        for (const int id : {1, 4}) {
            const QString &title = titles.at(id == 1 ? 0 : 1);
            if (title.isEmpty())
                EXPECT_FAULT(Fault::NoCurrentRecord, (void)GetAccountTitle(id));
            else
                QCOMPARE(GetAccountTitle(id), title);
        }
        if (titles.at(1) != u"Cash")
            EXPECT_FAULT(Fault::NoCurrentRecord, (void)GetAccountID(u"cash"_s));
        QCOMPARE(GetAccountBalance(4, {2011, 4, 1}), statement.contains("Postings"_L1) ? 0.0 : 250.0);
    }
    StoreFile another;
    QCOMPARE(GetAccountTitle(4), u"Cash"_s);
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

void LookupsTest::manyAnswersAreAsGoodAsOne()
{
    StoreFile file;
    constexpr int last = 60;
    for (int id = 5; id <= last; ++id)
        file.addAccount(u"Client %1"_s.arg(id));
    file.connection.execute(u"Delete from Accounts where id=59"_s);
    for (const QString &client : {u"Client"_s, u"Guest"_s}) {
        for (int id = 5; id <= last; ++id) {
            if (id == 59)
                EXPECT_FAULT(Fault::NoCurrentRecord, (void)GetAccountTitle(id));
            else
                QCOMPARE(GetAccountTitle(id), u"%1 %2"_s.arg(client).arg(id));
        }
        for (int id = 5; id <= last; ++id)
            file.connection.execute(u"Update Accounts set Title='Guest %1' where id=%1"_s.arg(id));
    }
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

void LookupsTest::theJournalAnswersWhatTheStatementAnswers()
{
    StoreFile file;
    std::mt19937 random(20110401);
    const auto pick = [&random](int low, int high) {
        return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
    };
    const QDate start(2011, 1, 1);
    for (int round = 0; round < 3; ++round) {
        WriteGroup::run(file.connection, [&] {
            for (int i = 0; i < 150; ++i) {
                const QDateTime moment(start.addDays(pick(0, 30)), QTime(pick(0, 4) == 0 ? 11 : 0, 0), Qt::UTC);
                file.addPosting(pick(1, 6), moment, pick(-90000, 90000) / 10000.0, pick(0, 5) == 0 ? 1 : 0);
            }
        });
        for (int i = 0; i < 200; ++i) {
            const int account = pick(1, 7);
            const QDate from = start.addDays(pick(-2, 32));
            const QDate to = from.addDays(pick(-3, 20));
            QCOMPARE(GetAccountBalance(account, to), statementSum(file.connection, {}, account, {1985, 11, 17}, to));
            QCOMPARE(GetAccountCredits(account, from, to),
                statementSum(file.connection, u"amount>0 and "_s, account, from, to));
            QCOMPARE(GetAccountDebits(account, from, to),
                statementSum(file.connection, u"amount<0 and "_s, account, from, to));
        }
    }
}

void LookupsTest::ratingsRoundToEven_data()
{
    QTest::addColumn<QList<int>>("scores");
    QTest::addColumn<int>("score");
    QTest::addColumn<int>("rating");
    QTest::newRow("no rows") << QList<int>() << 0 << 0;
    QTest::newRow("2.5") << QList<int>({3, 2, 2, 3}) << 10 << 2;
    QTest::newRow("3.5") << QList<int>({4, 3, 4, 3}) << 14 << 4;
    QTest::newRow("average of exactly 1") << QList<int>({1, 1}) << 2 << 0;
    QTest::newRow("an unscored row counts") << QList<int>({5, 0, 0}) << 5 << 2;
    QTest::newRow("below 1") << QList<int>({1, 0}) << 1 << 0;
}

void LookupsTest::ratingsRoundToEven()
{
    QFETCH(QList<int>, scores);
    StoreFile file;
    for (const int score : scores)
        addScoredRow(file.connection, 3, score);
    QTEST(static_cast<int>(GetWorkerScore(3)), "score");
    QTEST(GetWorkerRating(3), "rating");
}

CORVANE_TEST(LookupsTest)
#include "tst_lookups.moc"
