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
    void theDayOfAStatusIsStampedAtEachSave_data();
    void theDayOfAStatusIsStampedAtEachSave();
    void workersComeAndGo();
    void aCancelledRowStaysCancelled();
    void whatIsGoneIsToldAndNothingIsWritten();
    void theLastDeliveryClosesTheJob_data();
    void theLastDeliveryClosesTheJob();
    void marksWriteTheirColumnsAlone();
    void aJobIsHandedOverWhole();
    void aMarkIsTakenBack_data();
    void aMarkIsTakenBack();
    void marksAreTakenBackOneByOne();
    void theLastJobIsTold();
};

namespace {

constexpr int client = 5;
constexpr int mohan = 6;
constexpr int sita = 7;

const QDate booked{2011, 4, 1};
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

void AssignmentTest::theDayOfAStatusIsStampedAtEachSave_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::newRow("uncompleted") << 0 << u"0||||Shelf 3"_s << u"0||||Shelf 3"_s;
    QTest::newRow("completed") << 1 << u"1|11-Apr-2011|||Shelf 3"_s << u"1|12-Apr-2011|||Shelf 3"_s;
    QTest::newRow("delivered") << 2 << u"2||11-Apr-2011||Shelf 3"_s << u"2||12-Apr-2011||Shelf 3"_s;
    QTest::newRow("alteration") << 3 << u"3|||11-Apr-2011|Shelf 3"_s << u"3|||12-Apr-2011|Shelf 3"_s;
}

void AssignmentTest::theDayOfAStatusIsStampedAtEachSave()
{
    QFETCH(const int, status);
    Workshop shop;
    shop.addJobRow({.client = client});
    shop.addJobRow({.client = client});
    QCOMPARE(assignment::save(1, given(u"Mohan"_s, status)), Saved::Yes);
    QTEST(shop.row(1), "first");
    // The cutting's day comes from its field, also with the box off.
    QCOMPARE(shop.lines(u"Select WorkerID, WorkerName, CuttingStatus, CuttingDate, WorkerWagesDue, MarkAsPaid "
                        u"from Jobs_Detail where id=1"_s),
        QStringList{u"6|Mohan|0|12-Apr-2011|125.5|1"_s});
    session::CurrentDate = tuesday;
    QCOMPARE(assignment::save(1, given(u"Mohan"_s, status)), Saved::Yes);
    QTEST(shop.row(1), "second");
    QCOMPARE(shop.row(2), u"0||||"_s);
}

void AssignmentTest::workersComeAndGo()
{
    Workshop shop;
    shop.addJobRow({.client = client});
    const auto worker = [&] { return shop.lines(u"Select WorkerID, WorkerName from Jobs_Detail"_s); };
    QCOMPARE(assignment::save(1, given(u"Sita"_s, 0)), Saved::Yes);
    QCOMPARE(worker(), QStringList{u"7|Sita"_s});
    QCOMPARE(assignment::save(1, given(assignment::noWorker(), 0)), Saved::Yes);
    QCOMPARE(worker(), QStringList{u"0|Sita"_s});
}

void AssignmentTest::aCancelledRowStaysCancelled()
{
    Workshop shop;
    shop.addJobRow({.client = client, .status = rowStatus::Canceled});
    QCOMPARE(assignment::save(1, given(u"Mohan"_s, {})), Saved::Yes);
    QCOMPARE(shop.row(1), u"4||||Shelf 3"_s);
    QCOMPARE(assignment::save(1, given(u"Mohan"_s, 1)), Saved::Yes);
    QCOMPARE(shop.row(1), u"1|11-Apr-2011|||Shelf 3"_s);
}

void AssignmentTest::whatIsGoneIsToldAndNothingIsWritten()
{
    Workshop shop;
    shop.addJobRow({.client = client});
    const QStringList before = shop.everything();
    QCOMPARE(assignment::save(2, given(u"Mohan"_s, 2)), Saved::RowGone);
    QCOMPARE(assignment::save(1, given(u"Nobody"_s, 2)), Saved::WorkerGone);
    QVERIFY(!itemRowMarks::cuttingDone(2));
    QVERIFY(!itemRowMarks::status(2, rowStatus::Completed, monday, u"x"_s));
    shop.addJobRow({.job = 9, .client = client});
    QVERIFY(!itemRowMarks::jobDelivered(9, monday));
    QCOMPARE(shop.row(2), u"0||||"_s);
    shop.connection.execute(u"Delete * from Jobs_Detail where id=2"_s);
    QCOMPARE(shop.everything(), before);
}

