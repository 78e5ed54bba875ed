#pragma once

#include <QString>

#include <chrono>
#include <functional>
#include <vector>

namespace bench {

using Clock = std::chrono::steady_clock;

/// One go at a piece of work.
struct Run {
    std::chrono::nanoseconds time{};
    /// What came out, in a number that is the same for ours and by hand: it proves that both did the same work.
    qint64 outcome = 0;
};

/// A line of the table: a piece of work that the program does, and the same done by hand with nothing of the program.
struct Case {
    QString what;
    /// How many times as long as by hand ours may take.
    double bar = 1;
    /// Does the work once. Preparations that are no part of it are made before its clock starts.
    std::function<Run()> ours = {};
    std::function<Run()> byHand = {};
    /// How often the work is done in one go; times are shown for one.
    int operations = 1;
    /// How often each of the two is timed. The best counts: whatever else the machine does only makes a go longer.
    int rounds = 15;
    /// What ours may take, whatever it is by hand: what a user waits for.
    std::chrono::nanoseconds most = std::chrono::nanoseconds::max();
};

/// Times `body`, which returns the outcome.
template <typename Body>
[[nodiscard]] Run timed(Body body)
{
    const auto start = Clock::now();
    const qint64 outcome = body();
    return {Clock::now() - start, outcome};
}

void printHead();

/// Times ours and by hand in turns and prints the line. False when the case is over its bar, or when the two outcomes
/// differ, which is told too.
[[nodiscard]] bool measure(const Case &work);

/// Prints a line for something that is no ratio: `value` and the most that it may be, in `unit`. False when above.
[[nodiscard]] bool weigh(const QString &what, double value, double most, const QString &unit);

} // namespace bench
