#pragma once

#include <QIcon>

class Recordset;

/// What the registers show of a garment, from the current row of a recordset over `JOBS_DETAIL`.
namespace itemRowCells {

/// "321/2": the card, and the garment's place on it. The code on slips and labels reads the same.
[[nodiscard]] QString job(const Recordset &row);
/// "NA" where nobody works on it; a worker who is gone shows as nothing.
[[nodiscard]] QString worker(int workerID);

/// Neither handed over nor cancelled: its promised day still binds.
[[nodiscard]] bool isOpen(int status);
/// The sign of a `rowStatus`, beside its word; none for a number that is none.
[[nodiscard]] QIcon statusSign(int status);

} // namespace itemRowCells
