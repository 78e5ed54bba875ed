#include "comms/frmBirthDayRimenders.h"

#include "base/session.h"
#include "base/values.h"
#include "comms/ReminderPanel.h"
#include "comms/birthdays.h"
#include "store/DataEnvironment.h"
#include "ui/Command.h"
#include "ui/DateField.h"
#include "ui/ListView.h"
#include "ui/complain.h"
#include "ui/formFields.h"

#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

frmBirthDayRimenders::frmBirthDayRimenders()
    : RegisterScreen(u"frmBirthDayRimenders"_s, u"Birthday Reminders"_s, Refresh::OnCommand)
{
    buildForm();
    connectCommands();
    showBirthdays();
    lvSummary->setFocus();
}

void frmBirthDayRimenders::buildForm()
{
    DateSel = new DateField(u"DateSel"_s);
    DateSel->setDate(session::CurrentDate);
    Command1 = new Command(u"Command1"_s, u"Show"_s);
    Command1->setDefault(true);
    lvSummary = new ListView(u"lvSummary"_s, {{u"Name"_s, 50}, {u"DOB"_s, 22}, {u"Contact"_s, 28}});
    lvSummary->setAccessibleName(windowTitle());
    lvSummary->letSort();
    setRegister(lvSummary, Rows::AreOnlyRead);
    m_reminder =
        new ReminderPanel(*lvSummary, setting::BirthdayGreeting, setting::defaultOf(setting::BirthdayGreeting));

    QHBoxLayout *head = captionedRow({{u"Select &Date"_s, DateSel}});
    head->addWidget(Command1);
    head->addStretch();
    auto *whole = new QVBoxLayout(this);
    whole->addLayout(head);
    whole->addWidget(lvSummary, 1);
    whole->addWidget(m_reminder);
    resize(820, 560);
    chainTabs(QList<QWidget *>{DateSel, Command1, lvSummary} + m_reminder->fields());
}

void frmBirthDayRimenders::connectCommands()
{
    connect(Command1, &Command::clicked, this, [this] {
        if (hasRefusedDate(*this))
            return;
        showBirthdays();
        lvSummary->setFocus(Qt::OtherFocusReason);
    });
    onKey(Qt::CTRL | Qt::Key_S, u"Save Message"_s, [this] { m_reminder->save(); });
    onKey(Qt::CTRL | Qt::Key_M, u"Send SMS to selected"_s, [this] { m_reminder->send(); });
}

void frmBirthDayRimenders::showBirthdays()
{
    std::vector<ListRow> rows;
    Recordset &clients = DE().rsaccounts;
    const QDate day = DateSel->date();
    clients.openColumns(birthdaysOn(day), {u"Id"_s, u"Title"_s, u"dob"_s, u"Mobile"_s});
    for (; !clients.eof(); clients.moveNext())
        rows.push_back(
            {.cells = {clients.text(u"Title"), DayMonthYear(clients.date(u"dob")), clients.textOrEmpty(u"Mobile")},
                .tag = clients.integer(u"Id")});
    clients.close();
    lvSummary->setEmptyText(
        u"No client has a birthday on %1.\nThe date of birth is kept with the client, under Masters, Clients."_s.arg(
            DayMonthYear(day)));
    const bool isSameDay = std::exchange(m_shown, day) == day;
    showRows(std::move(rows), isSameDay && lvSummary->currentRow() >= 0 ? Keep::Tag : Keep::First);
}
