#pragma once

#include <QString>

class QLabel;

/// The working date beside the machine's: who works on another day has to see that he does.
namespace workingDate {

[[nodiscard]] bool isToday();
/// "The working date is not today, 01-Jun-2026". Empty where it is.
[[nodiscard]] QString warning();
/// Marks a label that shows the working date while it is not today: by its colour, and with the warning as its tip.
void mark(QLabel &label);

} // namespace workingDate
