#include "pictures/frmPreview.h"

#include "devices/shell.h"
#include "pictures/PictureBox.h"
#include "sampleFiles.h"
#include "support/ModalScript.h"
#include "support/PdfPrinter.h"
#include "support/TestShop.h"
#include "support/fileContent.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"

#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;

/// One picture, as large as fits or in full.
class PreviewTest : public QObject {
    Q_OBJECT

private slots:
    void aSmallPictureIsShownAtItsSize();
    void eachHasItsOwnSizeWhateverTheLastWasGiven();
    void aLargeOneFitsAndComesInFullByAKey();
    void itIsPrinted();
    void whatIsNoPictureIsTold();
    void oneThatIsGoneMeanwhileIsTold();
};

namespace {

void show(const QString &path, const std::function<void(QWidget &)> &work)
{
    ModalScript script;
    script.expect(u"frmPreview"_s, work);
    frmPreview().ShowImage(path);
}

} // namespace

void PreviewTest::aSmallPictureIsShownAtItsSize()
{
    const TestShop shop;
    const QString path = shop.folder.filePath(u"p.jpg"_s);
    sampleFiles::writePhoto(path, {640, 420}, 6);
    show(path, [](QWidget &screen) {
        const auto &picture = control<PictureBox>(screen, "picture");
        QCOMPARE(picture.pixmap().size(), QSize(420, 640));
        QVERIFY(picture.height() >= 640 && picture.height() < 660);
        press(Qt::Key_Escape);
    });
}

void PreviewTest::eachHasItsOwnSizeWhateverTheLastWasGiven()
{
    const TestShop shop;
    const QString wide = shop.folder.filePath(u"wide.jpg"_s);
    const QString high = shop.folder.filePath(u"high.jpg"_s);
    sampleFiles::writePhoto(wide, {600, 300});
    sampleFiles::writePhoto(high, {300, 500});
    show(wide, [](QWidget &screen) {
        screen.resize(900, 350);
        press(Qt::Key_Escape);
    });
    show(high, [](QWidget &screen) {
        QCOMPARE(control<PictureBox>(screen, "picture").pixmap().size(), QSize(300, 500));
        QVERIFY(screen.width() < 900 && screen.height() > 500);
        press(Qt::Key_Escape);
    });
}

void PreviewTest::aLargeOneFitsAndComesInFullByAKey()
{
    const TestShop shop;
    const QString path = shop.folder.filePath(u"p.jpg"_s);
    sampleFiles::writePhoto(path, {4000, 3000});
    show(path, [](QWidget &screen) {
        const auto &picture = control<PictureBox>(screen, "picture");
        const auto &full = control<QScrollArea>(screen, "full");
        QVERIFY(picture.isVisible());
        QVERIFY(screen.screen()->availableGeometry().contains(screen.frameGeometry()));
        QVERIFY(picture.pixmap().width() <= picture.width() && picture.pixmap().height() <= picture.height());
        press(Qt::Key_1);
        QVERIFY(full.isVisible());
        QCOMPARE(full.widget()->size(), QSize(4000, 3000));
        QVERIFY(full.hasFocus());
        press(Qt::Key_Right);
        QVERIFY(full.horizontalScrollBar()->value() > 0);
        press(Qt::Key_1);
        QVERIFY(picture.isVisible());
        accessKey('f');
        QVERIFY(full.isVisible());
        press(Qt::Key_Escape);
    });
}

void PreviewTest::itIsPrinted()
{
    const TestShop shop;
    const QString path = shop.folder.filePath(u"p.jpg"_s);
    sampleFiles::writePhoto(path, {400, 300});
    const PdfPrinter printer(shop.folder.filePath(u"paper.pdf"_s));
    show(path, [](QWidget &) {
        accessKey('p');
        press(Qt::Key_Escape);
    });
    QCOMPARE(printer.jobs(), 1);
    QCOMPARE(printer.title(), u"p.jpg"_s);
}

void PreviewTest::whatIsNoPictureIsTold()
{
    const TestShop shop;
    const QString path = shop.folder.filePath(u"p.jpg"_s);
    writeContent(path, {});
    ModalScript script;
    script.expectBox(u"This picture can't be shown. The file is empty:\r\n"_s + path);
    frmPreview().ShowImage(path);
}

void PreviewTest::oneThatIsGoneMeanwhileIsTold()
{
    const TestShop shop;
    const QString path = shop.folder.filePath(u"p.jpg"_s);
    sampleFiles::writePhoto(path, {400, 300});
    QStringList opened;
    shell::replaceOpener([&opened](const QString &file) { opened += file; });
    ModalScript script;
    script.expect(u"frmPreview"_s, [&](QWidget &) {
        accessKey('o');
        QVERIFY(QFile::remove(path));
        script.expectBox(u"The picture is no longer there:\r\n"_s + path);
        accessKey('o');
        script.expectBox(u"No such file or directory"_s);
        accessKey('p');
        press(Qt::Key_Escape);
    });
    frmPreview().ShowImage(path);
    shell::replaceOpener({});
    QCOMPARE(opened, QStringList{path});
}

CORVANE_TEST(PreviewTest)
#include "tst_frmPreview.moc"
