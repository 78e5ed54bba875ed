#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

#include <sys/types.h>

namespace faults {

class Recording;

/// The disk under the process, as far as one folder and what lies below it go. The C library's calls that open, write,
/// sync, rename and remove files are defined in this program (diskCalls.cpp), so that the engine's, Qt's and our own
/// all pass here: they can be counted, recorded, made to fail, or end the process.
///
/// Syncs in the folder are noted, not done: nothing here pulls the plug of the real disk.
class Disk {
public:
    enum class Call { Open, Create, Write, Sync, Truncate, Rename, Remove, MakeFolder };

    static Disk &instance();

    /// From now on calls below `folder` count, from 1. Files that are open already are not seen. REQUIRES: the path is
    /// absolute and without links.
    void watch(const QString &folder);
    /// Notes each call in `recording`, which must outlive it. Begins with the next call. REQUIRES: no file of the
    /// folder is open.
    void record(Recording &recording) { m_recording = &recording; }

    struct Failure {
        /// The number of the call that fails first.
        int call = 0;
        /// What errno says. ENOSPC spares the calls that take no space, and half of a write is done before it.
        int error = 0;
        /// Whether all later calls fail, too.
        bool forGood = false;
    };
    /// Call numbers start at 1 with this.
    void failAt(const Failure &failure);
    void becomeSound() { m_failure.reset(); }

    enum class Moment { Before, Within, After };
    /// Ends the process with SIGKILL at the call with that number, counted from now on. A write is cut in half within;
    /// other calls have no middle and are done.
    void dieAt(int call, Moment moment);

    /// The calls since the count began.
    [[nodiscard]] const std::vector<Call> &calls() const { return m_calls; }
    void countAgain() { m_calls.clear(); }

    /// Whether a disk without room can fail there.
    [[nodiscard]] static bool takesSpace(Call call);

    // For diskCalls.cpp alone: the names are absolute, `real` is the library's own call.
    int open(const char *path, int flags, const std::function<int()> &real);
    void close(int descriptor) { m_open.remove(descriptor); }
    using Transfer = std::function<ssize_t(size_t count)>;
    /// `offset` is below 0 for a write at the file's own place.
    ssize_t write(int descriptor, const void *bytes, size_t count, qint64 offset, const Transfer &real);
    int sync(int descriptor, const std::function<int()> &real);
    int truncate(int descriptor, qint64 size, const std::function<int()> &real);
    int rename(const char *from, const char *to, const std::function<int()> &real);
    int remove(const char *path, const std::function<int()> &real);
    int makeFolder(const char *path, const std::function<int()> &real);
    [[nodiscard]] bool isBelow(const char *path) const;
    [[nodiscard]] bool isWatched(int descriptor) const { return m_open.contains(descriptor); }

private:
    struct OpenFile {
        QByteArray path;
        int file = 0;
        bool isFolder = false;
    };
    /// What the call fails with; 0 where it is to be done.
    int begin(Call call);
    void end();
    [[nodiscard]] bool diesAt(Moment moment) const;
    template <typename Note>
    int pass(Call call, const std::function<int()> &real, Note note);

    QByteArray m_folder;
    QHash<int, OpenFile> m_open;
    std::vector<Call> m_calls;
    std::optional<Failure> m_failure;
    int m_deathCall = 0;
    Moment m_deathMoment = Moment::Before;
    Recording *m_recording = nullptr;
};

} // namespace faults
