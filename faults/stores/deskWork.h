#pragma once

#include "Random.h"
#include "jobcards/JobCardStore.h"
#include "jobcards/clsJobCardData.h"

#include <QList>

/// What is on the counter of a shop: clients, items and cards at random, as a screen would collect them.
namespace faults::desk {

/// Clients, items and a few cards for a new shop, which is open in `DE`. The last client, number 17, has no cards.
void furnish(Random &random);

constexpr int firstClient = 5;
constexpr int spareClient = 17;
constexpr int lastItem = 5;

[[nodiscard]] JobCardRow row(Random &random);
/// A card whose total is that of its rows; half of them with an advance.
[[nodiscard]] JobCard card(int number, const clsJobCardData &rows, Random &random);
/// The numbers of the cards in the file, in order.
[[nodiscard]] QList<qint32> cardNumbers();

} // namespace faults::desk
