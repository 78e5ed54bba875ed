#include "pictures/pictureFile.h"

#include "sampleFiles.h"
#include "support/expectFault.h"
#include "support/fileContent.h"
#include "support/testRegistry.h"

#include <QDir>
#include <QTemporaryDir>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

/// Reading whatever stands at a path, and keeping a picture whole.
class PictureFileTest : public QObject {
    Q_OBJECT

private slots:
    void whatIsNoPictureSaysWhy();
    void itIsUprightAndNoLargerThanItsRoom();
    void aThumbnailIsASquareOnWhite();
    void aPictureIsKeptWholeAndForItsOwnerAlone();
};

void PictureFileTest::whatIsNoPictureSaysWhy()
{
    const auto header = [](const QByteArray &kind, const QSize &size) {
        return [kind, size](const QString &path) { sampleFiles::writeHeader(path, kind, size); };
    };
    // One of a good camera is not too large.
    const std::pair<QString, std::function<void(const QString &)>> cases[]{
        {u"It is no longer there"_s, [](const QString &) {}},
        {u"The file is empty"_s, [](const QString &path) { writeContent(path, {}); }},
        {u"It is no picture of a known kind"_s, [](const QString &path) { writeContent(path, "Sleeves as before"); }},
        {u"It is a folder"_s, [](const QString &path) { QVERIFY(QDir().mkdir(path)); }},
        {u"It is no file"_s,
            [](const QString &path) { QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0); }},
        {u"It is too large: 30000 x 30000 points"_s, header("GIF", {30000, 30000})},
        {u"It is damaged, or too large"_s, header("BMP", {30000, 30000})},
        {u"The picture is damaged"_s, header("BMP", {30, 30})}, {QString(), header("GIF", {9000, 8000})}};
    for (const auto &[problem, make] : cases) {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"coat.jpg"_s);
        make(path);
        const pictureFile::Read read = pictureFile::read(path, {100, 100});
        QCOMPARE(read.problem, problem);
        if (problem.isEmpty())
            continue;
        QVERIFY(read.picture.isNull());
        const RuntimeError error = failureOf([&path] { static_cast<void>(pictureFile::thumbnail(path, 100)); });
        QCOMPARE(error.fault(), Fault::Picture);
        QCOMPARE(error.text() + u'|' + error.source(), u"Error loading picture coat.jpg|GDI+ Module"_s);
    }
}

void PictureFileTest::itIsUprightAndNoLargerThanItsRoom()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"p.jpg"_s);
    // Held on its side, a thread that is never less than a point wide, and what its name does not say.
    const std::pair<std::function<void()>, QList<std::pair<QSize, QSize>>> cases[]{
        {[&path] {
             sampleFiles::writePhoto(path, {400, 200}, 6);
         },
            {{{}, {200, 400}}, {{1000, 100}, {50, 100}}, {{200, 400}, {200, 400}}, {{4000, 4000}, {200, 400}}}},
        {[&path] {
             sampleFiles::writePhoto(path, {3000, 4});
         },
            {{{}, {3000, 4}}, {{100, 100}, {100, 1}}}},
        {[&path] {
             QVERIFY(sampleFiles::halves({30, 20}).save(path, "PNG"));
         },
            {{{}, {30, 20}}}}};
    for (const auto &[make, sizes] : cases) {
        make();
        QCOMPARE(pictureFile::sizeOf(path), sizes.first().second);
        for (const auto &[room, size] : sizes) {
            const QImage picture = pictureFile::read(path, room).picture;
            QCOMPARE(picture.size(), size);
            // The right half, or the lower one where that is down.
            QVERIFY(picture.pixelColor(size.width() - 1, size.height() - 1).blue() > 200);
        }
    }
}

void PictureFileTest::aThumbnailIsASquareOnWhite()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"p.png"_s);
    for (const QSize &size : {QSize(400, 200), QSize(40, 20)}) {
        QVERIFY(sampleFiles::halves(size).save(path));
        const QImage thumbnail = pictureFile::thumbnail(path, 100);
        QCOMPARE(thumbnail.size(), QSize(100, 100));
        QCOMPARE(thumbnail.pixelColor(50, 22), QColor(Qt::white));
        QCOMPARE(thumbnail.pixelColor(50, 77), QColor(Qt::white));
        QCOMPARE(thumbnail.pixelColor(3, 50), QColor(Qt::red));
        QCOMPARE(thumbnail.pixelColor(96, 50), QColor(Qt::blue));
    }
}

void PictureFileTest::aPictureIsKeptWholeAndForItsOwnerAlone()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"images/deep/a.bmp"_s);
    pictureFile::save(sampleFiles::halves({30, 20}), path);
    QCOMPARE(contentOf(path).first(2), QByteArray("BM"));
    QCOMPARE(QFile::permissions(path) & 0x0077, QFile::Permissions());
    QCOMPARE(pictureFile::read(path).picture.pixelColor(29, 19), QColor(Qt::blue));
    const QByteArray before = contentOf(path);
    // One that can't be finished leaves what was there.
    QVERIFY(QDir().mkdir(path + u".new"_s));
    EXPECT_FAULT(Fault::FileFault, pictureFile::save(sampleFiles::halves({9, 9}), path));
    QCOMPARE(contentOf(path), before);
    QVERIFY(QDir().rmdir(path + u".new"_s));
    // No picture is none to put in its place.
    EXPECT_FAULT(Fault::Picture, pictureFile::save({}, path));
    QCOMPARE(contentOf(path), before);
    pictureFile::save(sampleFiles::halves({9, 9}), path);
    QCOMPARE(pictureFile::sizeOf(path), QSize(9, 9));
    QCOMPARE(QDir(folder.filePath(u"images/deep"_s)).entryList(QDir::Files), QStringList{u"a.bmp"_s});
}

CORVANE_TEST(PictureFileTest)
#include "tst_pictureFile.moc"
