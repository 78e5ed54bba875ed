#include "support/TestShop.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/ListView.h"
#include "ui/Screen.h"
#include "ui/userValues.h"

#include <QAbstractItemModelTester>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

class ListScreen : public Screen {
public:
    ListScreen()
        : Screen(u"ListScreen"_s), list(u"lvSummary"_s, {{u"Item"_s, 50}, {u"Remark"_s, 30}, {u"Amount"_s, 20, true}})
    {
        resize(640, 300);
        auto *form = new QVBoxLayout(this);
        form->addWidget(&list);
    }

    ListView list;
};

/// Lists and the rows behind them.
class ListTest : public QObject {
    Q_OBJECT

private slots:
    void rowsCanBeChangedOneByOne();
    void rowsLookAsTold();
    void enterAndDoubleClickOpenARow();
    void columnsShareTheWidth();
    void whereRoomIsScarceHeadsAndDatesAreWhole();
    void aWidthGivenByHandStays();
    void aColumnStaysWhereItWasDragged();
    void aFullShopIsOneReset();
};

void ListTest::rowsCanBeChangedOneByOne()
{
    ListModel model({{u"Item"_s, 60}, {u"Qty"_s, 40, true}});
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.setRows({{{u"Shirt"_s, u"2"_s}, 7}, {{u"Coat"_s}, 8}});
    QCOMPARE(model.appendRow({{u"Suit"_s, u"1"_s}, 9}), 2);
    model.setCell(1, 1, u"5"_s);
    model.setTag(0, u"12|2"_s);
    QVERIFY(model.removeRow(2));
    QVERIFY(!model.removeRow(2));
    model.setRow(0, {{u"Kurta"_s, u"3"_s}, 11});
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(model.cell(0, 0), u"Kurta"_s);
    QCOMPARE(model.index(1, 1).data().toString(), u"5"_s);
    QCOMPARE(model.index(0, 0).data(Qt::UserRole).toInt(), 11);
    QVERIFY(!model.index(0, 1).data(Qt::UserRole).isValid());
    QCOMPARE(model.rowOfTag(8), 1);
    QCOMPARE(model.rowOfTag(9), -1);
    QCOMPARE(model.rowOfText(1, u"5"_s), 1);
    QCOMPARE(model.rowOfText(0, u"5"_s), -1);
    model.setTitle(0, u"Kind"_s);
    QCOMPARE(model.headerData(0, Qt::Horizontal).toString(), u"Kind"_s);
    model.clear();
    QCOMPARE(model.rowCount(), 0);
}

void ListTest::rowsLookAsTold()
{
    ListModel model({{u"Item"_s, 60}, {u"Qty"_s, 40, true}});
    ListRow row{{u"Shirt"_s, u"2"_s}, 7};
    row.look = {.bold = true, .ink = Qt::red};
    row.looks = {{1, {.ink = Qt::green}}};
    model.setToolTips(
        [](const ListRow &of, int column) { return column == 1 ? of.cells.value(1) + u" of them"_s : QString(); });
    model.setRows({row, {{u"Coat"_s}}});
    QVERIFY(model.index(0, 0).data(Qt::FontRole).value<QFont>().bold());
    QVERIFY(!model.index(0, 1).data(Qt::FontRole).isValid());
    QCOMPARE(model.index(0, 0).data(Qt::ForegroundRole).value<QColor>(), QColor(Qt::red));
    QCOMPARE(model.index(0, 1).data(Qt::ForegroundRole).value<QColor>(), QColor(Qt::green));
    QCOMPARE(model.index(0, 1).data(Qt::ToolTipRole).toString(), u"2 of them"_s);
    QCOMPARE(model.index(0, 0).data(Qt::ToolTipRole).toString(), QString());
    QVERIFY(!model.index(1, 0).data(Qt::ForegroundRole).isValid());
    QCOMPARE(model.index(1, 1).data().toString(), QString());
    const auto alignment = [](const QVariant &value) { return Qt::Alignment(value.toInt()); };
    QCOMPARE(alignment(model.index(0, 1).data(Qt::TextAlignmentRole)), Qt::AlignRight | Qt::AlignVCenter);
    QCOMPARE(alignment(model.headerData(1, Qt::Horizontal, Qt::TextAlignmentRole)), Qt::AlignRight | Qt::AlignVCenter);
    QCOMPARE(alignment(model.index(0, 0).data(Qt::TextAlignmentRole)), Qt::AlignLeft | Qt::AlignVCenter);
}

