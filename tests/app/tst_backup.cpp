#include "app/backup.h"

#include "app/startup.h"
#include "base/FileLock.h"
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
#include <QScopeGuard>
#include <QTest>

#include <csignal>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

/// A shop's file packed into a folder and back.
class BackupTest : public QObject {
    Q_OBJECT

private slots:
    void theFileComesBackToTheByte_data();
    void theFileComesBackToTheByte();
    void theNextReplacesTheLast();
    void aFolderThatCannotTakeItKeepsTheLast_data();
    void aFolderThatCannotTakeItKeepsTheLast();
    void aDiskThatGivesBackOtherBytesIsTold();
    void aDamagedShopDoesNotReplaceTheLast();
    void brokenOffItLeavesTheLast();
    void theNameIsFoundInAnyCase();
    void whatAFolderHoldsIsTold();
    void aRestoreBringsTheShopBackAndKeepsTheOther();
    void aBadBackupChangesNothing_data();
    void aBadBackupChangesNothing();
    void aShopThatDisagreesIsRestored();
    void anotherProgramsFileIsNotReplaced();
    void fromAnotherFileTheSessionGoesOver();
    void theDemoShopComesBackAsItWas();
    void aForeignJournalDoesNotReachTheRestoredFile();
    void aRestoreThatFailsAtTheLastLeavesNothing();
    void aBackupOfOtherTablesIsToldAsSuch();
    void aBackupIsDueAfterAWeek();
};

namespace {

constexpr auto atOnce = [](qint64, qint64) { return true; };

/// A shop with a folder for its backups, in which the last one stands.
struct BackedUpShop : TestShop {
    explicit BackedUpShop(const QString &name = u"stick"_s) : stick(folder.filePath(name))
    {
        QDir().mkpath(stick);
        addJob({.number = 7, .date = QDate(2026, 11, 21)});
        addJobRow({.job = 7});
        addPosting(5, QDate(2011, 4, 1), 10);
    }
    bool backUp() { return backup::make(connection.content(), stick, atOnce); }
    [[nodiscard]] QString packed() const { return stick + u"/CVbackup.gz"_s; }
    /// All that lies in the shop's folder, with what the files hold.
    [[nodiscard]] QMap<QString, QByteArray> inFolder() const
    {
        QMap<QString, QByteArray> files;
        for (const QFileInfo &file : QDir(folder.path()).entryInfoList(QDir::Files))
            files[file.fileName()] = contentOf(file.filePath());
        return files;
    }
    [[nodiscard]] QStringList names() const
    {
        return QDir(folder.path()).entryList({u"data15*"_s}, QDir::Files | QDir::Dirs, QDir::Name);
    }

    QString stick;
};

QString tagLine()
{
    return GetSetting(setting::TagLine);
}

QByteArray asPacked(const QByteArray &content)
{
    QByteArray bytes;
    static_cast<void>(gzip::pack(
        content, [&bytes](QByteArrayView piece) { bytes += piece; }, atOnce));
    return bytes;
}

} // namespace

void BackupTest::theFileComesBackToTheByte_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << u"stick"_s;
    QTest::newRow("blanks and signs") << u"my 50% \"copy\" o'clock"_s;
    QTest::newRow("other letters") << u"दुकान ö"_s;
}

void BackupTest::theFileComesBackToTheByte()
{
    QFETCH(const QString, name);
    BackedUpShop shop(name);
    QVERIFY(shop.backUp());
    QCOMPARE(QDir(shop.stick).entryList(QDir::Files), QStringList{u"CVbackup.gz"_s});
    QCOMPARE(QFileInfo(shop.packed()).permissions() & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    // The system's own tool, and its sign for the best level.
    QProcess tool;
    tool.start(u"gzip"_s, {u"-dc"_s, shop.packed()});
    QVERIFY(tool.waitForFinished());
    QCOMPARE(tool.readAllStandardOutput(), contentOf(session::DBPath));
    QCOMPARE(contentOf(shop.packed()).at(8), char(2));
}

void BackupTest::theNextReplacesTheLast()
{
    BackedUpShop shop;
    QVERIFY(shop.backUp());
    const QByteArray first = contentOf(shop.packed());
    SaveSetting(setting::TagLine, u"Made to measure"_s);
    QVERIFY(shop.backUp());
    QVERIFY(contentOf(shop.packed()) != first);
    QCOMPARE(QDir(shop.stick).entryList(QDir::Files).size(), 1);
}

void BackupTest::aFolderThatCannotTakeItKeepsTheLast_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("gone") << u"nowhere/at all"_s;
    QTest::newRow("a file") << u"data15.mdb"_s;
    QTest::newRow("may only be read") << u"/sys"_s;
    QTest::newRow("a folder has the name") << u"taken"_s;
    QTest::newRow("no room") << u"stick"_s;
}

