#pragma once

#include <QPixmap>

/// The wallpaper of a shop that has chosen none: chalked pattern pieces on dark cloth, and a tape measure. Made to be
/// cut from around its middle. `size` is in points of the screen, each `pixelRatio` pixels wide.
[[nodiscard]] QPixmap defaultWallpaper(QSize size, qreal pixelRatio);

/// The program's sign, for its windows: needle and thread on a patch of the same cloth.
[[nodiscard]] QPixmap programSign(int side);
