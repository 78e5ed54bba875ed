#include "app/defaultWallpaper.h"
#include "app/programFolder.h"
#include "app/startup.h"
#include "base/session.h"
#include "store/DataEnvironment.h"
#include "ui/Application.h"
#include "ui/theme.h"

#include <QCommandLineParser>
#include <QIcon>
#include <QTimer>

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

/// Whether the command line only asks something that is answered in the terminal, where there may be no display.
bool asksOnly(int count, char **arguments)
{
    return std::any_of(arguments + 1, arguments + count, [](const char *argument) {
        const QByteArrayView text(argument);
        return text == "-h" || text == "--help" || text == "--help-all" || text == "-v" || text == "--version";
    });
}

} // namespace

int main(int count, char **arguments)
{
    QCoreApplication::setApplicationName(u"Corvane"_s);
    QCoreApplication::setApplicationVersion(u"%1.%2"_s.arg(CORVANE_VERSION_MAJOR).arg(CORVANE_VERSION_MINOR));

    QCommandLineParser parser;
    parser.setApplicationDescription(u"Runs a tailoring shop."_s);
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption folder(u"folder"_s, u"Keeps the shop's files in <path>."_s, u"path"_s);
    parser.addOption(folder);
    if (asksOnly(count, arguments)) {
        const QCoreApplication terminal(count, arguments);
        parser.process(terminal);
        return EXIT_SUCCESS;
    }
    Application application(count, arguments);
    parser.process(application);

    const QString ownFolder = QCoreApplication::applicationDirPath();
    session::ProgramFolder = chooseProgramFolder(parser.value(folder), ownFolder);
    prepareProgramFolder(session::ProgramFolder, ownFolder);

    applyTheme(application);
    QApplication::setWindowIcon(QIcon(programSign(128)));
    // The process ends with the main screen, and not with a choice or a message that is shown before it.
    QGuiApplication::setQuitOnLastWindowClosed(false);
    // From within the event loop, so that a failure ends in the error report as any other.
    QTimer::singleShot(0, &application, Main);
    const int status = QCoreApplication::exec();
    renewDE();
    return status;
}
