#include "registers/frmWorkerJobRegister.h"

#include "base/session.h"
#include "store/codes.h"
#include "support/ModalScript.h"
#include "support/TestShop.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/ListView.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"

#include <QAbstractButton>
#include <QContextMenuEvent>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::control;

/// The shop's working list: what it lists, filters and counts, and the marks given in it.
class WorkerJobRegisterTest : public QObject {
    Q_OBJECT

private slots:
    void aRowTellsAllOfItsGarment();
    void whatIsGoneOrUnknownIsBlank();
    void eachFilterKeepsItsRowsAndCountsThem_data();
    void eachFilterKeepsItsRowsAndCountsThem();
    void filtersOfAnEmptyListCountNothing();
    void thePeriodIsOfBookingOrDelivery_data();
    void thePeriodIsOfBookingOrDelivery();
    void aWorkerIsListedAndAPrefixChoosesHim();
    void aJobIsListedByItsNumberOrItsCode_data();
    void aJobIsListedByItsNumberOrItsCode();
    void quickFindListsAClient();
    void marksAreWrittenAndTheUserStaysWhereHeWas_data();
    void marksAreWrittenAndTheUserStaysWhereHeWas();
    void aMarkIsUndoneWhileTheListIsOpen();
    void aMarkIsForTheRowThatWasChosen();
    void theWholeJobIsHandedOver();
    void nothingIsMarkedWithoutARow();
    void aRowThatIsGoneIsToldAndTheListIsNew();
    void aGarmentOpensAndItsCardToo();
    void piecesIgnoreTheView();
    void theOverviewChoosesAWorker();
    void whoGetsAnotherNameStaysListed();
    void datesThatAreNoneAreRefused();
};

namespace {

constexpr int asha = 5;
constexpr int vikram = 6;
constexpr int mohan = 7;
constexpr int sita = 8;
constexpr int jobColumn = 1;
constexpr int totalColumn = 2;

const QDate today{2011, 4, 1};

struct Workshop : TestShop {
    Workshop()
    {
        addAccount(u"Asha Rao"_s);
        addAccount(u"Vikram Mehta"_s);
        addAccount(u"Mohan"_s, {}, accountType::Worker);
        addAccount(u"Sita"_s, {}, accountType::Worker);
        addItem(u"Coat"_s, u"Chest"_s, 900, 300);
        addItem(u"Shirt"_s, u"Chest"_s, 300, 100);
    }

    /// Numbers the garment on its card.
    int add(const JobRow &row, int place = 1, const QString &changes = {})
    {
        addJobRow(row);
        const QString number = lines(u"Select max(id) from Jobs_Detail"_s).first();
        const QString where = u" where id="_s + number;
        connection.execute(u"Update Jobs_Detail set ItemSr="_s + QString::number(place)
            + u", Remarks='Blue', CuttingStatus=0"_s + where);
        if (!changes.isEmpty())
            connection.execute(u"Update Jobs_Detail set "_s + changes + where);
        return number.toInt();
    }
    /// A row of each status, the last two with a worker, every other one cut.
    void addOfEachStatus()
    {
        for (int status = 0; status <= 4; ++status)
            add({.job = status + 1, .worker = status >= 3 ? mohan : 0, .status = status, .date = today.addDays(status)},
                1, u"CuttingStatus=%1"_s.arg(status % 2));
    }
    [[nodiscard]] QString marked(int row)
    {
        return lines(
            u"Select DoneByWorker, CompletedDate, AltDate, DelToCustDate, CuttingStatus, CuttingDate, Loc from "
            "Jobs_Detail where id="_s
            + QString::number(row))
            .value(0);
    }
};

struct Register : frmWorkerJobRegister {
    Register() : list(control<ListView>(*this, "lvSummary")), shown(driver::show(*this)) { }

