#include "jobcards/JobCardStore.h"

#include "OrderDesk.h"
#include "base/session.h"
#include "jobcards/clsJobCardData.h"
#include "store/lookups.h"
#include "store/settings.h"
#include "support/expectFault.h"

using namespace Qt::StringLiterals;

/// What a job card leaves in the database, save by save.
class JobCardStoreTest : public QObject {
    Q_OBJECT

private slots:
    void rowsAreCountedFromOne();
    void numbersFollowTheHighestCard();
    void aNewCardWritesItsRowsAndPostings();
    void productionSurvivesAnEdit();
    void aRowAddedToASavedCardIsInsertedAtEverySave();
    void oneRemovedRowGoesTwoFail();
    void cancellingTakesThePostingsOutAndMarksTheRowsForGood();
    void numbersAboveSixteenBitsAreRefusedBeforeAnythingIsWritten();
    void whatWasWrittenBeforeAFailureStays();
    void deletingTakesRowsAndPostingsWithIt();
    void onAFullDiskNothingIsSavedAndTheSaveCanBeRepeated();
    void anotherProgramsWorkIsNotWrittenOver();
};

namespace {

QStringList everything(OrderDesk &desk)
{
    return desk.lines(u"Select * from JOBS"_s) + desk.lines(u"Select * from JOBS_DETAIL"_s) + desk.postings();
}

} // namespace

void JobCardStoreTest::rowsAreCountedFromOne()
{
    clsJobCardData rows;
    for (const QString &name : {u"Coat"_s, u"Shirt"_s}) {
        JobCardRow row;
        row.Sr = static_cast<qint16>(10 + rows.RowCount());
        row.ItemName = name;
        rows.AddNewRow(row);
    }
    rows.Copy(1);
    rows.setMarkAsPaid(3, 1);
    QCOMPARE(rows.Sr(3), qint16(10));
    QCOMPARE(rows.MarkAsPaid(1), qint16(0));
    // Those that follow a removed one move down.
    rows.RemoveRow(2);
    QCOMPARE(rows.RowCount(), qint16(2));
    QCOMPARE(rows.ItemName(2) + QString::number(rows.MarkAsPaid(2)), u"Coat1"_s);
    // An index above the count is told and harmless.
    ModalScript script;
    script.expectBox(u"Index Out of Bound!"_s);
    rows.SetItemName(3, u"Kurta"_s);
    EXPECT_FAULT(Fault::SubscriptOutOfRange, rows.RemoveRow(-1));
    while (rows.RowCount() < 32767)
        rows.AddNewRow({});
    EXPECT_FAULT(Fault::Overflow, rows.AddNewRow({}));
}

void JobCardStoreTest::numbersFollowTheHighestCard()
{
    OrderDesk desk;
    // A number that is none begins at 1.
    for (const auto &[first, number] :
        {std::pair(QString(), 1), {u"0"_s, 1}, {u"-3"_s, 1}, {u""_s, 1}, {u"1001"_s, 1001}}) {
        if (!first.isNull())
            SaveSetting(setting::FirstJobNumber, first);
        QCOMPARE(JobCardStore::GetNewNum(), number);
    }
    JobCardStore first = desk.book(u"1001"_s);
    JobCardStore second = desk.book(u"1002"_s);
    QCOMPARE(JobCardStore::GetNewNum(), 1003);
    first.deleteCard();
    QCOMPARE(JobCardStore::GetNewNum(), 1003);
    second.deleteCard();
    QCOMPARE(JobCardStore::GetNewNum(), 1001);
    JobCardStore store = desk.book(u"7"_s);
    QCOMPARE(JobCardStore::GetNewNum(), 8);
    // One's own number is not taken, nor one that nobody has.
    QVERIFY(!store.isDuplicate(u"7"_s) && !store.isDuplicate(u"13"_s));
    QVERIFY(JobCardStore().isDuplicate(u"7"_s) && JobCardStore().isDuplicate(u"7 A"_s));
    QVERIFY(!JobCardStore().isDuplicate({}));
}

