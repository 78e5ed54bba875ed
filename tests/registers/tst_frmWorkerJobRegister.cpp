#include "registers/frmWorkerJobRegister.h"

#include "WorkDesk.h"
#include "base/session.h"
#include "store/codes.h"
#include "ui/ListView.h"
#include "ui/kvComboBox.h"

#include <QAbstractButton>
#include <QInputDialog>
#include <QLineEdit>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;

/// The shop's working list: what it lists, filters and counts, and the marks given in it.
class WorkerJobRegisterTest : public QObject {
    Q_OBJECT

private slots:
    void aRowTellsAllOfItsGarment();
    void eachFilterKeepsItsRowsAndCountsThem();
    void thePeriodIsOfBookingOrDelivery();
    void aWorkerIsListedAndAPrefixChoosesHim();
    void aJobIsListedByItsNumberOrItsCode();
    void quickFindListsAClient();
    void marksAreWrittenAndTheUserStaysWhereHeWas();
    void aMarkIsUndoneWhileTheListIsOpen();
    void whatChangesMeanwhileIsListedAndToldWhereItIsGone();
    void piecesIgnoreTheView();
};

namespace {

const QDate today{2011, 4, 1};

struct Shop : Workshop {
    [[nodiscard]] QString marked(int row)
    {
        return lines(
            u"Select DoneByWorker, CompletedDate, AltDate, DelToCustDate, CuttingStatus, CuttingDate, Loc from "
            "Jobs_Detail where id="_s
            + QString::number(row))
            .value(0);
    }
    [[nodiscard]] QStringList all() { return lines(u"Select * from Jobs_Detail"_s) + lines(u"Select * from Jobs"_s); }
};

struct Register : frmWorkerJobRegister {
    Register() { QVERIFY(driver::show(*this)); }

    void goTo(int row)
    {
        list.setFocus();
        list.setCurrentRow(row);
    }

    ListView &list = listOf(*this);
};

ModalScript::Action location(const QString &text, Qt::Key key = Qt::Key_Return)
{
    return [text, key](QWidget &box) {
        QCOMPARE(dynamic_cast<QInputDialog &>(box).labelText(), u"Please specify location!"_s);
        driver::type(text);
        press(key);
    };
}

void undo()
{
    press(Qt::Key_Z, Qt::ControlModifier);
}

} // namespace

void WorkerJobRegisterTest::aRowTellsAllOfItsGarment()
{
    Shop shop;
    shop.connection.execute(u"Update Accounts set Mobile='98290', City='Jaipur' where id=5"_s);
    shop.addPosting(Shop::Asha, today, -250);
    shop.addPosting(Shop::Asha, today.addDays(1), 1000);
    shop.add({.job = 12, .worker = Shop::Mohan, .status = rowStatus::Alteration, .quantity = 3}, 2,
        u"JobDelDate=#29-Mar-2011#, CuttingStatus=1, Loc='Rack 2'"_s);
    shop.add({.job = 12, .client = Shop::Vikram, .item = 2}, 3, u"JobDelDate=#02-Apr-2011#"_s);
    shop.add({.job = 12, .inventory = true}, 4);
    // What is gone or unknown is blank.
    shop.add({.job = 13, .client = 99, .item = 99, .worker = 98, .status = 7}, 1, u"CuttingStatus=null"_s);
    const Register screen;
    const QStringList expected{
        u"01-Apr-2011|12/2|Asha Rao|3|Coat|Blue|29-Mar-2011 (-3 D)|Mohan|Done|Alteration|Rack 2|250.00 Dr"_s,
        u"01-Apr-2011|12/3|Vikram Mehta|1|Shirt|Blue|02-Apr-2011 (1 D)|NA|Not Done|Uncompleted| |None"_s,
        u"01-Apr-2011|13/1||1||Blue|01-Apr-2011 (0 D)|||| |None"_s};
    for (int row = 0; row < 3; ++row)
        QCOMPARE(driver::rows(screen.list).at(row).join(u'|'), expected.at(row));
    QCOMPARE(listed(screen), u"12/2 12/3 13/1"_s);
    const ListModel &list = screen.list.list();
    QCOMPARE(list.index(0, 2).data(Qt::ToolTipRole).toString(), u"98290      Jaipur    "_s);
    QCOMPARE(list.index(0, 7).data(Qt::ToolTipRole).toString(), u"No Information Found"_s);
    QVERIFY(list.index(1, 7).data(Qt::ToolTipRole).toString().isEmpty());
    // Overdue by more than a colour, and a sign beside each status; the total in its own column.
    QVERIFY(list.index(0, 6).data(Qt::FontRole).value<QFont>().bold());
    QVERIFY(!list.index(1, 6).data(Qt::FontRole).value<QFont>().bold());
    QVERIFY(!list.index(1, 9).data(Qt::DecorationRole).value<QIcon>().isNull());
    QCOMPARE(list.cell(4, 2), u"Total JOBS : 3"_s);
    QVERIFY(list.index(4, 2).data(Qt::FontRole).value<QFont>().bold());
}

