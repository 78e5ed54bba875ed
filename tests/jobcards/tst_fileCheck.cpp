#include "store/fileCheck.h"

#include "OrderDesk.h"
#include "store/DataEnvironment.h"
#include "store/leftBehind.h"
#include "support/fileContent.h"
#include "support/testRegistry.h"

#include <QDir>
#include <QScopeGuard>
#include <QTest>

#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

/// What a look at a whole file finds, and what it must not take for a fault.
class FileCheckTest : public QObject {
    Q_OBJECT

private slots:
    void whatTheProgramWritesIsWhole();
    void eachDifferenceIsNamed_data();
    void eachDifferenceIsNamed();
    void aPageOfAnOlderStateIsFound();
    void aDamagedPageIsFound();
    void lookingChangesNothing_data();
    void lookingChangesNothing();
    void aFileInUseIsLookedAtAsItIs();
    void aCopyThatCannotBeMadeIsTheCause();
};

namespace {

/// Cards in all their states, and two vouchers.
struct FullDesk : OrderDesk {
    FullDesk()
    {
        addItem(u"Shirt"_s, u"Collar"_s, 33.3333, 10.25);
        for (const QString &number : {u"1"_s, u"2"_s, u"3"_s, u"4"_s})
            bookTwoRows(number);
        JobCardStore cancelled;
        cancelled.openSaved(2);
        clsJobCardData cancelledRows;
        cancelled.readRows(cancelledRows);
        JobCard change = card(u"2"_s);
        change.Cancelled = true;
        cancelled.SaveEdit(change, cancelledRows);

        JobCardStore shorter;
        shorter.openSaved(3);
        clsJobCardData fewer;
        shorter.readRows(fewer);
        shorter.noteRemovedRow(fewer.Sr(1));
        fewer.RemoveRow(1);
        JobCardRow shirts = row();
        shirts.ItemName = u"Shirt"_s;
        shirts.ItemID = 2;
        shirts.Qty = 3;
        shirts.Fees = 33.33335;
        shirts.Amount = shirts.Qty * shirts.Fees;
        fewer.AddNewRow(shirts);
        JobCard shorterCard = card(u"3"_s);
        shorterCard.TotalText = u"900.00"_s;
        shorterCard.ReceivedText = u"0"_s;
        shorter.SaveEdit(shorterCard, fewer);

        JobCardStore gone;
        gone.openSaved(4);
        gone.deleteCard();

        clsJobCardData free = rows(1);
        free.SetFees(1, 0);
        free.SetAmount(1, 0);
        JobCard freeCard = card(u"5"_s);
        freeCard.TotalText = u"0.00"_s;
        freeCard.ReceivedText = u"0"_s;
        JobCardStore().SaveNew(freeCard, free);
        addVoucher(1, 250.75);
        addVoucher(2, 100);
    }

    void bookTwoRows(const QString &number)
    {
        clsJobCardData two = rows(2);
        JobCardStore().SaveNew(card(number), two);
    }

    void addVoucher(int number, double amount)
    {
        for (const int serial : {1, 2})
            connection.execute(
                u"Insert into Postings (VID, Vtype, sr, [Date], AccID, RefID, particulars, Remark, Amount) "
                "values (%1, 2, %2, #5-May-2011#, %3, %4, 'Receipt', '', %5)"_s.arg(number)
                    .arg(serial)
                    .arg(serial == 1 ? 5 : 4)
                    .arg(serial == 1 ? 4 : 5)
                    .arg(serial == 1 ? amount : -amount));
    }
};

} // namespace

void FileCheckTest::whatTheProgramWritesIsWhole()
{
    FullDesk desk;
    const fileCheck::Report report = fileCheck::check(desk.path());
    QCOMPARE(report.failure + report.damages.join(u'|') + report.differences.join(u'|') + report.remark, QString());
    QVERIFY(report.isWhole());
    QCOMPARE(report.cards, 4);
    QCOMPARE(report.rows, 7);
    QCOMPARE(report.vouchers, 2);
    QCOMPARE(report.postings, 4 + 4 + 2 + 2 + 4);
    QCOMPARE(report.lastCard, QDate(2011, 4, 10));
}

