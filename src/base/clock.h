#pragma once

#include <QDateTime>

#include <functional>

/// The machine's clock. The working date of the session is `session::CurrentDate`, not this.
/// Tests put their own clock in; an empty function brings the machine's back.
namespace machineClock {

[[nodiscard]] QDateTime now();
[[nodiscard]] QDate today();
void replace(std::function<QDateTime()> clock);

} // namespace machineClock
