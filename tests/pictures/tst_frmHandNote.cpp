#include "pictures/frmHandNote.h"

#include "pictures/NoteCanvas.h"
#include "pictures/pictureFile.h"
#include "sampleFiles.h"
#include "support/ModalScript.h"
#include "support/TestShop.h"
#include "support/fileContent.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"

#include <QDir>
#include <QPointingDevice>
#include <QPushButton>
#include <QTabletEvent>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;

/// What the hand draws is what the file holds.
class HandNoteTest : public QObject {
    Q_OBJECT

private slots:
    void penAndEraserDrawAsTold();
    void whatIsDrawnCanBeTakenBack();
    void aStrokeInHandIsNotLost();
    void aNoteGoesOverThePictureThatIsThere();
    void linesFollowTheHandSmoothly();
    void aTabletDraws();
    void leftWithoutOkNothingIsKept();
    void whatCannotBeWrittenStaysOnTheSheet();
    void aFileThatIsNoPictureIsLeftAlone();
};

namespace {

/// Opens the note at `path` and does `work`; whether it was cancelled.
bool note(const QString &path, const std::function<void(NoteCanvas &, ModalScript &)> &work)
{
    ModalScript script;
    script.expect(u"frmHandNote"_s, [&](QWidget &screen) { work(control<NoteCanvas>(screen, "picCanvas"), script); });
    bool cancelled = false;
    frmHandNote().TakeSnap(path, cancelled);
    return cancelled;
}

/// Draws through points of the sheet, and leaves the pen down.
QPoint draw(NoteCanvas &canvas, const QList<QPoint> &points)
{
    const double zoom = canvas.place().width() / canvas.picture().width();
    const auto onScreen = [&canvas, zoom](
                              QPoint point) { return (QPointF(point) * zoom + canvas.place().topLeft()).toPoint(); };
    QTest::mousePress(&canvas, Qt::LeftButton, {}, onScreen(points.first()));
    for (const QPoint &point : points.mid(1))
        QTest::mouseMove(&canvas, onScreen(point));
    return onScreen(points.last());
}

void stroke(NoteCanvas &canvas, const QList<QPoint> &points)
{
    QTest::mouseRelease(&canvas, Qt::LeftButton, {}, draw(canvas, points));
}

int darkness(const QImage &picture, int x, int y)
{
    return 255 - picture.pixelColor(x, y).lightness();
}

/// How wide a line is that passes through the row `y` at `x`.
int width(const QImage &picture, int x, int y)
{
    int ink = 0;
    for (int row = y - 20; row <= y + 20; ++row)
        ink += darkness(picture, x, row);
    return qRound(ink / 255.0);
}

} // namespace

void HandNoteTest::penAndEraserDrawAsTold()
{
    const TestShop shop;
    const QString path = shop.folder.filePath(u"images/n.bmp"_s);
    const bool cancelled = note(path, [](NoteCanvas &canvas, ModalScript &) {
        QCOMPARE(canvas.picture().pixelColor(5, 5), QColor(Qt::white));
        stroke(canvas, {{100, 100}, {200, 100}, {300, 100}});
        stroke(canvas, {{400, 300}});
        press(Qt::Key_E, Qt::ControlModifier);
        stroke(canvas, {{200, 80}, {200, 100}, {200, 120}});
        control<QPushButton>(*canvas.window(), "Command1").click();
        stroke(canvas, {{600, 100}, {700, 100}});
        accessKey('o');
    });
    QVERIFY(!cancelled);
    QCOMPARE(contentOf(path).first(2), QByteArray("BM"));
    const QImage kept = pictureFile::read(path).picture;
    QCOMPARE(width(kept, 150, 100), 2);
    QCOMPARE(width(kept, 400, 300), 2);
    // Six points wide, so two beside the line are gone, and four are not.
    QCOMPARE(kept.pixelColor(198, 100), QColor(Qt::white));
    QCOMPARE(kept.pixelColor(201, 100), QColor(Qt::white));
    QVERIFY(darkness(kept, 195, 100) > 60);
    QVERIFY(darkness(kept, 205, 100) > 60);
    QCOMPARE(width(kept, 650, 100), 2);
    QCOMPARE(width(kept, 500, 100), 0);
}

