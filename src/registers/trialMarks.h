#pragma once

#include "production/MarkedRows.h"

#include <QDate>

#include <optional>

/// What becomes of the trial of a job card: the marks, each one durable write, which its answer can take back. None
/// looks at the mark before it. No answer where the job is no longer there; nothing is written then.
namespace trialMarks {

/// The client came on the working date.
[[nodiscard]] std::optional<MarkedRows> appeared(qint32 jobID);
/// For the others there is no such date.
[[nodiscard]] std::optional<MarkedRows> notAppeared(qint32 jobID);
[[nodiscard]] std::optional<MarkedRows> canceled(qint32 jobID);
/// The trial begins anew on `day`.
[[nodiscard]] std::optional<MarkedRows> movedTo(qint32 jobID, QDate day);

/// None where the job is no longer there.
[[nodiscard]] std::optional<QDate> dateOf(qint32 jobID);

} // namespace trialMarks
