#include "app/frmMain.h"

#include "StartFolder.h"
#include "app/MorningGlance.h"
#include "app/SafetyCopier.h"
#include "app/frmLogin.h"
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
#include "ui/kvTextBox.h"

#include <QApplication>
#include <QLabel>
#include <QMap>
#include <QPointer>
#include <QTest>
#include <QToolTip>

#include <algorithm>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// The login, the main screen and its menus.
class MainTest : public QObject {
    Q_OBJECT

private slots:
    void theLoginTakesNameAndPasswordExactly();
    void withoutALoginTheProgramEnds();
    void aNewShopGetsItsRow();
    void aDateTypedIsInForceAtOnceAndSurvives();
    void whatIsNoDateLeadsNowhere();
    void anotherDayThanTodayIsSeen();
    void closingTheCalendarConfirmsTheDate();
    void closingAsksByEscapeAlone();
    void theWallpaperIsShownInItsSize();
    void commandsLeadToTheirScreens();
    void theMenusLeadToTheirScreens();
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

/// One that asks for "Meera" and "needle 7".
struct LockedShop : ReadyShop {
    LockedShop()
    {
        SaveSetting(setting::UsePasswordLock, u"1"_s);
        SaveSetting(setting::LoginName, u"Meera"_s);
        SaveSetting(setting::LoginPassword, u"needle 7"_s);
    }
};

/// Of a name against its ground as they are seen, whatever lies behind them.
double contrastOf(const QLabel &name)
{
    const QImage seen = name.window()->grab({name.mapTo(name.window(), QPoint()), name.size()}).toImage();
    const QColor ground = seen.pixelColor(seen.width() - 2, 1);
    double most = 1;
    for (int x = 0; x < seen.width(); ++x)
        most = std::max(most, contrast::between(seen.pixelColor(x, seen.height() / 2), ground));
    return most;
}

/// Goes to another screen and comes back.
void leaveAndReturn(ModalScript &script)
{
    script.expect(u"frmAbout"_s, [](QWidget &about) {
        QCOMPARE(control<QLabel>(about, "lblAppVer").text(), u"Version : 8.2"_s);
        QCOMPARE(control<QLabel>(about, "lblDBVer").text(), u"Database Version : 15"_s);
        press(Qt::Key_Return);
    });
    accessKey('a');
}

bool showsDefaultWall(const frmMain &screen)
{
    const QPixmap wall = control<QLabel>(screen, "MyWall").pixmap();
    return !wall.isNull() && wall.cacheKey() == control<QLabel>(screen, "Image1").pixmap().cacheKey();
}

} // namespace

void MainTest::theLoginTakesNameAndPasswordExactly()
{
    LockedShop shop;
    ModalScript script;
    script.expect(u"frmLogin"_s, [&](QWidget &screen) {
        auto &name = control<kvTextBox>(screen, "txtUserName");
        auto &password = control<kvTextBox>(screen, "txtPassword");
        const auto complains = [&](const QString &typed, const QString &message, const kvTextBox &next) {
            type(typed);
            script.expectMessage(message);
            accessKey('l');
            QCOMPARE(screen.focusWidget(), &next);
        };
        complains({}, u"Please enter user name!"_s, name);
        complains(u"Meera"_s, u"Please enter password!"_s, password);
        QCOMPARE(password.echoMode(), QLineEdit::Password);
        for (const QString &typed : {u"needle\r"_s, u"meera\rneedle 7\r"_s, u"Meera\rNEEDLE 7\r"_s,
                 u"Meera \rneedle 7\r"_s, u"needle 7\rMeera\r"_s}) {
            script.expectMessage(u"Invalid user name or password!"_s);
            type(typed);
            QCOMPARE(name.Text() + password.Text(), QString());
            QCOMPARE(screen.focusWidget(), &name);
        }
        type(u"Meera\rneedle 7\r"_s);
    });
    QVERIFY(frmLogin().Login());
}

