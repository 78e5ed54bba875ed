#pragma once

#include <QDate>

#include <optional>

/// What becomes of the trial of a job card: the marks, each one durable write. None looks at the mark before it. False
/// where the job is no longer there; nothing is written then.
namespace trialMarks {

/// The client came on the working date.
[[nodiscard]] bool appeared(qint32 jobID);
/// For the others there is no such date.
[[nodiscard]] bool notAppeared(qint32 jobID);
[[nodiscard]] bool canceled(qint32 jobID);
/// The trial begins anew on `day`.
[[nodiscard]] bool movedTo(qint32 jobID, QDate day);

/// None where the job is no longer there.
[[nodiscard]] std::optional<QDate> dateOf(qint32 jobID);

} // namespace trialMarks
