#include "Disk.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstring>
#include <optional>

namespace disk {

struct Recorder {
    using Kind = Recording::Kind;

    Recording recording;
    QString folder;

    void add(Recording::Event event) { recording.m_events.push_back(std::move(event)); }

    [[nodiscard]] int fileOf(const QString &name) const { return recording.m_names.value(name, -1); }

    int addFile(const QByteArray &content)
    {
        recording.m_files.push_back({content});
        return static_cast<int>(recording.m_files.size()) - 1;
    }
};

namespace {

constexpr int mostDescriptors = 4096;
constexpr int sector = 512;

struct State {
    QByteArray folder;
    std::array<int, mostDescriptors> watched{};
    bool counting = false;
    int calls = 0;
    std::optional<Failure> failure;
    bool failed = false;
    std::optional<Recorder> recorder;
    /// The name of each file by its number while recording: names change, files don't.
    QMap<QString, int> numbers;
};

State &state()
{
    static State only;
    return only;
}

// What a watched descriptor stands for; a file's number is this much higher.
constexpr int unwatched = 0;
constexpr int aFolder = 1;
constexpr int firstFile = 2;

bool isWatched(const char *path)
{
    const QByteArray &folder = state().folder;
    const auto length = static_cast<size_t>(folder.size());
    return length > 0 && std::strncmp(path, folder.constData(), length) == 0
        && (path[length] == '/' || path[length] == '\0');
}

int &kindOf(int descriptor)
{
    static int none = unwatched;
    none = unwatched;
    return descriptor >= 0 && descriptor < mostDescriptors ? state().watched[static_cast<size_t>(descriptor)] : none;
}

/// Whether a watched call fails now; sets the system's error.
bool fails()
{
    State &now = state();
    if (!now.counting)
        return false;
    const int call = now.calls++;
    if (!now.failure || call < now.failure->call || (call > now.failure->call && !now.failure->forGood))
        return false;
    now.failed = true;
    errno = now.failure->error;
    return true;
}

QString nameOf(const char *path)
{
    return QFile::decodeName(path).mid(QFile::decodeName(state().folder).size()).remove(0, 1);
}

/// A file within a folder of the watched folder is recorded under its path in it.
void recordOpening(const char *path, int flags, int descriptor)
{
    State &now = state();
    if (!now.recorder)
        return;
    const QString name = nameOf(path);
    const bool isNew = !now.numbers.contains(name);
    if (isNew) {
        const int number = now.recorder->addFile({});
        now.numbers.insert(name, number);
        now.recorder->add({Recorder::Kind::Name, number, 0, {}, name, {}});
    }
    const int number = now.numbers.value(name);
    kindOf(descriptor) = firstFile + number;
    if (!isNew && (flags & O_TRUNC) != 0)
        now.recorder->add({Recorder::Kind::Resize, number, 0, {}, {}, {}});
}

void record(int descriptor, Recorder::Kind kind, qint64 offset = 0, const QByteArray &data = {})
{
    State &now = state();
    if (!now.recorder)
        return;
    const int watched = kindOf(descriptor);
    if (watched >= firstFile)
        now.recorder->add({kind, watched - firstFile, offset, data, {}, {}});
    else if (watched == aFolder && kind == Recorder::Kind::Sync)
        now.recorder->add({Recorder::Kind::SyncFolder, 0, 0, {}, {}, {}});
}

void recordMove(const char *from, const char *to)
{
    State &now = state();
    if (!now.recorder)
        return;
    const QString oldName = nameOf(from);
    const QString newName = nameOf(to);
    now.numbers.insert(newName, now.numbers.take(oldName));
    now.recorder->add({Recorder::Kind::Move, 0, 0, {}, oldName, newName});
}

int opened(const char *path, int flags, mode_t mode)
{
    const bool watched = isWatched(path);
    struct stat found = {};
    const bool isDirectory =
        watched && syscall(SYS_newfstatat, AT_FDCWD, path, &found, 0) == 0 && S_ISDIR(found.st_mode);
    const bool writes = (flags & (O_WRONLY | O_RDWR | O_CREAT)) != 0;
    if (watched && writes && fails())
        return -1;
    const int descriptor = static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
    if (descriptor >= 0)
        kindOf(descriptor) = unwatched;
    if (watched && descriptor >= 0) {
        kindOf(descriptor) = isDirectory ? aFolder : firstFile;
        if (writes && !isDirectory)
            recordOpening(path, flags, descriptor);
    }
    return descriptor;
}

int synced(int descriptor, long call)
{
    if (kindOf(descriptor) != unwatched) {
        if (fails())
            return -1;
        record(descriptor, Recorder::Kind::Sync);
        // A recording knows what is on its disk; the machine's own disk need not wait.
        if (state().recorder)
            return 0;
    }
    return static_cast<int>(syscall(call, descriptor));
}

ssize_t writtenAt(int descriptor, const void *bytes, size_t count, off_t offset)
{
    if (kindOf(descriptor) != unwatched) {
        if (fails())
            return -1;
        record(descriptor, Recorder::Kind::Write, offset,
            state().recorder ? QByteArray(static_cast<const char *>(bytes), static_cast<qsizetype>(count))
                             : QByteArray());
    }
    return syscall(SYS_pwrite64, descriptor, bytes, count, offset);
}

int resized(int descriptor, off_t size)
{
    if (kindOf(descriptor) != unwatched) {
        if (fails())
            return -1;
        record(descriptor, Recorder::Kind::Resize, size);
    }
    return static_cast<int>(syscall(SYS_ftruncate, descriptor, size));
}

int moved(const char *from, const char *to, unsigned flags)
{
    const bool watched = isWatched(from);
    if (watched && fails())
        return -1;
    const int answer = static_cast<int>(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, flags));
    if (watched && answer == 0)
        recordMove(from, to);
    return answer;
}

} // namespace

