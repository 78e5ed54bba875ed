#include "pictures/PictureBox.h"

#include "pictures/pictureFile.h"

using namespace Qt::StringLiterals;

PictureBox::PictureBox(const QString &name, QWidget *parent) : QLabel(parent)
{
    setObjectName(name);
    setFrameShape(QFrame::StyledPanel);
    setAlignment(Qt::AlignCenter);
    setMinimumSize(160, 120);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
}

QString PictureBox::load(const QString &path)
{
    const pictureFile::Read read = pictureFile::read(path, room());
    if (!read.picture.isNull()) {
        m_path = path;
        put(read.picture);
    }
    return read.problem;
}

void PictureBox::put(const QImage &picture)
{
    QPixmap pixmap = QPixmap::fromImage(picture);
    pixmap.setDevicePixelRatio(devicePixelRatioF());
    setPixmap(pixmap);
    setAccessibleDescription({});
}

void PictureBox::clearPicture()
{
    m_path.clear();
    clear();
    setAccessibleDescription({});
}

void PictureBox::tellMissing(const QString &reason)
{
    clearPicture();
    setAccessibleDescription(reason);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setText(u"\u26a0\n"_s + reason);
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
    if (const QImage picture = pictureFile::read(m_path, room()).picture; !picture.isNull())
        put(picture);
}
