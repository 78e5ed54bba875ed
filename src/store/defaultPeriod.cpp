#include "store/defaultPeriod.h"

#include "base/values.h"
#include "store/settings.h"

#include <array>

namespace {

struct Period {
    int months;
    int days;
};

/// By the stored number.
constexpr std::array<Period, 8> periods{{{0, 0}, {0, 1}, {0, 7}, {1, 0}, {2, 0}, {3, 0}, {6, 0}, {12, 0}}};

} // namespace

void SetDefaultPeriod(QDate &dateTo, QDate &dateFrom)
{
    if (Val(GetSetting(setting::UseDefaultFromDate)) != 0)
        dateFrom = ParseDate(GetSetting(setting::DefaultFromDate));
    const auto stored = wholeNumberText(GetSetting(setting::DefaultPeriod));
    for (std::size_t number = 0; number < periods.size(); ++number) {
        if (stored == static_cast<double>(number))
            dateTo = dateFrom.addMonths(periods.at(number).months).addDays(periods.at(number).days);
    }
}