    [[nodiscard]] QStringList jobs() const
    {
        QStringList jobs = driver::column(list, jobColumn);
        jobs.removeAll(u" "_s);
        return jobs;
    }
    /// The words of the last row, which has one of blanks above it.
    [[nodiscard]] QString total() const
    {
        const QList<QStringList> rows = driver::rows(list);
        if (rows.size() < 2)
            return u"no closing rows"_s;
        const QStringList blanks(rows.last().size(), u" "_s);
        QStringList others = rows.last();
        others[totalColumn] = u" "_s;
        return rows.at(rows.size() - 2) == blanks && others == blanks ? rows.last().at(totalColumn)
                                                                      : u"other closing rows"_s;
    }
    void choose(const QString &condition)
    {
        auto &combo = control<kvComboBox>(*this, "cmbCondition");
        combo.setFocus();
        combo.setCurrentIndex(combo.findText(condition));
        emit combo.activated(combo.currentIndex());
    }
    void search(const QString &text)
    {
        driver::accessKey('j');
        driver::type(text);
        driver::press(Qt::Key_Return);
    }
    /// Types both dates, from the field of the first on.
    void setPeriod(const QString &from, const QString &to)
    {
        driver::accessKey('f');
        driver::type(from);
        driver::accessKey('t');
        driver::type(to);
        driver::press(Qt::Key_Tab);
    }

