#include "Recording.h"
#include "shopFolder.h"
#include "support/testRegistry.h"

#include <QDir>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

using faults::Recording;
using namespace Qt::StringLiterals;

/// What a folder may hold when the power comes back.
class RecordingTest : public QObject {
    Q_OBJECT

private slots:
    void whatMayBeFound_data();
    void whatMayBeFound();
    void aWriteIsTornBetweenSectors();
    void theMomentOfTheCutCounts();
    void itIsKeptInAFile();
};

namespace {

using Deed = std::function<void(Recording &)>;

QByteArray at(const char *name)
{
    return QByteArray("/shop/") + name;
}

/// All that may be found after the first `count` events, each as "name=content" of all files, joined by blanks.
QSet<QString> findings(const Recording &recording, int count, quint64 seeds = 60)
{
    QSet<QString> all;
    const QTemporaryDir folder;
    for (quint64 seed = 0; seed < seeds; ++seed) {
        faults::Random random(seed);
        recording.restore(count, random, folder.path());
        QStringList files;
        for (const QString &name : QDir(folder.path()).entryList(QDir::Files, QDir::Name)) {
            files += name + u'=' + QString::fromLatin1(faults::contentOf(folder.filePath(name)));
            QFile::remove(folder.filePath(name));
        }
        all.insert(files.join(u' '));
    }
    return all;
}

/// A folder "/shop" that begins with the file "old", holding "1".
Recording shopFolder()
{
    Recording recording(u"/shop"_s);
    const int old = recording.create(at("old"));
    recording.write(old, 0, "1");
    recording.sync(old);
    recording.syncFolder("/shop");
    return recording;
}

} // namespace

void RecordingTest::whatMayBeFound_data()
{
    QTest::addColumn<Deed>("deed");
    QTest::addColumn<QSet<QString>>("found");

    const auto write = [](Recording &recording, const char *bytes) {
        const int file = recording.fileAt(at("old"));
        recording.write(file, 0, bytes);
        return file;
    };
    QTest::newRow("a write that is not synced may be missing")
        << Deed([write](Recording &r) { write(r, "2"); }) << QSet<QString>{u"old=1"_s, u"old=2"_s};
    QTest::newRow("a synced one is there")
        << Deed([write](Recording &r) { r.sync(write(r, "2")); }) << QSet<QString>{u"old=2"_s};
    QTest::newRow("a sync of the folder is none of the file") << Deed([write](Recording &r) {
        write(r, "2");
        r.syncFolder("/shop");
    }) << QSet<QString>{u"old=1"_s, u"old=2"_s};
    QTest::newRow("of two writes the second alone may be there")
        << Deed([write](Recording &r) { r.write(write(r, "2"), 1, "3"); })
        << QSet<QString>{u"old=1"_s, u"old=2"_s, QString(u"old=13"_s), u"old=23"_s};
    QTest::newRow("cut off") << Deed([](Recording &r) { r.truncate(r.fileAt(at("old")), 0); })
                             << QSet<QString>{u"old=1"_s, u"old="_s};
    QTest::newRow("a new name may be missing, though its content is synced") << Deed([](Recording &r) {
        const int file = r.create(at("young"));
        r.write(file, 0, "2");
        r.sync(file);
    }) << QSet<QString>{u"old=1"_s, u"old=1 young=2"_s};
    QTest::newRow("with its folder synced it is there") << Deed([](Recording &r) {
        r.sync(r.create(at("young")));
        r.syncFolder("/shop");
    }) << QSet<QString>{u"old=1 young="_s};
    QTest::newRow("a removed name may come back")
        << Deed([](Recording &r) { r.remove(at("old")); }) << QSet<QString>{u"old=1"_s, QString()};
    QTest::newRow("not after a sync of the folder") << Deed([](Recording &r) {
        r.remove(at("old"));
        r.syncFolder("/shop");
    }) << QSet<QString>{QString()};
    QTest::newRow("a renamed file has one of its names")
        << Deed([](Recording &r) { r.rename(at("old"), at("young")); }) << QSet<QString>{u"old=1"_s, u"young=1"_s};
    QTest::newRow("a file that takes another's name, unsynced, may be empty") << Deed([](Recording &r) {
        r.write(r.create(at("young")), 0, "2");
        r.rename(at("young"), at("old"));
        r.syncFolder("/shop");
    }) << QSet<QString>{u"old="_s, u"old=2"_s};
}

void RecordingTest::whatMayBeFound()
{
    QFETCH(Deed, deed);
    QFETCH(QSet<QString>, found);
    Recording recording = shopFolder();
    deed(recording);
    QCOMPARE(findings(recording, recording.size()), found);
}

void RecordingTest::aWriteIsTornBetweenSectors()
{
    Recording recording = shopFolder();
    recording.write(recording.fileAt(at("old")), 256, QByteArray(1024, 'x'));
    QSet<QString> patterns;
    for (const QString &found : findings(recording, recording.size(), 400)) {
        // Three sectors are touched: up to 512, to 1024, to 1280.
        const QString content = found.mid(4).leftJustified(1280, u'.');
        for (const auto &[start, end] : {std::pair(256, 512), std::pair(512, 1024), std::pair(1024, 1280)})
            QCOMPARE(QSet<QChar>(content.begin() + start, content.begin() + end).size(), 1);
        patterns.insert(QString{content.at(300) == u'x' ? u'1' : u'0', content.at(700) == u'x' ? u'1' : u'0'}
            + (content.at(1100) == u'x' ? u'1' : u'0'));
    }
    QCOMPARE(patterns.size(), 8);
}

void RecordingTest::theMomentOfTheCutCounts()
{
    Recording recording = shopFolder();
    const int before = recording.size();
    const int file = recording.fileAt(at("old"));
    recording.write(file, 0, "2");
    recording.mark("done 1");
    recording.sync(file);
    recording.mark("done 2");
    QCOMPARE(findings(recording, before), QSet<QString>{u"old=1"_s});
    QCOMPARE(findings(recording, before + 2), (QSet<QString>{u"old=1"_s, u"old=2"_s}));
    QCOMPARE(findings(recording, before + 3), QSet<QString>{u"old=2"_s});
    QCOMPARE(recording.marksBefore(before + 1), QList<QByteArray>());
    QCOMPARE(recording.marksBefore(before + 2), QList<QByteArray>{"done 1"});
    QCOMPARE(recording.placesBehind("done"), (std::vector<int>{before + 2, before + 4}));
}

void RecordingTest::itIsKeptInAFile()
{
    const QTemporaryDir folder;
    Recording recording = shopFolder();
    recording.rename(at("old"), at("young"));
    recording.mark("done");
    const QString path = folder.filePath(u"recording"_s);
    recording.save(path);
    const Recording loaded = Recording::load(path);
    QCOMPARE(loaded.size(), recording.size());
    QCOMPARE(findings(loaded, loaded.size()), findings(recording, recording.size()));
}

CORVANE_TEST(RecordingTest)
#include "tst_Recording.moc"