void AssignmentTest::theLastDeliveryClosesTheJob_data()
{
    QTest::addColumn<bool>("stockBeside");
    QTest::addColumn<int>("stockStatus");
    QTest::addColumn<bool>("closes");
    QTest::newRow("made rows alone") << false << 0 << true;
    QTest::newRow("bought goods that wait") << true << 0 << true;
    // They count as delivered and not as made.
    QTest::newRow("bought goods that are delivered") << true << 2 << false;
}

void AssignmentTest::theLastDeliveryClosesTheJob()
{
    QFETCH(const bool, stockBeside);
    QFETCH(const int, stockStatus);
    Workshop shop;
    shop.addJobRow({.client = client});
    shop.addJobRow({.client = client});
    if (stockBeside)
        shop.addJobRow({.client = client, .status = stockStatus, .inventory = true});
    shop.addJob({.number = 2});
    shop.addJobRow({.job = 2, .client = client});
    const QString open = u"01-Apr-2011|01-Apr-2011|0"_s;
    if (!stockBeside) {
        QCOMPARE(assignment::save(1, given(u"Mohan"_s, 2)), Saved::Yes);
        QCOMPARE(shop.job(1), open);
    } else {
        QVERIFY(itemRowMarks::status(1, rowStatus::Delivered, monday));
    }
    session::CurrentDate = tuesday;
    QCOMPARE(assignment::save(2, given(u"Mohan"_s, 2)), Saved::Yes);
    QFETCH(const bool, closes);
    QCOMPARE(shop.job(1), closes ? u"12-Apr-2011|01-Apr-2011|1"_s : open);
    QCOMPARE(shop.job(2), open);

    // A job of bought goods alone: none is to be made and none delivered.
    shop.addJob({.number = 3});
    shop.addJobRow({.job = 3, .client = client, .inventory = true});
    const int last = shop.count(u"Jobs_Detail"_s);
    QCOMPARE(assignment::save(last, given(assignment::noWorker(), 0)), Saved::Yes);
    QCOMPARE(shop.job(3), u"12-Apr-2011|01-Apr-2011|1"_s);
}

