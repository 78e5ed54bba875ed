#pragma once

class QString;
class QWidget;

/// Tells with a beep and a tip why `field` does not take what was typed. The tip stands where it hides neither the
/// field nor a list that is open below it, and not under a message that has come above the screen meanwhile.
void showFieldTip(QWidget &field, const QString &text);
