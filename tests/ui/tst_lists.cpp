#include "support/TestShop.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/ListView.h"
#include "ui/RegisterScreen.h"
#include "ui/listFilter.h"
#include "ui/signs.h"
#include "ui/userValues.h"

#include <QAbstractItemModelTester>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using driver::press;

class ListScreen : public Screen {
public:
    ListScreen()
        : Screen(u"ListScreen"_s), list(u"lvSummary"_s, {{u"Item"_s, 50}, {u"Remark"_s, 30}, {u"Amount"_s, 20, true}})
    {
        resize(640, 300);
        auto *form = new QVBoxLayout(this);
        form->addWidget(&list);
        QVERIFY(driver::show(*this));
    }
    /// Whether the columns fill the list, and no more.
    [[nodiscard]] bool isFilled() const { return list.header()->length() == list.viewport()->width(); }

    ListView list;
};

/// A register that its user may sort.
class DuesScreen : public RegisterScreen {
public:
    DuesScreen() : RegisterScreen(u"DuesScreen"_s, u"Dues"_s, Refresh::OnCommand)
    {
        resize(640, 300);
        auto *form = new QVBoxLayout(this);
        form->addWidget(&list);
        list.setAccessibleName(u"Dues"_s);
        list.letSort();
        setRegister(&list);
        fill({u"900.00"_s, u"1,200.00"_s, u"85.50"_s});
        QVERIFY(driver::show(*this));
    }

    /// In this order; each is tagged with its place in it.
    void fill(const QStringList &amounts)
    {
        std::vector<ListRow> rows;
        for (const QString &amount : amounts)
            rows.push_back({{u"Client"_s, amount}, static_cast<int>(rows.size()) + 1});
        showRows(std::move(rows), list.currentRow() < 0 ? Keep::First : Keep::Tag);
    }

    [[nodiscard]] QString amounts() const { return driver::column(list, 1).join(u' '); }

    ListView list{u"lvSummary"_s, {{u"Client"_s, 50}, {u"Due Amount"_s, 50, true}}};
};

namespace {

QPoint headOf(const ListView &list, int column)
{
    const QHeaderView &header = *list.header();
    return {header.sectionViewportPosition(column) + header.sectionSize(column) / 2, header.height() / 2};
}

void clickHead(const ListView &list, int column)
{
    QTest::mouseClick(list.header()->viewport(), Qt::LeftButton, {}, headOf(list, column));
}

void dragHead(const ListView &list, QPoint from, QPoint over, QPoint to)
{
    QWidget *const head = list.header()->viewport();
    QTest::mousePress(head, Qt::LeftButton, {}, from);
    QTest::mouseMove(head, over);
    QTest::mouseMove(head, to);
    QTest::mouseRelease(head, Qt::LeftButton, {}, to);
}

/// One column of the rows as the model has them now.
QString told(const ListModel &model, size_t column)
{
    QStringList texts;
    for (const ListRow &row : model.rows())
        texts += row.cells.at(static_cast<qsizetype>(column));
    return texts.join(u'|');
}

} // namespace

/// Lists and the rows behind them.
class ListTest : public QObject {
    Q_OBJECT

private slots:
    void columnsShareTheWidthAndOneGivenByHandStays();
    void whereRoomIsScarceHeadsAndDatesAreWhole();
    void aClosingLineIsReadWhole();
    void aColumnStaysWhereItWasDragged();
    void eachColumnSortsAsItReads();
    void sortedRowsCanBeChanged();
    void clicksOnAHeadSortAndBringTheOwnOrderBack();
    void theMenuOfColumnsDoesWhatClicksDo();
    void theOrderIsKeptForTheNextTime();
    void aFullShopIsListedAndSortedAtOnce();
    void anEmptyListSaysWhy();
};

