#include "pictures/frmSelectFile.h"

#include "devices/shell.h"
#include "pictures/PictureBox.h"
#include "pictures/Thumbnails.h"
#include "pictures/frmPreview.h"
#include "sampleFiles.h"
#include "store/settings.h"
#include "support/ModalScript.h"
#include "support/PdfPrinter.h"
#include "support/TestShop.h"
#include "support/fileContent.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/kvTextBox.h"

#include <QAbstractItemModelTester>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QListView>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QScopeGuard>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QUrl>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// A picture is found, looked at and chosen, while thumbnails come.
class SelectFileTest : public QObject {
    Q_OBJECT

private slots:
    void aPictureIsChosenByKeys();
    void theTypeFiltersInAnyCase();
    void brokenFilesGetASignAndTheListGoesOn();
    void folderByFolder();
    void theLocationIsRememberedAndItsDriveLeadsToItsRoot();
    void aRememberedLocationThatIsGoneIsTold();
    void aTypedNameMustBeThereAndIsLeftAlone();
    void itIsOpenedAndShownFromTheList();
    void onePicksAtAnyTime();
    void whatIsLookedAtComesNext();
    void aThreadThatFailsEndsNothing();
    void eachIsShownInItsOwnSize();
    void aLargeOneFitsAndComesInFullByAKey();
    void itIsPrintedAndOpenedWhileItIsThere();
};

