#include "registers/trialMarks.h"

#include "base/session.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// False where there is no such job.
bool onJob(qint32 jobID, const std::function<void(Recordset &job)> &act)
{
    Recordset &job = DE().rsJOBS;
    job.reopen(u"Select * from Jobs where id="_s + QString::number(jobID));
    const bool isThere = !job.eof();
    if (isThere)
        act(job);
    job.close();
    return isThere;
}

bool mark(qint32 jobID, int appeared, const Value &appearedDate, QDate movedTo = {})
{
    bool isThere = false;
    WriteGroup::run(DE().CN, [&] {
        isThere = onJob(jobID, [&](Recordset &job) {
            job.set(u"appeared", appeared);
            job.set(u"appearedDate", appearedDate);
            if (movedTo.isValid())
                job.set(u"trialdate", movedTo);
            job.update();
        });
    });
    return isThere;
}

} // namespace

bool trialMarks::appeared(qint32 jobID)
{
    return mark(jobID, trial::Appeared, session::CurrentDate);
}

bool trialMarks::notAppeared(qint32 jobID)
{
    return mark(jobID, trial::NotAppeared, {});
}

bool trialMarks::canceled(qint32 jobID)
{
    return mark(jobID, trial::Canceled, {});
}

bool trialMarks::movedTo(qint32 jobID, QDate day)
{
    return mark(jobID, trial::NotAppeared, {}, day);
}

std::optional<QDate> trialMarks::dateOf(qint32 jobID)
{
    std::optional<QDate> day;
    onJob(jobID, [&day](const Recordset &job) { day = job.date(u"trialdate"); });
    return day;
}
