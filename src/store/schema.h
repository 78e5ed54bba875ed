#pragma once

#include "base/RuntimeError.h"

#include <QLatin1StringView>

#include <functional>
#include <optional>
#include <span>

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

/// Makes a new shop database at `session::DBPath`, moves `session::DBPath` to the default path, and opens that by
/// `openDatabase`. A file at the default path comes into being with its tables, its version and the four default
/// accounts, whole or not at all. A file at another path gets its tables alone and stays idle; the default file, if
/// there is one, then gets the version and four more accounts, all or none: a fixed part of this routine.
///
/// Ends silently at the first failure, and gives it to the caller, whose next step meets what came of it. Where the
/// file exists already nothing changes at all, `session::DBPath` included.
std::optional<RuntimeError> CreateDatabase(const std::function<void()> &openDatabase);
