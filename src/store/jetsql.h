#pragma once

#include "store/Value.h"

#include <QByteArray>
#include <QStringList>

#include <vector>

/// The dialect in which the program's statements are written, understood and turned into the engine's own SQL.
///
/// Taken as they stand: names in any case, bare, `back-quoted` or [bracketed]; strings in single or double quotes with
/// the quote doubled inside; dates between "#" signs, with or without a time of day; a number that runs into the next
/// word
/// ("ItemID=12and date between"); "Delete * from T"; `like` with %, _, [a-c] and [!x].
namespace jetsql {

struct Translation {
    /// UTF-8. Literals are replaced by "?", so statements that differ only in a literal have the same text.
    QByteArray sql;
    std::vector<Value> values;
    /// For "Select * from T .." over one table: the table, and `sql` yields the row number as an extra first column.
    /// Such a result can be written back. Empty otherwise.
    QString table;
};

/// Throws RuntimeError: Syntax for a text, name or date without its end, for more than one statement and for an empty
/// one; TypeMismatch for an impossible date. What else is wrong is left for the engine to say. Reads and changes
/// nothing.
///
/// With `columns` a "Select * from T .." over one table yields these in the place of all, and no row number: it cannot
/// be written back. Other statements are not touched by them.
[[nodiscard]] Translation translate(QStringView statement, const QStringList &columns = {});

/// A value inside a string literal: each "'" doubled.
[[nodiscard]] QString quoted(const QString &text);

/// Whether `text` is like `pattern`: % stands for any characters, _ for one, [a-c] for one of a set, [!x] for one
/// outside it. Without regard to case. Both in UTF-8.
[[nodiscard]] bool isLike(std::string_view text, std::string_view pattern);

/// Order of texts without regard to case: below, at or above 0. Defined for UTF-8; characters beyond ASCII are folded
/// too.
[[nodiscard]] int compareFolded(std::string_view a, std::string_view b);

/// How a date is kept in the file: ISO, the time of day only where there is one. Such texts order as their dates do.
[[nodiscard]] QString storedDate(const QDateTime &moment);
[[nodiscard]] QDateTime dateFromStored(QByteArrayView text);

} // namespace jetsql
