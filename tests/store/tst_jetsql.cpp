#include "store/jetsql.h"

#include "base/RuntimeError.h"
#include "support/StoreFile.h"
#include "support/testRegistry.h"

using namespace Qt::StringLiterals;

/// The dialect in which the program's statements are written.
class JetSqlTest : public QObject {
    Q_OBJECT

private slots:
    void everyKindOfStatementRuns();
    void gluedNumbersAndRangesPickTheirRows();
    void statementsThatDifferInLiteralsShareOneShape();
    void wrongStatementsAreRefusedAndChangeNothing();
    void likeKnowsItsWildcards();
    void textsAreTheSameInAnyCase();
    void datesCompareAsDates();
};

void JetSqlTest::everyKindOfStatementRuns()
{
    StoreFile file;
    const QString april = u"between #01-Apr-2011# and #30-Apr-2011#"_s;
    const QStringList statements{
        u"SHAPE {SELECT * FROM `JOBS_DETAIL`}  AS Report2 COMPUTE Report2, SUM(Report2.'WorkerID') AS jtotal BY "
        "'WorkerID'"_s,
        u"SHAPE {SELECT * FROM tmpHead where JobID=7 } APPEND ({SELECT * FROM tmpBody  order by id} AS Body RELATE "
        "JOBID to JOBID)"_s,
        u" SHAPE {SELECT * FROM `postings` where  vtype=2 and vid=7}  AS PrintVoucher APPEND ({SELECT * FROM "
        "`Accounts`}   RELATE 'AccID' TO 'Id') AS acc,({SELECT * FROM `Accounts`} RELATE 'RefID' TO 'Id') as acc2"_s,
        u"Select * from Accounts where Title='O''Brien'"_s,
        u"Select Title from Accounts where type=2 and nature=0  order by Title"_s,
        u"Select sum(Amount) from Postings where amount<0 and status=0 and  AccID=1 and date "_s + april,
        u"SELECT Sum(Score) from Jobs_Detail where WorkerID=1"_s,
        u"Select ID from Accounts where Key='A12' or Mobile=''"_s,
        u"Select * from Accounts  where type=0 and Title like '%o''b%'"_s,
        u"Select * from JOBS_Detail where isInventory=0 and WorkerID=1 and JobDelDate  %1 order by JobDelDate DESC, JobID"_s
            .arg(april),
        u"Select sum(QNT) from JOBS_Detail where ItemID=12and WorkerID=3and date %1 and  DoneByWorker>0 "_s.arg(april),
        u"Select count(QNT) from Jobs_Detail where ItemID=1 and date=#01-Apr-2011# and DoneByWorker=0"_s,
        u"Select * from Postings where status=0 and sr=1 and date %1  order by date,vid "_s.arg(april),
        u"select * from  Accounts where type=0 and month(dob) between 4 and 4 and day(dob) between  1 and 1"_s,
        u"Delete from Postings where vid=900and vtype=1"_s,
        u"Delete * from tmpHead"_s,
        u"Delete from Rank"_s,
    };
    for (const QString &statement : statements) {
        if (statement.startsWith(u"Delete"_s)) {
            QCOMPARE(file.connection.execute(statement), 0);
            continue;
        }
        Recordset rows(file.connection);
        rows.open(statement);
        QVERIFY(rows.columnCount() > 0);
        // Each statement over one table can be written back; reading must not have cost a column of it.
        if (statement.startsWith("select * "_L1, Qt::CaseInsensitive))
            QVERIFY(rows.columnName(0).compare("id"_L1, Qt::CaseInsensitive) == 0);
    }
}

void JetSqlTest::gluedNumbersAndRangesPickTheirRows()
{
    StoreFile file;
    for (const int account : {12, 12, 3})
        file.addPosting(account, QDate(2011, 4, account), 100 * account);
    file.connection.execute(u"update Postings set VID=7 where id=1"_s);
    file.connection.execute(u"update Postings set VID=7, Vtype=2 where id=2"_s);
    QCOMPARE(
        file.lines(
            u"Select count(*) from Postings where AccID=12and Status=0and date between #01-Apr-2011# and #12-Apr-2011#"_s),
        QStringList{u"2"_s});
    QCOMPARE(file.lines(u"Select sum(Amount) from Postings where AccID=12and date between #01-Apr-2011# and "
                        "#11-Apr-2011#and AccID>0 or AccID=3and Vtype=1"_s),
        QStringList{u"300"_s});
    QCOMPARE(file.connection.execute(u"Delete from Postings where vid=7and vtype=1"_s), 1);
    QCOMPARE(file.connection.execute(u"Delete * from Postings"_s), 2);
}

