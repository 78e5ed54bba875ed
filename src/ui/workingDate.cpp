#include "ui/workingDate.h"

#include "base/clock.h"
#include "base/session.h"
#include "base/values.h"
#include "ui/theme.h"

#include <QLabel>

using namespace Qt::StringLiterals;

bool workingDate::isToday()
{
    return session::CurrentDate == machineClock::today();
}

QString workingDate::warning()
{
    return isToday() ? QString() : u"The working date is not today, "_s + DayMonthYear(machineClock::today());
}

void workingDate::mark(QLabel &label)
{
    QPalette colours;
    if (!isToday())
        colours.setColor(QPalette::WindowText, theme::warning());
    label.setPalette(colours);
    label.setToolTip(warning());
    label.setAccessibleDescription(warning());
}
