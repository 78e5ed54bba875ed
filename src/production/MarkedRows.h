#pragma once

#include "store/Value.h"

#include <QString>

#include <functional>
#include <vector>

class Recordset;

/// The rows that a mark has written, as it found them and as it left them, so that it can be taken back.
///
/// A mark is taken back as a whole or not at all, and only while each of its rows is in every column what the mark made
/// of it: whatever was built on it since, by this program or another one (a later mark, a payroll, what the client said
/// of it, another save), would no longer agree with the rows. What a mark did not write but what depends on it is
/// watched with it, and forbids it in the same way: a job card that was closed because of a garment that was handed
/// over (`watch`).
class MarkedRows {
public:
    /// Calls `set` for each row of `table` that fulfils `condition`, on an object of its own, and writes what it sets.
    /// False, and nothing written, where there is none. REQUIRES: within a WriteGroup, and the condition holds on.
    [[nodiscard]] bool change(
        const QString &table, const QString &condition, const std::function<void(Recordset &row)> &set);
    /// Has the column looked at, too, when the mark is taken back: of the row `id`, if there is one.
    void watch(const QString &table, qint32 id, const QString &column);

    enum class TakenBack {
        Yes,
        /// A row is no longer there.
        Gone,
        /// A row, or a watched column, is not what it was after the mark.
        Changed,
    };
    /// Puts the former values back, exactly, as one durable write; but for `Yes` nothing is written. Once it was taken
    /// back, a mark that changed anything is `Changed`.
    [[nodiscard]] TakenBack takeBack() const;

private:
    struct Cell {
        QString column;
        Value before;
        Value after;
    };
    struct Row {
        QString table;
        qint32 id;
        std::vector<Cell> cells;
    };
    [[nodiscard]] static TakenBack look(const Row &row);
    static void putBack(const Row &row);

    std::vector<Row> m_rows;
};
