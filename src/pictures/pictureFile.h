#pragma once

#include <QImage>
#include <QString>

/// The files of pictures. Reading never throws and takes whatever stands at a path; it may be done on any thread.
namespace pictureFile {

/// `problem` tells in the user's words why there is no picture; empty where there is one.
struct Read {
    QImage picture;
    QString problem;
};

/// The picture, the way up that its camera noted, scaled down to `room` where it is larger, in its proportions; with no
/// room the whole of it. Of several pictures in one file it is the first. What the file is its content tells, whatever
/// its name says.
[[nodiscard]] Read read(const QString &path, const QSize &room = {});

/// The size that the picture has the way up that its camera noted; an invalid one where it can't be told.
[[nodiscard]] QSize sizeOf(const QString &path);

/// A square of `side` points with the whole picture in its middle, on white. Throws RuntimeError (Picture).
[[nodiscard]] QImage thumbnail(const QString &path, int side);

/// Puts the picture there as a bitmap, in place of a file that has the path, whole or not at all; a folder that is
/// missing is made. Throws as `safeFile`, and RuntimeError (Picture) where there is no picture to put.
void save(const QImage &picture, const QString &path);

} // namespace pictureFile
