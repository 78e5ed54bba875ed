#pragma once

#include "ui/RegisterScreen.h"

#include <QDate>

class Command;
class DateField;
class ReminderPanel;

/// "Birthday Reminders": the clients whose birthday falls on a day, and a greeting to one of them.
class frmBirthDayRimenders : public RegisterScreen {
    Q_OBJECT

public:
    frmBirthDayRimenders();

private:
    void buildForm();
    void connectCommands();
    void showBirthdays();

    DateField *DateSel;
    Command *Command1;
    QDate m_shown;
    ListView *lvSummary;
    ReminderPanel *m_reminder;
};
