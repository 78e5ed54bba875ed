#pragma once

#include <QDate>
#include <QString>

/// What the one session of the process knows. Everybody may read these; each names who writes it.
namespace session {

/// The version that a new database gets and that an opened one must have; the default file's name is taken from it too.
inline constexpr int SupportedDatabaseVersion = 15;

/// Full path of the shop's database file. Written by start-up, the database choice, the settings screen
/// and a restore.
extern QString DBPath;

/// The working date: default date of new documents, and what every status mark stamps. Not the machine's date.
/// Written by start-up and by the date field of the main screen.
extern QDate CurrentDate;

/// Copy of the shop's row, for printed matter. Written by the main screen each time it comes to the front.
extern QString ShopName;
extern QString ShopAddress1;
extern QString ShopAddress2;
extern QString ShopAddress3;
extern QString ShopContacts;

/// Set by editors after a change, and by screens that see another program's; lists and registers rebuild themselves
/// when they come to the front with it set. The registers clear it, the master lists leave it.
extern bool NeedRefresh;

/// The folder that holds the configuration, the databases and the images. Set once, before start-up.
extern QString ProgramFolder;

/// Path of a file or folder under `ProgramFolder`, with the platform's separators.
[[nodiscard]] QString programPath(QStringView name);

/// The file that a shop has unless it chose another: "data15.mdb" under `ProgramFolder`.
[[nodiscard]] QString defaultDatabasePath();
/// Whether `path` means that file, however it is written. It may not exist yet.
[[nodiscard]] bool isDefaultDatabase(const QString &path);

} // namespace session