    ListView &list;
    bool shown;
};

/// What a key of the row menu does.
void viaMenu(ListView &list, const QString &caption)
{
    list.setFocus();
    QContextMenuEvent wanted(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(&list, &wanted);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    for (const QAction *action : menu->actions()) {
        if (action->text().section(u'\t', 0, 0) == caption)
            return QTest::keyClick(menu, Qt::Key_Return);
        if (!action->isSeparator())
            QTest::keyClick(menu, Qt::Key_Down);
    }
    QFAIL("the menu has no such entry");
}

ModalScript::Action location(const QString &text, Qt::Key key = Qt::Key_Return)
{
    return [text, key](QWidget &box) {
        QCOMPARE(box.windowTitle(), u"Kovrel"_s);
        QCOMPARE(dynamic_cast<QInputDialog &>(box).labelText(), u"Please specify location!"_s);
        driver::type(text);
        driver::press(key);
    };
}

} // namespace

void WorkerJobRegisterTest::aRowTellsAllOfItsGarment()
{
    Workshop shop;
    shop.connection.execute(u"Update Accounts set Mobile='98290', City='Jaipur' where id=5"_s);
    shop.addPosting(asha, today, -250);
    shop.addPosting(asha, today.addDays(1), 1000);
    shop.add({.job = 12, .client = asha, .worker = mohan, .status = rowStatus::Alteration, .quantity = 3}, 2,
        u"JobDelDate=#29-Mar-2011#, CuttingStatus=1, Loc='Rack 2'"_s);
    shop.add({.job = 12, .client = vikram, .item = 2}, 3, u"JobDelDate=#02-Apr-2011#"_s);
    shop.add({.job = 12, .inventory = true}, 4);
    const Register screen;
    QVERIFY(screen.shown);
    const QList<QStringList> rows = driver::rows(screen.list);
    QCOMPARE(rows.size(), 4);
    QCOMPARE(rows.at(0),
        (QStringList{u"01-Apr-2011"_s, u"12/2"_s, u"Asha Rao"_s, u"3"_s, u"Coat"_s, u"Blue"_s, u"29-Mar-2011 (-3 D)"_s,
            u"Mohan"_s, u"Done"_s, u"Alteration"_s, u"Rack 2"_s, u"250.00 Dr"_s}));
    QCOMPARE(rows.at(1),
        (QStringList{u"01-Apr-2011"_s, u"12/3"_s, u"Vikram Mehta"_s, u"1"_s, u"Shirt"_s, u"Blue"_s,
            u"02-Apr-2011 (1 D)"_s, u"NA"_s, u"Not Done"_s, u"Uncompleted"_s, u" "_s, u"None"_s}));
    QCOMPARE(screen.total(), u"Total JOBS : 2"_s);

    const ListModel &list = screen.list.list();
    QStringList heads;
    for (int column = 0; column < list.columnCount(); ++column)
        heads += list.headerData(column, Qt::Horizontal).toString();
    QCOMPARE(heads.join(u'|'),
        u"Date|JOB ID|Client Name|Qty|Item Name|Remark|Del. Date|Worker Name|Cutting|Status|Location|Balance"_s);
    QCOMPARE(list.index(0, 2).data(Qt::ToolTipRole).toString(), u"98290      Jaipur    "_s);
    QCOMPARE(list.index(0, 7).data(Qt::ToolTipRole).toString(), u"No Information Found"_s);
    QVERIFY(list.index(1, 7).data(Qt::ToolTipRole).toString().isEmpty());
    // Overdue by more than a colour, and a sign beside each status.
    QVERIFY(list.index(0, 6).data(Qt::FontRole).value<QFont>().bold());
    QVERIFY(!list.index(1, 6).data(Qt::FontRole).value<QFont>().bold());
    QVERIFY(!list.index(1, 9).data(Qt::DecorationRole).value<QIcon>().isNull());
    QVERIFY(list.index(3, totalColumn).data(Qt::FontRole).value<QFont>().bold());
}

void WorkerJobRegisterTest::whatIsGoneOrUnknownIsBlank()
{
    Workshop shop;
    shop.add({.client = 99, .item = 99, .worker = 98, .status = 7}, 1, u"CuttingStatus=null"_s);
    const Register screen;
    QCOMPARE(driver::rows(screen.list).first().join(u'|'), u"01-Apr-2011|1/1||1||Blue|01-Apr-2011 (0 D)|||| |None"_s);
}

void WorkerJobRegisterTest::eachFilterKeepsItsRowsAndCountsThem_data()
{
    QTest::addColumn<QStringList>("jobs");
    QTest::newRow("*All") << QStringList{u"1/1"_s, u"2/1"_s, u"3/1"_s, u"4/1"_s, u"5/1"_s};
    QTest::newRow("Completed") << QStringList{u"2/1"_s};
    QTest::newRow("Uncompleted") << QStringList{u"1/1"_s};
    QTest::newRow("Delivered") << QStringList{u"3/1"_s};
    QTest::newRow("Alteration") << QStringList{u"4/1"_s};
    QTest::newRow("Canceled") << QStringList{u"5/1"_s};
    QTest::newRow("Assigned") << QStringList{u"4/1"_s, u"5/1"_s};
    QTest::newRow("Not Assigned") << QStringList{u"1/1"_s, u"2/1"_s, u"3/1"_s};
    QTest::newRow("Cutting Done") << QStringList{u"2/1"_s, u"4/1"_s};
    QTest::newRow("Cutting Not Done") << QStringList{u"1/1"_s, u"3/1"_s, u"5/1"_s};
}

void WorkerJobRegisterTest::eachFilterKeepsItsRowsAndCountsThem()
{
    QFETCH(const QStringList, jobs);
    Workshop shop;
    shop.addOfEachStatus();
    Register screen;
    screen.choose(QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(screen.jobs(), jobs);
    QCOMPARE(screen.total(), u"Total JOBS : %1"_s.arg(jobs.size()));
    // It stays in force for the next view, but not for a job that is looked for.
    driver::accessKey('v');
    QCOMPARE(screen.jobs(), jobs);
    screen.search(u"1"_s);
    QCOMPARE(screen.jobs(), QStringList{u"1/1"_s});
    // On what is listed, as on a fill.
    screen.ExecuteSQL();
    screen.RemoveUnwanted(u"Uncompleted"_s);
    QCOMPARE(screen.total(), u"Total JOBS : 1"_s);
}

void WorkerJobRegisterTest::filtersOfAnEmptyListCountNothing()
{
    const Workshop shop;
    Register screen;
    QCOMPARE(screen.total(), u"Total JOBS : 0"_s);
    const QStringList conditions = driver::entries(control<kvComboBox>(screen, "cmbCondition"));
    QCOMPARE(conditions.size(), 10);
    for (const QString &condition : conditions) {
        screen.choose(condition);
        QCOMPARE(screen.list.list().rowCount(), 2);
        QCOMPARE(screen.total(), u"Total JOBS : 0"_s);
    }
}

void WorkerJobRegisterTest::thePeriodIsOfBookingOrDelivery_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QStringList>("jobs");
    QTest::newRow("booked, increasing") << u""_s << QStringList{u"2/1"_s, u"3/1"_s, u"3/2"_s, u"4/1"_s};
    QTest::newRow("booked, decreasing") << u"OpDesc"_s << QStringList{u"4/1"_s, u"3/1"_s, u"3/2"_s, u"2/1"_s};
    QTest::newRow("promised") << u"opDt2"_s << QStringList{u"1/1"_s, u"3/1"_s};
    QTest::newRow("promised, decreasing") << u"opDt2 OpDesc"_s << QStringList{u"3/1"_s, u"1/1"_s};
}

void WorkerJobRegisterTest::thePeriodIsOfBookingOrDelivery()
{
    QFETCH(const QString, options);
    Workshop shop;
    const auto add = [&shop](int job, int place, QDate booked, const QString &promised) {
        shop.add({.job = job, .date = booked}, place, u"JobDelDate=#%1#"_s.arg(promised));
    };
    add(4, 1, {2011, 4, 10}, u"20-Apr-2011"_s);
    add(5, 1, {2011, 4, 11}, u"20-Apr-2011"_s);
    add(3, 1, {2011, 4, 6}, u"10-Apr-2011"_s);
    add(3, 2, {2011, 4, 6}, u"11-Apr-2011"_s);
    add(2, 1, {2011, 4, 5}, u"04-Apr-2011"_s);
    add(1, 1, {2011, 4, 4}, u"05-Apr-2011"_s);
    Register screen;
    for (const QString &option : options.split(u' ', Qt::SkipEmptyParts))
        screen.findChild<QAbstractButton *>(option)->click();
    screen.setPeriod(u"5/4/2011"_s, u"10/4/2011"_s);
    driver::accessKey('v');
    QTEST(screen.jobs(), "jobs");
}

void WorkerJobRegisterTest::aWorkerIsListedAndAPrefixChoosesHim()
{
    Workshop shop;
    shop.add({.job = 1, .worker = mohan});
    shop.add({.job = 2, .worker = sita});
    shop.add({.job = 3, .worker = sita, .date = {2011, 6, 1}});
    Register screen;
    driver::accessKey('w');
    driver::type(u"si"_s);
    driver::press(Qt::Key_Return);
    QCOMPARE(screen.jobs(), QStringList{u"2/1"_s});
    QVERIFY(control<QLabel>(screen, "lblListed").text().startsWith(u"Sita"_s));
    ModalScript script;
    screen.list.setFocus();
    driver::accessKey('w');
    driver::press(Qt::Key_Backspace);
    script.expectMessage(u"Please Select Worker Name!"_s);
    driver::accessKey('v');
    QCOMPARE(screen.jobs(), QStringList{u"2/1"_s});
    driver::type(u"*"_s);
    driver::accessKey('v');
    QCOMPARE(screen.jobs(), (QStringList{u"1/1"_s, u"2/1"_s}));
}

void WorkerJobRegisterTest::aJobIsListedByItsNumberOrItsCode_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("jobs");
    QTest::addColumn<QString>("current");
    const QStringList three{u"3/1"_s, u"3/2"_s};
    QTest::newRow("number") << u"3"_s << three << u"3/1"_s;
    QTest::newRow("scanned") << u"3/2"_s << three << u"3/2"_s;
    QTest::newRow("scanned, garment gone") << u"3/9"_s << three << QString();
    for (const QString &typed : {u"abc"_s, u"0"_s, u"40000"_s, u"99999999999"_s, u"1e300"_s, u"-3"_s, u"3.5"_s, u"'"_s})
        QTest::newRow(qPrintable(typed)) << typed << QStringList() << u" "_s;
}

