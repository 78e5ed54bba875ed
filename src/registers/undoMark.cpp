#include "registers/undoMark.h"

#include "production/MarkedRows.h"
#include "ui/Notice.h"
#include "ui/frmMsg.h"

using namespace Qt::StringLiterals;

void undoMark(const MarkedRows &marked)
{
    switch (marked.takeBack()) {
    case MarkedRows::TakenBack::Yes: return Notice(u"The mark is taken back."_s).linger();
    case MarkedRows::TakenBack::Gone:
        return ShowMessage(u"What was marked is no longer there. Nothing has been undone."_s);
    case MarkedRows::TakenBack::Changed:
        return ShowMessage(u"It has been changed since it was marked. Nothing has been undone."_s);
    }
}
