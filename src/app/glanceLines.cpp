#include "app/glanceLines.h"

#include "accounts/clientDues.h"
#include "accounts/frmDueRegister.h"
#include "app/backup.h"
#include "app/frmSettings.h"
#include "base/values.h"
#include "comms/birthdays.h"
#include "comms/frmBirthDayRimenders.h"
#include "jobcards/frmEditJOB.h"
#include "masters/MasterList.h"
#include "registers/frmDeliveryRegister.h"
#include "registers/frmTrailDate.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "ui/signs.h"

using namespace Qt::StringLiterals;

namespace glanceLines {

namespace {

/// "3 clients owe", "1 client owes" or "No client owes".
QString counted(qsizetype count, const QString &one, const QString &several)
{
    if (count > 1)
        return QString::number(count) + u' ' + several;
    return (count == 1 ? u"1 "_s : u"No "_s) + one;
}

bool hasAny(const QString &statement)
{
    Recordset rows(DE().CN);
    rows.open(statement);
    return rows.value(0).toInt() > 0;
}

/// The way to the first job card, as long as there is none.
std::vector<Line> beginning(QDate /*day*/)
{
    std::vector<Line> lines(3);
    if (hasAny(u"Select count(ID) from Jobs"_s))
        return lines;
    const auto tell = [](Line &line, const QString &text, void (*open)()) {
        line = {.text = text, .isSomething = true, .open = open};
    };
    if (!hasAny(u"Select count(ID) from Items"_s))
        tell(lines[0], u"Begin here: no items yet. Write what the shop makes"_s, [] { frmItems().exec(); });
    if (!hasAny(u"Select count(ID) from Accounts where Type="_s + QString::number(accountType::Client)))
        tell(lines[1], u"No clients yet. Write the first, here or on his job card"_s, [] { frmClients().exec(); });
    tell(lines[2], u"No job card yet. Book the first"_s, [] { frmEditJOB().ShowAddNew(); });
    return lines;
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

/// All that the register lists; awaited are those of cards that stand, to which the client is still to come.
std::vector<Line> trials(QDate day)
{
    Recordset jobs(DE().CN);
    jobs.openColumns(
        u"Select * from Jobs where TrialDate between #%1# and #%1#"_s.arg(DateText(day)), {u"appeared"_s, u"Status"_s});
    const int count = jobs.recordCount();
    int awaited = 0;
    for (; !jobs.eof(); jobs.moveNext()) {
        if (jobs.integer(u"appeared") == trial::NotAppeared && jobs.integer(u"Status") == cardStatus::Live)
            ++awaited;
    }
    QString text = counted(count, u"trial today"_s, u"trials today"_s);
    if (count > 0)
        text += awaited > 0 ? u", %1 awaited"_s.arg(awaited) : u", none awaited"_s;
    return {{.text = text, .isSomething = awaited > 0, .open = [] { frmTrailDate().exec(); }}};
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

/// By the machine's clock, as the backup itself.
std::vector<Line> lastBackup(QDate /*day*/)
{
    const QDateTime last = backup::lastGood();
    const bool isDue = backup::isDue();
    QString text = u"No good backup is known"_s;
    if (last.isValid())
        text = u"Last good backup on "_s + DayMonthYear(last.date()) + (isDue ? u", over a week ago"_s : QString());
    return {{.text = text, .isSomething = isDue, .icon = signs::due(signs::Due::Overdue), .open = [] {
                 frmSettings().ShowBackup();
             }}};
}

} // namespace

const std::vector<Source> &sources()
{
    static const std::vector<Source> all{
        {{u"cmdBeginItems"_s, u"cmdBeginClients"_s, u"cmdBeginCard"_s}, {"jobs", "items", "accounts"}, beginning},
        {{u"cmdOverdue"_s, u"cmdDueToday"_s}, {"jobs_detail"}, deliveries},
        {{u"cmdTrials"_s}, {"jobs"}, trials},
        {{u"cmdBirthdays"_s}, {"accounts"}, birthdays},
        {{u"cmdDues"_s}, {"accounts", "postings"}, dues},
        {{u"cmdBackup"_s}, {}, lastBackup},
    };
    return all;
}

} // namespace glanceLines
