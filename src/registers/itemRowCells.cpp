#include "registers/itemRowCells.h"

#include "production/assignment.h"
#include "store/Recordset.h"
#include "store/codes.h"
#include "store/lookups.h"
#include "ui/signs.h"

using namespace Qt::StringLiterals;

QString itemRowCells::job(const Recordset &row)
{
    return QString::number(row.integer(u"JobID")) + u'/' + QString::number(row.integer(u"ItemSr"));
}

QString itemRowCells::worker(int workerID)
{
    return workerID == 0 ? assignment::noWorker() : titleOrBlank(workerID);
}

bool itemRowCells::isOpen(int status)
{
    return status != rowStatus::Delivered && status != rowStatus::Canceled;
}

QIcon itemRowCells::statusSign(int status)
{
    using signs::Status;
    switch (status) {
    case rowStatus::Uncompleted: return signs::status(Status::Uncompleted);
    case rowStatus::Completed: return signs::status(Status::Completed);
    case rowStatus::Delivered: return signs::status(Status::Delivered);
    case rowStatus::Alteration: return signs::status(Status::Alteration);
    case rowStatus::Canceled: return signs::status(Status::Canceled);
    default: return {};
    }
}
