#pragma once

#include <QString>

#include <functional>

/// What the desktop does for the program.
namespace shell {

/// Opens a file with the program that the desktop has for its kind. A file that is not there or has none opens nothing.
void openFile(const QString &path);

/// Tests put their own opener in; an empty function brings the desktop's back.
void replaceOpener(std::function<void(const QString &)> replacement);

} // namespace shell
