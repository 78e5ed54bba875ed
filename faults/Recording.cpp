#include "Recording.h"

#include <QDataStream>
#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <algorithm>
#include <array>

namespace faults {

namespace {

constexpr int folderNumber = 0;
constexpr qsizetype sectorSize = 512;

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A file that is written behind its end holds zeros in between.
void put(QByteArray &content, qint64 offset, QByteArrayView bytes)
{
    if (content.size() < offset + bytes.size())
        content.append(offset + bytes.size() - content.size(), '\0');
    std::copy(bytes.begin(), bytes.end(), content.begin() + offset);
}

} // namespace

Recording::Recording(const QString &folder) : m_folder(QFile::encodeName(folder))
{
    QDirIterator found(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (found.hasNext()) {
        const QString path = found.next();
        const QByteArray name = relative(QFile::encodeName(path));
        if (found.fileInfo().isDir()) {
            m_names[name] = folderNumber;
            continue;
        }
        m_names[name] = ++m_lastFile;
        m_firstContents[m_lastFile] = ::faults::contentOf(path);
    }
    m_firstNames = m_names;
}

int Recording::create(const QByteArray &path)
{
    const QByteArray name = relative(path);
    m_names[name] = ++m_lastFile;
    m_events.push_back({Kind::Create, m_lastFile, name, {}, 0, {}});
    return m_lastFile;
}

void Recording::write(int file, qint64 offset, const QByteArray &bytes)
{
    m_events.push_back({Kind::Write, file, {}, {}, offset, bytes});
}

void Recording::truncate(int file, qint64 size)
{
    m_events.push_back({Kind::Truncate, file, {}, {}, size, {}});
}

void Recording::sync(int file)
{
    m_events.push_back({Kind::Sync, file, {}, {}, 0, {}});
}

void Recording::syncFolder(const QByteArray &path)
{
    m_events.push_back({Kind::SyncFolder, folderNumber, relative(path), {}, 0, {}});
}

void Recording::rename(const QByteArray &from, const QByteArray &to)
{
    m_events.push_back({Kind::Rename, folderNumber, relative(from), relative(to), 0, {}});
    apply(m_events.back(), m_names);
}

void Recording::remove(const QByteArray &path)
{
    m_events.push_back({Kind::Remove, folderNumber, relative(path), {}, 0, {}});
    apply(m_events.back(), m_names);
}

void Recording::makeFolder(const QByteArray &path)
{
    m_events.push_back({Kind::MakeFolder, folderNumber, relative(path), {}, 0, {}});
    apply(m_events.back(), m_names);
}

void Recording::mark(const QByteArray &text)
{
    m_events.push_back({Kind::Mark, folderNumber, text, {}, 0, {}});
}

QList<QByteArray> Recording::marksBefore(int count) const
{
    QList<QByteArray> marks;
    for (int i = 0; i < count; ++i) {
        const Event &event = m_events[static_cast<size_t>(i)];
        if (event.kind == Kind::Mark)
            marks += event.path;
    }
    return marks;
}

std::vector<int> Recording::placesBehind(const QByteArray &text) const
{
    std::vector<int> places;
    for (int i = 0; i < size(); ++i) {
        const Event &event = m_events[static_cast<size_t>(i)];
        if (event.kind == Kind::Mark && event.path.startsWith(text))
            places.push_back(i + 1);
    }
    return places;
}

QByteArray Recording::folderOf(const QByteArray &path)
{
    return path.left(std::max<qsizetype>(path.lastIndexOf('/'), 0));
}

/// Which of the first `count` events are on the disk for certain: those that a sync came behind.
std::vector<bool> Recording::settled(int count) const
{
    std::vector<bool> settled(static_cast<size_t>(count));
    QHash<int, bool> filesSynced;
    QHash<QByteArray, bool> foldersSynced;
    for (size_t i = settled.size(); i-- > 0;) {
        const Event &event = m_events[i];
        switch (event.kind) {
        case Kind::Sync: filesSynced[event.file] = true; break;
        case Kind::SyncFolder: foldersSynced[event.path] = true; break;
        case Kind::Write:
        case Kind::Truncate: settled[i] = filesSynced.value(event.file); break;
        case Kind::Rename:
            settled[i] = foldersSynced.value(folderOf(event.path)) && foldersSynced.value(folderOf(event.to));
            break;
        case Kind::Create:
        case Kind::Remove:
        case Kind::MakeFolder: settled[i] = foldersSynced.value(folderOf(event.path)); break;
        case Kind::Mark: break;
        }
    }
    return settled;
}

void Recording::apply(const Event &event, Names &names)
{
    switch (event.kind) {
    case Kind::Create: names[event.path] = event.file; break;
    case Kind::MakeFolder: names[event.path] = folderNumber; break;
    case Kind::Remove: names.remove(event.path); break;
    case Kind::Rename:
        // What lies in a folder goes with it. A name whose making was lost has nothing to give on.
        for (const QByteArray &name : names.keys()) {
            if (name == event.path || name.startsWith(event.path + '/'))
                names[event.to + name.mid(event.path.size())] = names.take(name);
        }
        break;
    default: break;
    }
}

Recording::Names Recording::namesAfter(int count, const std::vector<bool> &settled, Fate fate, Random &random) const
{
    Names names = m_firstNames;
    bool broken = false;
    for (int i = 0; i < count; ++i) {
        const Event &event = m_events[static_cast<size_t>(i)];
        const bool isOfNames = event.kind == Kind::Create || event.kind == Kind::MakeFolder
            || event.kind == Kind::Remove || event.kind == Kind::Rename;
        if (!isOfNames)
            continue;
        const bool certain = settled[static_cast<size_t>(i)];
        const bool lost = random.chance(50);
        broken = broken || (!certain && lost);
        if (certain || fate == Fate::AllKept || (fate == Fate::SomeKept && !lost)
            || (fate == Fate::FirstKept && !broken))
            apply(event, names);
    }
    return names;
}

void Recording::apply(const Event &event, QByteArray &content, bool torn, Random &random)
{
    if (event.kind == Kind::Truncate) {
        const qint64 grown = event.number - content.size();
        content.resize(event.number);
        if (grown > 0)
            std::fill(content.end() - grown, content.end(), '\0');
        return;
    }
    for (qint64 at = event.number; at < event.number + event.bytes.size();) {
        const qint64 end = std::min<qint64>((at / sectorSize + 1) * sectorSize, event.number + event.bytes.size());
        if (!torn || random.chance(50))
            put(content, at, QByteArrayView(event.bytes).sliced(at - event.number, end - at));
        at = end;
    }
}

QByteArray Recording::contentOf(int file, int count, const std::vector<bool> &settled, Fate fate, Random &random) const
{
    QByteArray content = m_firstContents.value(file);
    bool broken = false;
    for (int i = 0; i < count; ++i) {
        const Event &event = m_events[static_cast<size_t>(i)];
        if (event.file != file || (event.kind != Kind::Write && event.kind != Kind::Truncate))
            continue;
        const bool certain = settled[static_cast<size_t>(i)];
        const int dice = random.below(3);
        if (certain || fate == Fate::AllKept || (fate == Fate::FirstKept && !broken && dice > 0))
            apply(event, content, false, random);
        else if (fate == Fate::SomeKept)
            dice == 0 ? void() : apply(event, content, dice == 1, random);
        else if (fate == Fate::FirstKept && !broken)
            apply(event, content, true, random);
        broken = broken || (!certain && dice == 0);
    }
    return content;
}

void Recording::restore(int count, Random &random, const QString &folder) const
{
    const std::vector<bool> certain = settled(count);
    constexpr std::array fates{Fate::AllLost, Fate::AllKept, Fate::FirstKept, Fate::SomeKept};
    const Fate fateOfNames = fates[static_cast<size_t>(random.below(fates.size()))];
    const Fate fateOfContents = fates[static_cast<size_t>(random.below(fates.size()))];
    const Names names = namesAfter(count, certain, fateOfNames, random);
    for (const auto &[name, file] : names.asKeyValueRange()) {
        const QString path = folder + u'/' + QFile::decodeName(name);
        QDir().mkpath(file == folderNumber ? path : QFileInfo(path).path());
        if (file == folderNumber)
            continue;
        QFile made(path);
        if (made.open(QIODevice::WriteOnly))
            made.write(contentOf(file, count, certain, fateOfContents, random));
    }
}

void Recording::save(const QString &path) const
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return;
    QDataStream stream(&file);
    stream << m_folder << m_firstNames << m_firstContents << qint32(size());
    for (const Event &event : m_events)
        stream << event.kind << event.file << event.path << event.to << event.number << event.bytes;
}

Recording Recording::load(const QString &path)
{
    Recording recording;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return recording;
    QDataStream stream(&file);
    qint32 count = 0;
    stream >> recording.m_folder >> recording.m_firstNames >> recording.m_firstContents >> count;
    recording.m_events.resize(static_cast<size_t>(count));
    for (Event &event : recording.m_events)
        stream >> event.kind >> event.file >> event.path >> event.to >> event.number >> event.bytes;
    return recording;
}

} // namespace faults
