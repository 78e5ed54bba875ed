#pragma once

#include <functional>
#include <span>

#include <QLatin1StringView>

/// The tables of a shop's database, as the program makes them.
namespace schema {

enum class Type { AutoNumber, Integer, Currency, Double, Date, Text };

struct Column {
    QLatin1StringView name;
    Type type;
    bool required;
    /// As it stands in the file's own language; empty where there is none.
    QLatin1StringView defaultValue = {};
};

struct Table {
    QLatin1StringView name;
    std::span<const Column> columns;
};

/// All 13 tables, in the order in which they are made.
[[nodiscard]] std::span<const Table> tables();

} // namespace schema

/// Makes a new, empty shop database at `session::DBPath` with its tables, moves `session::DBPath` to the default path,
/// opens that by `openDatabase` and gives it its version and the four default accounts.
///
/// Ends silently at the first failure; what was made so far stays. Where the file exists already nothing changes at
/// all, `session::DBPath` included. With a path other than the default one, the new file stays idle and the default
/// file, if there is one, gets the version and four more accounts: a fixed part of this routine.
void CreateDatabase(const std::function<void()> &openDatabase);
