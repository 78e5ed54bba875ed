#include "accounts/frmPayrollDetails.h"

#include "accounts/wagesList.h"
#include "base/session.h"
#include "ui/Command.h"
#include "ui/ListView.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

frmPayrollDetails::frmPayrollDetails()
    : RegisterScreen(u"frmPayrollDetails"_s, u"Payroll Details"_s, Refresh::OnCommand)
{
    lvSummary = new ListView(u"lvSummary"_s, wagesList::columns(u"Qty."_s));
    lvSummary->setAccessibleName(windowTitle());
    lvSummary->setEmptyText(u"No job is paid by this payroll any more."_s);
    setRegister(lvSummary, Rows::AreOnlyRead);
    cmdPrint = new Command(u"cmdPrint"_s, u"&Print"_s);
    auto *whole = new QVBoxLayout(this);
    whole->addWidget(lvSummary, 1);
    whole->addWidget(cmdPrint, 0, Qt::AlignRight);
    resize(1060, 560);
    printKey(cmdPrint);
    connect(cmdPrint, &Command::clicked, this, [this] {
        wagesList::print(
            lvSummary->list(), PayrollWorkerTitle, u" x "_s, u"Payroll %1 %2"_s.arg(m_number).arg(PayrollWorkerTitle));
    });
    session::NeedRefresh = true;
}

void frmPayrollDetails::ExecuteSQL(const QString &workerTitle, qint32 payrollNumber)
{
    PayrollWorkerTitle = workerTitle;
    m_number = payrollNumber;
    showRows(wagesList::read(
                 u"Select * from JOBS_Detail where PayrollID="_s + QString::number(payrollNumber) + u" order by ID"_s),
        Keep::First);
    exec();
}
