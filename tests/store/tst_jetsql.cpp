#include "store/jetsql.h"

#include "base/RuntimeError.h"
#include "support/StoreFile.h"
#include "support/testRegistry.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// The dialect in which the program's statements are written.
class JetSqlTest : public QObject {
    Q_OBJECT

private slots:
    void everyStatementOfTheProgramRuns_data();
    void everyStatementOfTheProgramRuns();
    void gluedNumbersAndRangesPickTheirRows();
    void statementsThatDifferInLiteralsShareOneShape();
    void wrongStatementsAreRefusedAndChangeNothing_data();
    void wrongStatementsAreRefusedAndChangeNothing();
    void likeKnowsItsWildcards_data();
    void likeKnowsItsWildcards();
    void textsAreTheSameInAnyCase();
    void datesCompareAsDates();
    void datePartsAreNumbers();
};

void JetSqlTest::everyStatementOfTheProgramRuns_data()
{
    QTest::addColumn<QString>("statement");
    static const char *const statements[]{
        "SHAPE {SELECT * FROM `JOBS`}  AS JOBS APPEND ({SELECT * FROM `JOBS_DETAIL`}  AS PD RELATE 'Id' TO 'JobID') AS "
        "PD",
        "SHAPE {SELECT * FROM `tmpHead`}  AS PrintHead APPEND ({SELECT * FROM `tmpBody`}  AS PrintDetails RELATE "
        "'JOBID' TO "
        "'JOBID') AS PrintDetails",
        "SHAPE {SELECT * FROM `JOBS_DETAIL`}  AS Report2 COMPUTE Report2, SUM(Report2.'WorkerID') AS jtotal BY "
        "'WorkerID'",
        "SHAPE {SELECT * FROM `postings`}  AS PrintVoucher APPEND ({SELECT * FROM `Accounts`}  AS acc RELATE 'AccID' "
        "TO 'Id') "
        "AS acc",
        "SHAPE {SELECT * FROM tmpHead where JobID=7 } APPEND ({SELECT * FROM tmpBody  order by id} AS Body RELATE "
        "JOBID to "
        "JOBID)",
        "Select * from Accounts where Title='O''Brien'",
        "Select * from Accounts where ID=1",
        "Select * from Items where Name='Coat'",
        "Select * from Settings where SETTING='16'",
        "Select * from accounts order by id",
        "Select * from Items where id=1",
        "Select Title from Accounts where Type=0 order by Title",
        "Select Title from Accounts where type=2 and nature=0  order by Title",
        "Select Name from Items order by Name",
        "Select ID from Accounts where Title='Cash'",
        "Select * from jobs where ID=1",
        "Select sum(Amount) from Postings where status=0 and  AccID=1 and date between #17-11-1985# and #01-Apr-2011#",
        "Select sum(Amount) from Postings where amount>0 and status=0 and  AccID=1 and date between #01-Apr-2011# and "
        "#30-Apr-2011#",
        "Select sum(Amount) from Postings where amount<0 and status=0 and  AccID=1 and date between #01-Apr-2011# and "
        "#30-Apr-2011#",
        "SELECT Sum(Score) from Jobs_Detail where WorkerID=1",
        "Select Count(*) from Jobs_Detail where WorkerID=1",
        "Select * from Shop",
        "Select * from Shop where id=1",
        "Select * from Accounts",
        "Select * from Accounts where id=1",
        "Select * from JOBS_DETAIL where ClintID=1",
        "Select * from JOBS_DETAIL where WorkerID=1",
        "Select * from JOBS_DETAIL where ItemID=1",
        "Select * from Postings where AccID=1",
        "Select * from Postings where RefID=1",
        "Select * from Accounts order by ID",
        "Select * from Items",
        "Delete from Accounts where id=900",
        "Delete from Items where id=900",
        "Select * from JOBS order by ID",
        "Select * from jobs_detail where JobID=1",
        "Select * from jobs where id=1",
        "Select * from jobs_detail where id=1",
        "Delete from jobs_detail where Id=900",
        "Delete from Postings where vid=900and vtype=1",
        "Delete from Postings where vid=900 and vtype=1",
        "Delete from Postings where vid=900 and vtype=2",
        "Delete from Jobs where id=900",
        "Delete from Jobs_detail where jobid=900",
        "Select * from jobs_detail where JOBID=1 Order by ItemSr",
        "Select * from Jobs where ClintID=1",
        "Select * from JOBS_DETAIL where ItemID=1 and ClintID=1",
        " SHAPE {SELECT * FROM `postings` where  vtype=2 and vid=7}  AS PrintVoucher APPEND ({SELECT * FROM "
        "`Accounts`}   "
        "RELATE 'AccID' TO 'Id') AS acc,({SELECT * FROM `Accounts`} RELATE 'RefID' TO 'Id') as acc2",
        "Select ID from Accounts where Key='A12'",
        "Select ID from Items where Name='Coat'",
        "Select Title from Accounts order by Title",
        "Select title from Accounts where type=1 order by title",
        "Select * from Accounts  where type=0 and Title like '%o''b%'",
        "Select * from Accounts  where type=0 and Address like '%road%'",
        "Select * from Accounts  where type=0 and City like '%a%'",
        "Select * from Accounts  where type=0 and State like '%a%'",
        "Select * from Accounts  where type=0 and Key like '%1%'",
        "Select * from JOBS_Detail where isInventory=0 and WorkerID=1 and JobDelDate  between #01-Apr-2011# and "
        "#30-Apr-2011# "
        "order by JobDelDate DESC, JobID",
        "Select * from JOBS_Detail where isInventory=0 and Date between #01-Apr-2011# and #30-Apr-2011# order by Date "
        "ASC, "
        "JobID",
        "Select * from JOBS_Detail where isInventory=0 and ClintID=1 and JobDelDate between #01-Apr-2011# and "
        "#30-Apr-2011# "
        "order by JobDelDate DESC, JobID",
        "Select * from JOBS_Detail where  isInventory=0 and ClintID=1  order by JobDelDate DESC, JobID",
        "Select sum(QNT) from JOBS_Detail where DoneByWorker=0 and WorkerID=1 and JobDelDate  between #01-Apr-2011# "
        "and "
        "#30-Apr-2011#",
        "Select * from Accounts  where type=0 and Mobile like '%98%'",
        "Delete * from tmpHead",
        "Delete * from tmpbody",
        "Select * from Jobs_Detail where jobid=1",
        "Select * from JOBS_DETAIL where DATE<#01-Apr-2011# and ItemID=1 and ClintID=1",
        "Select * from JOBS_Detail where WorkerID=1 and JobDelDate between #01-Apr-2011# and #30-Apr-2011# order by "
        "JobDelDate,id",
        "Select * from JOBS_Detail where JobDelDate between #01-Apr-2011# and #30-Apr-2011# order by JobDelDate,id",
        "Select * from JOBS_Detail where JOBid=1",
        "Select * from JOBS_Detail where ClintID=1 and JobDelDate between #01-Apr-2011# and #30-Apr-2011# order by "
        "JobDelDate,id",
        "Select * from JOBS_Detail where isInventory=0 and WorkerID=1 and Date  between #01-Apr-2011# and "
        "#30-Apr-2011# order "
        "by Date ASC, JobID",
        "Select * from JOBS_Detail where isInventory=0 and JobDelDate between #01-Apr-2011# and #30-Apr-2011# order by "
        "JobDelDate DESC, JobID",
        "Select * from JOBS_Detail where isInventory=0 and JOBid=1",
        "Select * from JOBS_Detail where isInventory=0 and ClintID=1 and Date between #01-Apr-2011# and #30-Apr-2011# "
        "order "
        "by Date ASC, JobID",
        "Select * from JOBS_Detail where  isInventory=0 and ClintID=1  order by Date ASC, JobID",
        "Select * from Items order by Name",
        "Select sum(QNT) from JOBS_Detail where ItemID=12and WorkerID=3and date between #01-Apr-2011# and "
        "#30-Apr-2011#",
        "Select sum(QNT) from JOBS_Detail where ItemID=12and date between #01-Apr-2011# and #30-Apr-2011#",
        "Select sum(QNT) from JOBS_Detail where DoneByWorker=0 and WorkerID=1 and Date  between #01-Apr-2011# and "
        "#30-Apr-2011#",
        "select * from  Jobs where TrialDate between #01-Apr-2011# and #30-Apr-2011# order by TrialDate,id",
        "Select count(QNT) from Jobs_Detail where ItemID=1 and DoneByWorker=0",
        "Select count(QNT) from Jobs_Detail where ItemID=1 and date=#01-Apr-2011# and DoneByWorker=0",
        "Select * from items order by name",
        "Delete from Rank",
        "Select * from Accounts where type=1",
        "Select * from Rank",
        "Select * from Rank order by Score desc",
        "Select * from Accounts where type=1 order by Title",
        "Select * from Postings where vtype=2 and sr=1 order by vID",
        "Select * from Postings where vid=1 and vtype=2 and sr=1",
        "Select * from Postings order by ID",
        "Select * from Postings where vid=1 and sr=1 and vtype=2",
        "Select * from Postings where vid=1 and sr=2 and vtype=2",
        "Select * from jobs_detail where PayrollID=1",
        "Select * from Postings where status=0 and sr=1 and date between #01-Apr-2011# and #30-Apr-2011#  order by "
        "date,vid ",
        "Select * from Postings where status=0 and AccID=1 and date between #01-Apr-2011# and #30-Apr-2011#    order "
        "by "
        "date,vid",
        "Delete * from Accountbook",
        "Select * from Accountbook",
        "Select * from accountbook",
        "Select * from Accounts where type=0 order by Title",
        "Select * from JOBS_Detail where WorkerID=3and date between #01-Apr-2011# and #30-Apr-2011# and  "
        "DoneByWorker>0  "
        "order by date,id",
        "Select * from JOBS_Detail where MarkAsPaid>0 and WorkerID=3and date between #01-Apr-2011# and #30-Apr-2011# "
        "and  "
        "DoneByWorker>0  order by date,id",
        "Select * from JOBS_Detail where MarkAsPaid=0 and WorkerID=3and date between #01-Apr-2011# and #30-Apr-2011# "
        "and  "
        "DoneByWorker>0  order by date,id",
        "Select sum(QNT) from JOBS_Detail where ItemID=12and WorkerID=3and date between #01-Apr-2011# and "
        "#30-Apr-2011# and  "
        "DoneByWorker>0 ",
        "Select * from Postings where vtype=2 order by vID",
        "Delete * from wagesregister",
        "Select * from wagesregister",
        "Select * from JOBS_Detail where PayrollID=1 order by ID",
        "Select * from Accounts where type=0 and  Title='Asha'",
        "Select * from Accounts where  type=0 and  ID=1",
        "Select * from Jobs_Detail where isInventory=0 and JobID=1",
        "Select * from Jobs_Detail where isInventory=0 and JobID=1 and DoneByWorker=1",
        "Select * from Jobs_Detail where isInventory=0  and JobID=1",
        "Select * from Jobs_Detail where  JobID=1 and DoneByWorker=2",
        "select * from  Accounts where type=0 and month(dob) between 4 and 4 and day(dob) between  1 and 1",
        "Select * from Jobs where date between #01-Apr-2011# and #30-Apr-2011# order by ID",
        "Select * from Jobs_Detail where JobID=1 order by ItemSr",
    };
    for (const char *statement : statements)
        QTest::newRow(statement) << QString::fromUtf8(statement);
}

