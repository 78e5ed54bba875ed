#include "store/Recordset.h"

#include "store/DataEnvironment.h"
#include "support/StoreFile.h"
#include "support/expectFault.h"
#include "support/testRegistry.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// Reading and writing rows.
class RecordsetTest : public QObject {
    Q_OBJECT

private slots:
    void eachMisuseIsItsOwnFault();
    void fieldsAreNamedInAnyCase();
    void anAddedRowShowsItsNumberAndDefaults();
    void automaticNumbersAreNeverHandedOutTwice();
    void aRequiredColumnWithoutValueIsNamed();
    void onlyWhatWasSetIsWritten();
    void aRowThatIsGoneCannotBeWritten();
    void textIntoNumbersMustBeNumbers();
    void pendingChangesAreDroppedByClose();
    void aBatchWritesEachRow();
    void aLargeResultIsReadAndWrittenAsASmallOne();
    void theLastRowAloneIsAsAmongAll_data();
    void theLastRowAloneIsAsAmongAll();
    void aRowIsAddedWithoutReadingTheOthers();
    void someColumnsAreAsAmongAll();
    void aFailureInAGroupLeavesTheEarlierWrites();
    void aGroupThatCannotBeCommittedIsNotLeftOpen();
    void moneyIsExact();
    void sumsAreExact();
    void rowsComeInTheOrderTheyWereAdded();
    void textsComeBackAsTheyWere();
    void aParentRowHasItsChildren();
    void groupsHaveTheirTotals();
};

void RecordsetTest::eachMisuseIsItsOwnFault()
{
    StoreFile file;
    Recordset rows(file.connection, u"Accounts"_s);
    EXPECT_FAULT(Fault::NotOpen, (void)rows.recordCount());
    rows.open();
    EXPECT_FAULT(Fault::AlreadyOpen, rows.open(u"Select * from Items"_s));
    EXPECT_FAULT(Fault::ItemNotFound, (void)rows.value(u"Nowhere"));
    EXPECT_FAULT(Fault::ItemNotFound, (void)rows.child(u"PD"));
    EXPECT_FAULT(Fault::InvalidUseOfNull, (void)rows.text(u"Key"));
    EXPECT_FAULT(Fault::InvalidUseOfNull, (void)rows.number(u"Key"));
    EXPECT_FAULT(Fault::TypeMismatch, (void)rows.integer(u"Title"));
    QCOMPARE(rows.textOrEmpty(u"Key"), QString());
    rows.moveLast();
    rows.moveNext();
    QVERIFY(rows.eof());
    EXPECT_FAULT(Fault::NoCurrentRecord, (void)rows.text(u"Title"));
    EXPECT_FAULT(Fault::NoCurrentRecord, rows.moveNext());
    EXPECT_FAULT(Fault::NoCurrentRecord, rows.set(u"Title", u"x"_s));
    rows.reopen(u"Select count(*) from Accounts"_s);
    EXPECT_FAULT(Fault::Engine, rows.addNew());
    rows.close();
    rows.close();
    EXPECT_FAULT(Fault::Syntax, rows.open(u"Select * from Accounts where"_s));
    QVERIFY(!rows.isOpen());
}

void RecordsetTest::fieldsAreNamedInAnyCase()
{
    StoreFile file;
    Recordset rows(file.connection);
    rows.open(u"select * from ACCOUNTS where id=4"_s);
    QCOMPARE(rows.text(u"TITLE"), u"Cash"_s);
    QCOMPARE(rows.integer(u"iD"), 4);
    QCOMPARE(rows.integer(u"ReadOnly"), 1);
    QVERIFY(rows.isNull(u"mobile"));
}

void RecordsetTest::anAddedRowShowsItsNumberAndDefaults()
{
    StoreFile file;
    Recordset rows(file.connection);
    rows.open(u"Select * from Accounts order by id"_s);
    rows.addNew();
    rows.set(u"title", u"Asha"_s);
    rows.set(u"type", 0);
    QCOMPARE(rows.text(u"Title"), u"Asha"_s);
    rows.update();
    QCOMPARE(rows.integer(u"Id"), 5);
    QCOMPARE(rows.integer(u"Nature"), 0);
    QCOMPARE(rows.recordCount(), 5);

    rows.reopen(u"Select * from JOBS"_s);
    rows.addNew();
    for (const QString &name : {u"DATE"_s, u"DeliveryDate"_s, u"TrialDate"_s})
        rows.set(name, QDate(2011, 4, 1));
    for (const QString &name : {u"ClintID"_s, u"AmountDue"_s, u"AmountPaid"_s, u"JobFinished"_s, u"Status"_s})
        rows.set(name, 0);
    for (const QString &name : {u"ClintName"_s, u"Remark"_s, u"CancelReason"_s})
        rows.set(name, QString());
    rows.update();
    QCOMPARE(rows.integer(u"ID"), 1);
    rows.set(u"ID", 77);
    rows.update();
    rows.reopen(u"Select * from JOBS where id=77"_s);
    QCOMPARE(rows.recordCount(), 1);
}

