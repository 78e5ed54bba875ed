#include "production/itemRowMarks.h"

#include "base/session.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace {

bool change(Recordset &rows, const QString &statement, const std::function<void(Recordset &row)> &set)
{
    rows.reopen(statement);
    const bool isThere = !rows.eof();
    for (; !rows.eof(); rows.moveNext())
        set(rows);
    rows.updateBatch();
    rows.close();
    return isThere;
}

bool changeRow(qint32 rowID, const std::function<void(Recordset &row)> &set)
{
    bool isThere = false;
    WriteGroup::run(DE().CN, [&] {
        isThere = change(DE().rsJOBS_DETAIL, u"Select * from jobs_detail where id="_s + QString::number(rowID), set);
    });
    return isThere;
}

} // namespace

bool itemRowMarks::cuttingDone(qint32 rowID)
{
    return changeRow(rowID, [](Recordset &row) {
        row.set(u"CuttingStatus", cutting::Done);
        row.set(u"CuttingDate", session::CurrentDate);
    });
}

bool itemRowMarks::status(qint32 rowID, int status, QDate day, const QString &location)
{
    return changeRow(rowID, [&](Recordset &row) {
        stamp(row, status, day);
        if (!location.trimmed().isEmpty())
            row.set(u"Loc", location);
    });
}

bool itemRowMarks::jobDelivered(qint32 jobID, QDate day)
{
    bool isThere = false;
    WriteGroup::run(DE().CN, [&] {
        const QString number = QString::number(jobID);
        isThere = change(DE().rsJOBS, u"Select * from Jobs where id="_s + number, [day](Recordset &job) {
            job.set(u"ClientDeliveryDate", day);
            job.set(u"JOBFINISHED", jobState::Finished);
        });
        if (isThere)
            change(DE().rsJOBS_DETAIL, u"Select * from jobs_detail where JobID="_s + number,
                [day](Recordset &row) { stamp(row, rowStatus::Delivered, day); });
    });
    return isThere;
}

void itemRowMarks::stamp(Recordset &row, int status, QDate day)
{
    row.set(u"DoneByWorker", status);
    if (const QString column = rowStatus::dateColumn(status); !column.isEmpty())
        row.set(column, day);
}
