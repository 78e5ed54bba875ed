#include "Kind.h"

#include "Child.h"

#include <QDeadlineTimer>
#include <QDir>

#include <poll.h>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace faults {

namespace {

constexpr int patience = 90'000;
constexpr size_t atOnce = 2;

/// A try at work in its own process.
class Running {
public:
    Running(const Kind &kind, int number, const QString &area)
        : m_number(number), m_folder(u"%1/try-%2"_s.arg(area).arg(number)), m_limit(patience),
          m_child([&kind, number, this] {
              QDir().mkpath(m_folder);
              Child::tell(lineOf(kind.attempt(number, m_folder)));
          })
    {
    }
    ~Running() { QDir(m_folder).removeRecursively(); }
    Running(const Running &) = delete;
    Running &operator=(const Running &) = delete;

    [[nodiscard]] int number() const { return m_number; }
    [[nodiscard]] int pipe() const { return m_child.pipe(); }
    /// Whether it has ended; its verdict is there then.
    [[nodiscard]] bool proceed(bool readable)
    {
        const bool over = readable && !m_child.read();
        if (!over && !m_limit.hasExpired())
            return false;
        const Child::Ending ending = m_child.end(!over);
        m_verdict = ending.isGood() && !ending.lines.isEmpty()
            ? verdictOf(ending.lines.last())
            : Verdict{Verdict::CannotOpen, u"the try itself: "_s + QString::fromUtf8(ending.text())};
        return true;
    }
    [[nodiscard]] const Verdict &verdict() const { return m_verdict; }

private:
    int m_number;
    QString m_folder;
    QDeadlineTimer m_limit;
    Child m_child;
    Verdict m_verdict;
};

using RunningTries = std::vector<std::unique_ptr<Running>>;

/// Waits until one of them, or more, have ended, and takes these out.
RunningTries takeEnded(RunningTries &tries)
{
    RunningTries ended;
    while (ended.empty()) {
        std::vector<pollfd> pipes;
        for (const auto &running : tries)
            pipes.push_back({running->pipe(), POLLIN, 0});
        ::poll(pipes.data(), pipes.size(), 1000);
        for (size_t i = 0; i < tries.size(); ++i) {
            if (tries[i]->proceed(pipes[i].revents != 0))
                ended.push_back(std::move(tries[i]));
        }
        tries.erase(std::remove(tries.begin(), tries.end(), nullptr), tries.end());
    }
    return ended;
}

void count(Tally &tally, int number, const Verdict &verdict)
{
    ++tally.tries;
    tally.lost += verdict.what == Verdict::Lost ? 1 : 0;
    tally.half += verdict.what == Verdict::Half ? 1 : 0;
    tally.cannotOpen += verdict.what == Verdict::CannotOpen ? 1 : 0;
    if (verdict.what != Verdict::Sound)
        tally.failures.emplace_back(number, verdict);
}

/// The numbers of all tries of a kind that has an end, in an order that follows from the seed.
std::vector<int> shuffled(int size, quint64 seed)
{
    std::vector<int> numbers(static_cast<size_t>(size));
    std::iota(numbers.begin(), numbers.end(), 0);
    Random random(seed);
    for (int i = size - 1; i > 0; --i)
        std::swap(numbers[static_cast<size_t>(i)], numbers[static_cast<size_t>(random.below(i + 1))]);
    return numbers;
}

} // namespace

Tally runTries(const Kind &kind, const QString &area, quint64 seed, std::chrono::milliseconds time, int most)
{
    Tally tally;
    const std::vector<int> order = shuffled(kind.size(), seed);
    int end = kind.size();
    if (most > 0)
        end = end > 0 ? std::min(end, most) : most;
    const QDeadlineTimer limit(time);
    RunningTries tries;
    for (int next = 0;;) {
        const auto isNextWanted = [&] { return !limit.hasExpired() && (end == 0 || next < end); };
        for (; tries.size() < atOnce && isNextWanted(); ++next)
            tries.push_back(
                std::make_unique<Running>(kind, order.empty() ? next : order[static_cast<size_t>(next)], area));
        if (tries.empty())
            return tally;
        for (const auto &ended : takeEnded(tries))
            count(tally, ended->number(), ended->verdict());
    }
}

Verdict runTry(const Kind &kind, int number, const QString &area)
{
    RunningTries tries;
    tries.push_back(std::make_unique<Running>(kind, number, area));
    return takeEnded(tries).front()->verdict();
}

} // namespace faults
