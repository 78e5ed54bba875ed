#pragma once

#include <QDate>
#include <QList>
#include <QString>

#include <atomic>

/// Copies of the shop's file that the program makes by itself, one a day, in the folder "copies" beside the file:
/// "data15-20260601.mdb". Each is a shop's file as it stands.
namespace safetyCopy {

/// Where the copy of that day stands or will stand.
[[nodiscard]] QString pathOf(const QString &database, QDate day);

/// Whether a file of that path is a copy as the program makes them, which is taken away when its time has come.
[[nodiscard]] bool isCopy(const QString &path);

/// Which of the days that have a copy keep it: the last seven, and the last of each of the last twelve months that have
/// one.
[[nodiscard]] QList<QDate> kept(QList<QDate> days);

/// Makes the copy of that day from `content`, the file at rest, and takes those away that are not kept any more; days
/// that are still to come stay and are not counted. On a disk that is nearly full none is made. It gets its name only
/// after it was brought to the disk, read from there, compared, and each of its pages was found to be sound. May run in
/// another thread, which `stop` ends soon, without a copy. Throws RuntimeError; the earlier copies are then as they
/// were.
void make(const QByteArray &content, const QString &database, QDate day, const std::atomic_bool &stop);

} // namespace safetyCopy
