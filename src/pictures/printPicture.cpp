#include "pictures/printPicture.h"

#include "devices/printer.h"
#include "ui/platformBox.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr double twipsPerInch = 1440;
constexpr int fromEdge = 100;
constexpr int twipsPerPixel = 15;

printer::Outcome draw(QPagedPaintDevice &device, const QImage &picture)
{
    QPainter painter;
    if (!painter.begin(&device))
        return printer::Outcome::Failed;
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const double scale = device.logicalDpiX() / twipsPerInch;
    painter.scale(scale, scale);
    const QSizeF room = QSizeF(device.width(), device.height()) / scale - 2 * QSizeF(fromEdge, fromEdge);
    QSizeF size = QSizeF(picture.size()) * twipsPerPixel;
    if (size.width() > room.width() || size.height() > room.height())
        size.scale(room, Qt::KeepAspectRatio);
    painter.drawImage(QRectF({fromEdge, fromEdge}, size), picture);
    return painter.end() ? printer::Outcome::Printed : printer::Outcome::Failed;
}

} // namespace

void printPicture(const QString &path)
{
    if (path.isEmpty())
        return platformBox::show(u"There is no picture"_s);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return platformBox::show(file.errorString());
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QImage picture = reader.read();
    if (picture.isNull())
        return platformBox::show(reader.errorString());

    QPageLayout layout(QPageSize(QPageSize::A4), QPageLayout::Portrait, {});
    layout.setMode(QPageLayout::FullPageMode);
    const printer::Outcome outcome = printer::print({QFileInfo(path).fileName(), 1, layout,
        [&picture](QPagedPaintDevice &device, int, int) { return draw(device, picture); }});
    if (outcome == printer::Outcome::NoPrinter)
        platformBox::show(u"No printer is set up on this computer"_s);
    else if (outcome == printer::Outcome::Failed)
        platformBox::show(u"The printer did not take the picture"_s);
}
