#include "production/frmDDP.h"

#include "base/session.h"
#include "support/TestShop.h"
#include "support/expectFault.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/ListView.h"

#include <QTest>

using namespace Qt::StringLiterals;
using driver::control;

/// The forecast of delivery dates.
class PendingOrdersTest : public QObject {
    Q_OBJECT

private slots:
    void waitingIsRoundedToTheEvenDay();
    void onlyOpenRowsCount();
    void aWaitBeyondAllDaysFails();
};

namespace {

/// A shop with the items Coat (1) and Shirt (2), on the tenth of April 2011.
struct Workshop : TestShop {
    Workshop()
    {
        session::CurrentDate = {2011, 4, 10};
        addItem(u"Shirt"_s, u"Chest"_s, 400, 100);
        addItem(u"Coat"_s, u"Chest"_s, 900, 300);
    }

    void plan(int item, int capacity, int opening)
    {
        connection.execute(
            u"update Items set ProdcutionCap=%1, OpPendingOrders=%2 where id=%3"_s.arg(capacity).arg(opening).arg(
                item));
    }

    [[nodiscard]] static QStringList shown()
    {
        frmDDP screen;
        [&screen] { QVERIFY(driver::show(screen)); }();
        QStringList lines;
        for (const QStringList &row : driver::rows(control<ListView>(screen, "lvSummary")))
            lines += row.join(u'|');
        return lines;
    }
};

} // namespace

void PendingOrdersTest::waitingIsRoundedToTheEvenDay()
{
    Workshop shop;
    // Items without a capacity are left out.
    shop.plan(1, 0, 9);
    QCOMPARE(Workshop::shown(), QStringList());
    const struct {
        int capacity;
        int pending;
        QString wait;
    } cases[]{{2, 0, u"0 Days|11-Apr-2011"_s}, {10, 1, u"0 Days|11-Apr-2011"_s}, {2, 1, u"0 Days|11-Apr-2011"_s},
        {2, 5, u"2 Days|13-Apr-2011"_s}, {2, 7, u"4 Days|15-Apr-2011"_s}, {1, 300, u"300 Days|05-Feb-2012"_s}};
    for (const auto &entry : cases) {
        shop.plan(2, entry.capacity, entry.pending);
        QCOMPARE(Workshop::shown(),
            QStringList{u"Coat|%1|%2|0|%3"_s.arg(entry.capacity).arg(entry.pending).arg(entry.wait)});
    }
    // What waits is rounded as a whole.
    shop.connection.execute(u"update Items set ProdcutionCap='1', OpPendingOrders='2.5' where id=2"_s);
    shop.addJobRow({.item = 2});
    QCOMPARE(Workshop::shown(), QStringList{u"Coat|1|4|0|4 Days|15-Apr-2011"_s});
}

void PendingOrdersTest::onlyOpenRowsCount()
{
    Workshop shop;
    shop.plan(1, 1, 4);
    shop.plan(2, 1, 0);
    for (const int status : {1, 2, 3, 4})
        shop.addJobRow({.item = 1, .status = status, .date = {2011, 4, 10}});
    // Rows count, not pieces; bought goods and days long gone too.
    shop.addJobRow({.item = 1, .date = {2011, 4, 10}, .quantity = 3});
    shop.addJobRow({.item = 1, .date = {2009, 1, 1}, .inventory = true});
    shop.addJobRow({.item = 1, .date = {2011, 4, 11}});
    QCOMPARE(Workshop::shown(), QStringList({u"Coat|1|0|0|0 Days|11-Apr-2011"_s, u"Shirt|1|7|1|7 Days|18-Apr-2011"_s}));
}

void PendingOrdersTest::aWaitBeyondAllDaysFails()
{
    Workshop shop;
    shop.plan(1, 1, 32767);
    QCOMPARE(Workshop::shown().first().section(u'|', 4, 4), u"32767 Days"_s);
    shop.plan(1, 1, 32768);
    EXPECT_FAULT(Fault::Overflow, frmDDP());
    // Before it is shared out over the days.
    shop.plan(1, 1'000'000, 2'147'483'647);
    QCOMPARE(Workshop::shown().first().section(u'|', 4, 4), u"2147 Days"_s);
    shop.addJobRow({.item = 1});
    EXPECT_FAULT(Fault::Overflow, frmDDP());
}

CORVANE_TEST(PendingOrdersTest)
#include "tst_frmDDP.moc"
