#include "pictures/frmCam.h"

#include "base/session.h"
#include "devices/cameras.h"
#include "devices/multimedia.h"
#include "devices/sound.h"
#include "pictures/kvSnap.h"
#include "pictures/pictureFile.h"
#include "sampleFiles.h"
#include "store/settings.h"
#include "support/ModalScript.h"
#include "support/TestShop.h"
#include "support/fileContent.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/kvComboBox.h"

#include <QMenu>
#include <QPushButton>

using namespace Qt::StringLiterals;
using driver::control;
using driver::press;

/// Pictures from a camera, which may be missing, silent or pulled out.
class CamTest : public QObject {
    Q_OBJECT

private slots:
    void aPictureIsCapturedAndASecondOneWantsAStart();
    void withoutACaptureItIsCancelled();
    void withoutACameraALineSaysSo();
    void theCameraIsRememberedHoweverTheListIsLeft();
    void theSizeIsChosen();
    void theClickComesFirst();
    void whatCannotBeWrittenLeavesTheCameraOn();
    void itsLibraryIsLoadedOrMissed();
};

namespace {

/// Cameras that send what the test has them send.
class Bench : public CameraSystem {
public:
    Bench() { cameras::replace(this); }
    ~Bench() override { cameras::replace(nullptr); }

    QStringList names() override { return plugged; }
    std::unique_ptr<Camera> open(int index, const Camera::Events &events) override
    {
        if (index < 0 || index >= plugged.size())
            return nullptr;
        opened += index;
        return std::make_unique<Plugged>(*this, events);
    }

    [[nodiscard]] bool isOn() const { return m_events != nullptr; }
    void send(const QColor &color) const
    {
        QImage frame(64, 48, QImage::Format_RGB32);
        frame.fill(color);
        m_events->frame(frame);
    }
    void pullOut() const
    {
        // It goes while it tells.
        const auto failed = m_events->failed;
        failed(u"The camera was pulled out"_s);
    }

    QStringList plugged{u"Front"_s, u"Cloth stand"_s};
    QList<int> opened;
    int format = 1;

private:
    class Plugged : public Camera {
    public:
        Plugged(Bench &bench, Events events) : m_bench(bench), m_events(std::move(events))
        {
            m_bench.m_events = &m_events;
        }
        ~Plugged() override { m_bench.m_events = nullptr; }
        QStringList formats() const override { return {u"1280 x 720"_s, u"640 x 480"_s}; }
        int format() const override { return m_bench.format; }
        void setFormat(int index) override { m_bench.format = index; }

    private:
        Bench &m_bench;
        Events m_events;
    };

    Camera::Events *m_events = nullptr;
};

struct Studio : TestShop {
    Studio() : path(folder.filePath(u"images/Asha_1.bmp"_s)) { session::ProgramFolder = folder.path(); }

    /// Opens the dialog, does `work` and leaves by Escape; whether it was cancelled.
    bool snap(const std::function<void(QWidget &)> &work) const
    {
        ModalScript script;
        script.expect(u"frmCam"_s, [&work](QWidget &screen) {
            work(screen);
            if (screen.isVisible())
                press(Qt::Key_Escape);
        });
        bool cancelled = false;
        frmCam().TakeSnap(path, cancelled);
        return cancelled;
    }
    [[nodiscard]] QColor kept() const { return pictureFile::read(path).picture.pixelColor(10, 10); }

    QString path;
};

QString line(const QWidget &screen)
{
    return control<kvSnap>(screen, "kvSnap").line();
}

QPushButton &captureCommand(const QWidget &screen)
{
    return control<QPushButton>(screen, "Command4");
}

QColor middle(const QWidget &screen)
{
    auto &view = control<kvSnap>(screen, "kvSnap");
    const QImage seen = view.grab().toImage();
    return seen.pixelColor(seen.rect().center());
}

} // namespace