void MainTest::withoutALoginTheProgramEnds()
{
    LockedShop shop;
    ModalScript script;
    script.expect(u"frmLogin"_s, [](QWidget &screen) { screen.close(); });
    QVERIFY(!runProgram([](frmMain &) {}));
    script.expect(u"frmLogin"_s, [](QWidget &) { type(u"Meera\rneedle 7\r"_s); });
    QVERIFY(runProgram([](frmMain &) {}));
    // Without the lock nobody is asked.
    for (const QString &off : {u"0"_s, u"2"_s, QString()}) {
        SaveSetting(setting::UsePasswordLock, off);
        QVERIFY(runProgram([](frmMain &) {}));
    }
}

void MainTest::aNewShopGetsItsRow()
{
    ReadyShop shop;
    ModalScript script;
    session::ShopAddress1 = session::ShopAddress2 = session::ShopContacts = u"before"_s;
    QVERIFY(runProgram([&](frmMain &screen) {
        const auto &shownName = control<QLabel>(screen, "lblShopName");
        QCOMPARE(shownName.text(), u"Kovrel"_s);
        QCOMPARE(session::ShopName, QString());
        QCOMPARE(control<DateField>(screen, "TodayDate").date(), QDate(2011, 4, 1));
        QCOMPARE(screen.windowTitle().left(11), u"Corvane 8.2"_s);
        leaveAndReturn(script);
        QCOMPARE(session::ShopName, u"Kovrel"_s);

        DE().CN.execute(u"Update Shop set Name='Asha & Daughters', Address1='4 Mill Road', Contacts=''"_s);
        leaveAndReturn(script);
        QCOMPARE(shownName.text(), u"Asha & Daughters"_s);
        // What is left out stays as it was.
        QCOMPARE(QStringList({session::ShopName, session::ShopAddress1, session::ShopAddress2, session::ShopContacts}),
            QStringList({u"Asha & Daughters"_s, u"4 Mill Road"_s, u"before"_s, QString()}));
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

void MainTest::anotherDayThanTodayIsSeen()
{
    ReadyShop shop;
    QVERIFY(runProgram([](frmMain &screen) {
        const auto &told = control<QLabel>(screen, "lblNotToday");
        auto &TodayDate = control<DateField>(screen, "TodayDate");
        QVERIFY(told.isVisible());
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
    }));
}

void MainTest::closingTheCalendarConfirmsTheDate()
{
    ReadyShop shop;
    QVERIFY(runProgram([](frmMain &screen) {
        QCOMPARE(GetSetting(setting::WorkingDate, u"never saved"_s), u"never saved"_s);
        press({Qt::Key_F2, Qt::ALT | Qt::Key_Down});
        QTRY_VERIFY(QApplication::activePopupWidget());
        QVERIFY(screen.isVisible());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QTRY_VERIFY(!QApplication::activePopupWidget());
        QCOMPARE(GetSetting(setting::WorkingDate, u"never saved"_s), u"01-Apr-2011"_s);
    }));
}

void MainTest::closingAsksByEscapeAlone()
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
    // The title bar asks nothing.
    QVERIFY(runProgram([](frmMain &screen) { QVERIFY(screen.close()); }));
}

void MainTest::theWallpaperIsShownInItsSize()
{
    ReadyShop shop;
    DE().CN.execute(u"Insert into Shop (Name) values ('MMMMMMMM')"_s);
    ModalScript script;
    for (const QSize size : {QSize(301, 201), QSize(2000, 1500)}) {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(Qt::red);
        QVERIFY(picture.save(shop.path(u"wall.png"_s)));
        SaveSetting(setting::WallpaperFile, shop.path(u"wall.png"_s));
        QVERIFY(runProgram([&](frmMain &screen) {
            const auto &area = control<QWidget>(screen, "Picture1");
            const auto &wall = control<QLabel>(screen, "MyWall");
            QVERIFY(contrastOf(control<QLabel>(screen, "lblShopName")) >= contrast::enoughForText);
            QCOMPARE(wall.size(), size);
            QCOMPARE(wall.pos(), QPoint((area.width() - size.width()) / 2, (area.height() - size.height()) / 2));
            // A change shows from the next start on.
            const qint64 before = wall.pixmap().cacheKey();
            SaveSetting(setting::WallpaperFile, {});
            leaveAndReturn(script);
            QCOMPARE(wall.pixmap().cacheKey(), before);
            screen.SetWall();
            QVERIFY(showsDefaultWall(screen));
        }));
    }
    // None, one that is gone, one that is none, and a folder.
    for (const QString &file : {QString(), u"missing.png"_s, u"cv.ini"_s, u"images"_s}) {
        SaveSetting(setting::WallpaperFile, file.isEmpty() ? file : shop.path(file));
        QVERIFY(runProgram([](frmMain &screen) {
            QVERIFY(showsDefaultWall(screen));
            QVERIFY(!control<QLabel>(screen, "Image1").isVisible());
        }));
    }
}

void MainTest::commandsLeadToTheirScreens()
{
    ReadyShop shop;
    ModalScript script;
    QVERIFY(runProgram([&](frmMain &screen) {
        const auto leadsTo = [&](const QString &className, QKeyCombination key) {
            script.expect(className, [&](QWidget &opened) {
                QVERIFY(screen.screen()->availableGeometry().contains(opened.frameGeometry()));
                press(Qt::Key_Escape);
            });
            press({key});
            QVERIFY(script.isDone());
            // No command keeps the keyboard, so that Enter opens nothing by accident.
            QCOMPARE(screen.focusWidget(), &screen);
        };
        for (const auto &[className, key] : {std::pair{u"frmEditJOB"_s, QKeyCombination(Qt::ALT | Qt::Key_N)},
                 {u"frmWorkerJobRegister"_s, Qt::ALT | Qt::Key_R}, {u"frmAbout"_s, Qt::ALT | Qt::Key_A},
                 {u"frmGuide"_s, Qt::Key_F1}, {u"frmOpenJob"_s, Qt::Key_F3}})
            leadsTo(className, key);
        // Those without a letter are reached by Tab.
        for (const auto &[className, command] :
            {std::pair{u"frmShopINFO"_s, u"Command5"_s}, {u"frmSettings"_s, u"Command7"_s}}) {
            for (int keys = 0; keys < 12 && screen.focusWidget()->objectName() != command; ++keys)
                press(Qt::Key_Tab);
            leadsTo(className, Qt::Key_Return);
        }
    }));
}

void MainTest::theMenusLeadToTheirScreens()
{
    const QMap<char, QString> masters{
        {'c', u"frmClients"_s}, {'w', u"frmWorkers"_s}, {'i', u"frmItems"_s}, {'a', u"frmAccountsList"_s}};
    const QMap<char, QString> reports{{'u', u"frmDueRegister"_s}, {'a', u"frmAccountBook"_s},
        {'w', u"frmWorkerWagesRegister"_s}, {'d', u"frmDayBook"_s}, {'v', u"frmDeliveryRegister"_s},
        {'r', u"frmRatings"_s}, {'t', u"frmTrailDate"_s}, {'b', u"frmBirthDayRimenders"_s}, {'e', u"frmSelectDate"_s}};
    ReadyShop shop;
    ModalScript script;
    QVERIFY(runProgram([&](frmMain &) {
        const auto opens = [&](char key, const QString &menu, const QMap<char, QString> &screens) {
            script.expect(menu, [&](QWidget &opened) {
                for (const auto &[letter, className] : screens.asKeyValueRange()) {
                    script.expect(className, [](QWidget &) { press(Qt::Key_Escape); });
                    accessKey(letter);
                }
                control<Command>(opened, "Command8").setFocus();
                press(Qt::Key_Return);
            });
            accessKey(key);
            QVERIFY(script.isDone());
        };
        opens('m', u"frmMasters"_s, masters);
        opens('s', u"frmMenu"_s, reports);
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
