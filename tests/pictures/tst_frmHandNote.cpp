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
    void aNoteGoesOverThePictureThatIsThere();
    void aTabletDraws();
    void whatWasThereStaysWithoutOkOrAPicture();
    void whatCannotBeWrittenStaysOnTheSheet();
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
        stroke(canvas, {{600, 200}, {700, 200}, {700, 300}});
        accessKey('o');
    });
    QVERIFY(!cancelled);
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
    // Round where the hand passes a corner quickly.
    QCOMPARE(darkness(kept, 699, 200), 0);
    QVERIFY(darkness(kept, 600, 200) > 60 && darkness(kept, 700, 298) > 60);
}

void HandNoteTest::whatIsDrawnCanBeTakenBack()
{
    const TestShop shop;
    const QString path = shop.folder.filePath(u"n.bmp"_s);
    note(path, [](NoteCanvas &canvas, ModalScript &) {
        auto &undo = control<QPushButton>(*canvas.window(), "cmdUndo");
        // Which of the lines at 100, 200, 300 and 400 are there.
        const auto lines = [&canvas] {
            QString there;
            for (const int y : {100, 200, 300, 400})
                there += width(canvas.picture(), 200, y) == 2 ? u'x' : u'-';
            return there;
        };
        const auto drawAt = [&canvas](int y) { stroke(canvas, {{100, y}, {300, y}}); };
        QVERIFY(!undo.isEnabled());
        press(Qt::Key_Z, Qt::ControlModifier);
        drawAt(100);
        drawAt(200);
        control<QPushButton>(*canvas.window(), "Command3").click();
        QCOMPARE(lines(), u"----"_s);
        undo.click();
        QCOMPARE(lines(), u"xx--"_s);
        press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(lines(), u"x---"_s);
        // Behind a wipe, what is taken back doesn't bring back what stood before it.
        press(Qt::Key_Delete, Qt::ControlModifier);
        drawAt(300);
        drawAt(400);
        undo.click();
        QCOMPARE(lines(), u"--x-"_s);
        undo.click();
        undo.click();
        QCOMPARE(lines(), u"x---"_s);
        // Whatever command comes while the pen is still down, its stroke is one.
        const auto beginAt = [&canvas](int y) { draw(canvas, {{100, y}, {200, y}, {300, y}}); };
        beginAt(200);
        press(Qt::Key_Delete, Qt::ControlModifier);
        QTest::mouseMove(&canvas, canvas.rect().center());
        QTest::mouseRelease(&canvas, Qt::LeftButton, {}, canvas.rect().center());
        QCOMPARE(lines(), u"----"_s);
        press(Qt::Key_Z, Qt::ControlModifier);
        beginAt(300);
        beginAt(400);
        QCOMPARE(lines(), u"xxx-"_s);
        accessKey('o');
    });
    for (const int y : {100, 200, 300, 400})
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

void HandNoteTest::aTabletDraws()
{
    const TestShop shop;
    note(shop.folder.filePath(u"n.bmp"_s), [](NoteCanvas &canvas, ModalScript &) {
        const auto draw = [&canvas](QPointingDevice::PointerType kind, QPointF from, QPointF to) {
            const QPointingDevice stylus(u"stylus"_s, 1, QInputDevice::DeviceType::Stylus, kind,
                QInputDevice::Capability::Position | QInputDevice::Capability::Pressure, 1, 1);
            // In the air first, then down.
            for (const auto &[type, point] :
                {std::pair(QEvent::TabletMove, QPointF(10, 10)), {QEvent::TabletPress, from},
                    {QEvent::TabletMove, (from + to) / 2}, {QEvent::TabletMove, to}, {QEvent::TabletRelease, to}}) {
                const QPointF place = point + canvas.place().topLeft();
                const bool isHeld = type != QEvent::TabletRelease && point != QPointF(10, 10);
                QTabletEvent event(type, &stylus, place, place, 0.7, 0, 0, 0, 0, 0, {},
                    type == QEvent::TabletMove ? Qt::NoButton : Qt::LeftButton, isHeld ? Qt::LeftButton : Qt::NoButton);
                QCoreApplication::sendEvent(&canvas, &event);
                QVERIFY(event.isAccepted());
            }
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

void HandNoteTest::whatWasThereStaysWithoutOkOrAPicture()
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
    writeContent(path, "no picture");
    ModalScript script;
    script.expectBox(u"This picture can't be drawn on. It is no picture of a known kind:\r\n"_s + path);
    bool cancelled = false;
    frmHandNote().TakeSnap(path, cancelled);
    QVERIFY(cancelled);
    QCOMPARE(contentOf(path), QByteArray("no picture"));
}

void HandNoteTest::whatCannotBeWrittenStaysOnTheSheet()
{
    const TestShop shop;
    const QString path = shop.folder.filePath(u"n.bmp"_s);
    QVERIFY(QDir().mkdir(path + u".new"_s));
    QVERIFY(!note(path, [&path](NoteCanvas &canvas, ModalScript &script) {
        stroke(canvas, {{100, 100}, {300, 100}});
        script.expectBox(u"The file cannot be made: Is a directory.\n\n"
                         "Nothing of this file was written. When the cause is mended, it can be made again.\n\n"_s
            + path);
        accessKey('o');
        QVERIFY(script.isDone() && canvas.isVisible());
        QCOMPARE(width(canvas.picture(), 200, 100), 2);
        QVERIFY(QDir().rmdir(path + u".new"_s));
        accessKey('o');
    }));
    QCOMPARE(width(pictureFile::read(path).picture, 200, 100), 2);
}

CORVANE_TEST(HandNoteTest)
#include "tst_frmHandNote.moc"