void watch(const QString &folder)
{
    state().folder = QFile::encodeName(folder);
}

void healthy()
{
    State &now = state();
    now.counting = false;
    now.failure.reset();
    now.recorder.reset();
}

void startCounting()
{
    State &now = state();
    now.counting = true;
    now.calls = 0;
    now.failed = false;
    now.failure.reset();
}

int callsCounted()
{
    return state().calls;
}

void fail(const Failure &failure)
{
    startCounting();
    state().failure = failure;
}

bool hasFailed()
{
    return state().failed;
}

void Recording::start(const QString &folder)
{
    watch(folder);
    State &now = state();
    now.recorder.emplace();
    now.numbers.clear();
    for (const QFileInfo &found : QDir(folder).entryInfoList(QDir::Files)) {
        QFile file(found.filePath());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const int number = now.recorder->addFile(file.readAll());
        now.numbers.insert(found.fileName(), number);
        now.recorder->recording.m_names.insert(found.fileName(), number);
    }
}

void Recording::acknowledge()
{
    if (state().recorder)
        state().recorder->add({Kind::Acknowledge, 0, 0, {}, {}, {}});
}

Recording Recording::stop()
{
    Recording recording = std::move(state().recorder->recording);
    healthy();
    return recording;
}

int Recording::cutPower(int moment, const QString &folder, std::mt19937 &random) const
{
    const auto pick = [&random](int choices) { return static_cast<int>(random() % static_cast<unsigned>(choices)); };
    // A file's states since its last sync, the synced one first: any sector of it can be of any of them.
    struct Versions {
        std::vector<QByteArray> states;
    };
    std::vector<Versions> files;
    for (const File &file : m_files)
        files.push_back({{file.synced}});
    QMap<QString, int> names = m_names;
    std::vector<Event> pendingNames;
    const auto apply = [](QMap<QString, int> &to, const Event &event) {
        if (event.kind == Kind::Name)
            to.insert(event.name, event.file);
        else if (event.kind == Kind::Unname)
            to.remove(event.name);
        else if (to.contains(event.name))
            to.insert(event.newName, to.take(event.name));
    };
    int acknowledged = 0;
    for (int i = 0; i < moment; ++i) {
        const Event &event = m_events[static_cast<size_t>(i)];
        // An event that is of no file names the first, where there is one.
        static std::vector<QByteArray> none;
        std::vector<QByteArray> &states = files.empty() ? none : files[static_cast<size_t>(event.file)].states;
        switch (event.kind) {
        case Kind::Write: {
            QByteArray next = states.back();
            if (next.size() < event.offset + event.data.size())
                next.resize(event.offset + event.data.size(), '\0');
            states.push_back(next.replace(event.offset, event.data.size(), event.data));
            break;
        }
        case Kind::Resize: {
            QByteArray next = states.back();
            next.resize(event.offset, '\0');
            states.push_back(next);
            break;
        }
        case Kind::Sync: states = {states.back()}; break;
        case Kind::Name:
        case Kind::Unname:
        case Kind::Move: pendingNames.push_back(event); break;
        case Kind::SyncFolder:
            for (const Event &pending : pendingNames)
                apply(names, pending);
            pendingNames.clear();
            break;
        case Kind::Acknowledge: ++acknowledged; break;
        }
    }
    // Names in their order up to some moment, or any of them.
    const bool inOrder = pick(2) == 0;
    const int kept = pick(static_cast<int>(pendingNames.size()) + 1);
    for (int i = 0; i < static_cast<int>(pendingNames.size()); ++i) {
        if (inOrder ? i < kept : pick(2) == 0)
            apply(names, pendingNames[static_cast<size_t>(i)]);
    }
    for (const auto &[name, number] : names.asKeyValueRange()) {
        const std::vector<QByteArray> &states = files[static_cast<size_t>(number)].states;
        const auto version = [&]() -> const QByteArray & {
            return states[static_cast<size_t>(pick(static_cast<int>(states.size())))];
        };
        QByteArray content(version().size(), '\0');
        const bool whole = pick(3) == 0;
        const QByteArray &chosen = version();
        for (qsizetype at = 0; at < content.size(); at += sector) {
            const QByteArray &from = whole ? chosen : version();
            const qsizetype count = qMin(qsizetype(sector), content.size() - at);
            if (at + count <= from.size())
                content.replace(at, count, from.sliced(at, count));
        }
        QDir().mkpath(QFileInfo(folder + u'/' + name).path());
        QFile file(folder + u'/' + name);
        if (file.open(QIODevice::WriteOnly))
            file.write(content);
    }
    return acknowledged;
}

} // namespace disk

