#pragma once

#include <QString>

#include <optional>
#include <vector>

/// Hierarchical statements:
///   SHAPE {statement} [AS name] APPEND ({statement} [AS name] RELATE parentColumn TO childColumn) [AS name], (..) ..
///   SHAPE {statement} AS name COMPUTE name, SUM(name.column) AS total, .. BY column, ..
/// Names may be bare, quoted or back-quoted; words in any case.
namespace shape {

struct Append {
    QString statement;
    QString name;
    QString parentColumn;
    QString childColumn;
};

struct Total {
    QString column;
    QString name;
};

struct Shape {
    QString statement;
    /// Children of each row of `statement`.
    std::vector<Append> children;
    /// For a COMPUTE: the rows of `statement` become the child of this name, under one parent row for each group.
    QString groupChild;
    std::vector<Total> totals;
    std::vector<QString> groupColumns;
};

/// None where `text` is no shaped statement at all. Throws RuntimeError (Syntax) where it starts as one and goes wrong.
[[nodiscard]] std::optional<Shape> parse(QStringView text);

} // namespace shape
