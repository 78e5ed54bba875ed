#include "app/frmLogin.h"

#include "StartFolder.h"
#include "app/frmMain.h"
#include "app/startup.h"
#include "store/settings.h"
#include "support/ModalScript.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/kvTextBox.h"

#include <QTest>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// The name and password that guard the program.
class LoginTest : public QObject {
    Q_OBJECT

private slots:
    void theChecksComeInTheirOrder();
    void nameAndPasswordAreComparedExactly();
    void closingEndsTheProcess();
};

namespace {

/// A shop that is ready to start, and asks for "Meera" and "needle 7".
struct LockedShop : StartFolder {
    LockedShop()
    {
        storeMarker(u"1"_s);
        RestartSession();
        SaveSetting(setting::UsePasswordLock, u"1"_s);
        SaveSetting(setting::LoginName, u"Meera"_s);
        SaveSetting(setting::LoginPassword, u"needle 7"_s);
    }
};

QString focused(const QWidget &screen)
{
    return screen.focusWidget() ? screen.focusWidget()->objectName() : QString();
}

} // namespace

void LoginTest::theChecksComeInTheirOrder()
{
    LockedShop shop;
    ModalScript script;
    script.expect(u"frmLogin"_s, [&](QWidget &screen) {
        const auto &password = control<kvTextBox>(screen, "txtPassword");
        const auto complains = [&](const QString &typed, const QString &message) {
            type(typed);
            script.expectMessage(message);
            accessKey('l');
            return focused(screen);
        };
        QCOMPARE(focused(screen), u"txtUserName"_s);
        QCOMPARE(complains({}, u"Please enter user name!"_s), u"txtUserName"_s);
        QCOMPARE(complains(u"Meera"_s, u"Please enter password!"_s), u"txtPassword"_s);
        QCOMPARE(password.echoMode(), QLineEdit::Password);
        QCOMPARE(complains(u"needle"_s, u"Invalid user name or password!"_s), u"txtUserName"_s);
        QCOMPARE(control<kvTextBox>(screen, "txtUserName").Text() + password.Text(), QString());
        type(u"Meera"_s);
        press(Qt::Key_Return);
        QCOMPARE(focused(screen), u"txtPassword"_s);
        type(u"needle 7"_s);
        press(Qt::Key_Return);
    });
    QVERIFY(frmLogin().Login());
}

void LoginTest::nameAndPasswordAreComparedExactly()
{
    LockedShop shop;
    ModalScript script;
    struct Login {
        QString name;
        QString password;
        bool passes;
    };
    for (const auto &[name, password, passes] :
        {Login{u"Meera"_s, u"needle 7"_s, true}, {u"meera"_s, u"needle 7"_s, false}, {u"Meera"_s, u"NEEDLE 7"_s, false},
            {u"Meera "_s, u"needle 7"_s, false}, {u"needle 7"_s, u"Meera"_s, false}}) {
        script.expect(u"frmLogin"_s, [&, name = name, password = password, passes = passes](QWidget &) {
            type(name);
            press(Qt::Key_Return);
            type(password);
            if (!passes)
                script.expectMessage(u"Invalid user name or password!"_s);
            accessKey('l');
            if (!passes)
                press(Qt::Key_Escape);
        });
        QCOMPARE(frmLogin().Login(), passes);
    }
}

void LoginTest::closingEndsTheProcess()
{
    LockedShop shop;
    ModalScript script;
    script.expect(u"frmLogin"_s, [](QWidget &screen) { screen.close(); });
    QVERIFY(!runProgram([](frmMain &) {}));
    script.expect(u"frmLogin"_s, [](QWidget &) {
        type(u"Meera"_s);
        press(Qt::Key_Return);
        type(u"needle 7"_s);
        accessKey('l');
    });
    QVERIFY(runProgram([](frmMain &) {}));
    // Without the lock nobody is asked.
    for (const QString &off : {u"0"_s, u"2"_s, QString()}) {
        SaveSetting(setting::UsePasswordLock, off);
        QVERIFY(runProgram([](frmMain &) {}));
    }
}

CORVANE_TEST(LoginTest)
#include "tst_frmLogin.moc"