void WorkerJobRegisterTest::aJobIsListedByItsNumberOrItsCode()
{
    QFETCH(const QString, typed);
    Workshop shop;
    shop.add({.job = 2});
    // Long past.
    shop.add({.job = 3, .date = {2009, 1, 1}}, 1);
    shop.add({.job = 3, .date = {2009, 1, 1}}, 2);
    shop.add({.job = 3, .inventory = true}, 3);
    Register screen;
    screen.search(typed);
    QTEST(screen.jobs(), "jobs");
    const int row = screen.list.currentRow();
    QTEST(row < 0 ? QString() : screen.list.list().cell(row, jobColumn), "current");
    // The next code is typed over it; without one the view is that of all again.
    driver::type(u"2"_s);
    driver::press(Qt::Key_Return);
    QCOMPARE(screen.jobs(), QStringList{u"2/1"_s});
    driver::press(Qt::Key_Backspace);
    screen.choose(u"*All"_s);
    QCOMPARE(screen.jobs(), QStringList{u"2/1"_s});
    QVERIFY(control<QLabel>(screen, "lblListed").text().startsWith(u"All workers"_s));
}

void WorkerJobRegisterTest::quickFindListsAClient()
{
    Workshop shop;
    shop.add({.job = 1, .client = asha});
    shop.add({.job = 2, .client = vikram});
    shop.add({.job = 3, .client = vikram, .status = rowStatus::Delivered, .date = {2012, 1, 1}});
    Register screen;
    ModalScript script;
    const auto find = [&script](bool all) {
        script.expect(u"frmSearchClient"_s, [all](QWidget &search) {
            auto &box = control<QAbstractButton>(search, "opShowAllUndel");
            if (box.isChecked() != all)
                box.click();
            control<QLineEdit>(search, "txtName").setFocus();
            driver::type(u"vik"_s);
            driver::press(Qt::Key_Return);
        });
        driver::press(Qt::Key_F, Qt::ControlModifier);
    };
    find(false);
    QCOMPARE(screen.jobs(), QStringList{u"2/1"_s});
    find(true);
    QCOMPARE(screen.jobs(), (QStringList{u"2/1"_s, u"3/1"_s}));
    script.expect(u"frmSearchClient"_s, [](QWidget &) { driver::press(Qt::Key_Escape); });
    driver::accessKey('q');
    QCOMPARE(screen.jobs(), (QStringList{u"2/1"_s, u"3/1"_s}));
}