void ListTest::columnsShareTheWidthAndOneGivenByHandStays()
{
    const TestShop shop;
    for (const bool again : {false, true}) {
        ListScreen screen;
        QHeaderView &header = *screen.list.header();
        if (!again) {
            QVERIFY(screen.isFilled());
            QVERIFY(qAbs(header.sectionSize(0) * 2 - screen.list.viewport()->width()) < 4);
            QVERIFY(qAbs(header.sectionSize(2) * 5 - screen.list.viewport()->width()) < 10);
            const QPoint edge(header.sectionSize(0) - 1, header.height() / 2);
            dragHead(screen.list, edge, edge + QPoint(-20, 0), edge + QPoint(-100, 0));
        }
        const int width = header.sectionSize(0);
        QVERIFY2(width > 180 && width < 230, qPrintable(QString::number(width)));
        screen.resize(900, 300);
        QTRY_VERIFY(screen.width() == 900 && screen.isFilled());
        QCOMPARE(header.sectionSize(0), width);
        // Only a list that lets it is sorted.
        screen.list.list().setRows({{{u"Suit"_s}, 1}, {{u"Coat"_s}, 2}});
        clickHead(screen.list, 0);
        QCOMPARE(driver::column(screen.list, 0).first(), u"Suit"_s);
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
    // States further down are measured too: by their signs, and short ones.
    ListView states(u"lvStates"_s, {{u"Cut"_s, 5}, {u"Now"_s, 5}, {u"Client Name"_s, 90}});
    states.resize(480, 200);
    states.list().setRows({{{u"Done"_s, u"Done"_s, u"n"_s}, 1},
        {.cells = {u"Not Done"_s, u"Uncompleted"_s, QString(200, u'n')},
            .tag = 2,
            .looks = {{1, {.icon = signs::status(signs::Status::Uncompleted)}}}}});
    states.show();
    for (const int column : {0, 1})
        QVERIFY(states.columnWidth(column) >= states.sizeHintForIndex(states.model()->index(1, column)).width());
    // Where not even they have room, the list scrolls.
    list.resize(200, 200);
    QTRY_VERIFY(list.horizontalScrollBar()->maximum() > 0);
    QVERIFY(list.columnWidth(1) >= list.header()->sectionSizeHint(1));
}

void ListTest::aClosingLineIsReadWhole()
{
    ListScreen screen;
    ListModel &rows = screen.list.list();
    const QString words = u"Total of all that is listed"_s;
    rows.setRows({{{words, u" "_s, u"1"_s}, 1}, {{words, u" "_s, u"1"_s}}, {{words, u"none"_s, u"1"_s}}});
    screen.list.header()->resizeSection(0, 90);
    const auto reachesOver = [&](int row, int current) {
        screen.list.setCurrentRow(current);
        const QImage seen = screen.list.viewport()->grab(screen.list.visualRect(rows.index(row, 1))).toImage();
        const QColor ground = seen.pixelColor(seen.width() - 2, 2);
        const QImage first = seen.copy(4, 0, 24, seen.height());
        for (int place = 0; place < first.width() * first.height(); ++place) {
            const QColor ink = first.pixelColor(place % first.width(), place / first.width());
            if (qAbs(ink.lightness() - ground.lightness()) > 60)
                return true;
        }
        return false;
    };
    QVERIFY(!reachesOver(0, 2));
    QVERIFY(reachesOver(1, 0) && reachesOver(1, 1));
    // Over nothing that says something.
    rows.setCell(2, 1, {});
    QVERIFY(reachesOver(2, 0));
    rows.setCell(2, 1, u"                     none"_s);
    QVERIFY(!reachesOver(2, 0));
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
        QCOMPARE(heads(screen), expected);
        QVERIFY(screen.isFilled());
        if (expected.startsWith(u"Item"_s))
            dragHead(
                screen.list, headOf(screen.list, 0), headOf(screen.list, 1), headOf(screen.list, 2) + QPoint(20, 0));
    }
    // Of a list with fewer columns.
    userValues().setValue(u"Lists/ListScreen.lvSummary.order"_s, QVariantList{1, 0});
    QCOMPARE(heads(ListScreen()), u"Item Remark Amount"_s);
}

