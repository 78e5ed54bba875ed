#include "production/assignment.h"

#include "base/session.h"
#include "production/itemRowMarks.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "support/TestShop.h"
#include "support/testRegistry.h"

#include <QTest>

using namespace Qt::StringLiterals;
using assignment::Saved;

/// What becomes of item rows in the workshop: assignments and marks, on the file.
class AssignmentTest : public QObject {
    Q_OBJECT

private slots:
    void whatIsGoneIsToldAndNothingIsWritten();
    void theLastDeliveryClosesTheJob();
    void marksWriteTheirColumnsAlone();
    void aJobIsHandedOverWhole();
    void aMarkIsTakenBack();
    void theLastJobIsTold();
};

namespace {

constexpr int mohan = 6;
constexpr int sita = 7;

const QDate monday{2011, 4, 11};
const QDate tuesday{2011, 4, 12};

struct Workshop : TestShop {
    Workshop()
    {
        session::CurrentDate = monday;
        addAccount(u"Asha Rao"_s);
        addAccount(u"Mohan"_s, {}, 1);
        addAccount(u"Sita"_s, {}, 1);
        addItem(u"Coat"_s, u"Chest"_s, 900, 300);
        addJob({.number = 1});
    }

    [[nodiscard]] QString row(int number)
    {
        return lines(u"Select DoneByWorker, CompletedDate, DelToCustDate, AltDate, Loc from Jobs_Detail where id="_s
            + QString::number(number))
            .value(0);
    }
    [[nodiscard]] QString job(int number)
    {
        return lines(
            u"Select DeliveryDate, ClientDeliveryDate, JOBFINISHED from Jobs where id="_s + QString::number(number))
            .value(0);
    }
    [[nodiscard]] QStringList everything()
    {
        return lines(u"Select * from Jobs_Detail order by id"_s) + lines(u"Select * from Jobs order by id"_s);
    }
};

assignment::Assignment given(const QString &worker, std::optional<int> status)
{
    return {.worker = worker,
        .status = status,
        .cuttingDone = false,
        .cuttingDate = tuesday,
        .wages = 125.5,
        .paid = true,
        .location = u"Shelf 3"_s};
}

} // namespace

void AssignmentTest::whatIsGoneIsToldAndNothingIsWritten()
{
    Workshop shop;
    shop.addJobRow({});
    const QStringList before = shop.everything();
    QCOMPARE(assignment::save(2, given(u"Mohan"_s, 2)), Saved::RowGone);
    QCOMPARE(assignment::save(1, given(u"Nobody"_s, 2)), Saved::WorkerGone);
    QVERIFY(!itemRowMarks::cuttingDone(2));
    QVERIFY(!itemRowMarks::status(2, rowStatus::Completed, monday, u"x"_s));
    shop.addJobRow({.job = 9});
    QVERIFY(!itemRowMarks::jobDelivered(9, monday));
    QCOMPARE(shop.row(2), u"0||||"_s);
    shop.connection.execute(u"Delete * from Jobs_Detail where id=2"_s);
    QCOMPARE(shop.everything(), before);
}

void AssignmentTest::theLastDeliveryClosesTheJob()
{
    const QString open = u"01-Apr-2011|01-Apr-2011|0"_s;
    const QString closed = u"12-Apr-2011|01-Apr-2011|1"_s;
    // Bought goods beside the made ones, and their status: they count as delivered and not as made.
    const std::pair<std::optional<int>, QString> cases[]{{{}, closed}, {0, closed}, {2, open}};
    for (const auto &[stock, outcome] : cases) {
        Workshop shop;
        shop.addJobRow({});
        shop.addJobRow({});
        if (stock)
            shop.addJobRow({.status = *stock, .inventory = true});
        shop.addJob({.number = 2});
        shop.addJobRow({.job = 2});
        if (stock)
            QVERIFY(itemRowMarks::status(1, rowStatus::Delivered, monday));
        else
            QCOMPARE(assignment::save(1, given(u"Mohan"_s, 2)), Saved::Yes);
        QCOMPARE(shop.job(1), open);
        session::CurrentDate = tuesday;
        QCOMPARE(assignment::save(2, given(u"Mohan"_s, 2)), Saved::Yes);
        QCOMPARE(shop.job(1), outcome);
        QCOMPARE(shop.job(2), open);

        // A job of bought goods alone: none is to be made and none delivered.
        shop.addJob({.number = 3});
        shop.addJobRow({.job = 3, .inventory = true});
        QCOMPARE(assignment::save(shop.count(u"Jobs_Detail"_s), given(assignment::noWorker(), 0)), Saved::Yes);
        QCOMPARE(shop.job(3), closed);
    }
}

void AssignmentTest::marksWriteTheirColumnsAlone()
{
    Workshop shop;
    shop.addJobRow({.worker = sita, .status = rowStatus::Canceled});
    shop.addJobRow({});
    session::CurrentDate = tuesday;
    QVERIFY(itemRowMarks::cuttingDone(1));
    QCOMPARE(shop.lines(u"Select CuttingStatus, CuttingDate from Jobs_Detail order by id"_s),
        (QStringList{u"1|12-Apr-2011"_s, u"|01-Apr-2011"_s}));
    QVERIFY(itemRowMarks::status(1, rowStatus::Completed, monday, u"Rack 'B'"_s));
    QCOMPARE(shop.row(1), u"1|11-Apr-2011|||Rack 'B'"_s);
    QVERIFY(itemRowMarks::status(1, rowStatus::Alteration, tuesday));
    QCOMPARE(shop.row(1), u"3|11-Apr-2011||12-Apr-2011|Rack 'B'"_s);
    QVERIFY(itemRowMarks::status(1, rowStatus::Alteration, monday, u"  "_s));
    QCOMPARE(shop.row(1), u"3|11-Apr-2011||11-Apr-2011|Rack 'B'"_s);
    QCOMPARE(shop.row(2), u"0||||"_s);
    // One row's mark leaves the job alone, though it is its last.
    QVERIFY(itemRowMarks::status(2, rowStatus::Delivered, tuesday));
    QCOMPARE(shop.job(1), u"01-Apr-2011|01-Apr-2011|0"_s);
}

