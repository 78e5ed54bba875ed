#pragma once

#include <QString>

#include <functional>

class kvTextBox;

/// Lets only those typed characters into the box that `accept` passes on. Shortcuts such as Ctrl+C are left alone.
void filterKeys(kvTextBox *box, const std::function<int(int)> &accept);

/// What stays in the box when the next key replaces the selection.
[[nodiscard]] QString textBesideSelection(const kvTextBox &box);
