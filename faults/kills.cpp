#include "Judge.h"
#include "Shop.h"

#include <QHash>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int stepsOfDay = 12;
constexpr int days = 6;
constexpr int patience = 20;
/// A first start takes some 100 ms, most of it before anything is written.
constexpr int microsecondsOfStart = 120'000;

Finding killWhileBooking(
    int index, const Place &place, const std::vector<Operation> &operations, QHash<int, Course> &courses)
{
    const int day = index % days;
    const quint32 daySeed = place.seed * 1000 + static_cast<quint32>(day);
    if (!courses.contains(day))
        courses.insert(day, courseOf(place, daySeed, stepsOfDay, operations));
    const Course &course = courses[day];
    layOut(place);
    Child child([&](const Child::Say &say) {
        shop::open(place.folder);
        shop::Day work(daySeed, operations);
        say("ready");
        for (int i = 0; i < stepsOfDay; ++i) {
            work.prepareNext()();
            say("done");
        }
        pause();
    });
    if (!child.waitFor("ready", patience))
        return {Finding::CannotOpen, u"the work did not begin"_s};
    std::mt19937 random(place.seed * 7919 + static_cast<quint32>(index));
    usleep(static_cast<useconds_t>(pick(random, course.microseconds + 1)));
    child.kill();
    return judge(place, course, static_cast<int>(child.lines().count("done")));
}

Finding killAtFirstStart(int index, const Place &place)
{
    Child child([&](const Child::Say &say) {
        say("ready");
        shop::start(place.folder);
        pause();
    });
    child.waitFor("ready", patience);
    std::mt19937 random(place.seed * 104'729 + static_cast<quint32>(index));
    usleep(static_cast<useconds_t>(pick(random, microsecondsOfStart)));
    child.kill();
    return judgeStart(place);
}

FaultKind kills(const QString &name, std::vector<Operation> (*operations)(), int weight)
{
    return {
        name, weight, 0, [operations, courses = std::make_shared<QHash<int, Course>>()](int index, const Place &at) {
            return killWhileBooking(index, at, operations(), *courses);
        }};
}

} // namespace

std::vector<FaultKind> killKinds()
{
    return {kills(u"kill while booking"_s, allOperations, 4), {u"kill at the first start"_s, 2, 0, killAtFirstStart}};
}

FaultKind killsOfLooseSaves()
{
    return kills(u"kill of a save without its group"_s, looseOperations, 1);
}
