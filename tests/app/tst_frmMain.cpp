#include "app/frmMain.h"

#include "StartFolder.h"
#include "app/MorningGlance.h"
#include "app/SafetyCopier.h"
#include "app/startup.h"
#include "base/session.h"
#include "store/DataEnvironment.h"
#include "store/settings.h"
#include "support/ModalScript.h"
#include "support/contrast.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/Command.h"
#include "ui/DateField.h"

#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QTest>
#include <QToolTip>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// The main screen and its menus.
class MainTest : public QObject {
    Q_OBJECT

private slots:
    void aNewShopGetsItsRow();
    void whatAShopLeavesOutStaysAsItWas();
    void aDateTypedIsInForceAtOnceAndSurvives();
    void whatIsNoDateLeadsNowhere();
    void followingTheMachineDoesNotEraseTheStoredDate();
    void anotherDayThanTodayIsSeen();
    void theNameIsReadWhateverTheWallpaper();
    void closingTheCalendarConfirmsTheDate();
    void escapeAsks();
    void theTitleBarAsksNothing();
    void theWallpaperIsShownInItsSize();
    void aWallpaperThatCannotBeShownLeavesTheDefault_data();
    void aWallpaperThatCannotBeShownLeavesTheDefault();
    void f3OpensACardByItsNumber();
    void f1OpensTheGuideAboveAnyScreen();
    void commandsLeadToTheirScreens_data();
    void commandsLeadToTheirScreens();
    void theMenusLeadToTheirScreens_data();
    void theMenusLeadToTheirScreens();
    void everyCommandHasItsCaption_data();
    void everyCommandHasItsCaption();
    void aboutTellsTheVersions();
    void aSafetyCopyThatFailsIsTold();
};

namespace {

/// A shop that is ready to start.
struct ReadyShop : StartFolder {
    ReadyShop()
    {
        storeMarker(u"1"_s);
        RestartSession();
    }
};

void setShop(const QString &column, const Value &value)
{
    Recordset rows(DE().CN);
    rows.open(u"Select * from Shop"_s);
    if (rows.eof())
        rows.addNew();
    rows.set(column, value);
    rows.update();
}

QString shownName(const frmMain &screen)
{
    return control<QLabel>(screen, "lblShopName").text();
}

/// Goes to another screen and comes back.
void leaveAndReturn(ModalScript &script)
{
    script.expect(u"frmAbout"_s, [](QWidget &) { press(Qt::Key_Escape); });
    accessKey('a');
}

qint64 wallOf(const frmMain &screen)
{
    return control<QLabel>(screen, "MyWall").pixmap().cacheKey();
}

qint64 defaultWallOf(const frmMain &screen)
{
    return control<QLabel>(screen, "Image1").pixmap().cacheKey();
}

} // namespace

void MainTest::aNewShopGetsItsRow()
{
    ReadyShop shop;
    ModalScript script;
    QVERIFY(runProgram([&](frmMain &screen) {
        QCOMPARE(shownName(screen), u"Kovrel"_s);
        QCOMPARE(session::ShopName, QString());
        QCOMPARE(control<DateField>(screen, "TodayDate").date(), QDate(2011, 4, 1));
        QCOMPARE(screen.windowTitle().left(11), u"Corvane 8.2"_s);
        QCOMPARE(control<QLabel>(screen, "lblUser").text(), QString());
        leaveAndReturn(script);
        QCOMPARE(session::ShopName, u"Kovrel"_s);

        setShop(u"Name"_s, u"Asha & Daughters"_s);
        leaveAndReturn(script);
        QCOMPARE(shownName(screen), u"Asha & Daughters"_s);
        QCOMPARE(session::ShopName, u"Asha & Daughters"_s);
        Recordset rows(DE().CN, u"Shop"_s);
        rows.open();
        QCOMPARE(rows.recordCount(), 1);
    }));
}

void MainTest::whatAShopLeavesOutStaysAsItWas()
{
    ReadyShop shop;
    setShop(u"Name"_s, u"Needle"_s);
    setShop(u"Address1"_s, u"4 Mill Road"_s);
    setShop(u"Contacts"_s, QString());
    session::ShopAddress1 = session::ShopAddress2 = session::ShopContacts = u"before"_s;
    QVERIFY(runProgram([&](frmMain &) {
        QCOMPARE(session::ShopAddress1, u"4 Mill Road"_s);
        QCOMPARE(session::ShopAddress2, u"before"_s);
        QCOMPARE(session::ShopContacts, QString());
    }));
}

