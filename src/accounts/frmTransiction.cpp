#include "accounts/frmTransiction.h"

using namespace Qt::StringLiterals;

frmTransiction::frmTransiction() : Screen(u"frmTransiction"_s, u"Entry"_s) { }

void frmTransiction::ShowAddNew(const QString &, bool &) { }

void frmTransiction::ShowEdit(qint32, bool &) { }
