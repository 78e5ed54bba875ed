#pragma once

#include <QByteArray>
#include <QString>

/// The text in the single-byte code page of Western Windows, for files whose readers know no other. A character that
/// the page lacks becomes "?". Its five empty places stand for the control characters of their numbers, so that what
/// was read from the page goes back into it unchanged.
[[nodiscard]] QByteArray windows1252(QStringView text);
