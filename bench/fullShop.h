#pragma once

#include <QDate>
#include <QString>

/// A shop after years of work, at the bounds of what its numbers can count: always the same one, but for what the
/// encryption adds.
namespace fullShop {

inline constexpr int workerCount = 40;
inline constexpr int clientCount = 5000;
inline constexpr int itemCount = 200;
inline constexpr int cardCount = 16'000;
inline constexpr int itemRowCount = 32'767;
inline constexpr int postingCount = 130'000;
/// The last card is a large one, with the last item rows.
inline constexpr int largeCard = cardCount;
inline constexpr int largeCardRows = 20;

/// Accounts stand in this order: the ledger accounts that every shop has, the workers, the clients.
inline constexpr int firstWorkerID = 5;
inline constexpr int firstClientID = firstWorkerID + workerCount;

inline constexpr QDate lastDay = QDate::fromJulianDay(2455835); // 30-Sep-2011

/// Makes the shop in `folder`, as the file that a program started there opens, and leaves it open in `DE`.
void make(const QString &folder);

} // namespace fullShop
