#include "production/frmEditWorkerAssign.h"

#include "store/DataEnvironment.h"
#include "store/lookups.h"
#include "ui/frmMsg.h"

#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

frmEditWorkerAssign::frmEditWorkerAssign() : Screen(u"frmEditWorkerAssign"_s, u"Assign JOB to Worker"_s)
{
    txtItemName = new QLabel;
    txtItemName->setObjectName(u"txtItemName"_s);
    auto *whole = new QVBoxLayout(this);
    whole->addWidget(txtItemName);
}

void frmEditWorkerAssign::ShowEdit(qint32 id)
{
    Recordset &row = DE().rsJOBS_DETAIL;
    row.reopen(u"Select * from jobs_detail where ID="_s + QString::number(id));
    if (row.eof()) {
        row.close();
        return ShowMessage(u"This item is no longer on its job card!"_s);
    }
    m_id = id;
    const qint32 item = row.integer(u"ItemID");
    row.close();
    txtItemName->setText(GetItemName(item));
    exec();
}