void MainTest::aDateTypedIsInForceAtOnceAndSurvives()
{
    ReadyShop shop;
    ModalScript script;
    QVERIFY(runProgram([&](frmMain &screen) {
        press(Qt::Key_F2);
        QVERIFY(control<DateField>(screen, "TodayDate").hasFocus());
        type(u"17112025"_s);
        script.expect(u"frmAbout"_s, [](QWidget &) {
            QCOMPARE(session::CurrentDate, QDate(2025, 11, 17));
            QCOMPARE(GetSetting(setting::WorkingDate), u"17-Nov-2025"_s);
            press(Qt::Key_Escape);
        });
        accessKey('a');

        // Changed by another screen, it is picked up on the way back.
        session::CurrentDate = QDate(2025, 12, 24);
        leaveAndReturn(script);
        QCOMPARE(control<DateField>(screen, "TodayDate").date(), QDate(2025, 12, 24));
        QCOMPARE(GetSetting(setting::WorkingDate), u"17-Nov-2025"_s);
    }));
    QVERIFY(runProgram([](frmMain &) { QCOMPARE(session::CurrentDate, QDate(2025, 11, 17)); }));
}

void MainTest::whatIsNoDateLeadsNowhere()
{
    ReadyShop shop;
    ModalScript script;
    QVERIFY(runProgram([&](frmMain &screen) {
        auto &TodayDate = control<DateField>(screen, "TodayDate");
        press(Qt::Key_F2);
        type(u"31/6"_s);
        for (const char command : {'n', 'm', 's', 'a', '3'}) {
            script.expectMessage(u"\"31/6\" is not a date!"_s);
            command == '3' ? press(Qt::Key_F3) : accessKey(command);
            QVERIFY(script.isDone());
            QVERIFY(TodayDate.hasFocus());
            QCOMPARE(TodayDate.refused(), u"31/6"_s);
        }
        type(u"30/6"_s);
        script.expect(u"frmEditJOB"_s, [](QWidget &card) {
            QCOMPARE(control<DateField>(card, "JobDate").date(), QDate(2011, 6, 30));
            press(Qt::Key_Escape);
        });
        accessKey('n');
        QToolTip::hideText();
    }));
}

void MainTest::followingTheMachineDoesNotEraseTheStoredDate()
{
    ReadyShop shop;
    SaveSetting(setting::WorkingDate, u"17-Nov-2025"_s);
    SaveSetting(setting::FollowSystemDate, u"1"_s);
    QVERIFY(runProgram([](frmMain &screen) {
        QCOMPARE(control<DateField>(screen, "TodayDate").date(), QDate(2026, 6, 1));
        QCOMPARE(GetSetting(setting::WorkingDate), u"17-Nov-2025"_s);
    }));
}

void MainTest::anotherDayThanTodayIsSeen()
{
    ReadyShop shop;
    QVERIFY(runProgram([](frmMain &screen) {
        const auto &told = control<QLabel>(screen, "lblNotToday");
        auto &TodayDate = control<DateField>(screen, "TodayDate");
        QVERIFY(told.isVisible());
        QCOMPARE(told.text(), u"is not today"_s);
        QCOMPARE(TodayDate.toolTip(), u"The working date is not today, 01-Jun-2026"_s);
        QCOMPARE(TodayDate.accessibleDescription(), TodayDate.toolTip());
        const auto glance = [&screen] { return screen.findChild<MorningGlance *>(); };
        QTRY_VERIFY(glance() && glance()->isVisible());
        QCOMPARE(control<QLabel>(*glance(), "lblDay").toolTip(), TodayDate.toolTip());
        press(Qt::Key_F2);
        type(u"01062026"_s);
        press(Qt::Key_Tab);
        QCOMPARE(session::CurrentDate, QDate(2026, 6, 1));
        QVERIFY(!told.isVisible());
        QCOMPARE(TodayDate.toolTip(), QString());
        QTRY_COMPARE(control<QLabel>(*glance(), "lblDay").toolTip(), QString());
        // It is marked where it stands, and no longer.
        QCOMPARE(control<QLabel>(*glance(), "lblDay").palette().color(QPalette::WindowText),
            QApplication::palette().color(QPalette::WindowText));
    }));
}

