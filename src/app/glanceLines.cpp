#include "app/glanceLines.h"

#include "accounts/clientDues.h"
#include "accounts/frmDueRegister.h"
#include "base/values.h"
#include "comms/birthdays.h"
#include "comms/frmBirthDayRimenders.h"
#include "registers/frmDeliveryRegister.h"
#include "registers/frmTrailDate.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "ui/signs.h"

using namespace Qt::StringLiterals;

namespace glanceLines {

namespace {

/// "3 trials are", "1 trial is" or "No trial is".
QString counted(qsizetype count, const QString &one, const QString &several)
{
    return count > 1 ? QString::number(count) + u' ' + several : (count == 1 ? u"1 "_s : u"No "_s) + one;
}

/// Bought goods among them, as in the register.
std::vector<Line> deliveries(QDate day)
{
    Recordset rows(DE().CN);
    rows.openColumns(u"Select * from JOBS_Detail where JobDelDate<=#%1# and DoneByWorker<>%2 and DoneByWorker<>%3"_s
                         .arg(DateText(day))
                         .arg(rowStatus::Delivered)
                         .arg(rowStatus::Canceled),
        {u"JobDelDate"_s});
    qsizetype overdue = 0;
    qsizetype today = 0;
    QDate oldest = day.addDays(-1);
    for (; !rows.eof(); rows.moveNext()) {
        const QDate promised = rows.date(u"JobDelDate");
        ++(promised < day ? overdue : today);
        oldest = std::min(oldest, promised);
    }
    const auto opened = [](QDate from, QDate to) { return [from, to] { frmDeliveryRegister().ShowOpen(from, to); }; };
    const QString one = u"delivery is "_s;
    const QString several = u"deliveries are "_s;
    return {{.text = counted(overdue, one, several) + u"overdue"_s,
                .isSomething = overdue > 0,
                .icon = signs::due(signs::Due::Overdue),
                .open = opened(oldest, day.addDays(-1))},
        {.text = counted(today, one, several) + u"due today"_s,
            .isSomething = today > 0,
            .icon = signs::due(signs::Due::Today),
            .open = opened(day, day)}};
}

/// Those of cards that stand, to which the client is still to come.
std::vector<Line> trials(QDate day)
{
    Recordset jobs(DE().CN);
    jobs.openColumns(
        u"Select * from Jobs where TrialDate between #%1# and #%1# and appeared=%2 and Status=%3"_s.arg(DateText(day))
            .arg(trial::NotAppeared)
            .arg(cardStatus::Live),
        {u"Id"_s});
    const int count = jobs.recordCount();
    return {{.text = counted(count, u"trial is"_s, u"trials are"_s) + u" today"_s,
        .isSomething = count > 0,
        .open = [] { frmTrailDate().exec(); }}};
}

std::vector<Line> birthdays(QDate day)
{
    Recordset clients(DE().CN);
    clients.openColumns(birthdaysOn(day), {u"Id"_s});
    const int count = clients.recordCount();
    return {{.text = counted(count, u"client has a birthday"_s, u"clients have a birthday"_s),
        .isSomething = count > 0,
        .open = [] { frmBirthDayRimenders().exec(); }}};
}

std::vector<Line> dues(QDate day)
{
    const std::vector<ClientDue> all = clientDues(day);
    Currency total;
    for (const ClientDue &due : all)
        total += due.amount;
    QString text = counted(std::ssize(all), u"client owes"_s, u"clients owe"_s);
    text += all.empty() ? u" anything"_s : u' ' + MoneyGrouped(total.toDouble());
    return {{.text = text, .isSomething = !all.empty(), .open = [] { frmDueRegister().exec(); }}};
}

} // namespace

const std::vector<Source> &sources()
{
    static const std::vector<Source> all{
        {{u"cmdOverdue"_s, u"cmdDueToday"_s}, {"jobs_detail"}, deliveries},
        {{u"cmdTrials"_s}, {"jobs"}, trials},
        {{u"cmdBirthdays"_s}, {"accounts"}, birthdays},
        {{u"cmdDues"_s}, {"accounts", "postings"}, dues},
    };
    return all;
}

} // namespace glanceLines
