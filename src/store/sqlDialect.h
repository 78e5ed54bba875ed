#pragma once

struct sqlite3;

/// What the statements of the program mean otherwise than the engine's own: texts compared without regard to large and
/// small letters, the wildcards of "like", parts of dates, and sums that are exact for money.
namespace sqlDialect {

void addTo(sqlite3 *database);

} // namespace sqlDialect
