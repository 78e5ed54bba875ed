#pragma once

#include "store/Recordset.h"

#include <QString>

#include <utility>
#include <vector>

/// Clients, workers, items and ledger accounts in the file. Each command is one durable write. Another program may work
/// on the same file: what is checked stands in the group of the write that follows from it.
namespace masterRows {

/// A statement that lacks only the row's number at its end, and the object that it runs on. Any row of it says that the
/// master is in use.
struct Use {
    Recordset &rows;
    QString statement;
};

struct Kind {
    QString table;
    QString nameColumn;
    /// What a new row is added to.
    QString allRows;
    Recordset &rows;
    Recordset &lookups;
    std::vector<Use> uses;
};

// Good until `renewDE`.
[[nodiscard]] Kind clients();
[[nodiscard]] Kind workers();
[[nodiscard]] Kind items();
[[nodiscard]] Kind accounts();

struct Field {
    QString column;
    Value value;
};

struct Saved {
    enum What {
        Yes,
        /// Another row of the table has the text, in whatever case, that `column` was to get.
        Taken,
        /// The row was deleted.
        Gone,
    };
    What what = Yes;
    int id = 0;
    QString column = {};
};

/// Writes `fields` to the row `id` or, for 0, to a new one. Nothing is written where one of the texts `unique` stands
/// in its column already; whoever changes a row leaves out what it is called already.
[[nodiscard]] Saved save(const Kind &kind, int id, const std::vector<Field> &fields, const std::vector<Field> &unique);

/// False where it is in use; it stays then.
[[nodiscard]] bool remove(const Kind &kind, int id);

} // namespace masterRows
