#pragma once

#include <QByteArray>
#include <QString>

#include <utility>
#include <vector>

/// All bytes of a file; "nothing" where there is none.
[[nodiscard]] QByteArray contentOf(const QString &path);
/// Puts a file with these bytes there; a test that can't ends.
void writeContent(const QString &path, const QByteArray &content);
/// Makes `Lang.mdb` in `folder`, with English texts and what they are in Hindi.
void writeLanguageFile(const QString &folder, const std::vector<std::pair<QString, QString>> &messages);
