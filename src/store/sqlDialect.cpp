#include "store/sqlDialect.h"

#include "base/Currency.h"
#include "store/jetsql.h"

#include <sqlite3.h>

#include <cmath>
#include <string_view>
#include <utility>

namespace {

std::string_view textOf(sqlite3_value *value)
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_value_text(value));
    return {text ? text : "", static_cast<size_t>(sqlite3_value_bytes(value))};
}

int folded(void *, int sizeA, const void *a, int sizeB, const void *b)
{
    return jetsql::compareFolded({static_cast<const char *>(a), static_cast<size_t>(sizeA)},
        {static_cast<const char *>(b), static_cast<size_t>(sizeB)});
}

void like(sqlite3_context *context, int, sqlite3_value **arguments)
{
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL || sqlite3_value_type(arguments[1]) == SQLITE_NULL)
        return sqlite3_result_null(context);
    sqlite3_result_int(context, jetsql::isLike(textOf(arguments[1]), textOf(arguments[0])) ? 1 : 0);
}

/// month(..), day(..), year(..): the two or four digits at the place that the stored form gives them.
void datePart(sqlite3_context *context, int, sqlite3_value **arguments)
{
    const auto *place = static_cast<const std::pair<int, int> *>(sqlite3_user_data(context));
    const auto text = textOf(arguments[0]);
    if (text.size() < 10)
        return sqlite3_result_null(context);
    int number = 0;
    for (const char c : text.substr(static_cast<size_t>(place->first), static_cast<size_t>(place->second)))
        number = number * 10 + (c - '0');
    sqlite3_result_int(context, number);
}

constexpr std::pair yearPlace{0, 4};
constexpr std::pair monthPlace{5, 2};
constexpr std::pair dayPlace{8, 2};

/// sum(..) that is exact for money: adds ten-thousandths as whole numbers as long as every value is one.
struct Sum {
    qint64 exact;
    double plain;
    qint64 count;
    bool inexact;
    bool fractional;
};

void sumStep(sqlite3_context *context, int, sqlite3_value **arguments)
{
    auto *sum = static_cast<Sum *>(sqlite3_aggregate_context(context, sizeof(Sum)));
    if (!sum || sqlite3_value_type(arguments[0]) == SQLITE_NULL)
        return;
    const double value = sqlite3_value_double(arguments[0]);
    sum->plain += value;
    ++sum->count;
    sum->fractional = sum->fractional || sqlite3_value_numeric_type(arguments[0]) != SQLITE_INTEGER;
    const double units = std::nearbyint(value * Currency::Scale);
    const bool money = std::fabs(units) < 9e18 && units / Currency::Scale == value;
    if (!money || qAddOverflow(sum->exact, static_cast<qint64>(units), &sum->exact))
        sum->inexact = true;
}

void sumResult(sqlite3_context *context)
{
    const auto *sum = static_cast<Sum *>(sqlite3_aggregate_context(context, 0));
    if (!sum || sum->count == 0)
        sqlite3_result_null(context);
    else if (sum->inexact)
        sqlite3_result_double(context, sum->plain);
    else if (sum->fractional)
        sqlite3_result_double(context, Currency::fromTenThousandths(sum->exact).toDouble());
    else
        sqlite3_result_int64(context, sum->exact / Currency::Scale);
}

} // namespace

void sqlDialect::addTo(sqlite3 *database)
{
    constexpr int pure = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    const auto part = [database](const char *name, const std::pair<int, int> &place) {
        sqlite3_create_function_v2(
            database, name, 1, pure, const_cast<std::pair<int, int> *>(&place), datePart, nullptr, nullptr, nullptr);
    };
    sqlite3_create_collation_v2(database, "FOLDED", SQLITE_UTF8, nullptr, folded, nullptr);
    sqlite3_create_function_v2(database, "like", 2, pure, nullptr, like, nullptr, nullptr, nullptr);
    sqlite3_create_function_v2(database, "sum", 1, pure, nullptr, nullptr, sumStep, sumResult, nullptr);
    part("year", yearPlace);
    part("month", monthPlace);
    part("day", dayPlace);
}
