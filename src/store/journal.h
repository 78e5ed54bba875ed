#pragma once

#include "base/Currency.h"

#include <QDate>

class Connection;

/// The live postings summed up in memory, for the lists that ask a balance for each of their lines. Kept up as
/// postings are written; answers what "Select sum(Amount) from Postings where status=0 .."
/// answers.
namespace journal {

struct Sums {
    Currency balance;
    Currency credits;
    Currency debits;
};

/// Sums of an account's live postings dated from the beginning of `from` to the beginning of `to`, both included: a
/// posting that carries a time of day on the last day lies behind it.
[[nodiscard]] Sums sums(Connection &connection, int accountID, QDate from, QDate to);

} // namespace journal
