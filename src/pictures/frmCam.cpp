#include "pictures/frmCam.h"

#include "base/session.h"
#include "base/values.h"
#include "devices/cameras.h"
#include "devices/sound.h"
#include "pictures/kvSnap.h"
#include "store/settings.h"
#include "ui/Command.h"
#include "ui/formFields.h"
#include "ui/kvComboBox.h"
#include "ui/modAutoSearch.h"

#include <QBoxLayout>
#include <QFile>
#include <QLabel>

using namespace Qt::StringLiterals;

frmCam::frmCam() : Screen(u"frmCam"_s, u"Capture Picture from Web Cam"_s)
{
    buildForm();
    connectCommands();
    setEntryKeys(EnterMovesOn);
    for (Command *command : {Command1, Command2, Command3, Command4})
        keepEnter(command);
    Command1->setFocus();
    listCameras();
}

void frmCam::buildForm()
{
    cmbList = new kvComboBox(u"cmbList"_s);
    installAutoSearch(cmbList);
    m_snap = new kvSnap(u"kvSnap"_s);
    lblStatus = new QLabel;
    lblStatus->setObjectName(u"lblStatus"_s);
    Command1 = new Command(u"Command1"_s, u"Start Cam"_s);
    Command2 = new Command(u"Command2"_s, u"Stop Cam"_s);
    Command3 = new Command(u"Command3"_s, u"Settings"_s);
    Command4 = new Command(u"Command4"_s, u"Capture"_s);

    auto *device = new QHBoxLayout;
    device->addWidget(captionOf(cmbList, u"Camera :"_s));
    device->addWidget(cmbList, 1);
    auto *commands = new QHBoxLayout;
    for (Command *command : {Command1, Command2, Command3})
        commands->addWidget(command);
    commands->addStretch();
    commands->addWidget(Command4);
    auto *whole = new QVBoxLayout(this);
    whole->addLayout(device);
    whole->addWidget(m_snap, 1);
    whole->addWidget(lblStatus);
    whole->addLayout(commands);
    resize(700, 560);
    chainTabs({Command4, Command1, Command2, Command3, cmbList});
}

void frmCam::connectCommands()
{
    onKey(Qt::Key_F5, u"Start the camera"_s, [this] { Command1->trigger(); });
    onKey(Qt::Key_F6, u"Stop the camera"_s, [this] { Command2->trigger(); });
    onKey(Qt::CTRL | Qt::Key_S, u"Settings"_s, [this] { Command3->trigger(); });
    onKey(Qt::Key_F9, u"Capture"_s, [this] { Command4->trigger(); });

    connect(cmbList, &kvComboBox::lostFocus, this, &frmCam::keepDevice);
    connect(Command1, &Command::clicked, this, &frmCam::startCam);
    connect(Command2, &Command::clicked, this, &frmCam::stopCam);
    connect(Command3, &Command::clicked, this, [this] { m_snap->FormatCam(); });
    connect(Command4, &Command::clicked, this, &frmCam::capture);
    connect(m_snap, &kvSnap::stateChanged, this, &frmCam::showState);
}

void frmCam::TakeSnap(const QString &FilePath, bool &Cancelled)
{
    m_snap->SnapPath = FilePath;
    CamCancelled = true;
    startCam();
    exec();
    // Closed from the list, it has not been left.
    if (focusWidget() == cmbList)
        keepDevice();
    m_snap->CloseCam();
    Cancelled = CamCancelled;
}

void frmCam::listCameras()
{
    const QStringList names = cameras::names();
    cmbList->clear();
    cmbList->addItems(names);
    // One that is plugged out leaves the first.
    const int kept = static_cast<int>(Val(GetSetting(setting::Webcam)));
    cmbList->setCurrentIndex(kept >= 0 && kept < names.size() ? kept : names.isEmpty() ? -1 : 0);
}

void frmCam::startCam()
{
    CamStopped = false;
    // What was plugged in or out meanwhile.
    listCameras();
    m_snap->DeviceIndex = cmbList->currentIndex();
    m_snap->StartCam();
}

void frmCam::stopCam()
{
    CamStopped = true;
    m_snap->CloseCam();
}

void frmCam::capture()
{
    if (CamStopped || !m_snap->hasFrame())
        return;
    if (const QString click = session::programPath(u"click.wav"); QFile::exists(click))
        sound::playToEnd(click);
    // The camera may have gone while it clicked.
    if (!m_snap->hasFrame())
        return;
    m_snap->SaveImage();
    CamStopped = true;
    CamCancelled = false;
    showState();
    Command1->setFocus();
}

void frmCam::keepDevice()
{
    const QString index = QString::number(cmbList->currentIndex());
    if (cmbList->currentIndex() >= 0 && GetSetting(setting::Webcam) != index)
        SaveSetting(setting::Webcam, index);
}

/// A command that has nothing to act on can't be given.
void frmCam::showState()
{
    // Ended by itself, it is to be started anew.
    CamStopped = CamStopped || !m_snap->isOn();
    Command2->setEnabled(m_snap->isOn());
    Command3->setEnabled(m_snap->hasFormats());
    Command4->setEnabled(!CamStopped && m_snap->hasFrame());
    if (m_snap->hasFrame())
        lblStatus->setText(u"F9 takes the picture."_s);
    else if (!CamCancelled)
        lblStatus->setText(u"The picture is taken. Esc closes, F5 starts the camera for another one."_s);
    else
        lblStatus->setText(m_snap->isOn() ? QString() : u"F5 starts the camera."_s);
    if (Command4->isEnabled() && focusWidget() == Command1)
        Command4->setFocus();
}