void WorkerJobRegisterTest::marksAreWrittenAndTheUserStaysWhereHeWas_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<bool>("asksLocation");
    QTest::addColumn<QString>("written");
    const int none = Qt::Key_unknown;
    QTest::newRow("cut") << int(Qt::Key_F6) << u"Mark Item as Cutting Done"_s << false << u"4||||1|11-Apr-2011|"_s;
    QTest::newRow("completed") << int(Qt::Key_F7) << u"Mark Item as Completed"_s << true
                               << u"1|11-Apr-2011|||0|01-Apr-2011|Rack 7"_s;
    QTest::newRow("alteration") << none << u"Mark Item as Alteration"_s << true
                                << u"3||11-Apr-2011||0|01-Apr-2011|Rack 7"_s;
    QTest::newRow("delivered") << int(Qt::Key_F8) << u"Mark Item as Delivered to Client"_s << false
                               << u"2|||11-Apr-2011|0|01-Apr-2011|"_s;
}

void WorkerJobRegisterTest::marksAreWrittenAndTheUserStaysWhereHeWas()
{
    QFETCH(const int, key);
    QFETCH(const QString, caption);
    QFETCH(const bool, asksLocation);
    QFETCH(const QString, written);
    Workshop shop;
    session::CurrentDate = {2011, 4, 11};
    int middle = 0;
    for (int job = 1; job <= 3; ++job) {
        const int id = shop.add({.job = job, .status = rowStatus::Canceled});
        middle = job == 2 ? id : middle;
    }
    Register screen;
    screen.choose(u"Canceled"_s);
    screen.list.setFocus();
    driver::press(Qt::Key_Down);
    const QString untouched = shop.marked(middle);
    ModalScript script;
    const auto mark = [&](Qt::Key answer) {
        script.expectMessage(caption + u'?', answer);
        if (key == Qt::Key_unknown)
            viaMenu(screen.list, caption);
        else
            driver::press(static_cast<Qt::Key>(key));
    };
    mark(Qt::Key_Escape);
    QTRY_VERIFY(script.isDone());
    QCOMPARE(shop.marked(middle), untouched);
    if (asksLocation) {
        script.expectMessage(caption + u'?');
        script.expect(u"QInputDialog"_s, location(u"Rack 7"_s));
        key == Qt::Key_unknown ? viaMenu(screen.list, caption) : driver::press(static_cast<Qt::Key>(key));
    } else {
        mark(Qt::Key_Return);
    }
    QTRY_COMPARE(shop.marked(middle), written);
    QTRY_VERIFY(screen.isActiveWindow());
    const bool isStillListed = written.startsWith(u'4');
    QCOMPARE(
        screen.jobs(), isStillListed ? (QStringList{u"1/1"_s, u"2/1"_s, u"3/1"_s}) : (QStringList{u"1/1"_s, u"3/1"_s}));
    QCOMPARE(screen.list.list().cell(screen.list.currentRow(), jobColumn), isStillListed ? u"2/1"_s : u"3/1"_s);
    if (!asksLocation)
        return;
    // Neither blanks nor Cancel take the garment from where it hangs, and both mark it.
    for (const auto &[text, way] : {std::pair{u"   "_s, Qt::Key_Return}, std::pair{u"Rack 9"_s, Qt::Key_Escape}}) {
        session::CurrentDate = session::CurrentDate.addDays(1);
        screen.choose(u"*All"_s);
        screen.list.setCurrentRow(1);
        script.expectMessage(caption + u'?');
        script.expect(u"QInputDialog"_s, location(text, way));
        key == Qt::Key_unknown ? viaMenu(screen.list, caption) : driver::press(static_cast<Qt::Key>(key));
        QTRY_COMPARE(shop.marked(middle),
            QString(written).replace(u"11-Apr-2011"_s, QLocale::c().toString(session::CurrentDate, u"dd-MMM-yyyy")));
    }
}

