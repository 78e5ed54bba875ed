#include "production/itemRowMarks.h"

#include "base/session.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace {

const auto jobs = u"Jobs"_s;
const auto itemRows = u"jobs_detail"_s;

QString numbered(const QString &column, qint32 number)
{
    return column + u'=' + QString::number(number);
}

std::optional<MarkedRows> changeRow(qint32 rowID, const std::function<void(Recordset &row)> &set)
{
    MarkedRows marked;
    bool isThere = false;
    qint32 job = 0;
    WriteGroup::run(DE().CN, [&] {
        isThere = marked.change(itemRows, numbered(u"id"_s, rowID), [&](Recordset &row) {
            job = row.integer(u"JobID");
            set(row);
        });
        if (isThere)
            marked.watch(jobs, job, u"JobFinished"_s);
    });
    return isThere ? std::optional(marked) : std::nullopt;
}

} // namespace

std::optional<MarkedRows> itemRowMarks::cuttingDone(qint32 rowID)
{
    return changeRow(rowID, [](Recordset &row) {
        row.set(u"CuttingStatus", cutting::Done);
        row.set(u"CuttingDate", session::CurrentDate);
    });
}

std::optional<MarkedRows> itemRowMarks::status(qint32 rowID, int status, QDate day, const QString &location)
{
    return changeRow(rowID, [&](Recordset &row) {
        stamp(row, status, day);
        if (!location.trimmed().isEmpty())
            row.set(u"Loc", location);
    });
}

std::optional<MarkedRows> itemRowMarks::jobDelivered(qint32 jobID, QDate day)
{
    MarkedRows marked;
    bool isThere = false;
    WriteGroup::run(DE().CN, [&] {
        isThere = marked.change(jobs, numbered(u"id"_s, jobID), [day](Recordset &job) {
            job.set(u"ClientDeliveryDate", day);
            job.set(u"JOBFINISHED", jobState::Finished);
        });
        // A card without rows can be handed over too.
        if (isThere)
            static_cast<void>(marked.change(itemRows, numbered(u"JobID"_s, jobID),
                [day](Recordset &row) { stamp(row, rowStatus::Delivered, day); }));
    });
    return isThere ? std::optional(marked) : std::nullopt;
}

void itemRowMarks::stamp(Recordset &row, int status, QDate day)
{
    row.set(u"DoneByWorker", status);
    if (const QString column = rowStatus::dateColumn(status); !column.isEmpty())
        row.set(column, day);
}
