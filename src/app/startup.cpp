#include "app/startup.h"

#include "app/defaultWallpaper.h"
#include "app/frmGuide.h"
#include "app/frmMain.h"
#include "app/programFolder.h"
#include "base/session.h"
#include "ui/Screen.h"
#include "ui/theme.h"

#include <QApplication>
#include <QIcon>
#include <QTimer>

using namespace Qt::StringLiterals;

void startProgram(QApplication &application, const QString &folder)
{
    const QString ownFolder = QCoreApplication::applicationDirPath();
    session::ProgramFolder = chooseProgramFolder(folder, ownFolder);
    prepareProgramFolder(session::ProgramFolder, ownFolder);

    applyTheme(application);
    QApplication::setWindowIcon(QIcon(programSign(128)));
    // The process ends with the main screen, and not with a choice or a message that is shown before it.
    QGuiApplication::setQuitOnLastWindowClosed(false);
    // From within the event loop, so that a failure ends in the error report as any other.
    QTimer::singleShot(0, &application, Main);
}

void Main()
{
    Screen::setGuide([](const QString &screen) { frmGuide().ShowFor(screen); });
    findDatabase();
    if (IsFirstRun())
        offerDatabases();
    bringUpDatabase();
    auto *mainScreen = new frmMain;
    mainScreen->setAttribute(Qt::WA_DeleteOnClose);
    mainScreen->show();
}
