#pragma once

#include "ui/RegisterScreen.h"

class Command;
class PeriodFields;
class ReminderPanel;

/// "Trial Date Reminders": the job cards whose trial falls between two days, what became of each trial, and a reminder
/// to the client.
class frmTrailDate : public RegisterScreen {
    Q_OBJECT

public:
    frmTrailDate();

protected:
    void openRow(const ListRow &row) override;

private:
    void buildForm();
    void setMarks();
    void showTrials();
    void moveTrial(qint32 jobID);
    /// After a mark; `isThere` says whether there was a job to mark.
    void afterMark(bool isThere);

    PeriodFields *m_period;
    ListView *lvSummary;
    ReminderPanel *m_reminder;
    Command *Command1;
    QString m_shown;
};