void MainTest::theNameIsReadWhateverTheWallpaper()
{
    ReadyShop shop;
    setShop(u"Name"_s, u"MMMMMMMM"_s);
    for (const QColor &colour : {QColor(Qt::white), QColor(0x1d, 0x5a, 0x8a)}) {
        QImage picture(2000, 1500, QImage::Format_RGB32);
        picture.fill(colour);
        QVERIFY(picture.save(shop.path(u"wall.png"_s)));
        SaveSetting(setting::WallpaperFile, shop.path(u"wall.png"_s));
        QVERIFY(runProgram([](frmMain &screen) {
            const auto &name = control<QLabel>(screen, "lblShopName");
            // As it is seen, whatever lies behind it.
            const QImage seen = screen.grab({name.mapTo(&screen, QPoint()), name.size()}).toImage();
            const QColor ground = seen.pixelColor(seen.width() - 2, 1);
            double most = 1;
            for (int x = 0; x < seen.width(); ++x)
                most = std::max(most, contrast::between(seen.pixelColor(x, seen.height() / 2), ground));
            QVERIFY2(most >= contrast::enoughForText, qPrintable(QString::number(most)));
        }));
    }
}

void MainTest::closingTheCalendarConfirmsTheDate()
{
    ReadyShop shop;
    QVERIFY(runProgram([](frmMain &screen) {
        QCOMPARE(GetSetting(setting::WorkingDate, u"never saved"_s), u"never saved"_s);
        press(Qt::Key_F2);
        press(Qt::Key_Down, Qt::AltModifier);
        QTRY_VERIFY(QApplication::activePopupWidget());
        QVERIFY(screen.isVisible());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QTRY_VERIFY(!QApplication::activePopupWidget());
        QCOMPARE(GetSetting(setting::WorkingDate, u"never saved"_s), u"01-Apr-2011"_s);
    }));
}

void MainTest::escapeAsks()
{
    ReadyShop shop;
    ModalScript script;
    QVERIFY(runProgram([&](frmMain &screen) {
        for (const Qt::Key no : {Qt::Key_Escape, Qt::Key_N}) {
            script.expectMessage(u"Are you sure to exit?"_s, no);
            press(Qt::Key_Escape);
            QVERIFY(screen.isVisible());
        }
        const QPointer<frmMain> guard(&screen);
        script.expectMessage(u"Are you sure to exit?"_s, Qt::Key_Return);
        press(Qt::Key_Escape);
        QVERIFY(!guard || !guard->isVisible());
    }));
}

void MainTest::theTitleBarAsksNothing()
{
    ReadyShop shop;
    QVERIFY(runProgram([](frmMain &screen) { QVERIFY(screen.close()); }));
}

void MainTest::theWallpaperIsShownInItsSize()
{
    ReadyShop shop;
    for (const QSize size : {QSize(301, 201), QSize(2000, 1500)}) {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(Qt::red);
        QVERIFY(picture.save(shop.path(u"wall.png"_s)));
        SaveSetting(setting::WallpaperFile, shop.path(u"wall.png"_s));
        ModalScript script;
        QVERIFY(runProgram([&](frmMain &screen) {
            const auto &area = control<QWidget>(screen, "Picture1");
            const auto &wall = control<QLabel>(screen, "MyWall");
            QCOMPARE(wall.size(), size);
            QCOMPARE(wall.pos(), QPoint((area.width() - size.width()) / 2, (area.height() - size.height()) / 2));
            // A change shows from the next start on.
            const qint64 before = wallOf(screen);
            SaveSetting(setting::WallpaperFile, {});
            leaveAndReturn(script);
            QCOMPARE(wallOf(screen), before);
            screen.SetWall();
            QCOMPARE(wallOf(screen), defaultWallOf(screen));
        }));
    }
}

void MainTest::aWallpaperThatCannotBeShownLeavesTheDefault_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("none") << QString();
    QTest::newRow("missing") << u"missing.png"_s;
    QTest::newRow("no picture") << u"cv.ini"_s;
    QTest::newRow("a folder") << u"images"_s;
}

void MainTest::aWallpaperThatCannotBeShownLeavesTheDefault()
{
    QFETCH(QString, file);
    ReadyShop shop;
    SaveSetting(setting::WallpaperFile, file.isEmpty() ? file : shop.path(file));
    QVERIFY(runProgram([](frmMain &screen) {
        QCOMPARE(wallOf(screen), defaultWallOf(screen));
        QVERIFY(!control<QLabel>(screen, "MyWall").pixmap().isNull());
        QVERIFY(!control<QLabel>(screen, "Image1").isVisible());
    }));
}

