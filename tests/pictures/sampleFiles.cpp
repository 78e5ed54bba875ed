#include "sampleFiles.h"

#include "support/fileContent.h"

#include <QBuffer>
#include <QPainter>
#include <QtEndian>

QImage sampleFiles::halves(const QSize &size)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    QPainter(&picture).fillRect(0, 0, size.width() / 2, size.height(), Qt::red);
    return picture;
}

void sampleFiles::writePhoto(const QString &path, const QSize &size, int orientation)
{
    QByteArray content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::WriteOnly);
    halves(size).save(&buffer, "JPG", 95);
    QByteArray note("\xff\xe1\x00\x22"
                    "Exif\0\0"
                    "II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0\x01\0\0\0\0\0\0\0",
        36);
    note[28] = static_cast<char>(orientation);
    content.insert(2, note);
    writeContent(path, content);
}

void sampleFiles::writeHeader(const QString &path, const QByteArray &kind, const QSize &size)
{
    QByteArray content(54, '\0');
    if (kind == "GIF") {
        content.replace(0, 6, "GIF89a");
        // Then comes its first picture.
        content[13] = ',';
        for (const int place : {6, 18}) {
            qToLittleEndian(static_cast<quint16>(size.width()), content.data() + place);
            qToLittleEndian(static_cast<quint16>(size.height()), content.data() + place + 2);
        }
    } else {
        content.replace(0, 2, "BM");
        qToLittleEndian<qint32>(54, content.data() + 10);
        qToLittleEndian<qint32>(40, content.data() + 14);
        qToLittleEndian<qint32>(size.width(), content.data() + 18);
        qToLittleEndian<qint32>(size.height(), content.data() + 22);
        qToLittleEndian<qint16>(1, content.data() + 26);
        qToLittleEndian<qint16>(24, content.data() + 28);
    }
    writeContent(path, content);
}