void WorkerJobRegisterTest::aMarkIsUndoneWhileTheListIsOpen()
{
    Workshop shop;
    for (int job = 1; job <= 3; ++job) {
        shop.addJob({.number = job});
        shop.add({.job = job});
    }
    const QStringList before = shop.lines(u"Select * from Jobs_Detail"_s) + shop.lines(u"Select * from Jobs"_s);
    Register screen;
    screen.choose(u"Uncompleted"_s);
    screen.list.setFocus();
    screen.list.setCurrentRow(1);
    ModalScript script;
    script.expectMessage(u"Mark Item as Delivered to Client?"_s);
    driver::press(Qt::Key_F8);
    QTRY_COMPARE(screen.jobs(), (QStringList{u"1/1"_s, u"3/1"_s}));
    script.expectMessage(u"Job Card as Delivered to Client?"_s);
    viaMenu(screen.list, u"Job Card as Delivered to Client"_s);
    QTRY_COMPARE(screen.jobs(), QStringList{u"1/1"_s});
    const auto undo = [] { driver::press(Qt::Key_Z, Qt::ControlModifier); };
    screen.choose(u"Completed"_s);
    screen.list.setFocus();
    // The list asked for last is read again, whether the garment is in it or not.
    undo();
    QCOMPARE(screen.jobs(), QStringList());
    screen.choose(u"Uncompleted"_s);
    screen.list.setFocus();
    undo();
    QCOMPARE(screen.jobs(), (QStringList{u"1/1"_s, u"2/1"_s, u"3/1"_s}));
    QCOMPARE(screen.list.currentRow(), 1);
    QCOMPARE(shop.lines(u"Select * from Jobs_Detail"_s) + shop.lines(u"Select * from Jobs"_s), before);
    undo();

    script.expectMessage(u"Mark Item as Cutting Done?"_s);
    driver::press(Qt::Key_F6);
    shop.connection.execute(u"Update Jobs_Detail set DoneByWorker=3"_s);
    const QStringList changed = shop.lines(u"Select * from Jobs_Detail"_s);
    script.expectMessage(
        u"Mark Item as Cutting Done, 2/1\r\n\r\nIt has been changed since it was marked. Nothing has been undone."_s);
    undo();
    QCOMPARE(shop.lines(u"Select * from Jobs_Detail"_s), changed);
    QTRY_COMPARE(screen.jobs(), QStringList());
}

void WorkerJobRegisterTest::aMarkIsForTheRowThatWasChosen()
{
    Workshop shop;
    const int chosen = shop.add({.job = 5, .date = {2011, 4, 5}});
    Register screen;
    screen.list.setFocus();
    ModalScript script;
    // While the question stands another one comes in above it, and the list is filled anew when it is answered.
    script.expect(u"frmMsg"_s, [&shop](QWidget &) {
        shop.add({.job = 4});
        session::NeedRefresh = true;
        driver::press(Qt::Key_Return);
    });
    driver::press(Qt::Key_F8);
    QTRY_COMPARE(screen.jobs(), (QStringList{u"4/1"_s, u"5/1"_s}));
    QVERIFY(shop.marked(chosen).startsWith(u'2'));
    QVERIFY(shop.marked(chosen + 1).startsWith(u'0'));
    QVERIFY(!session::NeedRefresh);
}

