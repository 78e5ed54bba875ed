#pragma once

#include "ui/ListModel.h"

#include <vector>

/// The order of a list that its user sorts by a column. Of each cell its text counts or, where a sign stands in its
/// place, what a screen reader says of it.
namespace listOrder {

/// Brings `places`, which are indexes of `rows`, into the order of that column, and leaves those that read alike as
/// they stand to each other, in descending order too. A column in which every text is a date goes by date, a `numeric`
/// one by the number that each text shows, all others by text, whatever the case. Cells without a date or a number come
/// before all others.
void sort(std::vector<int> &places, const std::vector<ListRow> &rows, int column, bool numeric, Qt::SortOrder order);

} // namespace listOrder
