#include "store/DataEnvironment.h"
#include "support/StoreFile.h"
#include "support/expectFault.h"
#include "support/fileContent.h"
#include "support/testRegistry.h"

#include <QDir>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

using namespace Qt::StringLiterals;

/// What lies beside a file when it is opened: a write that was cut short, or a journal that does not belong there.
class LeftBehindTest : public QObject {
    Q_OBJECT

private slots:
    void aWriteCutShortIsTakenBackAndKept();
    void itIsFoundBehindALinkAndLookingTakesNothingBack();
    void aForeignJournalDoesNotSpoilTheCopy();
    void whatDoesNotBelongThereIsTakenAway();
    void theJournalOfARunningProgramIsLeftAlone();
    void aSecondConnectionDoesNotFreeTheFirstOne();
};

namespace {

/// A file and its journal in the midst of a write, as a power cut leaves them.
struct CutShort {
    QByteArray file;
    QByteArray journal;

    explicit CutShort(StoreFile &shop)
    {
        shop.addAccount(QString(60000, u'a'));
        // So small a cache that the engine has to write before the commit.
        shop.connection.define(u"PRAGMA cache_size = 1"_s);
        shop.connection.define(u"begin immediate"_s);
        shop.connection.define(u"Update Accounts set Title='%1' where id=5"_s.arg(QString(60000, u'b')));
        shop.connection.define(u"Insert into INFO (USER, PASS) values ('%1', '')"_s.arg(QString(60000, u'c')));
        file = contentOf(shop.path());
        journal = contentOf(shop.path() + u"-journal"_s);
        shop.connection.define(u"rollback"_s);
        DE().CN.close();
        QVERIFY(journal.size() > 4096);
    }
    void leaveIn(const StoreFile &shop) const
    {
        writeContent(shop.path(), file);
        writeContent(shop.path() + u"-journal"_s, journal);
    }
};

QStringList titles(Connection &connection)
{
    QStringList texts = StoreFile::linesOf(connection, u"Select Title from Accounts order by Id"_s);
    for (QString &text : texts)
        text.truncate(8);
    return texts;
}

const QStringList soundTitles{u"Wages"_s, u"Sales"_s, u"Purchase"_s, u"Cash"_s, u"aaaaaaaa"_s};

} // namespace

