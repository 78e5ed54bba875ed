#include "Child.h"
#include "Kind.h"
#include "Recording.h"
#include "base/RuntimeError.h"
#include "shopFolder.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace faults {

namespace {

constexpr int patience = 30'000;

/// The power goes at a moment of the first day. The day is worked through once and recorded; each try makes the folder
/// as the disk may hold it then.
class PowerCuts : public Kind {
public:
    PowerCuts(const Course &course, quint64 seed, const QString &area)
        : Kind(u"cuts"_s, course, seed), m_recorded(area + u"/recorded"_s)
    {
        const QString path = area + u"/recording"_s;
        const Child::Ending ending = Child([&] { record(m_recorded, path); }).wait(patience);
        if (!ending.isGood() || Course::progress(ending.lines).done != course.length())
            qFatal("the recording failed: %s %s", ending.text().constData(), ending.lines.join(' ').constData());
        learnKey(m_recorded);
        m_recording = Recording::load(path);
        m_acknowledgements = m_recording.placesBehind("done");
    }

    Verdict attempt(int number, const QString &folder) const override
    {
        Random random = this->random(number);
        // Every other cut comes within a few calls of an acknowledgement: what was just promised is lost most easily.
        const int place = random.chance(50)
            ? random.below(m_recording.size() + 1)
            : m_acknowledgements[static_cast<size_t>(random.below(static_cast<int>(m_acknowledgements.size())))]
                + random.below(4);
        const int count = std::min(place, m_recording.size());
        m_recording.restore(count, random, folder);
        settleConfig(folder, m_recorded);
        const Course::Progress progress = Course::progress(m_recording.marksBefore(count));
        const int done = progress.done - 1;
        Verdict verdict = m_course.judge(folder, done, done + (progress.begun ? 1 : 0));
        verdict.told = u"after call %1 of %2, step %3: "_s.arg(count).arg(m_recording.size()).arg(done) + verdict.told;
        return verdict;
    }

private:
    void record(const QString &folder, const QString &path) const
    {
        QDir().mkpath(folder);
        enterFolder(folder);
        Recording recording(folder);
        Disk::instance().watch(folder);
        Disk::instance().record(recording);
        try {
            m_course.work(
                0, m_course.length(), [] {}, &recording);
        } catch (const RuntimeError &error) {
            return Child::tell(error.report().toUtf8());
        }
        recording.save(path);
    }

    QString m_recorded;
    Recording m_recording;
    std::vector<int> m_acknowledgements;
};

} // namespace

std::unique_ptr<Kind> powerCuts(const Course &course, quint64 seed, const QString &area)
{
    return std::make_unique<PowerCuts>(course, seed, area);
}

} // namespace faults
