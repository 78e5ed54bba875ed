#include "registers/frmDeliveryRegister.h"

#include "base/session.h"
#include "store/codes.h"
#include "store/settings.h"
#include "support/ModalScript.h"
#include "support/TestShop.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/Command.h"
#include "ui/DateField.h"
#include "ui/ListView.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::control;
using driver::press;

/// The garments by the day that they are promised for.
class DeliveryRegisterTest : public QObject {
    Q_OBJECT

private slots:
    void itOpensOnTheDaysToCome();
    void aRowTellsAllOfItsGarment();
    void eachFilterKeepsItsRows_data();
    void eachFilterKeepsItsRows();
    void anyWordIsKeptExactly();
    void whatIsOpenIsListedUntilItIsAskedOtherwise_data();
    void whatIsOpenIsListedUntilItIsAskedOtherwise();
    void bothDaysOfThePeriodCount();
    void aPeriodThatEndsBeforeItBegins();
    void aWorkerIsListedByHisBeginning();
    void jobsAreSearchedByNumberAndCode_data();
    void jobsAreSearchedByNumberAndCode();
    void anEmptiedSearchListsAllTheNextTime();
    void quickFindListsAClient();
    void backFromARowFilterAndPlaceStay();
    void whoeverIsRenamedOrDeletedMeanwhile();
    void headsAreInTheFontOfTheLanguage();
};

namespace {

constexpr int asha = 5;
constexpr int vikram = 6;
constexpr int mohan = 7;
constexpr int sita = 8;
constexpr int daysColumn = 2;
constexpr int jobColumn = 3;
constexpr int statusColumn = 8;
const QDate today{2011, 4, 10};

struct Workshop : TestShop {
    Workshop()
    {
        session::CurrentDate = today;
        addAccount(u"Asha Rao"_s);
        addAccount(u"Vikram Mehta"_s);
        addAccount(u"Mohan"_s, {}, accountType::Worker);
        addAccount(u"Sita"_s, {}, accountType::Worker);
        addItem(u"Coat"_s, u"Chest"_s, 900, 300);
    }

    /// One of each status, all promised for today, on jobs 1 to 5.
    void addOfEachStatus()
    {
        for (int status = 0; status <= 4; ++status)
            addJobRow({.job = status + 1, .client = asha, .status = status, .date = today});
    }
};

class Register : public frmDeliveryRegister {
public:
    explicit Register(bool isShown = true) { QVERIFY(!isShown || driver::show(*this)); }

    [[nodiscard]] ListView &list() const { return control<ListView>(*this, "lvSummary"); }
    /// Numbers of the jobs listed, and behind them what the closing rows say.
    [[nodiscard]] QString listed() const
    {
        QStringList jobs;
        QList<QStringList> rows = driver::rows(list());
        const QStringList total = rows.takeLast();
        const QStringList blank = rows.takeLast();
        for (const QStringList &row : rows)
            jobs += row.at(jobColumn).section(u'/', 0, 0);
        return jobs.join(u' ') + u'|' + (blank.join(u"").trimmed() + total.join(u"").trimmed());
    }
    void type(char field, const QString &text)
    {
        driver::accessKey(field);
        driver::type(text);
    }
    /// By the arrows.
    void filter(const QString &word)
    {
        driver::accessKey('s');
        press(Qt::Key_Home);
        while (control<kvComboBox>(*this, "cmbCondition").currentText() != word)
            press(Qt::Key_Down);
    }
    void search(const QString &text)
    {
        type('j', text);
        press(Qt::Key_Return);
    }
};

QString said(const ListView &list, int row, int column)
{
    return list.model()->index(row, column).data(Qt::AccessibleTextRole).toString();
}

bool hasSign(const ListView &list, int row, int column)
{
    return list.model()->index(row, column).data(Qt::DecorationRole).isValid();
}

} // namespace

