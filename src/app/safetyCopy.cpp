#include "app/safetyCopy.h"

#include "base/RuntimeError.h"
#include "base/safeFile.h"
#include "store/fileCheck.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStorageInfo>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr int daysKept = 7;
constexpr int monthsKept = 12;
constexpr qsizetype pieceSize = 1 << 20;
constexpr auto dayForm = "yyyyMMdd"_L1;

QString folderOf(const QString &database)
{
    return QFileInfo(database).absolutePath() + u"/copies"_s;
}

/// What the names of a file's copies begin with.
QString stemOf(const QString &database)
{
    return QFileInfo(database).completeBaseName() + u'-';
}

QString suffixOf(const QString &database)
{
    return u'.' + QFileInfo(database).suffix();
}

/// The days with a file of their name, `ending` behind it.
QList<QDate> daysWith(const QString &database, const QString &ending = {})
{
    const QString stem = stemOf(database);
    const QString suffix = suffixOf(database) + ending;
    QList<QDate> days;
    for (const QString &name : QDir(folderOf(database)).entryList(QDir::Files)) {
        if (!name.startsWith(stem) || !name.endsWith(suffix))
            continue;
        const QDate day =
            QDate::fromString(name.sliced(stem.size(), name.size() - stem.size() - suffix.size()), dayForm);
        if (day.isValid())
            days += day;
    }
    return days;
}

/// What a stopped program left unfinished on a day that is over is not taken over by the next one of its name.
void removeLeftBehind(const QString &database)
{
    for (const QDate day : daysWith(database, u".new"_s))
        safeFile::removeLeftBehind(safetyCopy::pathOf(database, day));
}

/// The shop's own work needs the disk more than a copy does.
void requireRoom(const QString &folder, qint64 copySize)
{
    const qint64 room = QStorageInfo(folder).bytesAvailable();
    if (room >= 0 && room < 2 * copySize)
        throw RuntimeError(Fault::FileFault, u"The disk is nearly full."_s, folder, Written::Nothing);
}

void writeIn(UnfinishedFile &file, QByteArrayView content, const std::atomic_bool &stop)
{
    for (qsizetype done = 0; done < content.size() && !stop; done += pieceSize)
        file.write(content.sliced(done, std::min(pieceSize, content.size() - done)));
    if (!stop)
        file.sync();
}

void prove(const UnfinishedFile &file, QByteArrayView content, const std::atomic_bool &stop)
{
    QFile written(file.name());
    bool isSame = written.open(QIODevice::ReadOnly) && written.size() == content.size();
    for (qsizetype done = 0; isSame && done < content.size() && !stop; done += pieceSize) {
        const QByteArrayView meant = content.sliced(done, std::min(pieceSize, content.size() - done));
        isSame = written.read(meant.size()) == meant;
    }
    if (!isSame)
        throw RuntimeError(
            Fault::FileFault, u"The disk does not give back what was written to it."_s, file.name(), Written::Nothing);
    const fileCheck::Holding holding = fileCheck::look(file, fileCheck::Pages::All, stop);
    if (!stop && !holding.failure.isEmpty())
        throw RuntimeError(
            Fault::Damaged, u"The shop's file is no good: %1"_s.arg(holding.failure), {}, Written::Nothing);
}

} // namespace

QString safetyCopy::pathOf(const QString &database, QDate day)
{
    return folderOf(database) + u'/' + stemOf(database) + day.toString(dayForm) + suffixOf(database);
}

bool safetyCopy::isCopy(const QString &path)
{
    const QFileInfo file(QDir::cleanPath(path));
    return file.dir().dirName() == u"copies"
        && QDate::fromString(file.completeBaseName().section(u'-', -1), dayForm).isValid();
}

QList<QDate> safetyCopy::kept(QList<QDate> days)
{
    std::sort(days.begin(), days.end(), std::greater());
    QList<QDate> kept = days.first(std::min<qsizetype>(daysKept, days.size()));
    QSet<int> months;
    for (const QDate day : std::as_const(days)) {
        const int month = day.year() * 12 + day.month();
        if (months.contains(month) || months.size() == monthsKept)
            continue;
        months += month;
        if (!kept.contains(day))
            kept += day;
    }
    return kept;
}

void safetyCopy::make(const QByteArray &content, const QString &database, QDate day, const std::atomic_bool &stop)
{
    const QString folder = folderOf(database);
    const bool isNew = !QFileInfo::exists(folder);
    if (!safeFile::makeFolder(folder))
        throw RuntimeError(Fault::FileFault, u"The folder for the copies cannot be made."_s, folder, Written::Nothing);
    if (isNew)
        safeFile::syncFolder(QFileInfo(folder).path());
    removeLeftBehind(database);
    requireRoom(folder, content.size());
    UnfinishedFile file(pathOf(database, day));
    writeIn(file, content, stop);
    if (!stop)
        prove(file, content, stop);
    if (stop)
        return;
    file.replace();
    // A clock that was wrong for a day must not cost the copies of the others.
    QList<QDate> days = daysWith(database);
    days.removeIf([day](QDate other) { return other > day; });
    const QList<QDate> staying = kept(days);
    for (const QDate other : days) {
        if (other != day && !staying.contains(other))
            QFile::remove(pathOf(database, other));
    }
}