void JobCardStoreTest::aNewCardWritesItsRowsAndPostings()
{
    OrderDesk desk;
    session::NeedRefresh = false;
    JobCard card = desk.card(u"5"_s);
    clsJobCardData rows = desk.rows(2);
    // What counts is the master's wage.
    rows.SetWorkerWagesDue(1, 9999);
    JobCardStore store;
    QCOMPARE(store.EditMode(), u"N"_s);
    store.SaveNew(card, rows);
    QCOMPARE(store.EditMode(), u"E"_s);
    QCOMPARE(store.CurrentJobID(), 5);
    QVERIFY(!session::NeedRefresh);
    QCOMPARE(
        desk.lines(
            u"Select ID, DATE, ClintID, ClintName, DeliveryDate, ClientDeliveryDate, TrialDate, appeared, AmountDue, "
            "AmountPaid, JobFinished, Remark, CashAccID, Status, CancelReason from JOBS"_s),
        QStringList{u"5|10-Apr-2011|5|Asha Rao|17-Apr-2011||12-Apr-2011|0|1600|100|0|By hand|4|0|"_s});
    const QString rest =
        u"|5|1|-1|Coat|2|400|800|Wool|Chest\r\nWaist|40\r\nNA|0||17-Apr-2011||0|300|0|0||Loose|10-Apr-2011|0|255"_s;
    QCOMPARE(desk.lines(
                 u"Select ID, DATE, JobID, ItemSr, ClintID, ItemID, isInventory, ItemName, QNT, FEES, Amount, Remarks, "
                 "ItemDetails, ItemDetailsValue, WorkerID, WorkerName, JobDelDate, CompletedDate, DoneByWorker, "
                 "WorkerWagesDue, MarkAsPaid, Score, ClientFeedback, ClientRemarks, CuttingDate, CuttingStatus, color "
                 "from JOBS_DETAIL order by id"_s),
        QStringList({u"1|10-Apr-2011|5|1"_s + rest, u"2|10-Apr-2011|5|2"_s + rest}));
    QCOMPARE(desk.postings(),
        QStringList({
            u"5|1|1|10-Apr-2011|5|2|Sales|Job Card # :5|-1600|0|0"_s,
            u"5|1|2|10-Apr-2011|2|5|Sales|Job Card # :5|1600|0|0"_s,
            u"5|1|3|10-Apr-2011|4|5|Receipt|Job Card # :5|-100|0|0"_s,
            u"5|1|4|10-Apr-2011|5|4|Receipt|Job Card # :5|100|0|0"_s,
        }));
    QCOMPARE(rows.Sr(1), qint16(1));
    QCOMPARE(rows.Sr(2), qint16(2));
    QCOMPARE(GetAccountBalance(5, {2011, 4, 10}), -1500.0);

    // Saved again as it is, nothing changes.
    const auto all = [&desk] { return desk.lines(u"Select * from JOBS_DETAIL"_s) + desk.postings(); };
    const QStringList saved = all();
    store.SaveEdit(card, rows);
    QCOMPARE(all(), saved);
    QVERIFY(session::NeedRefresh);

    // Without an advance there is no receipt.
    card = desk.card(u"6"_s);
    card.ReceivedText = u"0"_s;
    card.ReceiptAccountTitle = u"Nobody"_s;
    card.TotalText = u"0.00"_s;
    clsJobCardData other = desk.rows(1);
    JobCardStore().SaveNew(card, other);
    QCOMPARE(desk.postings().size(), 4 + 2);
    QCOMPARE(desk.lines(u"Select CashAccID, AmountPaid from JOBS where ID=6"_s), QStringList{u"0|0"_s});
}

void JobCardStoreTest::productionSurvivesAnEdit()
{
    OrderDesk desk;
    clsJobCardData rows = desk.rows(1);
    JobCardStore store;
    store.SaveNew(desk.card(u"1"_s), rows);
    desk.connection.execute(
        u"update JOBS_DETAIL set WorkerID=7, WorkerName='Babu', CompletedDate=#15-Apr-2011#, DoneByWorker=1, "
        "MarkAsPaid=1, Loc='Rack 2', CuttingStatus=1, CuttingDate=#12-Apr-2011#"_s);
    desk.connection.execute(
        u"update JOBS set ClientDeliveryDate=#16-Apr-2011#, appeared=1, appearedDate=#13-Apr-2011#"_s);
    JobCard card = desk.card(u"1"_s);
    card.DeliveryDate = {2011, 5, 1};
    card.JobDate = {2011, 4, 11};
    rows.SetQty(1, 5);
    rows.SetRemarks(1, u"Silk"_s);
    store.SaveEdit(card, rows);
    QCOMPARE(desk.lines(u"Select DATE, QNT, Remarks, WorkerID, WorkerName, JobDelDate, CompletedDate, DoneByWorker, "
                        "WorkerWagesDue, MarkAsPaid, Loc, CuttingDate, CuttingStatus from JOBS_DETAIL"_s),
        QStringList{u"11-Apr-2011|5|Silk|7|Babu|17-Apr-2011|15-Apr-2011|1|300|1|Rack 2|12-Apr-2011|1"_s});
    QCOMPARE(desk.lines(u"Select DeliveryDate, ClientDeliveryDate, appeared, appearedDate from JOBS"_s),
        QStringList{u"01-May-2011|16-Apr-2011|1|13-Apr-2011"_s});
}

