#pragma once

#include <QString>

#include <memory>

/// A mark on an open file that other programs of ours see: they share it, or one has the file alone. It does not keep
/// anybody from reading or writing; it tells who replaces or repairs the file that somebody is at work in it.
///
/// The mark is the system's (`flock`): no companion file, and gone when the process ends, however it ends. A file
/// system that knows no such marks gives every one.
class FileLock {
public:
    enum Kind { Shared, Alone };

    /// Marks the existing file `path`, waiting up to `milliseconds` for others. Throws RuntimeError: Locked when they
    /// are still there, CannotOpen where the file cannot be read.
    FileLock(const QString &path, Kind kind, int milliseconds = 0);
    ~FileLock();
    FileLock(const FileLock &) = delete;
    FileLock &operator=(const FileLock &) = delete;

    /// The process's shared mark on `path`. However many ask for it, there is one descriptor: closing any descriptor of
    /// a file drops the locks that the process's database engine has on that file. Waits and throws as the constructor.
    [[nodiscard]] static std::shared_ptr<FileLock> shared(const QString &path, int milliseconds);

    /// Whether the process was the only one with the file when it asked for its shared mark, and still has it alone.
    [[nodiscard]] bool isAlone() const { return m_kind == Alone; }
    /// Lets others in. Without effect on a shared mark. Throws Locked where another has taken the file alone at that
    /// moment, and keeps it.
    void share();

private:
    FileLock(int descriptor, Kind kind) : m_descriptor(descriptor), m_kind(kind) { }
    friend class UnfinishedFile;

    int m_descriptor;
    Kind m_kind;
};
