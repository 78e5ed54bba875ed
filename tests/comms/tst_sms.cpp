#include "base/RuntimeError.h"
#include "comms/kvSMS.h"
#include "comms/modSMS.h"
#include "devices/SerialPort.h"
#include "store/settings.h"
#include "support/ModalScript.h"
#include "support/PseudoTerminal.h"
#include "support/TestShop.h"
#include "support/expectFault.h"
#include "support/testRegistry.h"

#include <QElapsedTimer>
#include <QTest>

using namespace Qt::StringLiterals;

/// What a message says and to whom, and what reaches the modem, byte for byte.
class SmsTest : public QObject {
    Q_OBJECT

private slots:
    void draftsAreFilledAndSigned();
    void aClientsNumberIsFound();
    void progressCountsRows();
    void theModemGetsNumberAndText();
    void aSecondSendOpensThePortAnew();
    void noMessageIsCutByTheNextOrByClosing();
    void aPortIsClosedAtOnceWhenAllIsSent();
    void aModemThatIsGoneIsToldAndTheSenderGoesOn();
    void aModemThatTalksIsNotListenedTo();
    void aModemThatTakesNothingDoesNotHoldTheProgram();
    void whatIsMissingIsTold();
    void portNumbersCountFromOne();
};

namespace {

void send(kvSMS &sms, const QString &text, const QString &number = u"1"_s)
{
    qint16 port = 1;
    sms.SendSMS(port, number, text);
}

} // namespace

void SmsTest::draftsAreFilledAndSigned()
{
    TestShop shop;
    QCOMPARE(GetBookedSMS(12, 1250.5),
        u"Dear Customer\r Your Job ID # 12\r of Rs. 1250.5 has been booked. To track job status call us with this ID.\r\r\r"_s);
    QCOMPARE(GetCompletedSMS(12, 0),
        u"Dear Customer Your Job ID # 12 has been completed. Please visit our shop to collect clothes.\r\r\r"_s);
    SaveSetting(setting::SmsTitle, u"Kovrel"_s);
    QCOMPARE(GetDueSMS(u"-600"_s), u"Dear Customer\r Your Due Balance is : Rs. -600\r\r\r"_s);
    for (const auto &[draft, text] : {std::pair{u"%eid% %amount% %eid%"_s, u"7 300 7\rKovrel"_s},
             {u"%EID% %Amount%"_s, u"%EID% %Amount%\rKovrel"_s}, {u""_s, u"\rKovrel"_s}}) {
        SaveSetting(setting::BookedSms, draft);
        SaveSetting(setting::CompletedSms, draft);
        QCOMPARE(GetBookedSMS(7, 300), text);
        QCOMPARE(GetCompletedSMS(7, 300), text);
    }
}

void SmsTest::aClientsNumberIsFound()
{
    TestShop shop;
    shop.addAccount(u"Asha O'Brien"_s);
    shop.addAccount(u"Ravi"_s);
    shop.addAccount(u"Imran"_s, {}, 1);
    for (const auto &[id, mobile] : {std::pair{5, u"98290"_s}, {6, u"77777"_s}, {7, u"55555"_s}})
        shop.connection.execute(u"update Accounts set Mobile='%1' where id=%2"_s.arg(mobile).arg(id));
    QCOMPARE(GetClientMobile(u"asha o'brien"_s, 0), u"98290"_s);
    QCOMPARE(GetClientMobile({}, 6), u"77777"_s);
    QCOMPARE(GetClientMobile(u"Asha O'Brien"_s, 6), u"77777"_s);
    // A worker has no part in this, and a number that is nobody's leaves what the name gave.
    QCOMPARE(GetClientMobile(u"Imran"_s, 7), QString());
    QCOMPARE(GetClientMobile(u"Asha O'Brien"_s, 7), u"98290"_s);
    QCOMPARE(GetClientMobile({}, 0), QString());
    shop.connection.execute(u"update Accounts set Mobile=Null where id=5"_s);
    QCOMPARE(GetClientMobile(u"Asha O'Brien"_s, 0), QString());
    QCOMPARE(GetContactLine(5), u"No Information Found"_s);
    shop.connection.execute(u"update Accounts set City='Jaipur' where id=6"_s);
    QCOMPARE(GetContactLine(6), u"77777      Jaipur    "_s);
    QCOMPARE(GetContactLine(8) + GetContactLine(0), QString());
}

