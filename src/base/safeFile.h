#pragma once

#include "base/FileLock.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

/// Files that are there whole or not at all, whatever stops the program or the machine in between.
///
/// Each failure is a RuntimeError with the system's own words: DiskFull, Locked where another program makes the same
/// file at this moment, else FileFault. What stood at the path before is then as it was (`Written::Nothing`); only
/// where the new name itself cannot be brought to the disk is it one or the other (`Written::AllOrNothing`).
namespace safeFile {

/// What the process makes from now on is its owner's alone, whatever the system says elsewhere: files 0600, folders
/// 0700.
void keepToOwner();

/// Makes a folder, 0700, and the folders above it. False where that cannot be done.
[[nodiscard]] bool makeFolder(const QString &path);

/// Puts a file with that content at `path`, in place of the one that may stand there. On the disk when it returns.
void writeWhole(const QString &path, const QByteArray &content);

/// Copies a file to `to`, where nothing may stand yet. On the disk when it returns.
void copyWhole(const QString &from, const QString &to);

/// Removes the unfinished file of that path that a stopped program left behind; one that a program is making stays.
void removeLeftBehind(const QString &path);

/// Has the names in a folder, and what was moved in it, on the disk.
void syncFolder(const QString &folder);

} // namespace safeFile

/// A file in the making: `path` + ".new", 0600, this process's alone. It gets its own name when it is finished, and is
/// removed when it is not. One that a stopped program left behind is emptied and taken over.
class UnfinishedFile {
public:
    /// Throws as all of `safeFile`.
    explicit UnfinishedFile(const QString &path);
    ~UnfinishedFile();
    UnfinishedFile(const UnfinishedFile &) = delete;
    UnfinishedFile &operator=(const UnfinishedFile &) = delete;

    /// Where it stands until it is finished.
    [[nodiscard]] const QString &name() const { return m_name; }

    void write(QByteArrayView bytes);
    /// Has what was written on the disk, for whoever reads it again before it gets its name.
    void sync();

    /// Syncs it and gives it its name, in place of a file that has it. Database companions of that name, which the
    /// engine would take for the file's own and roll into it, are put aside first. REQUIRES: a database that has the
    /// name is marked `FileLock::Alone`, and was opened since it was last written, so that none of them is its own.
    void replace();
    /// The same where nothing may have the name; a file that has it keeps its companions.
    void place();

private:
    void makeReady();
    void settle();

    QString m_path;
    QString m_name;
    std::unique_ptr<FileLock> m_lock;
    bool m_finished = false;
};
