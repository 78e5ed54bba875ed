#include "pictures/frmPreview.h"

#include "devices/shell.h"
#include "pictures/PictureBox.h"
#include "pictures/isPictureThere.h"
#include "pictures/pictureFile.h"
#include "pictures/printPicture.h"
#include "ui/Command.h"
#include "ui/formFields.h"
#include "ui/platformBox.h"

#include <QBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QStackedWidget>

using namespace Qt::StringLiterals;

frmPreview::frmPreview() : Screen(u"frmPreview"_s, u"Show Full Size Image"_s)
{
    fitContentEachTime();
    buildForm();
    connectCommands();
}

void frmPreview::buildForm()
{
    m_fitted = new PictureBox(u"picture"_s);
    m_fitted->setFrameShape(QFrame::NoFrame);
    m_fitted->setAccessibleName(windowTitle());
    m_fullPicture = new QLabel;
    m_full = new QScrollArea;
    m_full->setObjectName(u"full"_s);
    m_full->setAccessibleName(windowTitle());
    m_full->setWidget(m_fullPicture);
    m_full->setAlignment(Qt::AlignCenter);
    m_full->setFrameShape(QFrame::NoFrame);
    m_sizes = new QStackedWidget;
    m_sizes->addWidget(m_fitted);
    m_sizes->addWidget(m_full);
    lblStatus = new QLabel;
    lblStatus->setObjectName(u"lblStatus"_s);
    cmdSize = new Command(u"cmdSize"_s, u"&Full size"_s);
    cmdPrint = new Command(u"cmdPrint"_s, u"&Print"_s);
    cmdOpen = new Command(u"cmdOpen"_s, u"&Open"_s);

    auto *commands = new QHBoxLayout;
    commands->addWidget(lblStatus, 1);
    for (Command *command : {cmdSize, cmdPrint, cmdOpen})
        commands->addWidget(command);
    auto *whole = new QVBoxLayout(this);
    whole->addWidget(m_sizes, 1);
    whole->addLayout(commands);
    chainTabs({cmdSize, cmdPrint, cmdOpen, m_full});
}

void frmPreview::connectCommands()
{
    onKey(Qt::Key_1, u"Full size, or fitted to the window"_s, [this] { changeSize(); });
    printKey(cmdPrint);

    connect(cmdSize, &Command::clicked, this, &frmPreview::changeSize);
    connect(cmdPrint, &Command::clicked, this, [this] { printPicture(m_path); });
    connect(cmdOpen, &Command::clicked, this, [this] {
        if (isPictureThere(m_path))
            shell::openFile(m_path);
    });
    connect(m_fitted, &PictureBox::doubleClicked, this, &frmPreview::changeSize);
}

void frmPreview::ShowImage(const QString &FilePath)
{
    m_path = FilePath;
    m_size = pictureFile::sizeOf(FilePath);
    fitWindow();
    if (const QString problem = m_fitted->load(FilePath); !problem.isEmpty())
        return platformBox::show(u"This picture can't be shown. %1:\r\n%2"_s.arg(problem, FilePath));
    showFitted();
    exec();
}

/// As large as the picture; what the screen has no room for, it takes off by itself when it is shown.
void frmPreview::fitWindow()
{
    const QMargins margins = layout()->contentsMargins();
    const QSize around(margins.left() + margins.right(),
        margins.top() + margins.bottom() + cmdSize->sizeHint().height() + layout()->spacing());
    const QScreen *const monitor = (front() ? front() : this)->screen();
    const QSize room = monitor->availableSize();
    resize((m_size / devicePixelRatioF() + around).boundedTo(room).expandedTo(minimumSizeHint()));
}

void frmPreview::changeSize()
{
    m_sizes->currentWidget() == m_fitted ? showFull() : showFitted();
}

void frmPreview::showFitted()
{
    m_sizes->setCurrentWidget(m_fitted);
    m_fullPicture->clear();
    cmdSize->setText(u"&Full size"_s);
    tell(u"Fitted to the window"_s);
}

void frmPreview::showFull()
{
    const pictureFile::Read whole = pictureFile::read(m_path);
    if (whole.picture.isNull())
        return tell(whole.problem);
    QPixmap picture = QPixmap::fromImage(whole.picture);
    picture.setDevicePixelRatio(devicePixelRatioF());
    m_fullPicture->setPixmap(picture);
    m_fullPicture->adjustSize();
    m_sizes->setCurrentWidget(m_full);
    m_full->setFocus();
    cmdSize->setText(u"&Fitted"_s);
    tell(u"Full size; the arrows move it"_s);
}

void frmPreview::tell(const QString &how)
{
    lblStatus->setText(u"%1 x %2 - %3"_s.arg(m_size.width()).arg(m_size.height()).arg(how));
}