void SmsTest::progressCountsRows()
{
    // A row is its status; "i" stands before one of bought goods. What it makes of the card: completed, delivered.
    for (const auto &[rows, progress] : {std::pair{u""_s, std::pair{true, true}}, {u"1 0"_s, {false, false}},
             {u"1 1"_s, {true, false}}, {u"1 i0"_s, {true, false}}, {u"2 2"_s, {false, true}},
             {u"2 i2"_s, {false, false}}, {u"1 i2"_s, {true, true}}}) {
        TestShop shop;
        for (const QString &row : rows.split(u' ', Qt::SkipEmptyParts))
            shop.addJobRow({.job = 7, .status = row.right(1).toInt(), .inventory = row.startsWith(u'i')});
        shop.addJobRow({.job = 8});
        QCOMPARE(std::pair(IsJobCompleted(7), IsJobDelivered(7)), progress);
    }
}

void SmsTest::theModemGetsNumberAndText()
{
    struct Message {
        QString number;
        QString text;
        QByteArray dialled;
        QByteArray sent;
    };
    const Message messages[]{
        {u"012 34"_s, u"Hi"_s, "1234", "Hi"},
        {u"+91 9829012345"_s, u"Hi"_s, "919829012345", "Hi"},
        {u"98290-12345"_s, u"Hi"_s, "98290", "Hi"},
        {u"Home 98290"_s, u"Hi"_s, "0", "Hi"},
        {u"1234567890123456"_s, u"Hi"_s, "1.23456789012346E+15", "Hi"},
        {u"1"_s, u"Dear Customer\r\rKovrel"_s, "1", "Dear Customer\r\rKovrel"},
        // Signs beyond the modem's, and those that end or break off.
        {u"1"_s, u"\u00e9 \u0926"_s, "1", "\xe9 ?"},
        {u"1"_s, u"Dear\u001a Customer\u001b\u001b!\u001a"_s, "1", "Dear Customer!"},
        {u"1"_s, QString(900, u'x'), "1", QByteArray(900, 'x')},
    };
    for (const auto &[number, text, dialled, sent] : messages) {
        const PseudoTerminal modem;
        kvSMS sms;
        send(sms, text, number);
        QCOMPARE(modem.received(), "AT+CMGF=1\rAT+CMGS=\"" + dialled + "\"\r" + sent + '\x1a');
        QVERIFY(!modem.isHungUp());
    }
}

void SmsTest::aSecondSendOpensThePortAnew()
{
    kvSMS sms;
    const PseudoTerminal first;
    send(sms, u"one"_s);
    QVERIFY(first.received().endsWith("one\x1a"));
    const PseudoTerminal second;
    send(sms, u"two"_s);
    QVERIFY(second.received().endsWith("two\x1a"));
    QVERIFY(first.isHungUp());
    QVERIFY(first.received().isEmpty());
}

void SmsTest::noMessageIsCutByTheNextOrByClosing()
{
    const QByteArray dialled = "AT+CMGF=1\rAT+CMGS=\"1\"\r";
    const QByteArray text(300, 'x');
    const QByteArray sent = dialled + text + "one\x1a" + dialled + text + "two\x1a";
    // Nobody reads meanwhile, and whether bytes are lost on the way is a matter of luck.
    for (int i = 0; i < 50; ++i) {
        const PseudoTerminal modem;
        {
            kvSMS sms;
            send(sms, QString::fromLatin1(text + "one"));
            send(sms, QString::fromLatin1(text + "two"));
        }
        QCOMPARE(modem.received(), sent);
    }
}

