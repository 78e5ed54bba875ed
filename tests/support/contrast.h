#pragma once

class QColor;

/// How well one colour is told from another, as the accessibility guidelines count it, from 1 to 21.
namespace contrast {

inline constexpr double enoughForText = 4.5;
inline constexpr double enoughForMarks = 3;

[[nodiscard]] double between(const QColor &a, const QColor &b);

} // namespace contrast
