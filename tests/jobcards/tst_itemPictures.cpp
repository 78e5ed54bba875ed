#include "OrderDesk.h"
#include "base/clock.h"
#include "base/session.h"
#include "devices/cameras.h"
#include "devices/shell.h"
#include "jobcards/frmAddItem.h"
#include "pictures/PictureBox.h"
#include "pictures/pictureFile.h"
#include "store/settings.h"
#include "support/fileContent.h"
#include "ui/kvTextBox.h"
#include "ui/kvTextBoxMultiLine.h"

#include <QDir>
#include <QImage>
#include <QListView>
#include <QPushButton>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;

/// The pictures of an ordered item: taken, drawn, picked, and kept with its row.
class ItemPicturesTest : public QObject {
    Q_OBJECT

private slots:
    void photosGoIntoBothPlaces();
    void aPicturesNameFitsTheDisk();
    void aNoteGoesOverTheFirstPicture();
    void aPickedFileIsTakenAsItIs();
    void whatIsCancelledChangesNothing();
    void picturesAreShownOpenedAndCleared();
};

namespace {

/// A camera whose picture is there at once, of one colour.
class StillCamera : public CameraSystem {
public:
    StillCamera() { cameras::replace(this); }
    ~StillCamera() override { cameras::replace(nullptr); }
    QStringList names() override { return {u"Still"_s}; }
    std::unique_ptr<Camera> open(int, const Camera::Events &events) override
    {
        QImage frame(40, 30, QImage::Format_RGB32);
        frame.fill(color);
        QTimer::singleShot(0, &m_context, [events, frame] { events.frame(frame); });
        return std::make_unique<One>();
    }
    QColor color = Qt::red;

private:
    class One : public Camera {
        QStringList formats() const override { return {}; }
        int format() const override { return -1; }
        void setFormat(int) override { }
    };
    QObject m_context;
};

struct PictureDesk : OrderDesk {
    PictureDesk() { session::ProgramFolder = folder.path(); }

    /// Opens the editor of the only row, does `work`, with dialogs expected on the script, and takes the row.
    void edit(const std::function<void(QWidget &, ModalScript &)> &work)
    {
        ModalScript script;
        script.expect(u"frmAddItem"_s, [&](QWidget &editor) {
            work(editor, script);
            accessKey('o');
        });
        bool cancelled = true;
        frmAddItem().EditItemDetails(row, 5, 1, cancelled);
        QVERIFY(!cancelled);
    }

    [[nodiscard]] QString image(const QString &name) const { return folder.filePath(u"images/"_s + name); }

    clsJobCardData row = rows(1);
    StillCamera camera;
};

void click(const QWidget &editor, const char *command)
{
    control<QPushButton>(editor, command).click();
}

void takePicture(const QWidget &editor, ModalScript &script, const char *command = "Command3")
{
    script.expect(u"frmCam"_s, [](QWidget &) {
        QTRY_COMPARE(focused(), u"Command4"_s);
        press(Qt::Key_Return);
        press(Qt::Key_Escape);
    });
    click(editor, command);
}

/// The commands of the editor that bring up something to make a picture with.
const std::pair<const char *, QString> makers[]{{"Command3", u"frmCam"_s}, {"Command7", u"frmHandNote"_s},
    {"Command4", u"frmCam"_s}, {"Command8", u"frmSelectFile"_s}};

QColor colorOf(const QString &path)
{
    return pictureFile::read(path).picture.pixelColor(5, 5);
}

} // namespace

