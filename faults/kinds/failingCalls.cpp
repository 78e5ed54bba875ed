#include "Child.h"
#include "Kind.h"
#include "base/RuntimeError.h"
#include "shopFolder.h"
#include "store/DataEnvironment.h"

#include <cerrno>

using namespace Qt::StringLiterals;

namespace faults {

namespace {

constexpr int patience = 20'000;

/// One call of one save fails. The process goes on: where the disk failed only once the same save is given again.
class FailingCalls : public Kind {
public:
    FailingCalls(const Course &course, quint64 seed) : Kind(u"calls"_s, course, seed)
    {
        QStringList known;
        for (int i = 0; i < course.length(); ++i) {
            const Course::Step &step = course.step(i);
            if (known.contains(step.store.name))
                continue;
            known += step.store.name;
            list({i, step.store, step.seed}, step.calls);
        }
        // More calls than such a start makes do no harm: it is then run without a fault.
        const std::vector<Disk::Call> enough(mostCallsOfAStart, Disk::Call::Write);
        for (const Store &store : course.stores()) {
            if (store.begins == Begins::UnfinishedWrite)
                list({course.writingStep(course.length() / 2), store, 0}, enough);
        }
    }

    int size() const override { return static_cast<int>(m_tries.size()); }

    Verdict attempt(int number, const QString &folder) const override
    {
        const Try &chosen = m_tries[static_cast<size_t>(number)];
        const bool afterACut = chosen.work.store.begins == Begins::UnfinishedWrite;
        if (afterACut)
            m_course.layUnfinished(chosen.work.step, folder);
        else
            m_course.lay(chosen.work.step, folder);
        const Child::Ending ending = Child([&] { work(chosen, folder); }).wait(patience);
        const QString what = u"%1, call %2 fails with %3 %4: "_s.arg(chosen.work.store.name)
                                 .arg(chosen.failure.call)
                                 .arg(chosen.failure.error == EIO ? u"EIO"_s : u"ENOSPC"_s,
                                     chosen.failure.forGood ? u"from then on"_s : u"once"_s);
        const int before = chosen.work.step - 1;
        Verdict verdict = ending.isGood() ? judge(ending.lines, folder, before, afterACut ? before : before + 1)
                                          : Verdict{Verdict::CannotOpen, QString::fromUtf8(ending.text())};
        verdict.told = what + verdict.told;
        return verdict;
    }

private:
    static constexpr size_t mostCallsOfAStart = 45;
    struct Work {
        int step = 0;
        Store store;
        quint64 seed = 0;
    };
    struct Try {
        Work work;
        Disk::Failure failure;
    };

    void list(const Work &work, const std::vector<Disk::Call> &calls)
    {
        for (size_t i = 0; i < calls.size(); ++i) {
            for (const int error : {EIO, ENOSPC}) {
                if (error == ENOSPC && !Disk::takesSpace(calls[i]))
                    continue;
                for (const bool forGood : {false, true})
                    m_tries.push_back({work, {static_cast<int>(i) + 1, error, forGood}});
            }
        }
    }

    /// Runs the task, and says "done", or what the failure says of the file, with the failure's text.
    static bool run(Task &task)
    {
        try {
            task.run();
            Child::tell("done");
            return true;
        } catch (const RuntimeError &error) {
            Child::tell(leftBy(error) + ": " + error.report().simplified().toUtf8());
            return false;
        }
    }

    static QByteArray leftBy(const RuntimeError &error)
    {
        switch (error.written()) {
        case Written::Nothing: return "nothing";
        case Written::NotTried: return "not tried";
        case Written::AllOrNothing: return "all or nothing";
        case Written::UpToTheFault: return "up to the fault";
        }
        return {};
    }

    void work(const Try &chosen, const QString &folder) const
    {
        enterFolder(folder);
        Disk::instance().watch(folder);
        const bool isSave = chosen.work.store.begins == Begins::OpenShop;
        if (isSave)
            openShop();
        const std::unique_ptr<Task> task = chosen.work.store.make(Random(chosen.work.seed));
        task->prepare();
        Disk::instance().failAt(chosen.failure);
        bool isDone = run(*task);
        if (!isDone && !chosen.failure.forGood)
            Disk::instance().becomeSound();
        // Who is told that it may stand in the file looks first; on a disk that goes on failing there is nothing to
        // see.
        if (!isDone && (!isSave || chosen.failure.forGood || !standsAlready(chosen.work.step)))
            run(*task);
        // Closing meets the failing disk, too.
        renewDE();
    }

    bool standsAlready(int step) const
    {
        try {
            return m_course.stateBefore(step).section(u"\nbeside: "_s, 0, 0) != stateOfShop();
        } catch (const RuntimeError &error) {
            Child::tell("all or nothing: " + error.report().simplified().toUtf8());
            return true;
        }
    }

    Verdict judge(const QList<QByteArray> &said, const QString &folder, int before, int after) const
    {
        const Store &store = m_course.step(after).store;
        const bool isSave = after > before && store.begins == Begins::OpenShop;
        const bool isDone = !said.isEmpty() && said.last() == "done";
        bool mayStand = isDone;
        for (const QByteArray &line : said) {
            if (isSave && line.startsWith("up to the fault"))
                return {
                    Verdict::Half, u"a failing disk was told as a fault of the rules: "_s + QString::fromUtf8(line)};
            mayStand = mayStand || line.startsWith("all or nothing");
        }
        const int earliest = isDone ? after : before;
        Verdict verdict = m_course.judge(folder, earliest, isSave && !mayStand ? before : after);
        if (verdict.what != Verdict::Sound)
            verdict.told += u" ["_s + QString::fromUtf8(said.join("; ")) + u']';
        return verdict;
    }

    std::vector<Try> m_tries;
};

} // namespace

std::unique_ptr<Kind> failingCalls(const Course &course, quint64 seed)
{
    return std::make_unique<FailingCalls>(course, seed);
}

} // namespace faults
