#include "Course.h"

#include "Child.h"
#include "Recording.h"
#include "base/RuntimeError.h"
#include "base/session.h"
#include "shopFolder.h"
#include "store/DataEnvironment.h"
#include "stores/deskWork.h"

#include <QDataStream>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <csignal>

using namespace Qt::StringLiterals;

namespace faults {

namespace {

constexpr int patience = 30'000;

/// The counter is furnished: clients, items and the first cards, in one write.
class Furnishing : public Task {
public:
    explicit Furnishing(const Random &random) : m_random(random) { }
    void run() override
    {
        Random random = m_random;
        desk::furnish(random);
    }

private:
    Random m_random;
};

Store firstStart()
{
    const std::vector<Store> starts = startStores();
    return *std::find_if(
        starts.begin(), starts.end(), [](const Store &store) { return store.begins == Begins::EmptyFolder; });
}

QString report(const RuntimeError &error)
{
    return error.report().simplified();
}

} // namespace

Course::Course(const std::vector<Store> &stores, int length, quint64 seed, const QString &area)
    : m_stores(stores), m_area(area)
{
    std::vector<Store> turns;
    std::copy_if(stores.begin(), stores.end(), std::back_inserter(turns),
        [](const Store &store) { return store.begins == Begins::OpenShop; });
    Random seeds(seed);
    m_steps.push_back({firstStart(), seeds.seed(), {}, {}});
    m_steps.push_back({{u"furnishing"_s, [](const Random &random) { return std::make_unique<Furnishing>(random); }},
        seeds.seed(), {}, {}});
    for (size_t i = 0; this->length() < length; ++i)
        m_steps.push_back({turns[i % turns.size()], seeds.seed(), {}, {}});
    const Child::Ending ending = Child([&] { workThrough(area); }).wait(patience);
    readBack();
    if (!ending.isGood())
        m_failure = QString::fromUtf8(ending.text());
    for (const QByteArray &line : ending.lines)
        m_failure += QString::fromUtf8(line);
    if (m_failure.isEmpty())
        learnKey(copyBefore(this->length()));
}

QString Course::copyBefore(int number) const
{
    return m_area + u"/before-%1"_s.arg(number);
}

void Course::workThrough(const QString &area)
{
    const QString folder = area + u"/course"_s;
    QDir().mkpath(folder);
    enterFolder(folder);
    Disk::instance().watch(folder);
    QFile result(area + u"/course.steps"_s);
    if (!result.open(QIODevice::WriteOnly))
        return Child::tell("its result cannot be written");
    QDataStream stream(&result);
    try {
        for (int i = 0; i < length(); ++i) {
            copyFolder(folder, copyBefore(i));
            if (i > 0)
                openShop();
            const std::unique_ptr<Task> task = step(i).task();
            task->prepare();
            Disk::instance().countAgain();
            task->run();
            const std::vector<Disk::Call> calls = Disk::instance().calls();
            for (const QString &line : disagreements())
                Child::tell(line.toUtf8());
            stream << stateOfFolder(m_stores) << QList<Disk::Call>(calls.begin(), calls.end());
        }
        copyFolder(folder, copyBefore(length()));
    } catch (const RuntimeError &error) {
        Child::tell(report(error).toUtf8());
    }
}

void Course::readBack()
{
    QFile result(m_area + u"/course.steps"_s);
    if (!result.open(QIODevice::ReadOnly))
        return;
    QDataStream stream(&result);
    for (Step &step : m_steps) {
        QList<Disk::Call> calls;
        stream >> step.after >> calls;
        step.calls.assign(calls.begin(), calls.end());
    }
}

void Course::lay(int number, const QString &folder) const
{
    copyFolder(copyBefore(number), folder);
    settleConfig(folder, m_area + u"/course"_s);
}

void Course::layUnfinished(int number, const QString &folder) const
{
    lay(number, folder);
    const std::vector<Disk::Call> &calls = step(number).calls;
    // A write is over when its journal is removed.
    const auto lastRemoval = std::find(calls.rbegin(), calls.rend(), Disk::Call::Remove);
    const int call = static_cast<int>(std::distance(lastRemoval, calls.rend()));
    const Child::Ending ending = Child([&] {
        enterFolder(folder);
        Disk::instance().watch(folder);
        work(number, number + 1, [&] { Disk::instance().dieAt(call, Disk::Moment::Before); });
    }).wait(patience);
    if (ending.signal != SIGKILL)
        qFatal("no unfinished write was left: %s", ending.text().constData());
}

int Course::writingStep(int number) const
{
    const auto writes = [this](int candidate) {
        const auto calls = [&](Disk::Call call) { return std::ranges::count(step(candidate).calls, call); };
        // A journal is removed in the end; a file that is made beside the shop gets its name.
        return calls(Disk::Call::Remove) > 0 && calls(Disk::Call::Rename) == 0;
    };
    while (!writes(number))
        --number;
    return number;
}

void Course::work(int first, int end, const std::function<void()> &before, Recording *recording) const
{
    const auto say = [recording](const char *word, int number) {
        const QByteArray line = word + (' ' + QByteArray::number(number));
        if (recording)
            recording->mark(line);
        Child::tell(line);
    };
    if (first > 0)
        openShop();
    for (int i = first; i < end; ++i) {
        const std::unique_ptr<Task> task = step(i).task();
        task->prepare();
        if (i == first)
            before();
        say("begin", i);
        task->run();
        say("done", i);
    }
}

Course::Progress Course::progress(const QList<QByteArray> &lines)
{
    Progress progress;
    for (const QByteArray &line : lines) {
        progress.begun = line.startsWith("begin");
        progress.done += line.startsWith("done") ? 1 : 0;
    }
    return progress;
}

void Course::judgeHere(int earliest, int latest) const
{
    try {
        firstStart().make(Random(0))->run();
        const QStringList wrong = disagreements();
        const QString state = stateOfFolder(m_stores);
        int found = latest;
        while (found >= earliest && state != step(found).after)
            --found;
        if (found < earliest) {
            const auto isState = [&state](const Step &step) { return step.after == state; };
            const bool isOld = std::any_of(m_steps.begin(), m_steps.begin() + earliest, isState);
            return Child::tell(lineOf(isOld ? Verdict{Verdict::Lost, u"what was acknowledged is not there"_s}
                                            : Verdict{Verdict::Half, difference(step(latest).after, state)}));
        }
        if (!wrong.isEmpty())
            return Child::tell(lineOf({Verdict::Half, wrong.first()}));
        if (found + 1 < length()) {
            openShop();
            const std::unique_ptr<Task> next = step(found + 1).task();
            next->prepare();
            next->run();
            if (const QString goneOn = stateOfFolder(m_stores); goneOn != step(found + 1).after)
                return Child::tell(lineOf(
                    {Verdict::Half, u"the work does not go on: "_s + difference(step(found + 1).after, goneOn)}));
        }
        Child::tell(lineOf({}));
    } catch (const RuntimeError &error) {
        Child::tell(lineOf({Verdict::CannotOpen, report(error)}));
    }
}

Verdict Course::judge(const QString &folder, int earliest, int latest) const
{
    const Child::Ending ending = Child([&] {
        enterFolder(folder);
        judgeHere(std::max(earliest, 0), std::max(latest, 0));
    }).wait(patience);
    if (ending.lines.isEmpty() || !ending.isGood())
        return {Verdict::CannotOpen, u"the start that followed: "_s + QString::fromUtf8(ending.text())};
    return verdictOf(ending.lines.first());
}

QByteArray lineOf(const Verdict &verdict)
{
    return QByteArray::number(verdict.what) + ' ' + verdict.told.simplified().toUtf8();
}

Verdict verdictOf(const QByteArray &line)
{
    const qsizetype blank = line.indexOf(' ');
    return {static_cast<Verdict::What>(line.first(blank).toInt()), QString::fromUtf8(line.sliced(blank + 1))};
}

} // namespace faults
