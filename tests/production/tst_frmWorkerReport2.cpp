#include "production/frmWorkerReport2.h"

#include "store/codes.h"
#include "support/ModalScript.h"
#include "support/TestShop.h"
#include "support/expectFault.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/ListView.h"

#include <QTest>

using namespace Qt::StringLiterals;
using driver::control;
using itemRows::Dated;

/// The overview of work in hand, and the choice of a worker in it.
class WorkOverviewTest : public QObject {
    Q_OBJECT

private slots:
    void openPiecesOfThePeriodAreCounted();
    void aWorkerIsChosenOrNone();
    void tooManyPiecesFail();
};

namespace {

constexpr int mohan = 5;
constexpr int anil = 6;

const QDate first{2011, 4, 1};
const QDate last{2011, 4, 30};

struct Workers : TestShop {
    Workers()
    {
        addAccount(u"Mohan"_s, {}, 1);
        addAccount(u"anil"_s, {}, 1);
        addAccount(u"Client"_s);
        addAccount(u"Zoya"_s, {}, 1);
    }
};

QString choose(const ModalScript::Action &work, Dated dated = Dated::Booked)
{
    QString chosen;
    ModalScript script;
    script.expect(u"frmWorkerReport2"_s, work);
    frmWorkerReport2().ShowWorkerOverView(dated, first, last, chosen);
    return chosen;
}

} // namespace

void WorkOverviewTest::openPiecesOfThePeriodAreCounted()
{
    Workers shop;
    shop.addJobRow({.worker = mohan, .quantity = 3});
    shop.addJobRow({.worker = mohan, .date = last, .quantity = 4});
    shop.addJobRow({.worker = mohan, .status = rowStatus::Completed, .quantity = 50});
    shop.addJobRow({.worker = anil, .date = {2011, 5, 1}, .quantity = 7});
    shop.addJobRow({.quantity = 9});
    // Promised later than booked.
    shop.connection.execute(u"Update Jobs_Detail set JobDelDate=#02-May-2011# where id=1"_s);
    const auto shows = [](const QStringList &expected) {
        return [expected](QWidget &screen) {
            QStringList lines;
            for (const QStringList &row : driver::rows(control<ListView>(screen, "lvSummary")))
                lines += row.join(u'|');
            QCOMPARE(lines, expected);
            driver::press(Qt::Key_Escape);
        };
    };
    QCOMPARE(choose(shows({u"1|anil|0"_s, u"2|Mohan|7"_s, u"3|Zoya|0"_s})), u"-1000"_s);
    choose(shows({u"1|anil|0"_s, u"2|Mohan|4"_s, u"3|Zoya|0"_s}), Dated::Promised);
}

void WorkOverviewTest::aWorkerIsChosenOrNone()
{
    Workers shop;
    const auto second = [](QWidget &) {
        driver::press(Qt::Key_Down);
        driver::press(Qt::Key_Return);
    };
    QCOMPARE(choose(second), u"Mohan"_s);
    shop.connection.execute(u"Delete * from Accounts where type=1"_s);
    const auto none = [](QWidget &screen) {
        driver::press(Qt::Key_Return);
        QVERIFY(screen.isVisible());
        driver::press(Qt::Key_Escape);
    };
    QCOMPARE(choose(none), u"-1000"_s);
}

void WorkOverviewTest::tooManyPiecesFail()
{
    Workers shop;
    shop.addJobRow({.worker = mohan, .quantity = 32767});
    choose([](QWidget &) { driver::press(Qt::Key_Escape); });
    shop.addJobRow({.worker = mohan, .quantity = 1});
    QString chosen;
    EXPECT_FAULT(Fault::Overflow, frmWorkerReport2().ShowWorkerOverView(Dated::Booked, first, last, chosen));
}

CORVANE_TEST(WorkOverviewTest)
#include "tst_frmWorkerReport2.moc"
