#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>

/// How well one colour is told from another, as the accessibility guidelines count it, from 1 to 21.
namespace contrast {

inline constexpr double enoughForText = 4.5;
inline constexpr double enoughForMarks = 3;

[[nodiscard]] inline double luminance(const QColor &colour)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

[[nodiscard]] inline double between(const QColor &a, const QColor &b)
{
    const double ratio = (luminance(a) + 0.05) / (luminance(b) + 0.05);
    return std::max(ratio, 1 / ratio);
}

} // namespace contrast