void JetSqlTest::everyStatementOfTheProgramRuns()
{
    static StoreFile file;
    QFETCH(QString, statement);
    if (statement.startsWith("delete"_L1, Qt::CaseInsensitive)) {
        QCOMPARE(file.connection.execute(statement), 0);
        return;
    }
    Recordset rows(file.connection);
    rows.open(statement);
    QVERIFY(rows.columnCount() > 0);
    // Each statement over one table can be written back; reading must not have cost a column of it.
    if (statement.startsWith("select * "_L1, Qt::CaseInsensitive))
        QVERIFY(rows.columnName(0).compare("id"_L1, Qt::CaseInsensitive) == 0);
}

void JetSqlTest::gluedNumbersAndRangesPickTheirRows()
{
    StoreFile file;
    for (const int account : {12, 12, 3})
        file.addPosting(account, QDate(2011, 4, account), 100 * account);
    file.connection.execute(u"update Postings set VID=7 where id=1"_s);
    file.connection.execute(u"update Postings set VID=7, Vtype=2 where id=2"_s);
    const auto first = [&file](const QString &statement) {
        Recordset rows(file.connection);
        rows.open(statement);
        return rows.value(0).toInt();
    };
    QCOMPARE(
        first(
            u"Select count(*) from Postings where AccID=12and Status=0and date between #01-Apr-2011# and #12-Apr-2011#"_s),
        2);
    QCOMPARE(
        first(u"Select sum(Amount) from Postings where AccID=12and date between #01-Apr-2011# and #11-Apr-2011#and "
              "AccID>0 or AccID=3and Vtype=1"_s),
        300);
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

void JetSqlTest::wrongStatementsAreRefusedAndChangeNothing_data()
{
    QTest::addColumn<QString>("statement");
    QTest::newRow("list behind an equals sign") << u"Delete from Accounts where Id=3,4"_s;
    QTest::newRow("list of removed rows") << u"Delete from jobs_detail where Id=3,4"_s;
    QTest::newRow("text without end") << u"Delete from Accounts where Title='x"_s;
    QTest::newRow("date without end") << u"Delete from Accounts where dob<#01-Apr-2011"_s;
    QTest::newRow("impossible date") << u"Delete from Accounts where dob<>#31-02-2011#"_s;
    QTest::newRow("unknown column") << u"Delete from Accounts where Nowhere=1"_s;
    QTest::newRow("unknown table") << u"Delete from Nowhere"_s;
    QTest::newRow("two statements") << u"Delete from Accounts; Delete from Accounts"_s;
    QTest::newRow("comment sign is two minus signs") << u"Delete from Accounts --where id=1"_s;
    QTest::newRow("question mark of the engine") << u"Delete from Accounts where id<>?"_s;
    QTest::newRow("nothing where the condition begins") << u"Delete from Accounts"_s + QChar() + u" where id=1"_s;
    QTest::newRow("nothing at the end") << u"Delete from Accounts"_s + QChar();
    QTest::newRow("nothing in a name") << u"Delete from [Accounts"_s + QChar() + u"] where id=1"_s;
    QTest::newRow("empty") << u"  "_s;
}

void JetSqlTest::wrongStatementsAreRefusedAndChangeNothing()
{
    QFETCH(QString, statement);
    StoreFile file;
    QVERIFY_THROWS_EXCEPTION(RuntimeError, file.connection.execute(statement));
    QCOMPARE(file.count(u"Accounts"_s), 4);
}

void JetSqlTest::likeKnowsItsWildcards_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<bool>("like");
    const auto row = [](const QString &text, const QString &pattern, bool like) {
        QTest::newRow(qPrintable(text + u" ~ "_s + pattern)) << text << pattern << like;
    };
    row(u"Ramesh"_s, u"ram%"_s, true);
    row(u"Ramesh"_s, u"%ESH"_s, true);
    row(u"Ramesh"_s, u"%me%"_s, true);
    row(u"Ramesh"_s, u"ram"_s, false);
    row(u"Ramesh"_s, u"r_mesh"_s, true);
    row(u"Ramesh"_s, u"r_esh"_s, false);
    row(u"Ramesh"_s, u"[a-s]amesh"_s, true);
    row(u"Ramesh"_s, u"[!r]amesh"_s, false);
    row(u"Ramesh"_s, u"[xyr]%"_s, true);
    row(u"aXbXc"_s, u"a%x%c"_s, true);
    row(u"50% off"_s, u"50[%]%"_s, true);
    row(u"50 off"_s, u"50[%]%"_s, false);
    row(u"a[b"_s, u"a[b"_s, true);
    row({}, u"%"_s, true);
    row({}, u"_"_s, false);
    row(u"ÄRGER"_s, u"ä%"_s, true);
    row(u"Ä[b"_s, u"ä[b"_s, true);
    row(u"Änne"_s, u"_[!m-z]ne"_s, false);
    row(u"Änne"_s, u"%[m-z]_"_s, true);
}

