#pragma once

#include "base/Currency.h"

#include <QDateTime>
#include <QString>

#include <variant>

/// A value of the database: Null, a whole number, a floating number, money, text, or a date with an optional time of
/// day. Dates carry no time zone. The readers convert where nothing is lost in sense (a number text into a number, a
/// number into a text) and throw RuntimeError otherwise, with `field` as its source: InvalidUseOfNull for Null,
/// TypeMismatch, Overflow.
class Value {
public:
    Value() = default;
    Value(int number) : m_data(static_cast<qint64>(number)) { }
    Value(qint64 number) : m_data(number) { }
    Value(double number) : m_data(number) { }
    Value(Currency amount) : m_data(amount) { }
    Value(const QString &text) : m_data(text) { }
    Value(QDate date);
    /// To the second. An invalid moment is Null, as an invalid date is.
    Value(const QDateTime &moment);
    Value(bool) = delete;
    Value(const char *) = delete;

    [[nodiscard]] bool isNull() const { return std::holds_alternative<std::monostate>(m_data); }

    [[nodiscard]] qint32 toInt(QStringView field = {}) const;
    [[nodiscard]] qint64 toInt64(QStringView field = {}) const;
    [[nodiscard]] double toDouble(QStringView field = {}) const;
    [[nodiscard]] Currency toCurrency(QStringView field = {}) const;
    [[nodiscard]] QString toText(QStringView field = {}) const;
    [[nodiscard]] QDate toDate(QStringView field = {}) const;
    [[nodiscard]] QDateTime toDateTime(QStringView field = {}) const;

    using Data = std::variant<std::monostate, qint64, double, Currency, QString, QDateTime>;
    [[nodiscard]] const Data &data() const { return m_data; }

    friend bool operator==(const Value &, const Value &) = default;

private:
    Data m_data;
};