void CamTest::aPictureIsCapturedAndASecondOneWantsAStart()
{
    const Studio studio;
    const Bench bench;
    const bool cancelled = studio.snap([&](QWidget &screen) {
        QVERIFY(bench.isOn());
        QVERIFY(!captureCommand(screen).isEnabled());
        bench.send(Qt::green);
        QCOMPARE(middle(screen), QColor(Qt::green));
        bench.send(Qt::red);
        QVERIFY(captureCommand(screen).hasFocus());
        press(Qt::Key_Return);
        QVERIFY(!bench.isOn());
        // The dialog stays, with the still.
        QCOMPARE(middle(screen), QColor(Qt::red));
        QCOMPARE(studio.kept(), QColor(Qt::red));
        QVERIFY(QFile::remove(studio.path));
        press(Qt::Key_F9);
        captureCommand(screen).click();
        // Before its first picture the camera has none to take.
        press({Qt::Key_F5, Qt::Key_F9});
        QVERIFY(!QFile::exists(studio.path));
        bench.send(Qt::blue);
        press(Qt::Key_F9);
    });
    QVERIFY(!cancelled);
    QCOMPARE(studio.kept(), QColor(Qt::blue));
}

void CamTest::withoutACaptureItIsCancelled()
{
    const Studio studio;
    const Bench bench;
    pictureFile::save(sampleFiles::halves({20, 20}), studio.path);
    const QByteArray before = contentOf(studio.path);
    QVERIFY(studio.snap([&](QWidget &) { bench.send(Qt::red); }));
    QVERIFY(!bench.isOn());
    // Stopped it takes none.
    QVERIFY(studio.snap([&](QWidget &screen) {
        bench.send(Qt::red);
        press(Qt::Key_F6);
        QVERIFY(!bench.isOn());
        QVERIFY(!control<QPushButton>(screen, "Command2").isEnabled());
        press(Qt::Key_F9);
        captureCommand(screen).click();
    }));
    QCOMPARE(contentOf(studio.path), before);
}

void CamTest::withoutACameraALineSaysSo()
{
    const Studio studio;
    Bench bench;
    bench.plugged.clear();
    QVERIFY(studio.snap([&](QWidget &screen) {
        QCOMPARE(line(screen), u"No camera is there. Plug one in, then start it."_s);
        QVERIFY(middle(screen) != QColor(Qt::black));
        press(Qt::Key_F9);
        bench.plugged = {u"New one"_s};
        press(Qt::Key_F5);
        QCOMPARE(control<kvComboBox>(screen, "cmbList").currentText(), u"New one"_s);
        QCOMPARE(line(screen), u"The camera is switched on..."_s);
        bench.send(Qt::red);
        QCOMPARE(line(screen), QString());
        bench.pullOut();
        QVERIFY(!bench.isOn());
        QCOMPARE(line(screen), u"The camera was pulled out"_s);
        QVERIFY(!captureCommand(screen).isEnabled());
        press({Qt::Key_F9, Qt::Key_F5});
        QVERIFY(!QFile::exists(studio.path));
        bench.send(Qt::blue);
        QCOMPARE(middle(screen), QColor(Qt::blue));
        // Another program takes it.
        press(Qt::Key_F5);
        QTRY_COMPARE_WITH_TIMEOUT(
            line(screen), u"The camera sends no picture. Perhaps another program is using it."_s, 8000);
        QVERIFY(!bench.isOn());
    }));
}