void FileCheckTest::eachDifferenceIsNamed_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<QString>("told");
    const auto row = [](const char *name, const QString &statement, const QString &told) {
        QTest::newRow(name) << statement << told;
    };
    row("a row is gone", u"Delete from JOBS_DETAIL where Id=2"_s,
        u"Job card 1: its rows come to 800.00, the card says 1600.00."_s);
    row("a row of no price is doubled",
        u"Insert into JOBS_DETAIL (DATE, JobID, ItemSr, ClintID, ClintName, ItemID, ItemName, QNT, FEES, Amount, "
        u"Remarks, "
        "ItemDetails, ItemDetailsValue, JobDelDate, CuttingDate) values (#10-Apr-2011#, 5, 1, 5, 'A', 1, 'C', 1, 0, 0, "
        "'', "
        "'', '', #10-Apr-2011#, #10-Apr-2011#)"_s,
        u"Job card 5: its 2 rows are not numbered 1 to 2."_s);
    row("all rows are gone", u"Delete from JOBS_DETAIL where JobID=5"_s, u"Job card 5: it has no rows."_s);
    row("a row's amount", u"Update JOBS_DETAIL set QNT=3 where Id=1"_s,
        u"Job card 1, row 1: 3 at 400.00 are not 800.00."_s);
    row("a row's date", u"Update JOBS_DETAIL set DATE=#11-Apr-2011# where Id=1"_s,
        u"Job card 1, row 1: it is dated 11-Apr-2011, its card 10-Apr-2011."_s);
    row("a row's client", u"Update JOBS_DETAIL set ClintID=4 where Id=1"_s,
        u"Job card 1, row 1: it names the client 4, its card 5."_s);
    row("a row's item", u"Update JOBS_DETAIL set ItemID=9 where Id=1"_s,
        u"Job card 1, row 1: its item 9 does not exist."_s);
    row("a row's worker", u"Update JOBS_DETAIL set WorkerID=99 where Id=1"_s,
        u"Job card 1, row 1: its worker 99 does not exist."_s);
    row("the card is gone", u"Delete from JOBS where Id=1"_s, u"Job card 1: it does not exist, but has 2 rows."_s);
    row("only its postings are there", u"Update Postings set VID=8 where VID=5 and Vtype=1"_s,
        u"Job card 8: it does not exist, but has 2 postings."_s);
    row("the card is there twice", u"Update JOBS set Id=1 where Id=5"_s,
        u"Job card 1: its number stands in the file twice."_s);
    row("the card's total", u"Update JOBS set AmountDue=1500 where Id=1"_s,
        u"Job card 1: its rows come to 1600.00, the card says 1500.00."_s);
    row("the card's client", u"Delete from Accounts where Id=5"_s, u"Job card 1: its client 5 does not exist."_s);
    row("a leg is gone", u"Delete from Postings where VID=1 and sr=4"_s,
        u"Job card 1: a posting is missing: Receipt of 100.00 on account 5 against 4, 10-Apr-2011."_s);
    row("a pair of legs is gone", u"Delete from Postings where VID=1 and Vtype=1 and sr>2"_s,
        u"Job card 1: a posting is missing: Receipt of -100.00 on account 4 against 5, 10-Apr-2011."_s);
    row("a leg too many",
        u"Insert into Postings (VID, Vtype, sr, [Date], AccID, particulars, Remark, Amount) "
        "values (5, 1, 1, #10-Apr-2011#, 5, 'Sales', '', 0)"_s,
        u"Job card 5: a posting too many: Sales of 0.00 on account 5 against 0, 10-Apr-2011."_s);
    row("legs that came back into the books", u"Update Postings set Status=0 where VID=2"_s,
        u"Job card 2: a posting is missing: Sales of -1600.00 on account 5 against 2, 10-Apr-2011, out of the books."_s);
    row("an advance without its postings", u"Update JOBS set AmountPaid=50, CashAccID=4 where Id=5"_s,
        u"Job card 5: a posting is missing: Receipt of -50.00 on account 4 against 5, 10-Apr-2011."_s);
    row("a voucher's leg is gone", u"Delete from Postings where VID=1 and Vtype=2 and sr=2"_s,
        u"Voucher 1: its postings come to 250.75 and not to 0."_s);
    row("a voucher's other side", u"Update Postings set AccID=3 where VID=2 and Vtype=2 and sr=2"_s,
        u"Voucher 2: a posting has no other side: Receipt of 100.00 on account 5 against 4, 05-May-2011."_s);
    row("the journal", u"Update Postings set Amount=250.7501 where VID=1 and Vtype=2 and sr=1"_s,
        u"Journal: it comes to 0.00 and not to 0."_s);
    row("a text that is lost in part", u"Update JOBS_DETAIL set Remarks=replace('Wool', 'l', char(0)) where Id=1"_s,
        u"Table JOBS_DETAIL: a part of a text is lost in 1 of its rows."_s);
    row("a number that was not given yet", u"Update sqlite_sequence set seq=3 where name='postings'"_s,
        u"Table postings: the number 28 was not handed out yet."_s);
}

