#include "comms/kvSMS.h"

#include "base/RuntimeError.h"
#include "devices/SerialPort.h"
#include "store/settings.h"
#include "support/ModalScript.h"
#include "support/PseudoTerminal.h"
#include "support/TestShop.h"
#include "support/testRegistry.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QScopeGuard>
#include <QTest>

using namespace Qt::StringLiterals;

/// What reaches the modem, byte for byte.
class SmsModemTest : public QObject {
    Q_OBJECT

private slots:
    void theModemGetsNumberAndText_data();
    void theModemGetsNumberAndText();
    void aSecondSendOpensThePortAnew();
    void noMessageIsCutByTheNextOrByClosing();
    void aPortThatFailsIsToldAndTheSenderGoesOn_data();
    void aPortThatFailsIsToldAndTheSenderGoesOn();
    void aModemPulledOutIsToldAtTheNextMessage();
    void aModemPulledOutWhileItSendsIsTold();
    void aModemThatTalksIsNotListenedTo();
    void aModemThatTakesNothingDoesNotHoldTheProgram();
    void whatIsMissingIsTold_data();
    void whatIsMissingIsTold();
    void aPortThatNoMachineHasIsTold_data();
    void aPortThatNoMachineHasIsTold();
    void portNumbersCountFromOne();
};

void SmsModemTest::theModemGetsNumberAndText_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QByteArray>("bytes");
    const auto row = [](const char *name, const QString &number, const QString &message, const QByteArray &sent,
                         const QByteArray &text) {
        QTest::newRow(name) << number << message
                            << QByteArray("AT+CMGF=1\rAT+CMGS=\"" + sent + "\"\r" + text + char(26));
    };
    row("plain", u"1234567890"_s, u"Hi"_s, "1234567890", "Hi");
    row("blanks and a nought in front", u"012 34"_s, u"Hi"_s, "1234", "Hi");
    row("with a country code", u"+91 9829012345"_s, u"Hi"_s, "919829012345", "Hi");
    row("cut at a dash", u"98290-12345"_s, u"Hi"_s, "98290", "Hi");
    row("letters in front", u"Home 98290"_s, u"Hi"_s, "0", "Hi");
    row("sixteen digits", u"1234567890123456"_s, u"Hi"_s, "1.23456789012346E+15", "Hi");
    row("lines", u"1"_s, u"Dear Customer\r\rKovrel"_s, "1", "Dear Customer\r\rKovrel");
    row("signs beyond the modem's", u"1"_s, u"\u00e9 \u0926"_s, "1", "\xe9 ?");
    row("signs that end or break off", u"1"_s, u"Dear\u001a Customer\u001b\u001b!\u001a"_s, "1", "Dear Customer!");
    row("long", u"1"_s, QString(900, u'x'), "1", QByteArray(900, 'x'));
}

void SmsModemTest::theModemGetsNumberAndText()
{
    QFETCH(QString, number);
    QFETCH(QString, message);
    QFETCH(QByteArray, bytes);
    const PseudoTerminal modem;
    kvSMS sms;
    qint16 port = 3;
    sms.SendSMS(port, number, message);
    QCOMPARE(modem.received(), bytes);
    QVERIFY(!modem.isHungUp());
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
            qint16 port = 1;
            sms.SendSMS(port, u"1"_s, QString::fromLatin1(text + "one"));
            sms.SendSMS(port, u"1"_s, QString::fromLatin1(text + "two"));
        }
        QCOMPARE(modem.received(), sent);
    }
}

void SmsModemTest::aPortThatFailsIsToldAndTheSenderGoesOn_data()
{
    QTest::addColumn<QByteArray>("device");
    QTest::addColumn<qint16>("number");
    QTest::addColumn<QString>("told");
    QTest::newRow("no device") << QByteArray("/dev/no-such-modem") << qint16(1)
                               << u"The modem at /dev/no-such-modem is not there: No such file or directory"_s;
    QTest::newRow("no port") << QByteArray() << qint16(0) << u"Invalid port number"_s;
}

void SmsModemTest::aPortThatFailsIsToldAndTheSenderGoesOn()
{
    QFETCH(QByteArray, device);
    QFETCH(qint16, number);
    QFETCH(QString, told);
    qputenv("CORVANE_MODEM", device);
    const auto putBack = qScopeGuard([] { qunsetenv("CORVANE_MODEM"); });
    kvSMS sms;
    {
        ModalScript script;
        script.expectBox(told);
        sms.SendSMS(number, u"1"_s, u"Hi"_s);
    }
    const PseudoTerminal modem;
    number = 1;
    sms.SendSMS(number, u"1"_s, u"Hi"_s);
    QVERIFY(modem.received().endsWith("Hi\x1a"));
}