void JobCardStoreTest::aRowAddedToASavedCardIsInsertedAtEverySave()
{
    OrderDesk desk;
    clsJobCardData rows = desk.rows(1);
    JobCardStore store;
    store.SaveNew(desk.card(u"1"_s), rows);
    const auto stored = [&desk] { return desk.lines(u"Select Id, ItemSr, Remarks from JOBS_DETAIL"_s).join(u' '); };
    // A copy stands for the same row.
    rows.Copy(1);
    rows.SetRemarks(2, u"Copy"_s);
    store.SaveEdit(desk.card(u"1"_s), rows);
    QCOMPARE(stored(), u"1|2|Copy"_s);
    rows.RemoveRow(2);
    rows.AddNewRow(OrderDesk::row());
    store.SaveEdit(desk.card(u"1"_s), rows);
    QCOMPARE(rows.Sr(2), qint16(0));
    QCOMPARE(stored(), u"1|1|Wool 2|2|Wool"_s);
    store.SaveEdit(desk.card(u"1"_s), rows);
    QCOMPARE(stored(), u"1|1|Wool 2|2|Wool 3|2|Wool"_s);
}

void JobCardStoreTest::oneRemovedRowGoesTwoFail()
{
    OrderDesk desk;
    clsJobCardData rows = desk.rows(4);
    JobCardStore store;
    store.SaveNew(desk.card(u"1"_s), rows);
    const auto remove = [&](int index) {
        store.noteRemovedRow(rows.Sr(index));
        rows.RemoveRow(index);
    };
    remove(2);
    store.SaveEdit(desk.card(u"1"_s), rows);
    QCOMPARE(desk.lines(u"Select Id, ItemSr from JOBS_DETAIL"_s), QStringList({u"1|1"_s, u"3|2"_s, u"4|3"_s}));

    remove(1);
    remove(1);
    JobCard card = desk.card(u"1"_s);
    card.Remark = u"second edit"_s;
    card.TotalText = u"800.00"_s;
    const QStringList postings = desk.postings();
    EXPECT_FAULT(Fault::Syntax, store.SaveEdit(card, rows));
    // The card and its rows were written before, the postings come after.
    QCOMPARE(desk.lines(u"Select Remark, AmountDue from JOBS"_s), QStringList{u"second edit|800"_s});
    QCOMPARE(desk.lines(u"Select Id, ItemSr from JOBS_DETAIL"_s), QStringList({u"1|1"_s, u"3|2"_s, u"4|1"_s}));
    QCOMPARE(desk.postings(), postings);
}

void JobCardStoreTest::cancellingTakesThePostingsOutAndMarksTheRowsForGood()
{
    OrderDesk desk;
    clsJobCardData rows = desk.rows(2);
    JobCard card = desk.card(u"1"_s);
    JobCardStore store;
    store.SaveNew(card, rows);
    card.Cancelled = true;
    card.CancelReason = u"Moved away"_s;
    store.SaveEdit(card, rows);
    QCOMPARE(desk.lines(u"Select Status, CancelReason from JOBS"_s), QStringList{u"1|Moved away"_s});
    QCOMPARE(desk.count(u"Postings where Status=1"_s), 4);
    QCOMPARE(desk.count(u"JOBS_DETAIL where DoneByWorker=4"_s), 2);
    QCOMPARE(GetAccountBalance(5, {2011, 4, 30}), 0.0);
    card.Cancelled = false;
    store.SaveEdit(card, rows);
    QCOMPARE(GetAccountBalance(5, {2011, 4, 30}), -1500.0);
    QCOMPARE(desk.count(u"JOBS_DETAIL where DoneByWorker=4"_s), 2);

    // Another number moves the card but not its old postings, and without an advance it keeps the receipt account.
    card.JobIDText = u"50"_s;
    card.ReceivedText = u"0"_s;
    card.Delivered = true;
    store.SaveEdit(card, rows);
    QCOMPARE(store.CurrentJobID(), 50);
    QCOMPARE(desk.lines(u"Select ID, CashAccID, AmountPaid, JobFinished, ClientDeliveryDate from JOBS"_s),
        QStringList{u"50|4|0|1|"_s});
    QCOMPARE(desk.count(u"JOBS_DETAIL where JobID=50"_s), 2);
    QCOMPARE(desk.lines(u"Select VID, count(*) from Postings group by VID order by VID"_s).join(u' '), u"1|4 50|2"_s);
}