void HandNoteTest::whatIsDrawnCanBeTakenBack()
{
    const TestShop shop;
    const QString path = shop.folder.filePath(u"n.bmp"_s);
    note(path, [](NoteCanvas &canvas, ModalScript &) {
        auto &undo = control<QPushButton>(*canvas.window(), "cmdUndo");
        QVERIFY(!undo.isEnabled());
        press(Qt::Key_Z, Qt::ControlModifier);
        stroke(canvas, {{100, 100}, {300, 100}});
        stroke(canvas, {{100, 200}, {300, 200}});
        control<QPushButton>(*canvas.window(), "Command3").click();
        QCOMPARE(width(canvas.picture(), 200, 100), 0);
        undo.click();
        QCOMPARE(width(canvas.picture(), 200, 200), 2);
        press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(width(canvas.picture(), 200, 100), 2);
        QCOMPARE(width(canvas.picture(), 200, 200), 0);
        // Behind a wipe, what is taken back doesn't bring back what stood before it.
        press(Qt::Key_Delete, Qt::ControlModifier);
        stroke(canvas, {{100, 300}, {300, 300}});
        stroke(canvas, {{100, 400}, {300, 400}});
        undo.click();
        QCOMPARE(width(canvas.picture(), 200, 100), 0);
        QCOMPARE(width(canvas.picture(), 200, 300), 2);
        QCOMPARE(width(canvas.picture(), 200, 400), 0);
        undo.click();
        undo.click();
        accessKey('o');
    });
    QCOMPARE(width(pictureFile::read(path).picture, 200, 100), 2);
}

/// Whatever command comes while the pen is still down.
void HandNoteTest::aStrokeInHandIsNotLost()
{
    const TestShop shop;
    const QString path = shop.folder.filePath(u"n.bmp"_s);
    note(path, [](NoteCanvas &canvas, ModalScript &) {
        draw(canvas, {{100, 100}, {200, 100}, {300, 100}});
        press(Qt::Key_Delete, Qt::ControlModifier);
        QTest::mouseMove(&canvas, canvas.rect().center());
        QTest::mouseRelease(&canvas, Qt::LeftButton, {}, canvas.rect().center());
        QCOMPARE(width(canvas.picture(), 200, 100), 0);
        press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(width(canvas.picture(), 200, 100), 2);
        draw(canvas, {{100, 200}, {200, 200}, {300, 200}});
        draw(canvas, {{100, 300}, {200, 300}, {300, 300}});
        QCOMPARE(width(canvas.picture(), 200, 200), 2);
        accessKey('o');
    });
    for (const int y : {100, 200, 300})
        QCOMPARE(width(pictureFile::read(path).picture, 200, y), 2);
}

void HandNoteTest::aNoteGoesOverThePictureThatIsThere()
{
    const TestShop shop;
    const QString path = shop.folder.filePath(u"n.bmp"_s);
    QVERIFY(sampleFiles::halves({3000, 1000}).save(path));
    const auto drawAcross = [](NoteCanvas &canvas, ModalScript &) {
        QVERIFY(canvas.place().width() <= canvas.width());
        stroke(canvas, {{1600, 500}, {2000, 500}, {2900, 500}});
        accessKey('o');
    };
    QVERIFY(!note(path, drawAcross));
    const QImage kept = pictureFile::read(path).picture;
    QCOMPARE(kept.size(), QSize(3000, 1000));
    QCOMPARE(kept.pixelColor(100, 100), QColor(Qt::red));
    QCOMPARE(kept.pixelColor(2000, 500), QColor(Qt::black));
    // As wide as told on the screen, where the picture is shown smaller.
    QCOMPARE(kept.pixelColor(2000, 502), QColor(Qt::black));
    note(path, [](NoteCanvas &canvas, ModalScript &) {
        control<QPushButton>(*canvas.window(), "Command3").click();
        accessKey('o');
    });
    QCOMPARE(pictureFile::read(path).picture.pixelColor(2000, 500), QColor(Qt::white));
}

/// At a corner that the hand passes quickly, the line is round.
void HandNoteTest::linesFollowTheHandSmoothly()
{
    const TestShop shop;
    note(shop.folder.filePath(u"n.bmp"_s), [](NoteCanvas &canvas, ModalScript &) {
        stroke(canvas, {{100, 100}, {200, 100}, {200, 200}});
        const QImage &drawn = canvas.picture();
        QCOMPARE(darkness(drawn, 199, 100), 0);
        QVERIFY(darkness(drawn, 100, 100) > 60);
        QVERIFY(darkness(drawn, 200, 198) > 60);
        press(Qt::Key_Escape);
    });
}

