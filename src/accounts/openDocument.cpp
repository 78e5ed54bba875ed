#include "accounts/openDocument.h"

#include "accounts/documentTag.h"
#include "accounts/frmTransiction.h"
#include "base/session.h"
#include "jobcards/frmEditJOB.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/lookups.h"
#include "ui/frmMsg.h"

using namespace Qt::StringLiterals;

namespace {

/// The card's screen tells of a deletion alone; of a save the session knows.
bool openCard(qint32 number)
{
    if (GetFieldValueNum(u"ID"_s, u"jobs"_s, u"ID"_s, number, DE().rsJobs2) == Value(-1)) {
        ShowMessage(u"Job Card not found!"_s);
        return true;
    }
    const bool wasStale = session::NeedRefresh;
    session::NeedRefresh = false;
    bool deleted = false;
    frmEditJOB().ShowEdit(number, deleted);
    const bool changed = deleted || session::NeedRefresh;
    session::NeedRefresh = session::NeedRefresh || wasStale;
    return changed;
}

} // namespace

bool openDocument(const DocumentTag &tag)
{
    if (tag.kind == documentKind::JobCard)
        return openCard(tag.number);
    bool changed = false;
    frmTransiction().ShowEdit(tag.number, changed);
    return changed;
}
