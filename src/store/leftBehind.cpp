#include "store/leftBehind.h"

#include "base/RuntimeError.h"
#include "base/clock.h"
#include "base/safeFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString journalOf(const QString &path)
{
    return path + u"-journal"_s;
}

/// The engine's own test: a journal is over when its first byte is 0, or when it is empty.
bool isLive(const QString &journal)
{
    QFile file(journal);
    char first = 0;
    return file.open(QIODevice::ReadOnly) && file.getChar(&first) && first != 0;
}

QStringList logsOf(const QString &path)
{
    QStringList found;
    for (const QString &suffix : {u"-wal"_s, u"-shm"_s}) {
        if (QFileInfo::exists(path + suffix))
            found += path + suffix;
    }
    return found;
}

/// A name for a folder that is not there yet: "data15-aside-20260601-100000".
QString freeFolder(const QFileInfo &file)
{
    const QString wanted = file.absolutePath() + u'/' + file.completeBaseName() + u"-aside-"_s
        + machineClock::now().toString(u"yyyyMMdd-HHmmss"_s);
    QString folder = wanted;
    for (int again = 2; QFileInfo::exists(folder); ++again)
        folder = u"%1-%2"_s.arg(wanted).arg(again);
    return folder;
}

} // namespace

bool leftBehind::isHot(const QString &path)
{
    return isLive(journalOf(path)) || QFileInfo(path + u"-wal"_s).size() > 0;
}

bool leftBehind::hasColdJournal(const QString &path)
{
    return QFileInfo::exists(journalOf(path)) && !isLive(journalOf(path));
}

void leftBehind::removeColdJournal(const QString &path)
{
    if (hasColdJournal(path))
        QFile::remove(journalOf(path));
}

QString leftBehind::keepAside(const QString &path)
{
    const QFileInfo file(path);
    const QString folder = freeFolder(file);
    // Under another name until both are there: a half copy must not pass for a whole one.
    const QString unfinished = file.absolutePath() + u'/' + file.completeBaseName() + u"-aside.new"_s;
    QDir(unfinished).removeRecursively();
    if (!safeFile::makeFolder(unfinished))
        throw RuntimeError(Fault::FileFault, u"No folder can be made for a copy of the file and its journal."_s, path,
            Written::Nothing);
    const auto keep = [&unfinished](const QString &found) {
        safeFile::copyWhole(found, unfinished + u'/' + QFileInfo(found).fileName());
    };
    const QStringList logs = logsOf(path);
    keep(path);
    for (const QString &found : QStringList{journalOf(path)} + logs) {
        if (QFileInfo::exists(found))
            keep(found);
    }
    if (!QFile::rename(unfinished, folder))
        throw RuntimeError(Fault::FileFault, u"A copy of the file and its journal cannot be given its name."_s, folder,
            Written::Nothing);
    safeFile::syncFolder(file.absolutePath());
    for (const QString &log : logs)
        QFile::remove(log);
    return folder;
}