void SmsTest::aPortIsClosedAtOnceWhenAllIsSent()
{
    const PseudoTerminal modem;
    SerialPort port;
    port.open(1);
    port.write("Hi");
    QCOMPARE(modem.received(), "Hi"_ba);
    QElapsedTimer clock;
    clock.start();
    port.close();
    QVERIFY2(clock.elapsed() < 500, qPrintable(QString::number(clock.elapsed())));
    QVERIFY(modem.isHungUp());
}

void SmsTest::aModemThatIsGoneIsToldAndTheSenderGoesOn()
{
    const auto told = u"The modem at %1 is not there: "_s;
    kvSMS sms;
    QString device;
    {
        PseudoTerminal pulledOut;
        SerialPort port;
        port.open(1);
        pulledOut.vanish();
        const RuntimeError error = failureOf([&port] { port.write("Hi"); });
        QVERIFY2(error.text().startsWith(told.arg(pulledOut.device())), qPrintable(error.text()));
        const PseudoTerminal modem;
        send(sms, u"Hi"_s);
        device = modem.device();
    }
    qputenv("CORVANE_MODEM", device.toLocal8Bit());
    {
        ModalScript script;
        script.expectBox(told.arg(device) + u"No such file or directory"_s);
        send(sms, u"Hi"_s);
    }
    const PseudoTerminal other;
    send(sms, u"Hi"_s);
    QVERIFY(other.received().endsWith("Hi\x1a"));
}

void SmsTest::aModemThatTalksIsNotListenedTo()
{
    // More than the port keeps, before it is opened and while it sends; its line echoes what it is told besides.
    const QByteArray chatter(2000, 'R');
    const PseudoTerminal modem;
    modem.say(chatter);
    {
        kvSMS sms;
        for (const char *text : {"one", "two"}) {
            send(sms, QString::fromLatin1(text));
            QVERIFY(modem.received().endsWith(QByteArray(text) + '\x1a'));
            modem.say(chatter);
        }
    }
    SerialPort open;
    open.open(1);
    for (int i = 0; i < 5; ++i) {
        modem.say(chatter);
        open.write("AT\r");
        QVERIFY(modem.received().endsWith("AT\r"));
    }
}

void SmsTest::aModemThatTakesNothingDoesNotHoldTheProgram()
{
    const PseudoTerminal modem;
    kvSMS sms;
    ModalScript script;
    script.expectBox(u"Operation timed out"_s);
    QElapsedTimer clock;
    clock.start();
    send(sms, QString(1'000'000, u'x'));
    QVERIFY2(clock.elapsed() < 3000, qPrintable(QString::number(clock.elapsed())));
}

void SmsTest::whatIsMissingIsTold()
{
    TestShop shop;
    const PseudoTerminal modem;
    kvSMS sms;
    const auto sends = [&](const QString &mobile, const QString &port, const QString &missing, const QString &fault) {
        SaveSetting(setting::ModemPort, port);
        ModalScript script;
        if (!missing.isEmpty())
            script.expectMessage(missing + u"\r\nSMS Sending has been Failed."_s);
        if (!fault.isEmpty())
            script.expectBox(fault);
        sms.sendAtShopPort(mobile, u"Hi"_s);
        QVERIFY(script.isDone());
    };
    for (const QString &port : {u""_s, u"3"_s})
        sends({}, port, u"Mobile Number Not Found!"_s, {});
    sends(u"98290"_s, {}, u"Modem Com Port Error!"_s, {});
    // Ports that no machine has.
    for (const QString &port : {u"COM3"_s, u"0"_s, u"-1"_s, u"32768"_s, u"-32769"_s, u"1e300"_s})
        sends(u"98290"_s, port, {}, u"Invalid port number"_s);
    QCOMPARE(modem.received(), ""_ba);
    sends(u"98290"_s, u"3"_s, {}, {});
    QVERIFY(!modem.received().isEmpty());
}

void SmsTest::portNumbersCountFromOne()
{
    QVERIFY(SerialPort::deviceOf(1).startsWith(u"/dev/tty"_s) && SerialPort::deviceOf(1).endsWith(u'0'));
    QVERIFY(SerialPort::deviceOf(12).endsWith(u"11"_s));
}

CORVANE_TEST(SmsTest)
#include "tst_sms.moc"
