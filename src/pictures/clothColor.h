#pragma once

#include <QColor>

class QWidget;

/// The colour of a cloth as the file keeps it: red + 256 green + 65536 blue.
namespace clothColor {

/// Throws RuntimeError (Overflow) for a number beyond 32 bits.
[[nodiscard]] QColor of(double number);
[[nodiscard]] double number(const QColor &color);

/// Makes `box` a patch of that colour.
void show(QWidget &box, double number);

} // namespace clothColor