void ListTest::enterAndDoubleClickOpenARow()
{
    const TestShop shop;
    ListScreen screen;
    ListView &list = screen.list;
    QSignalSpy opened(&list, &ListView::opened);
    QVERIFY(driver::show(screen));
    list.setFocus();
    driver::press(Qt::Key_Return);
    QCOMPARE(opened.count(), 0);
    list.list().setRows({{{u"Shirt"_s}, 7}, {{u"Coat"_s}, 8}, {{u"Suit"_s}, 9}});
    QCOMPARE(list.currentRow(), -1);
    list.setCurrentRow(0);
    driver::press(Qt::Key_Down);
    driver::press(Qt::Key_Return);
    QCOMPARE(list.currentTag().toInt(), 8);
    const QPoint place = list.visualRect(list.model()->index(2, 1)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(opened, (QList<QVariantList>{{1}, {2}}));
    list.setCurrentRow(99);
    QCOMPARE(list.currentRow(), -1);
    QVERIFY(!list.currentTag().isValid());
}

void ListTest::columnsShareTheWidth()
{
    const TestShop shop;
    ListScreen screen;
    QVERIFY(driver::show(screen));
    for (const int width : {640, 900}) {
        screen.resize(width, 300);
        QTRY_COMPARE(screen.width(), width);
        QTRY_COMPARE(screen.list.header()->length(), screen.list.viewport()->width());
        QVERIFY(qAbs(screen.list.columnWidth(0) * 2 - screen.list.viewport()->width()) < 4);
        QVERIFY(qAbs(screen.list.columnWidth(2) * 5 - screen.list.viewport()->width()) < 10);
    }
}

void ListTest::whereRoomIsScarceHeadsAndDatesAreWhole()
{
    const TestShop shop;
    ListView list(u"lvSummary"_s, {{u"Date"_s, 5}, {u"Worker Name"_s, 5}, {u"Client Name"_s, 60}, {u"Remark"_s, 30}});
    list.resize(480, 200);
    list.show();
    const auto hasRoom = [&list](int column) {
        const int head = list.header()->sectionSizeHint(column);
        return list.columnWidth(column) >= qMax(head, list.sizeHintForIndex(list.model()->index(0, column)).width());
    };
    QVERIFY(list.columnWidth(1) >= list.header()->sectionSizeHint(1));
    QCOMPARE(list.header()->length(), list.viewport()->width());
    list.list().setRows({{{u"30-Sep-2011"_s, u"Moh"_s, QString(200, u'n'), QString(200, u'r')}, 1}});
    QVERIFY(hasRoom(0) && hasRoom(1));
    QCOMPARE(list.header()->length(), list.viewport()->width());
    const int width = list.columnWidth(0);
    list.list().setRows({{{u"1"_s, u"M"_s, u"n"_s, u"r"_s}, 1}});
    QCOMPARE(list.columnWidth(0), width);
    // Where not even they have room, the list scrolls.
    list.resize(200, 200);
    QTRY_VERIFY(list.horizontalScrollBar()->maximum() > 0);
    QVERIFY(list.columnWidth(1) >= list.header()->sectionSizeHint(1));
}

void ListTest::aWidthGivenByHandStays()
{
    const TestShop shop;
    for (const bool again : {false, true}) {
        ListScreen screen;
        QVERIFY(driver::show(screen));
        QHeaderView &header = *screen.list.header();
        if (!again) {
            const QPoint edge(header.sectionSize(0) - 1, header.height() / 2);
            QTest::mousePress(header.viewport(), Qt::LeftButton, {}, edge);
            QTest::mouseMove(header.viewport(), edge + QPoint(-20, 0));
            QTest::mouseMove(header.viewport(), edge + QPoint(-100, 0));
            QTest::mouseRelease(header.viewport(), Qt::LeftButton, {}, edge + QPoint(-100, 0));
        }
        const int width = header.sectionSize(0);
        QVERIFY2(width > 180 && width < 230, qPrintable(QString::number(width)));
        screen.resize(900, 300);
        QTRY_COMPARE(header.length(), screen.list.viewport()->width());
        QCOMPARE(header.sectionSize(0), width);
    }
}

void ListTest::aColumnStaysWhereItWasDragged()
{
    const TestShop shop;
    const auto heads = [](const ListScreen &screen) {
        QStringList titles;
        for (int place = 0; place < 3; ++place)
            titles +=
                screen.list.list().columns().at(static_cast<size_t>(screen.list.header()->logicalIndex(place))).title;
        return titles.join(u' ');
    };
    for (const QString &expected : {u"Item Remark Amount"_s, u"Remark Amount Item"_s, u"Remark Amount Item"_s}) {
        ListScreen screen;
        QVERIFY(driver::show(screen));
        QCOMPARE(heads(screen), expected);
        QHeaderView &header = *screen.list.header();
        QCOMPARE(header.length(), screen.list.viewport()->width());
        if (header.visualIndex(0) > 0)
            continue;
        const auto middle = [&header](int column) {
            return QPoint(header.sectionViewportPosition(column) + header.sectionSize(column) / 2, header.height() / 2);
        };
        QTest::mousePress(header.viewport(), Qt::LeftButton, {}, middle(0));
        QTest::mouseMove(header.viewport(), middle(1));
        QTest::mouseMove(header.viewport(), middle(2) + QPoint(20, 0));
        QTest::mouseRelease(header.viewport(), Qt::LeftButton, {}, middle(2) + QPoint(20, 0));
    }
    // Of a list with fewer columns.
    userValues().setValue(u"Lists/ListScreen.lvSummary.order"_s, QVariantList{1, 0});
    ListScreen screen;
    QVERIFY(driver::show(screen));
    QCOMPARE(heads(screen), u"Item Remark Amount"_s);
}

void ListTest::aFullShopIsOneReset()
{
    const TestShop shop;
    ListScreen screen;
    QVERIFY(driver::show(screen));
    QSignalSpy resets(&screen.list.list(), &QAbstractItemModel::modelReset);
    QSignalSpy inserts(&screen.list.list(), &QAbstractItemModel::rowsInserted);
    std::vector<ListRow> rows;
    for (int i = 0; i < 32767; ++i)
        rows.push_back({{u"Item %1"_s.arg(i), u"remark"_s, u"1.00"_s}, i});
    QElapsedTimer time;
    time.start();
    screen.list.list().setRows(std::move(rows));
    screen.list.setCurrentRow(32766);
    QCoreApplication::processEvents();
    QVERIFY2(time.elapsed() < 1000, qPrintable(QString::number(time.elapsed())));
    QCOMPARE(resets.count(), 1);
    QCOMPARE(inserts.count(), 0);
    QCOMPARE(driver::column(screen.list, 0).last(), u"Item 32766"_s);
}

CORVANE_TEST(ListTest)
#include "tst_lists.moc"
