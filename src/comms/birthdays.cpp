#include "comms/birthdays.h"

#include "store/codes.h"

using namespace Qt::StringLiterals;

QString birthdaysOn(QDate day)
{
    const QString month = QString::number(day.month());
    const QString dayOfMonth = QString::number(day.day());
    return u"select * from  Accounts where type="_s + QString::number(accountType::Client)
        + u" and month(dob) between "_s + month + u" and "_s + month + u" and day(dob) between  "_s + dayOfMonth
        + u" and "_s + dayOfMonth;
}
