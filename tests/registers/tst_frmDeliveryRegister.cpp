#include "registers/frmDeliveryRegister.h"

#include "WorkDesk.h"
#include "base/session.h"
#include "store/codes.h"
#include "store/settings.h"
#include "ui/Command.h"
#include "ui/DateField.h"
#include "ui/ListView.h"
#include "ui/kvComboBox.h"

#include <QHeaderView>
#include <QLabel>

using namespace Qt::StringLiterals;
using driver::control;
using driver::press;

/// The garments by the day that they are promised for.
class DeliveryRegisterTest : public QObject {
    Q_OBJECT

private slots:
    void aRowTellsAllOfItsGarment();
    void eachFilterKeepsItsRows();
    void whatIsOpenIsListedUntilItIsAskedOtherwise();
    void bothDaysOfThePeriodCount();
    void aPeriodThatEndsBeforeItBegins();
    void aWorkerIsListedByHisBeginning();
    void jobsAreSearchedByNumberAndCode();
    void backFromARowFilterAndPlaceStay();
    void headsAreInTheFontOfTheLanguage();
};

namespace {

const QDate today{2011, 4, 10};

struct Shop : Workshop {
    Shop() { session::CurrentDate = today; }
};

struct Register : frmDeliveryRegister {
    Register() { QVERIFY(driver::show(*this)); }

    ListView &list = listOf(*this);
};

void expectNoWorker(ModalScript &script, const std::function<void()> &command)
{
    script.expectMessage(u"Please Select Worker Name!"_s);
    command();
    QVERIFY(script.isDone());
}

} // namespace

void DeliveryRegisterTest::aRowTellsAllOfItsGarment()
{
    Shop shop;
    shop.add(
        {.job = 321, .worker = Shop::Mohan, .date = today.addDays(-3), .inventory = true}, 2, u"DATE=#01-Apr-2011#"_s);
    shop.add({.job = 322, .client = Shop::Vikram, .status = rowStatus::Delivered, .date = today.addDays(-1)});
    shop.add({.job = 323, .client = 99, .item = 99, .worker = 99, .status = rowStatus::Alteration, .date = today});
    shop.add({.job = 324, .status = rowStatus::Canceled, .date = today.addDays(-1)});
    Register screen;
    enter('f', u"1"_s);
    press(Qt::Key_Return);
    const QStringList expected{u"07-Apr-2011|01-Apr-2011|-3 Days|321/2|Asha Rao|Coat|Blue|Mohan|Uncompleted"_s,
        u"09-Apr-2011|09-Apr-2011|-1 Days|322/0|Vikram Mehta|Coat|Blue|NA|Delivered"_s,
        u"09-Apr-2011|09-Apr-2011|-1 Days|324/0|Asha Rao|Coat|Blue|NA|"_s,
        u"10-Apr-2011|10-Apr-2011|0 Days|323/0|||Blue||Alteration"_s};
    QCOMPARE(listed(screen), u"321/2 322 324 323"_s);
    // A sign beside each word; what is due stands out, what is handed over or cancelled is not due.
    QStringList said;
    for (int row = 0; row < 4; ++row) {
        QCOMPARE(driver::rows(screen.list).at(row).join(u'|'), expected.at(row));
        const auto cell = [&](int column) { return screen.list.model()->index(row, column); };
        const bool isDue = row == 0 || row == 3;
        QCOMPARE(cell(8).data(Qt::DecorationRole).isValid(), row != 2);
        QCOMPARE(cell(0).data(Qt::DecorationRole).isValid(), isDue);
        QCOMPARE(cell(2).data(Qt::FontRole).value<QFont>().bold(), isDue);
        said += cell(0).data(Qt::AccessibleTextRole).toString();
    }
    QCOMPARE(said.first(), u"Overdue, 07-Apr-2011"_s);
    QCOMPARE(said.last(), u"Today, 10-Apr-2011"_s);
    QVERIFY(!rowMenu(screen.list));
}

