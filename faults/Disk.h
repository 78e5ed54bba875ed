#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

#include <random>
#include <vector>

/// Stands between the process and the system's file calls. The engine's, Qt's and our own calls all pass here; those
/// that touch the watched folder are counted, made to fail, or recorded. Everything is in force for one process only.
namespace disk {

/// Watches what lies in `folder`, and lets every call through.
void watch(const QString &folder);
/// Lets every call through again and stops counting and recording.
void healthy();

/// Counts calls from now on, from 0.
void startCounting();
[[nodiscard]] int callsCounted();

struct Failure {
    int call = 0;
    /// The system's error: ENOSPC, EIO.
    int error = 0;
    /// All calls from that one on, and not it alone.
    bool forGood = false;
};
/// Counts from now on and lets one call fail without doing anything.
void fail(const Failure &failure);
/// Whether that call was met.
[[nodiscard]] bool hasFailed();

/// A folder as it was, with what was done in it since.
class Recording {
public:
    /// Begins to record; the files in `folder` as they are now count as being on the disk.
    static void start(const QString &folder);
    /// Notes that the user was told of one more thing that was done.
    static void acknowledge();
    /// Ends recording and gives what there is.
    static Recording stop();

    [[nodiscard]] int moments() const { return static_cast<int>(m_events.size()); }
    /// Makes of `folder`, empty until now, what a power cut before the event `moment` can leave: what was not synced is
    /// there, or not, or half, by `random`. Gives the number of things acknowledged by then.
    int cutPower(int moment, const QString &folder, std::mt19937 &random) const;

private:
    friend struct Recorder;
    enum class Kind { Write, Resize, Sync, Name, Unname, Move, SyncFolder, Acknowledge };
    struct Event {
        Kind kind;
        int file = 0;
        qint64 offset = 0;
        QByteArray data;
        QString name;
        QString newName;
    };
    struct File {
        QByteArray synced;
    };

    std::vector<File> m_files;
    QMap<QString, int> m_names;
    std::vector<Event> m_events;
};

} // namespace disk
