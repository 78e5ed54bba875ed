#include "store/Value.h"

#include "base/RuntimeError.h"
#include "base/values.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void mismatch(const QString &what, QStringView field)
{
    throw RuntimeError(Fault::TypeMismatch, what, field.toString());
}

[[noreturn]] void nullUsed(QStringView field)
{
    throw RuntimeError(Fault::InvalidUseOfNull, field.toString());
}

double numberOf(const QString &text, QStringView field)
{
    const auto number = wholeNumberText(text);
    if (!number)
        mismatch(u"\"%1\" is not a number"_s.arg(text), field);
    return *number;
}

/// Throws Overflow with the field's name for what `limit` does not hold.
double within(double number, double limit, QStringView field)
{
    if (!(std::fabs(number) <= limit))
        throw RuntimeError(Fault::Overflow, field.toString());
    return number;
}

/// One function for each kind that a value can have.
template <typename... Readers>
struct Choice : Readers... {
    using Readers::operator()...;
};
template <typename... Readers>
Choice(Readers...) -> Choice<Readers...>;

} // namespace

Value::Value(QDate date)
{
    if (date.isValid())
        m_data = QDateTime(date, QTime(0, 0), Qt::UTC);
}

Value::Value(const QDateTime &moment)
{
    if (!moment.isValid())
        return;
    // What comes from the file is in that form already.
    if (moment.timeSpec() == Qt::UTC && moment.time().msec() == 0) {
        m_data = moment;
        return;
    }
    const QTime time = moment.time();
    m_data = QDateTime(moment.date(), QTime(time.hour(), time.minute(), time.second()), Qt::UTC);
}

qint64 Value::toInt64(QStringView field) const
{
    if (const auto *whole = std::get_if<qint64>(&m_data))
        return *whole;
    return toInt(field);
}

qint32 Value::toInt(QStringView field) const
{
    constexpr double largest = std::numeric_limits<qint32>::max();
    return Int32(within(toDouble(field), largest, field));
}

double Value::toDouble(QStringView field) const
{
    return std::visit(Choice{
                          [field](std::monostate) -> double { nullUsed(field); },
                          [](qint64 number) { return static_cast<double>(number); },
                          [](double number) { return number; },
                          [](Currency amount) { return amount.toDouble(); },
                          [field](const QString &text) { return numberOf(text, field); },
                          [field](const QDateTime &moment) -> double { mismatch(moment.toString(Qt::ISODate), field); },
                      },
        m_data);
}

Currency Value::toCurrency(QStringView field) const
{
    constexpr double largest = 922337203685477;
    if (const auto *amount = std::get_if<Currency>(&m_data))
        return *amount;
    return Currency::fromDouble(within(toDouble(field), largest, field));
}

QString Value::toText(QStringView field) const
{
    return std::visit(Choice{
                          [field](std::monostate) -> QString { nullUsed(field); },
                          [](qint64 number) { return QString::number(number); },
                          [](double number) { return NumberText(number); },
                          [](Currency amount) { return NumberText(amount.toDouble()); },
                          [](const QString &text) { return text; },
                          [](const QDateTime &moment) { return DateText(moment.date()); },
                      },
        m_data);
}

QDateTime Value::toDateTime(QStringView field) const
{
    return std::visit(Choice{
                          [field](std::monostate) -> QDateTime { nullUsed(field); },
                          [](const QDateTime &moment) { return moment; },
                          [field](const QString &text) {
                              const auto moment = readDateTime(text);
                              if (!moment)
                                  mismatch(u"\"%1\" is not a date"_s.arg(text), field);
                              return *moment;
                          },
                          [field](const auto &) -> QDateTime { mismatch(u"A number is not a date"_s, field); },
                      },
        m_data);
}

QDate Value::toDate(QStringView field) const
{
    return toDateTime(field).date();
}