void WorkerJobRegisterTest::eachFilterKeepsItsRowsAndCountsThem()
{
    const std::pair<QString, QString> filters[]{{u"Completed"_s, u"2"_s}, {u"Uncompleted"_s, u"1"_s},
        {u"Delivered"_s, u"3"_s}, {u"Alteration"_s, u"4"_s}, {u"Canceled"_s, u"5"_s}, {u"Assigned"_s, u"4 5"_s},
        {u"Not Assigned"_s, u"1 2 3"_s}, {u"Cutting Done"_s, u"2 4"_s}, {u"Cutting Not Done"_s, u"1 3 5"_s},
        {u"*All"_s, u"1 2 3 4 5"_s}};
    Shop shop;
    shop.addOfEachStatus(today);
    Register screen;
    for (const auto &[word, jobs] : filters) {
        filter(screen, word);
        QCOMPARE(listed(screen), jobs);
        // It stays in force for the next view, but not for a job that is looked for.
        accessKey('v');
        QCOMPARE(listed(screen), jobs);
        search(u"1"_s);
        QCOMPARE(listed(screen), u"1"_s);
        press(Qt::Key_Backspace);
    }
}

void WorkerJobRegisterTest::thePeriodIsOfBookingOrDelivery()
{
    Shop shop;
    const auto add = [&shop](int job, int place, QDate booked, const QString &promised) {
        shop.add({.job = job, .date = booked}, place, u"JobDelDate=#%1#"_s.arg(promised));
    };
    add(4, 0, {2011, 4, 10}, u"20-Apr-2011"_s);
    add(5, 0, {2011, 4, 11}, u"20-Apr-2011"_s);
    add(3, 1, {2011, 4, 6}, u"10-Apr-2011"_s);
    add(3, 2, {2011, 4, 6}, u"11-Apr-2011"_s);
    add(2, 0, {2011, 4, 5}, u"04-Apr-2011"_s);
    add(1, 0, {2011, 4, 4}, u"05-Apr-2011"_s);
    const std::pair<QList<const char *>, QString> options[]{{{}, u"2 3/1 3/2 4"_s}, {{"OpDesc"}, u"4 3/1 3/2 2"_s},
        {{"opDt2"}, u"1 3/1"_s}, {{"opDt2", "OpDesc"}, u"3/1 1"_s}};
    for (const auto &[chosen, jobs] : options) {
        Register screen;
        for (const char *option : chosen)
            control<QAbstractButton>(screen, option).click();
        enter('f', u"5/4/2011"_s);
        enter('t', u"10/4/2011\t"_s);
        accessKey('v');
        QCOMPARE(listed(screen), jobs);
        ModalScript script;
        enter('t', u"4/4/2011\t"_s);
        script.expectBox(u"Invalid date selection!"_s);
        accessKey('v');
        QCOMPARE(listed(screen), jobs);
        // A filter asks nothing: the last day becomes the first.
        filter(screen, u"Completed"_s);
        QVERIFY(listTitle(screen).endsWith(u"05-Apr-2011 to 05-Apr-2011"_s));
    }
}

