#pragma once

#include "Disk.h"
#include "Store.h"

#include <QString>

#include <vector>

namespace faults {

class Recording;

/// What became of a shop in a try.
struct Verdict {
    enum What { Sound, Lost, Half, CannotOpen };
    What what = Sound;
    /// Why, where it isn't sound.
    QString told = {};
};

/// A shop's first day: the first start, its clients, items and cards, then all kinds of saves in turn. It is worked
/// through once without faults; what the folder then held before and after each step is what all tries are judged by.
class Course {
public:
    struct Step {
        Store store;
        quint64 seed = 0;
        /// All that the folder says afterwards.
        QString after;
        /// What the step's run asked of the disk.
        std::vector<Disk::Call> calls;

        [[nodiscard]] std::unique_ptr<Task> task() const { return store.make(Random(seed)); }
    };

    /// Works through `length` steps in a child, with `stores` in turn behind the first two. `area` is a folder for its
    /// copies; it must outlive the course.
    Course(const std::vector<Store> &stores, int length, quint64 seed, const QString &area);
    /// Why the course could not be worked through without faults; empty when it was.
    [[nodiscard]] const QString &failure() const { return m_failure; }

    [[nodiscard]] int length() const { return static_cast<int>(m_steps.size()); }
    [[nodiscard]] const Step &step(int number) const { return m_steps[static_cast<size_t>(number)]; }
    [[nodiscard]] const QString &stateBefore(int number) const { return step(std::max(number - 1, 0)).after; }

    /// Makes `folder` as it was before that step: step 0 finds it empty.
    void lay(int number, const QString &folder) const;
    /// As before that step, but with the step's write cut short: its journal lies beside the half-written shop.
    /// REQUIRES: the step writes to the shop.
    void layUnfinished(int number, const QString &folder) const;
    /// The last step up to `number` that writes to the shop. REQUIRES: `number` is above 0.
    [[nodiscard]] int writingStep(int number) const;

    /// Works through steps from `first` on in this process, saying "begin N" and "done N" to the parent and to
    /// `recording`. `before` runs when the first step is about to run: all that it reads is read.
    void work(int first, int end, const std::function<void()> &before, Recording *recording = nullptr) const;

    /// How far a process came that has worked through steps from `first` on.
    struct Progress {
        int done = 0;
        bool begun = false;
    };
    [[nodiscard]] static Progress progress(const QList<QByteArray> &lines);

    /// Starts the program in `folder`, in a child on a sound disk, and looks whether the shop is as it was after one of
    /// the steps `earliest` to `latest`, and whether the work goes on from there.
    [[nodiscard]] Verdict judge(const QString &folder, int earliest, int latest) const;

    [[nodiscard]] const std::vector<Store> &stores() const { return m_stores; }

private:
    void workThrough(const QString &area);
    void readBack();
    void judgeHere(int earliest, int latest) const;
    [[nodiscard]] QString copyBefore(int number) const;

    std::vector<Store> m_stores;
    std::vector<Step> m_steps;
    QString m_area;
    QString m_failure;
};

/// Verdicts as lines between processes.
[[nodiscard]] QByteArray lineOf(const Verdict &verdict);
[[nodiscard]] Verdict verdictOf(const QByteArray &line);

} // namespace faults