void JobCardStoreTest::numbersAboveSixteenBitsAreRefusedBeforeAnythingIsWritten()
{
    OrderDesk desk;
    clsJobCardData rows = desk.rows(1);
    EXPECT_FAULT(Fault::Overflow, JobCardStore().SaveNew(desk.card(u"32768"_s), rows));
    QCOMPARE(everything(desk), QStringList());
    EXPECT_FAULT(Fault::Overflow, JobCardStore().openSaved(32768));
    JobCardStore().SaveNew(desk.card(u"32767"_s), rows);
    QCOMPARE(desk.lines(u"Select ID from JOBS"_s), QStringList{u"32767"_s});
}

void JobCardStoreTest::whatWasWrittenBeforeAFailureStays()
{
    OrderDesk desk;
    clsJobCardData rows = desk.rows(1);
    JobCard card = desk.card(u"1"_s);
    card.ClientTitle = u"Nobody"_s;
    EXPECT_FAULT(Fault::NoCurrentRecord, JobCardStore().SaveNew(card, rows));
    QCOMPARE(desk.lines(u"Select * from JOBS"_s), QStringList());

    desk.connection.execute(u"Delete from Accounts where Title='Sales'"_s);
    EXPECT_FAULT(Fault::NoCurrentRecord, JobCardStore().SaveNew(desk.card(u"2"_s), rows));
    QCOMPARE(desk.lines(u"Select ID from JOBS"_s), QStringList{u"2"_s});
    QCOMPARE(desk.lines(u"Select JobID from JOBS_DETAIL"_s), QStringList{u"2"_s});
    QCOMPARE(desk.postings(), QStringList());
}

void JobCardStoreTest::deletingTakesRowsAndPostingsWithIt()
{
    OrderDesk desk;
    JobCardStore first = desk.book(u"1"_s);
    desk.book(u"2"_s);
    desk.connection.execute(u"update Postings set Vtype=2 where VID=1 and sr=4"_s);
    session::NeedRefresh = false;
    first.deleteCard();
    QVERIFY(session::NeedRefresh);
    QCOMPARE(desk.lines(u"Select ID from JOBS"_s), QStringList{u"2"_s});
    QCOMPARE(desk.lines(u"Select JobID from JOBS_DETAIL"_s), QStringList{u"2"_s});
    QCOMPARE(desk.lines(u"Select VID, Vtype, count(*) from Postings group by VID, Vtype order by VID"_s),
        QStringList({u"1|2|1"_s, u"2|1|4"_s}));
}

void JobCardStoreTest::onAFullDiskNothingIsSavedAndTheSaveCanBeRepeated()
{
    OrderDesk desk;
    const auto setRoom = [&desk](
                             const QString &pages) { desk.connection.define(u"PRAGMA max_page_count = "_s + pages); };
    const auto expectDiskFull = [](const std::function<void()> &save) {
        const RuntimeError error = failureOf(save);
        QVERIFY(error.fault() == Fault::DiskFull && error.written() == Written::Nothing);
    };
    const QString usedPages = desk.lines(u"PRAGMA page_count"_s).first();
    JobCard card = desk.card(u"5"_s);
    clsJobCardData rows = desk.rows(2);
    rows.SetRemarks(2, QString(50000, u'x'));
    JobCardStore store;
    setRoom(usedPages);
    expectDiskFull([&] { store.SaveNew(card, rows); });
    QCOMPARE(store.EditMode(), u"N"_s);
    QVERIFY(!store.isDuplicate(u"5"_s));
    QCOMPARE(rows.Sr(1), qint16(0));
    QCOMPARE(everything(desk), QStringList());
    setRoom(u"100000"_s);
    store.SaveNew(card, rows);
    QCOMPARE(store.EditMode(), u"E"_s);
    QCOMPARE(rows.Sr(2), qint16(2));
    QCOMPARE(desk.count(u"JOBS"_s), 1);

    const QStringList saved = everything(desk);
    setRoom(desk.lines(u"PRAGMA page_count"_s).first());
    store.noteRemovedRow(rows.Sr(1));
    rows.RemoveRow(1);
    rows.SetRemarks(1, QString(500000, u'y'));
    card.TotalText = u"800.00"_s;
    card.JobIDText = u"6"_s;
    expectDiskFull([&] { store.SaveEdit(card, rows); });
    QCOMPARE(everything(desk), saved);
    QCOMPARE(store.CurrentJobID(), 5);
    QVERIFY(store.hasRemovedRows());
    setRoom(u"100000"_s);
    card.JobIDText = u"5"_s;
    store.SaveEdit(card, rows);
    QCOMPARE(desk.lines(u"Select Id, ItemSr from JOBS_DETAIL"_s), QStringList{u"2|1"_s});
    QCOMPARE(desk.count(u"Postings where abs(Amount)=800"_s), 2);
}

