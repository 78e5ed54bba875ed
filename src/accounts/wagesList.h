#pragma once

#include "ui/ListModel.h"

class QString;

/// The garments that a worker is paid for, as the wages register and a payroll's details list and print them.
namespace wagesList {

enum Column { Date, Job, Client, Quantity, Item, Wages, Balance, Completed, Paid, ColumnCount };

/// `quantity` is the head of that column.
[[nodiscard]] std::vector<ListColumn> columns(const QString &quantity);

/// The rows of a statement over `JOBS_DETAIL`, each tagged with its number. The balance is the running sum of the
/// wages.
[[nodiscard]] std::vector<ListRow> read(const QString &statement);

/// Shows the print of all rows of the list, by way of the scratch table `wagesregister`. `times` stands between a
/// quantity and its item; `file` is what a file of it is called.
void print(const ListModel &list, const QString &worker, const QString &times, const QString &file);

} // namespace wagesList