void BackupTest::aFolderThatCannotTakeItKeepsTheLast()
{
    QFETCH(const QString, folder);
    BackedUpShop shop;
    QVERIFY(shop.backUp());
    QDir().mkpath(shop.folder.filePath(u"taken/CVbackup.gz"_s));
    const QByteArray last = contentOf(shop.packed());
    SaveSetting(setting::TagLine, u"Made to measure"_s);
    const QByteArray content = shop.connection.content();
    const auto shopBefore = shop.inFolder();
    if (folder == u"stick") {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit little{8192, RLIM_INFINITY};
        setrlimit(RLIMIT_FSIZE, &little);
    }
    const auto roomAgain = qScopeGuard([] {
        const rlimit all{RLIM_INFINITY, RLIM_INFINITY};
        setrlimit(RLIMIT_FSIZE, &all);
    });
    EXPECT_FAULT(Fault::FileFault,
        static_cast<void>(backup::make(content, QDir(shop.folder.path()).absoluteFilePath(folder), atOnce)));
    QCOMPARE(contentOf(shop.packed()), last);
    QCOMPARE(QDir(shop.stick).entryList(QDir::Files).size(), 1);
    QVERIFY(shop.inFolder() == shopBefore);
}

void BackupTest::aDiskThatGivesBackOtherBytesIsTold()
{
    BackedUpShop shop;
    QVERIFY(shop.backUp());
    const QByteArray last = contentOf(shop.packed());
    const QByteArray content = shop.connection.content();
    QByteArray turned = content;
    turned[turned.size() - 1] = static_cast<char>(turned.back() ^ 1);
    for (const QByteArray &onDisk :
        {asPacked(turned), asPacked(content + '0'), asPacked(content.chopped(1)), last.chopped(9)}) {
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
        QCOMPARE(contentOf(shop.packed()), last);
    }
}

void BackupTest::aDamagedShopDoesNotReplaceTheLast()
{
    BackedUpShop shop;
    SaveSetting(setting::FootNote, QString(40'000, u'x'));
    QVERIFY(shop.backUp());
    const QByteArray last = contentOf(shop.packed());
    QByteArray content = shop.connection.content();
    content[content.size() - 6000] = static_cast<char>(content.at(content.size() - 6000) ^ 1);
    EXPECT_FAULT(Fault::Damaged, static_cast<void>(backup::make(content, shop.stick, atOnce)));
    QCOMPARE(contentOf(shop.packed()), last);
    QCOMPARE(QDir(shop.stick).entryList(QDir::Files).size(), 1);
}

void BackupTest::brokenOffItLeavesTheLast()
{
    BackedUpShop shop;
    QVERIFY(shop.backUp());
    const QByteArray last = contentOf(shop.packed());
    // At the beginning, in the midst, and in the proof.
    for (const int calls : {0, 1, 2}) {
        int left = calls;
        QVERIFY(!backup::make(shop.connection.content(), shop.stick, [&left](qint64, qint64) { return left-- > 0; }));
        QCOMPARE(contentOf(shop.packed()), last);
        QCOMPARE(QDir(shop.stick).entryList(QDir::Files).size(), 1);
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
    // The next one has its name.
    QVERIFY(shop.backUp());
    QCOMPARE(QDir(shop.stick).entryList(QDir::Files), QStringList{u"cvBACKUP.GZ"_s});
    // Of two the one that was written last.
    QVERIFY(QFile::copy(other, shop.packed()));
    const auto setTime = [](const QString &path, int day) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime(QDate(2026, 11, day), QTime(10, 0)), QFile::FileModificationTime));
    };
    setTime(other, 21);
    setTime(shop.packed(), 20);
    QCOMPARE(backup::find(shop.stick), other);
    setTime(shop.packed(), 22);
    QCOMPARE(backup::find(shop.stick), shop.packed());
    SaveSetting(setting::TagLine, u"Made to measure"_s);
    QVERIFY(shop.backUp());
    QCOMPARE(QDir(shop.stick).entryList(QDir::Files), QStringList{u"CVbackup.gz"_s});
}

