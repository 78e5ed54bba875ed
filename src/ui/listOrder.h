#pragma once

#include <QString>

#include <vector>

/// The order of a list that its user sorts by a column.
namespace listOrder {

/// Brings `places`, which are indexes of `texts`, into the order of the texts, and leaves those that read alike as they
/// stand to each other, in descending order too. Where every text is a date they go by date, where they are `numeric`
/// by the number that each shows, else as texts, whatever the case. Those that are empty or show no number come before
/// all others.
void sort(std::vector<int> &places, const std::vector<QString> &texts, bool numeric, Qt::SortOrder order);

} // namespace listOrder
