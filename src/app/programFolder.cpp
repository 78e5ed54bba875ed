#include "app/programFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

QString chooseProgramFolder(const QString &option, const QString &ownFolder)
{
    const QString asked = option.isEmpty() ? qEnvironmentVariable("CORVANE_FOLDER") : option;
    if (!asked.isEmpty())
        return QDir::cleanPath(QDir(asked).absolutePath());
    if (QFileInfo(ownFolder).isWritable())
        return ownFolder;
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/corvane"_s;
}

void prepareProgramFolder(const QString &folder, const QString &ownFolder)
{
    QDir().mkpath(folder);
    const QString demo = QDir(folder).filePath(u"demo.mdb"_s);
    if (QFileInfo::exists(demo))
        return;
    QFile::copy(QDir(ownFolder).filePath(u"demo.mdb"_s), demo);
    // The delivered file may be one that nobody may write; the copy is worked in.
    QFile::setPermissions(demo, QFile::permissions(demo) | QFile::WriteOwner);
}
