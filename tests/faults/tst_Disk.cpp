#include "Child.h"
#include "Disk.h"
#include "Recording.h"
#include "shopFolder.h"
#include "support/testRegistry.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>

using faults::Disk;
using namespace Qt::StringLiterals;
using Call = Disk::Call;

/// The calls of the process pass the disk, whoever makes them, and only those of the watched folder.
class DiskTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { Disk::instance().watch({}); }

    void callsAreCountedByKind();
    void callsElsewhereAreNot();
    void oneCallFailsOrAllFromThenOn_data();
    void oneCallFailsOrAllFromThenOn();
    void aFullDiskTakesHalfAWriteAndSparesWhatTakesNoSpace();
    void theProcessEndsAtItsCall_data();
    void theProcessEndsAtItsCall();
    void aRecordingMakesTheFolderAgain();

private:
    [[nodiscard]] QByteArray path(const char *name) const { return QFile::encodeName(m_shop) + '/' + name; }
    [[nodiscard]] bool save(const char *name, const QByteArray &bytes) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_shop;
};

void DiskTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_shop = QDir(m_folder->path()).canonicalPath() + u"/shop"_s;
    QDir().mkpath(m_shop);
    Disk::instance().watch(m_shop);
}

/// As a careful program writes: another name, sync, rename, sync of the folder. Six calls.
bool DiskTest::save(const char *name, const QByteArray &bytes) const
{
    const QByteArray unfinished = path(name) + ".new";
    const int file = ::open(unfinished.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    bool isGood = file >= 0 && ::write(file, bytes.constData(), static_cast<size_t>(bytes.size())) == bytes.size();
    isGood = isGood && ::fsync(file) == 0;
    ::close(file);
    isGood = isGood && ::rename(unfinished.constData(), path(name).constData()) == 0;
    const int folder = isGood ? ::open(QFile::encodeName(m_shop).constData(), O_RDONLY | O_DIRECTORY) : -1;
    isGood = folder >= 0 && ::fsync(folder) == 0;
    ::close(folder);
    return isGood;
}

void DiskTest::callsAreCountedByKind()
{
    QVERIFY(save("a", "1"));
    // And those of the libraries.
    QFile byQt(m_shop + u"/b"_s);
    QVERIFY(byQt.open(QIODevice::WriteOnly));
    QCOMPARE(byQt.write("2"), 1);
    byQt.close();
    QVERIFY(byQt.rename(m_shop + u"/c"_s));
    QVERIFY(byQt.remove());
    QVERIFY(QDir().mkdir(m_shop + u"/d"_s));
    const std::vector<Call> wanted{Call::Create, Call::Write, Call::Sync, Call::Rename, Call::Open, Call::Sync,
        Call::Create, Call::Write, Call::Rename, Call::Remove, Call::MakeFolder};
    QCOMPARE(Disk::instance().calls(), wanted);
    Disk::instance().countAgain();
    QVERIFY(Disk::instance().calls().empty());
}

void DiskTest::callsElsewhereAreNot()
{
    Disk::instance().failAt({1, EIO, true});
    // A folder whose name only begins as the watched one's is another one.
    QVERIFY(QDir().mkdir(m_shop + u"2"_s));
    faults::putContent(m_shop + u"2/a"_s, "1");
    QVERIFY(Disk::instance().calls().empty());
}

void DiskTest::oneCallFailsOrAllFromThenOn_data()
{
    QTest::addColumn<int>("call");
    QTest::addColumn<QStringList>("left");
    QTest::newRow("create") << 1 << QStringList{};
    QTest::newRow("write") << 2 << QStringList{u"a.new="_s};
    QTest::newRow("sync") << 3 << QStringList{u"a.new=12"_s};
    QTest::newRow("rename") << 4 << QStringList{u"a.new=12"_s};
    QTest::newRow("open the folder") << 5 << QStringList{u"a=12"_s};
    QTest::newRow("sync the folder") << 6 << QStringList{u"a=12"_s};
}

void DiskTest::oneCallFailsOrAllFromThenOn()
{
    QFETCH(int, call);
    QFETCH(QStringList, left);
    Disk::instance().failAt({call, EIO, false});
    QVERIFY(!save("a", "12"));
    QStringList found;
    for (const QString &name : QDir(m_shop).entryList(QDir::Files))
        found += name + u'=' + QString::fromLatin1(faults::contentOf(m_shop + u'/' + name));
    QCOMPARE(found, left);
    QVERIFY(save("a", "12"));

    Disk::instance().failAt({call, EIO, true});
    QVERIFY(!save("a", "12"));
    QVERIFY(!save("a", "12"));
    Disk::instance().becomeSound();
    QVERIFY(save("a", "12"));
}

void DiskTest::aFullDiskTakesHalfAWriteAndSparesWhatTakesNoSpace()
{
    QVERIFY(save("a", "1"));
    Disk::instance().failAt({1, ENOSPC, true});
    QCOMPARE(::open(path("b").constData(), O_WRONLY | O_CREAT, 0600), -1);
    QCOMPARE(errno, ENOSPC);
    const int file = ::open(path("a").constData(), O_WRONLY);
    QVERIFY(file >= 0);
    QCOMPARE(::write(file, "2345", 4), -1);
    QCOMPARE(errno, ENOSPC);
    QCOMPARE(::ftruncate(file, 2), 0);
    ::close(file);
    QCOMPARE(faults::contentOf(m_shop + u"/a"_s), "23");
    QCOMPARE(::unlink(path("a").constData()), 0);
}

void DiskTest::theProcessEndsAtItsCall_data()
{
    QTest::addColumn<int>("call");
    QTest::addColumn<Disk::Moment>("moment");
    QTest::addColumn<QString>("found");
    QTest::newRow("before the write") << 2 << Disk::Moment::Before << u"a.new="_s;
    QTest::newRow("within") << 2 << Disk::Moment::Within << u"a.new=1"_s;
    QTest::newRow("after") << 2 << Disk::Moment::After << u"a.new=12"_s;
    QTest::newRow("before the rename") << 4 << Disk::Moment::Before << u"a.new=12"_s;
    QTest::newRow("after it") << 4 << Disk::Moment::After << u"a=12"_s;
    QTest::newRow("never") << 7 << Disk::Moment::Before << u"a=12"_s;
}

void DiskTest::theProcessEndsAtItsCall()
{
    QFETCH(int, call);
    QFETCH(Disk::Moment, moment);
    QFETCH(QString, found);
    const faults::Child::Ending ending = faults::Child([&] {
        Disk::instance().dieAt(call, moment);
        faults::Child::tell("begin");
        if (save("a", "12"))
            faults::Child::tell("done");
    }).wait(10'000);
    const bool dies = call <= 6;
    QCOMPARE(ending.signal, dies ? SIGKILL : 0);
    QCOMPARE(ending.lines, (dies ? QList<QByteArray>{"begin"} : QList<QByteArray>{"begin", "done"}));
    const QString name = QDir(m_shop).entryList(QDir::Files).value(0);
    QCOMPARE(name + u'=' + QString::fromLatin1(faults::contentOf(m_shop + u'/' + name)), found);
}

void DiskTest::aRecordingMakesTheFolderAgain()
{
    QVERIFY(save("before", "0"));
    Disk::instance().watch(m_shop);
    faults::Recording recording(m_shop);
    Disk::instance().record(recording);
    QVERIFY(save("a", "123"));
    const int file = ::open(path("a").constData(), O_RDWR);
    QCOMPARE(::pwrite(file, "x", 1, 1), 1);
    QCOMPARE(::lseek(file, 0, SEEK_END), 3);
    QCOMPARE(::write(file, "45", 2), 2);
    QCOMPARE(::fdatasync(file), 0);
    ::close(file);
    QVERIFY(save("b", "6"));
    QCOMPARE(::unlink(path("before").constData()), 0);
    QVERIFY(save("b", "7"));
    Disk::instance().watch({});

    const QTemporaryDir again;
    faults::Random random(1);
    recording.restore(recording.size(), random, again.path());
    QCOMPARE(QDir(again.path()).entryList(QDir::Files, QDir::Name), (QStringList{u"a"_s, u"b"_s}));
    QCOMPARE(faults::contentOf(again.filePath(u"a"_s)), "1x345");
    QCOMPARE(faults::contentOf(again.filePath(u"b"_s)), "7");
}

CORVANE_TEST(DiskTest)
#include "tst_Disk.moc"
