#pragma once

#include "ui/ListModel.h"

/// A list of all item rows of the shop, read as a register reads its rows.
namespace itemList {

[[nodiscard]] std::vector<ListColumn> columns();

/// Reads the rows through the program's own recordset, lookups and text forms, into `list`.
void fill(ListModel &list);

} // namespace itemList
