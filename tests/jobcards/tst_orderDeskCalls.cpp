#include "jobcards/frmEditJOB.h"

#include "OrderDesk.h"
#include "store/DataEnvironment.h"
#include "store/lookups.h"
#include "store/settings.h"
#include "support/PseudoTerminal.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/ListView.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"

#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// What the order desk calls up: the search, the client editor, the forecast, the message to the client.
class OrderDeskCallsTest : public QObject {
    Q_OBJECT

private slots:
    void quickFindBringsTheClient();
    void aNewClientIsAddedOnTheSpot();
    void theForecastOpensAndChangesNothing();
    void theClientIsOfferedAMessage_data();
    void theClientIsOfferedAMessage();
    void theMessageTellsNumberAndBalance();
    void aNewCardIsPrintedBeforeTheOffer();
};

namespace {

const QString offer = u"This Job has been registered.\r\nWould you like to Inform Client via SMS?"_s;

QString client(const QWidget &screen)
{
    return control<kvComboBox>(screen, "cmbClient").Text();
}

} // namespace

void OrderDeskCallsTest::quickFindBringsTheClient()
{
    OrderDesk desk;
    desk.addAccount(u"Ravi Jain"_s);
    ModalScript script;
    onCard(script, 0, [&script](QWidget &screen) {
        script.expect(u"frmSearchClient"_s, [](QWidget &) {
            type(u"jain"_s);
            press(Qt::Key_Return);
        });
        accessKey('q');
        QCOMPARE(client(screen), u"Ravi Jain"_s);
        QCOMPARE(focused(), u"cmbClient"_s);
        press(Qt::Key_Return);
        QCOMPARE(control<QLabel>(screen, "lblLastvisit").text(), u"Welcome Ravi Jain"_s);

        // Given up, the search leaves the client, and Enter goes on from where the client stands.
        script.expect(u"frmSearchClient"_s, [](QWidget &) { press(Qt::Key_Escape); });
        accessKey('q');
        QCOMPARE(client(screen), u"Ravi Jain"_s);
        press(Qt::Key_Return);
        QCOMPARE(focused(), u"DateDel"_s);
    });
}

void OrderDeskCallsTest::aNewClientIsAddedOnTheSpot()
{
    OrderDesk desk;
    ModalScript script;
    onCard(script, 0, [&script](QWidget &screen) {
        const auto addClient = [&script](const QString &name) {
            script.expect(u"frmEditClients"_s, [name](QWidget &) {
                type(name);
                if (name.isEmpty())
                    press(Qt::Key_Escape);
                else
                    accessKey('s');
            });
            if (!name.isEmpty())
                script.expectMessage(u"New Client Created."_s);
            press(Qt::Key_A, Qt::ControlModifier);
            QVERIFY(script.isDone());
        };
        type(u"as"_s);
        addClient(u"Meera O'Brien"_s);
        QCOMPARE(client(screen), u"Meera O'Brien"_s);
        QVERIFY(driver::entries(control<kvComboBox>(screen, "cmbClient")).contains(u"Meera O'Brien"_s));
        QCOMPARE(focused(), u"cmbClient"_s);
        expectItem(script, u"co"_s, u"1"_s);
        accessKey('a');
        script.expectMessage(u"New Job Created."_s);
        accessKey('s');

        // Nothing saved: the name saved before stands again.
        control<kvComboBox>(screen, "cmbClient").setFocus();
        addClient({});
        QCOMPARE(client(screen), u"Meera O'Brien"_s);
        // Elsewhere the keys select all, as everywhere.
        control<kvTextBox>(screen, "txtRemark").setFocus();
        press(Qt::Key_A, Qt::ControlModifier);
    });
    QCOMPARE(desk.lines(u"Select ClintName from JOBS"_s), QStringList{u"Meera O'Brien"_s});
}

void OrderDeskCallsTest::theForecastOpensAndChangesNothing()
{
    OrderDesk desk;
    desk.book(u"1"_s);
    desk.connection.execute(u"update Items set ProdcutionCap=1"_s);
    ModalScript script;
    onCard(script, 1, [&script](QWidget &screen) {
        script.expect(u"frmDDP"_s, [](QWidget &forecast) {
            QCOMPARE(forecast.windowTitle(), u"Pending Orders Status"_s);
            const QStringList coat = driver::rows(control<ListView>(forecast, "lvSummary")).value(0);
            QCOMPARE(coat.join(u'|'), u"Coat|1|1|1|1 Days|12-Apr-2011"_s);
            press(Qt::Key_Escape);
        });
        QTest::mouseClick(&control<QWidget>(screen, "Command11"), Qt::LeftButton);
        QVERIFY(script.isDone());
    });
}