void RecordsetTest::automaticNumbersAreNeverHandedOutTwice()
{
    StoreFile file;
    file.addAccount(u"Asha"_s);
    QCOMPARE(file.connection.execute(u"Delete from Accounts where id=5"_s), 1);
    file.addAccount(u"Bina"_s);
    Recordset rows(file.connection);
    rows.open(u"Select * from Accounts where Title='Bina'"_s);
    QCOMPARE(rows.integer(u"Id"), 6);
}

void RecordsetTest::aRequiredColumnWithoutValueIsNamed()
{
    StoreFile file;
    Recordset rows(file.connection);
    rows.open(u"Select * from Accounts"_s);
    rows.addNew();
    rows.set(u"Type", 0);
    try {
        rows.update();
        QFAIL("a title is required");
    } catch (const RuntimeError &error) {
        QCOMPARE(error.fault(), Fault::MissingValue);
        QVERIFY2(error.text().contains(u"Title"), qPrintable(error.text()));
    }
    QCOMPARE(file.count(u"Accounts"_s), 4);
}

void RecordsetTest::onlyWhatWasSetIsWritten()
{
    StoreFile file;
    Recordset first(file.connection);
    first.open(u"Select * from Accounts where id=4"_s);
    Recordset second(file.connection);
    second.open(u"Select * from Accounts where id=4"_s);
    second.set(u"City", u"Pune"_s);
    second.update();
    first.set(u"Mobile", u"98"_s);
    first.set(u"Title", u"Cash"_s);
    first.update();
    second.reopen(u"Select * from Accounts where id=4"_s);
    QCOMPARE(second.text(u"City"), u"Pune"_s);
    QCOMPARE(second.text(u"Mobile"), u"98"_s);
    const quint64 stamp = file.connection.writeStamp("accounts");
    first.set(u"Title", u"Cash"_s);
    first.update();
    QCOMPARE(file.connection.writeStamp("accounts"), stamp);
}

void RecordsetTest::aRowThatIsGoneCannotBeWritten()
{
    StoreFile file;
    Recordset rows(file.connection);
    rows.open(u"Select * from Accounts where id=4"_s);
    file.connection.execute(u"Delete from Accounts where id=4"_s);
    rows.set(u"City", u"Pune"_s);
    EXPECT_FAULT(Fault::RowNotFound, rows.update());
}

void RecordsetTest::textIntoNumbersMustBeNumbers()
{
    StoreFile file;
    Recordset rows(file.connection);
    rows.open(u"Select * from Postings"_s);
    rows.addNew();
    EXPECT_FAULT(Fault::TypeMismatch, rows.set(u"Amount", u"abc"_s));
    EXPECT_FAULT(Fault::TypeMismatch, rows.set(u"Amount", QString()));
    EXPECT_FAULT(Fault::TypeMismatch, rows.set(u"Amount", u"1 2"_s));
    try {
        rows.set(u"AccID", u"abc"_s);
    } catch (const RuntimeError &error) {
        QVERIFY2(error.report().contains(u"AccID"), qPrintable(error.report()));
    }
    EXPECT_FAULT(Fault::TypeMismatch, rows.set(u"AccID", u"A12"_s));
    EXPECT_FAULT(Fault::Overflow, rows.set(u"AccID", 3e9));
    EXPECT_FAULT(Fault::TypeMismatch, rows.set(u"Date", u"31-02-2011"_s));
    EXPECT_FAULT(Fault::TypeMismatch, rows.set(u"Date", 5));
    rows.set(u"Amount", u" 100.50 "_s);
    rows.set(u"AccID", u"12"_s);
    rows.set(u"Date", u"1-April-2011"_s);
    QCOMPARE(rows.value(u"Amount").toCurrency(), Currency::fromDouble(100.5));
    QCOMPARE(rows.integer(u"AccID"), 12);
    QCOMPARE(rows.date(u"Date"), QDate(2011, 4, 1));
}

