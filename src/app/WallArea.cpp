#include "app/WallArea.h"

#include "app/defaultWallpaper.h"

#include <QImageReader>
#include <QLabel>
#include <QScreen>

using namespace Qt::StringLiterals;

WallArea::WallArea() : Image1(new QLabel(this)), MyWall(new QLabel(this))
{
    setObjectName(u"Picture1"_s);
    Image1->setObjectName(u"Image1"_s);
    Image1->setPixmap(defaultWallpaper(screen()->size(), devicePixelRatioF()));
    Image1->hide();
    MyWall->setObjectName(u"MyWall"_s);
    showDefault();
}

void WallArea::showDefault()
{
    show(Image1->pixmap());
}

void WallArea::showFile(const QString &path)
{
    // The pictures of today's cameras are larger than what is taken for a picture otherwise.
    constexpr int megabytes = 1024;
    QImageReader::setAllocationLimit(megabytes);
    QImageReader reader(path);
    // Whatever the name of the file says, and the way round that the camera was held.
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QImage picture = reader.read();
    if (!picture.isNull())
        show(QPixmap::fromImage(picture));
}

void WallArea::resizeEvent(QResizeEvent *)
{
    centre();
}

void WallArea::show(const QPixmap &picture)
{
    MyWall->setPixmap(picture);
    MyWall->resize(picture.deviceIndependentSize().toSize());
    centre();
}

void WallArea::centre()
{
    MyWall->move((width() - MyWall->width()) / 2, (height() - MyWall->height()) / 2);
}