namespace {

/// A shop whose user keeps his pictures in `album`.
struct Album : TestShop {
    Album()
    {
        qputenv("HOME", folder.path().toLocal8Bit());
        QDir(folder.path()).mkpath(u"Pictures/old"_s);
    }
    ~Album() { qputenv("HOME", home); }
    [[nodiscard]] QString file(const QString &name) const { return folder.filePath(u"Pictures/"_s + name); }
    void photo(const QString &name, int orientation = 1) const
    {
        sampleFiles::writePhoto(file(name), {400, 200}, orientation);
    }
    /// As many links to one large photo, named by their numbers.
    void manyPhotos(int count, int digits) const
    {
        const auto name = [this, digits](int i) { return file(u"%1.jpg"_s.arg(i, digits, 10, QChar(u'0'))); };
        sampleFiles::writePhoto(name(0), {3000, 2000});
        for (int i = 1; i < count; ++i)
            QVERIFY(QFile::link(name(0), name(i)));
    }
    /// Opens the picker in the folder, does `work` and leaves by Escape unless that has chosen one; what was chosen.
    QString pick(const std::function<void(QWidget &)> &work, const QString &in = u"Pictures"_s) const
    {
        SaveSetting(setting::PickerDrive, folder.path());
        SaveSetting(setting::PickerFolder, folder.filePath(in));
        return pickAgain(work);
    }
    /// Opens it where it was left.
    QString pickAgain(const std::function<void(QWidget &)> &work) const
    {
        script.expect(u"frmSelectFile"_s, [&work](QWidget &picker) {
            work(picker);
            if (picker.isVisible())
                press(Qt::Key_Escape);
        });
        return frmSelectFile::SelFile();
    }
    QByteArray home = qgetenv("HOME");
    mutable ModalScript script;
};

QString status(const QWidget &picker)
{
    return control<QLabel>(picker, "lblStatus").text();
}

bool isThrough(const QWidget &picker)
{
    return QTest::qWaitFor([&picker] { return !control<QProgressBar>(picker, "progress").isVisible(); }, 20000);
}

void chooseDrive(const QWidget &picker, const QString &name)
{
    auto &drives = control<QComboBox>(picker, "drive");
    drives.setFocus();
    press(Qt::Key_Home);
    while (drives.currentText() != name && drives.currentIndex() + 1 < drives.count())
        press(Qt::Key_Down);
}

QStringList files(const QWidget &picker)
{
    return driver::column(control<QListView>(picker, "preview"), 0);
}

QString chosenName(const QWidget &picker)
{
    return control<kvTextBox>(picker, "txtfilename").text();
}

QImage thumbnail(const QWidget &picker, int row)
{
    const auto *model = control<QListView>(picker, "preview").model();
    return model->index(row, 0).data(Qt::DecorationRole).value<QPixmap>().toImage();
}

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

void SelectFileTest::aPictureIsChosenByKeys()
{
    const Album album;
    for (const char *name : {"a.jpg", "b.jpg", "c.jpg"})
        album.photo(QLatin1StringView(name), name[0] == 'c' ? 6 : 1);
    const QString chosen = album.pick([](QWidget &picker) {
        const QAbstractItemModelTester tester(control<QListView>(picker, "preview").model());
        QCOMPARE(files(picker), QStringList({u"a.jpg"_s, u"b.jpg"_s, u"c.jpg"_s}));
        QVERIFY(isThrough(picker));
        QCOMPARE(status(picker), u"3 pictures"_s);
        // The last one is held on its side.
        QVERIFY(thumbnail(picker, 0).pixelColor(50, 10) == Qt::white);
        QVERIFY(thumbnail(picker, 2).pixelColor(50, 10).red() > 200);
        // Nothing is chosen yet, and nothing happens.
        control<QPushButton>(picker, "cmdOK").click();
        QVERIFY(picker.isVisible());
        control<QListView>(picker, "preview").setFocus();
        type(u"b"_s);
        QCOMPARE(chosenName(picker), u"b.jpg"_s);
        QCOMPARE(control<QListView>(picker, "files").currentIndex().row(), 1);
        press(Qt::Key_Right);
        QCOMPARE(chosenName(picker), u"c.jpg"_s);
        press(Qt::Key_Return);
    });
    QCOMPARE(chosen, album.file(u"c.jpg"_s));
    const auto cancels = [](QWidget &picker) { control<QPushButton>(picker, "Command1").click(); };
    QCOMPARE(album.pick(cancels), u"Cancel"_s);
}

void SelectFileTest::theTypeFiltersInAnyCase()
{
    const Album album;
    for (const char *name : {"a.jpg", "B.JPG", "c.jpeg", "d.gif", "e.bmp", "f.PNG", "g.txt"})
        writeContent(album.file(QLatin1StringView(name)), "x");
    album.pick([](QWidget &picker) {
        auto &kinds = control<QComboBox>(picker, "cmbFIletype");
        QCOMPARE(kinds.currentText(), u"*.jpg"_s);
        kinds.setFocus();
        press(Qt::Key_Home);
        for (const QString &shown :
            {u"*.gif: d.gif"_s, u"*.bmp: e.bmp"_s, u"*.jpg: a.jpg B.JPG"_s, u"*.jpeg: c.jpeg"_s, u"*.png: f.PNG"_s}) {
            QCOMPARE(kinds.currentText() + u": "_s + files(picker).join(u' '), shown);
            press(Qt::Key_Down);
        }
    });
}

void SelectFileTest::brokenFilesGetASignAndTheListGoesOn()
{
    const Album album;
    writeContent(album.file(u"1 empty.jpg"_s), {});
    writeContent(album.file(u"2 text.jpg"_s), "Sleeves 24");
    QVERIFY(QDir().mkdir(album.file(u"folder.jpg"_s)));
    album.photo(u"3 good.jpg"_s);
    album.pick([](QWidget &picker) {
        QVERIFY(isThrough(picker));
        control<QListView>(picker, "files").setFocus();
        press(Qt::Key_Home);
        for (const QString &told : {u"Error loading picture 1 empty.jpg: The file is empty"_s,
                 u"Error loading picture 2 text.jpg: It is no picture of a known kind"_s, u"3 pictures"_s}) {
            QCOMPARE(status(picker), told);
            press(Qt::Key_Down);
        }
        QVERIFY(thumbnail(picker, 2) != thumbnail(picker, 0));
        QCOMPARE(thumbnail(picker, 0), thumbnail(picker, 1));
    });
}

void SelectFileTest::folderByFolder()
{
    const Album album;
    album.photo(u"old/a 100% 'b'.jpg"_s);
    const QString chosen = album.pick([&album](QWidget &picker) {
        auto &folders = control<QListWidget>(picker, "directory");
        QCOMPARE(driver::column(folders, 0), QStringList({u".."_s, u"old"_s}));
        folders.setFocus();
        QCOMPARE(status(picker), u"No file of this type here"_s);
        press({Qt::Key_Down, Qt::Key_Return});
        QCOMPARE(control<QLabel>(picker, "path").text(), album.file(u"old"_s));
        press({Qt::Key_Backspace, Qt::Key_Backspace});
        QVERIFY(driver::column(folders, 0).contains(u"Pictures"_s));
        chooseDrive(picker, u"Computer"_s);
        QCOMPARE(control<QLabel>(picker, "path").text(), u"/"_s);
        QVERIFY(!driver::column(folders, 0).contains(u".."_s));
        chooseDrive(picker, u"Pictures"_s);
        const QPoint place = folders.visualItemRect(folders.item(1)).center();
        QTest::mouseClick(folders.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(folders.viewport(), Qt::LeftButton, {}, place);
        QCOMPARE(files(picker), QStringList{u"a 100% 'b'.jpg"_s});
        control<QListView>(picker, "files").setFocus();
        press({Qt::Key_Home, Qt::Key_Return});
    });
    QCOMPARE(chosen, album.file(u"old/a 100% 'b'.jpg"_s));
}

void SelectFileTest::theLocationIsRememberedAndItsDriveLeadsToItsRoot()
{
    const Album album;
    album.pick(
        [](QWidget &picker) {
            chooseDrive(picker, u"Pictures"_s);
            control<QListWidget>(picker, "directory").setFocus();
            press({Qt::Key_End, Qt::Key_Return, Qt::CTRL | Qt::Key_R});
        },
        u"."_s);
    QCOMPARE(GetSetting(31, u"-"_s), album.folder.filePath(u"Pictures"_s));
    QCOMPARE(GetSetting(32, u"-"_s), album.file(u"old"_s));
    const auto lookAgain = [&album](QWidget &picker) {
        const auto &path = control<QLabel>(picker, "path");
        QCOMPARE(path.text(), album.file(u"old"_s));
        auto &drives = control<QComboBox>(picker, "drive");
        QCOMPARE(drives.currentText(), u"Pictures"_s);
        // Chosen though it stands there already.
        drives.setFocus();
        drives.showPopup();
        press(Qt::Key_Return);
        QCOMPARE(path.text(), album.folder.filePath(u"Pictures"_s));
    };
    QCOMPARE(album.pickAgain(lookAgain), u"Cancel"_s);
}

void SelectFileTest::aRememberedLocationThatIsGoneIsTold()
{
    const Album album;
    album.photo(u"../a.jpg"_s);
    album.pick(
        [&album](QWidget &picker) {
            const QString told = u"The remembered location is not there: "_s + album.folder.filePath(u"gone"_s);
            QCOMPARE(status(picker), told);
            QCOMPARE(control<QLabel>(picker, "path").text(), album.folder.path());
            // The thumbnails that come don't take it away; the user's next act does.
            QVERIFY(isThrough(picker));
            QCOMPARE(status(picker), told);
            control<QListView>(picker, "files").setFocus();
            QCOMPARE(status(picker), told);
            press(Qt::Key_Home);
            QCOMPARE(status(picker), u"1 picture"_s);
        },
        u"gone"_s);
}

void SelectFileTest::aTypedNameMustBeThereAndIsLeftAlone()
{
    const Album album;
    album.manyPhotos(150, 3);
    const QString chosen = album.pick([&album](QWidget &picker) {
        control<QListView>(picker, "preview").setFocus();
        press(Qt::Key_Home);
        QCOMPARE(chosenName(picker), u"000.jpg"_s);
        auto &name = control<kvTextBox>(picker, "txtfilename");
        const auto enter = [&name](const QString &text) {
            name.setFocus();
            name.selectAll();
            type(text);
        };
        enter(u"007.jpg"_s);
        QVERIFY(control<QProgressBar>(picker, "progress").isVisible());
        QVERIFY(isThrough(picker));
        QCOMPARE(chosenName(picker), u"007.jpg"_s);
        for (const QString &missing : {u"007"_s, u"old"_s}) {
            enter(missing);
            album.script.expectMessage(u"There is no such picture in this folder!"_s);
            press(Qt::Key_Return);
            QVERIFY(album.script.isDone() && name.hasFocus());
        }
        enter(u"007.jpg\r"_s);
    });
    QCOMPARE(chosen, album.file(u"007.jpg"_s));
}

void SelectFileTest::itIsOpenedAndShownFromTheList()
{
    const Album album;
    album.photo(u"a.jpg"_s);
    QStringList opened;
    shell::replaceOpener([&opened](const QString &path) { opened += path; });
    album.pick([&album](QWidget &picker) {
        auto &list = control<QListView>(picker, "preview");
        press(Qt::Key_P, Qt::ControlModifier);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(0, 0)).center());
        QCOMPARE(chosenName(picker), u"a.jpg"_s);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(0, 0)).center());
        press(Qt::Key_O, Qt::ControlModifier);
        album.script.expect(u"frmPreview"_s, [](QWidget &shown) {
            QVERIFY(control<PictureBox>(shown, "picture").hasPicture());
            press(Qt::Key_Escape);
        });
        press(Qt::Key_P, Qt::ControlModifier);
        // Back in the same folder, at the same picture.
        QCOMPARE(chosenName(picker), u"a.jpg"_s);
    });
    shell::replaceOpener({});
    QCOMPARE(opened, QStringList({album.file(u"a.jpg"_s), album.file(u"a.jpg"_s)}));
}

