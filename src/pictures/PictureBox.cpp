#include "pictures/PictureBox.h"

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
    const QPixmap picture(path);
    if (picture.isNull())
        return false;
    m_picture = picture;
    showScaled();
    return true;
}

void PictureBox::clearPicture()
{
    m_picture = {};
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
    showScaled();
}

void PictureBox::showScaled()
{
    if (m_picture.isNull())
        return;
    const QSize room = contentsRect().size() * devicePixelRatioF();
    QPixmap scaled = m_picture.scaled(m_picture.size().boundedTo(room), Qt::KeepAspectRatio, Qt::SmoothTransformation);
    scaled.setDevicePixelRatio(devicePixelRatioF());
    setPixmap(scaled);
}