void BackupTest::whatAFolderHoldsIsTold()
{
    BackedUpShop shop;
    QVERIFY(shop.backUp());
    const std::atomic_bool goOn = false;
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
    writeContent(shop.packed(), contentOf(shop.packed()).chopped(1));
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

    const backup::Restored restored = backup::restore(shop.packed(), atOnce);
    QVERIFY(!restored.isBrokenOff);
    QCOMPARE(QFileInfo(restored.keptAs).fileName(), u"data15-aside-20110401-100000.mdb"_s);
    QCOMPARE(contentOf(restored.keptAs), since);
    QCOMPARE(contentOf(session::DBPath), then);
    QCOMPARE(shop.names(), QStringList({QFileInfo(restored.keptAs).fileName(), u"data15.mdb"_s}));
    OpenDatabase();
    QCOMPARE(tagLine(), u"then"_s);
    // What is kept is another file than the one in use, and a shop by itself.
    SaveSetting(setting::TagLine, u"next"_s);
    session::DBPath = restored.keptAs;
    OpenDatabase();
    QCOMPARE(tagLine(), u"since"_s);
    // A second one within the same second has a name of its own.
    session::DBPath = session::defaultDatabasePath();
    OpenDatabase();
    QVERIFY(backup::restore(shop.packed(), atOnce).keptAs.endsWith(u"-100000-2.mdb"_s));
}

void BackupTest::aBadBackupChangesNothing_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("told");
    QTest::newRow("0 bytes") << 0 << u"is empty"_s;
    QTest::newRow("cut short") << 1 << u"cut short"_s;
    QTest::newRow("a turned bit") << 2 << u"damaged"_s;
    QTest::newRow("more behind it") << 3 << u"more follows"_s;
    QTest::newRow("not packed") << 4 << u"not packed by gzip"_s;
    QTest::newRow("of another program") << 5 << u"not a database of this program"_s;
    QTest::newRow("with another key") << 6 << u"not a database of this program"_s;
    QTest::newRow("half a file, packed well") << 7 << u"damaged"_s;
    QTest::newRow("a page that was changed before") << 8 << u"damaged"_s;
}

