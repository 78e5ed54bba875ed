#pragma once

#include <QString>

#include <utility>
#include <vector>

/// Makes `Lang.mdb` in `folder`, with English texts and what they are in Hindi.
void writeLanguageFile(const QString &folder, const std::vector<std::pair<QString, QString>> &messages);
