#pragma once

#include "ui/RegisterScreen.h"

class Command;
class PeriodFields;

/// "Day Book": the documents of a period, a line each, in the order of their dates. A job card stands there with its
/// total; what was paid with it doesn't.
class frmDayBook : public RegisterScreen {
    Q_OBJECT

public:
    frmDayBook();

    void ExecuteSQL();

protected:
    void openRow(const ListRow &row) override;

private:
    void buildForm();
    void view();

    PeriodFields *m_period;
    Command *cmdView;
    ListView *lvSummary;
};
