#include "Child.h"
#include "Kind.h"
#include "shopFolder.h"

#include <csignal>

using namespace Qt::StringLiterals;

namespace faults {

namespace {

constexpr int patience = 20'000;
constexpr int stepsInARow = 3;

/// The process is killed at one of its calls: before, within or after it. Nothing changes on the disk between calls, so
/// no moment is left out. What it had acknowledged came through a pipe.
class Kills : public Kind {
public:
    Kills(const Course &course, quint64 seed) : Kind(u"kills"_s, course, seed) { }

    Verdict attempt(int number, const QString &folder) const override
    {
        Random random = this->random(number);
        if (random.chance(10))
            return killOfAStartAfterACut(random, folder);
        const int first = random.chance(20) ? 0 : random.below(m_course.length());
        const int end = std::min(first + stepsInARow, m_course.length());
        m_course.lay(first, folder);
        // What changes nothing calls nothing.
        qsizetype calls = 1;
        for (int i = first; i < end; ++i)
            calls += static_cast<qsizetype>(m_course.step(i).calls.size());
        const int call = 1 + random.below(calls);
        const auto moment = static_cast<Disk::Moment>(random.below(3));
        const Child::Ending ending = Child([&] {
            enterFolder(folder);
            Disk::instance().watch(folder);
            m_course.work(first, end, [&] { Disk::instance().dieAt(call, moment); });
        }).wait(patience);
        // It may be through before the call comes, where what is read in between counted in the course.
        if (ending.hung || (ending.signal != 0 && ending.signal != SIGKILL))
            return {Verdict::CannotOpen, u"the work: "_s + QString::fromUtf8(ending.text())};
        const Course::Progress progress = Course::progress(ending.lines);
        const int done = first - 1 + progress.done;
        return m_course.judge(folder, done, done + (progress.begun ? 1 : 0));
    }

private:
    /// The start that takes back an unfinished write is killed in turn.
    Verdict killOfAStartAfterACut(Random &random, const QString &folder) const
    {
        constexpr int mostCalls = 30;
        const int number = m_course.writingStep(1 + random.below(m_course.length() - 1));
        m_course.layUnfinished(number, folder);
        const int call = 1 + random.below(mostCalls);
        const auto moment = static_cast<Disk::Moment>(random.below(3));
        const Child::Ending ending = Child([&] {
            enterFolder(folder);
            Disk::instance().watch(folder);
            Disk::instance().dieAt(call, moment);
            openShop();
        }).wait(patience);
        if (ending.hung || (ending.signal != 0 && ending.signal != SIGKILL))
            return {Verdict::CannotOpen, u"the start after a cut: "_s + QString::fromUtf8(ending.text())};
        return m_course.judge(folder, number - 1, number - 1);
    }
};

} // namespace

std::unique_ptr<Kind> kills(const Course &course, quint64 seed)
{
    return std::make_unique<Kills>(course, seed);
}

} // namespace faults