void ItemPicturesTest::photosGoIntoBothPlaces()
{
    PictureDesk desk;
    desk.edit([&desk](QWidget &editor, ModalScript &script) {
        const auto &picture = control<PictureBox>(editor, "pic1");
        takePicture(editor, script);
        QVERIFY(picture.hasPicture());
        desk.camera.color = Qt::blue;
        takePicture(editor, script, "Command4");
    });
    const QString first = desk.image(u"Asha Rao_01_04_2011_10_0_00_1.bmp"_s);
    QCOMPARE(desk.row.img1(1), first);
    QCOMPARE(desk.row.img2(1), desk.image(u"Asha Rao_01_04_2011_10_0_00_2.bmp"_s));
    QCOMPARE(colorOf(first), QColor(Qt::red));
    QCOMPARE(colorOf(desk.row.img2(1)), QColor(Qt::blue));
    // In the same second another one takes nobody's place.
    desk.edit([](QWidget &editor, ModalScript &script) { takePicture(editor, script); });
    QCOMPARE(desk.row.img1(1), desk.image(u"Asha Rao_01_04_2011_10_0_01_1.bmp"_s));
    QCOMPARE(colorOf(first), QColor(Qt::red));
}

void ItemPicturesTest::aPicturesNameFitsTheDisk()
{
    const QString thread = QString::fromUcs4(U"\U0001F9F5");
    const std::pair<QString, QString> cases[]{
        {u"Rao/../Sons: \"50% & more\""_s, u"Rao_.._Sons: \"50% & more\"_01_04_2011_"_s},
        {u"50%1 Tailors"_s, u"50%1 Tailors_01_04_2011_10_0_00_1.bmp"_s},
        {QString(100, QChar(0x0905)), QString(60, QChar(0x0905)) + u"_01_04_2011_"_s},
        {thread.repeated(60), thread.repeated(45) + u"_01_04_2011_"_s}};
    for (const auto &[title, begins] : cases) {
        PictureDesk desk;
        desk.connection.execute(u"update Accounts set Title='%1' where Id=5"_s.arg(title));
        desk.edit([](QWidget &editor, ModalScript &script) { takePicture(editor, script); });
        const QStringList kept = QDir(desk.image({})).entryList(QDir::Files);
        QCOMPARE(kept.size(), 1);
        QVERIFY2(kept.constFirst().startsWith(begins), qPrintable(kept.constFirst()));
        QCOMPARE(desk.row.img1(1), desk.image(kept.constFirst()));
    }
}

void ItemPicturesTest::aNoteGoesOverTheFirstPicture()
{
    PictureDesk desk;
    const auto draw = [](QWidget &editor, ModalScript &script) {
        script.expect(u"frmHandNote"_s, [](QWidget &note) {
            auto &canvas = control<QWidget>(note, "picCanvas");
            QTest::mouseClick(&canvas, Qt::LeftButton, {}, canvas.rect().center());
            accessKey('o');
        });
        click(editor, "Command7");
        QVERIFY(control<PictureBox>(editor, "pic1").hasPicture());
    };
    desk.edit(draw);
    const QString path = desk.row.img1(1);
    QCOMPARE(path, desk.image(u"Asha Rao_01_04_2011_10_0_00_1.bmp"_s));
    // A picture of the camera is drawn on, under its own path.
    QVERIFY(pictureFile::read(path).picture.copy(0, 0, 31, 31).save(path, "BMP"));
    const QByteArray before = contentOf(path);
    desk.edit(draw);
    QCOMPARE(desk.row.img1(1), path);
    QCOMPARE(pictureFile::sizeOf(path), QSize(31, 31));
    QVERIFY(contentOf(path) != before);
    QCOMPARE(QDir(desk.image({})).entryList(QDir::Files).size(), 1);
}

void ItemPicturesTest::aPickedFileIsTakenAsItIs()
{
    PictureDesk desk;
    const QString broken = desk.folder.filePath(u"text.jpg"_s);
    writeContent(broken, "no picture");
    SaveSetting(setting::PickerDrive, u"/"_s);
    SaveSetting(setting::PickerFolder, desk.folder.path());
    desk.edit([](QWidget &editor, ModalScript &script) {
        script.expect(u"frmSelectFile"_s, [](QWidget &picker) {
            control<QListView>(picker, "files").setFocus();
            driver::type(u"text\r"_s);
        });
        click(editor, "Command8");
        const auto &picture = control<PictureBox>(editor, "pic2");
        QVERIFY(!picture.hasPicture());
        QVERIFY(picture.text().contains(u"It is no picture of a known kind"_s));
    });
    QCOMPARE(desk.row.img2(1), broken);
    QVERIFY(!QFile::exists(desk.image({})));
}

