#include "app/startup.h"

#include "app/defaultWallpaper.h"
#include "app/frmMain.h"
#include "app/frmSelectDB.h"
#include "app/programFolder.h"
#include "base/RuntimeError.h"
#include "base/clock.h"
#include "base/session.h"
#include "base/values.h"
#include "store/DataEnvironment.h"
#include "store/schema.h"
#include "store/settings.h"
#include "ui/platformBox.h"
#include "ui/theme.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QSaveFile>
#include <QScopedValueRollback>
#include <QSettings>
#include <QTextStream>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

const auto lineEnd = u"\r\n"_s;

QString configPath()
{
    return session::programPath(u"cv.ini");
}

void writeConfig(const QString &databasePath)
{
    const QStringList lines{
        u"'Corvane Configuration file"_s, {}, u"' Database Path"_s, u"DBPATH="_s + databasePath, {}};
    QSaveFile file(configPath());
    // In a folder that takes no new file the one that is there may still be written.
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly) || file.write(lines.join(lineEnd).toUtf8()) < 0 || !file.commit())
        throw RuntimeError(
            Fault::FileFault, u"The configuration file cannot be written: %1."_s.arg(file.errorString()), configPath());
}

void findDatabase()
{
    if (!QFileInfo::exists(configPath()))
        WriteDefaultConfig();
    ReadConfig();
}

void bringUpDatabase()
{
    if (!QFileInfo::exists(session::DBPath))
        CreateDatabase(OpenDatabase);
    OpenDatabase();
    // Not open, and nothing thrown: the route of `OpenDatabase` is at work below and goes on with the next choice.
    if (!DE().CN.isOpen())
        return;
    MakeImagesFolder();
    CheckDatabaseVersion();
    InitCurrentDate();
}

/// What kept the database from opening; empty when it is open.
QString openingFault()
{
    renewDE();
    try {
        DE().CN.open(session::DBPath);
    } catch (const RuntimeError &error) {
        return error.source().isEmpty() ? error.text() : error.text() + lineEnd + error.source();
    }
    return {};
}

QSettings userValues()
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, u"Corvane"_s, u"Corvane"_s);
}

} // namespace

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
    findDatabase();
    if (IsFirstRun())
        frmSelectDB().exec();
    bringUpDatabase();
    auto *mainScreen = new frmMain;
    mainScreen->setAttribute(Qt::WA_DeleteOnClose);
    mainScreen->show();
}

void RestartSession()
{
    findDatabase();
    bringUpDatabase();
}

void ReadConfig()
{
    QFile file(configPath());
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(
            Fault::FileFault, u"The configuration file cannot be read: %1."_s.arg(file.errorString()), configPath());
    QTextStream text(&file);
    QString lastLine;
    while (!text.atEnd())
        lastLine = text.readLine();
    const QStringList pieces = lastLine.split(u'=');
    if (!lastLine.contains(u"DBPATH"_s, Qt::CaseInsensitive) || pieces.size() < 2)
        throw RuntimeError(Fault::SubscriptOutOfRange,
            u"The last line of this file must be \"DBPATH=\" and the path of a database:\n"_s + configPath());
    const QString &path = pieces.at(1);
    session::DBPath = path.isEmpty() || path == u"NONE" ? session::defaultDatabasePath() : path;
}

void WriteDefaultConfig()
{
    writeConfig(session::defaultDatabasePath());
}

void WriteConfig()
{
    writeConfig(session::DBPath);
}

bool IsFirstRun()
{
    const QString run = userValues().value(u"Setup/Run"_s).toString();
    return run.isEmpty() || wholeNumberText(run) == 0.0;
}

void endFirstRun()
{
    userValues().setValue(u"Setup/Run"_s, u"1"_s);
}

void OpenDatabase()
{
    static bool routeIsOpen = false;
    QString fault = openingFault();
    // A choice that fails in turn is met by the loop of the route that offered it, so that no number of tries piles up
    // calls.
    if (routeIsOpen)
        return;
    const QScopedValueRollback route(routeIsOpen, true);
    while (!DE().CN.isOpen()) {
        platformBox::showCritical(u"Database File Error!"_s + lineEnd + fault);
        frmSelectDB().exec();
        RestartSession();
        if (!DE().CN.isOpen())
            fault = openingFault();
    }
}

void MakeImagesFolder()
{
    QDir().mkdir(session::programPath(u"images"));
}

void CheckDatabaseVersion()
{
    const QString version = GetSetting(setting::DatabaseVersion);
    if (Val(version) == session::SupportedDatabaseVersion)
        return;
    const QStringList lines{u"Invalid Database!"_s, u"Corvane Can not Run with this Database!"_s,
        u"Database File Version : "_s + version,
        u"Supported Version : "_s + QString::number(session::SupportedDatabaseVersion),
        u"Corvane created a new database file."_s};
    platformBox::show(lines.join(lineEnd));
    session::DBPath = session::defaultDatabasePath();
    WriteConfig();
    CreateDatabase(OpenDatabase);
}

void InitCurrentDate()
{
    session::CurrentDate = ParseDate(GetSetting(setting::WorkingDate));
    if (settingIsOn(setting::FollowSystemDate))
        session::CurrentDate = machineClock::today();
}