void DeliveryRegisterTest::itOpensOnTheDaysToCome()
{
    TestShop shop;
    Register screen;
    QCOMPARE(control<DateField>(screen, "DateFrom").date(), session::CurrentDate);
    QCOMPARE(control<DateField>(screen, "DateTo").date(), session::CurrentDate.addDays(5));
    QCOMPARE(control<kvComboBox>(screen, "cmbClient").Text(), u"*All"_s);
    QCOMPARE(driver::entries(control<kvComboBox>(screen, "cmbClient")), QStringList{u"*All"_s});
    QCOMPARE(driver::entries(control<kvComboBox>(screen, "cmbCondition")).join(u'|'),
        u"*All|Completed|Uncompleted|Delivered|Alteration"_s);
    QCOMPARE(control<QLabel>(screen, "lblCurrentDate").text(), u"Current Date : 01-Apr-2011"_s);
    QVERIFY(!session::NeedRefresh);
    QCOMPARE(screen.listed(), u"|Total JOBS : 0"_s);
    QCOMPARE(screen.list().list().cell(1, 5), u"Total JOBS : 0"_s);
    QCOMPARE(screen.list().list().cell(1, 0), u" "_s);
    // Neither closing row opens.
    for (const int row : {0, 1}) {
        screen.list().setCurrentRow(row);
        press(Qt::Key_Return);
    }
    press(Qt::Key_Escape);
    QVERIFY(!screen.isVisible());
}

void DeliveryRegisterTest::aRowTellsAllOfItsGarment()
{
    Workshop shop;
    shop.addJobRow({.job = 321, .client = asha, .worker = mohan, .date = today.addDays(-3), .inventory = true});
    shop.addJobRow({.job = 322, .client = vikram, .status = rowStatus::Delivered, .date = today.addDays(-1)});
    shop.addJobRow(
        {.job = 323, .client = 99, .item = 99, .worker = 99, .status = rowStatus::Alteration, .date = today});
    shop.addJobRow({.job = 324, .client = asha, .status = rowStatus::Canceled, .date = today.addDays(-1)});
    shop.connection.execute(u"Update Jobs_Detail set ItemSr=2, DATE=#01-Apr-2011#, Remarks='Blue' where JobID=321"_s);
    Register screen;
    screen.type('f', u"1"_s);
    press(Qt::Key_Return);
    const QList<QStringList> rows = driver::rows(screen.list());
    QCOMPARE(rows.at(0).join(u'|'), u"07-Apr-2011|01-Apr-2011|-3 Days|321/2|Asha Rao|Coat|Blue|Mohan|Uncompleted"_s);
    QCOMPARE(rows.at(1).join(u'|'), u"09-Apr-2011|09-Apr-2011|-1 Days|322/0|Vikram Mehta|Coat|Asha Rao|NA|Delivered"_s);
    QCOMPARE(rows.at(2).join(u'|'), u"09-Apr-2011|09-Apr-2011|-1 Days|324/0|Asha Rao|Coat|Asha Rao|NA|"_s);
    QCOMPARE(rows.at(3).join(u'|'), u"10-Apr-2011|10-Apr-2011|0 Days|323/0|||Asha Rao||Alteration"_s);
    QCOMPARE(screen.listed(), u"321 322 324 323|Total JOBS : 4"_s);
    QCOMPARE(screen.list().list().at(0).tag.toInt(), 1);

    QStringList heads;
    for (const ListColumn &column : screen.list().list().columns())
        heads += column.title;
    QCOMPARE(heads.join(u'|'), u"Del. Date|Date|Days|JOB ID|Client Name|Item Name|Remark|Worker Name|Status"_s);
    // A sign beside each word; what is due stands out, what is handed over or cancelled is not due.
    for (int row = 0; row < 4; ++row) {
        const bool isDue = row == 0 || row == 3;
        QCOMPARE(hasSign(screen.list(), row, statusColumn), row != 2);
        QCOMPARE(hasSign(screen.list(), row, 0), isDue);
        const QModelIndex days = screen.list().model()->index(row, daysColumn);
        QCOMPARE(days.data(Qt::FontRole).value<QFont>().bold(), isDue);
    }
    QCOMPARE(said(screen.list(), 0, 0), u"Overdue, 07-Apr-2011"_s);
    QCOMPARE(said(screen.list(), 3, 0), u"Today, 10-Apr-2011"_s);
    const QPoint first = screen.list().visualRect(screen.list().model()->index(0, 0)).center();
    QContextMenuEvent clicked(QContextMenuEvent::Mouse, first, screen.list().viewport()->mapToGlobal(first));
    QCoreApplication::sendEvent(screen.list().viewport(), &clicked);
    QVERIFY(!QApplication::activePopupWidget());
}

