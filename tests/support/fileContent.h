#pragma once

#include <QByteArray>
#include <QString>

/// All bytes of a file; "nothing" where there is none.
[[nodiscard]] QByteArray contentOf(const QString &path);
/// Puts a file with these bytes there; a test that can't ends.
void writeContent(const QString &path, const QByteArray &content);
