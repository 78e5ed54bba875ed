#pragma once

#include "ui/RegisterScreen.h"

/// "WAGES REGISTER": the finished garments of a worker in a period, what they come to, and their payroll.
class frmWorkerWagesRegister : public RegisterScreen {
    Q_OBJECT

public:
    frmWorkerWagesRegister();
};
