#include "registers/undoMark.h"

#include "production/MarkedRows.h"
#include "ui/Notice.h"
#include "ui/frmMsg.h"

using namespace Qt::StringLiterals;

void undoMark(const QString &what, const MarkedRows &marked)
{
    switch (marked.takeBack()) {
    case MarkedRows::TakenBack::Yes: return Notice(u"Taken back: "_s + what).linger();
    case MarkedRows::TakenBack::Gone:
        return ShowMessage(what + u"\r\n\r\nWhat was marked is no longer there. Nothing has been undone."_s);
    case MarkedRows::TakenBack::Changed:
        return ShowMessage(what + u"\r\n\r\nIt has been changed since it was marked. Nothing has been undone."_s);
    }
}