void WorkerJobRegisterTest::aWorkerIsListedAndAPrefixChoosesHim()
{
    Shop shop;
    shop.add({.job = 1, .worker = Shop::Mohan});
    shop.add({.job = 2, .worker = Shop::Sita});
    shop.add({.job = 3, .worker = Shop::Sita, .date = {2011, 6, 1}});
    Register screen;
    ModalScript script;
    // The overview chooses one too.
    script.expect(u"frmWorkerReport2"_s, [](QWidget &overview) {
        QCOMPARE(driver::rows(listOf(overview)).last().join(u'|'), u"2|Sita|1"_s);
        press(Qt::Key_Down);
        press(Qt::Key_Return);
    });
    accessKey('o');
    QCOMPARE(listed(screen), u"2"_s);
    QCOMPARE(control<kvComboBox>(screen, "cmbClient").Text(), u"Sita"_s);
    pickWorker(u"moh"_s);
    QCOMPARE(listed(screen), u"1"_s);
    QVERIFY(listTitle(screen).startsWith(u"Mohan"_s));
    // Given another name by another program, he stays listed.
    shop.connection.execute(u"Update Accounts set Title='Mohan Lal' where Title='Mohan'"_s);
    filter(screen, u"Uncompleted"_s);
    QCOMPARE(listed(screen), u"1"_s);
    QVERIFY(listTitle(screen).startsWith(u"Mohan, Uncompleted"_s));
    script.expectMessage(u"Please Select Worker Name!"_s);
    accessKey('v');
    QVERIFY(control<kvComboBox>(screen, "cmbClient").hasFocus());
    pickWorker(u"*"_s);
    QCOMPARE(listed(screen), u"1 2"_s);
}

void WorkerJobRegisterTest::aJobIsListedByItsNumberOrItsCode()
{
    Shop shop;
    shop.add({.job = 2});
    // Long past.
    shop.add({.job = 3, .date = {2009, 1, 1}}, 1);
    shop.add({.job = 3, .date = {2009, 1, 1}}, 2);
    shop.add({.job = 3, .inventory = true}, 3);
    struct Search {
        QString typed;
        QString jobs;
        QString current;
    };
    const QString both = u"3/1 3/2"_s;
    Register screen;
    for (const auto &[typed, jobs, current] :
        {Search{u"3"_s, both, u"3/1"_s}, {u"3/2"_s, both, u"3/2"_s}, {u"3/9"_s, both, {}}, {u"abc"_s, {}, u" "_s},
            {u"0"_s, {}, u" "_s}, {u"40000"_s, {}, u" "_s}, {u"-3"_s, {}, u" "_s}, {u"3.5"_s, {}, u" "_s}}) {
        search(typed);
        QCOMPARE(listed(screen), jobs);
        const int row = screen.list.currentRow();
        QCOMPARE(row < 0 ? QString() : screen.list.list().cell(row, 1), current);
        // The next code is typed over it.
        driver::type(u"2\r"_s);
        QCOMPARE(listed(screen), u"2"_s);
    }
    // Without one the view is that of all again.
    press(Qt::Key_Backspace);
    filter(screen, u"Uncompleted"_s);
    QCOMPARE(listed(screen), u"2"_s);
    QVERIFY(listTitle(screen).startsWith(u"All workers"_s));
}

