#pragma once

#include <QString>

#include <functional>

class kvComboBox;
class kvTextBox;

/// Lets only those typed characters into the box that `accept` passes on. Shortcuts such as Ctrl+C are left alone.
void filterKeys(kvTextBox *box, const std::function<int(int)> &accept);

/// Enter in the field runs `act` and goes no further. A text box must not move on by itself (`setAutoTab`).
void onEnter(kvTextBox *field, const std::function<void()> &act);
void onEnter(kvComboBox *field, const std::function<void()> &act);

/// What stays in the box when the next key replaces the selection.
[[nodiscard]] QString textBesideSelection(const kvTextBox &box);
