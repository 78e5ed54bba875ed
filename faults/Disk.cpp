#include "Disk.h"

#include "Recording.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace faults {

namespace {

[[noreturn]] void die()
{
    ::kill(::getpid(), SIGKILL);
    // The signal is on its way.
    for (;;)
        ::pause();
}

} // namespace

Disk &Disk::instance()
{
    static Disk disk;
    return disk;
}

void Disk::watch(const QString &folder)
{
    m_folder = QFile::encodeName(folder);
    m_open.clear();
    m_calls.clear();
    m_failure.reset();
    m_deathCall = 0;
    m_recording = nullptr;
}

void Disk::failAt(const Failure &failure)
{
    m_calls.clear();
    m_failure = failure;
}

void Disk::dieAt(int call, Moment moment)
{
    m_calls.clear();
    m_deathCall = call;
    m_deathMoment = moment;
}

bool Disk::takesSpace(Call call)
{
    switch (call) {
    case Call::Create:
    case Call::Write:
    case Call::Sync:
    case Call::Rename:
    case Call::MakeFolder: return true;
    case Call::Open:
    case Call::Truncate:
    case Call::Remove: return false;
    }
    return false;
}

bool Disk::isBelow(const char *path) const
{
    return !m_folder.isEmpty() && qstrncmp(path, m_folder.constData(), static_cast<size_t>(m_folder.size())) == 0
        && (path[m_folder.size()] == '/' || path[m_folder.size()] == '\0');
}

bool Disk::diesAt(Moment moment) const
{
    return m_deathCall == static_cast<int>(m_calls.size()) && m_deathMoment == moment;
}

int Disk::begin(Call call)
{
    m_calls.push_back(call);
    if (m_deathCall > 0 && diesAt(Moment::Before))
        die();
    if (!m_failure)
        return 0;
    const int number = static_cast<int>(m_calls.size());
    const bool hit = m_failure->forGood ? number >= m_failure->call : number == m_failure->call;
    return hit && (m_failure->error != ENOSPC || takesSpace(call)) ? m_failure->error : 0;
}

void Disk::end()
{
    if (m_deathCall > 0 && (diesAt(Moment::After) || diesAt(Moment::Within)))
        die();
}

template <typename Note>
int Disk::pass(Call call, const std::function<int()> &real, Note note)
{
    if (const int error = begin(call)) {
        errno = error;
        return -1;
    }
    const int answer = real();
    const int error = errno;
    if (answer >= 0)
        note(answer);
    end();
    errno = error;
    return answer;
}

int Disk::open(const char *path, int flags, const std::function<int()> &real)
{
    if (!isBelow(path))
        return real();
    // A file without a name is what not every file system has; who asks for one makes a named one then.
    if ((flags & O_TMPFILE) == O_TMPFILE) {
        errno = EOPNOTSUPP;
        return -1;
    }
    struct stat found = {};
    const bool creates = (flags & O_CREAT) != 0 && ::stat(path, &found) != 0;
    return pass(creates ? Call::Create : Call::Open, real, [&](int descriptor) {
        OpenFile file{path};
        file.isFolder = ::fstat(descriptor, &found) == 0 && S_ISDIR(found.st_mode);
        if (m_recording && !file.isFolder) {
            file.file = creates ? m_recording->create(file.path) : m_recording->fileAt(file.path);
            if ((flags & O_TRUNC) != 0 && !creates)
                m_recording->truncate(file.file, 0);
        }
        m_open.insert(descriptor, file);
    });
}

ssize_t Disk::write(int descriptor, const void *bytes, size_t count, qint64 offset, const Transfer &real)
{
    const auto file = m_open.constFind(descriptor);
    if (file == m_open.cend())
        return real(count);
    const int error = begin(Call::Write);
    const bool cutShort = m_deathCall > 0 && diesAt(Moment::Within);
    ssize_t written = -1;
    if (error == 0 || error == ENOSPC) {
        const size_t part = error == ENOSPC || cutShort ? count / 2 : count;
        written = real(part);
        if (written > 0 && m_recording) {
            const qint64 place = offset >= 0 ? offset : ::lseek(descriptor, 0, SEEK_CUR) - written;
            m_recording->write(file->file, place, QByteArray(static_cast<const char *>(bytes), written));
        }
    }
    const int realError = errno;
    end();
    errno = error == 0 ? realError : error;
    return error == 0 ? written : -1;
}

int Disk::sync(int descriptor, const std::function<int()> &real)
{
    const auto file = m_open.constFind(descriptor);
    if (file == m_open.cend())
        return real();
    return pass(
        Call::Sync, [] { return 0; },
        [&](int) {
            if (!m_recording)
                return;
            if (file->isFolder)
                m_recording->syncFolder(file->path);
            else
                m_recording->sync(file->file);
        });
}

int Disk::truncate(int descriptor, qint64 size, const std::function<int()> &real)
{
    const auto file = m_open.constFind(descriptor);
    if (file == m_open.cend())
        return real();
    return pass(Call::Truncate, real, [&](int) {
        if (m_recording)
            m_recording->truncate(file->file, size);
    });
}

int Disk::rename(const char *from, const char *to, const std::function<int()> &real)
{
    if (!isBelow(from) && !isBelow(to))
        return real();
    return pass(Call::Rename, real, [&](int) {
        if (m_recording)
            m_recording->rename(from, to);
    });
}

int Disk::remove(const char *path, const std::function<int()> &real)
{
    if (!isBelow(path))
        return real();
    return pass(Call::Remove, real, [&](int) {
        if (m_recording)
            m_recording->remove(path);
    });
}

int Disk::makeFolder(const char *path, const std::function<int()> &real)
{
    if (!isBelow(path))
        return real();
    return pass(Call::MakeFolder, real, [&](int) {
        if (m_recording)
            m_recording->makeFolder(path);
    });
}

} // namespace faults