void RecordsetTest::pendingChangesAreDroppedByClose()
{
    StoreFile file;
    Recordset rows(file.connection);
    rows.open(u"Select * from Accounts order by id"_s);
    rows.set(u"City", u"Pune"_s);
    rows.addNew();
    rows.close();
    rows.open(u"Select * from Accounts order by id"_s);
    QCOMPARE(rows.recordCount(), 4);
    QVERIFY(rows.isNull(u"City"));
}

void RecordsetTest::aBatchWritesEachRow()
{
    StoreFile file;
    Recordset rows(file.connection);
    rows.open(u"Select * from Accounts order by id"_s);
    for (; !rows.eof(); rows.moveNext())
        rows.set(u"City", u"Pune"_s);
    rows.updateBatch();
    rows.reopen(u"Select count(*) from Accounts where City='PUNE'"_s);
    QCOMPARE(rows.value(0).toInt(), 4);
}

void RecordsetTest::aLargeResultIsReadAndWrittenAsASmallOne()
{
    StoreFile file;
    constexpr int count = 1030;
    Recordset rows(file.connection);
    rows.open(u"Select * from tmpBody order by id"_s);
    for (int i = 1; i <= count; ++i) {
        rows.addNew();
        rows.set(u"JOBID", i);
        rows.set(u"QNT", 1);
        for (const QStringView column : {u"ItemNAME", u"Remarks", u"FESS", u"AMOUNT"})
            rows.set(column, QString(i % 7, u'x') + QString::number(i));
    }
    rows.updateBatch();
    const auto change = [&rows](const QString &remark) {
        for (rows.moveFirst(); !rows.eof(); rows.moveNext()) {
            if (rows.integer(u"JOBID") % 512 < 2)
                rows.set(u"Remarks", remark + rows.text(u"JOBID"));
        }
        rows.updateBatch();
    };
    change(u"first and long "_s);
    change(u"second "_s);
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(rows.recordCount(), count);
        rows.moveFirst();
        for (int i = 1; i <= count; ++i, rows.moveNext()) {
            const QString plain = QString(i % 7, u'x') + QString::number(i);
            QCOMPARE(rows.integer(u"JOBID"), i);
            QCOMPARE(rows.text(u"Remarks"), i % 512 < 2 ? u"second %1"_s.arg(i) : plain);
            QCOMPARE(rows.text(u"AMOUNT"), plain);
        }
        rows.reopen(u"Select * from tmpBody order by id"_s);
    }
}

void RecordsetTest::theLastRowAloneIsAsAmongAll_data()
{
    QTest::addColumn<QString>("statement");
    for (const char *rest : {"", " where Type=2", " order by ID", " order by Title", " order by [Type]",
             " where ID>2 order by Title desc", " order by Type, Title", " where Title='nobody'"})
        QTest::newRow(rest) << u"Select * from Accounts"_s + QLatin1StringView(rest);
}

void RecordsetTest::theLastRowAloneIsAsAmongAll()
{
    QFETCH(QString, statement);
    StoreFile file;
    Recordset all(file.connection);
    all.open(statement);
    all.moveLast();
    Recordset last(file.connection);
    // Also where something is open already.
    last.open(u"Select * from Items"_s);
    last.openLast(statement);
    QCOMPARE(last.eof(), all.eof());
    QCOMPARE(last.columnCount(), all.columnCount());
    if (all.eof())
        return;
    QCOMPARE(last.recordCount(), 1);
    for (int i = 0; i < all.columnCount(); ++i) {
        QCOMPARE(last.columnName(i), all.columnName(i));
        QVERIFY(last.value(i) == all.value(i));
    }
    const qint32 id = all.integer(u"ID");
    last.set(u"City", u"Jaipur"_s);
    last.update();
    all.reopen(u"Select * from Accounts where City='Jaipur'"_s);
    QCOMPARE(all.recordCount(), 1);
    QCOMPARE(all.integer(u"ID"), id);
    EXPECT_FAULT(Fault::Engine, last.openLast(u"Select count(*) from Accounts"_s));
}