void FileCheckTest::eachDifferenceIsNamed()
{
    QFETCH(QString, statement);
    QFETCH(QString, told);
    FullDesk desk;
    desk.connection.execute(statement);
    const fileCheck::Report report = fileCheck::check(desk.path());
    QVERIFY(report.isReadable());
    QVERIFY(!report.isWhole());
    QVERIFY2(report.differences.contains(told), qPrintable(report.differences.join(u'\n')));
}

void FileCheckTest::aPageOfAnOlderStateIsFound()
{
    constexpr qsizetype page = 4096;
    FullDesk desk;
    DE().CN.close();
    const QByteArray before = contentOf(desk.path());
    DE().CN.open(desk.path());
    for (int number = 6; number < 40; ++number)
        desk.bookTwoRows(QString::number(number));
    DE().CN.close();
    const QByteArray after = contentOf(desk.path());
    int stale = 0;
    int passed = 0;
    for (qsizetype at = page; at + page <= before.size(); at += page) {
        if (before.sliced(at, page) == after.sliced(at, page))
            continue;
        ++stale;
        QByteArray mixed = after;
        writeContent(desk.path(), mixed.replace(at, page, before.sliced(at, page)));
        if (fileCheck::check(desk.path()).isWhole())
            ++passed;
    }
    // Cards, rows, postings and the numbers given: each has a page that was there before.
    QVERIFY2(stale >= 4, qPrintable(QString::number(stale)));
    QCOMPARE(passed, 0);
    writeContent(desk.path(), after);
    QVERIFY(fileCheck::check(desk.path()).isWhole());
}

void FileCheckTest::aDamagedPageIsFound()
{
    constexpr qsizetype page = 4096;
    FullDesk desk;
    for (int number = 6; number < 40; ++number)
        desk.bookTwoRows(QString::number(number));
    DE().CN.close();
    const QByteArray whole = contentOf(desk.path());
    for (qsizetype at = 0; at < whole.size(); at += page) {
        QByteArray damaged = whole;
        damaged[at + 1000] = static_cast<char>(damaged[at + 1000] ^ 1);
        writeContent(desk.path(), damaged);
        const fileCheck::Report report = fileCheck::check(desk.path());
        QVERIFY2(!report.isReadable(), qPrintable(QString::number(at / page)));
        QCOMPARE(contentOf(desk.path()), damaged);
    }
    writeContent(desk.path(), whole.chopped(page));
    QVERIFY(!fileCheck::check(desk.path()).isReadable());
}

