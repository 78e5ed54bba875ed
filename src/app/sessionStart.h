#pragma once

#include <QString>

/// From the configuration file to the open database of the session.
///
/// The configuration file, "cv.ini" in `ProgramFolder`, names the database in its last line, "DBPATH=" and the path.
/// Earlier lines have no effect.

/// Sets `session::DBPath` from the configuration, which is made where there is none.
void findDatabase();
/// Makes a missing database, opens it, and gives the session its working date.
void bringUpDatabase();
/// Both, for a change of the database in use.
void RestartSession();
/// The same under a screen that stays: what it throws is told, and a database is open afterwards, unless it throws
/// again.
void RestartUnderScreen();

/// Offers the choice of a database. One that is made is kept in the configuration, and the session restarted; else the
/// session goes on as it is. True where one was made.
bool offerDatabases();

/// Sets `session::DBPath`; to the default path where the file gives none or "NONE". A path ends at its first "=".
/// Throws RuntimeError: FileFault when the file cannot be read, SubscriptOutOfRange when its last line names no path.
void ReadConfig();
/// Write the file anew, with the default path and with `session::DBPath`. On a failure the file is as it was, and
/// RuntimeError (FileFault) is thrown.
void WriteDefaultConfig();
void WriteConfig();

/// Whether this user never chose a database.
[[nodiscard]] bool IsFirstRun();
/// Remembers for good that this user chose one.
void endFirstRun();

/// Opens `session::DBPath` in a new data environment. A file that cannot be opened is shown with the reason, the choice
/// of database is offered and the session restarted, again and again until a database is open.
void OpenDatabase();

/// An existing folder, or one that cannot be made, is no failure.
void MakeImagesFolder();

/// Leaves a database of any other version alone, tells the user, and goes on with a new file at the default path. Where
/// a file stands there already, the session keeps the database that it has.
void CheckDatabaseVersion();

/// The working date: the one used last, or the machine's date where the shop wants that; one before the year 2000 only
/// when the user wants it, too.
/// Throws RuntimeError (TypeMismatch) when the stored date is none.
void InitCurrentDate();
