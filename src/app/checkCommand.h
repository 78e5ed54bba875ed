#pragma once

#include <QString>

class QTextStream;

/// `corvane --check`: looks at the shop file at `path` or, where that is empty, at the one that the configuration in
/// `folder` names, and writes what it finds. Changes nothing and makes nothing.
/// 0 where the file is whole, 1 where something in it does not agree, 2 where it cannot be read.
[[nodiscard]] int checkFile(const QString &path, const QString &folder, QTextStream &out);