void ItemPicturesTest::whatIsCancelledChangesNothing()
{
    PictureDesk desk;
    const QString old = desk.folder.filePath(u"old.bmp"_s);
    QVERIFY(QImage(40, 30, QImage::Format_RGB32).save(old));
    desk.row.SetImg1(1, old);
    desk.row.SetImg2(1, old);
    const QByteArray before = contentOf(old);
    desk.edit([](QWidget &editor, ModalScript &script) {
        for (const auto &[command, dialog] : makers) {
            script.expect(dialog, [](QWidget &) { press(Qt::Key_Escape); });
            control<QPushButton>(editor, command).setFocus();
            press(Qt::Key_Return);
            QVERIFY2(script.isDone(), command);
        }
    });
    QCOMPARE(desk.row.img1(1), old);
    QCOMPARE(desk.row.img2(1), old);
    QCOMPARE(contentOf(old), before);
}

void ItemPicturesTest::picturesAreShownOpenedAndCleared()
{
    PictureDesk desk;
    const QString first = desk.folder.filePath(u"1.bmp"_s);
    const QString second = desk.folder.filePath(u"2.jpg"_s);
    const QImage cloth(40, 30, QImage::Format_RGB32);
    QVERIFY(cloth.save(first));
    writeContent(second, "no picture");
    desk.row.SetImg1(1, first);
    desk.row.SetImg2(1, second);
    QStringList opened;
    shell::replaceOpener([&opened](const QString &path) { opened += path; });
    desk.edit([&](QWidget &editor, ModalScript &script) {
        auto &picture = control<PictureBox>(editor, "pic1");
        script.expect(u"frmPreview"_s, [](QWidget &) { press(Qt::Key_Escape); });
        press(Qt::Key_1, Qt::AltModifier);
        press(Qt::Key_1, Qt::ControlModifier);
        QTest::mouseDClick(&picture, Qt::LeftButton);
        press(Qt::Key_2, Qt::ControlModifier);
        QCOMPARE(opened, QStringList({first, first, second}));
        click(editor, "Command6");
        QVERIFY(!picture.hasPicture());
        QVERIFY(!QFile::exists(first) && QFile::exists(second));
        // There is none to open now.
        press(Qt::Key_1, Qt::AltModifier);
        press(Qt::Key_1, Qt::ControlModifier);
    });
    shell::replaceOpener({});
    QCOMPARE(opened.size(), 3);
    QCOMPARE(desk.row.img1(1), QString());
    QCOMPARE(desk.row.img2(1), second);

    // Cleaning takes the files at once, whatever becomes of the row, and brings the master's fields back.
    QVERIFY(cloth.save(first));
    desk.row.SetImg1(1, first);
    bool cancelled = false;
    ModalScript script;
    script.expect(u"frmAddItem"_s, [](QWidget &editor) {
        click(editor, "Command2");
        QCOMPARE(control<kvTextBoxMultiLine>(editor, "txtClientRemark").Text(), QString());
        QCOMPARE(control<kvTextBox>(editor, "txtValue").text(), QString());
        press(Qt::Key_Escape);
    });
    frmAddItem().EditItemDetails(desk.row, 5, 1, cancelled);
    QVERIFY(cancelled);
    QVERIFY(!QFile::exists(first) && !QFile::exists(second));
    QCOMPARE(desk.row.img1(1), first);
}

CORVANE_TEST(ItemPicturesTest)
#include "tst_itemPictures.moc"