void WorkerJobRegisterTest::theWholeJobIsHandedOver()
{
    Workshop shop;
    Recordset jobs(shop.connection);
    jobs.open(u"Select * from JOBS"_s);
    jobs.addNew();
    jobs.set(u"Id", 7);
    jobs.set(u"ClintID", asha);
    for (const QStringView date : {u"DATE", u"DeliveryDate", u"TrialDate", u"ClientDeliveryDate"})
        jobs.set(date, today);
    for (const QStringView number : {u"AmountDue", u"AmountPaid", u"JobFinished", u"Status"})
        jobs.set(number, 0);
    for (const QStringView text : {u"ClintName", u"Remark", u"CancelReason"})
        jobs.set(text, QString());
    jobs.update();
    shop.add({.job = 7, .status = rowStatus::Canceled}, 1);
    shop.add({.job = 7, .status = rowStatus::Completed}, 2);
    shop.add({.job = 8}, 1);
    session::CurrentDate = {2011, 4, 12};
    Register screen;
    ModalScript script;
    script.expectMessage(u"Job Card as Delivered to Client?"_s);
    screen.list.setFocus();
    viaMenu(screen.list, u"Job Card as Delivered to Client"_s);
    QTRY_COMPARE(
        driver::column(screen.list, 9).mid(0, 3), (QStringList{u"Delivered"_s, u"Delivered"_s, u"Uncompleted"_s}));
    QCOMPARE(shop.lines(u"Select DeliveryDate, ClientDeliveryDate, JOBFINISHED from Jobs"_s),
        QStringList{u"01-Apr-2011|12-Apr-2011|1"_s});
    // A card that is gone.
    shop.connection.execute(u"Delete * from Jobs"_s);
    screen.list.setCurrentRow(2);
    script.expectMessage(u"Job Card as Delivered to Client?"_s).expectMessage(u"Job Card not found!"_s);
    viaMenu(screen.list, u"Job Card as Delivered to Client"_s);
    QTRY_VERIFY(script.isDone());
    QVERIFY(shop.marked(3).startsWith(u'0'));
}

