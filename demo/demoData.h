#pragma once

#include <QString>

#include <span>
#include <vector>

/// What the demo shop sells and whom it knows.
namespace demoData {

/// A measurement field with the range, in inches, that its values come from. A field without a range starts with
/// `fixed`.
struct Measure {
    QString label;
    int from = 0;
    int to = 0;
    QString fixed = {};
};

struct Item {
    QString name;
    int fees;
    int workerFees;
    bool inventory;
    /// Pieces a day, for the forecast of delivery dates.
    int capacity;
    /// Pieces that waited already when the shop began to use the program.
    int pending;
    std::vector<Measure> measures;
};

struct LedgerAccount {
    QString title;
    bool income;
};

/// A line of the books.
struct Entry {
    QString kind;
    QString mainAccount;
    QString otherAccount = QStringLiteral("Cash");
    QString remark = {};
    double amount = 0;
};

[[nodiscard]] std::span<const Item> items();
[[nodiscard]] std::span<const LedgerAccount> ledgerAccounts();
/// On the last day of every month, and on the last one of all.
[[nodiscard]] std::span<const Entry> monthlyEntries();
[[nodiscard]] std::span<const Entry> lastDayEntries();
[[nodiscard]] std::span<const QString> workers();
[[nodiscard]] std::span<const QString> firstNames();
[[nodiscard]] std::span<const QString> lastNames();
[[nodiscard]] std::span<const QString> streets();
[[nodiscard]] std::span<const QString> cloths();
[[nodiscard]] std::span<const QString> clientNotes();

} // namespace demoData