void LeftBehindTest::aWriteCutShortIsTakenBackAndKept()
{
    StoreFile shop;
    const CutShort cut(shop);
    cut.leaveIn(shop);
    Connection connection;
    connection.open(shop.path());
    QCOMPARE(titles(connection), soundTitles);
    const QString kept = connection.keptAside();
    QCOMPARE(QFileInfo(kept).absolutePath(), shop.folder.path());
    QVERIFY(QFileInfo(kept).fileName().startsWith(u"data15-aside-20"_s));
    QCOMPARE(QFile::permissions(kept) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    QCOMPARE(contentOf(kept + u"/data15.mdb"_s), cut.file);
    QCOMPARE(contentOf(kept + u"/data15.mdb-journal"_s), cut.journal);
    QVERIFY(!QFile::exists(shop.path() + u"-journal"_s));
    connection.close();

    // Once more in the same second: the first copy stays.
    writeContent(shop.path() + u"-journal"_s, "x");
    connection.open(shop.path());
    QVERIFY(connection.keptAside() != kept);
    QCOMPARE(contentOf(kept + u"/data15.mdb"_s), cut.file);
    connection.close();
    connection.open(shop.path());
    QCOMPARE(connection.keptAside(), QString());
}

void LeftBehindTest::itIsFoundBehindALinkAndLookingTakesNothingBack()
{
    StoreFile shop;
    const CutShort cut(shop);
    cut.leaveIn(shop);
    Connection connection;
    EXPECT_FAULT(Fault::CannotOpen, connection.openReadOnly(shop.path()));
    QVERIFY(!connection.isOpen());
    QCOMPARE(contentOf(shop.path()), cut.file);
    QCOMPARE(contentOf(shop.path() + u"-journal"_s), cut.journal);
    const QTemporaryDir desk;
    const QString link = desk.filePath(u"shop.mdb"_s);
    QVERIFY(QFile::link(shop.path(), link));
    connection.open(link);
    QCOMPARE(titles(connection), soundTitles);
    QCOMPARE(QFileInfo(connection.keptAside()).absolutePath(), shop.folder.path());
    QCOMPARE(contentOf(connection.keptAside() + u"/data15.mdb-journal"_s), cut.journal);
    QCOMPARE(QDir(desk.path()).entryList(QDir::Files), QStringList{u"shop.mdb"_s});
}

void LeftBehindTest::aForeignJournalDoesNotSpoilTheCopy()
{
    StoreFile shop;
    const CutShort cut(shop);
    DE().CN.open(shop.path());
    shop.addAccount(u"written since"_s);
    DE().CN.close();
    const QByteArray whole = contentOf(shop.path());
    // Of an older state of the same file, and of another one.
    for (const bool other : {false, true}) {
        writeContent(shop.path(), whole);
        if (other) {
            StoreFile stranger;
            writeContent(shop.path() + u"-journal"_s, CutShort(stranger).journal);
        } else {
            writeContent(shop.path() + u"-journal"_s, cut.journal);
        }
        Connection connection;
        try {
            connection.open(shop.path());
        } catch (const RuntimeError &error) {
            QVERIFY(error.fault() == Fault::Damaged || error.fault() == Fault::NotADatabase);
        }
        QCOMPARE(contentOf(connection.keptAside() + u"/data15.mdb"_s), whole);
        connection.close();
        const QString copy = connection.keptAside() + u"/data15.mdb"_s;
        QVERIFY(QFile::remove(copy + u"-journal"_s));
        connection.open(copy);
        QCOMPARE(titles(connection), soundTitles + QStringList{u"written "_s});
    }
}

void LeftBehindTest::whatDoesNotBelongThereIsTakenAway()
{
    const QByteArray log(5000, 'w');
    // A log of another way of writing, which is kept; a journal that is over, which isn't.
    for (const auto &[name, content] : {std::pair{u"-wal"_s, log}, std::pair{u"-journal"_s, QByteArray()},
             std::pair{u"-journal"_s, QByteArray(4096, '\0')}}) {
        StoreFile shop;
        shop.addAccount(u"aaaaaaaa"_s);
        DE().CN.close();
        writeContent(shop.path() + name, content);
        Connection connection;
        connection.open(shop.path());
        QCOMPARE(titles(connection), soundTitles);
        QVERIFY(!QFile::exists(shop.path() + name));
        if (content == log)
            QCOMPARE(contentOf(connection.keptAside() + u"/data15.mdb-wal"_s), log);
        else
            QCOMPARE(connection.keptAside(), QString());
    }
}

void LeftBehindTest::theJournalOfARunningProgramIsLeftAlone()
{
    StoreFile shop;
    shop.addAccount(u"aaaaaaaa"_s);
    DE().CN.close();
    int ready[2];
    QCOMPARE(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        Connection writing;
        writing.open(shop.path());
        writing.define(u"begin immediate"_s);
        writing.execute(u"Update Accounts set Title='half' where id=5"_s);
        const char done = 1;
        if (::write(ready[1], &done, 1) == 1)
            pause();
        _exit(1);
    }
    char done = 0;
    QCOMPARE(read(ready[0], &done, 1), ssize_t(1));
    const QString journal = shop.path() + u"-journal"_s;
    QVERIFY(QFile::exists(journal));
    Connection connection;
    connection.open(shop.path());
    QCOMPARE(connection.keptAside(), QString());
    QCOMPARE(titles(connection), soundTitles);
    QVERIFY(QFile::exists(journal));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    QCOMPARE(titles(connection), soundTitles);
    close(ready[0]);
    close(ready[1]);
}

void LeftBehindTest::aSecondConnectionDoesNotFreeTheFirstOne()
{
    StoreFile shop;
    shop.connection.define(u"begin immediate"_s);
    {
        Connection second;
        second.open(shop.path());
    }
    // Another process asks the system who has the lock that a writer holds.
    const pid_t child = fork();
    if (child == 0) {
        constexpr off_t reservedByte = 0x40000001;
        const int descriptor = open(QFile::encodeName(shop.path()).constData(), O_RDWR);
        struct flock lock = {};
        lock.l_type = F_WRLCK;
        lock.l_whence = SEEK_SET;
        lock.l_start = reservedByte;
        lock.l_len = 1;
        _exit(fcntl(descriptor, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    QCOMPARE(status, 0);
    shop.connection.define(u"rollback"_s);
}

CORVANE_TEST(LeftBehindTest)
#include "tst_leftBehind.moc"