void RecordsetTest::aRowIsAddedWithoutReadingTheOthers()
{
    StoreFile file;
    Recordset rows(file.connection);
    rows.openToAdd(u"Select * from Accounts"_s);
    QVERIFY(rows.eof());
    rows.addNew();
    rows.set(u"Title", u"Asha"_s);
    rows.set(u"Type", 0);
    rows.update();
    const qint32 id = rows.integer(u"ID");
    QCOMPARE(rows.recordCount(), 1);
    rows.reopen(u"Select * from Accounts where Title='Asha'"_s);
    QCOMPARE(rows.integer(u"ID"), id);
    EXPECT_FAULT(Fault::Syntax, rows.openToAdd(u"Select * from"_s));
}

void RecordsetTest::someColumnsAreAsAmongAll()
{
    StoreFile file;
    for (const QString &title : {u"Zoya"_s, u"Asha"_s, u"Mohan"_s})
        file.addAccount(title, {1980, 1, 31});
    const QString statement =
        u"select * from  Accounts where Type=0 and dob between #01-Jan-1980# and #31-Jan-1980# order by Title,id"_s;
    Recordset all(file.connection);
    all.open(statement);
    Recordset some(file.connection);
    some.openColumns(statement, {u"Title"_s, u"id"_s, u"DOB"_s});
    QCOMPARE(some.recordCount(), 3);
    QCOMPARE(some.columnCount(), 3);
    for (; !all.eof(); all.moveNext(), some.moveNext()) {
        for (const QStringView name : {u"Id", u"Title", u"dob"})
            QVERIFY(some.value(name) == all.value(name));
    }
    some.moveFirst();
    EXPECT_FAULT(Fault::ItemNotFound, (void)some.value(u"City"));
    EXPECT_FAULT(Fault::Engine, some.set(u"Title", u"Asha"_s));
    EXPECT_FAULT(Fault::Syntax, some.openColumns(statement, {u"Nowhere"_s}));
    some.openColumns(u"Select count(*) from Accounts where Type=0"_s, {u"Title"_s});
    QCOMPARE(some.value(0).toInt(), 3);
}

void RecordsetTest::aFailureInAGroupLeavesTheEarlierWrites()
{
    StoreFile file;
    EXPECT_FAULT(Fault::Syntax, WriteGroup::run(file.connection, [&file] {
        file.addAccount(u"Asha"_s);
        WriteGroup::run(file.connection, [&file] { file.addAccount(u"Bina"_s); });
        file.connection.execute(u"Delete from Accounts where Id=3,4"_s);
        file.addAccount(u"Chand"_s);
    }));
    Connection second;
    second.open(file.path());
    Recordset rows(second);
    rows.open(u"Select Title from Accounts where id>4 order by id"_s);
    QCOMPARE(rows.recordCount(), 2);
    rows.moveLast();
    QCOMPARE(rows.value(0).toText(), u"Bina"_s);
}

void RecordsetTest::aGroupThatCannotBeCommittedIsNotLeftOpen()
{
    StoreFile file;
    {
        Connection reader;
        reader.open(file.path());
        Connection::Statement reading(reader, "select * from Accounts", {}, {});
        QVERIFY(reading.step());
        EXPECT_FAULT(Fault::Locked, WriteGroup::run(file.connection, [&file] { file.addAccount(u"Asha"_s); }));
    }
    QCOMPARE(file.count(u"Accounts"_s), 4);
    WriteGroup::run(file.connection, [&file] { file.addAccount(u"Bina"_s); });
    file.addAccount(u"Chand"_s);
    Connection again;
    again.open(file.path());
    Recordset rows(again);
    rows.open(u"Select * from Accounts"_s);
    QCOMPARE(rows.recordCount(), 6);
}

void RecordsetTest::moneyIsExact()
{
    StoreFile file;
    for (const double amount : {1234567.8912, -0.0001, 90000000000.1234})
        file.addPosting(1, QDate(2011, 4, 1), amount);
    Recordset rows(file.connection);
    rows.open(u"Select * from Postings"_s);
    QCOMPARE(rows.value(u"Amount").toCurrency().tenThousandths(), 12345678912);
    rows.moveNext();
    QCOMPARE(rows.value(u"Amount").toCurrency().tenThousandths(), -1);
    rows.moveNext();
    QCOMPARE(rows.value(u"Amount").toCurrency().tenThousandths(), 900000000001234);
    // What the file could only keep with its last decimals lost is refused.
    EXPECT_FAULT(Fault::Overflow, rows.set(u"Amount", Currency::fromTenThousandths(9007199254740993)));
}

