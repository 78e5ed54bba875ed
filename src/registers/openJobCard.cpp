#include "registers/openJobCard.h"

#include "jobcards/frmEditJOB.h"
#include "store/DataEnvironment.h"
#include "store/lookups.h"
#include "ui/frmMsg.h"

using namespace Qt::StringLiterals;

void openJobCard(qint32 jobID)
{
    if (GetFieldValueNum(u"ID"_s, u"jobs"_s, u"ID"_s, jobID, DE().rsJobs2) == Value(-1))
        return ShowMessage(u"Job Card not found!"_s);
    bool deleted = false;
    frmEditJOB().ShowEdit(jobID, deleted);
}
