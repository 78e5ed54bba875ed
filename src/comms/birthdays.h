#pragma once

#include <QDate>
#include <QString>

/// The statement for the clients who were born on that day and month, in whatever year.
[[nodiscard]] QString birthdaysOn(QDate day);
