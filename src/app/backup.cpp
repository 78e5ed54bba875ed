#include "app/backup.h"

#include "app/sessionStart.h"
#include "base/FileLock.h"
#include "base/RuntimeError.h"
#include "base/clock.h"
#include "base/safeFile.h"
#include "base/session.h"
#include "base/values.h"
#include "store/DataEnvironment.h"
#include "store/leftBehind.h"
#include "ui/userValues.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <fcntl.h>

#include <cstring>
#include <memory>
#include <new>

using namespace Qt::StringLiterals;

namespace {

constexpr int daysGood = 7;
constexpr int busyMilliseconds = 2000;
/// How the time of a backup is shared out: packing takes nine times as long as the proof.
constexpr qint64 packingShare = 9;
constexpr qint64 allShares = 10;

/// What was written last is still in memory; the proof is of what the disk gives back.
void forgetInMemory(const QString &path)
{
    const int descriptor = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    posix_fadvise(descriptor, 0, 0, POSIX_FADV_DONTNEED);
    close(descriptor);
}

/// Compares what comes piece by piece with what was meant.
class Proof {
public:
    explicit Proof(QByteArrayView meant) : m_left(meant) { }
    void take(QByteArrayView piece)
    {
        m_isSame = m_isSame && piece.size() <= m_left.size()
            && std::memcmp(piece.data(), m_left.data(), static_cast<size_t>(piece.size())) == 0;
        if (m_isSame)
            m_left = m_left.sliced(piece.size());
    }
    void fail() { m_isSame = false; }
    [[nodiscard]] bool holds() const { return m_isSame && m_left.isEmpty(); }

private:
    QByteArrayView m_left;
    bool m_isSame = true;
};

/// Looks into what `fill` puts into a file among the system's passing ones. Throws where there is no room for it.
template <typename Fill>
fileCheck::Holding lookInPassing(fileCheck::Pages pages, const std::atomic_bool &stop, Fill fill)
{
    const QTemporaryDir folder;
    if (!folder.isValid())
        throw RuntimeError(
            Fault::FileFault, u"The file cannot be made: %1."_s.arg(folder.errorString()), QDir::tempPath());
    UnfinishedFile file(folder.filePath(u"look.mdb"_s));
    return fill(file) ? fileCheck::look(file, pages, stop) : fileCheck::Holding();
}

/// A fault of the folder for passing files, in one line.
QString obstacleText(const RuntimeError &error)
{
    return u"No file can be kept in %1: %2"_s.arg(
        QDir::toNativeSeparators(QDir::tempPath()), error.text().section(u'\n', 0, 0));
}

/// Whoever has but one good backup must not lose it to a damaged shop.
void refuseDamaged(const QByteArray &content, const QString &folder)
{
    constexpr auto stillThere = "A backup that stood there before is still there."_L1;
    fileCheck::Holding holding;
    try {
        const std::atomic_bool goOn = false;
        holding = lookInPassing(fileCheck::Pages::All, goOn, [&content](UnfinishedFile &file) {
            file.write(content);
            return true;
        });
    } catch (const RuntimeError &error) {
        throw RuntimeError(error.fault(), u"The backup cannot be checked. %1 %2"_s.arg(obstacleText(error), stillThere),
            folder, Written::Nothing);
    }
    if (!holding.failure.isEmpty())
        throw RuntimeError(Fault::Damaged,
            u"The shop's file is no good, and was not backed up: %1 %2"_s.arg(holding.failure, stillThere), folder,
            Written::Nothing);
}

/// The backups of a folder, last written first; a name pattern leaves the case of letters aside.
QFileInfoList backupsIn(const QString &folder)
{
    return QDir(folder).entryInfoList({u"cvbackup.gz"_s}, QDir::Files | QDir::Hidden, QDir::Time);
}

/// A free name beside the file: "data15-aside-20260601-100000.mdb".
QString asideName(const QString &path)
{
    const QFileInfo file(path);
    const QString wanted = file.absolutePath() + u'/' + file.completeBaseName() + u"-aside-"_s
        + machineClock::now().toString(u"yyyyMMdd-HHmmss"_s);
    const QString suffix = u'.' + file.suffix();
    QString name = wanted + suffix;
    for (int again = 2; QFileInfo::exists(name); ++again)
        name = u"%1-%2"_s.arg(wanted).arg(again) + suffix;
    return name;
}

/// Keeps what has the place under another name, as a file by itself. An unfinished write is kept with the file that it
/// belongs to.
QString keepFormer(const QString &place)
{
    if (leftBehind::isHot(place))
        return leftBehind::keepAside(place);
    const QString name = asideName(place);
    safeFile::copyWhole(place, name);
    return name;
}

/// A mark on the default file while it is replaced; none where there is no such file.
std::unique_ptr<FileLock> aloneWith(const QString &place)
{
    if (!QFileInfo::exists(place))
        return {};
    try {
        return std::make_unique<FileLock>(place, FileLock::Alone, busyMilliseconds);
    } catch (const RuntimeError &error) {
        if (error.fault() != Fault::Locked)
            throw RuntimeError(error.fault(), error.text(), place, Written::Nothing);
        throw RuntimeError(Fault::Locked,
            u"Another program has this file open, so that it cannot be replaced. "
            "Close it there, and restore once more. Nothing was changed."_s,
            place, Written::Nothing);
    }
}

QString keptText(const QString &keptAs)
{
    return keptAs.isEmpty() ? QString()
                            : u"\n\nThe file that stood there is kept as %1"_s.arg(QDir::toNativeSeparators(keptAs));
}

/// Gives the file the default place. Where what stood there is kept is the answer.
QString putInPlace(UnfinishedFile &file, const QString &place)
{
    const std::unique_ptr<FileLock> alone = aloneWith(place);
    if (!alone) {
        file.place();
        return {};
    }
    const QString keptAs = keepFormer(place);
    try {
        file.replace();
    } catch (const RuntimeError &error) {
        if (error.written() != Written::Nothing)
            throw RuntimeError(error.fault(), error.text() + keptText(keptAs), error.source(), error.written());
        QFile::remove(keptAs);
        throw;
    }
    return keptAs;
}

void goOverToDefault(const QString &keptAs)
{
    const QString before = session::DBPath;
    session::DBPath = session::defaultDatabasePath();
    try {
        WriteConfig();
    } catch (const RuntimeError &error) {
        session::DBPath = before;
        throw RuntimeError(error.fault(),
            u"The backup was restored, but the configuration still names another file: %1"_s.arg(error.text())
                + keptText(keptAs),
            session::defaultDatabasePath());
    }
}

/// A file of another version has other tables, and is not damaged for that.
void refuseOtherVersion(const UnfinishedFile &file, const QString &backup)
{
    const std::atomic_bool goOn = false;
    const double version = fileCheck::look(file, fileCheck::Pages::Few, goOn).version;
    if (version != 0 && version != session::SupportedDatabaseVersion)
        throw RuntimeError(Fault::NotADatabase,
            u"This backup is of version %1 and cannot be restored by this program, which works with version %2. "
            "Nothing was changed."_s.arg(NumberText(version), QString::number(session::SupportedDatabaseVersion)),
            backup, Written::Nothing);
}

/// The name of the value with the moment of the last backup.
QString momentKey()
{
    const QByteArray path = QFileInfo(session::DBPath).absoluteFilePath().toUtf8();
    return u"Backups/"_s + QString::fromLatin1(path.toPercentEncoding());
}

} // namespace

