#pragma once

#include "reports/Report.h"

/// A voucher on paper: its two legs, the debit in brackets, and room for a signature.
[[nodiscard]] Report rptPrintVoucher();
