#pragma once

class QString;

/// Whether there is a file at the path. One that is gone is told.
[[nodiscard]] bool isPictureThere(const QString &path);