void AssignmentTest::marksWriteTheirColumnsAlone()
{
    Workshop shop;
    shop.addJobRow({.client = client, .worker = sita, .status = rowStatus::Canceled});
    shop.addJobRow({.client = client});
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
    QVERIFY(itemRowMarks::status(1, rowStatus::Delivered, tuesday, QString(10'000, u'x')));
    QVERIFY(shop.row(1).endsWith(QString(10'000, u'x')));
    QCOMPARE(shop.row(2), u"0||||"_s);
    // One row's mark leaves the job alone, though it is its last.
    QVERIFY(itemRowMarks::status(2, rowStatus::Delivered, tuesday));
    QCOMPARE(shop.job(1), u"01-Apr-2011|01-Apr-2011|0"_s);
}

void AssignmentTest::aJobIsHandedOverWhole()
{
    Workshop shop;
    shop.addJobRow({.client = client});
    shop.addJobRow({.client = client, .status = rowStatus::Canceled});
    shop.addJobRow({.client = client, .inventory = true});
    shop.addJobRow({.job = 2, .client = client});
    QVERIFY(itemRowMarks::jobDelivered(1, tuesday));
    QCOMPARE(shop.job(1), u"01-Apr-2011|12-Apr-2011|1"_s);
    for (const int row : {1, 2, 3})
        QCOMPARE(shop.row(row), u"2||12-Apr-2011||"_s);
    QCOMPARE(shop.row(4), u"0||||"_s);
}

void AssignmentTest::aMarkIsTakenBack_data()
{
    using Mark = std::function<std::optional<MarkedRows>()>;
    using Refusal = MarkedRows::TakenBack;
    QTest::addColumn<Mark>("mark");
    QTest::addColumn<QString>("since");
    QTest::addColumn<Refusal>("outcome");
    const auto row = [](const char *name, const Mark &mark, const QString &since, Refusal outcome) {
        QTest::newRow(name) << mark << since << outcome;
    };
    const Mark cut = [] { return itemRowMarks::cuttingDone(1); };
    const Mark completed = [] { return itemRowMarks::status(1, rowStatus::Completed, tuesday, u"Rack 7"_s); };
    const Mark altered = [] { return itemRowMarks::status(1, rowStatus::Alteration, tuesday); };
    const Mark delivered = [] { return itemRowMarks::status(1, rowStatus::Delivered, tuesday); };
    const Mark handedOver = [] { return itemRowMarks::jobDelivered(1, tuesday); };
    row("cut", cut, {}, Refusal::Yes);
    row("completed", completed, {}, Refusal::Yes);
    row("alteration", altered, {}, Refusal::Yes);
    row("delivered", delivered, {}, Refusal::Yes);
    row("job handed over", handedOver, {}, Refusal::Yes);
    row("another garment changed", completed, u"Update Jobs_Detail set Loc='x' where id=2"_s, Refusal::Yes);
    row("completed, and paid", completed, u"Update Jobs_Detail set MarkAsPaid=1 where id=1"_s, Refusal::Changed);
    row("cut, and told of", cut, u"Update Jobs_Detail set Remarks='x' where id=1"_s, Refusal::Changed);
    row("delivered, and the card closed", delivered, u"Update Jobs set JobFinished=1 where id=1"_s, Refusal::Changed);
    row("handed over, and one changed", handedOver, u"Update Jobs_Detail set Score=4 where id=2"_s, Refusal::Changed);
    row("handed over, and opened again", handedOver, u"Update Jobs set JobFinished=0 where id=1"_s, Refusal::Changed);
    row("completed, and gone", completed, u"Delete * from Jobs_Detail where id=1"_s, Refusal::Gone);
    row("handed over, and one gone", handedOver, u"Delete * from Jobs_Detail where id=2"_s, Refusal::Gone);
}

void AssignmentTest::aMarkIsTakenBack()
{
    QFETCH(const std::function<std::optional<MarkedRows>()>, mark);
    QFETCH(const QString, since);
    QFETCH(const MarkedRows::TakenBack, outcome);
    Workshop shop;
    session::CurrentDate = tuesday;
    shop.addJobRow({.client = client, .worker = sita});
    shop.addJobRow({.client = client, .status = rowStatus::Canceled});
    shop.connection.execute(u"Update Jobs_Detail set Loc=Null, AltDate=#05-Apr-2011# where id=1"_s);
    const QStringList before = shop.everything();
    const auto marked = mark();
    QVERIFY(marked);
    QVERIFY(shop.everything() != before);
    if (!since.isEmpty())
        shop.connection.execute(since);
    const QStringList changed = shop.everything();
    QCOMPARE(marked->takeBack(), outcome);
    if (outcome == MarkedRows::TakenBack::Yes && since.isEmpty())
        QCOMPARE(shop.everything(), before);
    else if (outcome != MarkedRows::TakenBack::Yes)
        QCOMPARE(shop.everything(), changed);
    if (outcome == MarkedRows::TakenBack::Yes)
        QCOMPARE(marked->takeBack(), MarkedRows::TakenBack::Changed);
}

void AssignmentTest::marksAreTakenBackOneByOne()
{
    Workshop shop;
    shop.addJobRow({.client = client});
    const QString before = shop.row(1);
    const auto first = itemRowMarks::status(1, rowStatus::Completed, monday);
    const QString between = shop.row(1);
    const auto second = itemRowMarks::status(1, rowStatus::Delivered, tuesday, u"Counter"_s);
    QVERIFY(first && second);
    QCOMPARE(first->takeBack(), MarkedRows::TakenBack::Changed);
    QCOMPARE(second->takeBack(), MarkedRows::TakenBack::Yes);
    QCOMPARE(shop.row(1), between);
    QCOMPARE(first->takeBack(), MarkedRows::TakenBack::Yes);
    QCOMPARE(shop.row(1), before);
}

void AssignmentTest::theLastJobIsTold()
{
    Workshop shop;
    shop.addItem(u"Shirt"_s, u"Chest"_s, 400, 100);
    QCOMPARE(assignment::lastJob(monday, 1, client), u"No last record found"_s);
    shop.addJobRow({.job = 1, .client = client, .worker = mohan, .date = {2011, 3, 1}});
    shop.addJobRow({.job = 2, .client = client, .date = {2011, 4, 10}});
    shop.addJobRow({.job = 3, .client = client, .worker = sita, .date = monday});
    shop.addJobRow({.job = 4, .client = client, .item = 2, .worker = sita, .date = booked});
    shop.addJobRow({.job = 5, .client = 1, .worker = sita, .date = booked});
    QCOMPARE(assignment::lastJob(monday, 1, client),
        u"Last Job ID # 2\r\nDate : 10-Apr-2011\r\nNo worker information found!"_s);
    QCOMPARE(assignment::lastJob({2011, 4, 10}, 1, client),
        u"Last Job ID # 1\r\nDate : 01-Mar-2011\r\nJob done by : Mohan"_s);
    QCOMPARE(assignment::lastJob({2011, 3, 1}, 1, client), u"No last record found"_s);
    shop.connection.execute(u"Delete * from Accounts where Title='Mohan'"_s);
    QVERIFY(assignment::lastJob({2011, 4, 10}, 1, client).endsWith(u"Job done by : "_s));
}

CORVANE_TEST(AssignmentTest)
#include "tst_assignment.moc"