void MainTest::f3OpensACardByItsNumber()
{
    ReadyShop shop;
    ModalScript script;
    QVERIFY(runProgram([&](frmMain &screen) {
        script.expect(u"frmOpenJob"_s, [](QWidget &) { press(Qt::Key_Escape); });
        press(Qt::Key_F3);
        QVERIFY(script.isDone());
        QCOMPARE(screen.focusWidget(), &screen);
    }));
}

void MainTest::f1OpensTheGuideAboveAnyScreen()
{
    ReadyShop shop;
    ModalScript script;
    QVERIFY(runProgram([&](frmMain &) {
        const auto expectChapter = [&script](const QString &chapter) {
            script.expect(u"frmGuide"_s, [chapter](QWidget &guide) {
                QCOMPARE(control<QListWidget>(guide, "chapters").currentItem()->text(), chapter);
                press(Qt::Key_Escape);
            });
        };
        expectChapter(u"The first start"_s);
        press(Qt::Key_F1);
        script.expect(u"frmMasters"_s, [&](QWidget &) {
            expectChapter(u"Clients, workers, items, accounts"_s);
            press(Qt::Key_F1);
            press(Qt::Key_Escape);
        });
        accessKey('m');
        script.expect(u"frmMsg"_s, [&](QWidget &) {
            expectChapter(u"Corvane at the counter"_s);
            press(Qt::Key_F1);
            press(Qt::Key_Escape);
        });
        press(Qt::Key_Escape);
        QVERIFY(script.isDone());
    }));
}

void MainTest::commandsLeadToTheirScreens_data()
{
    QTest::addColumn<char>("key");
    QTest::addColumn<QString>("className");
    QTest::newRow("New Job Card") << 'n' << u"frmEditJOB"_s;
    QTest::newRow("Masters") << 'm' << u"frmMasters"_s;
    QTest::newRow("Reports") << 's' << u"frmMenu"_s;
    QTest::newRow("About") << 'a' << u"frmAbout"_s;
    // By Tab, as they have no letter.
    QTest::newRow("Shop Info") << '5' << u"frmShopINFO"_s;
    QTest::newRow("Settings") << '7' << u"frmSettings"_s;
}

void MainTest::commandsLeadToTheirScreens()
{
    QFETCH(char, key);
    QFETCH(QString, className);
    ReadyShop shop;
    ModalScript script;
    QVERIFY(runProgram([&](frmMain &screen) {
        script.expect(className, [&](QWidget &opened) {
            QVERIFY(screen.screen()->availableGeometry().contains(opened.frameGeometry()));
            press(Qt::Key_Escape);
        });
        if (key > '9') {
            accessKey(key);
        } else {
            for (int keys = 0; keys < 12 && screen.focusWidget()->objectName() != u"Command"_s + QLatin1Char(key);
                 ++keys)
                press(Qt::Key_Tab);
            press(Qt::Key_Return);
        }
        QVERIFY(script.isDone());
        QVERIFY(screen.isVisible());
        // No command keeps the keyboard, so that Enter opens nothing by accident.
        QCOMPARE(screen.focusWidget(), &screen);
    }));
}

void MainTest::theMenusLeadToTheirScreens_data()
{
    QTest::addColumn<char>("key");
    QTest::addColumn<QString>("menu");
    QTest::addColumn<QMap<char, QString>>("screens");
    QTest::newRow("masters") << 'm' << u"frmMasters"_s
                             << QMap<char, QString>{{'c', u"frmClients"_s}, {'w', u"frmWorkers"_s},
                                    {'i', u"frmItems"_s}, {'a', u"frmAccountsList"_s}};
    QTest::newRow("reports") << 's' << u"frmMenu"_s
                             << QMap<char, QString>{{'r', u"frmRatings"_s}, {'t', u"frmTrailDate"_s},
                                    {'v', u"frmDeliveryRegister"_s}, {'b', u"frmBirthDayRimenders"_s},
                                    {'e', u"frmSelectDate"_s}};
}

