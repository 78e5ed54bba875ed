#pragma once

#include "base/RuntimeError.h"

#include <QString>

/// What the engine's codes of failure, extended ones, mean to the program and to its user.
namespace engineFaults {

/// `proven`: the file was read once, so that what can't be read now is damaged and not a stranger's.
[[nodiscard]] Fault faultOf(int code, bool proven);

/// Faults that a statement brings on by itself; all others come from the file and what it lies on.
[[nodiscard]] bool isOfTheStatement(int code);

/// The one failure of a commit after which it stands in the file: the journal is removed, but that may not be on the
/// disk.
[[nodiscard]] bool standsAfter(int code);

/// The words for a fault of the disk; empty where those of the fault itself say it all.
[[nodiscard]] QString wordsOf(int code);

/// What is known of an entry whose write has failed, to stand behind the words; empty where nothing was lost.
[[nodiscard]] QString aftermath(Written written);

} // namespace engineFaults
