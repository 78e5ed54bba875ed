#pragma once

#include "ui/RegisterScreen.h"

#include <optional>

class Command;
class MarkedRows;
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
    [[nodiscard]] static std::optional<MarkedRows> moveTrial(qint32 jobID);
    void afterMark(const QString &what, const ListRow &row, const std::optional<MarkedRows> &marked);

    PeriodFields *m_period;
    ListView *lvSummary;
    ReminderPanel *m_reminder;
    Command *Command1;
    QString m_shown;
};
