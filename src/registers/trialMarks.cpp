#include "registers/trialMarks.h"

#include "base/session.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"

using namespace Qt::StringLiterals;

namespace {

std::optional<MarkedRows> mark(qint32 jobID, int appeared, const Value &appearedDate, QDate movedTo = {})
{
    MarkedRows marked;
    bool isThere = false;
    WriteGroup::run(DE().CN, [&] {
        isThere = marked.change(u"Jobs"_s, u"id="_s + QString::number(jobID), [&](Recordset &job) {
            job.set(u"appeared", appeared);
            job.set(u"appearedDate", appearedDate);
            if (movedTo.isValid())
                job.set(u"trialdate", movedTo);
        });
    });
    return isThere ? std::optional(marked) : std::nullopt;
}

} // namespace

std::optional<MarkedRows> trialMarks::appeared(qint32 jobID)
{
    return mark(jobID, trial::Appeared, session::CurrentDate);
}

std::optional<MarkedRows> trialMarks::notAppeared(qint32 jobID)
{
    return mark(jobID, trial::NotAppeared, {});
}

std::optional<MarkedRows> trialMarks::canceled(qint32 jobID)
{
    return mark(jobID, trial::Canceled, {});
}

std::optional<MarkedRows> trialMarks::movedTo(qint32 jobID, QDate day)
{
    return mark(jobID, trial::NotAppeared, {}, day);
}

std::optional<QDate> trialMarks::dateOf(qint32 jobID)
{
    Recordset &job = DE().rsJOBS;
    job.reopen(u"Select * from Jobs where id="_s + QString::number(jobID));
    const std::optional<QDate> day = job.eof() ? std::nullopt : std::optional(job.date(u"trialdate"));
    job.close();
    return day;
}