void BackupTest::aBadBackupChangesNothing()
{
    QFETCH(const int, kind);
    QFETCH(const QString, told);
    BackedUpShop shop;
    // Some pages of text in the midst.
    SaveSetting(setting::FootNote, QString(40'000, u'x'));
    QVERIFY(shop.backUp());
    const QByteArray content = shop.connection.content();
    QByteArray packed = contentOf(shop.packed());
    const auto turned = [](QByteArray bytes, qsizetype at) {
        bytes[at] = static_cast<char>(bytes.at(at) ^ 1);
        return bytes;
    };
    const QByteArray bad[]{{}, packed.chopped(1), turned(packed, packed.size() / 2), packed + '\0',
        QByteArray(5000, 'a'), asPacked(QByteArray(50'000, 'a')), asPacked(turned(content, 3)),
        asPacked(content.first(content.size() / 2)), asPacked(turned(content, content.size() - 6000))};
    writeContent(shop.packed(), bad[kind]);
    const auto before = shop.inFolder();
    try {
        static_cast<void>(backup::restore(shop.packed(), atOnce));
        QFAIL("it was restored");
    } catch (const RuntimeError &error) {
        QVERIFY2(error.text().contains(told), qPrintable(error.text()));
    }
    QVERIFY(shop.inFolder() == before);
    QVERIFY(shop.connection.isOpen());
    SaveSetting(setting::TagLine, u"goes on"_s);
}

void BackupTest::aShopThatDisagreesIsRestored()
{
    BackedUpShop shop;
    // A row of no card.
    shop.addJobRow({.job = 99});
    QVERIFY(!fileCheck::check(session::DBPath).isWhole());
    QVERIFY(shop.backUp());
    QVERIFY(!backup::restore(shop.packed(), atOnce).isBrokenOff);
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
    EXPECT_FAULT(Fault::Locked, static_cast<void>(backup::restore(shop.packed(), atOnce)));
    QVERIFY(shop.inFolder() == before);
    OpenDatabase();
    QCOMPARE(tagLine(), u"since"_s);
    other.kill();
    other.waitForFinished();
}

void BackupTest::fromAnotherFileTheSessionGoesOver()
{
    BackedUpShop shop;
    SaveSetting(setting::TagLine, u"then"_s);
    QVERIFY(shop.backUp());
    const QString other = shop.folder.filePath(u"branch.mdb"_s);
    QVERIFY(QFile::copy(session::DBPath, other));
    SaveSetting(setting::TagLine, u"default's own"_s);
    session::DBPath = other;
    OpenDatabase();
    SaveSetting(setting::TagLine, u"branch's own"_s);
    WriteConfig();
    const QByteArray branch = contentOf(other);

    const backup::Restored restored = backup::restore(shop.packed(), atOnce);
    RestartSession();
    QCOMPARE(session::DBPath, session::defaultDatabasePath());
    QVERIFY(contentOf(shop.folder.filePath(u"cv.ini"_s)).contains("DBPATH=" + session::DBPath.toUtf8() + "\r\n"));
    QCOMPARE(tagLine(), u"then"_s);
    QCOMPARE(contentOf(other), branch);
    session::DBPath = restored.keptAs;
    OpenDatabase();
    QCOMPARE(tagLine(), u"default's own"_s);

    // Where there was no default file, none is kept, and nothing is made but the restored one.
    session::DBPath = other;
    OpenDatabase();
    QVERIFY(QFile::remove(session::defaultDatabasePath()));
    QCOMPARE(backup::restore(shop.packed(), atOnce).keptAs, QString());
    OpenDatabase();
    QCOMPARE(tagLine(), u"then"_s);
}

void BackupTest::theDemoShopComesBackAsItWas()
{
    BackedUpShop shop;
    const QString demo = shop.folder.filePath(u"demo.mdb"_s);
    QVERIFY(QFile::copy(QStringLiteral(CORVANE_DEMO), demo));
    session::DBPath = demo;
    OpenDatabase();
    // What the shop is worth, account by account.
    const auto books = [] {
        Recordset sums(DE().CN);
        sums.open(u"Select AccID, count(*), sum(Amount) from Postings group by AccID order by AccID"_s);
        QStringList lines;
        for (; !sums.eof(); sums.moveNext())
            lines += sums.value(0).toText() + u' ' + sums.value(1).toText() + u' ' + sums.value(2).toText();
        return lines;
    };
    const QStringList before = books();
    const fileCheck::Report was = fileCheck::check(demo);
    QVERIFY(was.isWhole() && was.cards > 100 && before.size() > 10);
    QVERIFY(backup::make(DE().CN.content(), shop.stick, atOnce));
    DE().CN.execute(u"delete from Postings"_s);
    static_cast<void>(backup::restore(shop.packed(), atOnce));
    RestartSession();
    QCOMPARE(books(), before);
    const fileCheck::Report is = fileCheck::check(session::DBPath);
    QVERIFY(is.isWhole());
    QCOMPARE(
        QList({is.cards, is.rows, is.vouchers, is.postings}), QList({was.cards, was.rows, was.vouchers, was.postings}));
    QCOMPARE(is.lastCard, was.lastCard);
    QCOMPARE(shop.inFolder().keys(),
        QStringList({u"cv.ini"_s, u"data15-aside-20110401-100000.mdb"_s, u"data15.mdb"_s, u"demo.mdb"_s}));
}

void BackupTest::aForeignJournalDoesNotReachTheRestoredFile()
{
    BackedUpShop shop;
    SaveSetting(setting::TagLine, u"then"_s);
    QVERIFY(shop.backUp());
    const QString other = shop.folder.filePath(u"branch.mdb"_s);
    QVERIFY(QFile::copy(session::DBPath, other));
    session::DBPath = other;
    OpenDatabase();
    const QString journal = session::defaultDatabasePath() + u"-journal"_s;
    writeContent(journal, QByteArray(5000, 'j'));
    const backup::Restored restored = backup::restore(shop.packed(), atOnce);
    QVERIFY(!QFileInfo::exists(journal));
    QCOMPARE(contentOf(restored.keptAs + u"/data15.mdb-journal"_s), QByteArray(5000, 'j'));
    OpenDatabase();
    QCOMPARE(tagLine(), u"then"_s);
}

void BackupTest::aRestoreThatFailsAtTheLastLeavesNothing()
{
    BackedUpShop shop;
    QVERIFY(shop.backUp());
    const QString other = shop.folder.filePath(u"branch.mdb"_s);
    QVERIFY(QFile::copy(session::DBPath, other));
    session::DBPath = other;
    OpenDatabase();
    // A journal that cannot be put aside, since its name is taken.
    const QString journal = session::defaultDatabasePath() + u"-journal"_s;
    writeContent(journal, QByteArray(5000, '\0'));
    QVERIFY(QDir().mkpath(journal + u".aside-20110401-100000"_s));
    const auto before = shop.inFolder();
    EXPECT_FAULT(Fault::FileFault, static_cast<void>(backup::restore(shop.packed(), atOnce)));
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
    try {
        static_cast<void>(backup::restore(shop.packed(), atOnce));
        QFAIL("it was restored");
    } catch (const RuntimeError &error) {
        QVERIFY2(error.text().startsWith(u"This backup is of version 14"_s), qPrintable(error.text()));
    }
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

CORVANE_TEST(BackupTest)

#include "tst_backup.moc"