void WorkerJobRegisterTest::quickFindListsAClient()
{
    Shop shop;
    shop.add({.job = 1});
    shop.add({.job = 2, .client = Shop::Vikram});
    shop.add({.job = 3, .client = Shop::Vikram, .status = rowStatus::Delivered, .date = {2012, 1, 1}});
    Register screen;
    ModalScript script;
    for (const bool all : {false, true}) {
        script.expect(u"frmSearchClient"_s, [all](QWidget &search) {
            control<QAbstractButton>(search, "opShowAllUndel").setChecked(all);
            control<QLineEdit>(search, "txtName").setFocus();
            driver::type(u"vik\r"_s);
        });
        press(Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(listed(screen), all ? u"2 3"_s : u"2"_s);
    }
    script.expect(u"frmSearchClient"_s, [](QWidget &) { press(Qt::Key_Escape); });
    accessKey('q');
    QCOMPARE(listed(screen), u"2 3"_s);
}

void WorkerJobRegisterTest::marksAreWrittenAndTheUserStaysWhereHeWas()
{
    const struct {
        Qt::Key key;
        QString caption;
        QString written;
    } marks[]{
        {Qt::Key_F6, u"Mark Item as Cutting Done"_s, u"4||||1|11-Apr-2011|"_s},
        {Qt::Key_F7, u"Mark Item as Completed"_s, u"1|11-Apr-2011|||0|01-Apr-2011|Rack 7"_s},
        {Qt::Key_unknown, u"Mark Item as Alteration"_s, u"3||11-Apr-2011||0|01-Apr-2011|Rack 7"_s},
        {Qt::Key_F8, u"Mark Item as Delivered to Client"_s, u"2|||11-Apr-2011|0|01-Apr-2011|"_s},
    };
    for (const auto &mark : marks) {
        Shop shop;
        session::CurrentDate = {2011, 4, 11};
        for (int job = 1; job <= 3; ++job)
            shop.add({.job = job, .status = rowStatus::Canceled});
        Register screen;
        ModalScript script;
        const auto give = [&] { mark.key == Qt::Key_unknown ? viaMenu(screen, mark.caption) : press(mark.key); };
        filter(screen, u"Canceled"_s);
        screen.goTo(1);
        const QString untouched = shop.marked(2);
        script.expectMessage(mark.caption + u'?', Qt::Key_Escape);
        give();
        QTRY_VERIFY(script.isDone());
        QCOMPARE(shop.marked(2), untouched);
        script.expectMessage(mark.caption + u'?');
        const bool asksLocation = mark.written.endsWith(u"Rack 7");
        if (asksLocation)
            script.expect(u"QInputDialog"_s, location(u"Rack 7"_s));
        give();
        QTRY_COMPARE(shop.marked(2), mark.written);
        QTRY_VERIFY(screen.isActiveWindow());
        const bool isStillListed = mark.written.startsWith(u'4');
        QCOMPARE(listed(screen), isStillListed ? u"1 2 3"_s : u"1 3"_s);
        QCOMPARE(screen.list.list().cell(screen.list.currentRow(), 1), isStillListed ? u"2/0"_s : u"3/0"_s);
        // Neither blanks nor Cancel take the garment from where it hangs, and both mark it.
        const std::pair<QString, Qt::Key> nowhere[]{{u"   "_s, Qt::Key_Return}, {u"Rack 9"_s, Qt::Key_Escape}};
        for (int day = 12; asksLocation && day <= 13; ++day) {
            session::CurrentDate = {2011, 4, day};
            filter(screen, u"*All"_s);
            screen.goTo(1);
            script.expectMessage(mark.caption + u'?');
            script.expect(u"QInputDialog"_s, location(nowhere[day - 12].first, nowhere[day - 12].second));
            give();
            QTRY_COMPARE(shop.marked(2), QString(mark.written).replace(u"11-Apr"_s, u"%1-Apr"_s.arg(day)));
        }
    }
}

void WorkerJobRegisterTest::aMarkIsUndoneWhileTheListIsOpen()
{
    Shop shop;
    for (int job = 1; job <= 3; ++job) {
        shop.addJob({.number = job});
        shop.add({.job = job});
    }
    const QStringList before = shop.all();
    Register screen;
    ModalScript script;
    filter(screen, u"Uncompleted"_s);
    screen.goTo(1);
    script.expectMessage(u"Mark Item as Delivered to Client?"_s);
    press(Qt::Key_F8);
    QTRY_COMPARE(listed(screen), u"1 3"_s);
    script.expectMessage(u"Job Card as Delivered to Client?"_s);
    viaMenu(screen, u"Job Card as Delivered to Client"_s);
    QTRY_COMPARE(listed(screen), u"1"_s);
    filter(screen, u"Completed"_s);
    screen.list.setFocus();
    // The list asked for last is read again, whether the garment is in it or not.
    undo();
    QCOMPARE(listed(screen), QString());
    filter(screen, u"Uncompleted"_s);
    screen.list.setFocus();
    undo();
    QCOMPARE(listed(screen), u"1 2 3"_s);
    QCOMPARE(screen.list.currentRow(), 1);
    QCOMPARE(shop.all(), before);
    undo();

    script.expectMessage(u"Mark Item as Cutting Done?"_s);
    press(Qt::Key_F6);
    shop.connection.execute(u"Update Jobs_Detail set DoneByWorker=3"_s);
    const QStringList changed = shop.all();
    script.expectMessage(
        u"Mark Item as Cutting Done, 2/0\r\n\r\nIt has been changed since it was marked. Nothing has been undone."_s);
    undo();
    QCOMPARE(shop.all(), changed);
    QTRY_COMPARE(listed(screen), QString());
}

void WorkerJobRegisterTest::whatChangesMeanwhileIsListedAndToldWhereItIsGone()
{
    Shop shop;
    for (int job = 1; job <= 3; ++job)
        shop.add({.job = job});
    Register screen;
    filter(screen, u"Uncompleted"_s);
    screen.goTo(1);
    ModalScript script;
    script.expect(u"frmEditWorkerAssign"_s, [&shop](QWidget &) {
        // As its save does.
        shop.connection.execute(u"Update Jobs_Detail set DoneByWorker=2 where JobID=2"_s);
        session::NeedRefresh = true;
        press(Qt::Key_Escape);
    });
    press(Qt::Key_Return);
    QTRY_COMPARE(listed(screen), u"1 3"_s);
    QCOMPARE(screen.list.currentRow(), 1);
    QVERIFY(!session::NeedRefresh);

    shop.connection.execute(u"Delete * from Jobs_Detail where JobID=3"_s);
    const QStringList before = shop.all();
    script.expectMessage(u"Mark Item as Cutting Done?"_s);
    script.expectMessage(u"This item is no longer on its job card!"_s);
    press(Qt::Key_F6);
    QTRY_COMPARE(listed(screen), u"1"_s);
    screen.goTo(0);
    script.expectMessage(u"Job Card not found!"_s);
    press(Qt::Key_F3);
    QTRY_VERIFY(script.isDone());
    script.expectMessage(u"Job Card as Delivered to Client?"_s).expectMessage(u"Job Card not found!"_s);
    viaMenu(screen, u"Job Card as Delivered to Client"_s);
    QTRY_VERIFY(script.isDone());
    QCOMPARE(shop.all(), before);
}

void WorkerJobRegisterTest::piecesIgnoreTheView()
{
    Shop shop;
    shop.add({.job = 1, .worker = Shop::Mohan, .quantity = 2});
    shop.add({.job = 1, .worker = Shop::Mohan, .status = rowStatus::Canceled, .quantity = 3});
    shop.add({.job = 2, .worker = Shop::Sita, .quantity = 5, .inventory = true});
    shop.add({.job = 3, .item = 2, .worker = Shop::Sita, .quantity = 0});
    // Booked outside the period, promised within.
    shop.add({.job = 4, .item = 2, .worker = Shop::Mohan, .date = {2011, 1, 1}, .quantity = 9}, 0,
        u"JobDelDate=#10-Apr-2011#"_s);
    Register screen;
    auto &panel = control<QWidget>(screen, "picDetails");
    const auto pieces = [&screen] {
        QStringList lines;
        for (const QStringList &row : driver::rows(control<ListView>(screen, "lvDetails")))
            lines += row.join(u' ');
        return lines.join(u'|');
    };
    QVERIFY(!panel.isVisible());
    press(Qt::Key_D, Qt::ControlModifier);
    QVERIFY(panel.isVisible());
    control<QAbstractButton>(screen, "opDt2").click();
    filter(screen, u"Completed"_s);
    QCOMPARE(pieces(), u"Coat 10"_s);
    pickWorker(u"moh"_s);
    QCOMPARE(pieces(), u"Coat 5"_s);
    QCOMPARE(screen.GetItemWiseDetails(2), 0);
    search(u"1"_s);
    QCOMPARE(pieces(), QString());
    control<QAbstractButton>(screen, "Image1").click();
    QVERIFY(!panel.isVisible());
}

CORVANE_TEST(WorkerJobRegisterTest)
#include "tst_frmWorkerJobRegister.moc"