void JobCardStoreTest::anotherProgramsWorkIsNotWrittenOver()
{
    constexpr int refused = static_cast<int>(Fault::RowNotFound);
    constexpr int missing = static_cast<int>(Fault::NoCurrentRecord);
    constexpr int taken = static_cast<int>(Fault::NumberTaken);
    const std::pair<QString, int> cases[]{
        {u"Update Accounts set City='Pune' where id=5"_s, 0},
        {u"Update JOBS_DETAIL set DoneByWorker=1, WorkerID=7, Loc='Rack 2' where id=1"_s, 0},
        {u"Update JOBS set appeared=1, appearedDate=#12-Apr-2011# where id=1"_s, 0},
        {u"Delete from JOBS where id=1"_s, refused},
        {u"Update JOBS set AmountPaid=300 where id=1"_s, refused},
        {u"Update JOBS set JobFinished=1 where id=1"_s, refused},
        {u"Delete from JOBS_DETAIL where id=1"_s, refused},
        // One of another card is moved in.
        {u"Update JOBS_DETAIL set JobID=1 where id=3"_s, refused},
        {u"Update JOBS_DETAIL set QNT=3, Amount=1200 where id=2"_s, refused},
        {u"Update Accounts set Title='Asha' where id=5"_s, missing},
        {u"Update Accounts set Title='Till' where id=4"_s, missing},
        {u"Update Items set NAME='Long Coat' where id=1"_s, missing},
        {u"Update JOBS set Id=3 where Id=2"_s, taken},
    };
    const auto faultOf = [](const std::function<void()> &save) {
        try {
            save();
        } catch (const RuntimeError &error) {
            return error.written() == Written::Nothing && error.canGoOn() ? error.number() : -1;
        }
        return 0;
    };
    // As the card's screen saved it, and as one finds it that opens it again.
    for (int i = 0; i < 2 * static_cast<int>(std::size(cases)); ++i) {
        const auto &[statement, fault] = cases[i / 2];
        OrderDesk desk;
        clsJobCardData rows = desk.rows(2);
        JobCardStore store;
        store.SaveNew(desk.card(u"1"_s), rows);
        desk.book(u"2"_s);
        if (i % 2) {
            rows = {};
            store.openSaved(1);
            store.readRows(rows);
        }
        rows.AddNewRow(OrderDesk::row());
        rows.SetRemarks(1, u"Silk"_s);
        JobCardStore fresh;
        clsJobCardData freshRows = desk.rows(1);

        Connection other;
        other.open(desk.path());
        other.execute(statement);
        const QStringList before = everything(desk);
        JobCard card = desk.card(fault == taken ? u"3"_s : u"1"_s);
        card.Remark = u"changed"_s;
        const auto edit = [&] { store.SaveEdit(card, rows); };
        QVERIFY2(faultOf(edit) == fault, qPrintable(statement));
        QCOMPARE(desk.count(u"JOBS where Remark='changed'"_s), fault == 0 ? 1 : 0);
        if (fault != 0)
            QCOMPARE(everything(desk), before);
        else
            other.execute(u"Update Accounts set City='Goa' where id=5"_s);
        // What it wrote itself is nobody else's work.
        QCOMPARE(faultOf(edit), fault);

        if (fault != refused) {
            QCOMPARE(faultOf([&] { fresh.SaveNew(desk.card(u"3"_s), freshRows); }), fault);
            QCOMPARE(fresh.EditMode(), fault == 0 ? u"E"_s : u"N"_s);
        }
        if (fault != 0)
            QCOMPARE(everything(desk), before);
    }
}

CORVANE_TEST(JobCardStoreTest)
#include "tst_JobCardStore.moc"
