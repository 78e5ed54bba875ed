#include "base/FileLock.h"

#include "base/RuntimeError.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QThread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <map>

namespace {

constexpr int lookEvery = 20;
constexpr int longestWait = 10'000;

bool mark(int descriptor, FileLock::Kind kind)
{
    const int how = (kind == FileLock::Alone ? LOCK_EX : LOCK_SH) | LOCK_NB;
    int answer = 0;
    do
        answer = flock(descriptor, how);
    while (answer != 0 && errno == EINTR);
    return answer == 0 || errno != EWOULDBLOCK;
}

bool markWithin(int milliseconds, int descriptor, FileLock::Kind kind)
{
    const QDeadlineTimer limit(milliseconds);
    while (!mark(descriptor, kind)) {
        if (limit.hasExpired())
            return false;
        QThread::msleep(lookEvery);
    }
    return true;
}

int opened(const QString &path)
{
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        throw RuntimeError(Fault::CannotOpen, qt_error_string(errno), path);
    return descriptor;
}

using FileKey = std::pair<dev_t, ino_t>;

FileKey keyOf(int descriptor)
{
    struct stat state = {};
    fstat(descriptor, &state);
    return {state.st_dev, state.st_ino};
}

} // namespace

FileLock::FileLock(const QString &path, Kind kind, int milliseconds) : m_descriptor(opened(path)), m_kind(kind)
{
    if (markWithin(milliseconds, m_descriptor, kind))
        return;
    ::close(m_descriptor);
    throw RuntimeError(Fault::Locked, path);
}

FileLock::~FileLock()
{
    ::close(m_descriptor);
}

std::shared_ptr<FileLock> FileLock::shared(const QString &path, int milliseconds)
{
    static std::map<FileKey, std::weak_ptr<FileLock>> held;
    struct stat state = {};
    if (stat(QFile::encodeName(path).constData(), &state) != 0)
        throw RuntimeError(Fault::CannotOpen, qt_error_string(errno), path);
    if (const auto known = held.find({state.st_dev, state.st_ino}); known != held.end()) {
        if (auto lock = known->second.lock())
            return lock;
        held.erase(known);
    }
    const int descriptor = opened(path);
    std::shared_ptr<FileLock> lock(new FileLock(descriptor, Alone));
    if (!mark(descriptor, Alone)) {
        lock->m_kind = Shared;
        if (!markWithin(milliseconds, descriptor, Shared))
            throw RuntimeError(Fault::Locked, path);
    }
    held[keyOf(descriptor)] = lock;
    return lock;
}

void FileLock::share()
{
    // The system gives the one mark back before it gives the other; who waits may come in between, and is soon done.
    if (m_kind == Alone && !markWithin(longestWait, m_descriptor, Shared))
        throw RuntimeError(Fault::Locked);
    m_kind = Shared;
}
