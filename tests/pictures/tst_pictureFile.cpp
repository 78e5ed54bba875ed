#include "pictures/pictureFile.h"

#include "sampleFiles.h"
#include "support/expectFault.h"
#include "support/fileContent.h"
#include "support/testRegistry.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

/// Reading whatever stands at a path, and keeping a picture whole.
class PictureFileTest : public QObject {
    Q_OBJECT

private slots:
    void whatIsNoPictureSaysWhy();
    void aPhotoIsHeldAsItsCameraNoted();
    void itIsNoLargerThanItsRoom();
    void theContentTellsTheKind();
    void aThumbnailIsASquareOnWhite();
    void aPictureIsKeptWholeAndForItsOwnerAlone();
};

void PictureFileTest::whatIsNoPictureSaysWhy()
{
    const QSize huge(30000, 30000);
    const std::vector<std::pair<QString, std::function<void(const QString &)>>> cases{
        {u"It is no longer there"_s, [](const QString &) {}},
        {u"The file is empty"_s, [](const QString &path) { writeContent(path, {}); }},
        {u"It is no picture of a known kind"_s, [](const QString &path) { writeContent(path, "Sleeves as before"); }},
        {u"It is a folder"_s, [](const QString &path) { QVERIFY(QDir().mkdir(path)); }},
        {u"It is no file"_s,
            [](const QString &path) { QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0); }},
        {u"It is too large: 30000 x 30000 points"_s,
            [&](const QString &path) { sampleFiles::writeHeader(path, "GIF", huge); }},
        {u"It is damaged, or too large"_s, [&](const QString &path) { sampleFiles::writeHeader(path, "BMP", huge); }},
        {u"The picture is damaged"_s,
            [](const QString &path) {
                sampleFiles::writeHeader(path, "BMP", {30, 30});
            }},
        // One of a good camera is not too large.
        {QString(),
            [](const QString &path) {
                sampleFiles::writeHeader(path, "GIF", {9000, 8000});
            }},
    };
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
        QCOMPARE(error.text(), u"Error loading picture coat.jpg"_s);
        QCOMPARE(error.source(), u"GDI+ Module"_s);
    }
}

void PictureFileTest::aPhotoIsHeldAsItsCameraNoted()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"p.jpg"_s);
    sampleFiles::writePhoto(path, {400, 200}, 6);
    QCOMPARE(pictureFile::sizeOf(path), QSize(200, 400));
    for (const QSize &room : {QSize(), QSize(1000, 100)}) {
        const QImage upright = pictureFile::read(path, room).picture;
        QCOMPARE(upright.size(), room.isValid() ? QSize(50, 100) : QSize(200, 400));
        QVERIFY(upright.pixelColor(upright.width() / 2, 10).red() > 200);
        QVERIFY(upright.pixelColor(upright.width() / 2, upright.height() - 10).blue() > 200);
    }
}

void PictureFileTest::itIsNoLargerThanItsRoom()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"p.jpg"_s);
    sampleFiles::writePhoto(path, {400, 200});
    for (const auto &[room, size] : {std::pair{QSize(100, 100), QSize(100, 50)}, {QSize(400, 200), QSize(400, 200)},
             {QSize(4000, 2000), QSize(400, 200)}})
        QCOMPARE(pictureFile::read(path, room).picture.size(), size);
    QCOMPARE(pictureFile::read(path, {399, 900}).picture.width(), 399);
    // A thread is never less than a point wide.
    sampleFiles::writePhoto(path, {3000, 4});
    QCOMPARE(pictureFile::read(path, {100, 100}).picture.size(), QSize(100, 1));
}

void PictureFileTest::theContentTellsTheKind()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"really none.jpg"_s);
    QVERIFY(sampleFiles::halves({30, 20}).save(path, "PNG"));
    QCOMPARE(pictureFile::read(path).picture.size(), QSize(30, 20));
    // Of an animation the first picture.
    sampleFiles::writeAnimation(path);
    const QImage picture = pictureFile::read(path).picture;
    QCOMPARE(picture.size(), QSize(1, 1));
    QCOMPARE(picture.pixelColor(0, 0), QColor(Qt::red));
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

    const QString behindAFile = folder.filePath(u"images/deep/a.bmp/b.bmp"_s);
    EXPECT_FAULT(Fault::FileFault, pictureFile::save(sampleFiles::halves({9, 9}), behindAFile));
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
