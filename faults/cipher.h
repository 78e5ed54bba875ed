#pragma once

#include <QtGlobal>

namespace faults {

/// What the engine's cipher takes for chance, salts above all, follows from `seed` and not from the machine: a try is
/// the same again, and new files have keys that are known already.
void seedCipher(quint64 seed);
/// Begins the numbers of that seed again. Each child does.
void restartCipher();

} // namespace faults