void RecordsetTest::sumsAreExact()
{
    StoreFile file;
    for (const double amount : {0.1, 0.2, -0.3})
        file.addPosting(7, QDate(2011, 4, 1), amount);
    Recordset rows(file.connection);
    rows.open(u"Select sum(Amount) from Postings where AccID=7"_s);
    QCOMPARE(rows.value(0).toDouble(), 0.0);
    rows.reopen(u"Select sum(AccID) from Postings"_s);
    QCOMPARE(rows.value(0).toInt(), 21);
    rows.reopen(u"Select sum(Amount) from Postings where AccID=8"_s);
    QVERIFY(rows.value(0).isNull());
}

void RecordsetTest::rowsComeInTheOrderTheyWereAdded()
{
    StoreFile file;
    for (const int account : {30, 10, 20})
        file.addPosting(account, QDate(2011, 4, 1), 1);
    Recordset rows(file.connection);
    rows.open(u"Select * from Postings where date between #17-11-1985# and #01-Apr-2011#"_s);
    QCOMPARE(rows.integer(u"AccID"), 30);
    rows.moveLast();
    QCOMPARE(rows.integer(u"AccID"), 20);
}

void RecordsetTest::textsComeBackAsTheyWere()
{
    StoreFile file;
    const QString longText = QString(10000, u'x') + u" 'quoted' \"double\" #1# %_[a] ?\r\nsecond line"_s;
    for (const QString &text : {longText, u"Bhd gS \u00c3\u00f1"_s, u"\u0906\u0936\u093e"_s, u" blanks "_s}) {
        file.addAccount(text);
        Recordset rows(file.connection);
        rows.open(u"Select * from Accounts where Title='"_s + jetsql::quoted(text) + u'\'');
        QCOMPARE(rows.recordCount(), 1);
        QCOMPARE(rows.text(u"Title"), text);
    }
}

void RecordsetTest::aParentRowHasItsChildren()
{
    StoreFile file;
    for (const int account : {4, 2, 4})
        file.addPosting(account, QDate(2011, 4, 1), account);
    Recordset &vouchers = DE().rsPrintVoucher;
    vouchers.open();
    QCOMPARE(vouchers.recordCount(), 3);
    QCOMPARE(vouchers.child(u"acc").text(u"Title"), u"Cash"_s);
    vouchers.moveNext();
    QCOMPARE(vouchers.child(u"ACC").text(u"Title"), u"Sales"_s);
    vouchers.close();

    Recordset accounts(file.connection);
    accounts.open(
        u"SHAPE {Select * from Accounts where id>3} APPEND ({Select * from Postings} as legs RELATE Id TO AccID), "
        "({Select * from Postings where AccID=2} RELATE 'Id' TO `AccID`) AS none"_s);
    QCOMPARE(accounts.child(u"legs").recordCount(), 2);
    QCOMPARE(accounts.child(u"none").recordCount(), 0);
    EXPECT_FAULT(Fault::ItemNotFound,
        accounts.reopen(u"SHAPE {Select * from Accounts} APPEND ({Select * from Postings} "
                        "RELATE Id TO Nowhere) AS a"_s));
    QVERIFY(!accounts.isOpen());
    EXPECT_FAULT(Fault::Syntax, accounts.reopen(u"SHAPE {Select * from Accounts} APPEND {Select * from Postings}"_s));
}

void RecordsetTest::groupsHaveTheirTotals()
{
    StoreFile file;
    for (const auto &[account, amount] : {std::pair(4, 0.1), std::pair(2, 5.0), std::pair(4, 0.2)})
        file.addPosting(account, QDate(2011, 4, 1), amount);
    Recordset groups(file.connection);
    groups.open(u"SHAPE {Select * from postings} AS legs COMPUTE legs, SUM(legs.'Amount') AS total BY 'AccID'"_s);
    QCOMPARE(groups.recordCount(), 2);
    QCOMPARE(groups.integer(u"AccID"), 4);
    QCOMPARE(groups.number(u"total"), 0.3);
    QCOMPARE(groups.child(u"legs").recordCount(), 2);
    groups.moveNext();
    QCOMPARE(groups.number(u"TOTAL"), 5.0);
}

CORVANE_TEST(RecordsetTest)
#include "tst_recordset.moc"
