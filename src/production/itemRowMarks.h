#pragma once

#include "production/MarkedRows.h"

#include <QDate>
#include <QString>

#include <optional>

class Recordset;

/// The marks by which a day's work is recorded, each one durable write, which its answer can take back. None where the
/// row or job is no longer there; nothing is written then.
namespace itemRowMarks {

[[nodiscard]] std::optional<MarkedRows> cuttingDone(qint32 rowID);
/// Completed, Alteration or Delivered on `day`. An empty `location`, or one of blanks, leaves the garment where it was.
/// Taken back, it leaves the job card alone, and it can't be once the card was closed or opened again.
[[nodiscard]] std::optional<MarkedRows> status(qint32 rowID, int status, QDate day, const QString &location = {});

/// The job is finished and handed over on `day`, with all of its rows, cancelled ones and bought goods among them.
/// Taken back, it is open again, each row where it was; a row that came to the card meanwhile is left alone.
[[nodiscard]] std::optional<MarkedRows> jobDelivered(qint32 jobID, QDate day);

/// Sets a row's status and the date that goes with it, pending: Uncompleted and Canceled have none. Dates of other
/// states stay.
void stamp(Recordset &row, int status, QDate day);

} // namespace itemRowMarks
