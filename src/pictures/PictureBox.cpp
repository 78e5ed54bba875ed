#include "pictures/PictureBox.h"

#include <QImageReader>

PictureBox::PictureBox(const QString &name, QWidget *parent) : QLabel(parent)
{
    setObjectName(name);
    setFrameShape(QFrame::StyledPanel);
    setAlignment(Qt::AlignCenter);
    setMinimumSize(160, 120);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
}

bool PictureBox::load(const QString &path)
{
    const QPixmap picture = scaled(path);
    if (picture.isNull())
        return false;
    m_path = path;
    setPixmap(picture);
    return true;
}

void PictureBox::clearPicture()
{
    m_path.clear();
    clear();
}

void PictureBox::mouseDoubleClickEvent(QMouseEvent *event)
{
    QLabel::mouseDoubleClickEvent(event);
    emit doubleClicked();
}

void PictureBox::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    if (!hasPicture())
        return;
    // A file that is gone since stays as it was shown.
    if (const QPixmap picture = scaled(m_path); !picture.isNull())
        setPixmap(picture);
}

QPixmap PictureBox::scaled(const QString &path) const
{
    QImageReader reader(path);
    // The content tells what it is, whatever the file's name says.
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize room = contentsRect().size() * devicePixelRatioF();
    // What lies on its side is turned after it was read.
    const bool turned = reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
    const QSize whole = reader.size();
    const QSize fitting = whole.scaled(turned ? room.transposed() : room, Qt::KeepAspectRatio);
    if (whole.isValid() && fitting.width() < whole.width())
        reader.setScaledSize(fitting.expandedTo({1, 1}));
    QPixmap picture = QPixmap::fromImageReader(&reader);
    picture.setDevicePixelRatio(devicePixelRatioF());
    return picture;
}
