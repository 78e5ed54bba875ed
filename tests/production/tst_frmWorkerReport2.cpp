#include "production/frmWorkerReport2.h"

#include "store/codes.h"
#include "support/ModalScript.h"
#include "support/TestShop.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/ListView.h"

#include <QTest>

using namespace Qt::StringLiterals;
using itemRows::Dated;

/// The overview of work in hand.
class WorkOverviewTest : public QObject {
    Q_OBJECT

private slots:
    void openPiecesOfThePeriodAreCounted();
};

void WorkOverviewTest::openPiecesOfThePeriodAreCounted()
{
    constexpr int mohan = 5;
    constexpr int anil = 6;
    const QDate first{2011, 4, 1};
    const QDate last{2011, 4, 30};
    TestShop shop;
    for (const QString &worker : {u"Mohan"_s, u"anil"_s, u"Zoya"_s})
        shop.addAccount(worker, {}, accountType::Worker);
    shop.addAccount(u"Client"_s);
    shop.addJobRow({.worker = mohan, .quantity = 3});
    shop.addJobRow({.worker = mohan, .date = last, .quantity = 4});
    shop.addJobRow({.worker = mohan, .status = rowStatus::Completed, .quantity = 50});
    shop.addJobRow({.worker = anil, .date = {2011, 5, 1}, .quantity = 7});
    shop.addJobRow({.quantity = 9});
    // Promised later than booked.
    shop.connection.execute(u"Update Jobs_Detail set JobDelDate=#02-May-2011# where id=1"_s);
    for (const auto &[dated, listed] : {std::pair(Dated::Booked, u"1|anil|0 2|Mohan|7 3|Zoya|0"_s),
             std::pair(Dated::Promised, u"1|anil|0 2|Mohan|4 3|Zoya|0"_s)}) {
        ModalScript script;
        script.expect(u"frmWorkerReport2"_s, [listed = listed](QWidget &screen) {
            QStringList lines;
            for (const QStringList &row : driver::rows(driver::control<ListView>(screen, "lvSummary")))
                lines += row.join(u'|');
            QCOMPARE(lines.join(u' '), listed);
            driver::press(Qt::Key_Escape);
        });
        QString chosen;
        frmWorkerReport2().ShowWorkerOverView(dated, first, last, chosen);
        QCOMPARE(chosen, u"-1000"_s);
    }
}

CORVANE_TEST(WorkOverviewTest)
#include "tst_frmWorkerReport2.moc"
