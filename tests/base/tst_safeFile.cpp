#include "base/safeFile.h"

#include "base/FileLock.h"
#include "support/expectFault.h"
#include "support/testRegistry.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <tuple>

using namespace Qt::StringLiterals;

/// Files that are there whole or not at all, and the marks on those in use.
class SafeFileTest : public QObject {
    Q_OBJECT

private slots:
    void aFileIsReplacedWhole();
    void aFileIsPlacedWhereNothingStands();
    void aFailureTellsWhatBecameOfTheFile();
    void nothingIsLeftOfAFileThatIsNotFinished();
    void whatAStoppedProgramLeftIsTakenOver();
    void twoMakersOfOneFileDoNotMix();
    void aJournalOfThatNameIsPutAside();
    void onlyTheOwnerMayLook();
    void aMarkIsSharedOrAlone();
    void theProcessHasOneSharedMark();
    void aMarkEndsWithItsProcess();
};

namespace {

struct Folder : QTemporaryDir {
    [[nodiscard]] QString at(const QString &name) const { return filePath(name); }
    [[nodiscard]] QStringList names() const { return QDir(path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot); }
    [[nodiscard]] QByteArray content(const QString &name) const
    {
        QFile file(at(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("nothing");
    }
    void write(const QString &name, const QByteArray &content) const
    {
        QFile file(at(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }
};

unsigned rightsOf(const QString &path)
{
    struct stat state = {};
    return stat(QFile::encodeName(path).constData(), &state) == 0 ? state.st_mode & 0777U : 0U;
}

} // namespace

void SafeFileTest::aFileIsReplacedWhole()
{
    Folder folder;
    safeFile::writeWhole(folder.at(u"cv.ini"_s), "first");
    QCOMPARE(folder.content(u"cv.ini"_s), "first");
    safeFile::writeWhole(folder.at(u"cv.ini"_s), QByteArray(3 << 20, 'x'));
    safeFile::writeWhole(folder.at(u"cv.ini"_s), "");
    QCOMPARE(folder.content(u"cv.ini"_s), "");
    QCOMPARE(folder.names(), QStringList{u"cv.ini"_s});

    EXPECT_FAULT(Fault::FileFault, safeFile::writeWhole(folder.at(u"missing/cv.ini"_s), "x"));
    QVERIFY(QDir(folder.path()).mkdir(u"taken"_s));
    EXPECT_FAULT(Fault::FileFault, safeFile::writeWhole(folder.at(u"taken"_s), "x"));
    QCOMPARE(folder.names(), QStringList({u"cv.ini"_s, u"taken"_s}));
}

void SafeFileTest::aFileIsPlacedWhereNothingStands()
{
    Folder folder;
    const QByteArray large(3 << 20, 'y');
    folder.write(u"delivered"_s, large);
    safeFile::copyWhole(folder.at(u"delivered"_s), folder.at(u"copy"_s));
    QCOMPARE(folder.content(u"copy"_s), large);
    folder.write(u"copy"_s, "worked in");
    EXPECT_FAULT(Fault::FileFault, safeFile::copyWhole(folder.at(u"delivered"_s), folder.at(u"copy"_s)));
    QCOMPARE(folder.content(u"copy"_s), "worked in");
    EXPECT_FAULT(Fault::FileFault, safeFile::copyWhole(folder.at(u"gone"_s), folder.at(u"other"_s)));
    QCOMPARE(folder.names(), QStringList({u"copy"_s, u"delivered"_s}));
}

void SafeFileTest::aFailureTellsWhatBecameOfTheFile()
{
    Folder folder;
    folder.write(u"a"_s, "x");
    const UnfinishedFile other(folder.at(u"taken"_s));
    for (const auto &[from, to] :
        {std::pair{u"gone"_s, u"b"_s}, {u"a"_s, u"missing/b"_s}, {u"a"_s, u"a"_s}, {u"a"_s, u"taken"_s}}) {
        try {
            safeFile::copyWhole(folder.at(from), folder.at(to));
            QFAIL("it was copied");
        } catch (const RuntimeError &error) {
            QCOMPARE(error.written(), Written::Nothing);
            QVERIFY(error.canGoOn());
            QVERIFY2(error.fault() == Fault::Locked || error.text().contains(u"\n\nNothing of this file was written."),
                qPrintable(error.text()));
        }
    }
}

void SafeFileTest::nothingIsLeftOfAFileThatIsNotFinished()
{
    Folder folder;
    folder.write(u"a"_s, "before");
    {
        UnfinishedFile file(folder.at(u"a"_s));
        file.write("half");
        folder.write(u"a.new-journal"_s, "of the engine");
        QCOMPARE(folder.content(u"a"_s), "before");
    }
    QCOMPARE(folder.content(u"a"_s), "before");
    QCOMPARE(folder.names(), QStringList{u"a"_s});
}

void SafeFileTest::whatAStoppedProgramLeftIsTakenOver()
{
    Folder folder;
    folder.write(u"a.new"_s, QByteArray(5000, 'o'));
    folder.write(u"a.new-journal"_s, "old");
    {
        UnfinishedFile file(folder.at(u"a"_s));
        QVERIFY(!QFile::exists(file.name() + u"-journal"_s));
        file.write("new");
        file.place();
    }
    QCOMPARE(folder.content(u"a"_s), "new");
    QCOMPARE(folder.names(), QStringList{u"a"_s});
}

void SafeFileTest::twoMakersOfOneFileDoNotMix()
{
    Folder folder;
    UnfinishedFile first(folder.at(u"a"_s));
    first.write("first");
    EXPECT_FAULT(Fault::Locked, UnfinishedFile(folder.at(u"a"_s)));
    QCOMPARE(folder.content(u"a.new"_s), "first");
    first.place();
    // The first one still has its mark on the file, which has its own name now.
    UnfinishedFile second(folder.at(u"a"_s));
    second.write("second");
    folder.write(u"a-journal"_s, "of the first");
    EXPECT_FAULT(Fault::FileFault, second.place());
    QCOMPARE(folder.content(u"a"_s), "first");
    QCOMPARE(folder.content(u"a-journal"_s), "of the first");
}

void SafeFileTest::aJournalOfThatNameIsPutAside()
{
    Folder folder;
    folder.write(u"shop.mdb-journal"_s, "of another file");
    folder.write(u"shop.mdb-wal"_s, "of a third");
    UnfinishedFile file(folder.at(u"shop.mdb"_s));
    file.write("whole");
    file.place();
    QVERIFY(!QFile::exists(folder.at(u"shop.mdb-journal"_s)));
    QVERIFY(!QFile::exists(folder.at(u"shop.mdb-wal"_s)));
    const QStringList kept = QDir(folder.path()).entryList({u"shop.mdb-*.aside-*"_s});
    QCOMPARE(kept.size(), 2);
    QCOMPARE(folder.content(kept.first()), "of another file");
}

void SafeFileTest::onlyTheOwnerMayLook()
{
    Folder folder;
    const mode_t before = umask(0);
    const auto restore = qScopeGuard([before] { umask(before); });
    safeFile::writeWhole(folder.at(u"a"_s), "x");
    QVERIFY(safeFile::makeFolder(folder.at(u"in/folder"_s)));
    QVERIFY(safeFile::makeFolder(folder.at(u"in/folder"_s)));
    QVERIFY(!safeFile::makeFolder(folder.at(u"a/folder"_s)));
    // A stopped program of an earlier version has left this.
    folder.write(u"c.new"_s, "old");
    QCOMPARE(chmod(QFile::encodeName(folder.at(u"c.new"_s)).constData(), 0666), 0);
    safeFile::writeWhole(folder.at(u"c"_s), "x");
    QCOMPARE(rightsOf(folder.at(u"c"_s)), 0600U);
    QVERIFY(QFile::link(folder.at(u"a"_s), folder.at(u"d.new"_s)));
    EXPECT_FAULT(Fault::FileFault, safeFile::writeWhole(folder.at(u"d"_s), "into another file"));
    QCOMPARE(folder.content(u"a"_s), "x");
    QCOMPARE(rightsOf(folder.at(u"a"_s)), 0600U);
    QCOMPARE(rightsOf(folder.at(u"in"_s)), 0700U);
    QCOMPARE(rightsOf(folder.at(u"in/folder"_s)), 0700U);
    safeFile::keepToOwner();
    folder.write(u"b"_s, "x");
    QVERIFY(QDir(folder.path()).mkdir(u"plain"_s));
    QCOMPARE(rightsOf(folder.at(u"b"_s)), 0600U);
    QCOMPARE(rightsOf(folder.at(u"plain"_s)), 0700U);
}

void SafeFileTest::aMarkIsSharedOrAlone()
{
    Folder folder;
    folder.write(u"a"_s, "x");
    const QString path = folder.at(u"a"_s);
    auto first = std::make_unique<FileLock>(path, FileLock::Shared);
    auto second = std::make_unique<FileLock>(path, FileLock::Shared);
    EXPECT_FAULT(Fault::Locked, FileLock(path, FileLock::Alone));
    first.reset();
    EXPECT_FAULT(Fault::Locked, FileLock(path, FileLock::Alone, 50));
    second.reset();
    FileLock alone(path, FileLock::Alone);
    EXPECT_FAULT(Fault::Locked, FileLock(path, FileLock::Shared));
    EXPECT_FAULT(Fault::Locked, FileLock(path, FileLock::Alone));
    alone.share();
    const FileLock third(path, FileLock::Shared);
    EXPECT_FAULT(Fault::CannotOpen, FileLock(folder.at(u"gone"_s), FileLock::Shared));
}

void SafeFileTest::theProcessHasOneSharedMark()
{
    Folder folder;
    folder.write(u"a"_s, "x");
    const QString path = folder.at(u"a"_s);
    QVERIFY(QFile::link(path, folder.at(u"link"_s)));
    auto first = FileLock::shared(path, 0);
    QVERIFY(first->isAlone());
    QCOMPARE(FileLock::shared(folder.at(u"link"_s), 0), first);
    EXPECT_FAULT(Fault::Locked, FileLock(path, FileLock::Shared));
    first->share();
    QVERIFY(!first->isAlone());
    auto foreign = std::make_unique<FileLock>(path, FileLock::Shared);
    first.reset();
    QVERIFY(!FileLock::shared(path, 0)->isAlone());
    foreign.reset();
    QVERIFY(FileLock::shared(path, 0)->isAlone());
    const FileLock alone(path, FileLock::Alone);
    EXPECT_FAULT(Fault::Locked, std::ignore = FileLock::shared(path, 30));
}

void SafeFileTest::aMarkEndsWithItsProcess()
{
    Folder folder;
    folder.write(u"a"_s, "x");
    int ready[2];
    QCOMPARE(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        const FileLock lock(folder.at(u"a"_s), FileLock::Alone);
        const char done = 1;
        if (::write(ready[1], &done, 1) == 1)
            pause();
        _exit(1);
    }
    char done = 0;
    QCOMPARE(read(ready[0], &done, 1), ssize_t(1));
    EXPECT_FAULT(Fault::Locked, FileLock(folder.at(u"a"_s), FileLock::Shared));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    const FileLock free(folder.at(u"a"_s), FileLock::Alone);
    close(ready[0]);
    close(ready[1]);
}

CORVANE_TEST(SafeFileTest)
#include "tst_safeFile.moc"
