#include "jobcards/clientGreeting.h"

#include "base/session.h"
#include "base/values.h"
#include "store/DataEnvironment.h"
#include "store/lookups.h"

using namespace Qt::StringLiterals;

namespace {

/// What the client owes or has to his credit. A credit keeps its minus sign.
QString balanceText(double balance)
{
    return Money(-balance) + (balance < 0 ? u" Dr"_s : u" Cr"_s);
}

} // namespace

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
        text += u"  ago ) , Job # "_s + jobNumber + u" , Due Balance : "_s + balanceText(balance);
    return {text, true};
}
