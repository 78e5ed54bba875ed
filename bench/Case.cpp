#include "Case.h"

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

using std::chrono::nanoseconds;

struct Timing {
    nanoseconds best = nanoseconds::max();
    qint64 outcome = 0;

    void take(const Run &run)
    {
        best = std::min(best, run.time);
        outcome = run.outcome;
    }
};

QString timeText(double nanos)
{
    struct Unit {
        double size;
        QString name;
    };
    const Unit unit = nanos < 1e3 ? Unit{1, u"ns"_s} : nanos < 1e6 ? Unit{1e3, u"us"_s} : Unit{1e6, u"ms"_s};
    return u"%1 %2"_s.arg(nanos / unit.size, 0, 'f', nanos / unit.size < 10 ? 2 : 1).arg(unit.name);
}

void printLine(const QString &what, const QString &ours, const QString &byHand, const QString &ratio,
    const QString &bar, const QString &verdict)
{
    const QString line = what.leftJustified(62) + ours.rightJustified(11) + byHand.rightJustified(11)
        + ratio.rightJustified(8) + bar.rightJustified(8) + u"  "_s + verdict;
    std::printf("%s\n", qPrintable(line.trimmed()));
    std::fflush(stdout);
}

QString verdictOf(bool good)
{
    return good ? QString() : u"over the bar"_s;
}

} // namespace

void printHead()
{
    printLine(u"what"_s, u"ours"_s, u"by hand"_s, u"ratio"_s, u"bar"_s, {});
}

bool measure(const Case &work)
{
    Timing ours;
    Timing byHand;
    // Each goes first in every other round, so that neither always finds what the other left in the caches.
    for (int round = 0; round < work.rounds; ++round) {
        if (round % 2 == 0)
            ours.take(work.ours());
        byHand.take(work.byHand());
        if (round % 2 != 0)
            ours.take(work.ours());
    }
    const auto each = [&work](
                          const Timing &timing) { return static_cast<double>(timing.best.count()) / work.operations; };
    const double ratio = each(ours) / each(byHand);
    const bool same = ours.outcome == byHand.outcome;
    const bool good = same && ratio <= work.bar && each(ours) <= static_cast<double>(work.most.count());
    const QString verdict =
        same ? verdictOf(good) : u"not the same work: %1 and %2"_s.arg(ours.outcome).arg(byHand.outcome);
    printLine(work.what, timeText(each(ours)), timeText(each(byHand)), QString::number(ratio, 'f', 2),
        QString::number(work.bar, 'f', 1), verdict);
    return good;
}

bool weigh(const QString &what, double value, double most, const QString &unit)
{
    const bool good = value <= most;
    printLine(
        what, u"%1 %2"_s.arg(value, 0, 'f', 1).arg(unit), {}, {}, u"%1 %2"_s.arg(most).arg(unit), verdictOf(good));
    return good;
}

} // namespace bench
