#include "pictures/pictureFile.h"

#include "base/RuntimeError.h"
#include "base/safeFile.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 bytesOfAPoint = 4;
constexpr qint64 bytesInMegabyte = 1 << 20;
constexpr int mostMegabytes = 1024;
/// A decoder that scales leaves out so many points in a row and in a column.
constexpr qint64 mostLeftOut = 8;

QString problemOf(const QString &path)
{
    const QFileInfo file(path);
    if (!file.exists())
        return u"It is no longer there"_s;
    if (file.isDir())
        return u"It is a folder"_s;
    // To open a pipe would be to wait for whoever writes into it.
    if (!file.isFile())
        return u"It is no file"_s;
    return file.size() == 0 ? u"The file is empty"_s : QString();
}

void prepare(QImageReader &reader)
{
    // The pictures of today's cameras are larger than what the library takes for a picture otherwise.
    [[maybe_unused]] static const bool isRaised = [] {
        QImageReader::setAllocationLimit(mostMegabytes);
        return true;
    }();
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
}

/// What lies on its side is turned after it was read.
bool isTurned(const QImageReader &reader)
{
    return reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
}

/// Whether the library would refuse it, which it does with a warning only.
bool isTooLarge(const QImageReader &reader, const QSize &whole, bool isScaled)
{
    qint64 bytes = bytesOfAPoint * whole.width() * whole.height();
    if (isScaled && reader.supportsOption(QImageIOHandler::ScaledSize))
        bytes /= mostLeftOut * mostLeftOut;
    return bytes > QImageReader::allocationLimit() * bytesInMegabyte;
}

} // namespace

pictureFile::Read pictureFile::read(const QString &path, const QSize &room)
{
    if (const QString problem = problemOf(path); !problem.isEmpty())
        return {{}, problem};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {{}, file.errorString()};
    QImageReader reader(&file);
    prepare(reader);
    if (!reader.canRead())
        return {{}, u"It is no picture of a known kind"_s};
    const QSize whole = reader.size();
    const QSize fitting = whole.scaled(isTurned(reader) ? room.transposed() : room, Qt::KeepAspectRatio);
    const bool isScaled = room.isValid() && whole.isValid() && fitting.width() < whole.width();
    if (isTooLarge(reader, whole, isScaled))
        return {{}, u"It is too large: %1 x %2 points"_s.arg(whole.width()).arg(whole.height())};
    if (isScaled)
        reader.setScaledSize(fitting.expandedTo({1, 1}));
    const QImage picture = reader.read();
    if (picture.isNull())
        return {{}, whole.isValid() ? u"The picture is damaged"_s : u"It is damaged, or too large"_s};
    return {picture, {}};
}

QSize pictureFile::sizeOf(const QString &path)
{
    if (!problemOf(path).isEmpty())
        return {};
    QImageReader reader(path);
    prepare(reader);
    return isTurned(reader) ? reader.size().transposed() : reader.size();
}

QImage pictureFile::thumbnail(const QString &path, int side)
{
    const QImage picture = read(path, {side, side}).picture;
    if (picture.isNull())
        throw RuntimeError(Fault::Picture, u"Error loading picture "_s + QFileInfo(path).fileName(), u"GDI+ Module"_s);
    QImage square(side, side, QImage::Format_RGB32);
    square.fill(Qt::white);
    QPainter painter(&square);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    QRect place(QPoint(), picture.size().scaled(side, side, Qt::KeepAspectRatio).expandedTo({1, 1}));
    place.moveCenter(square.rect().center());
    painter.drawImage(place, picture);
    return square;
}

void pictureFile::save(const QImage &picture, const QString &path)
{
    QByteArray bitmap;
    QBuffer buffer(&bitmap);
    buffer.open(QIODevice::WriteOnly);
    if (!picture.convertToFormat(QImage::Format_RGB32).save(&buffer, "BMP"))
        throw RuntimeError(Fault::Picture, u"The picture can't be kept: there is none, or no memory for it."_s,
            QFileInfo(path).fileName(), Written::Nothing);
    // Where it can't be made, neither can the file, and that is told.
    static_cast<void>(safeFile::makeFolder(QFileInfo(path).absolutePath()));
    safeFile::writeWhole(path, bitmap);
}