void AssignmentTest::aJobIsHandedOverWhole()
{
    Workshop shop;
    shop.addJobRow({});
    shop.addJobRow({.status = rowStatus::Canceled});
    shop.addJobRow({.inventory = true});
    shop.addJobRow({.job = 2});
    QVERIFY(itemRowMarks::jobDelivered(1, tuesday));
    QCOMPARE(shop.job(1), u"01-Apr-2011|12-Apr-2011|1"_s);
    for (const int row : {1, 2, 3})
        QCOMPARE(shop.row(row), u"2||12-Apr-2011||"_s);
    QCOMPARE(shop.row(4), u"0||||"_s);
}

void AssignmentTest::aMarkIsTakenBack()
{
    using Mark = std::optional<MarkedRows> (*)();
    using TakenBack = MarkedRows::TakenBack;
    const Mark cut = [] { return itemRowMarks::cuttingDone(1); };
    const Mark completed = [] { return itemRowMarks::status(1, rowStatus::Completed, tuesday, u"Rack 7"_s); };
    const Mark altered = [] { return itemRowMarks::status(1, rowStatus::Alteration, tuesday); };
    const Mark delivered = [] { return itemRowMarks::status(1, rowStatus::Delivered, tuesday); };
    const Mark handedOver = [] { return itemRowMarks::jobDelivered(1, tuesday); };
    const struct {
        Mark mark;
        QString since;
        TakenBack outcome;
    } cases[]{
        {cut, {}, TakenBack::Yes},
        {completed, {}, TakenBack::Yes},
        {altered, {}, TakenBack::Yes},
        {delivered, {}, TakenBack::Yes},
        {handedOver, {}, TakenBack::Yes},
        {completed, u"Update Jobs_Detail set Loc='x' where id=2"_s, TakenBack::Yes},
        {completed, u"Update Jobs_Detail set MarkAsPaid=1 where id=1"_s, TakenBack::Changed},
        {cut, u"Update Jobs_Detail set Remarks='x' where id=1"_s, TakenBack::Changed},
        {delivered, u"Update Jobs set JobFinished=1 where id=1"_s, TakenBack::Changed},
        {handedOver, u"Update Jobs_Detail set Score=4 where id=2"_s, TakenBack::Changed},
        {handedOver, u"Update Jobs set JobFinished=0 where id=1"_s, TakenBack::Changed},
        {completed, u"Delete * from Jobs_Detail where id=1"_s, TakenBack::Gone},
        {handedOver, u"Delete * from Jobs_Detail where id=2"_s, TakenBack::Gone},
    };
    for (const auto &[mark, since, outcome] : cases) {
        Workshop shop;
        session::CurrentDate = tuesday;
        shop.addJobRow({.worker = sita});
        shop.addJobRow({.status = rowStatus::Canceled});
        shop.connection.execute(u"Update Jobs_Detail set Loc=Null, AltDate=#05-Apr-2011# where id=1"_s);
        const QStringList before = shop.everything();
        const auto marked = mark();
        QVERIFY(marked);
        QVERIFY(shop.everything() != before);
        if (!since.isEmpty())
            shop.connection.execute(since);
        const QStringList changed = shop.everything();
        QCOMPARE(marked->takeBack(), outcome);
        if (outcome != TakenBack::Yes)
            QCOMPARE(shop.everything(), changed);
        else if (since.isEmpty())
            QCOMPARE(shop.everything(), before);
        if (outcome == TakenBack::Yes)
            QCOMPARE(marked->takeBack(), TakenBack::Changed);
    }
}

void AssignmentTest::theLastJobIsTold()
{
    Workshop shop;
    shop.addItem(u"Shirt"_s, u"Chest"_s, 400, 100);
    QCOMPARE(assignment::lastJob(monday, 1, 5), u"No last record found"_s);
    shop.addJobRow({.job = 1, .worker = mohan, .date = {2011, 3, 1}});
    shop.addJobRow({.job = 2, .date = {2011, 4, 10}});
    shop.addJobRow({.job = 3, .worker = sita, .date = monday});
    shop.addJobRow({.job = 4, .item = 2, .worker = sita, .date = {2011, 4, 1}});
    shop.addJobRow({.job = 5, .client = 1, .worker = sita, .date = {2011, 4, 1}});
    QCOMPARE(
        assignment::lastJob(monday, 1, 5), u"Last Job ID # 2\r\nDate : 10-Apr-2011\r\nNo worker information found!"_s);
    QCOMPARE(
        assignment::lastJob({2011, 4, 10}, 1, 5), u"Last Job ID # 1\r\nDate : 01-Mar-2011\r\nJob done by : Mohan"_s);
    QCOMPARE(assignment::lastJob({2011, 3, 1}, 1, 5), u"No last record found"_s);
    shop.connection.execute(u"Delete * from Accounts where Title='Mohan'"_s);
    QVERIFY(assignment::lastJob({2011, 4, 10}, 1, 5).endsWith(u"Job done by : "_s));
}

CORVANE_TEST(AssignmentTest)
#include "tst_assignment.moc"
