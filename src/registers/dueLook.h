#pragma once

#include "ui/ListModel.h"

#include <QDate>

/// How the promised day of something that is still open looks in a list, on the working date: today and overdue stand
/// out, by a sign and in bold; a later one looks as all else.
[[nodiscard]] CellLook dueLook(QDate promised);
