#include "app/WallArea.h"

#include "app/defaultWallpaper.h"
#include "pictures/pictureFile.h"

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
    const QImage picture = pictureFile::read(path).picture;
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
