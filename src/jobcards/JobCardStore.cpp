#include "jobcards/JobCardStore.h"

#include "base/RuntimeError.h"
#include "base/session.h"
#include "base/values.h"
#include "jobcards/clsJobCardData.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/lookups.h"
#include "store/postings.h"
#include "store/settings.h"

#include <algorithm>
#include <span>

using namespace Qt::StringLiterals;

namespace {

/// The columns that a card gives to each of its rows, at every save.
void setSharedColumns(
    Recordset &record, const JobCard &card, qint32 jobID, qint32 clientID, const clsJobCardData &rows, int index)
{
    const QString color = rows.Color(index);
    record.set(u"DATE", card.JobDate);
    record.set(u"JobID", jobID);
    record.set(u"ItemSr", index);
    record.set(u"ClintID", clientID);
    record.set(u"ClintName", card.ClientTitle);
    record.set(u"ItemID", rows.ItemID(index));
    record.set(u"isInventory", rows.isInv(index));
    record.set(u"ItemName", rows.ItemName(index));
    record.set(u"Remarks", rows.Remarks(index));
    record.set(u"QNT", rows.Qty(index));
    record.set(u"FEES", rows.Fees(index));
    record.set(u"Amount", rows.Amount(index));
    record.set(u"img1", rows.img1(index));
    record.set(u"img2", rows.img2(index));
    record.set(u"Color", color.isEmpty() ? Value() : Value(color));
    record.set(u"ItemDetails", rows.ItemDetails(index));
    record.set(u"ItemDetailsValue", rows.ItemDetailsValue(index));
    record.set(u"ClientRemarks", rows.ClientRemarks(index));
}

/// What is written by others than the card's screen, and left as it is by a save.
constexpr QStringView headColumnsOfOthers[]{u"ClientDeliveryDate", u"appeared", u"appearedDate"};
constexpr QStringView rowColumnsOfOthers[]{u"WorkerID", u"WorkerName", u"JobDelDate", u"CompletedDate", u"AltDate",
    u"DelToCustDate", u"DoneByWorker", u"WorkerWagesDue", u"MarkAsPaid", u"PayrollID", u"Loc", u"Score",
    u"ClientFeedback", u"CuttingDate", u"CuttingStatus"};

/// All else that the current row says.
QString contentOf(const Recordset &record, std::span<const QStringView> columnsOfOthers)
{
    QStringList texts;
    for (int column = 0; column < record.columnCount(); ++column) {
        const QString name = record.columnName(column);
        const bool isOfOthers = std::ranges::any_of(
            columnsOfOthers, [&name](QStringView other) { return other.compare(name, Qt::CaseInsensitive) == 0; });
        if (const Value value = record.value(column); !isOfOthers)
            texts += value.isNull() ? QString() : value.toText();
    }
    return texts.join(QChar(u'\0'));
}

QString headOf(const Recordset &job)
{
    return job.eof() ? QString() : contentOf(job, headColumnsOfOthers);
}

} // namespace

JobCardStore::JobCardStore() : m_otherWrites(DE().CN.otherWrites()) { }

void JobCardStore::openSaved(int jobID)
{
    m_oldJobID = Int16(jobID);
    m_currentJobID = jobID;
    m_saved = true;
    Recordset job(DE().CN);
    job.open(u"Select * from JOBS where id="_s + QString::number(jobID));
    m_knownHead = headOf(job);
    m_knownRows.clear();
    m_otherWrites = DE().CN.otherWrites();
}

