#include "app/backup.h"

#include "app/SafetyCopier.h"
#include "app/safetyCopy.h"
#include "app/startup.h"
#include "base/RuntimeError.h"
#include "base/clock.h"
#include "base/session.h"
#include "store/DataEnvironment.h"
#include "store/settings.h"
#include "support/TestShop.h"
#include "support/expectFault.h"
#include "support/fileContent.h"
#include "support/testRegistry.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

/// A shop's file packed into a folder and back, and the copies that the program makes by itself.
class BackupTest : public QObject {
    Q_OBJECT

private slots:
    void theFileComesBackToTheByte();
    void aFolderThatCannotTakeItKeepsTheLast();
    void aDiskThatGivesBackOtherBytesIsTold();
    void aDamagedShopReplacesNothingGood();
    void brokenOffItLeavesTheLast();
    void theNameIsFoundInAnyCase();
    void whatAFolderHoldsIsTold();
    void aRestoreBringsTheShopBackAndKeepsTheOther();
    void aBadBackupChangesNothing();
    void aShopThatDisagreesIsRestored();
    void anotherProgramsFileIsNotReplaced();
    void fromAnotherFileTheSessionGoesOver();
    void aRestoreThatFailsAtTheLastLeavesNothing();
    void aBackupOfOtherTablesIsToldAsSuch();
    void aBackupIsDueAfterAWeek();
    void sevenDaysAndTwelveMonthsAreKept();
    void theDayGetsItsCopyAndOldOnesGo();
    void theCopierMakesOneADay();
    void whatIsStoppedOrHalfDoneIsNotCopied();
};

namespace {

constexpr auto atOnce = [](qint64, qint64) { return true; };
const std::atomic_bool goOn = false;
const QDate today(2011, 4, 1);

QFile::Permissions othersRights(const QString &path)
{
    return QFileInfo(path).permissions() & (QFile::ReadGroup | QFile::ReadOther);
}

QStringList copies(const TestShop &shop)
{
    return QDir(shop.folder.filePath(u"copies"_s)).entryList(QDir::Files, QDir::Name);
}

/// A shop with a folder for its backups, in which the last one stands.
struct BackedUpShop : TestShop {
    explicit BackedUpShop(const QString &name = u"stick"_s) : stick(folder.filePath(name))
    {
        QDir().mkpath(stick);
        addJob({.number = 7, .date = QDate(2026, 11, 21)});
        addJobRow({.job = 7});
        addPosting(5, QDate(2011, 4, 1), 10);
    }
    bool backUp() { return backup::make(DE().CN.content(), stick, atOnce); }
    [[nodiscard]] backup::Restored restore() const { return backup::restore(packed(), atOnce); }
    [[nodiscard]] QByteArray last() const { return contentOf(packed()); }
    [[nodiscard]] bool hasTheLastAlone(const QByteArray &content) const
    {
        return last() == content && QDir(stick).entryList(QDir::Files).size() == 1;
    }
    /// The session goes over to another file with the same content; the default one stays beside it.
    [[nodiscard]] QString goElsewhere() const
    {
        const QString other = folder.filePath(u"branch.mdb"_s);
        QFile::copy(session::DBPath, other);
        session::DBPath = other;
        OpenDatabase();
        return other;
    }
    [[nodiscard]] QString packed() const { return stick + u"/CVbackup.gz"_s; }
    /// All that lies in the shop's folder, with what the files hold.
    [[nodiscard]] QMap<QString, QByteArray> inFolder() const
    {
        QMap<QString, QByteArray> files;
        for (const QFileInfo &file : QDir(folder.path()).entryInfoList(QDir::Files))
            files[file.fileName()] = contentOf(file.filePath());
        return files;
    }

    QString stick;
};

QString tagLineOf(const QString &database)
{
    session::DBPath = database;
    OpenDatabase();
    return GetSetting(setting::TagLine);
}

/// With one bit turned, counted from the end where `at` is below nought.
QByteArray turned(QByteArray bytes, qsizetype at)
{
    const qsizetype place = at < 0 ? bytes.size() + at : at;
    bytes[place] = static_cast<char>(bytes.at(place) ^ 1);
    return bytes;
}

/// Why a backup is refused; nothing where it was restored.
QString refusalOf(const BackedUpShop &shop)
{
    try {
        static_cast<void>(shop.restore());
        return {};
    } catch (const RuntimeError &error) {
        return error.text();
    }
}

QByteArray asPacked(const QByteArray &content)
{
    QByteArray bytes;
    static_cast<void>(gzip::pack(
        content, [&bytes](QByteArrayView piece) { bytes += piece; }, atOnce));
    return bytes;
}

} // namespace

