#include "jobcards/frmEditJOB.h"

#include "OrderDesk.h"
#include "store/settings.h"
#include "support/PseudoTerminal.h"
#include "ui/ListView.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"

#include <QLabel>

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
    void theClientIsOfferedAMessage();
    void theMessageTellsNumberAndBalance();
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
    onCard(0, [](QWidget &screen, ModalScript &script) {
        script.expect(u"frmSearchClient"_s, [](QWidget &) { type(u"jain\r"_s); });
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
    onCard(0, [](QWidget &screen, ModalScript &script) {
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
        addItem(script);
        tells(script, 's', u"New Job Created."_s);

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
    onCard(1, [](QWidget &screen, ModalScript &script) {
        script.expect(u"frmDDP"_s, [](QWidget &forecast) {
            const QStringList coat = driver::rows(control<ListView>(forecast, "lvSummary")).value(0);
            QCOMPARE(coat.join(u'|'), u"Coat|1|1|1|1 Days|12-Apr-2011"_s);
            press(Qt::Key_Escape);
        });
        QTest::mouseClick(&control<QWidget>(screen, "Command11"), Qt::LeftButton);
    });
}

void OrderDeskCallsTest::theClientIsOfferedAMessage()
{
    const QString failed = u"\r\nSMS Sending has been Failed."_s;
    const struct {
        QString wanted;
        QString mobile;
        QString port;
        Qt::Key answer;
        QString told;
    } cases[]{{u"No"_s, u"98290"_s, u"3"_s, Qt::Key_unknown, {}}, {u"Yes"_s, u"98290"_s, u"3"_s, Qt::Key_Escape, {}},
        {u"Yes"_s, {}, {}, Qt::Key_Return, u"Mobile Number Not Found!"_s + failed},
        {u"Yes"_s, u"98290"_s, {}, Qt::Key_Return, u"Modem Com Port Error!"_s + failed},
        // Anything but "No" makes the offer.
        {u"no"_s, u"98290"_s, u"3"_s, Qt::Key_Return, {}}};
    for (const auto &entry : cases) {
        OrderDesk desk;
        desk.book(u"1"_s);
        SaveSetting(setting::SendJobNumber, entry.wanted);
        SaveSetting(setting::ModemPort, entry.port);
        desk.connection.execute(u"update Accounts set Mobile='%1' where id=5"_s.arg(entry.mobile));
        const PseudoTerminal modem;
        onCard(1, [&entry](QWidget &, ModalScript &script) {
            script.expectMessage(u"Job Edited."_s);
            if (entry.answer != Qt::Key_unknown)
                script.expectMessage(offer, entry.answer);
            if (!entry.told.isEmpty())
                script.expectMessage(entry.told);
            accessKey('s');
            QVERIFY(script.isDone());
        });
        QCOMPARE(modem.received().contains("98290"), entry.answer == Qt::Key_Return && entry.told.isEmpty());
    }
}

void OrderDeskCallsTest::theMessageTellsNumberAndBalance()
{
    OrderDesk desk;
    SaveSetting(setting::SendJobNumber, u"Yes"_s);
    SaveSetting(setting::ModemPort, u"1"_s);
    SaveSetting(setting::BookedSms, u"%eid%: %amount%"_s);
    SaveSetting(setting::SmsTitle, u"Kovrel"_s);
    SaveSetting(setting::PrintAfterSave, u"1"_s);
    desk.connection.execute(u"update Accounts set Mobile='098290 12345' where id=5"_s);
    const PseudoTerminal modem;
    onCard(0, [](QWidget &screen, ModalScript &script) {
        control<kvComboBox>(screen, "cmbClient").setText(u"Asha Rao"_s);
        addItem(script, u"co"_s, 2);
        control<kvTextBox>(screen, "txtAmountPaid").setFocus();
        type(u"100.5\rcash"_s);
        // The card is printed before the offer.
        script.expectMessage(u"New Job Created."_s);
        script.expect(u"ReportPreview"_s, [](QWidget &) { press(Qt::Key_Escape); });
        script.expectMessage(offer);
        accessKey('s');
    });
    QCOMPARE(modem.received(), QByteArray("AT+CMGF=1\rAT+CMGS=\"9829012345\"\r1: 699.5\rKovrel\x1a"));
}

CORVANE_TEST(OrderDeskCallsTest)
#include "tst_orderDeskCalls.moc"