void JetSqlTest::likeKnowsItsWildcards()
{
    QFETCH(QString, text);
    QFETCH(QString, pattern);
    QTEST(jetsql::isLike(text.toStdString(), pattern.toStdString()), "like");
}

void JetSqlTest::textsAreTheSameInAnyCase()
{
    StoreFile file;
    for (const QString &title : {u"Émile"_s, u"ÉMILE"_s, u"zoe"_s, u"Abdul"_s, u"Zara"_s})
        file.addAccount(title);
    Recordset rows(file.connection);
    rows.open(u"select * from ACCOUNTS where TITLE='émile'"_s);
    QCOMPARE(rows.recordCount(), 2);
    rows.reopen(u"Select count(*) from Accounts where Title like 'éM%'"_s);
    QCOMPARE(rows.value(0).toInt(), 2);
    rows.reopen(u"Select Title, count(*) from Accounts where Type=0 group by Title order by Title"_s);
    QStringList titles;
    for (; !rows.eof(); rows.moveNext())
        titles += rows.value(0).toText() + rows.value(1).toText();
    QCOMPARE(titles.size(), 4);
    QCOMPARE(titles.first(), u"Abdul1"_s);
    QVERIFY(titles.indexOf(u"Zara1"_s) < titles.indexOf(u"zoe1"_s));
}