void DeliveryRegisterTest::eachFilterKeepsItsRows_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("kept");
    QTest::newRow("completed") << u"Completed"_s << u"2|Total JOBS : 1"_s;
    QTest::newRow("uncompleted") << u"Uncompleted"_s << u"1|Total JOBS : 1"_s;
    QTest::newRow("delivered") << u"Delivered"_s << u"3|Total JOBS : 1"_s;
    QTest::newRow("alteration") << u"Alteration"_s << u"4|Total JOBS : 1"_s;
}

void DeliveryRegisterTest::eachFilterKeepsItsRows()
{
    QFETCH(const QString, word);
    Workshop shop;
    shop.addOfEachStatus();
    Register screen;
    const QString all = u"1 2 3 4 5|Total JOBS : 5"_s;
    QCOMPARE(screen.listed(), all);
    screen.filter(word);
    QTEST(screen.listed(), "kept");
    // What is shown anew by another command is not filtered, until the filter is left or chosen again.
    press(Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(screen.listed(), all);
    press(Qt::Key_Tab);
    QTEST(screen.listed(), "kept");
    control<Command>(screen, "Command4").click();
    QCOMPARE(screen.listed(), all);
    driver::accessKey('s');
    press(Qt::Key_Return);
    QTEST(screen.listed(), "kept");
    press(Qt::Key_Home);
    QCOMPARE(screen.listed(), all);
    QCOMPARE(control<QLabel>(screen, "lblListed").text(),
        u"All workers, every status, promised for 10-Apr-2011 to 15-Apr-2011"_s);

    shop.connection.execute(u"Delete * from Jobs_Detail"_s);
    screen.filter(word);
    QCOMPARE(screen.listed(), u"|Total JOBS : 0"_s);
    QCOMPARE(screen.list().list().rowCount(), 2);
}

void DeliveryRegisterTest::anyWordIsKeptExactly()
{
    Workshop shop;
    shop.addOfEachStatus();
    shop.addOfEachStatus();
    Register screen;
    screen.RemoveUnwanted(u"Completed"_s);
    QCOMPARE(screen.listed(), u"2 2|Total JOBS : 2"_s);
    screen.RemoveUnwanted(u"completed"_s);
    QCOMPARE(screen.listed(), u"|Total JOBS : 0"_s);
    screen.ExecuteSQL();
    screen.RemoveUnwanted(QString());
    QCOMPARE(screen.listed(), u"5 5|Total JOBS : 2"_s);
}

void DeliveryRegisterTest::whatIsOpenIsListedUntilItIsAskedOtherwise_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("listed");
    QTest::newRow("show all") << u"show"_s << u"1 2 3 4 5|Total JOBS : 5"_s;
    QTest::newRow("read again") << u"again"_s << u"1 2 3 4 5|Total JOBS : 5"_s;
    QTest::newRow("a status") << u"status"_s << u"3|Total JOBS : 1"_s;
    QTest::newRow("a job") << u"job"_s << u"3|Total JOBS : 1"_s;
    QTest::newRow("the status left as it is") << u"tab"_s << u"1 2 4|Total JOBS : 3"_s;
}

