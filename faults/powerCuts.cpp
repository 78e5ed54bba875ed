#include "Disk.h"
#include "Judge.h"
#include "Shop.h"
#include "store/DataEnvironment.h"

#include <QDir>
#include <QHash>

using namespace Qt::StringLiterals;

namespace {

constexpr int stepsOfDay = 6;
constexpr int days = 4;
constexpr int patience = 30;

std::mt19937 randomOf(int index, const Place &place)
{
    return std::mt19937(place.seed * 15'485'863 + static_cast<quint32>(index));
}

/// The folder as a power cut at a random moment leaves it.
int leaveAfterCut(const disk::Recording &recording, int index, const Place &place)
{
    std::mt19937 random = randomOf(index, place);
    const int moment = pick(random, recording.moments() + 1);
    QDir(place.folder).removeRecursively();
    QDir().mkpath(place.folder);
    return recording.cutPower(moment, place.folder, random);
}

Finding cutWhileBooking(int index, const Place &place, bool synced, QHash<int, Course> &courses)
{
    const int number = index % days;
    const quint32 daySeed = place.seed * 2000 + static_cast<quint32>(number);
    if (!courses.contains(number))
        courses.insert(number, courseOf(place, daySeed, stepsOfDay, cardOperations()));
    layOut(place);
    Child child([&](const Child::Say &say) {
        disk::Recording::start(place.folder);
        shop::open(place.folder);
        if (!synced)
            DE().CN.define(u"PRAGMA synchronous = OFF"_s);
        shop::Day day(daySeed, cardOperations());
        for (int i = 0; i < stepsOfDay; ++i) {
            day.prepareNext()();
            disk::Recording::acknowledge();
        }
        shop::close();
        const disk::Recording recording = disk::Recording::stop();
        say(QByteArray::number(leaveAfterCut(recording, index, place)));
    });
    if (!child.finish(patience) || child.lines().isEmpty())
        return {Finding::CannotOpen, u"the work before the cut failed"_s};
    return judge(place, courses[number], child.lines().constLast().toInt());
}

Finding cutAtFirstStart(int index, const Place &place)
{
    Child child([&](const Child::Say &) {
        disk::Recording::start(place.folder);
        shop::start(place.folder);
        shop::close();
        leaveAfterCut(disk::Recording::stop(), index, place);
    });
    if (!child.finish(patience))
        return {Finding::CannotOpen, u"the start before the cut failed"_s};
    return judgeStart(place);
}

FaultKind cuts(const QString &name, bool synced, int weight)
{
    return {name, weight, 0, [synced, courses = std::make_shared<QHash<int, Course>>()](int index, const Place &at) {
                return cutWhileBooking(index, at, synced, *courses);
            }};
}

} // namespace

std::vector<FaultKind> powerCutKinds()
{
    return {cuts(u"power cut while booking"_s, true, 4), {u"power cut at the first start"_s, 2, 0, cutAtFirstStart}};
}

FaultKind powerCutsWithoutSync()
{
    return cuts(u"power cut with synchronous=OFF"_s, false, 1);
}