void WorkerJobRegisterTest::nothingIsMarkedWithoutARow()
{
    Workshop shop;
    Register screen;
    const auto pressAll = [&screen] {
        screen.list.setFocus();
        for (const Qt::Key key : {Qt::Key_F3, Qt::Key_F6, Qt::Key_F7, Qt::Key_F8, Qt::Key_Return})
            driver::press(key);
        QContextMenuEvent wanted(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QApplication::sendEvent(&screen.list, &wanted);
        QVERIFY(!QApplication::activePopupWidget());
        QVERIFY(!QApplication::activeModalWidget());
    };
    // A row of blanks, the total, and none at all.
    for (const int row : {0, 1, -1}) {
        screen.list.setCurrentRow(row);
        pressAll();
    }
}

void WorkerJobRegisterTest::aRowThatIsGoneIsToldAndTheListIsNew()
{
    Workshop shop;
    shop.add({.job = 1});
    shop.add({.job = 2});
    Register screen;
    shop.connection.execute(u"Delete * from Jobs_Detail where JobID=1"_s);
    const QStringList before = shop.lines(u"Select * from Jobs_Detail"_s);
    screen.list.setFocus();
    ModalScript script;
    script.expectMessage(u"Mark Item as Cutting Done?"_s);
    script.expectMessage(u"This item is no longer on its job card!"_s);
    driver::press(Qt::Key_F6);
    QTRY_COMPARE(screen.jobs(), QStringList{u"2/1"_s});
    QCOMPARE(shop.lines(u"Select * from Jobs_Detail"_s), before);
    script.expectMessage(u"Job Card not found!"_s);
    driver::press(Qt::Key_F3);
    QTRY_VERIFY(script.isDone());
}

void WorkerJobRegisterTest::aGarmentOpensAndItsCardToo()
{
    Workshop shop;
    for (int job = 1; job <= 4; ++job)
        shop.add({.job = job, .status = rowStatus::Completed});
    Register screen;
    screen.choose(u"Completed"_s);
    screen.list.setCurrentRow(1);
    screen.list.setFocus();
    ModalScript script;
    script.expect(u"frmEditWorkerAssign"_s, [&shop](QWidget &assignment) {
        QVERIFY(assignment.isVisible());
        // As its save does.
        shop.connection.execute(u"Update Jobs_Detail set DoneByWorker=2 where JobID=2"_s);
        session::NeedRefresh = true;
        driver::press(Qt::Key_Escape);
    });
    driver::press(Qt::Key_Return);
    QTRY_COMPARE(screen.jobs(), (QStringList{u"1/1"_s, u"3/1"_s, u"4/1"_s}));
    QCOMPARE(screen.list.currentRow(), 1);
    QVERIFY(!session::NeedRefresh);
}

void WorkerJobRegisterTest::piecesIgnoreTheView()
{
    Workshop shop;
    shop.add({.job = 1, .item = 1, .worker = mohan, .quantity = 2});
    shop.add({.job = 1, .item = 1, .worker = mohan, .status = rowStatus::Canceled, .quantity = 3});
    shop.add({.job = 2, .item = 1, .worker = sita, .quantity = 5, .inventory = true});
    shop.add({.job = 3, .item = 2, .worker = sita, .quantity = 0});
    // Booked outside the period, promised within.
    shop.add(
        {.job = 4, .item = 2, .worker = mohan, .date = {2011, 1, 1}, .quantity = 9}, 1, u"JobDelDate=#10-Apr-2011#"_s);
    Register screen;
    auto &details = control<ListView>(screen, "lvDetails");
    auto &panel = control<QWidget>(screen, "picDetails");
    QVERIFY(!panel.isVisible());
    driver::press(Qt::Key_D, Qt::ControlModifier);
    QVERIFY(panel.isVisible());
    control<QAbstractButton>(screen, "opDt2").click();
    screen.choose(u"Completed"_s);
    const QList<QStringList> all{{u"Coat"_s, u"10"_s}};
    QCOMPARE(driver::rows(details), all);
    driver::accessKey('w');
    driver::type(u"moh"_s);
    driver::press(Qt::Key_Return);
    const QList<QStringList> ofMohan{{u"Coat"_s, u"5"_s}};
    QCOMPARE(driver::rows(details), ofMohan);
    QCOMPARE(screen.GetItemWiseDetails(1), 5);
    QCOMPARE(screen.GetItemWiseDetails(2), 0);
    screen.search(u"1"_s);
    QVERIFY(driver::rows(details).isEmpty());
    control<QAbstractButton>(screen, "Image1").click();
    QVERIFY(!panel.isVisible());
}

void WorkerJobRegisterTest::theOverviewChoosesAWorker()
{
    Workshop shop;
    shop.add({.job = 1, .worker = mohan});
    shop.add({.job = 2, .worker = sita});
    Register screen;
    ModalScript script;
    script.expect(u"frmWorkerReport2"_s, [](QWidget &) { driver::press(Qt::Key_Escape); });
    driver::accessKey('o');
    QCOMPARE(screen.jobs(), (QStringList{u"1/1"_s, u"2/1"_s}));
    script.expect(u"frmWorkerReport2"_s, [](QWidget &overview) {
        QCOMPARE(driver::rows(control<ListView>(overview, "lvSummary")).last().join(u'|'), u"2|Sita|1"_s);
        driver::press(Qt::Key_Down);
        driver::press(Qt::Key_Return);
    });
    driver::accessKey('o');
    QCOMPARE(screen.jobs(), QStringList{u"2/1"_s});
    QCOMPARE(control<kvComboBox>(screen, "cmbClient").Text(), u"Sita"_s);
}

void WorkerJobRegisterTest::whoGetsAnotherNameStaysListed()
{
    Workshop shop;
    shop.add({.job = 1, .worker = mohan});
    Register screen;
    driver::accessKey('w');
    driver::type(u"moh"_s);
    driver::press(Qt::Key_Return);
    QCOMPARE(screen.jobs(), QStringList{u"1/1"_s});
    // By another program.
    shop.connection.execute(u"Update Accounts set Title='Mohan Lal' where Title='Mohan'"_s);
    screen.choose(u"Uncompleted"_s);
    QCOMPARE(screen.jobs(), QStringList{u"1/1"_s});
    QVERIFY(control<QLabel>(screen, "lblListed").text().startsWith(u"Mohan, Uncompleted"_s));
    ModalScript script;
    script.expectMessage(u"Please Select Worker Name!"_s);
    driver::accessKey('v');
    QTRY_VERIFY(script.isDone());
    QVERIFY(control<kvComboBox>(screen, "cmbClient").hasFocus());
    driver::type(u"moh"_s);
    driver::press(Qt::Key_Return);
    QCOMPARE(screen.jobs(), QStringList{u"1/1"_s});
}

void WorkerJobRegisterTest::datesThatAreNoneAreRefused()
{
    Workshop shop;
    shop.add({.job = 1});
    Register screen;
    ModalScript script;
    screen.setPeriod(u"10/4/2011"_s, u"9/4/2011"_s);
    script.expectBox(u"Invalid date selection!"_s);
    driver::accessKey('v');
    QCOMPARE(screen.jobs(), QStringList{u"1/1"_s});
    // A filter asks nothing: the last day becomes the first.
    screen.choose(u"Completed"_s);
    QVERIFY(control<QLabel>(screen, "lblListed").text().endsWith(u"10-Apr-2011 to 10-Apr-2011"_s));
}

CORVANE_TEST(WorkerJobRegisterTest)
#include "tst_frmWorkerJobRegister.moc"
