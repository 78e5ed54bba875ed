#include "store/fileCheck.h"

#include "OrderDesk.h"
#include "store/DataEnvironment.h"
#include "store/leftBehind.h"
#include "support/fileContent.h"

#include <QDir>

#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

/// What a look at a whole file finds, and what it must not take for a fault.
class FileCheckTest : public QObject {
    Q_OBJECT

private slots:
    void whatTheProgramWritesIsWhole();
    void eachDifferenceIsNamed();
    void aPageOfAnOlderStateIsFound();
    void aDamagedPageIsFound();
    void lookingChangesNothing();
    void aFileInUseIsLookedAtAsItIs();
};

namespace {

/// Cards in all their states, and two vouchers.
struct FullDesk : OrderDesk {
    FullDesk()
    {
        addItem(u"Shirt"_s, u"Collar"_s, 33.3333, 10.25);
        for (const QString &number : {u"1"_s, u"2"_s, u"3"_s, u"4"_s})
            book(number, 2);
        JobCard cancelled = card(u"2"_s);
        cancelled.Cancelled = true;
        change(cancelled, [](JobCardStore &, clsJobCardData &) {});

        JobCard shorter = card(u"3"_s);
        shorter.TotalText = u"900.00"_s;
        shorter.ReceivedText = u"0"_s;
        change(shorter, [](JobCardStore &store, clsJobCardData &rows) {
            store.noteRemovedRow(rows.Sr(1));
            rows.RemoveRow(1);
            JobCardRow shirts = row();
            shirts.ItemName = u"Shirt"_s;
            shirts.ItemID = 2;
            shirts.Qty = 3;
            shirts.Fees = 33.33335;
            shirts.Amount = shirts.Qty * shirts.Fees;
            rows.AddNewRow(shirts);
        });

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

    static void change(const JobCard &card, void (*work)(JobCardStore &, clsJobCardData &))
    {
        JobCardStore store;
        store.openSaved(card.JobIDText.toInt());
        clsJobCardData rows;
        store.readRows(rows);
        work(store, rows);
        store.SaveEdit(card, rows);
    }

    void bookMany()
    {
        for (int number = 6; number < 40; ++number)
            book(QString::number(number), 2);
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

void FileCheckTest::eachDifferenceIsNamed()
{
    const std::pair<QString, QString> cases[]{
        {u"Delete from JOBS_DETAIL where Id=2"_s, u"Job card 1: its rows come to 800.00, the card says 1600.00."_s},
        {u"Insert into JOBS_DETAIL (DATE, JobID, ItemSr, ClintID, ClintName, ItemID, ItemName, QNT, FEES, Amount, "
         "Remarks, ItemDetails, ItemDetailsValue, JobDelDate, CuttingDate) "
         "values (#10-Apr-2011#, 5, 1, 5, 'A', 1, 'C', 1, 0, 0, '', '', '', #10-Apr-2011#, #10-Apr-2011#)"_s,
            u"Job card 5: its 2 rows are not numbered 1 to 2."_s},
        {u"Delete from JOBS_DETAIL where JobID=5"_s, u"Job card 5: it has no rows."_s},
        {u"Update JOBS_DETAIL set QNT=3 where Id=1"_s, u"Job card 1, row 1: 3 at 400.00 are not 800.00."_s},
        {u"Update JOBS_DETAIL set DATE=#11-Apr-2011# where Id=1"_s,
            u"Job card 1, row 1: it is dated 11-Apr-2011, its card 10-Apr-2011."_s},
        {u"Update JOBS_DETAIL set ClintID=4 where Id=1"_s, u"Job card 1, row 1: it names the client 4, its card 5."_s},
        {u"Update JOBS_DETAIL set ItemID=9 where Id=1"_s, u"Job card 1, row 1: its item 9 does not exist."_s},
        {u"Update JOBS_DETAIL set WorkerID=99 where Id=1"_s, u"Job card 1, row 1: its worker 99 does not exist."_s},
        {u"Delete from JOBS where Id=1"_s, u"Job card 1: it does not exist, but has 2 rows."_s},
        {u"Update Postings set VID=8 where VID=5 and Vtype=1"_s,
            u"Job card 8: it does not exist, but has 2 postings."_s},
        {u"Update JOBS set Id=1 where Id=5"_s, u"Job card 1: its number stands in the file twice."_s},
        {u"Delete from Accounts where Id=5"_s, u"Job card 1: its client 5 does not exist."_s},
        {u"Delete from Postings where VID=1 and sr=4"_s,
            u"Job card 1: a posting is missing: Receipt of 100.00 on account 5 against 4, 10-Apr-2011."_s},
        {u"Insert into Postings (VID, Vtype, sr, [Date], AccID, particulars, Remark, Amount) "
         "values (5, 1, 1, #10-Apr-2011#, 5, 'Sales', '', 0)"_s,
            u"Job card 5: a posting too many: Sales of 0.00 on account 5 against 0, 10-Apr-2011."_s},
        {u"Update Postings set Status=0 where VID=2"_s,
            u"Job card 2: a posting is missing: Sales of -1600.00 on account 5 against 2, 10-Apr-2011, out of the books."_s},
        {u"Delete from Postings where VID=1 and Vtype=2 and sr=2"_s,
            u"Voucher 1: its postings come to 250.75 and not to 0."_s},
        {u"Update Postings set AccID=3 where VID=2 and Vtype=2 and sr=2"_s,
            u"Voucher 2: a posting has no other side: Receipt of 100.00 on account 5 against 4, 05-May-2011."_s},
        {u"Update Postings set Amount=250.7501 where VID=1 and Vtype=2 and sr=1"_s,
            u"Journal: it comes to 0.00 and not to 0."_s},
        {u"Update JOBS_DETAIL set Remarks=replace('Wool', 'l', char(0)) where Id=1"_s,
            u"Table JOBS_DETAIL: a part of a text is lost in 1 of its rows."_s},
        {u"Update sqlite_sequence set seq=3 where name='postings'"_s,
            u"Table postings: the number 28 was not handed out yet."_s},
    };
    for (const auto &[statement, told] : cases) {
        FullDesk desk;
        desk.connection.execute(statement);
        const fileCheck::Report report = fileCheck::check(desk.path());
        QVERIFY(report.isReadable() && !report.isWhole());
        QVERIFY2(
            report.differences.contains(told), qPrintable(told + u" is not in\n"_s + report.differences.join(u'\n')));
    }
}

void FileCheckTest::aPageOfAnOlderStateIsFound()
{
    constexpr qsizetype page = 4096;
    FullDesk desk;
    DE().CN.close();
    const QByteArray before = contentOf(desk.path());
    DE().CN.open(desk.path());
    desk.bookMany();
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
    desk.bookMany();
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

void FileCheckTest::lookingChangesNothing()
{
    FullDesk desk;
    DE().CN.close();
    QVERIFY(QFile::setPermissions(desk.path(), QFile::ReadOwner | QFile::ReadGroup));
    const auto state = [&desk] {
        QStringList lines;
        for (const QFileInfo &file : QDir(desk.folder.path()).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot))
            lines += u"%1 %2 %3 %4"_s.arg(file.fileName())
                         .arg(static_cast<int>(file.permissions()))
                         .arg(file.lastModified().toMSecsSinceEpoch())
                         .arg(qHash(contentOf(file.filePath())));
        return lines;
    };
    // Alone, beside a journal that is over, and beside an unfinished write.
    for (const QByteArray &journal : {QByteArray(), QByteArray(512, '\0'), QByteArray(512, 'j')}) {
        if (!journal.isEmpty())
            writeContent(desk.path() + u"-journal"_s, journal);
        const QStringList before = state();
        const fileCheck::Report report = fileCheck::check(desk.path());
        QVERIFY2(report.isWhole(), qPrintable(report.failure + report.differences.join(u'\n')));
        QCOMPARE(report.remark.isEmpty(), !journal.startsWith('j'));
        QCOMPARE(report.cards, 4);
        QCOMPARE(state(), before);
    }
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

CORVANE_TEST(FileCheckTest)
#include "tst_fileCheck.moc"
