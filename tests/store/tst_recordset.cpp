#include "store/Recordset.h"

#include "store/DataEnvironment.h"
#include "support/StoreFile.h"
#include "support/expectFault.h"
#include "support/testRegistry.h"

using namespace Qt::StringLiterals;

/// Reading and writing rows.
class RecordsetTest : public QObject {
    Q_OBJECT

private slots:
    void eachMisuseIsItsOwnFault();
    void anAddedRowShowsItsNumberAndDefaults();
    void onlyWhatWasSetIsWritten();
    void textIntoNumbersMustBeNumbers();
    void aLargeResultIsReadAndWrittenAsASmallOne();
    void theLastRowAloneIsAsAmongAll();
    void someColumnsAreAsAmongAll();
    void aFailureInAGroupLeavesTheEarlierWrites();
    void moneyAndItsSumsAreExact();
    void textsComeBackAsTheyWere();
    void aParentRowHasItsChildrenAndAGroupItsTotals();
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
    rows.addNew();
    rows.set(u"Type", 0);
    const RuntimeError untitled = failureOf([&rows] { rows.update(); });
    QVERIFY2(
        untitled.fault() == Fault::MissingValue && untitled.text().contains(u"Title"), qPrintable(untitled.text()));
    QCOMPARE(file.count(u"Accounts"_s), 4);
    rows.reopen(u"Select * from Accounts where id=4"_s);
    file.connection.execute(u"Delete from Accounts where id=4"_s);
    rows.set(u"City", u"Pune"_s);
    EXPECT_FAULT(Fault::RowNotFound, rows.update());
    rows.reopen(u"Select count(*) from Accounts"_s);
    EXPECT_FAULT(Fault::Engine, rows.addNew());
    rows.close();
    rows.close();
    EXPECT_FAULT(Fault::Syntax, rows.open(u"Select * from Accounts where"_s));
    QVERIFY(!rows.isOpen());
}

void RecordsetTest::anAddedRowShowsItsNumberAndDefaults()
{
    StoreFile file;
    Recordset rows(file.connection);
    const auto add = [&rows] {
        rows.addNew();
        rows.set(u"title", u"Asha"_s);
        rows.set(u"type", 0);
        QCOMPARE(rows.text(u"Title"), u"Asha"_s);
        rows.update();
        QCOMPARE(rows.integer(u"Nature"), 0);
    };
    rows.open(u"Select * from Accounts order by id"_s);
    add();
    QCOMPARE(rows.integer(u"Id"), 5);
    QCOMPARE(rows.recordCount(), 5);
    // A number is never handed out twice, whether the others are read or not.
    QCOMPARE(file.connection.execute(u"Delete from Accounts where id=5"_s), 1);
    rows.openToAdd(u"Select * from Accounts"_s);
    QVERIFY(rows.eof());
    add();
    QCOMPARE(rows.integer(u"Id"), 6);
    QCOMPARE(rows.recordCount(), 1);
    EXPECT_FAULT(Fault::Syntax, rows.openToAdd(u"Select * from"_s));

    // It can be another one.
    file.addJob({.number = 1});
    rows.reopen(u"Select * from JOBS"_s);
    rows.set(u"ID", 77);
    rows.update();
    QCOMPARE(file.lines(u"Select id from JOBS"_s), QStringList{u"77"_s});
}

void RecordsetTest::onlyWhatWasSetIsWritten()
{
    StoreFile file;
    const QString cash = u"Select * from Accounts where id=4"_s;
    Recordset first(file.connection);
    first.open(cash);
    Recordset second(file.connection);
    second.open(cash);
    second.set(u"City", u"Pune"_s);
    second.update();
    first.set(u"Mobile", u"98"_s);
    first.set(u"Title", u"Cash"_s);
    first.update();
    QCOMPARE(file.lines(u"Select City, Mobile from Accounts where id=4"_s), QStringList{u"Pune|98"_s});
    // Nothing that changes is no write.
    const quint64 stamp = file.connection.writeStamp("accounts");
    for (const bool isSet : {true, false}) {
        if (isSet)
            first.set(u"Title", u"Cash"_s);
        first.update();
        first.updateBatch();
    }
    QCOMPARE(file.connection.writeStamp("accounts"), stamp);
    first.set(u"City", u"dropped"_s);
    first.addNew();
    first.close();
    QCOMPARE(file.lines(u"Select City from Accounts"_s).join(u','), u",,,Pune"_s);
}

