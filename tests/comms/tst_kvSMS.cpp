#include "comms/kvSMS.h"

#include "base/RuntimeError.h"
#include "devices/SerialPort.h"
#include "store/settings.h"
#include "support/ModalScript.h"
#include "support/PseudoTerminal.h"
#include "support/TestShop.h"
#include "support/expectFault.h"
#include "support/testRegistry.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;

/// What reaches the modem, byte for byte.
class SmsModemTest : public QObject {
    Q_OBJECT

private slots:
    void theModemGetsNumberAndText();
    void aSecondSendOpensThePortAnew();
    void noMessageIsCutByTheNextOrByClosing();
    void aPortIsClosedAtOnceWhenAllIsSent();
    void aPortThatFailsIsToldAndTheSenderGoesOn();
    void aModemPulledOutIsToldAtTheNextMessage();
    void aModemPulledOutWhileItSendsIsTold();
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

/// Has the program find its modem at that device for as long as it lives.
struct Modem {
    explicit Modem(const QByteArray &device) { qputenv("CORVANE_MODEM", device); }
    ~Modem() { qunsetenv("CORVANE_MODEM"); }
};

} // namespace

void SmsModemTest::theModemGetsNumberAndText()
{
    struct Message {
        QString number;
        QString text;
        QByteArray dialled;
        QByteArray sent;
    };
    const Message messages[]{
        {u"1234567890"_s, u"Hi"_s, "1234567890", "Hi"},
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

void SmsModemTest::aSecondSendOpensThePortAnew()
{
    kvSMS sms;
    qint16 port = 1;
    const PseudoTerminal first;
    sms.SendSMS(port, u"1"_s, u"one"_s);
    QVERIFY(first.received().endsWith("one\x1a"));
    const PseudoTerminal second;
    port = 2;
    sms.SendSMS(port, u"1"_s, u"two"_s);
    QVERIFY(second.received().endsWith("two\x1a"));
    QVERIFY(first.isHungUp());
    QVERIFY(first.received().isEmpty());
}

void SmsModemTest::noMessageIsCutByTheNextOrByClosing()
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

void SmsModemTest::aPortIsClosedAtOnceWhenAllIsSent()
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

void SmsModemTest::aPortThatFailsIsToldAndTheSenderGoesOn()
{
    kvSMS sms;
    const Modem missing("/dev/no-such-modem");
    {
        ModalScript script;
        script.expectBox(u"The modem at /dev/no-such-modem is not there: No such file or directory"_s)
            .expectBox(u"Invalid port number"_s);
        send(sms, u"Hi"_s);
        qint16 none = 0;
        sms.SendSMS(none, u"1"_s, u"Hi"_s);
    }
    const PseudoTerminal modem;
    send(sms, u"Hi"_s);
    QVERIFY(modem.received().endsWith("Hi\x1a"));
}

void SmsModemTest::aModemPulledOutIsToldAtTheNextMessage()
{
    kvSMS sms;
    QByteArray device;
    {
        const PseudoTerminal modem;
        send(sms, u"Hi"_s);
        device = modem.device().toLocal8Bit();
    }
    const Modem gone(device);
    ModalScript script;
    script.expectBox(u"The modem at %1 is not there: No such file or directory"_s.arg(QString::fromLocal8Bit(device)));
    send(sms, u"Hi"_s);
}

void SmsModemTest::aModemPulledOutWhileItSendsIsTold()
{
    PseudoTerminal modem;
    SerialPort port;
    port.open(1);
    modem.vanish();
    const RuntimeError error = failureOf([&port] { port.write("Hi"); });
    QVERIFY2(
        error.text().startsWith(u"The modem at %1 is not there: "_s.arg(modem.device())), qPrintable(error.text()));
}

void SmsModemTest::aModemThatTalksIsNotListenedTo()
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

void SmsModemTest::aModemThatTakesNothingDoesNotHoldTheProgram()
{
    const PseudoTerminal modem;
    kvSMS sms;
    ModalScript script;
    qint64 held = 0;
    QElapsedTimer clock;
    clock.start();
    script.expect(u"QMessageBox"_s, [&](QWidget &box) {
        held = clock.elapsed();
        QCOMPARE(box.findChild<QLabel *>(u"qt_msgbox_label"_s)->text(), u"Operation timed out"_s);
        box.close();
    });
    send(sms, QString(1'000'000, u'x'));
    QVERIFY2(held > 0 && held < 2600, qPrintable(QString::number(held)));
}

void SmsModemTest::whatIsMissingIsTold()
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

void SmsModemTest::portNumbersCountFromOne()
{
    QVERIFY(SerialPort::deviceOf(1).startsWith(u"/dev/tty"_s));
    QVERIFY(SerialPort::deviceOf(1).endsWith(u'0'));
    QVERIFY(SerialPort::deviceOf(12).endsWith(u"11"_s));
}

CORVANE_TEST(SmsModemTest)
#include "tst_kvSMS.moc"
