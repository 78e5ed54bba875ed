#pragma once

#include "reports/Report.h"

/// "Wages Register": a worker's garments, what each and all so far come to, and whether they are paid.
[[nodiscard]] Report rptWagesRegister();
