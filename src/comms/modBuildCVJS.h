#pragma once

#include <QDate>
#include <QString>

/// The status report: the job cards of some days with their items, and where each stands, in a file for whatever reads
/// it outside the program. Its form is fixed to the byte: lines end with CR LF, letters are in the single-byte code
/// page, and nothing is escaped but "&" in the names of items.

/// Makes the report of the cards that were booked on `from` to `to`, both included, cancelled ones among them, in place
/// of the file that may stand at `path`, and tells "Report Created.". A failure is not told; `statusReport::write` says
/// what it leaves there.
void BuildStatusReport(QDate from, QDate to, const QString &path);

/// The item lines of a job card in the order of their serial numbers, without a line end behind the last. Empty where
/// it has no items. Through `rsJOBS_DETAIL`. The report, which has the same lines, reads those of all cards in one go.
[[nodiscard]] QString BuildJobItems(qint16 jobID);

namespace statusReport {

/// `BuildStatusReport` without its words. A new file is its owner's alone, one in the place of another has that one's
/// rights; it stands there whole or not at all. Throws
/// RuntimeError: as `safeFile` does; FileFault for what `refusal` tells; Overflow for a card or a client whose number
/// is above 32767; as a `Recordset` does. Through `rsJOBS`.
void write(QDate from, QDate to, const QString &path);

/// Why there can be no report at `path`, in words for the user; empty where there can.
[[nodiscard]] QString refusal(const QString &path);

} // namespace statusReport
