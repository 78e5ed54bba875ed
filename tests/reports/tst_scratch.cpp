#include "reports/scratch.h"

#include "store/DataEnvironment.h"
#include "support/ModalScript.h"
#include "support/TestShop.h"
#include "support/expectFault.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"

#include <array>

using namespace Qt::StringLiterals;

/// Lists that become the source of a report.
class ScratchTest : public QObject {
    Q_OBJECT

private slots:
    void theTableHoldsWhatTheListShows_data();
    void theTableHoldsWhatTheListShows();
    void aTextThatIsNoDateIsTold();
    void aLongListCanBeBrokenOff();
};

namespace {

const scratch::Statements accountBook{
    u"Delete * from Accountbook"_s, u"Select * from Accountbook"_s, u"Select * from accountbook"_s};

std::array<scratch::Column, 7> columns()
{
    return {{{u"Date"_s, scratch::textOf(0)}, {u"VID"_s, scratch::textOf(1)}, {u"vaucher"_s, scratch::textOf(2)},
        {u"particulars"_s, scratch::textOf(3)}, {u"debit"_s, scratch::numberOf(4)}, {u"credit"_s, scratch::numberOf(5)},
        {u"Remark"_s, scratch::textOf(6)}}};
}

ListRow line(int number)
{
    const QString amount = QString::number(number) + u".50"_s;
    return {.cells = {u"%1-Apr-2011"_s.arg(number % 30 + 1, 2, 10, QChar(u'0')), QString::number(number), u"Sales"_s,
                u"Someone's \"shirt\" %1"_s.arg(number), number % 2 ? amount : u" "_s, number % 2 ? u" "_s : amount,
                number % 3 ? QString() : u"two\r\nlines"_s},
        .tag = u"1|%1"_s.arg(number)};
}

ListRow sum(const QString &title)
{
    return {.cells = {{}, {}, {}, title, u"9.00"_s, {}, {}}};
}

bool fill(const ListModel &list, scratch::Which which = scratch::Which::Tagged)
{
    return scratch::refill(
        DE().rsaccountbooks, DE().CN, accountBook, list, which, columns(), u"Filling the statement"_s);
}

int storedRows()
{
    Recordset rows(DE().CN);
    rows.open(u"Select * from Accountbook"_s);
    return rows.recordCount();
}

} // namespace

void ScratchTest::theTableHoldsWhatTheListShows_data()
{
    QTest::addColumn<int>("lines");
    QTest::newRow("none") << 0;
    QTest::newRow("some") << 7;
    QTest::newRow("a full batch") << 1000;
    QTest::newRow("several batches") << 2503;
}

void ScratchTest::theTableHoldsWhatTheListShows()
{
    QFETCH(const int, lines);
    const TestShop shop;
    ListModel list(std::vector<ListColumn>(7));
    const Recordset &rows = DE().rsaccountbooks;
    // Twice, as what an earlier print left must be gone.
    for (int time = 0; time < 2; ++time) {
        list.clear();
        std::vector<ListRow> shown{sum(u"Balance B/F "_s)};
        for (int i = 1; i <= lines; ++i)
            shown.push_back(line(i));
        shown.push_back(sum(u"Balance C/F "_s));
        list.setRows(std::move(shown));
        QVERIFY(fill(list));
        QCOMPARE(rows.recordCount(), lines);
        for (int i = 1; i <= lines; ++i) {
            DE().rsaccountbooks.moveTo(i - 1);
            QCOMPARE(rows.date(u"date"), QDate(2011, 4, i % 30 + 1));
            QCOMPARE(rows.text(u"vid"), QString::number(i));
            QCOMPARE(rows.text(u"particulars"), u"Someone's \"shirt\" %1"_s.arg(i));
            QCOMPARE(rows.number(u"debit"), i % 2 ? i + 0.5 : 0.0);
            QCOMPARE(rows.number(u"credit"), i % 2 ? 0.0 : i + 0.5);
            QCOMPARE(rows.text(u"remark"), i % 3 ? QString() : u"two\r\nlines"_s);
        }
    }
    list.setRows({line(1), {.cells = line(2).cells}});
    QVERIFY(fill(list, scratch::Which::All));
    QCOMPARE(rows.recordCount(), 2);
}

void ScratchTest::aTextThatIsNoDateIsTold()
{
    const TestShop shop;
    ListModel list(std::vector<ListColumn>(7));
    list.setRows({line(1), {.cells = sum(u"x"_s).cells, .tag = 1}});
    EXPECT_FAULT(Fault::TypeMismatch, static_cast<void>(fill(list)));
    list.setRows({line(3)});
    QVERIFY(fill(list));
    QCOMPARE(DE().rsaccountbooks.text(u"vid"), u"3"_s);
}

void ScratchTest::aLongListCanBeBrokenOff()
{
    const TestShop shop;
    ListModel list(std::vector<ListColumn>(7));
    std::vector<ListRow> shown;
    for (int i = 1; i <= 200'000; ++i)
        shown.push_back(line(i));
    list.setRows(std::move(shown));
    ModalScript script;
    script.expect(u"QProgressDialog"_s, [](QWidget &) { driver::press(Qt::Key_Escape); });
    QVERIFY(!fill(list));
    QVERIFY(script.isDone());
    QVERIFY(!DE().rsaccountbooks.isOpen());
    QVERIFY(storedRows() < 200'000);
    list.setRows({line(1)});
    QVERIFY(fill(list));
    QCOMPARE(storedRows(), 1);
}

CORVANE_TEST(ScratchTest)
#include "tst_scratch.moc"
