#pragma once

#include "Case.h"

/// The lines of the table. Each group is made on the full shop, open in `DE`; a further line is one more entry in its
/// group's list.
namespace bench {

[[nodiscard]] std::vector<Case> storeCases();
/// REQUIRES: an Application.
[[nodiscard]] std::vector<Case> screenCases();
/// The lists over the shop's rows. REQUIRES: an Application.
[[nodiscard]] std::vector<Case> registerCases();
/// The status report and the birthdays. REQUIRES: an Application.
[[nodiscard]] std::vector<Case> exportCases();
/// REQUIRES: the user has chosen a database before, and `session::ProgramFolder` is the shop's.
[[nodiscard]] std::vector<Case> startCases();

/// The books. Cash gets as many lines as the other accounts together. REQUIRES: an Application.
[[nodiscard]] std::vector<Case> bookCases();
/// Shows the statement of cash and calls `shown`.
void showCash(const std::function<void()> &shown);

/// The pictures of garments. REQUIRES: an Application.
[[nodiscard]] std::vector<Case> pictureCases();

/// What is done at the counter. REQUIRES: an Application. The printed card takes rows from others, so it comes last.
[[nodiscard]] std::vector<Case> counterCases();

/// The shop's file as a whole. A restore closes and opens it, so they come behind all others.
[[nodiscard]] std::vector<Case> houseCases();

/// Most memory that the program has held, in MiB, measured in a process of its own that opened the main screen and
/// above it, for "all", a list of all item rows, scrolled to its end, and the large card; for "statement" the list of a
/// long account and the preview of what is printed of it, for "cash" the statement of cash on its screen. REQUIRES: as
/// `startCases`.
[[nodiscard]] double peakMemory(const QString &task);

/// Whether this process was started for one of `startCases` or `peakMemory`; it is to return `runAsChild` then.
[[nodiscard]] bool isChild(int count, char **arguments);
[[nodiscard]] int runAsChild(int count, char **arguments);

} // namespace bench