void JobCardStore::readRows(clsJobCardData &rows)
{
    m_knownRows.clear();
    Recordset &records = DE().rsJOBS_DETAIL;
    records.reopen(
        u"Select * from jobs_detail where JOBID="_s + QString::number(m_currentJobID) + u" Order by ItemSr"_s);
    for (; !records.eof(); records.moveNext()) {
        JobCardRow row;
        row.Sr = Int16(records.integer(u"ID"));
        row.ItemID = Int16(records.integer(u"ItemID"));
        row.ItemName = records.text(u"ItemName");
        row.isInv = Int16(records.integer(u"isInventory"));
        row.Qty = Int16(records.integer(u"QNT"));
        row.Fees = records.number(u"FEES");
        row.Amount = records.number(u"Amount");
        row.Remarks = records.text(u"Remarks");
        row.ItemDetails = records.text(u"ItemDetails");
        row.ItemDetailsValue = records.text(u"ItemDetailsValue");
        row.img1 = records.textOrEmpty(u"img1");
        row.img2 = records.textOrEmpty(u"img2");
        row.Color = records.textOrEmpty(u"Color");
        row.ClientRemarks = records.text(u"ClientRemarks");
        rows.AddNewRow(row);
        m_knownRows.insert(row.Sr, contentOf(records, rowColumnsOfOthers));
    }
    records.close();
}

qint32 JobCardStore::GetNewNum()
{
    Recordset &jobs = DE().rsJobs2;
    jobs.openLast(u"Select * from JOBS order by ID"_s);
    // A number that was left empty or is no job number begins at 1.
    const qint32 last =
        jobs.eof() ? std::max(Int32(Val(GetSetting(setting::FirstJobNumber))), 1) - 1 : jobs.integer(u"ID");
    jobs.close();
    return last + 1;
}

QString JobCardStore::lastReceiptAccount()
{
    Recordset &jobs = DE().rsJobs2;
    jobs.openLast(u"Select * from JOBS where CashAccID>0 order by ID"_s);
    const qint32 account = jobs.eof() ? 0 : jobs.integer(u"CashAccID");
    jobs.close();
    return titleOrBlank(account);
}

bool JobCardStore::isDuplicate(const QString &jobIDText) const
{
    const double number = Val(jobIDText);
    if (m_saved && number == m_oldJobID)
        return false;
    return GetFieldValueNum(u"*"_s, u"jobs"_s, u"ID"_s, number, DE().rsJobs2).toDouble() > 0;
}

/// One durable write, after which the store and the rows say what the file holds, whether it went well or not.
void JobCardStore::write(clsJobCardData &rows, const std::function<void()> &body)
{
    const JobCardStore before = *this;
    std::vector<qint16> numbersBefore;
    for (int i = 1; i <= rows.RowCount(); ++i)
        numbersBefore.push_back(rows.Sr(i));
    WriteGroup::run(DE().CN, body, [&](Written written) {
        *this = before;
        m_mayStand = m_mayStand || written == Written::AllOrNothing;
        for (int i = 1; i <= rows.RowCount(); ++i)
            rows.SetSr(i, numbersBefore[static_cast<size_t>(i - 1)]);
    });
    m_mayStand = false;
    m_otherWrites = DE().CN.otherWrites();
}

void JobCardStore::requireMasters(const JobCard &card, const clsJobCardData &rows) const
{
    if (DE().CN.otherWrites() == m_otherWrites)
        return;
    const auto require = [](const QString &table, const QString &column, const QString &name, Recordset &source) {
        if (GetFieldValue(u"ID"_s, table, column, name, source).toInt() < 0)
            throw RuntimeError(Fault::NoCurrentRecord,
                u"Another program has renamed or deleted \"%1\". Nothing was written."_s.arg(name), {},
                Written::Nothing);
    };
    require(u"Accounts"_s, u"Title"_s, card.ClientTitle, DE().rsaccounts);
    if (Val(card.ReceivedText) > 0)
        require(u"Accounts"_s, u"Title"_s, card.ReceiptAccountTitle, DE().rsaccounts);
    for (int i = 1; i <= rows.RowCount(); ++i) {
        // The wage of a row that is added comes from its item; a row that stands there keeps its own.
        if (!m_saved || rows.Sr(i) == 0)
            require(u"Items"_s, u"Name"_s, rows.ItemName(i), DE().rsItems2);
    }
}