void ListTest::eachColumnSortsAsItReads()
{
    struct Column {
        bool numeric;
        QString told;
        QString ascending;
        QString descending;
    };
    const Column columns[]{
        {true, u"900.00|1,200.00|(75.00)|-80.00|1,10,000.00"_s, u"-80.00|(75.00)|900.00|1,200.00|1,10,000.00"_s,
            u"1,10,000.00|1,200.00|900.00|(75.00)|-80.00"_s},
        {true, u"12 Days|3 Days|-2 Days| "_s, u" |-2 Days|3 Days|12 Days"_s, u"12 Days|3 Days|-2 Days| "_s},
        {false, u"02-Mar-2011|31-Jan-2011||01-Apr-2010"_s, u"|01-Apr-2010|31-Jan-2011|02-Mar-2011"_s,
            u"02-Mar-2011|31-Jan-2011|01-Apr-2010|"_s},
        {true, u"02-Mar-2011|31-Jan-2011"_s, u"31-Jan-2011|02-Mar-2011"_s, u"02-Mar-2011|31-Jan-2011"_s},
        {false, u"mohan|Asha|BABU|अमित"_s, u"Asha|BABU|mohan|अमित"_s, u"अमित|mohan|BABU|Asha"_s},
        {false, u"Suit|01-Apr-2010|coat"_s, u"01-Apr-2010|coat|Suit"_s, u"Suit|coat|01-Apr-2010"_s},
        // Those that read alike stay as they are told.
        {false, u"b|A|a|B"_s, u"A|a|b|B"_s, u"b|B|A|a"_s}};
    for (const auto &[numeric, asTold, ascending, descending] : columns) {
        ListModel model({{u"Nr"_s}, {u"Column"_s, 10, numeric}});
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        std::vector<ListRow> rows;
        for (const QString &text : asTold.split(u'|'))
            rows.push_back({{QString::number(rows.size()), text}});
        model.setRows(std::move(rows));
        model.sort(1, Qt::DescendingOrder);
        QCOMPARE(told(model, 1), descending);
        model.sort(1, Qt::AscendingOrder);
        QCOMPARE(told(model, 1), ascending);
        model.sort(-1);
        QCOMPARE(told(model, 1), asTold);
    }
}

void ListTest::sortedRowsCanBeChanged()
{
    ListModel model({{u"Rating"_s}, {u"Item"_s}});
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    const auto starred = [](int stars, const QString &item) {
        return ListRow{.cells = {{}, item}, .looks = {{0, {.said = u"%1 of 5 stars"_s.arg(stars)}}}};
    };
    // Where a sign stands in a text's place, its words count.
    model.sort(0);
    model.setRows({starred(3, u"Suit"_s), starred(5, u"Coat"_s), starred(1, u"Kurta"_s)});
    QCOMPARE(told(model, 1), u"Kurta|Suit|Coat"_s);
    const QPersistentModelIndex suit = model.index(1, 1);
    QCOMPARE(model.appendRow(starred(2, u"Shirt"_s)), 3);
    QVERIFY(model.removeRow(0));
    QCOMPARE(told(model, 1), u"Suit|Coat|Shirt"_s);
    model.sort(0);
    QCOMPARE(told(model, 1), u"Shirt|Suit|Coat"_s);
    QCOMPARE(suit.row(), 1);
    model.sort(-1);
    QCOMPARE(told(model, 1), u"Suit|Coat|Shirt"_s);
    QCOMPARE(suit.row(), 0);
}

void ListTest::clicksOnAHeadSortAndBringTheOwnOrderBack()
{
    const TestShop shop;
    DuesScreen screen;
    ListView &list = screen.list;
    QStringList many;
    for (int i = 0; i < 200; ++i)
        many += QString::number((i * 37) % 200);
    screen.fill(many);
    list.setCurrentRow(199);
    struct Click {
        QString head;
        QString spoken;
        QString first;
    };
    for (const auto &[head, spoken, first] : {Click{u"\u25b2 Due Amount"_s, u"Due Amount, ascending"_s, u"0 1 2 "_s},
             {u"\u25bc Due Amount"_s, u"Due Amount, descending"_s, u"199 198 197 "_s},
             {u"Due Amount"_s, {}, u"0 37 74 "_s}}) {
        clickHead(list, 1);
        QCOMPARE(list.list().headerData(1, Qt::Horizontal).toString(), head);
        QCOMPARE(list.list().headerData(1, Qt::Horizontal, Qt::AccessibleTextRole).toString(), spoken);
        QVERIFY(list.columnWidth(1) >= list.header()->sectionSizeHint(1));
        QVERIFY2(screen.amounts().startsWith(first), qPrintable(screen.amounts().left(20)));
        QCOMPARE(list.currentTag().toInt(), 200);
        QVERIFY(list.viewport()->rect().contains(list.visualRect(list.currentIndex()).center()));
    }
    clickHead(list, 1);
    screen.fill({u"900.00"_s, u"1,200.00"_s, u"85.50"_s});
    QCOMPARE(screen.amounts(), u"85.50 900.00 1,200.00"_s);
    QCOMPARE(list.header()->sortIndicatorSection(), 1);
}

