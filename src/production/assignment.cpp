#include "production/assignment.h"

#include "base/session.h"
#include "base/values.h"
#include "comms/modSMS.h"
#include "production/itemRowMarks.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/lookups.h"

using namespace Qt::StringLiterals;

namespace {

void closeJob(qint32 jobID)
{
    Recordset &job = DE().rsJOBS;
    job.reopen(u"Select * from jobs where id="_s + QString::number(jobID));
    if (!job.eof()) {
        job.set(u"DeliveryDate", session::CurrentDate);
        job.set(u"JOBFINISHED", jobState::Finished);
        job.update();
    }
    job.close();
}

} // namespace

QString assignment::noWorker()
{
    return u"NA"_s;
}

bool assignment::isAccount(const QString &title)
{
    return GetFieldValue(u"*"_s, u"Accounts"_s, u"Title"_s, title, DE().rsaccounts) != Value(-1);
}

assignment::Saved assignment::save(qint32 rowID, const Assignment &given)
{
    Saved saved = Saved::RowGone;
    WriteGroup::run(DE().CN, [&] {
        const bool hasWorker = given.worker != noWorker();
        if (hasWorker && !isAccount(given.worker)) {
            saved = Saved::WorkerGone;
            return;
        }
        const qint32 workerID = hasWorker ? GetAccountID(given.worker) : 0;
        Recordset &row = DE().rsJOBS_DETAIL;
        row.reopen(u"Select * from jobs_detail where id="_s + QString::number(rowID));
        if (row.eof())
            return row.close();
        row.set(u"WorkerID", workerID);
        if (hasWorker)
            row.set(u"WorkerName", given.worker);
        if (given.status)
            itemRowMarks::stamp(row, *given.status, session::CurrentDate);
        row.set(u"CuttingStatus", given.cuttingDone ? cutting::Done : cutting::NotDone);
        row.set(u"CuttingDate", given.cuttingDate);
        row.set(u"WorkerWagesDue", given.wages);
        row.set(u"MarkAsPaid", given.paid ? wage::Paid : wage::Unpaid);
        row.set(u"Loc", given.location);
        const qint32 jobID = row.integer(u"JobID");
        row.update();
        row.close();
        saved = Saved::Yes;
        if (IsJobDelivered(jobID))
            closeJob(jobID);
    });
    return saved;
}

QString assignment::lastJob(QDate day, qint32 itemID, qint32 clientID)
{
    Recordset &rows = DE().rsJOBS_DETAIL2;
    rows.openLast(u"Select * from JOBS_DETAIL where DATE<#"_s + DateText(day) + u"# and ItemID="_s
        + QString::number(itemID) + u" and ClintID="_s + QString::number(clientID));
    if (rows.eof()) {
        rows.close();
        return u"No last record found"_s;
    }
    const qint32 workerID = rows.integer(u"WorkerID");
    const QString job = u"Last Job ID # "_s + QString::number(rows.integer(u"JobID")) + u"\r\nDate : "_s
        + DayMonthYear(rows.date(u"Date")) + u"\r\n"_s;
    rows.close();
    if (workerID == 0)
        return job + u"No worker information found!"_s;
    return job + u"Job done by : "_s + titleOrBlank(workerID);
}