void MainTest::theMenusLeadToTheirScreens()
{
    QFETCH(const char, key);
    QFETCH(const QString, menu);
    using Screens = QMap<char, QString>;
    QFETCH(const Screens, screens);
    ReadyShop shop;
    ModalScript script;
    QVERIFY(runProgram([&](frmMain &) {
        script.expect(menu, [&](QWidget &) {
            for (auto screen = screens.cbegin(); screen != screens.cend(); ++screen) {
                script.expect(*screen, [](QWidget &) { press(Qt::Key_Escape); });
                accessKey(screen.key());
            }
            press(Qt::Key_Escape);
        });
        accessKey(key);
        QVERIFY(script.isDone());
    }));
}

void MainTest::everyCommandHasItsCaption_data()
{
    QTest::addColumn<char>("menu");
    QTest::addColumn<QString>("captions");
    QTest::newRow("main screen")
        << ' '
        << u"cmdCreateJOB &New Job Card|cmdCreateNewClint &Masters|Command2 JOB &Register|Command8 Report&s|"
           "Command5 Shop Info|Command7 Settings|Command4 &About Corvane"_s;
    QTest::newRow("masters")
        << 'm' << u"cmdCreateNewClint &Clients|Command1 &Workers|Command3 &Items|Command2 &Accounts|Command8 Back"_s;
    QTest::newRow("reports")
        << 's'
        << u"Command2 D&ues Register|Command3 &Account Book|Command7 &Wages Register|Command6 &Day Book|"
           "Command10 Deli&very Register|Command5 &Ratings|Command4 &Trial Reminder|Command1 &Birthdays Reminder|"
           "Command9 &Export Status Report|Command8 Back"_s;
}

void MainTest::everyCommandHasItsCaption()
{
    QFETCH(char, menu);
    QFETCH(QString, captions);
    ReadyShop shop;
    ModalScript script;
    // "-" stands before one whose screen is still to come.
    const auto check = [&captions](const QWidget &screen) {
        QStringList found;
        const auto commands = screen.findChildren<Command *>();
        for (const Command *command : commands) {
            // The lines of the glance, which comes in its own time.
            if (qobject_cast<const MorningGlance *>(command->parentWidget()))
                continue;
            found += (command->isEnabled() ? u""_s : u"-"_s) + command->objectName() + u' ' + command->text();
            QCOMPARE(command->toolTip().isEmpty(), command->isEnabled());
        }
        found.sort();
        QStringList expected = captions.split(u'|');
        expected.sort();
        QCOMPARE(found, expected);
    };
    QVERIFY(runProgram([&](frmMain &screen) {
        if (menu == ' ')
            return check(screen);
        script.expect(menu == 'm' ? u"frmMasters"_s : u"frmMenu"_s, [&check](QWidget &opened) {
            check(opened);
            control<Command>(opened, "Command8").setFocus();
            press(Qt::Key_Return);
        });
        accessKey(menu);
        QVERIFY(script.isDone());
    }));
}

void MainTest::aboutTellsTheVersions()
{
    ReadyShop shop;
    ModalScript script;
    QVERIFY(runProgram([&](frmMain &) {
        script.expect(u"frmAbout"_s, [](QWidget &about) {
            QCOMPARE(about.windowTitle(), u"About"_s);
            QCOMPARE(control<QLabel>(about, "lblAppVer").text(), u"Version : 8.2"_s);
            QCOMPARE(control<QLabel>(about, "lblDBVer").text(), u"Database Version : 15"_s);
            QCOMPARE(control<QLabel>(about, "lblInfo").text(), u"Build Date : 25-Oct-2012"_s);
            press(Qt::Key_Return);
        });
        accessKey('a');
        QVERIFY(script.isDone());
    }));
}

void MainTest::aSafetyCopyThatFailsIsTold()
{
    ReadyShop shop;
    shop.write(u"copies"_s, "a file has the name");
    QVERIFY(runProgram([&](frmMain &screen) {
        auto &copier = *screen.findChild<SafetyCopier *>();
        const auto &told = control<QLabel>(screen, "lblCopies");
        copier.look();
        QTRY_COMPARE(told.text(), u"No safety copy: The folder for the copies cannot be made."_s);
        QVERIFY(QFile::remove(shop.path(u"copies"_s)));
        QTRY_VERIFY((copier.look(), told.text().isEmpty()));
        QVERIFY(QFile::exists(shop.path(u"copies/data15-20260601.mdb"_s)));
        // Another program may have made it.
        emit copier.failed(u"of old"_s);
        QCOMPARE(told.text(), u"No safety copy: of old"_s);
        copier.look();
        QCOMPARE(told.text(), QString());
    }));
}

CORVANE_TEST(MainTest)
#include "tst_frmMain.moc"
