#include "app/frmOpenJob.h"

#include "jobcards/JobCardStore.h"
#include "jobcards/clsJobCardData.h"
#include "store/DataEnvironment.h"
#include "support/ModalScript.h"
#include "support/TestShop.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"

#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::control;
using driver::press;
using driver::type;

/// A card opened by the number on the client's paper.
class OpenJobTest : public QObject {
    Q_OBJECT

private slots:
    void aNumberOpensItsCard();
    void aNumberWithoutACardIsToldAtTheField_data();
    void aNumberWithoutACardIsToldAtTheField();
};

namespace {

/// A shop with the card 12.
struct CardShop : TestShop {
    CardShop()
    {
        addAccount(u"Asha"_s);
        JobCard card;
        card.JobIDText = u"12"_s;
        card.JobDate = card.DeliveryDate = card.TrialDate = {2011, 4, 1};
        card.ClientTitle = u"Asha"_s;
        card.TotalText = card.ReceivedText = u"0"_s;
        clsJobCardData noRows;
        JobCardStore().SaveNew(card, noRows);
    }
};

} // namespace

void OpenJobTest::aNumberOpensItsCard()
{
    const CardShop shop;
    ModalScript script;
    script.expect(u"frmOpenJob"_s, [](QWidget &) {
        type(u"12"_s);
        press(Qt::Key_Return);
    });
    script.expect(u"frmEditJOB"_s, [](QWidget &screen) {
        QCOMPARE(control<QLineEdit>(screen, "txtJOBID").text(), u"12"_s);
        press(Qt::Key_Escape);
    });
    frmOpenJob().exec();
}

void OpenJobTest::aNumberWithoutACardIsToldAtTheField_data()
{
    QTest::addColumn<QString>("number");
    QTest::newRow("none") << QString();
    QTest::newRow("no such card") << u"13"_s;
    QTest::newRow("nought") << u"0"_s;
    QTest::newRow("beyond all cards") << u"32768"_s;
    QTest::newRow("far beyond") << QString(400, u'9');
}

void OpenJobTest::aNumberWithoutACardIsToldAtTheField()
{
    QFETCH(QString, number);
    const CardShop shop;
    ModalScript script;
    script.expect(u"frmOpenJob"_s, [number](QWidget &screen) {
        control<QLineEdit>(screen, "txtJOBID").setText(number);
        press(Qt::Key_Return);
        QVERIFY(control<QLineEdit>(screen, "txtJOBID").hasFocus());
        press(Qt::Key_Escape);
    });
    script.expectMessage(u"Job Card not found!"_s);
    frmOpenJob().exec();
}

CORVANE_TEST(OpenJobTest)
#include "tst_frmOpenJob.moc"