void ListTest::theMenuOfColumnsDoesWhatClicksDo()
{
    const TestShop shop;
    DuesScreen screen;
    const QString told = screen.amounts();
    const auto choose = [&screen](Qt::Key key) {
        press(Qt::Key_O, Qt::ControlModifier);
        [] { QTRY_VERIFY(qobject_cast<QMenu *>(QApplication::activePopupWidget())); }();
        QTest::keyClick(QApplication::activePopupWidget(), key);
        [] { QTRY_VERIFY(!QApplication::activePopupWidget()); }();
        return screen.amounts();
    };
    QCOMPARE(choose(Qt::Key_2), u"85.50 900.00 1,200.00"_s);
    QCOMPARE(choose(Qt::Key_2), u"1,200.00 900.00 85.50"_s);
    QCOMPARE(choose(Qt::Key_2), told);
    choose(Qt::Key_2);
    QCOMPARE(choose(Qt::Key_0), told);
}

void ListTest::theOrderIsKeptForTheNextTime()
{
    const TestShop shop;
    const QString told = u"900.00 1,200.00 85.50"_s;
    for (const QString &expected : {told, u"85.50 900.00 1,200.00"_s, u"1,200.00 900.00 85.50"_s, told}) {
        DuesScreen screen;
        QCOMPARE(screen.amounts(), expected);
        // A list begins with its first row, whichever that is.
        QCOMPARE(screen.list.currentRow(), 0);
        clickHead(screen.list, 1);
    }
    // Of a list with more columns.
    userValues().setValue(u"Lists/DuesScreen.lvSummary.sort"_s, QVariantList{7, false});
    QCOMPARE(DuesScreen().amounts(), told);
}

void ListTest::aFullShopIsListedAndSortedAtOnce()
{
    const TestShop shop;
    DuesScreen screen;
    QSignalSpy resets(&screen.list.list(), &QAbstractItemModel::modelReset);
    QSignalSpy inserts(&screen.list.list(), &QAbstractItemModel::rowsInserted);
    std::vector<ListRow> rows;
    for (int i = 0; i < 32767; ++i)
        rows.push_back({{u"Client %1"_s.arg((i * 7919) % 32767), QString::number((i * 4099) % 32767) + u".00"_s}, i});
    const auto isAtOnce = [](const std::function<void()> &work) {
        QElapsedTimer time;
        time.start();
        work();
        QCoreApplication::processEvents();
        return time.elapsed() < 1000;
    };
    QVERIFY(isAtOnce([&] { screen.list.list().setRows(std::move(rows)); }));
    screen.list.setCurrentRow(16000);
    for (const int column : {0, 1})
        QVERIFY(isAtOnce([&] { clickHead(screen.list, column); }));
    QCOMPARE(screen.list.list().cell(32766, 1), u"32766.00"_s);
    QCOMPARE(resets.count(), 1);
    QCOMPARE(inserts.count(), 0);
}

void ListTest::anEmptyListSaysWhy()
{
    const TestShop shop;
    ListScreen screen;
    ListView &list = screen.list;
    const QString why = u"No items yet.\nAdd puts in the first."_s;
    const auto isSaid = [&list, &why](bool said) {
        const QImage seen = list.viewport()->grab().toImage();
        bool isDrawn = false;
        for (int y = seen.height() / 3; y < seen.height() * 3 / 4; ++y) {
            for (int x = 0; x < seen.width(); ++x)
                isDrawn = isDrawn || seen.pixelColor(x, y).lightness() < 160;
        }
        return isDrawn == said && list.accessibleDescription() == (said ? why : QString());
    };
    QVERIFY(isSaid(false));
    list.setEmptyText(why);
    QVERIFY(isSaid(true));
    list.list().appendRow({{u"Suit"_s}, 1});
    QVERIFY(isSaid(false));
    QVERIFY(list.list().removeRow(0));
    QVERIFY(isSaid(true));
    // A total of nothing is nothing.
    std::vector<ListRow> rows;
    closeWithCount(rows, {.columns = 3, .column = 1, .words = u"Total : "_s});
    list.list().setRows(rows);
    QVERIFY(isSaid(true));
    rows.insert(rows.begin(), {{u"Suit"_s}, 1});
    list.list().setRows(std::move(rows));
    QVERIFY(isSaid(false));
}

CORVANE_TEST(ListTest)
#include "tst_lists.moc"
