#pragma once

#include <QString>

/// Prints the picture file `path` on the default printer at once, 100 twips from the paper's left and upper edge: as
/// large as on a screen of 96 points an inch, or as the paper allows. What fails is told in a plain box with the
/// system's words.
void printPicture(const QString &path);