void RecordsetTest::textIntoNumbersMustBeNumbers()
{
    StoreFile file;
    Recordset rows(file.connection);
    rows.open(u"Select * from Postings"_s);
    rows.addNew();
    for (const QString &none : {u"abc"_s, QString(), u"1 2"_s})
        EXPECT_FAULT(Fault::TypeMismatch, rows.set(u"Amount", none));
    const RuntimeError letters = failureOf([&rows] { rows.set(u"AccID", u"A12"_s); });
    QVERIFY2(
        letters.fault() == Fault::TypeMismatch && letters.report().contains(u"AccID"), qPrintable(letters.report()));
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

void RecordsetTest::theLastRowAloneIsAsAmongAll()
{
    for (const QString &rest : {u""_s, u" where Type=2"_s, u" order by ID"_s, u" order by Title"_s,
             u" order by [Type]"_s, u" where ID>2 order by Title desc"_s, u" order by Type, Title"_s}) {
        StoreFile file;
        const QString statement = u"Select * from Accounts"_s + rest;
        Recordset all(file.connection);
        all.open(statement);
        all.moveLast();
        Recordset last(file.connection);
        // Also where something is open already.
        last.open(u"Select * from Items"_s);
        last.openLast(statement);
        QCOMPARE(last.recordCount(), 1);
        QCOMPARE(last.columnCount(), all.columnCount());
        for (int i = 0; i < all.columnCount(); ++i) {
            QCOMPARE(last.columnName(i), all.columnName(i));
            QVERIFY2(last.value(i) == all.value(i), qPrintable(statement));
        }
        last.set(u"City", u"Jaipur"_s);
        last.update();
        QCOMPARE(file.lines(u"Select ID from Accounts where City='Jaipur'"_s),
            QStringList{QString::number(all.integer(u"ID"))});
        last.openLast(u"Select * from Accounts where Title='nobody'"_s);
        QVERIFY(last.eof());
        QCOMPARE(last.columnCount(), all.columnCount());
        EXPECT_FAULT(Fault::Engine, last.openLast(u"Select count(*) from Accounts"_s));
    }
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
    bool takenBack = false;
    const auto body = [&file] {
        file.addAccount(u"Asha"_s);
        WriteGroup::run(file.connection, [&file] { file.addAccount(u"Bina"_s); });
        file.connection.execute(u"Insert into Accounts (Title) values ('no type')"_s);
        file.addAccount(u"Chand"_s);
    };
    EXPECT_FAULT(Fault::MissingValue, WriteGroup::run(file.connection, body, [&](Written) { takenBack = true; }));
    QVERIFY(!takenBack);
    Connection second;
    second.open(file.path());
    QCOMPARE(StoreFile::linesOf(second, u"Select Title from Accounts where id>4 order by id"_s),
        (QStringList{u"Asha"_s, u"Bina"_s}));
}

void RecordsetTest::moneyAndItsSumsAreExact()
{
    StoreFile file;
    const auto postAll = [&file](std::initializer_list<double> amounts) {
        for (const double amount : amounts)
            file.addPosting(7, QDate(2011, 4, 1), amount);
    };
    postAll({1234567.8912, -0.0001, 90000000000.1234});
    Recordset rows(file.connection);
    // As they were added.
    rows.open(u"Select * from Postings where date between #17-11-1985# and #01-Apr-2011#"_s);
    for (const qint64 amount : {12345678912LL, -1LL, 900000000001234LL}) {
        QCOMPARE(rows.value(u"Amount").toCurrency().tenThousandths(), amount);
        rows.moveNext();
    }
    rows.moveFirst();
    // What the file could only keep with its last decimals lost is refused.
    EXPECT_FAULT(Fault::Overflow, rows.set(u"Amount", Currency::fromTenThousandths(9007199254740993)));
    file.connection.execute(u"Delete * from Postings"_s);
    postAll({0.1, 0.2, -0.3});
    QCOMPARE(file.lines(u"Select sum(Amount), sum(AccID) from Postings"_s), QStringList{u"0|21"_s});
    QCOMPARE(file.lines(u"Select sum(Amount) from Postings where AccID=8"_s), QStringList{QString()});
}

void RecordsetTest::textsComeBackAsTheyWere()
{
    StoreFile file;
    const QString longText = QString(10000, u'x') + u" 'quoted' \"double\" #1# %_[a] ?\r\nsecond line"_s;
    for (const QString &text : {longText, u"Bhd gS \u00c3\u00f1"_s, u"\u0906\u0936\u093e"_s, u" blanks "_s}) {
        file.addAccount(text);
        QCOMPARE(
            file.lines(u"Select Title from Accounts where Title='%1'"_s.arg(jetsql::quoted(text))), QStringList{text});
    }
}

void RecordsetTest::aParentRowHasItsChildrenAndAGroupItsTotals()
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

    file.connection.execute(u"Update Postings set Amount=0.1 where id=1"_s);
    file.connection.execute(u"Update Postings set Amount=0.2 where id=3"_s);
    accounts.open(u"SHAPE {Select * from postings} AS legs COMPUTE legs, SUM(legs.'Amount') AS total BY 'AccID'"_s);
    QCOMPARE(accounts.recordCount(), 2);
    QCOMPARE(accounts.integer(u"AccID"), 4);
    QCOMPARE(accounts.number(u"total"), 0.3);
    QCOMPARE(accounts.child(u"legs").recordCount(), 2);
    accounts.moveNext();
    QCOMPARE(accounts.number(u"TOTAL"), 2.0);
}

CORVANE_TEST(RecordsetTest)
#include "tst_recordset.moc"
