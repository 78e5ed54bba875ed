#include "Disk.h"
#include "Judge.h"
#include "Shop.h"
#include "base/RuntimeError.h"

#include <QDir>
#include <QFile>

#include <array>
#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 30;
constexpr std::array<int, 2> errors{ENOSPC, EIO};
/// Of each call: two errors, once and for good.
constexpr int waysToFail = 4;

struct Target {
    Operation operation;
    Course course;
    int calls = 0;
};

quint32 seedOf(const Place &place, const QString &name)
{
    return place.seed + static_cast<quint32>(name.size());
}

disk::Failure failureOf(int index)
{
    const int way = index % waysToFail;
    return {index / waysToFail, errors[static_cast<size_t>(way % 2)], way >= 2};
}

QString described(const disk::Failure &failure)
{
    return u"call %1 fails with %2 %3"_s.arg(failure.call)
        .arg(failure.error == ENOSPC ? u"ENOSPC"_s : u"EIO"_s, failure.forGood ? u"for good"_s : u"once"_s);
}

Target targetOf(const Place &place, const Operation &operation)
{
    Target target{operation, courseOf(place, seedOf(place, operation.name), 1, {operation}), 0};
    layOut(place);
    Child child([&](const Child::Say &say) {
        shop::open(place.folder);
        shop::Day day(seedOf(place, operation.name), {operation});
        const Command command = day.prepareNext();
        disk::watch(place.folder);
        disk::startCounting();
        command();
        say(QByteArray::number(disk::callsCounted()));
    });
    if (!child.finish(patience))
        qFatal("%s fails without a fault", qPrintable(operation.name));
    target.calls = child.lines().constLast().toInt();
    QFile::remove(shop::fileIn(place.folder));
    return target;
}

/// What a command said of itself when it ended.
QByteArray outcomeOf(const Command &command)
{
    try {
        command();
    } catch (const RuntimeError &error) {
        switch (error.written()) {
        case Written::Nothing: return "nothing";
        case Written::AllOrNothing: return "open";
        case Written::NotTried:
        case Written::UpToTheFault: return "fault " + error.report().toUtf8().replace('\n', ' ');
        }
    }
    return "done";
}

Finding failOne(const Place &place, const Target &target, const disk::Failure &failure)
{
    const QString what = target.operation.name + u", "_s + described(failure) + u": "_s;
    layOut(place);
    Child child([&](const Child::Say &say) {
        shop::open(place.folder);
        shop::Day day(seedOf(place, target.operation.name), {target.operation});
        const Command command = day.prepareNext();
        disk::watch(place.folder);
        disk::fail(failure);
        const QByteArray outcome = outcomeOf(command);
        if (!failure.forGood)
            disk::healthy();
        say(outcome);
        // The user presses the same command again.
        if (outcome == "nothing" && !failure.forGood) {
            say(shop::content());
            say(outcomeOf(command));
        }
        shop::close();
    });
    if (!child.finish(patience))
        return {Finding::CannotOpen,
            what + (child.lines().isEmpty() ? u"the program ended"_s : QString::fromUtf8(child.lines().constLast()))};
    const QByteArray outcome = child.lines().constFirst();
    const bool again = child.lines().size() == 3;
    if (again && child.lines().at(1) != target.course.contents.constFirst())
        return {Finding::Half, what + u"told that nothing was written, which is not so"_s};
    if (again && child.lines().at(2) != "done")
        return {Finding::CannotOpen, what + u"once more: "_s + QString::fromUtf8(child.lines().at(2))};
    Finding finding = judge(place, target.course, outcome == "done" || again ? 1 : 0);
    if (finding.what == Finding::Nothing && outcome == "nothing" && !again) {
        // It may not stand there whole either.
        finding = judge(place, {{target.course.contents.constFirst()}, 0}, 0);
    }
    if (finding.what == Finding::Nothing && outcome.startsWith("fault "))
        finding = {Finding::Half, QString::fromUtf8(outcome)};
    finding.words = what + QString::fromUtf8(outcome) + u": "_s + finding.words;
    return finding;
}

Finding failStart(int index, const Place &place)
{
    const disk::Failure failure = failureOf(index);
    Child child([&](const Child::Say &) {
        disk::watch(place.folder);
        disk::fail(failure);
        outcomeOf([&] { shop::start(place.folder); });
        shop::close();
    });
    if (!child.finish(patience))
        return {Finding::CannotOpen, described(failure) + u": the program ended"_s};
    Finding finding = judgeStart(place);
    finding.words = described(failure) + u": "_s + finding.words;
    return finding;
}

FaultKind kindOf(const Place &place, const QString &name, const std::vector<Operation> &operations, int weight)
{
    auto targets = std::make_shared<std::vector<Target>>();
    int tries = 0;
    for (const Operation &operation : operations) {
        targets->push_back(targetOf(place, operation));
        tries += targets->back().calls * waysToFail;
    }
    return {name, weight, tries, [targets](int index, const Place &at) {
                for (const Target &target : *targets) {
                    if (index < target.calls * waysToFail)
                        return failOne(at, target, failureOf(index));
                    index -= target.calls * waysToFail;
                }
                return Finding();
            }};
}

int callsOfStart(const Place &place)
{
    const QString folder = place.folder + u"/first-start"_s;
    QDir().mkpath(folder);
    Child child([&](const Child::Say &say) {
        disk::watch(folder);
        disk::startCounting();
        shop::start(folder);
        say(QByteArray::number(disk::callsCounted()));
    });
    if (!child.finish(patience))
        qFatal("a first start fails without a fault");
    return child.lines().constLast().toInt();
}

} // namespace

std::vector<FaultKind> failingCallKinds(const Place &place)
{
    return {kindOf(place, u"failing call in a save"_s, allOperations(), 5),
        {u"failing call at the first start"_s, 2, callsOfStart(place) * waysToFail, failStart}};
}

FaultKind failingCallsOfLooseSaves(const Place &place)
{
    return kindOf(place, u"failing call in a save without its group"_s, looseOperations(), 1);
}