void DeliveryRegisterTest::whatIsOpenIsListedUntilItIsAskedOtherwise()
{
    QFETCH(const QString, keys);
    Workshop shop;
    shop.addOfEachStatus();
    shop.addJobRow({.job = 6, .client = asha, .date = today.addDays(1)});
    shop.addJobRow({.job = 7, .client = asha, .date = today.addDays(-1)});
    ModalScript script;
    Register screen(false);
    script.expect(u"frmDeliveryRegister"_s, [&](QWidget &) {
        QCOMPARE(screen.listed(), u"1 2 4|Total JOBS : 3"_s);
        QCOMPARE(control<QLabel>(screen, "lblListed").text(),
            u"All workers, what is not handed over, promised for 10-Apr-2011 to 10-Apr-2011"_s);
        // Back from a garment it is still so.
        script.expect(u"frmEditWorkerAssign"_s, [](QWidget &) { press(Qt::Key_Escape); });
        session::NeedRefresh = true;
        press(Qt::Key_Return);
        QCOMPARE(screen.listed(), u"1 2 4|Total JOBS : 3"_s);
        if (keys == u"show")
            control<Command>(screen, "Command4").click();
        else if (keys == u"again")
            press(Qt::Key_D, Qt::ControlModifier);
        else if (keys == u"status")
            screen.filter(u"Delivered"_s);
        else if (keys == u"job")
            screen.search(u"3"_s);
        else {
            driver::accessKey('s');
            press(Qt::Key_Tab);
        }
        QTEST(screen.listed(), "listed");
        press(Qt::Key_Escape);
    });
    screen.ShowOpen(today, today);
    QVERIFY(script.isDone());
}

void DeliveryRegisterTest::bothDaysOfThePeriodCount()
{
    Workshop shop;
    int job = 0;
    for (const int day : {13, 11, 12, 10, 14, 11})
        shop.addJobRow({.job = ++job, .client = asha, .worker = mohan, .date = {2011, 4, day}});
    Register screen;
    ModalScript script;
    screen.type('f', u"11"_s);
    screen.type('t', u"13"_s);
    // In each way of listing but by the job: of all, of the worker, of the client; by the day, then as they were
    // booked.
    const QString expected = u"2 6 3 1|Total JOBS : 4"_s;
    press(Qt::Key_Return);
    QCOMPARE(screen.listed(), expected);
    screen.type('w', u"mo"_s);
    press(Qt::Key_Return);
    QCOMPARE(screen.listed(), expected);
    script.expect(u"frmSearchClient"_s, [](QWidget &) {
        driver::type(u"asha"_s);
        press(Qt::Key_Return);
    });
    press(Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(screen.listed(), expected);
    // Leaving the filter is enough for other dates.
    screen.type('t', u"11"_s);
    driver::accessKey('s');
    press(Qt::Key_Tab);
    QCOMPARE(screen.listed(), u"2 6|Total JOBS : 2"_s);
    screen.search(u"5"_s);
    QCOMPARE(screen.listed(), u"5|Total JOBS : 1"_s);
}

void DeliveryRegisterTest::aPeriodThatEndsBeforeItBegins()
{
    Workshop shop;
    shop.addJobRow({.job = 1, .client = asha, .date = today});
    shop.addJobRow({.job = 2, .client = asha, .date = {2011, 4, 20}});
    Register screen;
    ModalScript script;
    screen.type('f', u"20"_s);
    driver::accessKey('w');
    script.expect(u"QMessageBox"_s, [](QWidget &box) {
        QCOMPARE(dynamic_cast<QMessageBox &>(box).text(), u"Invalid date selection!"_s);
        QCOMPARE(dynamic_cast<QMessageBox &>(box).icon(), QMessageBox::Critical);
        press(Qt::Key_Return);
    });
    press(Qt::Key_Return);
    QVERIFY(script.isDone());
    QCOMPARE(screen.listed(), u"1|Total JOBS : 1"_s);
    QCOMPARE(control<DateField>(screen, "DateTo").date(), QDate(2011, 4, 15));
    screen.filter(u"Uncompleted"_s);
    QCOMPARE(screen.listed(), u"2|Total JOBS : 1"_s);
    QCOMPARE(control<DateField>(screen, "DateTo").date(), QDate(2011, 4, 20));

    screen.type('t', u"31/2/11"_s);
    script.expectMessage(u"\"31/2/11\" is not a date!"_s);
    control<Command>(screen, "Command4").click();
    QVERIFY(script.isDone());
}

void DeliveryRegisterTest::aWorkerIsListedByHisBeginning()
{
    Workshop shop;
    shop.addJobRow({.job = 1, .client = asha, .worker = mohan, .date = today});
    shop.addJobRow({.job = 2, .client = asha, .worker = sita, .date = today});
    shop.addJobRow({.job = 3, .client = asha, .date = today});
    Register screen;
    ModalScript script;
    auto &worker = control<kvComboBox>(screen, "cmbClient");
    screen.type('w', u"si"_s);
    press(Qt::Key_Backspace);
    QCOMPARE(worker.Text(), u"Si"_s);
    press(Qt::Key_Return);
    QCOMPARE(worker.Text(), u"Sita"_s);
    QCOMPARE(screen.listed(), u"2|Total JOBS : 1"_s);
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    script.expectMessage(u"Please Select Worker Name!"_s);
    press(Qt::Key_Return);
    QVERIFY(script.isDone());
    QCOMPARE(screen.listed(), u"2|Total JOBS : 1"_s);
    // The name may be half rubbed out: the filter is still about her.
    screen.type('w', u"mo"_s);
    press(Qt::Key_Backspace);
    screen.filter(u"Uncompleted"_s);
    QCOMPARE(screen.listed(), u"2|Total JOBS : 1"_s);
    screen.type('w', u"*"_s);
    press(Qt::Key_Return);
    QCOMPARE(screen.listed(), u"1 2 3|Total JOBS : 3"_s);
}

void DeliveryRegisterTest::jobsAreSearchedByNumberAndCode_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("listed");
    QTest::addColumn<int>("current");
    const QString found = u"321 321|Total JOBS : 2"_s;
    QTest::newRow("number") << u"321"_s << found << 1;
    QTest::newRow("code of a garment") << u"321/2"_s << found << 2;
    QTest::newRow("code of one that is gone") << u"321/9"_s << found << 0;
    QTest::newRow("blanks") << u" 3 21 "_s << found << 1;
    for (const char *nothing : {"abc", "0", "40000", "99999999999", "-321", "1e999", "3.5", "", "'", "/2"})
        QTest::newRow(nothing) << QString::fromLatin1(nothing) << u"|Total JOBS : 0"_s << 0;
}

