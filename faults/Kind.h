#pragma once

#include "Course.h"

#include <QStringList>

#include <chrono>

namespace faults {

/// A kind of fault: numbered tries, each of which does something bad to a shop and tells what became of it.
class Kind {
public:
    Kind(const QString &name, const Course &course, quint64 seed) : m_course(course), m_name(name), m_seed(seed) { }
    virtual ~Kind() = default;
    Kind(const Kind &) = delete;
    Kind &operator=(const Kind &) = delete;

    /// Also what `--only` calls it.
    [[nodiscard]] const QString &name() const { return m_name; }
    /// How many tries there are; 0 where there is no end of them.
    [[nodiscard]] virtual int size() const { return 0; }
    /// Runs in a process of its own; `folder` is there and empty. The same number does the same with the same seed.
    [[nodiscard]] virtual Verdict attempt(int number, const QString &folder) const = 0;

protected:
    [[nodiscard]] Random random(int number) const
    {
        return Random(m_seed, qHash(m_name) + static_cast<quint64>(number));
    }

    const Course &m_course;

private:
    QString m_name;
    quint64 m_seed;
};

/// The tries of a kind, counted.
struct Tally {
    int tries = 0;
    int lost = 0;
    int half = 0;
    int cannotOpen = 0;
    /// Each failing try: its number and what became of it.
    std::vector<std::pair<int, Verdict>> failures = {};

    [[nodiscard]] bool isGood() const { return failures.empty(); }
};

/// Runs tries of the kind, two at once, until `most` are done, all are, or the time is over; in an order that follows
/// from the seed. Each gets a folder below `area`.
[[nodiscard]] Tally runTries(
    const Kind &kind, const QString &area, quint64 seed, std::chrono::milliseconds time, int most = 0);
/// Runs one try.
[[nodiscard]] Verdict runTry(const Kind &kind, int number, const QString &area);

// The kinds, in kinds/.
/// A process is killed in the midst of its work.
[[nodiscard]] std::unique_ptr<Kind> kills(const Course &course, quint64 seed);
/// Each single call of each kind of save fails.
[[nodiscard]] std::unique_ptr<Kind> failingCalls(const Course &course, quint64 seed);
/// The power goes; `area` is for the recording.
[[nodiscard]] std::unique_ptr<Kind> powerCuts(const Course &course, quint64 seed, const QString &area);
/// Damaged, foreign, cut and locked files, and journals that do not belong.
[[nodiscard]] std::unique_ptr<Kind> strangeFiles(const Course &course, quint64 seed);
/// Two programs on one file.
[[nodiscard]] std::unique_ptr<Kind> twoPrograms(const Course &course, quint64 seed);

} // namespace faults