void JetSqlTest::datesCompareAsDates()
{
    StoreFile file;
    const QDateTime noon({2011, 4, 1}, {12, 0}, Qt::UTC);
    file.addPosting(1, QDate(2011, 3, 31), 1);
    file.addPosting(1, QDate(2011, 4, 1), 10);
    file.addPosting(1, noon, 100);
    file.addPosting(1, QDate(2011, 4, 2), 1000);
    const auto sum = [&file](const QString &condition) {
        Recordset rows(file.connection);
        rows.open(u"Select sum(Amount) from Postings where "_s + condition);
        return rows.value(0).toDouble();
    };
    QCOMPARE(sum(u"date between #01-Apr-2011# and #2-4-2011#"_s), 1110.0);
    QCOMPARE(sum(u"date=#2011-04-01#"_s), 10.0);
    QCOMPARE(sum(u"date=#01-Apr-2011 12:00#"_s), 100.0);
    QCOMPARE(sum(u"date<#1-April-2011#"_s), 1.0);
    Recordset rows(file.connection);
    rows.open(u"Select * from Postings order by date desc"_s);
    rows.moveNext();
    QCOMPARE(rows.value(u"Date").toDateTime(), noon);
}

void JetSqlTest::datePartsAreNumbers()
{
    StoreFile file;
    file.addAccount(u"Asha"_s, QDate(1980, 4, 9));
    Recordset rows(file.connection);
    rows.open(u"select * from  Accounts where type=0 and month(dob) between 4 and 4 and day(dob) between  9 and 9"_s);
    QCOMPARE(rows.recordCount(), 1);
    rows.reopen(u"select * from Accounts where month(dob)=5"_s);
    QVERIFY(rows.eof());
}

CORVANE_TEST(JetSqlTest)
#include "tst_jetsql.moc"
