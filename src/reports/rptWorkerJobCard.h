#pragma once

#include "reports/Report.h"

/// The slip that goes to the workshop with a garment, on A5. Its source is an item row. The shop's name in `Section2`
/// and the QR code in `Section1` are the caller's to set.
[[nodiscard]] Report rptWorkerJobCard();
