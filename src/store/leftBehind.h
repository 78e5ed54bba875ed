#pragma once

#include <QString>

/// What a stopped program, or a copying hand, has left beside a database file. The engine takes whatever has the name
/// of the file's journal for its own and rolls it back into the file before the first read; a journal that belongs to
/// another file, or to an older state of this one, spoils it that way.
namespace leftBehind {

/// Whether the engine would roll something into the file at the next opening.
/// REQUIRES: nobody writes to the file at this moment.
[[nodiscard]] bool isHot(const QString &path);

/// Copies the file and what lies beside it, byte for byte, to a new folder next to it, and gives the folder's path. On
/// the disk when it returns. A write-ahead log, which no program of ours makes, is taken away from the file.
/// Throws RuntimeError (DiskFull, FileFault); the file and its journal are then as they were.
[[nodiscard]] QString keepAside(const QString &path);

/// Whether a journal lies there that says nothing.
[[nodiscard]] bool hasColdJournal(const QString &path);
void removeColdJournal(const QString &path);

} // namespace leftBehind
