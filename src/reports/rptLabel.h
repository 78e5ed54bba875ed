#pragma once

#include "reports/Report.h"

/// The label that hangs on a garment: 100 by 50 millimetres, a common size of label rolls. Its source is an item row.
/// The shop's name and the QR code, both in `Section1`, are the caller's to set.
[[nodiscard]] Report rptLabel();
