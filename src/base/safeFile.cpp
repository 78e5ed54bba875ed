#include "base/safeFile.h"

#include "base/RuntimeError.h"
#include "base/clock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr mode_t ownerOnlyFile = 0600;
constexpr mode_t ownerOnlyFolder = 0700;

QString aftermath(Written written)
{
    return written == Written::Nothing
        ? u"\n\nNothing of this file was written. When the cause is mended, it can be made again."_s
        : u"\n\nIt is not known whether this file was written. Look before you make it again."_s;
}

/// Tells what the system says in `errno`.
[[noreturn]] void fail(const QString &what, const QString &path, Written written = Written::Nothing)
{
    const int code = errno;
    const QString cause = what.arg(qt_error_string(code));
    throw RuntimeError(code == ENOSPC || code == EDQUOT ? Fault::DiskFull : Fault::FileFault,
        (code == EIO ? u"The disk failed. "_s + cause : cause) + aftermath(written), path, written);
}

QByteArray encoded(const QString &path)
{
    return QFile::encodeName(path);
}

/// The mark may be on a file that its maker has given its own name by now.
bool stillStandsAt(const QString &path, int descriptor)
{
    struct stat named = {};
    struct stat open = {};
    return stat(encoded(path).constData(), &named) == 0 && fstat(descriptor, &open) == 0 && named.st_dev == open.st_dev
        && named.st_ino == open.st_ino;
}

/// One that was left behind has the rights that it was left with. The file system of a memory stick knows no rights,
/// and says so only to the owner.
bool isOwnerOnly(int descriptor)
{
    if (fchmod(descriptor, ownerOnlyFile) == 0)
        return true;
    const int code = errno;
    struct stat state = {};
    const bool isOwn = fstat(descriptor, &state) == 0 && state.st_uid == geteuid();
    errno = code;
    return isOwn && (code == EPERM || code == EOPNOTSUPP || code == ENOSYS);
}

/// On the disk before the file gets its name: after a power cut it must not lie beside what is not its own.
void putCompanionsAside(const QString &path)
{
    bool moved = false;
    const QString mark = machineClock::now().toString(u"'.aside-'yyyyMMdd-HHmmss"_s);
    for (const QString &suffix : {u"-journal"_s, u"-wal"_s, u"-shm"_s}) {
        const QString companion = path + suffix;
        if (!QFileInfo::exists(companion))
            continue;
        if (rename(encoded(companion).constData(), encoded(companion + mark).constData()) != 0)
            fail(u"A journal that is not the file's own cannot be put aside: %1."_s, companion);
        moved = true;
    }
    if (moved)
        safeFile::syncFolder(QFileInfo(path).absolutePath());
}

} // namespace

void safeFile::keepToOwner()
{
    umask(S_IRWXG | S_IRWXO);
}

bool safeFile::makeFolder(const QString &path)
{
    const QString folder = QDir::cleanPath(path);
    if (QFileInfo(folder).isDir())
        return true;
    const QString above = QFileInfo(folder).path();
    return above != folder && makeFolder(above) && mkdir(encoded(folder).constData(), ownerOnlyFolder) == 0;
}

void safeFile::writeWhole(const QString &path, const QByteArray &content)
{
    UnfinishedFile file(path);
    file.write(content);
    file.replace();
}

void safeFile::copyWhole(const QString &from, const QString &to)
{
    QFile source(from);
    const auto refuse = [&source, &from] {
        throw RuntimeError(Fault::FileFault,
            u"The file cannot be copied, since it cannot be read: %1."_s.arg(source.errorString())
                + aftermath(Written::Nothing),
            from, Written::Nothing);
    };
    if (!source.open(QIODevice::ReadOnly))
        refuse();
    UnfinishedFile copy(to);
    constexpr qint64 pieceSize = 1 << 20;
    while (!source.atEnd()) {
        const QByteArray piece = source.read(pieceSize);
        if (piece.isEmpty())
            refuse();
        copy.write(piece);
    }
    copy.place();
}

void safeFile::removeLeftBehind(const QString &path)
{
    const QString name = path + u".new"_s;
    const int descriptor = open(encoded(name).constData(), O_RDWR | O_NOFOLLOW | O_CLOEXEC);
    if (descriptor < 0)
        return;
    if (flock(descriptor, LOCK_EX | LOCK_NB) == 0 && stillStandsAt(name, descriptor))
        QFile::remove(name);
    close(descriptor);
}

void safeFile::syncFolder(const QString &folder)
{
    const int descriptor = open(encoded(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        fail(u"The folder cannot be opened: %1."_s, folder, Written::AllOrNothing);
    const int answer = fsync(descriptor);
    const int code = errno;
    close(descriptor);
    // Some file systems keep no folders of their own to sync.
    errno = code;
    if (answer != 0 && code != EINVAL)
        fail(u"The name of a file cannot be kept: %1."_s, folder, Written::AllOrNothing);
}

UnfinishedFile::UnfinishedFile(const QString &path) : m_path(path), m_name(path + u".new"_s)
{
    do {
        const int descriptor =
            open(encoded(m_name).constData(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, ownerOnlyFile);
        if (descriptor < 0)
            fail(u"The file cannot be made: %1."_s, m_path);
        m_lock.reset(new FileLock(descriptor, FileLock::Alone));
        if (flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
            throw RuntimeError(Fault::Locked, m_path, Written::Nothing);
    } while (!stillStandsAt(m_name, m_lock->m_descriptor));
    if (!isOwnerOnly(m_lock->m_descriptor) || ftruncate(m_lock->m_descriptor, 0) != 0)
        fail(u"The file cannot be made: %1."_s, m_path);
    QFile::remove(m_name + u"-journal"_s);
}

UnfinishedFile::~UnfinishedFile()
{
    if (m_finished)
        return;
    QFile::remove(m_name);
    QFile::remove(m_name + u"-journal"_s);
}

void UnfinishedFile::write(QByteArrayView bytes)
{
    for (qsizetype written = 0; written < bytes.size();) {
        const ssize_t count =
            ::write(m_lock->m_descriptor, bytes.data() + written, static_cast<size_t>(bytes.size() - written));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            fail(u"The file cannot be written: %1."_s, m_path);
        written += count;
    }
}

void UnfinishedFile::sync()
{
    if (fsync(m_lock->m_descriptor) != 0)
        fail(u"The file cannot be written: %1."_s, m_path);
}

void UnfinishedFile::makeReady()
{
    sync();
    putCompanionsAside(m_path);
}

void UnfinishedFile::settle()
{
    m_finished = true;
    safeFile::syncFolder(QFileInfo(m_path).absolutePath());
}

void UnfinishedFile::replace()
{
    makeReady();
    if (rename(encoded(m_name).constData(), encoded(m_path).constData()) != 0)
        fail(u"The file cannot be given its name: %1."_s, m_path);
    settle();
}

void UnfinishedFile::place()
{
    // Before a companion is touched, which is then that file's own.
    if (QFileInfo::exists(m_path)) {
        errno = EEXIST;
        fail(u"The file cannot be given its name: %1."_s, m_path);
    }
    makeReady();
    const QByteArray made = encoded(m_name);
    const QByteArray place = encoded(m_path);
    int answer = renameat2(AT_FDCWD, made.constData(), AT_FDCWD, place.constData(), RENAME_NOREPLACE);
    // A file system that cannot refuse by itself was asked above.
    if (answer != 0 && (errno == EINVAL || errno == ENOSYS))
        answer = rename(made.constData(), place.constData());
    if (answer != 0)
        fail(u"The file cannot be given its name: %1."_s, m_path);
    settle();
}