void BackupTest::theFileComesBackToTheByte()
{
    BackedUpShop shop(u"my 50% \"copy\" o'clock दुकान ö"_s);
    // The next backup replaces the last.
    QVERIFY(shop.backUp());
    const QByteArray demo = contentOf(QStringLiteral(CORVANE_DEMO));
    QVERIFY(backup::make(demo, shop.stick, atOnce));
    QCOMPARE(QDir(shop.stick).entryList(QDir::Files), QStringList{u"CVbackup.gz"_s});
    QCOMPARE(othersRights(shop.packed()), QFile::Permissions());
    // The system's own tool, and its sign for the best level.
    QProcess tool;
    tool.start(u"gzip"_s, {u"-dc"_s, shop.packed()});
    QVERIFY(tool.waitForFinished());
    QVERIFY(tool.readAllStandardOutput() == demo);
    QCOMPARE(shop.last().at(8), char(2));
    QVERIFY(!shop.restore().isBrokenOff);
    QVERIFY(contentOf(session::DBPath) == demo);
}

void BackupTest::aFolderThatCannotTakeItKeepsTheLast()
{
    BackedUpShop shop;
    QVERIFY(shop.backUp());
    QDir().mkpath(shop.folder.filePath(u"taken/CVbackup.gz"_s));
    const QByteArray last = shop.last();
    SaveSetting(setting::TagLine, u"Made to measure"_s);
    const QByteArray content = shop.connection.content();
    const auto shopBefore = shop.inFolder();
    // One that is gone, a file, one that may only be read, one in which a folder has the name.
    for (const QString &folder : {u"nowhere/at all"_s, u"data15.mdb"_s, u"/sys"_s, u"taken"_s}) {
        EXPECT_FAULT(Fault::FileFault,
            static_cast<void>(backup::make(content, QDir(shop.folder.path()).absoluteFilePath(folder), atOnce)));
        QVERIFY(shop.hasTheLastAlone(last));
        QVERIFY(shop.inFolder() == shopBefore);
    }
}

void BackupTest::aDiskThatGivesBackOtherBytesIsTold()
{
    BackedUpShop shop;
    QVERIFY(shop.backUp());
    const QByteArray last = shop.last();
    const QByteArray content = shop.connection.content();
    for (const QByteArray &onDisk :
        {asPacked(turned(content, -1)), asPacked(content + '0'), asPacked(content.chopped(1)), last.chopped(9)}) {
        try {
            static_cast<void>(backup::make(content, shop.stick, [&](qint64 done, qint64 total) {
                // All is written, and about to be read.
                if (done == total / 10 * 9)
                    writeContent(shop.packed() + u".new"_s, onDisk);
                return true;
            }));
            QFAIL("it was taken for good");
        } catch (const RuntimeError &error) {
            QVERIFY(error.text().startsWith(u"The disk does not give back"_s));
        }
        QCOMPARE(shop.last(), last);
    }
}

void BackupTest::aDamagedShopReplacesNothingGood()
{
    BackedUpShop shop;
    SaveSetting(setting::FootNote, QString(40'000, u'x'));
    QVERIFY(shop.backUp());
    const QByteArray last = shop.last();
    const QByteArray content = shop.connection.content();
    safetyCopy::make(content, session::DBPath, today, goOn);
    const QByteArray damaged = turned(content, -6000);
    EXPECT_FAULT(Fault::Damaged, static_cast<void>(backup::make(damaged, shop.stick, atOnce)));
    QVERIFY(shop.hasTheLastAlone(last));
    EXPECT_FAULT(Fault::Damaged, safetyCopy::make(damaged, session::DBPath, today, goOn));
    EXPECT_FAULT(Fault::Damaged, safetyCopy::make(damaged, session::DBPath, today.addDays(1), goOn));
    QCOMPARE(copies(shop), QStringList{u"data15-20110401.mdb"_s});
    QVERIFY(contentOf(safetyCopy::pathOf(session::DBPath, today)) == content);
}

void BackupTest::brokenOffItLeavesTheLast()
{
    BackedUpShop shop;
    QVERIFY(shop.backUp());
    const QByteArray last = shop.last();
    // At the beginning, in the midst, and in the proof.
    for (const int calls : {0, 1, 2}) {
        int left = calls;
        QVERIFY(!backup::make(shop.connection.content(), shop.stick, [&left](qint64, qint64) { return left-- > 0; }));
        QVERIFY(shop.hasTheLastAlone(last));
    }
    const auto before = shop.inFolder();
    QVERIFY(backup::restore(shop.packed(), [](qint64, qint64) { return false; }).isBrokenOff);
    QVERIFY(shop.inFolder() == before);
    QVERIFY(shop.connection.isOpen());
}

void BackupTest::theNameIsFoundInAnyCase()
{
    BackedUpShop shop;
    QCOMPARE(backup::find(shop.stick), QString());
    QCOMPARE(backup::find(shop.stick + u"/nowhere"_s), QString());
    QVERIFY(shop.backUp());
    QCOMPARE(backup::find(shop.stick), shop.packed());
    const QString other = shop.stick + u"/cvBACKUP.GZ"_s;
    QVERIFY(QFile::rename(shop.packed(), other));
    QCOMPARE(backup::find(shop.stick), other);
    // Of two the one that was written last.
    QVERIFY(QFile::copy(other, shop.packed()));
    for (const auto &[days, newest] : {std::pair{-1, shop.packed()}, std::pair{1, other}}) {
        QFile file(other);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime::currentDateTime().addDays(days), QFile::FileModificationTime));
        QCOMPARE(backup::find(shop.stick), newest);
    }
    // The next one has its name, and is alone.
    QVERIFY(shop.backUp());
    QCOMPARE(QDir(shop.stick).entryList(QDir::Files), QStringList{u"cvBACKUP.GZ"_s});
}