void DeliveryRegisterTest::jobsAreSearchedByNumberAndCode()
{
    QFETCH(const QString, typed);
    Workshop shop;
    for (const int place : {1, 2}) {
        shop.addJobRow({.job = 321, .client = asha, .date = {2010, 1, place}});
        shop.connection.execute(u"Update Jobs_Detail set ItemSr=%1 where id=%1"_s.arg(place));
    }
    shop.addJobRow({.job = 3, .client = asha, .date = today});
    Register screen;
    screen.search(typed);
    QTEST(screen.listed(), "listed");
    QTEST(screen.list().currentTag().toInt(), "current");
    // The next scan goes over it.
    screen.search(u"3"_s);
    driver::type(u"3\r"_s);
    QCOMPARE(screen.listed(), u"3|Total JOBS : 1"_s);
}

void DeliveryRegisterTest::anEmptiedSearchListsAllTheNextTime()
{
    Workshop shop;
    shop.addJobRow({.job = 1, .client = asha, .date = today});
    shop.addJobRow({.job = 2, .client = asha, .date = today});
    Register screen;
    screen.search(u"2"_s);
    QCOMPARE(screen.listed(), u"2|Total JOBS : 1"_s);
    press(Qt::Key_Delete);
    QCOMPARE(screen.listed(), u"2|Total JOBS : 1"_s);
    press(Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(screen.listed(), u"1 2|Total JOBS : 2"_s);
}

void DeliveryRegisterTest::quickFindListsAClient()
{
    Workshop shop;
    shop.addJobRow({.job = 1, .client = asha, .date = today});
    shop.addJobRow({.job = 2, .client = vikram, .date = today});
    Register screen;
    ModalScript script;
    script.expect(u"frmSearchClient"_s, [](QWidget &) { press(Qt::Key_Escape); });
    control<Command>(screen, "Command8").click();
    QCOMPARE(screen.listed(), u"1 2|Total JOBS : 2"_s);
    script.expect(u"frmSearchClient"_s, [](QWidget &) {
        driver::type(u"mehta"_s);
        press(Qt::Key_Return);
    });
    press(Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(screen.listed(), u"2|Total JOBS : 1"_s);
    QCOMPARE(control<kvComboBox>(screen, "cmbClient").Text(), u"Vikram Mehta"_s);
    // He is no worker.
    script.expectMessage(u"Please Select Worker Name!"_s);
    control<Command>(screen, "Command4").click();
    QVERIFY(script.isDone());
}

void DeliveryRegisterTest::backFromARowFilterAndPlaceStay()
{
    Workshop shop;
    for (int job = 1; job <= 60; ++job)
        shop.addJobRow({.job = job, .client = asha, .date = today});
    Register screen;
    ModalScript script;
    screen.filter(u"Uncompleted"_s);
    driver::accessKey('j');
    screen.list().setFocus();
    screen.list().setCurrentRow(40);
    script.expect(u"frmEditWorkerAssign"_s, [&shop](QWidget &) {
        shop.connection.execute(u"Update Jobs_Detail set DoneByWorker=1 where id=41"_s);
        session::NeedRefresh = true;
        session::CurrentDate = today.addDays(1);
        press(Qt::Key_Escape);
    });
    press(Qt::Key_Return);
    QVERIFY(script.isDone());
    QVERIFY(!session::NeedRefresh);
    QCOMPARE(control<QLabel>(screen, "lblCurrentDate").text(), u"Current Date : 11-Apr-2011"_s);
    QCOMPARE(screen.list().list().rowCount(), 61);
    QCOMPARE(screen.list().currentRow(), 40);
    QCOMPARE(screen.list().list().cell(40, jobColumn), u"42/0"_s);
    QVERIFY(screen.list().viewport()->rect().contains(screen.list().visualRect(screen.list().currentIndex()).center()));
    // Nothing was changed: the list stays as it is.
    script.expect(u"frmEditWorkerAssign"_s, [&shop](QWidget &) {
        shop.connection.execute(u"Delete * from Jobs_Detail"_s);
        press(Qt::Key_Escape);
    });
    press(Qt::Key_Return);
    QCOMPARE(screen.list().list().rowCount(), 61);
    // The row itself is gone.
    script.expectMessage(u"This item is no longer on its job card!"_s);
    press(Qt::Key_Return);
    QVERIFY(script.isDone());
}

void DeliveryRegisterTest::whoeverIsRenamedOrDeletedMeanwhile()
{
    Workshop shop;
    shop.addJobRow({.job = 1, .client = asha, .worker = mohan, .date = today});
    Register screen;
    ModalScript script;
    screen.type('w', u"mo"_s);
    press(Qt::Key_Return);
    shop.connection.execute(u"Update Accounts set Title='Mohan Darji' where id=7"_s);
    press(Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(screen.listed(), u"1|Total JOBS : 1"_s);
    QCOMPARE(screen.list().list().cell(0, 7), u"Mohan Darji"_s);
    // The list of workers still has the old name; it is made new when it is found out.
    script.expectMessage(u"Please Select Worker Name!"_s);
    control<Command>(screen, "Command4").click();
    QVERIFY(script.isDone());
    screen.type('w', u"mohan d"_s);
    press(Qt::Key_Return);
    QCOMPARE(screen.listed(), u"1|Total JOBS : 1"_s);
    shop.connection.execute(u"Delete * from Accounts where Type<2"_s);
    press(Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(screen.listed(), u"1|Total JOBS : 1"_s);
    QCOMPARE(screen.list().list().cell(0, 7), QString());
}

void DeliveryRegisterTest::headsAreInTheFontOfTheLanguage()
{
    Workshop shop;
    const QString hindi = u"Kruti Dev 010"_s;
    QVERIFY(Register().list().header()->font().family() != hindi);
    SaveSetting(setting::Language, u"Hindi"_s);
    Register screen;
    for (const char *list : {"lvSummary", "ListView1"}) {
        QCOMPARE(control<QTreeView>(screen, list).header()->font().family(), hindi);
        QCOMPARE(control<QTreeView>(screen, list).header()->font().pointSize(), 12);
    }
    QVERIFY(!control<QTreeView>(screen, "ListView1").isVisible());
}

CORVANE_TEST(DeliveryRegisterTest)
#include "tst_frmDeliveryRegister.moc"
