#include "ui/complain.h"

#include "ui/DateField.h"
#include "ui/frmMsg.h"

using namespace Qt::StringLiterals;

void complain(const QString &text, QWidget *focusTo)
{
    ShowMessage(text);
    if (focusTo)
        focusTo->setFocus(Qt::OtherFocusReason);
}

bool hasRefusedDate(const QWidget &screen)
{
    const auto dates = screen.findChildren<DateField *>();
    for (DateField *date : dates) {
        if (const QString typed = date->refused(); !typed.isEmpty()) {
            complain(u"\"%1\" is not a date!"_s.arg(typed), date);
            return true;
        }
    }
    return false;
}