void BackupTest::whatAFolderHoldsIsTold()
{
    BackedUpShop shop;
    QVERIFY(shop.backUp());
    const fileCheck::Holding holding = backup::look(shop.packed(), goOn);
    QCOMPARE(holding.failure, QString());
    QCOMPARE(holding.cards, 1);
    QCOMPARE(holding.lastCard, QDate(2026, 11, 21));
    QCOMPARE(holding.version, 15.0);
    // That the machine has no room for passing files is not the backup's fault.
    qputenv("TMPDIR", QFile::encodeName(session::DBPath));
    const fileCheck::Holding notLooked = backup::look(shop.packed(), goOn);
    qunsetenv("TMPDIR");
    QCOMPARE(notLooked.failure, QString());
    QVERIFY(notLooked.obstacle.startsWith(u"No file can be kept in "_s));
    writeContent(shop.packed(), shop.last().chopped(1));
    QVERIFY(backup::look(shop.packed(), goOn).failure.contains(u"cut short"_s));
}

void BackupTest::aRestoreBringsTheShopBackAndKeepsTheOther()
{
    BackedUpShop shop;
    SaveSetting(setting::TagLine, u"then"_s);
    QVERIFY(shop.backUp());
    const QByteArray then = contentOf(session::DBPath);
    SaveSetting(setting::TagLine, u"since"_s);
    const QByteArray since = contentOf(session::DBPath);

    const backup::Restored restored = shop.restore();
    QVERIFY(!restored.isBrokenOff);
    QCOMPARE(QFileInfo(restored.keptAs).fileName(), u"data15-aside-20110401-100000.mdb"_s);
    QCOMPARE(contentOf(restored.keptAs), since);
    QCOMPARE(contentOf(session::DBPath), then);
    QCOMPARE(QDir(shop.folder.path()).entryList({u"data15*"_s}).size(), 2);
    // A second one within the same second has a name of its own.
    QVERIFY(shop.restore().keptAs.endsWith(u"-100000-2.mdb"_s));
}

