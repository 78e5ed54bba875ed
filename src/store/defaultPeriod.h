#pragma once

#include <QDate>

/// Sets the default date range of a register as the shop has it in its settings. REQUIRES: both hold the caller's own
/// defaults. `dateFrom` stays where the shop has no default for it; `dateTo`, counted from `dateFrom`, stays where the
/// stored period is none of the known ones. Throws RuntimeError (TypeMismatch) when the stored date is none.
void SetDefaultPeriod(QDate &dateTo, QDate &dateFrom);
