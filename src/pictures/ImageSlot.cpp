#include "pictures/ImageSlot.h"

#include "devices/shell.h"
#include "pictures/PictureBox.h"
#include "pictures/frmPreview.h"
#include "pictures/isPictureThere.h"
#include "ui/Command.h"
#include "ui/boxType.h"
#include "ui/fieldTip.h"
#include "ui/formFields.h"
#include "ui/kvTextBox.h"

#include <QBoxLayout>
#include <QFile>
#include <QLabel>

using namespace Qt::StringLiterals;

ImageSlot::ImageSlot(
    const QString &caption, const QString &picture, const QString &path, const QList<Command *> &commands)
    : m_picture(new PictureBox(picture)), m_path(new kvTextBox(path, boxType::Plain))
{
    nameAloud(m_path, caption + u" file"_s);
    m_picture->setAccessibleName(caption);
    m_path->setReadOnly(true);
    m_path->setFocusPolicy(Qt::NoFocus);
    m_picture->setToolTip(u"Double click to open"_s);
    connect(m_picture, &PictureBox::doubleClicked, this, &ImageSlot::open);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addWidget(new QLabel(caption));
    column->addWidget(m_picture, 1);
    column->addWidget(m_path);
    auto *row = new QHBoxLayout;
    row->setSpacing(4);
    for (Command *command : commands) {
        nameAloud(command, caption + u' ' + command->text());
        row->addWidget(command);
    }
    column->addLayout(row);
}

void ImageSlot::setLeastHeight(int height)
{
    m_picture->setMinimumHeight(height);
}

QString ImageSlot::path() const
{
    return m_path->Text();
}

bool ImageSlot::isThere() const
{
    return !path().isEmpty() && isPictureThere(path());
}

void ImageSlot::open()
{
    if (isThere())
        shell::openFile(path());
}

void ImageSlot::preview()
{
    if (isThere())
        frmPreview().ShowImage(path());
}

void ImageSlot::showFile(const QString &file)
{
    if (file.isEmpty())
        return;
    const bool isGone = !QFile::exists(file);
    if (isGone && !path().isEmpty())
        return;
    if (!isGone) {
        m_path->setText(file);
        // The name says more than the folder.
        m_path->end(false);
    }
    const QString problem = m_picture->load(file);
    if (!problem.isEmpty())
        m_picture->tellMissing(problem);
    m_picture->setToolTip(problem.isEmpty() ? u"Double click to open"_s : plainTip(file));
}

void ImageSlot::removeFile()
{
    if (!QFile::exists(path()))
        return;
    QFile::remove(path());
    m_picture->clearPicture();
    m_path->setText({});
}