void BackupTest::aBadBackupChangesNothing()
{
    BackedUpShop shop;
    // Some pages of text in the midst.
    SaveSetting(setting::FootNote, QString(40'000, u'x'));
    QVERIFY(shop.backUp());
    const QByteArray content = shop.connection.content();
    const QByteArray packed = shop.last();
    const std::pair<QByteArray, QString> backups[]{{{}, u"is empty"_s}, {packed.chopped(1), u"cut short"_s},
        {turned(packed, packed.size() / 2), u"damaged"_s}, {packed + '\0', u"more follows"_s},
        {QByteArray(5000, 'a'), u"not packed by gzip"_s},
        // Of another program, with another key, half a file that is packed well, and a page that was changed before.
        {asPacked(QByteArray(50'000, 'a')), u"not a database of this program"_s},
        {asPacked(turned(content, 3)), u"not a database of this program"_s},
        {asPacked(content.first(content.size() / 2)), u"damaged"_s}, {asPacked(turned(content, -6000)), u"damaged"_s}};
    for (const auto &[bad, told] : backups) {
        writeContent(shop.packed(), bad);
        const auto before = shop.inFolder();
        QVERIFY2(refusalOf(shop).contains(told), qPrintable(told));
        QVERIFY(shop.inFolder() == before);
        QVERIFY(shop.connection.isOpen());
        SaveSetting(setting::TagLine, told);
    }
}

void BackupTest::aShopThatDisagreesIsRestored()
{
    BackedUpShop shop;
    // A row of no card.
    shop.addJobRow({.job = 99});
    QVERIFY(!fileCheck::check(session::DBPath).isWhole());
    QVERIFY(shop.backUp());
    QVERIFY(!shop.restore().isBrokenOff);
}

void BackupTest::anotherProgramsFileIsNotReplaced()
{
    BackedUpShop shop;
    QVERIFY(shop.backUp());
    SaveSetting(setting::TagLine, u"since"_s);
    QProcess other;
    other.start(u"flock"_s, {u"-s"_s, session::DBPath, u"sh"_s, u"-c"_s, u"echo marked; sleep 60"_s});
    QVERIFY(other.waitForReadyRead());
    const auto before = shop.inFolder();
    EXPECT_FAULT(Fault::Locked, static_cast<void>(shop.restore()));
    QVERIFY(shop.inFolder() == before);
    QCOMPARE(tagLineOf(session::DBPath), u"since"_s);
    other.kill();
    other.waitForFinished();
}

void BackupTest::fromAnotherFileTheSessionGoesOver()
{
    BackedUpShop shop;
    SaveSetting(setting::TagLine, u"then"_s);
    QVERIFY(shop.backUp());
    SaveSetting(setting::TagLine, u"default's own"_s);
    const QString other = shop.goElsewhere();
    SaveSetting(setting::TagLine, u"branch's own"_s);
    WriteConfig();
    const QByteArray branch = contentOf(other);
    const QByteArray byDefault = contentOf(session::defaultDatabasePath());
    const QString journal = session::defaultDatabasePath() + u"-journal"_s;
    writeContent(journal, QByteArray(5000, 'j'));

    const backup::Restored restored = shop.restore();
    // A journal that lies about does not reach the restored file.
    QVERIFY(!QFileInfo::exists(journal));
    QCOMPARE(contentOf(restored.keptAs + u"/data15.mdb-journal"_s), QByteArray(5000, 'j'));
    QVERIFY(contentOf(restored.keptAs + u"/data15.mdb"_s) == byDefault);
    RestartSession();
    QCOMPARE(session::DBPath, session::defaultDatabasePath());
    QVERIFY(contentOf(shop.folder.filePath(u"cv.ini"_s)).contains("DBPATH=" + session::DBPath.toUtf8() + "\r\n"));
    QCOMPARE(GetSetting(setting::TagLine), u"then"_s);
    QCOMPARE(contentOf(other), branch);

    // Where there was no default file, none is kept, and nothing is made but the restored one.
    QCOMPARE(tagLineOf(other), u"branch's own"_s);
    QVERIFY(QFile::remove(session::defaultDatabasePath()));
    QCOMPARE(shop.restore().keptAs, QString());
    QCOMPARE(tagLineOf(session::defaultDatabasePath()), u"then"_s);
}

void BackupTest::aRestoreThatFailsAtTheLastLeavesNothing()
{
    BackedUpShop shop;
    QVERIFY(shop.backUp());
    const QString other = shop.goElsewhere();
    // A journal that cannot be put aside, since its name is taken.
    const QString journal = session::defaultDatabasePath() + u"-journal"_s;
    writeContent(journal, QByteArray(5000, '\0'));
    QVERIFY(QDir().mkpath(journal + u".aside-20110401-100000"_s));
    const auto before = shop.inFolder();
    EXPECT_FAULT(Fault::FileFault, static_cast<void>(shop.restore()));
    QVERIFY(shop.inFolder() == before);
    QCOMPARE(session::DBPath, other);
}

void BackupTest::aBackupOfOtherTablesIsToldAsSuch()
{
    BackedUpShop shop;
    SaveSetting(setting::DatabaseVersion, u"14"_s);
    shop.connection.define(u"PRAGMA writable_schema=1"_s);
    shop.connection.define(u"update sqlite_master set sql=replace(sql, 'AmountPaid', 'Paid') where name='JOBS'"_s);
    QVERIFY(shop.backUp());
    const auto before = shop.inFolder();
    const QString refusal = refusalOf(shop);
    QVERIFY2(refusal.startsWith(u"This backup is of version 14"_s), qPrintable(refusal));
    QVERIFY(shop.inFolder() == before);
}

void BackupTest::aBackupIsDueAfterAWeek()
{
    TestShop shop;
    QVERIFY(backup::isDue());
    const QDateTime moment(QDate(2011, 4, 1), QTime(10, 0));
    backup::noteGood(moment);
    QCOMPARE(backup::lastGood(), moment);
    const auto isDueAt = [](const QDateTime &now) {
        machineClock::replace([now] { return now; });
        return backup::isDue();
    };
    QVERIFY(!isDueAt(moment.addDays(7)));
    QVERIFY(isDueAt(moment.addDays(7).addSecs(1)));
    QVERIFY(isDueAt(moment.addSecs(-1)));
    // Each file has its own.
    session::DBPath = session::programPath(u"demo.mdb");
    QVERIFY(!backup::lastGood().isValid());
}

void BackupTest::sevenDaysAndTwelveMonthsAreKept()
{
    QList<QDate> days;
    for (int i = 0; i < 500; ++i)
        days += today.addDays(-i);
    QList<QDate> wanted;
    for (int i = 0; i < 7; ++i)
        wanted += today.addDays(-i);
    // April has its last day among the seven, March its last, too.
    for (QDate month(2011, 3, 1); month > QDate(2010, 5, 1); month = month.addMonths(-1))
        wanted += month.addDays(-1);
    QCOMPARE(safetyCopy::kept(days), wanted);
    // Days on which nobody came count as little as months.
    QCOMPARE(safetyCopy::kept({QDate(2009, 1, 5), QDate(2005, 1, 5)}), QList({QDate(2009, 1, 5), QDate(2005, 1, 5)}));
    QCOMPARE(safetyCopy::kept({}), QList<QDate>());
}

void BackupTest::theDayGetsItsCopyAndOldOnesGo()
{
    TestShop shop;
    SaveSetting(setting::TagLine, u"of today"_s);
    QDir(shop.folder.path()).mkdir(u"copies"_s);
    const auto lay = [&shop](const QString &name) { writeContent(shop.folder.filePath(u"copies/"_s + name), "old"); };
    for (int day = 10; day < 20; ++day)
        lay(u"data15-201103%1.mdb"_s.arg(day));
    lay(u"data15-20100310.mdb"_s);
    lay(u"data15-20110305.mdb.new"_s);
    // Of other files and other hands, and of a clock that was wrong.
    const QStringList others{u"data15-20110402.mdb"_s, u"data15-20990101.mdb"_s, u"demo-20110310.mdb"_s,
        u"data15-20110399.mdb"_s, u"data15-20110310.txt"_s, u"notes"_s};
    for (const QString &name : others)
        lay(name);
    safetyCopy::make(shop.connection.content(), session::DBPath, today, goOn);
    QStringList wanted = others;
    for (int day = 14; day < 20; ++day)
        wanted += u"data15-201103%1.mdb"_s.arg(day);
    wanted << u"data15-20100310.mdb"_s << u"data15-20110401.mdb"_s;
    wanted.sort();
    QCOMPARE(copies(shop), wanted);
    QCOMPARE(contentOf(safetyCopy::pathOf(session::DBPath, today)), contentOf(session::DBPath));
    QCOMPARE(othersRights(safetyCopy::pathOf(session::DBPath, today)), QFile::Permissions());
}

void BackupTest::theCopierMakesOneADay()
{
    TestShop shop;
    SafetyCopier copier;
    QSignalSpy made(&copier, &SafetyCopier::made);
    copier.look();
    QVERIFY(made.wait());
    QCOMPARE(copies(shop), QStringList{u"data15-20110401.mdb"_s});
    const QByteArray first = contentOf(safetyCopy::pathOf(session::DBPath, today));
    SaveSetting(setting::TagLine, u"later that day"_s);
    QTest::qWait(50);
    copier.look();
    QTest::qWait(200);
    QCOMPARE(contentOf(safetyCopy::pathOf(session::DBPath, today)), first);
    machineClock::replace([] { return QDateTime(today.addDays(1), QTime(10, 0)); });
    copier.look();
    QVERIFY(made.wait());
    QCOMPARE(copies(shop).size(), 2);
}

void BackupTest::whatIsStoppedOrHalfDoneIsNotCopied()
{
    TestShop shop;
    const std::atomic_bool stop = true;
    safetyCopy::make(shop.connection.content(), session::DBPath, today, stop);
    QCOMPARE(copies(shop), QStringList());
    SafetyCopier copier;
    WriteGroup::run(shop.connection, [&copier] {
        SaveSetting(setting::TagLine, u"half"_s);
        copier.look();
    });
    QTest::qWait(100);
    QCOMPARE(copies(shop), QStringList());
    renewDE();
    copier.look();
    QTest::qWait(100);
    QCOMPARE(copies(shop), QStringList());
}

CORVANE_TEST(BackupTest)
#include "tst_backup.moc"