void CamTest::theCameraIsRememberedHoweverTheListIsLeft()
{
    for (const Qt::Key key : {Qt::Key_F5, Qt::Key_Tab, Qt::Key_Return, Qt::Key_Escape}) {
        const Studio studio;
        const Bench bench;
        studio.snap([key](QWidget &screen) {
            control<kvComboBox>(screen, "cmbList").setFocus();
            press(Qt::Key_Down);
            QCOMPARE(GetSetting(17, u"-"_s), u"-"_s);
            press(key);
        });
        QCOMPARE(GetSetting(17, u"-"_s), u"1"_s);
        for (const auto &[stored, opens] : {std::pair(u"1"_s, 1), {u"7"_s, 0}, {u"-3"_s, 0}, {u"x"_s, 0}}) {
            SaveSetting(setting::Webcam, stored);
            studio.snap([](QWidget &) {});
            QCOMPARE(bench.opened.constLast(), opens);
            QCOMPARE(GetSetting(setting::Webcam), stored);
        }
    }
}

void CamTest::theSizeIsChosen()
{
    const Studio studio;
    const Bench bench;
    studio.snap([&](QWidget &) {
        QTimer::singleShot(100, qApp, [] {
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            QVERIFY(menu);
            QCOMPARE(menu->actions().size(), 2);
            QCOMPARE(menu->activeAction()->text(), u"640 x 480"_s);
            QTest::keyClick(menu, Qt::Key_Up);
            QTest::keyClick(menu, Qt::Key_Return);
        });
        press(Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(bench.format, 0);
    });
}

void CamTest::theClickComesFirst()
{
    const Studio studio;
    const Bench bench;
    QStringList played;
    sound::replacePlayer([&](const QString &path) {
        played += path;
        QVERIFY(!QFile::exists(studio.path));
        // The last picture before the click is over is the one.
        bench.send(Qt::blue);
    });
    const auto takes = [&](QWidget &) {
        bench.send(Qt::red);
        press(Qt::Key_F9);
    };
    writeContent(studio.folder.filePath(u"click.wav"_s), "click");
    QVERIFY(!studio.snap(takes));
    QCOMPARE(played, QStringList{studio.folder.filePath(u"click.wav"_s)});
    QCOMPARE(studio.kept(), QColor(Qt::blue));
    QVERIFY(QFile::remove(studio.path));
    // Gone while it clicks.
    sound::replacePlayer([&](const QString &) { bench.pullOut(); });
    QVERIFY(studio.snap(takes));
    QVERIFY(!QFile::exists(studio.path));
    sound::replacePlayer({});
}

void CamTest::whatCannotBeWrittenLeavesTheCameraOn()
{
    const Studio studio;
    const Bench bench;
    writeContent(studio.folder.filePath(u"images"_s), "a file in the folder's place");
    ModalScript script;
    script.expect(u"frmCam"_s, [&](QWidget &screen) {
        bench.send(Qt::red);
        script.expectBox(u"The file cannot be made: Not a directory.\n\n"
                         "Nothing of this file was written. When the cause is mended, it can be made again.\n\n"_s
            + studio.path);
        press(Qt::Key_F9);
        QVERIFY(script.isDone());
        QVERIFY(bench.isOn() && captureCommand(screen).isEnabled());
        QVERIFY(QFile::remove(studio.folder.filePath(u"images"_s)));
        press(Qt::Key_F9);
        press(Qt::Key_Escape);
    });
    bool cancelled = true;
    frmCam().TakeSnap(studio.path, cancelled);
    QVERIFY(!cancelled);
    QCOMPARE(studio.kept(), QColor(Qt::red));
}

/// Beside this program there is none; what the one of the program says depends on the machine.
void CamTest::itsLibraryIsLoadedOrMissed()
{
    const Studio studio;
    studio.snap([](QWidget &screen) {
        QCOMPARE(line(screen), u"The program's part for cameras is missing. Install the program again."_s);
    });
    qputenv("XDG_RUNTIME_DIR", studio.folder.path().toLocal8Bit());
    QCoreApplication::addLibraryPath(QStringLiteral(CORVANE_LIBRARY_FOLDER));
    QVERIFY(Multimedia::load());
    QCOMPARE(cameras::open(static_cast<int>(cameras::names().size()), {}), nullptr);
}

CORVANE_TEST(CamTest)
#include "tst_frmCam.moc"
