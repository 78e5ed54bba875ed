#include "app/checkCommand.h"
#include "app/programFolder.h"
#include "app/startup.h"
#include "base/safeFile.h"
#include "store/DataEnvironment.h"
#include "ui/Application.h"

#include <QCommandLineParser>
#include <QTextStream>

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

/// Whether the command line only asks something that is answered in the terminal, where there may be no display.
bool asksOnly(int count, char **arguments)
{
    return std::any_of(arguments + 1, arguments + count, [](const char *argument) {
        const QByteArrayView text(argument);
        return text == "-h" || text == "--help" || text == "--help-all" || text == "-v" || text == "--version"
            || text == "--check";
    });
}

} // namespace

int main(int count, char **arguments)
{
    safeFile::keepToOwner();
    QCoreApplication::setApplicationName(u"Corvane"_s);
    QCoreApplication::setApplicationVersion(u"%1.%2"_s.arg(CORVANE_VERSION_MAJOR).arg(CORVANE_VERSION_MINOR));

    QCommandLineParser parser;
    parser.setApplicationDescription(u"Runs a tailoring shop."_s);
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption folder(u"folder"_s, u"Keeps the shop's files in <path>."_s, u"path"_s);
    parser.addOption(folder);
    const QCommandLineOption check(u"check"_s,
        u"Reads a shop's file without changing it and tells what does not agree in it. "
        "Ends with 0 where it is whole, 1 where something differs, 2 where it cannot be read."_s);
    parser.addOption(check);
    parser.addPositionalArgument(u"file"_s, u"The file to check; without it the one in use."_s, u"[file]"_s);
    if (asksOnly(count, arguments)) {
        const QCoreApplication terminal(count, arguments);
        parser.process(terminal);
        if (!parser.isSet(check))
            return EXIT_SUCCESS;
        QTextStream out(stdout);
        return checkFile(parser.positionalArguments().value(0),
            chooseProgramFolder(parser.value(folder), QCoreApplication::applicationDirPath()), out);
    }
    Application application(count, arguments);
    parser.process(application);

    startProgram(application, parser.value(folder));
    const int status = QCoreApplication::exec();
    renewDE();
    return status;
}