void JetSqlTest::statementsThatDifferInLiteralsShareOneShape()
{
    const auto first =
        jetsql::translate(u"Select * from JOBS where id=12and ClintName='O''Brien' and date<#17-11-1985#");
    const auto second = jetsql::translate(u"Select * from JOBS where id=7and ClintName='x' and date<#01-Apr-2011#");
    QCOMPARE(first.sql, second.sql);
    QCOMPARE(first.table, u"JOBS"_s);
    const std::vector<Value> expected{12, u"O'Brien"_s, QDate(1985, 11, 17)};
    QVERIFY(first.values == expected);
    QCOMPARE(jetsql::translate(u"Select count(*) from JOBS").table, QString());
}

void JetSqlTest::wrongStatementsAreRefusedAndChangeNothing()
{
    StoreFile file;
    const QChar nothing;
    const QString all = u"Delete from Accounts"_s;
    for (const QString &statement : {all + u" where Id=3,4"_s, u"Delete from jobs_detail where Id=3,4"_s,
             all + u" where Title='x"_s, all + u" where dob<#01-Apr-2011"_s, all + u" where dob<>#31-02-2011#"_s,
             all + u" where Nowhere=1"_s, u"Delete from Nowhere"_s, all + u"; "_s + all, all + u" --where id=1"_s,
             all + u" where id<>?"_s, all + nothing + u" where id=1"_s, all + nothing,
             u"Delete from [Accounts"_s + nothing + u"] where id=1"_s, u"  "_s}) {
        QVERIFY_THROWS_EXCEPTION(RuntimeError, file.connection.execute(statement));
        QVERIFY2(file.count(u"Accounts"_s) == 4, qPrintable(statement));
    }
}

void JetSqlTest::likeKnowsItsWildcards()
{
    struct Text {
        const char *text;
        const char *pattern;
        bool like;
    };
    for (const auto &[text, pattern, like] :
        {Text{"Ramesh", "ram%", true}, Text{"Ramesh", "%ESH", true}, Text{"Ramesh", "%me%", true},
            Text{"Ramesh", "ram", false}, Text{"Ramesh", "r_mesh", true}, Text{"Ramesh", "r_esh", false},
            Text{"Ramesh", "[a-s]amesh", true}, Text{"Ramesh", "[!r]amesh", false}, Text{"Ramesh", "[xyr]%", true},
            Text{"aXbXc", "a%x%c", true}, Text{"50% off", "50[%]%", true}, Text{"50 off", "50[%]%", false},
            Text{"a[b", "a[b", true}, Text{"", "%", true}, Text{"", "_", false}, Text{"ÄRGER", "ä%", true},
            Text{"Ä[b", "ä[b", true}, Text{"Änne", "_[!m-z]ne", false}, Text{"Änne", "%[m-z]_", true}})
        QVERIFY2(jetsql::isLike(text, pattern) == like,
            qPrintable(QString::fromUtf8(text) + u" ~ "_s + QString::fromUtf8(pattern)));
}

void JetSqlTest::textsAreTheSameInAnyCase()
{
    StoreFile file;
    for (const QString &title : {u"Émile"_s, u"ÉMILE"_s, u"zoe"_s, u"Abdul"_s, u"Zara"_s})
        file.addAccount(title);
    QCOMPARE(file.lines(u"select id from ACCOUNTS where TITLE='émile'"_s), (QStringList{u"5"_s, u"6"_s}));
    QCOMPARE(file.lines(u"Select count(*) from Accounts where Title like 'éM%'"_s), QStringList{u"2"_s});
    const QStringList titles =
        file.lines(u"Select Title, count(*) from Accounts where Type=0 group by Title order by Title"_s);
    QCOMPARE(titles.size(), 4);
    QCOMPARE(titles.first(), u"Abdul|1"_s);
    QVERIFY(titles.indexOf(u"Zara|1"_s) < titles.indexOf(u"zoe|1"_s));
}

void JetSqlTest::datesCompareAsDates()
{
    StoreFile file;
    const QDateTime noon({2011, 4, 1}, {12, 0}, Qt::UTC);
    file.addPosting(1, QDate(2011, 3, 31), 1);
    file.addPosting(1, QDate(2011, 4, 1), 10);
    file.addPosting(1, noon, 100);
    file.addPosting(1, QDate(2011, 4, 2), 1000);
    for (const auto &[condition, sum] :
        {std::pair{u"between #01-Apr-2011# and #2-4-2011#"_s, u"1110"_s}, std::pair{u"=#2011-04-01#"_s, u"10"_s},
            std::pair{u"=#01-Apr-2011 12:00#"_s, u"100"_s}, std::pair{u"<#1-April-2011#"_s, u"1"_s},
            std::pair{u"<#1-4-2012# and month(date) between 4 and 4 and day(date) between 1 and 1"_s, u"110"_s}})
        QCOMPARE(file.lines(u"Select sum(Amount) from Postings where date "_s + condition), QStringList{sum});
    Recordset rows(file.connection);
    rows.open(u"Select * from Postings order by date desc"_s);
    rows.moveNext();
    QCOMPARE(rows.value(u"Date").toDateTime(), noon);
}

CORVANE_TEST(JetSqlTest)
#include "tst_jetsql.moc"
