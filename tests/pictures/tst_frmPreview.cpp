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

#include <QScopeGuard>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QUrl>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;

/// One picture, as large as fits or in full.
class PreviewTest : public QObject {
    Q_OBJECT

private slots:
    void eachHasItsOwnSizeWhateverTheLastWasGiven();
    void aLargeOneFitsAndComesInFullByAKey();
    void itIsPrinted();
    void theSystemOpensIt();
    void whatIsNoPictureOrGoneIsTold();
};

namespace {

struct Photo : TestShop {
    explicit Photo(const QSize &size = {400, 300}) { sampleFiles::writePhoto(path, size); }

    QString path = folder.filePath(u"p.jpg"_s);
};

/// Shows a picture, does `work` and leaves by Escape.
void show(const QString &path, const std::function<void(QWidget &, ModalScript &)> &work)
{
    ModalScript script;
    script.expect(u"frmPreview"_s, [&](QWidget &screen) {
        work(screen, script);
        press(Qt::Key_Escape);
    });
    frmPreview().ShowImage(path);
}

} // namespace

void PreviewTest::eachHasItsOwnSizeWhateverTheLastWasGiven()
{
    const Photo wide({600, 300});
    const QString high = wide.folder.filePath(u"high.jpg"_s);
    sampleFiles::writePhoto(high, {500, 300}, 6);
    show(wide.path, [](QWidget &screen, ModalScript &) { screen.resize(900, 350); });
    show(high, [](QWidget &screen, ModalScript &) {
        const auto &picture = control<PictureBox>(screen, "picture");
        QCOMPARE(picture.pixmap().size(), QSize(300, 500));
        QVERIFY(picture.height() >= 500 && picture.height() < 520);
        QVERIFY(screen.width() < 900 && screen.height() > 500);
    });
}

void PreviewTest::aLargeOneFitsAndComesInFullByAKey()
{
    const Photo photo({4000, 3000});
    show(photo.path, [](QWidget &screen, ModalScript &) {
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
    });
}

void PreviewTest::itIsPrinted()
{
    const Photo photo;
    const PdfPrinter printer(photo.folder.filePath(u"paper.pdf"_s));
    show(photo.path, [](QWidget &, ModalScript &) { accessKey('p'); });
    QCOMPARE(printer.jobs(), 1);
    QCOMPARE(printer.title(), u"p.jpg"_s);
}

void PreviewTest::theSystemOpensIt()
{
    const Photo photo;
    const QString path = photo.folder.filePath(u"Asha's 100% é.jpg"_s);
    QVERIFY(QFile::copy(photo.path, path));
    // Stands in for the desktop's own command, and notes what it is asked to open.
    const QString command = photo.folder.filePath(u"xdg-open"_s);
    writeContent(command, "#!/bin/sh\nprintf %s \"$1\" > \"${0%/*}/asked\"\n");
    QVERIFY(QFile::setPermissions(command, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    const QByteArray before = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(photo.folder.path()) + ':' + before);
    const auto back = qScopeGuard([&before] { qputenv("PATH", before); });
    show(path, [](QWidget &, ModalScript &) { accessKey('o'); });
    QTRY_COMPARE(QUrl::fromEncoded(contentOf(photo.folder.filePath(u"asked"_s))).toLocalFile(), path);
}

void PreviewTest::whatIsNoPictureOrGoneIsTold()
{
    const Photo photo;
    QStringList opened;
    shell::replaceOpener([&opened](const QString &file) { opened += file; });
    show(photo.path, [&photo](QWidget &, ModalScript &script) {
        accessKey('o');
        QVERIFY(QFile::remove(photo.path));
        script.expectBox(u"The picture is no longer there:\r\n"_s + photo.path);
        accessKey('o');
        script.expectBox(u"No such file or directory"_s);
        accessKey('p');
    });
    shell::replaceOpener({});
    QCOMPARE(opened, QStringList{photo.path});
    writeContent(photo.path, {});
    ModalScript script;
    script.expectBox(u"This picture can't be shown. The file is empty:\r\n"_s + photo.path);
    frmPreview().ShowImage(photo.path);
}

CORVANE_TEST(PreviewTest)
#include "tst_frmPreview.moc"