void DeliveryRegisterTest::eachFilterKeepsItsRows()
{
    Shop shop;
    shop.addOfEachStatus(today);
    Register screen;
    const QString all = u"1 2 3 4 5"_s;
    const std::pair<QString, QString> filters[]{
        {u"Completed"_s, u"2"_s}, {u"Uncompleted"_s, u"1"_s}, {u"Delivered"_s, u"3"_s}, {u"Alteration"_s, u"4"_s}};
    for (const auto &[word, kept] : filters) {
        QCOMPARE(listed(screen), all);
        filter(screen, word);
        QCOMPARE(listed(screen), kept);
        // What is shown anew by another command is not filtered, until the filter is left or chosen again.
        press(Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(listed(screen), all);
        press(Qt::Key_Tab);
        QCOMPARE(listed(screen), kept);
        control<Command>(screen, "Command4").click();
        QCOMPARE(listed(screen), all);
        driver::accessKey('s');
        press(Qt::Key_Return);
        QCOMPARE(listed(screen), kept);
        press(Qt::Key_Home);
    }
    QCOMPARE(listTitle(screen), u"All workers, every status, promised for 10-Apr-2011 to 15-Apr-2011"_s);
    shop.connection.execute(u"Delete * from Jobs_Detail"_s);
    filter(screen, u"Delivered"_s);
    QCOMPARE(listed(screen), QString());
}

void DeliveryRegisterTest::whatIsOpenIsListedUntilItIsAskedOtherwise()
{
    Shop shop;
    shop.addOfEachStatus(today);
    shop.connection.execute(u"Update Jobs_Detail set JobDelDate=#10-Apr-2011#"_s);
    shop.add({.job = 6, .date = today.addDays(1)});
    shop.add({.job = 7, .date = today.addDays(-1)});
    const std::pair<std::function<void(QWidget &)>, QString> asked[]{
        {[](QWidget &screen) { control<Command>(screen, "Command4").click(); }, u"1 2 3 4 5"_s},
        {[](QWidget &) { press(Qt::Key_D, Qt::ControlModifier); }, u"1 2 3 4 5"_s},
        {[](QWidget &screen) { filter(screen, u"Delivered"_s); }, u"3"_s},
        {[](QWidget &) { search(u"3"_s); }, u"3"_s},
        // The status left as it is.
        {[](QWidget &) {
             driver::accessKey('s');
             press(Qt::Key_Tab);
         },
            u"1 2 4"_s},
    };
    for (const auto &way : asked) {
        ModalScript script;
        frmDeliveryRegister screen;
        script.expect(u"frmDeliveryRegister"_s, [&](QWidget &) {
            QCOMPARE(listed(screen), u"1 2 4"_s);
            QCOMPARE(
                listTitle(screen), u"All workers, what is not handed over, promised for 10-Apr-2011 to 10-Apr-2011"_s);
            // Back from a garment it is still so.
            script.expect(u"frmEditWorkerAssign"_s, [](QWidget &) { press(Qt::Key_Escape); });
            session::NeedRefresh = true;
            press(Qt::Key_Return);
            QCOMPARE(listed(screen), u"1 2 4"_s);
            way.first(screen);
            QCOMPARE(listed(screen), way.second);
            press(Qt::Key_Escape);
        });
        screen.ShowOpen(today, today);
    }
}

void DeliveryRegisterTest::bothDaysOfThePeriodCount()
{
    Shop shop;
    int job = 0;
    for (const int day : {13, 11, 12, 10, 14, 11})
        shop.add({.job = ++job, .worker = Shop::Mohan, .date = {2011, 4, day}});
    Register screen;
    ModalScript script;
    enter('f', u"11"_s);
    enter('t', u"13"_s);
    // In each way of listing but by the job: of all, of the worker, of the client; by the day, then as they were
    // booked.
    press(Qt::Key_Return);
    QCOMPARE(listed(screen), u"2 6 3 1"_s);
    pickWorker(u"mo"_s);
    QCOMPARE(listed(screen), u"2 6 3 1"_s);
    shop.add({.job = 7, .client = Shop::Vikram, .date = {2011, 4, 12}});
    script.expect(u"frmSearchClient"_s, [](QWidget &) { press(Qt::Key_Escape); });
    control<Command>(screen, "Command8").click();
    script.expect(u"frmSearchClient"_s, [](QWidget &) { driver::type(u"asha\r"_s); });
    press(Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(listed(screen), u"2 6 3 1"_s);
    QCOMPARE(control<kvComboBox>(screen, "cmbClient").Text(), u"Asha Rao"_s);
    // She is no worker.
    expectNoWorker(script, [&screen] { control<Command>(screen, "Command4").click(); });
    // Leaving the filter is enough for other dates.
    enter('t', u"11"_s);
    driver::accessKey('s');
    press(Qt::Key_Tab);
    QCOMPARE(listed(screen), u"2 6"_s);
    search(u"5"_s);
    QCOMPARE(listed(screen), u"5"_s);
}

void DeliveryRegisterTest::aPeriodThatEndsBeforeItBegins()
{
    Shop shop;
    shop.add({.job = 1, .date = today});
    shop.add({.job = 2, .date = {2011, 4, 20}});
    Register screen;
    ModalScript script;
    enter('f', u"20"_s);
    driver::accessKey('w');
    script.expectBox(u"Invalid date selection!"_s);
    press(Qt::Key_Return);
    QCOMPARE(listed(screen), u"1"_s);
    // A filter asks nothing: the last day becomes the first.
    filter(screen, u"Uncompleted"_s);
    QCOMPARE(listed(screen), u"2"_s);
    QCOMPARE(control<DateField>(screen, "DateTo").date(), QDate(2011, 4, 20));
}

void DeliveryRegisterTest::aWorkerIsListedByHisBeginning()
{
    Shop shop;
    shop.add({.job = 1, .worker = Shop::Mohan, .date = today});
    shop.add({.job = 2, .worker = Shop::Sita, .date = today});
    shop.add({.job = 3, .date = today});
    Register screen;
    ModalScript script;
    enter('w', u"si\b\r"_s);
    QCOMPARE(control<kvComboBox>(screen, "cmbClient").Text(), u"Sita"_s);
    QCOMPARE(listed(screen), u"2"_s);
    // The name may be half rubbed out: the filter is still about her.
    enter('w', u"mo\b"_s);
    filter(screen, u"Uncompleted"_s);
    QCOMPARE(listed(screen), u"2"_s);
    // Others are found once the list of workers is made new.
    shop.connection.execute(u"Update Accounts set Title='Sita Darji' where Title='Sita'"_s);
    press(Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(screen.list.list().cell(0, 7), u"Sita Darji"_s);
    enter('w', u"sita"_s);
    expectNoWorker(script, [] { press(Qt::Key_Return); });
    pickWorker(u"sita d"_s);
    QCOMPARE(listed(screen), u"2"_s);
    screen.list.setFocus();
    pickWorker(u"*"_s);
    QCOMPARE(listed(screen), u"1 2 3"_s);
}

void DeliveryRegisterTest::jobsAreSearchedByNumberAndCode()
{
    Shop shop;
    for (const int place : {1, 2})
        shop.add({.job = 321, .date = {2010, 1, place}}, place);
    shop.add({.job = 3, .date = today});
    shop.add({.job = 4, .date = today});
    Register screen;
    struct Search {
        QString typed;
        QString jobs;
        int current;
    };
    const QString both = u"321/1 321/2"_s;
    for (const auto &[typed, jobs, current] : {Search{u"321"_s, both, 1}, {u"321/2"_s, both, 2}, {u"321/9"_s, both, 0},
             {u" 3 21 "_s, both, 1}, {u"1e999"_s, {}, 0}, {u"'"_s, {}, 0}}) {
        search(typed);
        QCOMPARE(listed(screen), jobs);
        QCOMPARE(screen.list.currentTag().toInt(), current);
        // The next scan goes over it.
        driver::type(u"3\r"_s);
        QCOMPARE(listed(screen), u"3"_s);
    }
    // An emptied search lists all the next time.
    press(Qt::Key_Delete);
    QCOMPARE(listed(screen), u"3"_s);
    press(Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(listed(screen), u"3 4"_s);
}

void DeliveryRegisterTest::backFromARowFilterAndPlaceStay()
{
    Shop shop;
    for (int job = 1; job <= 60; ++job)
        shop.add({.job = job, .date = today});
    Register screen;
    ModalScript script;
    filter(screen, u"Uncompleted"_s);
    driver::accessKey('j');
    ListView &list = screen.list;
    list.setFocus();
    list.setCurrentRow(40);
    script.expect(u"frmEditWorkerAssign"_s, [&shop](QWidget &) {
        shop.connection.execute(u"Update Jobs_Detail set DoneByWorker=1 where id=41"_s);
        session::NeedRefresh = true;
        session::CurrentDate = today.addDays(1);
        press(Qt::Key_Escape);
    });
    press(Qt::Key_Return);
    QVERIFY(!session::NeedRefresh);
    QCOMPARE(control<QLabel>(screen, "lblCurrentDate").text(), u"Current Date : 11-Apr-2011"_s);
    QCOMPARE(list.list().rowCount(), 61);
    QCOMPARE(list.currentRow(), 40);
    QCOMPARE(list.list().cell(40, 3), u"42/0"_s);
    QVERIFY(list.viewport()->rect().contains(list.visualRect(list.currentIndex()).center()));
}

void DeliveryRegisterTest::headsAreInTheFontOfTheLanguage()
{
    const Shop shop;
    const QString hindi = u"Kruti Dev 010"_s;
    QVERIFY(Register().list.header()->font().family() != hindi);
    SaveSetting(setting::Language, u"Hindi"_s);
    Register screen;
    for (const char *list : {"lvSummary", "ListView1"}) {
        QCOMPARE(control<QTreeView>(screen, list).header()->font().family(), hindi);
        QCOMPARE(control<QTreeView>(screen, list).header()->font().pointSize(), 12);
    }
}

CORVANE_TEST(DeliveryRegisterTest)
#include "tst_frmDeliveryRegister.moc"
