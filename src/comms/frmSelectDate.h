#pragma once

#include "ui/Screen.h"

class Command;
class DateField;
class NameLabel;
class QLayout;
class kvComboBox;
class kvTextBox;

/// "Export Job Card Status Report": asks for the days and the file of the status report, and makes it.
class frmSelectDate : public Screen {
    Q_OBJECT

public:
    frmSelectDate();

protected:
    void activated() override { tellOfPath(); }

private:
    void buildForm();
    [[nodiscard]] QLayout *buildPath();
    void connectCommands();

    void choosePeriod();
    void takePeriod();
    void browse();
    void tellOfPath();
    void exportReport();

    kvComboBox *cmbPeriod;
    int m_period;
    DateField *DateFrom;
    DateField *DateTo;
    kvTextBox *Text1;
    Command *cmdBrowse;
    NameLabel *lblPath;
    Command *cmdExport;
};
