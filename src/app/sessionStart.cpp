#include "app/sessionStart.h"

#include "app/frmSelectDB.h"
#include "base/RuntimeError.h"
#include "base/clock.h"
#include "base/safeFile.h"
#include "base/session.h"
#include "base/values.h"
#include "store/DataEnvironment.h"
#include "store/schema.h"
#include "store/settings.h"
#include "ui/frmMsg.h"
#include "ui/platformBox.h"
#include "ui/userValues.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopedValueRollback>
#include <QTextStream>

#include <optional>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

const auto lineEnd = u"\r\n"_s;
const QDate firstBelievableDay(2000, 1, 1);

QString configPath()
{
    return session::programPath(u"cv.ini");
}

void writeConfig(const QString &databasePath)
{
    const QStringList lines{
        u"'Corvane Configuration file"_s, {}, u"' Database Path"_s, u"DBPATH="_s + databasePath, {}};
    safeFile::writeWhole(configPath(), lines.join(lineEnd).toUtf8());
}

QString keptAsideText(const QString &folder)
{
    return u"The file and its journal, as they were found, are kept in:"_s + lineEnd + QDir::toNativeSeparators(folder);
}

/// What kept the database from opening, in words; empty when it is open. Where the file is missing since it could not
/// be made, `notMade` is the cause.
QString openingFault(const std::optional<RuntimeError> &notMade)
{
    renewDE();
    try {
        DE().CN.open(session::DBPath);
    } catch (const RuntimeError &error) {
        const RuntimeError &cause = notMade && error.fault() == Fault::FileNotFound ? *notMade : error;
        QStringList lines{cause.text(), cause.source()};
        if (!DE().CN.keptAside().isEmpty())
            lines += keptAsideText(DE().CN.keptAside());
        lines.removeAll({});
        return lines.join(lineEnd);
    }
    if (!DE().CN.keptAside().isEmpty())
        platformBox::show(u"The program or the computer was stopped in the midst of a save. "
                          "What was not finished has been taken back."_s
            + lineEnd + keptAsideText(DE().CN.keptAside()));
    return {};
}

void openOrOffer(const std::optional<RuntimeError> &notMade)
{
    static QString *faultOfRoute = nullptr;
    QString fault = openingFault(notMade);
    // A choice that fails in turn is met by the loop of the route that offered it, so that no number of tries piles up
    // calls.
    if (faultOfRoute) {
        *faultOfRoute = fault;
        return;
    }
    const QScopedValueRollback route(faultOfRoute, &fault);
    while (!DE().CN.isOpen()) {
        platformBox::showCritical(u"Database File Error!"_s + lineEnd + fault);
        offerDatabases();
        RestartSession();
    }
}

} // namespace

void findDatabase()
{
    if (!QFileInfo::exists(configPath()))
        WriteDefaultConfig();
    ReadConfig();
}

void bringUpDatabase()
{
    std::optional<RuntimeError> notMade;
    if (!QFileInfo::exists(session::DBPath))
        notMade = CreateDatabase(OpenDatabase);
    openOrOffer(notMade);
    // Not open, and nothing thrown: the route of `OpenDatabase` is at work below and goes on with the next choice.
    if (!DE().CN.isOpen())
        return;
    MakeImagesFolder();
    CheckDatabaseVersion();
    InitCurrentDate();
}

bool offerDatabases()
{
    if (frmSelectDB().exec() != QDialog::Accepted)
        return false;
    WriteConfig();
    endFirstRun();
    RestartSession();
    return true;
}

void RestartSession()
{
    findDatabase();
    bringUpDatabase();
}

void RestartUnderScreen()
{
    QString failure;
    try {
        RestartSession();
    } catch (const RuntimeError &error) {
        failure = platformBox::toldBy(error);
    }
    if (failure.isEmpty())
        return;
    platformBox::showCritical(failure);
    if (!DE().CN.isOpen())
        OpenDatabase();
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
    openOrOffer({});
}

void MakeImagesFolder()
{
    // A folder that cannot be made is told where a picture is to be kept in it.
    std::ignore = safeFile::makeFolder(session::programPath(u"images"));
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
    if (!settingIsOn(setting::FollowSystemDate))
        return;
    const QDate today = machineClock::today();
    // A machine whose battery is empty begins in 1970.
    if (today < firstBelievableDay
        && AskUser(
               u"The date of this computer is %1. Its clock seems to be wrong.\r\nWould you like to work with that date?"_s
                   .arg(DayMonthYear(today)))
            != 1)
        return;
    session::CurrentDate = today;
}
