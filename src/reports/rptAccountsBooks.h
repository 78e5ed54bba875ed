#pragma once

#include "reports/Report.h"

/// "Account Statement": the postings of an account, its balances and the period's movement. The second one has the
/// remarks too.
[[nodiscard]] Report rptAccountsBooks();
[[nodiscard]] Report rptAccountsBooks2();
