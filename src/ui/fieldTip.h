#pragma once

#include <QString>

class QWidget;

/// `text` as a tip that shows it letter for letter and in its lines, whatever signs it holds.
[[nodiscard]] QString plainTip(const QString &text);

/// Tells with a beep and a tip why `field` does not take what was typed. The tip stands where it hides neither the
/// field nor a list that is open below it, and not under a message that has come above the screen meanwhile.
void showFieldTip(QWidget &field, const QString &text);
