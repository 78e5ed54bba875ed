#pragma once

#include <QtGlobal>

#include <compare>

/// Money: fixed point with four decimals in 64 bits. Sums are exact; leaving the range throws RuntimeError (Overflow).
class Currency {
public:
    static constexpr qint64 Scale = 10000;

    constexpr Currency() = default;

    /// Rounds to four decimals, halves to the even neighbour. Throws Overflow beyond about 922 trillion and for a NaN.
    [[nodiscard]] static Currency fromDouble(double amount);
    [[nodiscard]] static constexpr Currency fromTenThousandths(qint64 units) { return Currency(units); }

    [[nodiscard]] double toDouble() const { return static_cast<double>(m_units) / Scale; }
    [[nodiscard]] constexpr qint64 tenThousandths() const { return m_units; }

    Currency &operator+=(Currency other);
    Currency &operator-=(Currency other);
    [[nodiscard]] Currency operator-() const;
    [[nodiscard]] friend Currency operator+(Currency a, Currency b) { return a += b; }
    [[nodiscard]] friend Currency operator-(Currency a, Currency b) { return a -= b; }
    friend constexpr auto operator<=>(Currency, Currency) = default;

private:
    constexpr explicit Currency(qint64 units) : m_units(units) { }
    qint64 m_units = 0;
};