// The system's calls. What is not named here either changes nothing or is not used on files.

extern "C" {

int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return disk::opened(path, flags, mode);
}

int open64(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return disk::opened(path, flags, mode);
}

int close(int descriptor)
{
    disk::kindOf(descriptor) = disk::unwatched;
    return static_cast<int>(syscall(SYS_close, descriptor));
}

ssize_t write(int descriptor, const void *bytes, size_t count)
{
    if (disk::kindOf(descriptor) == disk::unwatched)
        return syscall(SYS_write, descriptor, bytes, count);
    const off_t offset = syscall(SYS_lseek, descriptor, 0, SEEK_CUR);
    const ssize_t written = disk::writtenAt(descriptor, bytes, count, offset);
    if (written > 0)
        syscall(SYS_lseek, descriptor, offset + written, SEEK_SET);
    return written;
}

ssize_t pwrite64(int descriptor, const void *bytes, size_t count, off64_t offset)
{
    return disk::writtenAt(descriptor, bytes, count, offset);
}

int fsync(int descriptor)
{
    return disk::synced(descriptor, SYS_fsync);
}

int fdatasync(int descriptor)
{
    return disk::synced(descriptor, SYS_fdatasync);
}

int ftruncate(int descriptor, off_t size) noexcept
{
    return disk::resized(descriptor, size);
}

int ftruncate64(int descriptor, off64_t size) noexcept
{
    return disk::resized(descriptor, size);
}

int rename(const char *from, const char *to) noexcept
{
    return disk::moved(from, to, 0);
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to, unsigned flags) noexcept
{
    if (fromFolder != AT_FDCWD || toFolder != AT_FDCWD)
        return static_cast<int>(syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags));
    return disk::moved(from, to, flags);
}

int unlink(const char *path) noexcept
{
    const bool watched = disk::isWatched(path);
    if (watched && disk::fails())
        return -1;
    const int answer = static_cast<int>(syscall(SYS_unlinkat, AT_FDCWD, path, 0));
    disk::State &now = disk::state();
    if (watched && answer == 0 && now.recorder) {
        now.numbers.remove(disk::nameOf(path));
        now.recorder->add({disk::Recorder::Kind::Unname, 0, 0, {}, disk::nameOf(path), {}});
    }
    return answer;
}

int mkdir(const char *path, mode_t mode) noexcept
{
    if (disk::isWatched(path) && disk::fails())
        return -1;
    return static_cast<int>(syscall(SYS_mkdirat, AT_FDCWD, path, mode));
}
}
