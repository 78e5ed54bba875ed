#include "pictures/clothColor.h"

#include "base/values.h"

#include <QWidget>

using namespace Qt::StringLiterals;

QColor clothColor::of(double number)
{
    const auto bits = static_cast<unsigned>(Int32(number));
    return {static_cast<int>(bits & 0xff), static_cast<int>((bits >> 8) & 0xff), static_cast<int>((bits >> 16) & 0xff)};
}

double clothColor::number(const QColor &color)
{
    return color.red() + 256.0 * color.green() + 65536.0 * color.blue();
}

void clothColor::show(QWidget &box, double number)
{
    box.setStyleSheet(u"background: %1; border: 1px solid #555"_s.arg(of(number).name()));
}
