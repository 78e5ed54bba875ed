#include "registers/frmTrailDate.h"

#include "base/values.h"
#include "comms/ReminderPanel.h"
#include "comms/modSMS.h"
#include "registers/dueLook.h"
#include "registers/openJobCard.h"
#include "registers/trialMarks.h"
#include "registers/undoMark.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/lookups.h"
#include "ui/Command.h"
#include "ui/ListView.h"
#include "ui/PeriodFields.h"
#include "ui/complain.h"
#include "ui/formFields.h"
#include "ui/frmMsg.h"
#include "ui/frmSetDate.h"
#include "ui/signs.h"

#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

enum Column { NameColumn, TrialColumn, StatusColumn };

/// The word of the status and its sign, a garment's that says the same.
void showStatus(ListRow &row, int appeared, QDate appearedDate)
{
    QString &word = row.cells[StatusColumn];
    const auto show = [&](const QString &text, signs::Status sign) {
        word = text;
        row.looks.push_back({StatusColumn, {.icon = signs::status(sign)}});
    };
    switch (appeared) {
    case trial::NotAppeared: return show(u"Not Appeared"_s, signs::Status::Uncompleted);
    case trial::Appeared: return show(u"Appeared ["_s + DayMonthYear(appearedDate) + u" ]"_s, signs::Status::Completed);
    case trial::Canceled: return show(u"Trial Canceled"_s, signs::Status::Canceled);
    default: return;
    }
}

ListRow rowOf(const Recordset &job)
{
    const qint32 id = job.integer(u"ID");
    const qint32 client = job.integer(u"ClintID");
    const QDate day = job.date(u"TrialDate");
    const int appeared = job.integer(u"appeared");
    ListRow row{
        .cells = {titleOrBlank(client), DayMonthYear(day), {}, QString::number(id), GetClientMobile({}, Int16(client))},
        .tag = id};
    showStatus(row, appeared, job.isNull(u"appearedDate") ? QDate() : job.date(u"appearedDate"));
    if (appeared == trial::NotAppeared)
        row.looks.push_back({TrialColumn, dueLook(day)});
    return row;
}

} // namespace

frmTrailDate::frmTrailDate() : RegisterScreen(u"frmTrailDate"_s, u"Trial Date Reminders"_s, Refresh::OnCommand)
{
    buildForm();
    setMarks();
    connect(Command1, &Command::clicked, this, [this] {
        if (hasRefusedDate(*m_period))
            return;
        showTrials();
        lvSummary->setFocus(Qt::OtherFocusReason);
    });
    onKey(Qt::CTRL | Qt::Key_S, u"Save Message"_s, [this] { m_reminder->save(); });
    onKey(Qt::CTRL | Qt::Key_M, u"Send SMS to selected"_s, [this] { m_reminder->send(); });
    showTrials();
    lvSummary->setFocus();
}

void frmTrailDate::buildForm()
{
    m_period = new PeriodFields;
    Command1 = new Command(u"Command1"_s, u"Show"_s);
    Command1->setDefault(true);
    setPeriod(m_period, Command1);
    lvSummary = new ListView(u"lvSummary"_s,
        {{u"Name"_s, 25}, {u"Trial Date"_s, 20}, {u"Status"_s, 27}, {u"Job ID"_s, 9, true}, {u"Contact"_s, 19}});
    lvSummary->setAccessibleName(windowTitle());
    lvSummary->letSort();
    setRegister(lvSummary);
    m_reminder = new ReminderPanel(*lvSummary, setting::TrialReminder,
        u"Dear Customer\r\nYour Trial Date is : \r\n"_s + setting::defaultOf(setting::TrialReminder));

    auto *head = new QHBoxLayout;
    head->addWidget(m_period);
    head->addWidget(Command1);
    head->addStretch();
    auto *whole = new QVBoxLayout(this);
    whole->addLayout(head);
    whole->addWidget(lvSummary, 1);
    whole->addWidget(m_reminder);
    resize(860, 600);
    chainTabs(m_period->fields() + QList<QWidget *>{Command1, lvSummary} + m_reminder->fields());
}

void frmTrailDate::setMarks()
{
    const auto mark = [this](const QString &caption, std::optional<MarkedRows> (*write)(qint32 jobID)) {
        return RowAction{.caption = caption,
            .act = [this, caption, write](const ListRow &row) { afterMark(caption, row, write(row.tag.toInt())); }};
    };
    setRowActions({
        mark(u"Set Status Appeared"_s, trialMarks::appeared),
        mark(u"Set Status Not Appeared"_s, trialMarks::notAppeared),
        {},
        mark(u"Cancel Trial"_s, trialMarks::canceled),
        mark(u"New Trial Date"_s, moveTrial),
        {},
        {.caption = u"Open Job Card"_s, .act = [this](const ListRow &row) { openRow(row); }},
    });
}

void frmTrailDate::showTrials()
{
    std::vector<ListRow> rows;
    Recordset &jobs = DE().rsJOBS;
    jobs.openColumns(u"select * from  Jobs where TrialDate between #"_s + DateText(m_period->from()) + u"# and #"_s
            + DateText(m_period->to()) + u"# order by TrialDate,id"_s,
        {u"Id"_s, u"ClintID"_s, u"TrialDate"_s, u"appeared"_s, u"appearedDate"_s});
    rows.reserve(static_cast<size_t>(jobs.recordCount()));
    for (; !jobs.eof(); jobs.moveNext())
        rows.push_back(rowOf(jobs));
    jobs.close();
    lvSummary->setEmptyText(
        u"No trial %1.\nEach job card has a trial date; other dates and Show list them."_s.arg(m_period->inWords()));
    const QString period = m_period->between();
    const bool isSamePeriod = std::exchange(m_shown, period) == period;
    showRows(std::move(rows), isSamePeriod && lvSummary->currentRow() >= 0 ? Keep::Tag : Keep::First);
}

std::optional<MarkedRows> frmTrailDate::moveTrial(qint32 jobID)
{
    const auto day = trialMarks::dateOf(jobID);
    return day ? trialMarks::movedTo(jobID, frmSetDate().SelectDate(*day)) : std::nullopt;
}

void frmTrailDate::openRow(const ListRow &row)
{
    openJobCard(row.tag.toInt());
    // There the trial may have got another date.
    showTrials();
}

void frmTrailDate::afterMark(const QString &what, const ListRow &row, const std::optional<MarkedRows> &marked)
{
    const QString name = what + u", "_s + row.tag.toString();
    if (!marked)
        ShowMessage(u"Job Card not found!"_s);
    else
        keepForUndo(name, [this, name, marked = *marked] {
            undoMark(name, marked);
            showTrials();
        });
    showTrials();
}
