#include "production/rowGone.h"

#include "ui/frmMsg.h"

using namespace Qt::StringLiterals;

void tellRowGone()
{
    ShowMessage(u"This item is no longer on its job card!"_s);
}
