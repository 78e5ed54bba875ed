#pragma once

#include <QSettings>

/// What the program keeps for the user of the machine and not for the shop: widths and order of columns, sizes of
/// screens,
/// whether a database was ever chosen.
[[nodiscard]] QSettings userValues();
