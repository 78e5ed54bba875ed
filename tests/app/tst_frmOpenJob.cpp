#include "app/frmOpenJob.h"

#include "support/ModalScript.h"
#include "support/TestShop.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/ListView.h"

#include <QLabel>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::control;
using driver::press;
using driver::type;

/// A card opened or printed by the number on the client's paper, or by what the client is called.
class OpenJobTest : public QObject {
    Q_OBJECT

private slots:
    void aNumberWithoutACardIsToldAtTheField();
    void cardsAreFoundByTheirClients();
    void ofManyCardsTheNewestAreListed();
    void theCardChosenOpens();
    void theCardFoundIsPrinted();
};

namespace {

/// A shop with the cards 12 and 14 of Asha, and 13 of Ravi.
struct CardShop : TestShop {
    CardShop()
    {
        addAccount(u"Asha"_s);
        addAccount(u"Ravi Asher"_s);
        connection.execute(u"Update Accounts set Mobile='98290 12345' where Title='Ravi Asher'"_s);
        addJob({.number = 12, .client = 5, .date = {2011, 4, 1}});
        addJob({.number = 13, .client = 6, .date = {2011, 3, 30}});
        addJob({.number = 14, .client = 5, .date = {2011, 3, 1}});
        connection.execute(u"Update Jobs set AmountDue=750"_s);
        connection.execute(u"Update Jobs set JobFinished=1 where id=13 or id=14"_s);
        connection.execute(u"Update Jobs set Status=1 where id=14"_s);
    }
};

} // namespace

void OpenJobTest::aNumberWithoutACardIsToldAtTheField()
{
    const CardShop shop;
    ModalScript script;
    script.expect(u"frmOpenJob"_s, [&script](QWidget &screen) {
        auto &txtJOBID = control<QLineEdit>(screen, "txtJOBID");
        for (const QString &number : {QString(), u"15"_s, u"Zubin"_s, u"0"_s, u"32768"_s}) {
            script.expectMessage(u"Job Card not found!"_s);
            txtJOBID.setText(number);
            press(Qt::Key_Return);
            QVERIFY(script.isDone());
            QVERIFY(txtJOBID.hasFocus());
        }
        press(Qt::Key_Escape);
    });
    frmOpenJob().exec();
}

void OpenJobTest::cardsAreFoundByTheirClients()
{
    const QString twelfth = u"12|01-Apr-2011|Asha||750.00|Open"_s;
    const QString thirteenth = u"13|30-Mar-2011|Ravi Asher|98290 12345|750.00|Delivered"_s;
    const QString fourteenth = u"14|01-Mar-2011|Asha||750.00|Cancelled"_s;
    // By parts of a name and of a mobile number; what looks like a card's number finds none.
    const std::pair<QString, QStringList> typing[]{{u"aSH"_s, {twelfth, thirteenth, fourteenth}},
        {u"asher"_s, {thirteenth}}, {u"982901"_s, {thirteenth}}, {u"90-12 345"_s, {thirteenth}}, {u"ashx"_s, {}},
        {u"12345"_s, {}}};
    const CardShop shop;
    for (const auto &[typed, found] : typing) {
        frmOpenJob screen;
        QVERIFY(driver::show(screen));
        type(typed);
        QStringList lines;
        for (const QStringList &row : driver::rows(control<ListView>(screen, "lvFound")))
            lines += row.join(u'|');
        QCOMPARE(lines, found);
        QVERIFY(control<QLineEdit>(screen, "txtJOBID").hasFocus());
        QVERIFY(!control<QLabel>(screen, "lblMore").isVisible());
    }
}

void OpenJobTest::ofManyCardsTheNewestAreListed()
{
    CardShop shop;
    for (int number = 1001; number <= 1200; ++number)
        shop.addJob({.number = number, .client = 6, .date = {2012, 1, 1}});
    frmOpenJob screen;
    QVERIFY(driver::show(screen));
    const auto &list = control<ListView>(screen, "lvFound");
    type(u"asher"_s);
    QCOMPARE(list.list().rowCount(), 200);
    QVERIFY(control<QLabel>(screen, "lblMore").isVisible());
    QCOMPARE(list.list().tag(199).toInt(), 1001);
}

void OpenJobTest::theCardChosenOpens()
{
    const CardShop shop;
    ModalScript script;
    const auto opens = [&script](
                           const QString &typed, std::initializer_list<QKeyCombination> moves, const QString &card) {
        script.expect(u"frmOpenJob"_s, [typed, moves](QWidget &) {
            type(typed);
            press(moves);
            press(Qt::Key_Return);
        });
        script.expect(u"frmEditJOB"_s, [card](QWidget &screen) {
            QCOMPARE(control<QLineEdit>(screen, "txtJOBID").text(), card);
            press(Qt::Key_Escape);
        });
        frmOpenJob().exec();
    };
    opens(u"12"_s, {}, u"12"_s);
    opens(u"ash"_s, {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Up}, u"13"_s);
}

void OpenJobTest::theCardFoundIsPrinted()
{
    CardShop shop;
    ModalScript script;
    script.expect(u"frmOpenJob"_s, [&](QWidget &screen) {
        script.expect(u"ReportPreview"_s, [](QWidget &) { press(Qt::Key_Escape); });
        type(u"14"_s);
        press(Qt::Key_P, Qt::ControlModifier);
        QTRY_VERIFY(script.isDone());
        QCOMPARE(shop.lines(u"Select JobID from tmpHead"_s), QStringList{u"14"_s});
        // The next name can be typed at once.
        QVERIFY(driver::waitActive(screen));
        QTRY_VERIFY(control<QLineEdit>(screen, "txtJOBID").hasFocus());
        // One that another program has taken away meanwhile.
        type(u"asher"_s);
        shop.connection.execute(u"Delete * from Jobs where id=13"_s);
        script.expectMessage(u"Job Card not found!"_s);
        press({Qt::CTRL | Qt::Key_P, Qt::Key_Escape});
    });
    frmOpenJob().exec();
}

CORVANE_TEST(OpenJobTest)
#include "tst_frmOpenJob.moc"