void FileCheckTest::lookingChangesNothing_data()
{
    QTest::addColumn<QByteArray>("journal");
    QTest::newRow("alone") << QByteArray();
    QTest::newRow("beside a journal that is over") << QByteArray(512, '\0');
    QTest::newRow("beside an unfinished write") << QByteArray(512, 'j');
}

void FileCheckTest::lookingChangesNothing()
{
    QFETCH(QByteArray, journal);
    FullDesk desk;
    DE().CN.close();
    QVERIFY(QFile::setPermissions(desk.path(), QFile::ReadOwner | QFile::ReadGroup));
    if (!journal.isEmpty())
        writeContent(desk.path() + u"-journal"_s, journal);
    const auto state = [&desk] {
        QStringList lines;
        for (const QFileInfo &file : QDir(desk.folder.path()).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot))
            lines += u"%1 %2 %3 %4"_s.arg(file.fileName())
                         .arg(static_cast<int>(file.permissions()))
                         .arg(file.lastModified().toMSecsSinceEpoch())
                         .arg(qHash(contentOf(file.filePath())));
        return lines;
    };
    const QStringList before = state();
    const fileCheck::Report report = fileCheck::check(desk.path());
    QVERIFY2(report.isWhole(), qPrintable(report.failure + report.differences.join(u'\n')));
    QCOMPARE(report.remark.isEmpty(), !journal.startsWith('j'));
    QCOMPARE(report.cards, 4);
    QCOMPARE(state(), before);

    // By a link to it, too.
    const QTemporaryDir elsewhere;
    const QString link = elsewhere.filePath(u"shop.mdb"_s);
    QVERIFY(QFile::link(desk.path(), link));
    QCOMPARE(fileCheck::check(link).remark, report.remark);
    QCOMPARE(state(), before);
}

void FileCheckTest::aFileInUseIsLookedAtAsItIs()
{
    FullDesk desk;
    DE().CN.close();
    int ready[2];
    QCOMPARE(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        Connection writing;
        writing.open(desk.path());
        // So small a cache that the file is written to before the commit.
        writing.define(u"PRAGMA cache_size = 1"_s);
        writing.define(u"begin immediate"_s);
        writing.execute(u"Insert into INFO (USER, PASS) values ('%1', '')"_s.arg(QString(60000, u'u')));
        writing.execute(u"Update JOBS set Remark='under way'"_s);
        const char done = 1;
        const bool told = ::write(ready[1], &done, 1) == 1;
        usleep(300'000);
        writing.define(u"commit"_s);
        writing.close();
        _exit(told ? 0 : 1);
    }
    char done = 0;
    QCOMPARE(read(ready[0], &done, 1), ssize_t(1));
    const bool looksUnfinished = leftBehind::isHot(desk.path());
    const fileCheck::Report report = fileCheck::check(desk.path());
    waitpid(child, nullptr, 0);
    close(ready[0]);
    close(ready[1]);
    QVERIFY(looksUnfinished);
    QVERIFY2(report.isWhole(), qPrintable(report.failure + report.differences.join(u'\n')));
    QCOMPARE(report.remark, QString());
}

void FileCheckTest::aCopyThatCannotBeMadeIsTheCause()
{
    FullDesk desk;
    DE().CN.close();
    writeContent(desk.path() + u"-journal"_s, QByteArray(512, 'j'));
    const QByteArray before = qgetenv("TMPDIR");
    const auto restore = qScopeGuard([&before] { before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before); });
    const QString noFolder = desk.folder.filePath(u"a file"_s);
    writeContent(noFolder, {});
    qputenv("TMPDIR", QFile::encodeName(noFolder));
    const fileCheck::Report report = fileCheck::check(desk.path());
    QVERIFY(!report.isReadable());
    QVERIFY2(report.failure.contains(noFolder), qPrintable(report.failure));
}

CORVANE_TEST(FileCheckTest)
#include "tst_fileCheck.moc"
