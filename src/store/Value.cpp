#include "store/Value.h"

#include "base/RuntimeError.h"
#include "base/values.h"

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void mismatch(const QString &what)
{
    throw RuntimeError(Fault::TypeMismatch, what);
}

double numberOf(const QString &text)
{
    const auto number = wholeNumberText(text);
    if (!number)
        mismatch(u"\"%1\" is not a number"_s.arg(text));
    return *number;
}

/// One function for each kind that a value can have.
template <typename... Readers>
struct Choice : Readers... {
    using Readers::operator()...;
};
template <typename... Readers>
Choice(Readers...) -> Choice<Readers...>;

[[noreturn]] void nullUsed()
{
    throw RuntimeError(Fault::InvalidUseOfNull);
}

} // namespace

Value::Value(QDate date)
{
    if (date.isValid())
        m_data = QDateTime(date, QTime(0, 0), Qt::UTC);
}

qint64 Value::toInt64() const
{
    if (const auto *whole = std::get_if<qint64>(&m_data))
        return *whole;
    return Int32(toDouble());
}

qint32 Value::toInt() const
{
    if (const auto *whole = std::get_if<qint64>(&m_data)) {
        if (*whole != static_cast<qint32>(*whole))
            throw RuntimeError(Fault::Overflow);
        return static_cast<qint32>(*whole);
    }
    return Int32(toDouble());
}

double Value::toDouble() const
{
    return std::visit(Choice{
                          [](std::monostate) -> double { nullUsed(); },
                          [](qint64 number) { return static_cast<double>(number); },
                          [](double number) { return number; },
                          [](Currency amount) { return amount.toDouble(); },
                          [](const QString &text) { return numberOf(text); },
                          [](const QDateTime &moment) -> double { mismatch(moment.toString(Qt::ISODate)); },
                      },
        m_data);
}

Currency Value::toCurrency() const
{
    if (const auto *amount = std::get_if<Currency>(&m_data))
        return *amount;
    return Currency::fromDouble(toDouble());
}

QString Value::toText() const
{
    return std::visit(Choice{
                          [](std::monostate) -> QString { nullUsed(); },
                          [](qint64 number) { return QString::number(number); },
                          [](double number) { return NumberText(number); },
                          [](Currency amount) { return NumberText(amount.toDouble()); },
                          [](const QString &text) { return text; },
                          [](const QDateTime &moment) { return DateText(moment.date()); },
                      },
        m_data);
}

QDateTime Value::toDateTime() const
{
    return std::visit(Choice{
                          [](std::monostate) -> QDateTime { nullUsed(); },
                          [](const QDateTime &moment) { return moment; },
                          [](const QString &text) {
                              const auto moment = readDateTime(text);
                              if (!moment)
                                  mismatch(u"\"%1\" is not a date"_s.arg(text));
                              return *moment;
                          },
                          [](const auto &) -> QDateTime { mismatch(u"A number is not a date"_s); },
                      },
        m_data);
}

QDate Value::toDate() const
{
    return toDateTime().date();
}