void OrderDeskCallsTest::theClientIsOfferedAMessage_data()
{
    QTest::addColumn<QString>("wanted");
    QTest::addColumn<QString>("mobile");
    QTest::addColumn<QString>("port");
    QTest::addColumn<Qt::Key>("answer");
    QTest::addColumn<QString>("told");
    const QString noNumber = u"Mobile Number Not Found!\r\nSMS Sending has been Failed."_s;
    QTest::newRow("not wanted") << u"No"_s << u"98290"_s << u"3"_s << Qt::Key_unknown << QString();
    QTest::newRow("declined") << u"Yes"_s << u"98290"_s << u"3"_s << Qt::Key_Escape << QString();
    QTest::newRow("no number") << u"Yes"_s << u""_s << u""_s << Qt::Key_Return << noNumber;
    QTest::newRow("no port") << u"Yes"_s << u"98290"_s << u""_s << Qt::Key_Return
                             << u"Modem Com Port Error!\r\nSMS Sending has been Failed."_s;
    // Anything but "No" makes the offer.
    QTest::newRow("sent") << u"no"_s << u"98290"_s << u"3"_s << Qt::Key_Return << QString();
}

void OrderDeskCallsTest::theClientIsOfferedAMessage()
{
    QFETCH(QString, wanted);
    QFETCH(QString, mobile);
    QFETCH(QString, port);
    QFETCH(Qt::Key, answer);
    QFETCH(QString, told);
    OrderDesk desk;
    desk.book(u"1"_s);
    SaveSetting(setting::SendJobNumber, wanted);
    SaveSetting(setting::ModemPort, port);
    desk.connection.execute(u"update Accounts set Mobile='%1' where id=5"_s.arg(mobile));
    const PseudoTerminal modem;
    ModalScript script;
    onCard(script, 1, [&](QWidget &) {
        script.expectMessage(u"Job Edited."_s);
        if (answer != Qt::Key_unknown)
            script.expectMessage(offer, answer);
        if (!told.isEmpty())
            script.expectMessage(told);
        accessKey('s');
        QVERIFY(script.isDone());
    });
    const bool sent = answer == Qt::Key_Return && told.isEmpty();
    QCOMPARE(modem.received().contains("98290"), sent);
}

void OrderDeskCallsTest::theMessageTellsNumberAndBalance()
{
    OrderDesk desk;
    SaveSetting(setting::SendJobNumber, u"Yes"_s);
    SaveSetting(setting::ModemPort, u"1"_s);
    SaveSetting(setting::BookedSms, u"%eid%: %amount%"_s);
    SaveSetting(setting::SmsTitle, u"Kovrel"_s);
    desk.connection.execute(u"update Accounts set Mobile='098290 12345' where id=5"_s);
    const PseudoTerminal modem;
    ModalScript script;
    onCard(script, 0, [&](QWidget &screen) {
        control<kvComboBox>(screen, "cmbClient").setText(u"Asha Rao"_s);
        expectItem(script, u"co"_s, u"2"_s);
        accessKey('a');
        control<kvTextBox>(screen, "txtAmountPaid").setFocus();
        type(u"100.5"_s);
        press(Qt::Key_Return);
        type(u"cash"_s);
        script.expectMessage(u"New Job Created."_s).expectMessage(offer);
        accessKey('s');
    });
    QCOMPARE(modem.received(), QByteArray("AT+CMGF=1\rAT+CMGS=\"9829012345\"\r1: 699.5\rKovrel\x1a"));
}

void OrderDeskCallsTest::aNewCardIsPrintedBeforeTheOffer()
{
    OrderDesk desk;
    SaveSetting(setting::SendJobNumber, u"Yes"_s);
    SaveSetting(setting::PrintAfterSave, u"1"_s);
    ModalScript script;
    onCard(script, 0, [&](QWidget &screen) {
        control<kvComboBox>(screen, "cmbClient").setText(u"Asha Rao"_s);
        expectItem(script, u"co"_s, u"1"_s);
        accessKey('a');
        script.expectMessage(u"New Job Created."_s);
        script.expect(u"ReportPreview"_s, [](QWidget &) { press(Qt::Key_Escape); });
        script.expectMessage(offer, Qt::Key_Escape);
        accessKey('s');
        QVERIFY(script.isDone());
    });
}

CORVANE_TEST(OrderDeskCallsTest)
#include "tst_orderDeskCalls.moc"
