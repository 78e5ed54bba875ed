#pragma once

#include "store/Value.h"
#include "ui/ListModel.h"

#include <functional>
#include <span>

class Connection;
class Recordset;

/// A list on the screen becomes the source of a report, so that what is printed is what is shown.
namespace scratch {

/// A column of the scratch table, and what of a list row it takes.
struct Column {
    QString name;
    std::function<Value(const ListRow &row)> value;
};

/// The text of a list column, and the number that it begins with.
[[nodiscard]] std::function<Value(const ListRow &row)> textOf(int column);
[[nodiscard]] std::function<Value(const ListRow &row)> numberOf(int column);

/// The statements that empty the table, open it for writing, and give the report its rows.
struct Statements {
    QString empty;
    QString write;
    QString source;
};

/// All rows, or those that stand for something: sums of a statement have no tag.
enum class Which { All, Tagged };

/// Empties the scratch table, writes the list's rows into it and leaves `rows` open on the report's source, in one
/// group: another program that prints from the same file empties the same table. False once the user broke off; `rows`
/// is then closed. `what` is done, in the user's words. Throws what the recordset throws.
[[nodiscard]] bool refill(Recordset &rows, Connection &connection, const Statements &statements, const ListModel &list,
    Which which, std::span<const Column> columns, const QString &what);

} // namespace scratch
