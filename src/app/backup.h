#pragma once

#include "app/gzip.h"
#include "store/fileCheck.h"

#include <QDateTime>
#include <QString>

/// The shop's file, packed into a folder of the user's choice, and back again. A folder has room for one backup.
///
/// A failure is a RuntimeError with the path and with words for the user. The shop in use and the backup that stood
/// there are then as they were, where nothing else is told.
namespace backup {

/// Packs `content`, a shop's file at rest (`Connection::content`), into `folder` as "CVbackup.gz", in place of the
/// backups that stand there, under the name of the one that `find` gives. It gets its name only after it was brought to
/// the disk, read from there, unpacked, and found to hold the same bytes, and after each page of these was found to be
/// sound: throws Damaged where one is not. False where `at` broke off.
[[nodiscard]] bool make(const QByteArray &content, const QString &folder, const gzip::At &at);

/// The backup in `folder`: the file "CVbackup.gz", its name in letters of any case. Of several the one that was written
/// last. Empty where there is none.
[[nodiscard]] QString find(const QString &folder);

/// Unpacks a backup for a moment and looks into it, all but its pages. May run in another thread, which `stop` ends
/// soon. Never throws: what keeps it from being restored is the answer's `failure`, what keeps only this
/// look from being done its `obstacle`.
[[nodiscard]] fileCheck::Holding look(const QString &backup, const std::atomic_bool &stop);

/// What became of a restore.
struct Restored {
    /// Broken off by `at`: everything is as it was, and the shop is still open.
    bool isBrokenOff = false;
    /// Where the default file that stood there before is kept; empty where there was none.
    QString keptAs = {};
};
/// Puts what a backup holds in the place of the default file.
///
/// It is unpacked beside that place and checked first, as `fileCheck` does; one that cannot be read as a whole is
/// refused, and so is one whose tables are those of another version. Only then is the session's file closed, the file
/// that has the place copied to another name with the moment in it, and the new one given the place; at no moment is
/// there neither of the two. A shop whose rows disagree is restored: it was so when it was backed up. Where the session
/// works on another file, that one stays as it is, and the session and its configuration go over to the default file.
///
/// REQUIRES: no group is open. The session's file is closed afterwards, and may be after a failure: open it again.
/// Throws Locked where another program has the default file open.
[[nodiscard]] Restored restore(const QString &backup, const gzip::At &at);

/// When the session's file was last backed up by this user and found good; none where it never was. Told by the user's
/// own values, so that it is known while the folder is away.
[[nodiscard]] QDateTime lastGood();
void noteGood(const QDateTime &moment);
/// Whether the last good backup that is known is older than a week or still to come, or none is known.
[[nodiscard]] bool isDue();

} // namespace backup
