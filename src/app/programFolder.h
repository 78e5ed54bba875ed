#pragma once

#include <QString>

/// The folder that the program keeps its files in, in full: the one asked for, by `option` or else by the environment's
/// CORVANE_FOLDER; else the program's own; else, where that may not be written, "corvane" in the user's data folder.
[[nodiscard]] QString chooseProgramFolder(const QString &option, const QString &ownFolder);

/// Makes the folder where it is missing, and puts the demo database delivered in `ownFolder` there unless it holds one.
/// What cannot be made is left out; start-up tells of a folder that is of no use.
void prepareProgramFolder(const QString &folder, const QString &ownFolder);
