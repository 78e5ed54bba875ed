#include "base/Currency.h"

#include "base/RuntimeError.h"

#include <QtNumeric>

#include <cmath>

Currency Currency::fromDouble(double amount)
{
    const double units = std::nearbyint(amount * Scale);
    constexpr double limit = 9223372036854775808.0;
    if (!(units >= -limit && units < limit))
        throw RuntimeError(Fault::Overflow);
    return Currency(static_cast<qint64>(units));
}

Currency &Currency::operator+=(Currency other)
{
    if (qAddOverflow(m_units, other.m_units, &m_units))
        throw RuntimeError(Fault::Overflow);
    return *this;
}

Currency &Currency::operator-=(Currency other)
{
    if (qSubOverflow(m_units, other.m_units, &m_units))
        throw RuntimeError(Fault::Overflow);
    return *this;
}

Currency Currency::operator-() const
{
    return Currency() - *this;
}