void SelectFileTest::onePicksAtAnyTime()
{
    const Album album;
    album.manyPhotos(2000, 4);
    QElapsedTimer open;
    open.start();
    const QString chosen = album.pick([](QWidget &picker) {
        QTRY_VERIFY(thumbnail(picker, 0).pixelColor(3, 50).red() > 200);
        QVERIFY(status(picker).startsWith(u"Creating Thumbnails of :"_s));
        QVERIFY(status(picker).endsWith(u" of 2000"_s));
        control<QListView>(picker, "preview").setFocus();
        press({Qt::Key_Home, Qt::Key_End});
        QCOMPARE(chosenName(picker), u"1999.jpg"_s);
        QVERIFY(control<QProgressBar>(picker, "progress").isVisible());
        press(Qt::Key_Return);
    });
    QCOMPARE(chosen, album.file(u"1999.jpg"_s));
    // Left before the thumbnails are all there, which would take minutes.
    QVERIFY(open.elapsed() < 10'000);
}

void SelectFileTest::whatIsLookedAtComesNext()
{
    const Album album;
    album.manyPhotos(200, 3);
    const QStringList names = QDir(album.file({})).entryList(QDir::Files, QDir::Name);
    Thumbnails thumbnails(1);
    QList<int> order;
    connect(&thumbnails, &Thumbnails::dataChanged, this, [&order](const QModelIndex &index) { order += index.row(); });
    QSignalSpy progress(&thumbnails, &Thumbnails::progressed);
    thumbnails.list(album.folder.filePath(u"Pictures"_s), names);
    QTRY_VERIFY(order.size() >= 2);
    thumbnails.lookAt(150);
    const auto isLookedAt = [](int row) { return row >= 150 && row < 180; };
    QTRY_VERIFY(std::ranges::count_if(order, isLookedAt) >= 15);
    // In their own turn all before them would be there.
    QVERIFY(order.size() < 150);
    // Another list drops what was begun.
    thumbnails.list(album.folder.filePath(u"Pictures"_s), names.first(3));
    progress.clear();
    QTRY_COMPARE(progress.size(), 3);
    QCOMPARE(progress.constLast(), QVariantList({3, 3}));
}

void SelectFileTest::aThreadThatFailsEndsNothing()
{
    Thumbnails thumbnails(1, [](const QString &path, int side) {
        if (path.endsWith(u"2.jpg"))
            throw std::bad_alloc();
        return QImage(side, side, QImage::Format_RGB32);
    });
    QSignalSpy progress(&thumbnails, &Thumbnails::progressed);
    thumbnails.list(u"/album"_s, {u"1.jpg"_s, u"2.jpg"_s, u"3.jpg"_s});
    QTRY_COMPARE(progress.size(), 3);
    QCOMPARE(thumbnails.reasonOf(0) + thumbnails.reasonOf(2), QString());
    QCOMPARE(thumbnails.reasonOf(1), u"Error loading picture 2.jpg:\nThere is not enough memory for it"_s);
}

void SelectFileTest::eachIsShownInItsOwnSize()
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

void SelectFileTest::aLargeOneFitsAndComesInFullByAKey()
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

void SelectFileTest::itIsPrintedAndOpenedWhileItIsThere()
{
    const Photo photo;
    const QString path = photo.folder.filePath(u"Asha's 100% é.jpg"_s);
    QVERIFY(QFile::rename(photo.path, path));
    // Stands in for the desktop's own command, and notes what it is asked to open.
    const QString command = photo.folder.filePath(u"xdg-open"_s);
    const QString asked = photo.folder.filePath(u"asked"_s);
    writeContent(command, "#!/bin/sh\nprintf %s \"$1\" > \"${0%/*}/asked\"\n");
    QVERIFY(QFile::setPermissions(command, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    const auto back = qScopeGuard([path = qgetenv("PATH")] { qputenv("PATH", path); });
    qputenv("PATH", QFile::encodeName(photo.folder.path()) + ':' + qgetenv("PATH"));
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(photo.folder.path()));
    const PdfPrinter printer(photo.folder.filePath(u"paper.pdf"_s));
    show(path, [&](QWidget &, ModalScript &script) {
        accessKey('p');
        accessKey('o');
        QTRY_COMPARE(QUrl::fromEncoded(contentOf(asked)).toLocalFile(), path);
        QVERIFY(QFile::remove(asked) && QFile::remove(path));
        script.expectBox(u"The picture is no longer there:\r\n"_s + path);
        accessKey('o');
        script.expectBox(u"No such file or directory"_s);
        accessKey('p');
    });
    QCOMPARE(printer.jobs(), 1);
    QCOMPARE(printer.title(), u"Asha's 100% é.jpg"_s);
    QVERIFY(!QFile::exists(asked));
    writeContent(path, {});
    ModalScript script;
    script.expectBox(u"This picture can't be shown. The file is empty:\r\n"_s + path);
    frmPreview().ShowImage(path);
}

CORVANE_TEST(SelectFileTest)
#include "tst_frmSelectFile.moc"