void SmsModemTest::aModemPulledOutIsToldAtTheNextMessage()
{
    kvSMS sms;
    qint16 port = 1;
    QByteArray device;
    {
        const PseudoTerminal modem;
        sms.SendSMS(port, u"1"_s, u"Hi"_s);
        device = modem.device().toLocal8Bit();
    }
    qputenv("CORVANE_MODEM", device);
    const auto putBack = qScopeGuard([] { qunsetenv("CORVANE_MODEM"); });
    ModalScript script;
    script.expectBox(u"The modem at %1 is not there: No such file or directory"_s.arg(QString::fromLocal8Bit(device)));
    sms.SendSMS(port, u"1"_s, u"Hi"_s);
}

void SmsModemTest::aModemPulledOutWhileItSendsIsTold()
{
    PseudoTerminal modem;
    SerialPort port;
    port.open(1);
    modem.vanish();
    try {
        port.write("Hi");
        QFAIL("somebody took it");
    } catch (const RuntimeError &error) {
        QVERIFY2(
            error.text().startsWith(u"The modem at %1 is not there: "_s.arg(modem.device())), qPrintable(error.text()));
    }
}

void SmsModemTest::aModemThatTalksIsNotListenedTo()
{
    // More than the port keeps, before it is opened and while it sends; its line echoes what it is told besides.
    const QByteArray chatter(2000, 'R');
    const PseudoTerminal modem;
    modem.say(chatter);
    {
        kvSMS sms;
        qint16 port = 1;
        for (const char *text : {"one", "two"}) {
            sms.SendSMS(port, u"1"_s, QString::fromLatin1(text));
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
    qint16 port = 1;
    ModalScript script;
    qint64 held = 0;
    QElapsedTimer clock;
    clock.start();
    script.expect(u"QMessageBox"_s, [&](QWidget &box) {
        held = clock.elapsed();
        QCOMPARE(box.findChild<QLabel *>(u"qt_msgbox_label"_s)->text(), u"Operation timed out"_s);
        box.close();
    });
    sms.SendSMS(port, u"1"_s, QString(1'000'000, u'x'));
    QVERIFY2(held > 0 && held < 2600, qPrintable(QString::number(held)));
}

void SmsModemTest::whatIsMissingIsTold_data()
{
    QTest::addColumn<QString>("mobile");
    QTest::addColumn<QString>("port");
    QTest::addColumn<QString>("told");
    const QString noNumber = u"Mobile Number Not Found!\r\nSMS Sending has been Failed."_s;
    QTest::newRow("neither") << QString() << QString() << noNumber;
    QTest::newRow("number") << QString() << u"3"_s << noNumber;
    QTest::newRow("port") << u"98290"_s << QString() << u"Modem Com Port Error!\r\nSMS Sending has been Failed."_s;
    QTest::newRow("nothing") << u"98290"_s << u"3"_s << QString();
}

void SmsModemTest::whatIsMissingIsTold()
{
    QFETCH(QString, mobile);
    QFETCH(QString, port);
    QFETCH(QString, told);
    TestShop shop;
    const PseudoTerminal modem;
    SaveSetting(setting::ModemPort, port);
    kvSMS sms;
    ModalScript script;
    if (!told.isEmpty())
        script.expectMessage(told);
    sms.sendAtShopPort(mobile, u"Hi"_s);
    QCOMPARE(modem.received().isEmpty(), !told.isEmpty());
}

void SmsModemTest::aPortThatNoMachineHasIsTold_data()
{
    QTest::addColumn<QString>("port");
    for (const char *port : {"COM3", "0", "-1", "32768", "-32769", "1e300"})
        QTest::newRow(port) << QString::fromLatin1(port);
}

void SmsModemTest::aPortThatNoMachineHasIsTold()
{
    QFETCH(QString, port);
    TestShop shop;
    SaveSetting(setting::ModemPort, port);
    kvSMS sms;
    ModalScript script;
    script.expectBox(u"Invalid port number"_s);
    sms.sendAtShopPort(u"98290"_s, u"Hi"_s);
}

void SmsModemTest::portNumbersCountFromOne()
{
    QVERIFY(SerialPort::deviceOf(1).startsWith(u"/dev/tty"_s));
    QVERIFY(SerialPort::deviceOf(1).endsWith(u'0'));
    QVERIFY(SerialPort::deviceOf(12).endsWith(u"11"_s));
}

CORVANE_TEST(SmsModemTest)
#include "tst_kvSMS.moc"