void HandNoteTest::aTabletDraws()
{
    const TestShop shop;
    note(shop.folder.filePath(u"n.bmp"_s), [](NoteCanvas &canvas, ModalScript &) {
        const auto draw = [&canvas](QPointingDevice::PointerType kind, QPointF from, QPointF to) {
            const QPointingDevice stylus(u"stylus"_s, 1, QInputDevice::DeviceType::Stylus, kind,
                QInputDevice::Capability::Position | QInputDevice::Capability::Pressure, 1, 1);
            const QPointF origin = canvas.place().topLeft();
            const auto send = [&](QEvent::Type type, QPointF place, Qt::MouseButtons held) {
                QTabletEvent event(type, &stylus, place + origin, place + origin, 0.7, 0, 0, 0, 0, 0, {},
                    type == QEvent::TabletMove ? Qt::NoButton : Qt::LeftButton, held);
                QCoreApplication::sendEvent(&canvas, &event);
                QVERIFY(event.isAccepted());
            };
            send(QEvent::TabletMove, {10, 10}, Qt::NoButton);
            send(QEvent::TabletPress, from, Qt::LeftButton);
            send(QEvent::TabletMove, (from + to) / 2, Qt::LeftButton);
            send(QEvent::TabletMove, to, Qt::LeftButton);
            send(QEvent::TabletRelease, to, Qt::NoButton);
        };
        draw(QPointingDevice::PointerType::Pen, {50, 50.5}, {150, 50.5});
        QVERIFY(darkness(canvas.picture(), 100, 50) > 200);
        QCOMPARE(darkness(canvas.picture(), 10, 10), 0);
        draw(QPointingDevice::PointerType::Eraser, {100, 40}, {100, 60});
        QCOMPARE(darkness(canvas.picture(), 100, 50), 0);
        QVERIFY(darkness(canvas.picture(), 120, 50) > 200);
        press(Qt::Key_Escape);
    });
}

void HandNoteTest::leftWithoutOkNothingIsKept()
{
    const TestShop shop;
    const QString path = shop.folder.filePath(u"n.bmp"_s);
    QVERIFY(sampleFiles::halves({300, 100}).save(path));
    const QByteArray before = contentOf(path);
    for (const bool byKey : {true, false}) {
        QVERIFY(note(path, [byKey](NoteCanvas &canvas, ModalScript &) {
            stroke(canvas, {{10, 10}, {30, 30}});
            byKey ? press(Qt::Key_Escape) : control<QPushButton>(*canvas.window(), "Command5").click();
        }));
    }
    QCOMPARE(contentOf(path), before);
}

void HandNoteTest::whatCannotBeWrittenStaysOnTheSheet()
{
    const TestShop shop;
    const QString path = shop.folder.filePath(u"n.bmp"_s);
    QVERIFY(QDir().mkdir(path + u".new"_s));
    QVERIFY(!note(path, [&path](NoteCanvas &canvas, ModalScript &script) {
        stroke(canvas, {{100, 100}, {300, 100}});
        script.expect(u"QMessageBox"_s, [](QWidget &box) {
            const QString told = box.property("text").toString();
            QVERIFY2(told.contains(u"The file cannot be made: Is a directory."_s), qPrintable(told));
            press(Qt::Key_Return);
        });
        accessKey('o');
        QVERIFY(script.isDone() && canvas.isVisible());
        QCOMPARE(width(canvas.picture(), 200, 100), 2);
        QVERIFY(QDir().rmdir(path + u".new"_s));
        accessKey('o');
    }));
    QCOMPARE(width(pictureFile::read(path).picture, 200, 100), 2);
}

void HandNoteTest::aFileThatIsNoPictureIsLeftAlone()
{
    const TestShop shop;
    const QString path = shop.folder.filePath(u"n.bmp"_s);
    writeContent(path, "no picture");
    ModalScript script;
    script.expectBox(u"This picture can't be drawn on. It is no picture of a known kind:\r\n"_s + path);
    bool cancelled = false;
    frmHandNote().TakeSnap(path, cancelled);
    QVERIFY(cancelled);
    QCOMPARE(contentOf(path), QByteArray("no picture"));
}

CORVANE_TEST(HandNoteTest)
#include "tst_frmHandNote.moc"
