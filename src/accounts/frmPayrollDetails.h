#pragma once

#include "ui/RegisterScreen.h"

class Command;

/// "Payroll Details": the garments that a payroll paid, which is the one true account of what it covers.
class frmPayrollDetails : public RegisterScreen {
    Q_OBJECT

public:
    frmPayrollDetails();

    /// Shows the garments of the payroll of that number, under its worker's name.
    void ExecuteSQL(const QString &workerTitle, qint32 payrollNumber);

private:
    ListView *lvSummary;
    Command *cmdPrint;
    QString PayrollWorkerTitle;
    qint32 m_number = 0;
};
