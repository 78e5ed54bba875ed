#pragma once

#include "store/Recordset.h"

#include <QDate>
#include <QStringList>

#include <optional>

/// One-value lookups, list fills, balances and ratings. Each borrows a shared command object of `DE` for the time of
/// the call and leaves it closed; a caller in the midst of using the same object loses its rows. Which one is told at
/// each group.
///
/// A lookup of something that isn't in its table throws RuntimeError (NoCurrentRecord) with the statement; callers pass
/// what they took from the tables themselves. Answers are remembered until the next write.

/// Through `rsaccounts`. Titles are found without regard to case, over accounts of every type.
[[nodiscard]] qint32 GetAccountID(const QString &title);
/// For a title that may be gone since it was chosen: none where it is.
[[nodiscard]] std::optional<qint32> findAccountID(const QString &title);
[[nodiscard]] QString GetAccountTitle(int id);
/// For lists: empty where the account is gone.
[[nodiscard]] QString titleOrBlank(int id);
/// Of a client; empty where he has none, and where no client has that number.
[[nodiscard]] QString mobileOrBlank(int clientID);

/// Through `rsItems2`.
[[nodiscard]] double GetItemWorkerFees(const QString &name);
[[nodiscard]] double GetItemFees(int id);
[[nodiscard]] qint32 GetItemID(const QString &name);
[[nodiscard]] QString GetItemName(int id);
/// As `titleOrBlank`.
[[nodiscard]] QString itemNameOrBlank(int id);

/// First column of the first row of "Select field from table where keyColumn='value'"; the number -1 where there is no
/// row and where the value is Null. `field` may be "*", which asks for existence.
[[nodiscard]] Value GetFieldValue(
    const QString &field, const QString &table, const QString &keyColumn, const QString &value, Recordset &source);
/// The same for a key column of numbers.
[[nodiscard]] Value GetFieldValueNum(
    const QString &field, const QString &table, const QString &keyColumn, double value, Recordset &source);

/// The first column of "Select field from table condition order by field". `condition` is empty or begins with a blank.
/// Null shows as an empty text.
[[nodiscard]] QStringList FillCombo(
    const QString &field, const QString &table, const QString &condition, Recordset &source);
[[nodiscard]] QStringList FillComboAll(
    const QString &orderField, const QString &field, const QString &table, Recordset &source);

/// Sums over live postings, both ends of a period included; 0 where there are none. Above zero is credit, below zero
/// debit, so `GetAccountDebits` is at or below 0. Through `rsJOBS_DETAIL2`. RuntimeError (Overflow) for an id outside
/// 16 bits, before anything is read. Balance at the end of `day`, from the start of the books (17-Nov-1985).
[[nodiscard]] double GetAccountBalance(int id, QDate day);
[[nodiscard]] double GetAccountCredits(int id, QDate from, QDate to);
[[nodiscard]] double GetAccountDebits(int id, QDate from, QDate to);

/// Sum of the worker's scores; Overflow beyond 32 bits. Through `rsJOBS_DETAIL2`, as the next.
[[nodiscard]] qint32 GetWorkerScore(int workerID);
/// The scores' average over all rows of the worker, scored or not, halves to the even neighbour; 0 unless the sum is
/// above the number of rows, so an average of exactly 1 rates 0.
[[nodiscard]] int GetWorkerRating(int workerID);
