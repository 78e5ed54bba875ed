#include "accounts/frmWorkerWagesRegister.h"

using namespace Qt::StringLiterals;

frmWorkerWagesRegister::frmWorkerWagesRegister()
    : RegisterScreen(u"frmWorkerWagesRegister"_s, u"WAGES REGISTER"_s, Refresh::WhenNeeded)
{
}
