#pragma once

#include <QString>

#include <functional>

class kvTextBox;

/// Amounts above this are no bills of a tailor; money columns and their sums hold far more.
inline constexpr double largestAmount = 1e9;

/// Lets only those typed characters into the box that `accept` passes on. Shortcuts such as Ctrl+C are left alone.
void filterKeys(kvTextBox *box, const std::function<int(int)> &accept);

/// What stays in the box when the next key replaces the selection.
[[nodiscard]] QString textBesideSelection(const kvTextBox &box);