bool backup::make(const QByteArray &content, const QString &folder, const gzip::At &at)
{
    const QFileInfoList former = backupsIn(folder);
    const QString path = former.isEmpty() ? QDir(folder).filePath(u"CVbackup.gz"_s) : former.first().filePath();
    UnfinishedFile file(path);
    const auto packing = [&at](qint64 done, qint64 total) { return at(done * packingShare, total * allShares); };
    if (!gzip::pack(
            content, [&file](QByteArrayView piece) { file.write(piece); }, packing))
        return false;
    file.sync();
    forgetInMemory(file.name());
    Proof proof(content);
    const auto proving = [&at](
                             qint64 done, qint64 total) { return at(total * packingShare + done, total * allShares); };
    try {
        if (!gzip::unpack(
                file.name(), [&proof](QByteArrayView piece) { proof.take(piece); }, proving))
            return false;
    } catch (const RuntimeError &error) {
        if (error.fault() != Fault::Damaged)
            throw;
        proof.fail();
    }
    if (!proof.holds())
        throw RuntimeError(Fault::FileFault,
            u"The disk does not give back what was written to it. A backup that stood there before is still there."_s,
            folder, Written::Nothing);
    refuseDamaged(content, folder);
    file.replace();
    for (const QFileInfo &twin : former) {
        if (twin.filePath() != path)
            QFile::remove(twin.filePath());
    }
    return true;
}

QString backup::find(const QString &folder)
{
    const QFileInfoList found = backupsIn(folder);
    return found.isEmpty() ? QString() : found.first().filePath();
}

fileCheck::Holding backup::look(const QString &backup, const std::atomic_bool &stop)
{
    fileCheck::Holding holding;
    try {
        holding = lookInPassing(fileCheck::Pages::Few, stop, [&backup, &stop](UnfinishedFile &file) {
            const auto goesOn = [&stop](qint64, qint64) { return !stop; };
            return gzip::unpack(
                backup, [&file](QByteArrayView piece) { file.write(piece); }, goesOn);
        });
    } catch (const RuntimeError &error) {
        if (error.source() == backup)
            holding.failure = error.text();
        else
            holding.obstacle = obstacleText(error);
    } catch (const std::bad_alloc &) {
        holding.obstacle = u"There is not enough memory."_s;
    }
    return holding;
}

backup::Restored backup::restore(const QString &backup, const gzip::At &at)
{
    const QString place = session::defaultDatabasePath();
    UnfinishedFile file(place);
    if (!gzip::unpack(
            backup, [&file](QByteArrayView piece) { file.write(piece); }, at))
        return {.isBrokenOff = true};
    file.sync();
    const fileCheck::Report report = fileCheck::check(file);
    if (!report.isReadable()) {
        refuseOtherVersion(file, backup);
        const QString why = report.failure.isEmpty() ? RuntimeError(Fault::Damaged).text() : report.failure;
        throw RuntimeError(Fault::Damaged, u"This backup cannot be restored: %1 Nothing was changed."_s.arg(why),
            backup, Written::Nothing);
    }
    renewDE();
    const QString keptAs = putInPlace(file, place);
    if (!session::isDefaultDatabase(session::DBPath))
        goOverToDefault(keptAs);
    return {.keptAs = keptAs};
}

QDateTime backup::lastGood()
{
    return userValues().value(momentKey()).toDateTime();
}

void backup::noteGood(const QDateTime &moment)
{
    userValues().setValue(momentKey(), moment);
}

bool backup::isDue()
{
    const QDateTime last = lastGood();
    // One that is still to come was noted by a clock that was wrong.
    const QDateTime now = machineClock::now();
    return !last.isValid() || last > now || last.addDays(daysGood) < now;
}
