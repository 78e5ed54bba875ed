#pragma once

#include "reports/Report.h"

/// The job card that a client takes home: bill, receipt, and room to staple cloth samples to. Its source has one row a
/// card, with the items as the child rows `Body`. Labels and logo in `Section6` and `Section7` are the caller's to set.
[[nodiscard]] Report rptJOBCARD();
