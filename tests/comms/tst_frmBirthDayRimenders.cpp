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
    void anotherDayBeginsAtItsFirstClient();
    void theDayIsExact_data();
    void theDayIsExact();
    void theGreetingGoesToTheSelectedClientAlone();
    void whatIsMissingIsTold();
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

    [[nodiscard]] QString listed() const
    {
        QStringList lines;
        for (const QStringList &row : driver::rows(list))
            lines += row.join(u'|');
        return lines.join(u'\n');
    }
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
    Birthdays screen;
    QCOMPARE(screen.windowTitle(), u"Birthday Reminders"_s);
    QCOMPARE(screen.listed(), u"Vikram|10-Apr-1980|98290 55502\nAsha|10-Apr-2011|"_s);
    QVERIFY(screen.list.hasFocus());
    QCOMPARE(
        control<QLabel>(screen, "lblNumber").text(), u"Goes to 9829055502, the number in the column \"Contact\""_s);
    screen.showDay(u"11/4"_s);
    QCOMPARE(screen.listed(), u"Lata|11-Apr-1980|3"_s);
    ModalScript script;
    script.expectMessage(u"\"31/4\" is not a date!"_s);
    driver::accessKey('d');
    driver::type(u"31/4"_s);
    control<Command>(screen, "Command1").click();
    QVERIFY(script.isDone());
    QCOMPARE(screen.listed(), u"Lata|11-Apr-1980|3"_s);
    press(Qt::Key_Escape);
    press(Qt::Key_Escape);
    QVERIFY(!screen.isVisible());
}

void BirthdayTest::anotherDayBeginsAtItsFirstClient()
{
    Shop shop;
    for (const QString &name : {u"Asha"_s, u"Babu"_s, u"Chand"_s}) {
        shop.addAccount(name, {1980, 4, 10});
        shop.addAccount(name + u" Lal"_s, {1980, 4, 11});
    }
    Birthdays screen;
    screen.list.setFocus();
    press(Qt::Key_End);
    screen.showDay(u"11/4"_s);
    QCOMPARE(screen.list.currentRow(), 0);
    // The same day keeps the client.
    press(Qt::Key_Down);
    shop.connection.execute(u"Delete * from Accounts where Title='Asha Lal'"_s);
    screen.showDay(u"11/4"_s);
    QCOMPARE(driver::column(screen.list, 0).value(screen.list.currentRow()), u"Babu Lal"_s);
}

void BirthdayTest::theDayIsExact_data()
{
    QTest::addColumn<QString>("day");
    QTest::addColumn<QString>("names");
    QTest::newRow("28 February of a common year") << u"28/2/2011"_s << u"Of the 28th"_s;
    QTest::newRow("1 March of a common year") << u"1/3/2011"_s << u"Of March"_s;
    QTest::newRow("29 February") << u"29/2/2012"_s << u"Of the 29th"_s;
    QTest::newRow("28 February of a leap year") << u"28/2/2012"_s << u"Of the 28th"_s;
    QTest::newRow("the same day of another month") << u"28/3/2011"_s << QString();
}

void BirthdayTest::theDayIsExact()
{
    QFETCH(const QString, day);
    Shop shop;
    shop.addAccount(u"Of the 29th"_s, {1984, 2, 29});
    shop.addAccount(u"Of the 28th"_s, {1984, 2, 28});
    shop.addAccount(u"Of March"_s, {1984, 3, 1});
    Birthdays screen;
    screen.showDay(day);
    QTEST(driver::column(screen.list, 0).join(u'|'), "names");
}

void BirthdayTest::theGreetingGoesToTheSelectedClientAlone()
{
    Shop shop;
    const PseudoTerminal modem;
    SaveSetting(setting::ModemPort, u"3"_s);
    Birthdays screen;
    ModalScript script;
    // An empty list: nothing.
    press(Qt::Key_M, Qt::ControlModifier);
    shop.addClient(u"Asha"_s, {1980, 4, 10}, u"98290 55501"_s);
    shop.addClient(u"Vikram"_s, {1981, 4, 10}, u"98290 55502"_s);
    screen.showDay(u"10/4"_s);
    press(Qt::Key_Down);
    script.expectBox(u"Message Sent"_s);
    press(Qt::Key_M, Qt::ControlModifier);
    QVERIFY(script.isDone());
    QCOMPARE(
        modem.received(), "AT+CMGF=1\rAT+CMGS=\"9829055502\"\rKovrel\r\nwishes you a very Happy Birthday...\x1a"_ba);
}

void BirthdayTest::whatIsMissingIsTold()
{
    Shop shop;
    const PseudoTerminal modem;
    shop.addClient(u"Asha"_s, {1980, 4, 10}, {});
    shop.addClient(u"Vikram"_s, {1980, 4, 10}, u"1"_s);
    Birthdays screen;
    ModalScript script;
    // The number is looked at first.
    for (const QString &told : {u"Mobile Number Not Found!\r\nSMS Sending has been Failed."_s,
             u"Modem Com Port Error!\r\nSMS Sending has been Failed."_s}) {
        script.expectMessage(told);
        press(Qt::Key_M, Qt::ControlModifier);
        QVERIFY(script.isDone());
        press(Qt::Key_Down);
    }
    // Told to be sent whatever the port makes of it.
    SaveSetting(setting::ModemPort, u"COM3"_s);
    script.expectBox(u"Invalid port number"_s).expectBox(u"Message Sent"_s);
    press(Qt::Key_M, Qt::ControlModifier);
    QVERIFY(script.isDone());
    QCOMPARE(modem.received(), QByteArray());
}

void BirthdayTest::theGreetingIsKept()
{
    Shop shop;
    const QString usual = u"Kovrel\r\nwishes you a very Happy Birthday..."_s;
    {
        Birthdays screen;
        auto &message = control<kvTextBoxMultiLine>(screen, "txtMessage");
        QCOMPARE(message.Text(), usual);
        driver::accessKey('m');
        message.selectAll();
        driver::type(u"It's your day"_s);
        QCOMPARE(GetSetting(18, u"none"_s), u"none"_s);
        press(Qt::Key_S, Qt::ControlModifier);
    }
    QCOMPARE(GetSetting(18, u"none"_s), u"It's your day"_s);
    Birthdays screen;
    QCOMPARE(control<kvTextBoxMultiLine>(screen, "txtMessage").Text(), u"It's your day"_s);
}

CORVANE_TEST(BirthdayTest)
#include "tst_frmBirthDayRimenders.moc"
