#pragma once

#include "Case.h"
#include "reports/ReportPages.h"

#include <optional>

class ListModel;

/// The printed statement of an account that has 65,000 lines.
namespace statement {

/// The lines as a list shows them, with the sums that are no lines.
void fill(ListModel &list);

/// Puts the list into the scratch table and lays out what is read back from it.
[[nodiscard]] std::optional<ReportPages> print(const ListModel &list);

/// From the rows in the scratch table to the painted preview.
[[nodiscard]] bench::Case preview();

/// The longest that it takes to show one of many pages from all over it, in milliseconds. REQUIRES: `preview` was made.
[[nodiscard]] double slowestPage();

} // namespace statement
