#pragma once

#include "ui/Screen.h"

#include <QDate>

class Command;
class DateField;

/// Asks for a date.
class frmSetDate : public Screen {
    Q_OBJECT

public:
    frmSetDate();

    /// Shows `date` modally and returns the date chosen; `date` itself when the screen is closed by Escape.
    [[nodiscard]] QDate SelectDate(QDate date);

private:
    DateField *DateFrom;
    Command *Command1;
};
