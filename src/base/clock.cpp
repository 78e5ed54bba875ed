#include "base/clock.h"

namespace machineClock {

namespace {
std::function<QDateTime()> &source()
{
    static std::function<QDateTime()> clock;
    return clock;
}
} // namespace

QDateTime now()
{
    return source() ? source()() : QDateTime::currentDateTime();
}

QDate today()
{
    return now().date();
}

void replace(std::function<QDateTime()> clock)
{
    source() = std::move(clock);
}

} // namespace machineClock
