#pragma once

#include <QImage>
#include <QString>

/// Picture files of all kinds, good and bad.
namespace sampleFiles {

/// Its left half is red and its right half blue.
[[nodiscard]] QImage halves(const QSize &size);
/// A JPEG of `halves` whose camera noted that it was held so: 1 upright, 6 with its left edge up.
void writePhoto(const QString &path, const QSize &size, int orientation = 1);
/// The beginning of a picture of that kind, "BMP" or "GIF", that says to be that large.
void writeHeader(const QString &path, const QByteArray &kind, const QSize &size);

} // namespace sampleFiles
