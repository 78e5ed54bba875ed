#pragma once

#include "Random.h"

#include <QByteArray>
#include <QHash>
#include <QMap>
#include <QString>

#include <vector>

namespace faults {

/// All that a process did to a folder, in order, with marks between. From it the folder can be made as it may be found
/// when the power goes at any moment: what was not synced by then may be missing, in whole or in part, and in any
/// order.
class Recording {
public:
    Recording() = default;
    /// Begins with the folder as it is, all of which is on the disk.
    explicit Recording(const QString &folder);

    // What `Disk` notes. Paths are as the calls named them; files have numbers, which outlive their names.
    int create(const QByteArray &path);
    [[nodiscard]] int fileAt(const QByteArray &path) const { return m_names.value(relative(path)); }
    void write(int file, qint64 offset, const QByteArray &bytes);
    void truncate(int file, qint64 size);
    void sync(int file);
    void syncFolder(const QByteArray &path);
    void rename(const QByteArray &from, const QByteArray &to);
    void remove(const QByteArray &path);
    void makeFolder(const QByteArray &path);

    /// A word of the process between its calls.
    void mark(const QByteArray &text);

    [[nodiscard]] int size() const { return static_cast<int>(m_events.size()); }
    /// The marks among the first `count` events.
    [[nodiscard]] QList<QByteArray> marksBefore(int count) const;
    /// The numbers of events right behind a mark that begins with `text`.
    [[nodiscard]] std::vector<int> placesBehind(const QByteArray &text) const;

    /// Makes `folder`, which is empty, as it may be found when the power goes after the first `count` events.
    void restore(int count, Random &random, const QString &folder) const;

    void save(const QString &path) const;
    [[nodiscard]] static Recording load(const QString &path);

private:
    enum class Kind : qint32 { Create, Write, Truncate, Sync, SyncFolder, Rename, Remove, MakeFolder, Mark };
    struct Event {
        Kind kind = Kind::Mark;
        qint32 file = 0;
        /// Below the folder. The text of a mark.
        QByteArray path;
        QByteArray to;
        /// Place of a write, size of a truncation.
        qint64 number = 0;
        QByteArray bytes;
    };
    using Names = QMap<QByteArray, int>;
    /// How much of what was not synced is there.
    enum class Fate { AllLost, AllKept, FirstKept, SomeKept };

    [[nodiscard]] QByteArray relative(const QByteArray &path) const { return path.mid(m_folder.size() + 1); }
    [[nodiscard]] static QByteArray folderOf(const QByteArray &path);
    [[nodiscard]] std::vector<bool> settled(int count) const;
    [[nodiscard]] Names namesAfter(int count, const std::vector<bool> &settled, Fate fate, Random &random) const;
    [[nodiscard]] QByteArray contentOf(
        int file, int count, const std::vector<bool> &settled, Fate fate, Random &random) const;
    static void apply(const Event &event, Names &names);
    static void apply(const Event &event, QByteArray &content, bool torn, Random &random);

    QByteArray m_folder;
    /// The files' names now; folders have the number 0.
    Names m_names;
    Names m_firstNames;
    QHash<int, QByteArray> m_firstContents;
    int m_lastFile = 0;
    std::vector<Event> m_events;
};

} // namespace faults
