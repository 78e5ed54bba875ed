#pragma once

#include <QHash>
#include <QString>

/// The chapters of the guide by the class names of the screens that they are about.
[[nodiscard]] const QHash<QString, QString> &guideChapters();
