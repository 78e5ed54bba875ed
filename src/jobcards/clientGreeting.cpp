#include "jobcards/clientGreeting.h"

#include "base/balanceText.h"
#include "base/session.h"
#include "base/values.h"
#include "store/DataEnvironment.h"
#include "store/lookups.h"

using namespace Qt::StringLiterals;

ClientGreeting greetingOf(const QString &title)
{
    const qint32 ClientID = GetAccountID(title);
    Recordset &jobs = DE().rsJobs2;
    jobs.openLast(u"Select * from Jobs where ClintID="_s + QString::number(ClientID));
    if (jobs.eof()) {
        jobs.close();
        return {u"Welcome "_s + title, false};
    }
    const QDate visit = jobs.date(u"DATE");
    const QString jobNumber = QString::number(jobs.integer(u"ID"));
    jobs.close();
    const double balance = GetAccountBalance(ClientID, session::CurrentDate);
    QString text = u"Welcome back "_s + title + u", Your previous visit was: "_s + DayMonthYear(visit) + u"  ("_s
        + DateDiffText(visit, session::CurrentDate, false, true);
    if (balance == 0)
        text += u"  ago )  , Job # "_s + jobNumber;
    else
        text += u"  ago ) , Job # "_s + jobNumber + u" , Due Balance : "_s + balanceText::inGreeting(balance);
    return {text, true};
}
