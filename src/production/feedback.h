#pragma once

#include <QString>

#include <optional>
#include <vector>

/// What clients thought of finished garments, and what follows from it for the workers.
namespace feedback {

struct Feedback {
    /// As kept; empty where there is none.
    QString score;
    QString words;
};

/// Of the item row `rowID`; none where there is no such row any more.
[[nodiscard]] std::optional<Feedback> read(qint32 rowID);

/// Writes both, on the disk when it returns; `score` is rounded, halves to even. False where there is no such row any
/// more. Throws RuntimeError (Overflow) for a score beyond 32 bits.
[[nodiscard]] bool save(qint32 rowID, double score, const QString &words);

struct Ranked {
    QString name;
    double score = 0;
    int rating = 0;
};

/// Rebuilds the scratch table `Rank` from all workers and returns it, the highest sum of scores first: a busy worker
/// stands above one with better stars. Throws RuntimeError (Overflow) where a sum is beyond 32 bits.
[[nodiscard]] std::vector<Ranked> rank();

} // namespace feedback
