#include "comms/frmBirthDayRimenders.h"

#include "base/session.h"
#include "store/codes.h"
#include "store/settings.h"
#include "support/ModalScript.h"
#include "support/PseudoTerminal.h"
#include "support/TestShop.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/Command.h"
#include "ui/ListView.h"
#include "ui/kvTextBoxMultiLine.h"

#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::control;
using driver::press;

/// Clients by their birthday, and the greeting to one of them.
class BirthdayTest : public QObject {
    Q_OBJECT

private slots:
    void whoeverIsBornOnThatDayIsListed();
    void theGreetingGoesToTheSelectedClientAlone();
    void theGreetingIsKept();
};

namespace {

struct Shop : TestShop {
    Shop()
    {
        session::CurrentDate = {2011, 4, 10};
        connection.execute(u"Insert into Shop (Name) values ('Kovrel')"_s);
    }

    void addClient(const QString &name, QDate birthday, const QString &mobile, int type = accountType::Client)
    {
        addAccount(name, birthday, type);
        connection.execute(u"Update Accounts set Mobile='%1' where Title='%2'"_s.arg(mobile, name));
    }
};

struct Birthdays : frmBirthDayRimenders {
    Birthdays() { QVERIFY(driver::show(*this)); }

    ListView &list = control<ListView>(*this, "lvSummary");

    [[nodiscard]] QString names() const { return driver::column(list, 0).join(u'|'); }
    void showDay(const QString &day)
    {
        driver::accessKey('d');
        driver::type(day);
        press(Qt::Key_Return);
    }
};

} // namespace

void BirthdayTest::whoeverIsBornOnThatDayIsListed()
{
    Shop shop;
    shop.addClient(u"Vikram"_s, {1980, 4, 10}, u"98290 55502"_s);
    shop.addClient(u"Asha"_s, {2011, 4, 10}, {});
    shop.addClient(u"Mohan"_s, {1980, 4, 10}, u"1"_s, accountType::Worker);
    shop.addClient(u"Babu"_s, {}, u"2"_s);
    shop.addClient(u"Lata"_s, {1980, 4, 11}, u"3"_s);
    shop.addClient(u"Mira"_s, {1981, 4, 11}, {});
    shop.addClient(u"Leela"_s, {1984, 2, 29}, u"4"_s);
    shop.addClient(u"Chand"_s, {1984, 2, 28}, u"5"_s);
    shop.addClient(u"Meena"_s, {1984, 3, 1}, u"6"_s);
    Birthdays screen;
    QCOMPARE(driver::rows(screen.list).value(0).join(u'|'), u"Vikram|10-Apr-1980|98290 55502"_s);
    QCOMPARE(screen.names(), u"Vikram|Asha"_s);
    QVERIFY(screen.list.hasFocus());
    QCOMPARE(control<QLabel>(screen, "lblNumber").text(), u"Goes to 9829055502 (column \"Contact\")"_s);
    for (const auto &[day, names] : {std::pair{u"28/2/2011"_s, u"Chand"_s}, std::pair{u"1/3/2011"_s, u"Meena"_s},
             std::pair{u"29/2/2012"_s, u"Leela"_s}, std::pair{u"28/2/2012"_s, u"Chand"_s},
             std::pair{u"28/3/2011"_s, u""_s}, std::pair{u"11/4"_s, u"Lata|Mira"_s}}) {
        screen.showDay(day);
        QCOMPARE(screen.names(), names);
    }
    // The same day keeps the client, another one begins at its first.
    for (const auto &[day, row] : {std::pair{u"11/4"_s, 1}, std::pair{u"10/4"_s, 0}}) {
        press(Qt::Key_Down);
        screen.showDay(day);
        QCOMPARE(screen.list.currentRow(), row);
    }
    ModalScript script;
    script.expectMessage(u"\"31/4\" is not a date!"_s);
    driver::accessKey('d');
    driver::type(u"31/4"_s);
    control<Command>(screen, "Command1").click();
    QVERIFY(script.isDone());
    QCOMPARE(screen.names(), u"Vikram|Asha"_s);
}

void BirthdayTest::theGreetingGoesToTheSelectedClientAlone()
{
    Shop shop;
    const PseudoTerminal modem;
    Birthdays screen;
    ModalScript script;
    const auto send = [&script] {
        press(Qt::Key_M, Qt::ControlModifier);
        QVERIFY(script.isDone());
    };
    // An empty list: nothing.
    send();
    shop.addClient(u"Asha"_s, {1980, 4, 10}, {});
    shop.addClient(u"Vikram"_s, {1981, 4, 10}, u"98290 55502"_s);
    screen.showDay(u"10/4"_s);
    script.expectMessage(u"Mobile Number Not Found!\r\nSMS Sending has been Failed."_s);
    send();
    press(Qt::Key_Down);
    // Told to be sent whatever the port makes of it.
    SaveSetting(setting::ModemPort, u"COM3"_s);
    script.expectBox(u"Invalid port number"_s).expectBox(u"Message Sent"_s);
    send();
    QCOMPARE(modem.received(), QByteArray());
    SaveSetting(setting::ModemPort, u"3"_s);
    script.expectBox(u"Message Sent"_s);
    send();
    QCOMPARE(
        modem.received(), "AT+CMGF=1\rAT+CMGS=\"9829055502\"\rKovrel\r\nwishes you a very Happy Birthday...\x1a"_ba);
}

void BirthdayTest::theGreetingIsKept()
{
    Shop shop;
    {
        Birthdays screen;
        auto &message = control<kvTextBoxMultiLine>(screen, "txtMessage");
        QCOMPARE(message.Text(), u"Kovrel\r\nwishes you a very Happy Birthday..."_s);
        driver::accessKey('m');
        message.selectAll();
        driver::type(u"It's your day"_s);
        QCOMPARE(GetSetting(18, u"none"_s), u"none"_s);
        press(Qt::Key_S, Qt::ControlModifier);
    }
    QCOMPARE(control<kvTextBoxMultiLine>(Birthdays(), "txtMessage").Text(), u"It's your day"_s);
    QCOMPARE(GetSetting(18, u"none"_s), u"It's your day"_s);
}

CORVANE_TEST(BirthdayTest)
#include "tst_frmBirthDayRimenders.moc"