void JobCardStore::requireFreeNumber(const JobCard &card) const
{
    if (isDuplicate(card.JobIDText))
        throw RuntimeError(Fault::NumberTaken,
            u"Another job card has just got the number %1. Nothing of this one was written."_s.arg(card.JobIDText), {},
            Written::Nothing);
}

void JobCardStore::requireUntouched() const
{
    if (DE().CN.otherWrites() == m_otherWrites)
        return;
    const QString number = QString::number(m_currentJobID);
    Recordset found(DE().CN);
    found.open(u"Select * from JOBS where Id="_s + number);
    const QString head = headOf(found);
    QMap<qint32, QString> rows;
    found.reopen(u"Select * from JOBS_DETAIL where JobID="_s + number);
    for (; !found.eof(); found.moveNext())
        rows.insert(found.integer(u"ID"), contentOf(found, rowColumnsOfOthers));
    if (head.isEmpty() || head != m_knownHead || rows != m_knownRows)
        throw RuntimeError(Fault::RowNotFound,
            u"Another program has deleted or changed job card %1 since it was opened here. "
            "Nothing was written. Open the card again."_s.arg(number),
            {}, Written::Nothing);
}

void JobCardStore::SaveNew(const JobCard &card, clsJobCardData &rows)
{
    write(rows, [&] {
        requireMasters(card, rows);
        requireFreeNumber(card);
        DE().rsJobs2.openToAdd(u"Select * from jobs"_s);
        writeCard(card, true);
        m_saved = true;
        for (int i = 1; i <= rows.RowCount(); ++i)
            addRow(card, rows, i, true);
        writePostings(card);
        if (card.Cancelled)
            markRowsCancelled();
    });
}

void JobCardStore::SaveEdit(const JobCard &card, clsJobCardData &rows)
{
    write(rows, [&] {
        requireUntouched();
        requireMasters(card, rows);
        requireFreeNumber(card);
        DE().rsJobs2.reopen(u"Select * from jobs where id="_s + QString::number(m_currentJobID));
        writeCard(card, false);
        for (int i = 1; i <= rows.RowCount(); ++i) {
            if (rows.Sr(i) > 0)
                overwriteRow(card, rows, i);
            else
                addRow(card, rows, i, false);
        }
        if (!m_removedRowIDs.isEmpty()) {
            DE().CN.execute(u"Delete from jobs_detail where Id="_s + m_removedRowIDs);
            m_knownRows.remove(m_removedRowIDs.toInt());
            m_removedRowIDs.clear();
        }
        DE().CN.execute(
            u"Delete from Postings where vid=%1and vtype=%2"_s.arg(m_currentJobID).arg(documentKind::JobCard));
        writePostings(card);
        if (card.Cancelled)
            markRowsCancelled();
    });
    session::NeedRefresh = true;
}

void JobCardStore::writeCard(const JobCard &card, bool added)
{
    Recordset &job = DE().rsJobs2;
    if (added)
        job.addNew();
    const double number = Val(card.JobIDText);
    job.set(u"ID", number);
    m_oldJobID = Int16(number);
    m_currentJobID = Int32(number);
    job.set(u"DATE", card.JobDate);
    m_clientID = GetAccountID(card.ClientTitle);
    job.set(u"ClintID", m_clientID);
    job.set(u"ClintName", card.ClientTitle);
    job.set(u"DeliveryDate", card.DeliveryDate);
    job.set(u"TrialDate", card.TrialDate);
    job.set(u"AmountDue", card.TotalText);
    job.set(u"AmountPaid", card.ReceivedText);
    job.set(u"JobFinished", card.Delivered ? 1 : 0);
    job.set(u"Remark", card.Remark);
    if (Val(card.ReceivedText) > 0)
        job.set(u"CashAccID", GetAccountID(card.ReceiptAccountTitle));
    job.set(u"Status", card.Cancelled ? cardStatus::Cancelled : cardStatus::Live);
    job.set(u"CancelReason", card.CancelReason);
    job.update();
    m_knownHead = headOf(job);
    job.close();
}

