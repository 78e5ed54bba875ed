#include "jobcards/clsJobCardData.h"

#include "OrderDesk.h"
#include "support/expectFault.h"

using namespace Qt::StringLiterals;

/// The rows of the open card, in memory.
class JobCardDataTest : public QObject {
    Q_OBJECT

private slots:
    void rowsAreCountedFromOne();
    void anIndexAboveTheCountIsToldAndHarmless();
    void thereIsRoomForSixteenBitsOfRows();
};

namespace {

clsJobCardData named(const QStringList &names)
{
    clsJobCardData rows;
    for (const QString &name : names) {
        JobCardRow row;
        row.Sr = static_cast<qint16>(10 + rows.RowCount());
        row.ItemName = name;
        row.Score = 3;
        rows.AddNewRow(row);
    }
    return rows;
}

QString names(const clsJobCardData &rows)
{
    QStringList result;
    for (int i = 1; i <= rows.RowCount(); ++i)
        result += rows.ItemName(i);
    return result.join(u' ');
}

} // namespace

void JobCardDataTest::rowsAreCountedFromOne()
{
    clsJobCardData rows = named({u"Coat"_s, u"Shirt"_s});
    rows.Copy(1);
    rows.setMarkAsPaid(3, 1);
    rows.SetScore(3, 5);
    QCOMPARE(names(rows), u"Coat Shirt Coat"_s);
    QCOMPARE(rows.Sr(3), qint16(10));
    QCOMPARE(rows.MarkAsPaid(1), qint16(0));
    QCOMPARE(rows.MarkAsPaid(3), qint16(1));
    QCOMPARE(rows.Score(1), qint16(3));
    QCOMPARE(rows.Score(3), qint16(5));
    // Those that follow a removed one move down.
    rows.RemoveRow(2);
    QCOMPARE(rows.Score(2), qint16(5));
    rows.RemoveRow(3);
    QCOMPARE(names(rows), u"Coat Coat"_s);
    rows.RemoveRow(2);
    rows.RemoveRow(1);
    QCOMPARE(rows.RowCount(), qint16(0));
    rows.AddNewRow({});
    rows.SetItemName(1, u"Kurta"_s);
    QCOMPARE(names(rows), u"Kurta"_s);
}

void JobCardDataTest::anIndexAboveTheCountIsToldAndHarmless()
{
    clsJobCardData rows = named({u"Coat"_s});
    ModalScript script;
    script.expectBox(u"Index Out of Bound!"_s).expectBox(u"Index Out of Bound!"_s).expectBox(u"Index Out of Bound!"_s);
    QCOMPARE(rows.ItemName(2), QString());
    QCOMPARE(rows.Score(2), qint16(0));
    rows.SetItemName(2, u"Shirt"_s);
    QVERIFY(script.isDone());
    // Zero is an empty record.
    QCOMPARE(rows.ItemName(0), QString());
    EXPECT_FAULT(Fault::TypeMismatch, (void)rows.Score(0));
    rows.SetItemName(0, u"Nothing"_s);
    QCOMPARE(rows.ItemName(0), u"Nothing"_s);
    EXPECT_FAULT(Fault::SubscriptOutOfRange, (void)rows.ItemName(-1));
    EXPECT_FAULT(Fault::SubscriptOutOfRange, rows.RemoveRow(-1));
    QCOMPARE(names(rows), u"Coat"_s);
}

void JobCardDataTest::thereIsRoomForSixteenBitsOfRows()
{
    clsJobCardData rows;
    for (int i = 0; i < 32767; ++i)
        rows.AddNewRow({});
    EXPECT_FAULT(Fault::Overflow, rows.AddNewRow({}));
    QCOMPARE(rows.RowCount(), qint16(32767));
}

CORVANE_TEST(JobCardDataTest)
#include "tst_clsJobCardData.moc"
