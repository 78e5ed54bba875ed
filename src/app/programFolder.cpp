#include "app/programFolder.h"

#include "base/RuntimeError.h"
#include "base/safeFile.h"

#include <QDir>
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
    const QString demo = QDir(folder).filePath(u"demo.mdb"_s);
    const QString delivered = QDir(ownFolder).filePath(u"demo.mdb"_s);
    if (!safeFile::makeFolder(folder) || QFileInfo::exists(demo) || !QFileInfo::exists(delivered))
        return;
    try {
        safeFile::copyWhole(delivered, demo);
    } catch (const RuntimeError &) {
        // Without its demo the program works all the same, and the next start tries again.
        return;
    }
}
