#pragma once

#include <QLatin1StringView>

class Command;
class QBoxLayout;

/// Columns of large commands that lead to screens.
namespace menuColumn {

/// A command with its object name.
struct Entry {
    QLatin1StringView name;
    QLatin1StringView caption;
};

/// Adds the command at the column's end.
Command *add(QBoxLayout &column, const Entry &entry);
/// The same, disabled, for a screen that is still to come.
Command *addLater(QBoxLayout &column, const Entry &entry);

} // namespace menuColumn