void JobCardStore::addRow(const JobCard &card, clsJobCardData &rows, int index, bool readNumberBack)
{
    Recordset &record = DE().rsJOBS_DETAIL;
    record.reopen(u"Select * from jobs_detail where id=0"_s);
    record.addNew();
    setSharedColumns(record, card, m_currentJobID, m_clientID, rows, index);
    record.set(u"WorkerID", 0);
    record.set(u"JobDelDate", card.DeliveryDate);
    for (const QStringView date : {u"CompletedDate", u"DelToCustDate", u"AltDate"})
        record.set(date, Value());
    record.set(u"DoneByWorker", rowStatus::Uncompleted);
    // From the present item master: what the row says of wages never counts.
    record.set(u"WorkerWagesDue", GetItemWorkerFees(rows.ItemName(index)) * rows.Qty(index));
    record.set(u"CuttingDate", card.JobDate);
    record.set(u"CuttingStatus", cutting::NotDone);
    record.update();
    const qint32 rowNumber = record.integer(u"ID");
    m_knownRows.insert(rowNumber, contentOf(record, rowColumnsOfOthers));
    if (readNumberBack)
        rows.SetSr(index, Int16(rowNumber));
    record.close();
}

void JobCardStore::overwriteRow(const JobCard &card, const clsJobCardData &rows, int index)
{
    Recordset &record = DE().rsJOBS_DETAIL;
    record.reopen(u"Select * from jobs_detail where id="_s + QString::number(rows.Sr(index)));
    setSharedColumns(record, card, m_currentJobID, m_clientID, rows, index);
    record.update();
    m_knownRows.insert(rows.Sr(index), contentOf(record, rowColumnsOfOthers));
    record.close();
}

void JobCardStore::writePostings(const JobCard &card)
{
    const qint32 sales = GetAccountID(u"Sales"_s);
    const double total = Val(card.TotalText);
    const double received = Val(card.ReceivedText);
    std::vector<Leg> legs{{u"Sales"_s, m_clientID, sales, -total}, {u"Sales"_s, sales, m_clientID, total}};
    if (received > 0) {
        const qint32 receiptAccount = GetAccountID(card.ReceiptAccountTitle);
        legs.push_back({u"Receipt"_s, receiptAccount, m_clientID, -received});
        legs.push_back({u"Receipt"_s, m_clientID, receiptAccount, received});
    }
    Recordset &postings = DE().rspostings;
    postings.reopen(u"Select * from Postings where id=0"_s);
    addLegs(postings,
        {.VID = m_currentJobID,
            .Vtype = documentKind::JobCard,
            .date = card.JobDate,
            .remark = u"Job Card # :"_s + QString::number(m_currentJobID),
            .status = card.Cancelled ? postingStatus::OutOfTheBooks : postingStatus::Live},
        legs);
    postings.close();
}

void JobCardStore::markRowsCancelled()
{
    Recordset &records = DE().rsJOBS_DETAIL;
    records.reopen(u"Select * from jobs_detail where JobID="_s + QString::number(m_currentJobID));
    for (; !records.eof(); records.moveNext())
        records.set(u"DoneByWorker", rowStatus::Canceled);
    records.updateBatch();
    records.close();
}

void JobCardStore::deleteCard()
{
    const QString number = QString::number(m_currentJobID);
    WriteGroup::run(DE().CN, [&number] {
        DE().CN.execute(u"Delete from Jobs where id="_s + number);
        DE().CN.execute(u"Delete from Jobs_detail where jobid="_s + number);
        DE().CN.execute(u"Delete from Postings where vid=%1 and vtype=%2"_s.arg(number).arg(documentKind::JobCard));
    });
    session::NeedRefresh = true;
}

void JobCardStore::noteRemovedRow(int rowID)
{
    if (!m_removedRowIDs.isEmpty())
        m_removedRowIDs += u',';
    m_removedRowIDs += QString::number(rowID);
}
