#pragma once

#include <QDate>
#include <QString>

class Recordset;

/// The marks by which a day's work is recorded, each one durable write. False where the row or job is no longer there;
/// nothing is written then.
namespace itemRowMarks {

[[nodiscard]] bool cuttingDone(qint32 rowID);
/// Completed, Alteration or Delivered on `day`. An empty `location`, or one of blanks, leaves the garment where it was.
[[nodiscard]] bool status(qint32 rowID, int status, QDate day, const QString &location = {});

/// The job is finished and handed over on `day`, with all of its rows, cancelled ones and bought goods among them.
[[nodiscard]] bool jobDelivered(qint32 jobID, QDate day);

/// Sets a row's status and the date that goes with it, pending: Uncompleted and Canceled have none. Dates of other
/// states stay.
void stamp(Recordset &row, int status, QDate day);

} // namespace itemRowMarks
