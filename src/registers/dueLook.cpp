#include "registers/dueLook.h"

#include "base/session.h"
#include "base/values.h"
#include "ui/signs.h"
#include "ui/theme.h"

using namespace Qt::StringLiterals;

CellLook dueLook(QDate promised)
{
    if (promised > session::CurrentDate)
        return {};
    if (promised == session::CurrentDate)
        return {.bold = true, .icon = signs::due(signs::Due::Today), .said = u"Today, "_s + DayMonthYear(promised)};
    return {.bold = true,
        .ink = theme::warning(),
        .icon = signs::due(signs::Due::Overdue),
        .said = u"Overdue, "_s + DayMonthYear(promised)};
}
