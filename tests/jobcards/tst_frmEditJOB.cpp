#include "jobcards/frmEditJOB.h"

#include "OrderDesk.h"
#include "base/session.h"
#include "store/lookups.h"
#include "store/settings.h"
#include "ui/ListView.h"
#include "ui/kvComboBox.h"

#include <QApplication>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <sqlite3.h>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// The order desk, worked by keys.
class EditJobTest : public QObject {
    Q_OBJECT

private slots:
    void aCardIsBookedClosedOpenedAndChangedByKeysAlone();
    void aFreshCardTakesItsDatesFromTheSession();
    void theChecksComeInTheirOrder();
    void theAdvanceAndItsAccountAreSetRightOnLeaving();
    void numbersTypedByHandMustBeFree();
    void storedTotalsAreShownAsTheyAre();
    void notesTellOfTrialAndDelivery();
    void theGreetingTellsVisitAndBalance();
    void removeCopyAndClear();
    void theMenuOfAnItemHasItsCommands();
    void enterAloneLeadsThroughAFreshCard();
    void clearedRowsAreSavedAllTheSame();
    void oneSavedRowIsRemovedPerSave();
    void deletingAsksFirst();
    void newOpensAFreshCardAfterThisOne();
    void theReasonPanelOpensAndCloses();
    void keysMoveThroughTheScreen();
    void aSaveThatFailsLeavesTheCardOnTheScreen();
    void aSaveOfUnknownOutcomeGetsNoOtherNumber();
    void aNumberUsedByAnotherProgramGivesWayToTheNext();
};

namespace {

/// A disk on which a journal can be made, and from its removal on neither removed nor opened.
class StuckJournal {
public:
    StuckJournal()
    {
        m_isStuck = false;
        replace("open", reinterpret_cast<sqlite3_syscall_ptr>(open));
        replace("unlink", reinterpret_cast<sqlite3_syscall_ptr>(unlink));
    }
    ~StuckJournal()
    {
        replace("open", nullptr);
        replace("unlink", nullptr);
    }
    Q_DISABLE_COPY_MOVE(StuckJournal)

private:
    static void replace(const char *call, sqlite3_syscall_ptr function)
    {
        sqlite3_vfs *system = sqlite3_vfs_find(nullptr);
        QCOMPARE(system->xSetSystemCall(system, call, function), SQLITE_OK);
    }
    static bool isJournal(const char *path) { return QByteArrayView(path).endsWith("-journal"); }
    static int fail()
    {
        errno = EIO;
        return -1;
    }
    static int open(const char *path, int flags, int mode)
    {
        return m_isStuck && isJournal(path) ? fail() : ::open(path, flags, mode);
    }
    static int unlink(const char *path)
    {
        m_isStuck = m_isStuck || isJournal(path);
        return m_isStuck ? fail() : ::unlink(path);
    }

    static inline bool m_isStuck = false;
};

const QString created = u"New Job Created."_s;

QLineEdit &field(const QWidget &screen, const char *name)
{
    return control<QLineEdit>(screen, name);
}

QString text(const QWidget &screen, const char *name)
{
    return field(screen, name).text();
}

kvComboBox &cmbClient(const QWidget &screen)
{
    return control<kvComboBox>(screen, "cmbClient");
}

kvComboBox &cmbAccount(const QWidget &screen)
{
    return control<kvComboBox>(screen, "cmbAccount");
}

ListView &items(const QWidget &screen)
{
    return control<ListView>(screen, "lvItems");
}

QString itemNames(const QWidget &screen)
{
    return driver::column(items(screen), 0).join(u' ');
}

/// Total, advance and what is left.
QString amounts(const QWidget &screen)
{
    return text(screen, "txtAmountDue") + u' ' + text(screen, "txtAmountPaid") + u' ' + text(screen, "txtAmount");
}

QString label(const QWidget &screen, const char *name)
{
    return control<QLabel>(screen, name).text();
}

void click(const QWidget &screen, const char *command)
{
    control<QPushButton>(screen, command).click();
}

bool showEdit(int jobID)
{
    bool deleted = false;
    frmEditJOB().ShowEdit(jobID, deleted);
    return deleted;
}

} // namespace

void EditJobTest::aCardIsBookedClosedOpenedAndChangedByKeysAlone()
{
    OrderDesk desk;
    onCard(0, [](QWidget &screen, ModalScript &script) {
        QCOMPARE(screen.windowTitle(), u"Create New Job Card"_s);
        QCOMPARE(focused(), u"cmbClient"_s);
        type(u"ash"_s);
        QCOMPARE(cmbClient(screen).currentText(), u"Asha Rao"_s);
        press(Qt::Key_Return);
        QCOMPARE(label(screen, "lblLastvisit"), u"Welcome Asha Rao"_s);
        script.expect(u"frmAddItem"_s, [](QWidget &) {
            type(u"co\r41.5\r36"_s);
            accessKey('o');
        });
        accessKey('a');
        QCOMPARE(driver::rows(items(screen)).value(0).join(u'|'), u"Coat||1|400.00|400.00"_s);
        field(screen, "txtAmountPaid").setFocus();
        type(u"150\rcas\r"_s);
        QCOMPARE(text(screen, "txtAmount"), u"250.00"_s);
        tells(script, 's', created);
        QCOMPARE(screen.windowTitle(), u"Edit JOB Card"_s);
        QCOMPARE(text(screen, "txtJOBID"), u"1"_s);
    });
    QCOMPARE(desk.lines(u"Select ID, ClintName, AmountDue, AmountPaid, CashAccID from JOBS"_s),
        QStringList{u"1|Asha Rao|400|150|4"_s});
    QCOMPARE(desk.lines(u"Select ItemName, QNT, ItemDetails, ItemDetailsValue, color from JOBS_DETAIL"_s),
        QStringList{u"Coat|1|Chest\r\nWaist|41.5\r\n36|16777215"_s});
    QCOMPARE(GetAccountBalance(5, session::CurrentDate), -250.0);

    onCard(1, [](QWidget &screen, ModalScript &script) {
        press(Qt::Key_I, Qt::ControlModifier);
        QCOMPARE(focused(), u"lvItems"_s);
        script.expect(u"frmAddItem"_s, [](QWidget &editor) {
            field(editor, "txtQnt").setFocus();
            type(u"3"_s);
            accessKey('o');
        });
        press(Qt::Key_Return);
        QCOMPARE(text(screen, "txtAmountDue"), u"1200.00"_s);
        saveEdit(script);
    });
    QCOMPARE(desk.lines(u"Select AmountDue from JOBS"_s), QStringList{u"1200"_s});
    QCOMPARE(
        desk.lines(u"Select QNT, Amount, ItemDetailsValue from JOBS_DETAIL"_s), QStringList{u"3|1200|41.5\r\n36"_s});
    QCOMPARE(GetAccountBalance(5, session::CurrentDate), -1050.0);
}

void EditJobTest::aFreshCardTakesItsDatesFromTheSession()
{
    OrderDesk desk;
    SaveSetting(setting::DeliveryMargin, u"7"_s);
    SaveSetting(setting::FirstJobNumber, u"501"_s);
    onCard(0, [](QWidget &screen, ModalScript &) {
        const std::pair<const char *, QString> dates[]{
            {"JobDate", u"10-Apr-2011"_s}, {"DateDel", u"17-Apr-2011"_s}, {"DateTrial", u"10-Apr-2011"_s}};
        for (const auto &[name, date] : dates)
            QCOMPARE(control<QDateEdit>(screen, name).text(), date);
        QCOMPARE(text(screen, "txtJOBID"), u"501"_s);
        QVERIFY(field(screen, "txtJOBID").isReadOnly());
        QCOMPARE(label(screen, "lblLastvisit"), u"Welcome to Kovrel"_s);
        QCOMPARE(driver::entries(cmbClient(screen)), QStringList{u"Asha Rao"_s});
        QCOMPARE(driver::entries(cmbAccount(screen)).join(u'|'), u"Cash|Sales"_s);
        accessKey('d');
    });
    QCOMPARE(desk.count(u"JOBS"_s), 0);
}

void EditJobTest::theChecksComeInTheirOrder()
{
    OrderDesk desk;
    onCard(0, [](QWidget &screen, ModalScript &script) {
        const auto refuses = [&script](char command, const QString &message, const QString &where) {
            tells(script, command, message);
            QCOMPARE(focused(), where);
        };
        for (const QString &nobody : {QString(), u"sha Rao"_s}) {
            cmbClient(screen).setText(nobody);
            for (const char command : {'a', 's'})
                refuses(command, u"Please Select Client!"_s, u"cmbClient"_s);
        }
        type(u"a\r"_s);
        refuses('s', u"Please Add Item!"_s, u"Command4"_s);
        script.expect(u"frmAddItem"_s, [](QWidget &) { press(Qt::Key_Escape); });
        accessKey('a');
        QCOMPARE(focused(), u"cmbAccount"_s);
        addItem(script);
        field(screen, "txtAmountPaid").setFocus();
        type(u"1x.0.0"_s);
        QCOMPARE(text(screen, "txtAmountPaid"), u"1.00"_s);
        refuses('s', u"Please Select Receipt Account!"_s, u"cmbAccount"_s);
        field(screen, "txtAmountPaid").setText({});
        tells(script, 's', created);
        QCOMPARE(text(screen, "txtAmountPaid"), u"0"_s);
    });
    QCOMPARE(desk.lines(u"Select AmountPaid, CashAccID from JOBS"_s), QStringList{u"0|0"_s});
}

void EditJobTest::theAdvanceAndItsAccountAreSetRightOnLeaving()
{
    OrderDesk desk;
    desk.book(u"1"_s);
    onCard(1, [](QWidget &screen, ModalScript &script) {
        field(screen, "txtAmountPaid").setFocus();
        type(u"1600"_s);
        QCOMPARE(amounts(screen), u"1600.00 1600 1500.00"_s);
        press(Qt::Key_Tab);
        QCOMPARE(amounts(screen), u"1600.00 1600 0.00"_s);
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        type(u"1600.01\t"_s);
        QCOMPARE(amounts(screen), u"1600.00 1600.00 0.00"_s);
        cmbAccount(screen).setFocus();
        type(u"sal\b"_s);
        QCOMPARE(cmbAccount(screen).currentText(), u"Sal"_s);
        press(Qt::Key_Escape);
        saveEdit(script);
        QCOMPARE(cmbAccount(screen).currentText(), u"Sales"_s);
    });
    QCOMPARE(desk.lines(u"Select CashAccID from JOBS"_s), QStringList{u"2"_s});
}

void EditJobTest::numbersTypedByHandMustBeFree()
{
    OrderDesk desk;
    desk.book(u"1"_s);
    desk.book(u"2"_s);
    SaveSetting(setting::ManualJobNumber, u"1"_s);
    onCard(2, [](QWidget &screen, ModalScript &script) {
        QCOMPARE(focused(), u"txtJOBID"_s);
        for (const QString &number : {u"32768"_s, u"0"_s, u"1.5"_s}) {
            field(screen, "txtJOBID").setText(number);
            tells(script, 's', u"Job ID must be a number from 1 to 32767!"_s);
            QCOMPARE(focused(), u"txtJOBID"_s);
        }
        type(u"1a"_s);
        QCOMPARE(text(screen, "txtJOBID"), u"1"_s);
        tells(script, 's', u"Duplicate Job ID!"_s);
        QCOMPARE(focused(), u"txtJOBID"_s);
        type(u"2"_s);
        saveEdit(script);
        field(screen, "txtJOBID").setFocus();
        type(u"77"_s);
        saveEdit(script);
    });
    QCOMPARE(desk.lines(u"Select ID from JOBS"_s), QStringList({u"1"_s, u"77"_s}));
    onCard(0, [](QWidget &screen, ModalScript &script) {
        QCOMPARE(text(screen, "txtJOBID"), u"78"_s);
        type(u"77\r"_s);
        QCOMPARE(focused(), u"JobDate"_s);
        type(u"\rAsha"_s);
        addItem(script);
        tells(script, 's', u"Duplicate Job ID!"_s);
    });
    QCOMPARE(desk.count(u"JOBS"_s), 2);
}

void EditJobTest::storedTotalsAreShownAsTheyAre()
{
    OrderDesk desk;
    clsJobCardData rows = desk.rows(2);
    for (int i = 1; i <= 2; ++i)
        rows.SetAmount(i, 37.035);
    JobCardStore().SaveNew(desk.card(u"1"_s), rows);
    desk.connection.execute(u"update JOBS set AmountDue=999.5, AmountPaid=12.25"_s);
    desk.connection.execute(u"update Items set NAME='Overcoat'"_s);
    onCard(1, [](QWidget &screen, ModalScript &script) {
        QCOMPARE(amounts(screen), u"999.50 12.25 987.25"_s);
        for (const QStringList &row : driver::rows(items(screen)))
            QCOMPARE(row.join(u'|'), u"Overcoat|Wool|2|400.00|37.04"_s);
        // The total is that of the amounts themselves.
        static_cast<frmEditJOB &>(screen).DoTotal();
        QCOMPARE(text(screen, "txtAmountDue"), u"74.07"_s);
        saveEdit(script);
    });
    // The rows keep the name that they were booked under.
    QCOMPARE(desk.lines(u"Select ItemName from JOBS_DETAIL"_s), QStringList({u"Coat"_s, u"Coat"_s}));
}

void EditJobTest::notesTellOfTrialAndDelivery()
{
    const QString waiting = u"Not Appeared for Trial"_s;
    const struct {
        QString state;
        QString trial;
        QString delivery;
    } cases[]{
        {u"appeared=0"_s, waiting, {}},
        {u"appeared=1, appearedDate=#12-Apr-2011#"_s, u"Appeared for Trial 12-Apr-2011"_s, {}},
        {u"appeared=1"_s, {}, {}},
        {u"appeared=2"_s, u"Trial Canceled"_s, {}},
        {u"JobFinished=1, ClientDeliveryDate=#20-Apr-2011#"_s, waiting, u"Delivered to Client : 20-Apr-2011"_s},
        {u"JobFinished=1"_s, waiting, {}},
        {u"ClientDeliveryDate=#20-Apr-2011#"_s, waiting, {}},
    };
    for (const auto &entry : cases) {
        OrderDesk desk;
        desk.book(u"1"_s);
        desk.connection.execute(u"update JOBS set "_s + entry.state);
        onCard(1, [&entry](QWidget &screen, ModalScript &) {
            QCOMPARE(label(screen, "lblTrialInfo"), entry.trial);
            QCOMPARE(label(screen, "lblDelDate"), entry.delivery);
        });
    }
}

void EditJobTest::theGreetingTellsVisitAndBalance()
{
    const QString visit = u"Welcome back Asha Rao, Your previous visit was: 10-Apr-2011  (1 month, 1 day"_s;
    const std::pair<double, QString> cases[]{{1350, visit + u"  ago ) , Job # 1 , Due Balance : 250.00 Dr"_s},
        {1600, visit + u"  ago )  , Job # 1"_s}, {1650, visit + u"  ago ) , Job # 1 , Due Balance : -50.00 Cr"_s}};
    for (const auto &entry : cases) {
        OrderDesk desk;
        desk.book(u"1"_s);
        desk.addPosting(5, QDate(2011, 5, 1), entry.first - 100);
        session::CurrentDate = {2011, 5, 11};
        onCard(0, [&entry](QWidget &screen, ModalScript &) {
            type(u"asha\r"_s);
            QCOMPARE(label(screen, "lblLastvisit"), entry.second);
            cmbClient(screen).setText({});
            cmbClient(screen).setFocus();
            press(Qt::Key_Return);
            QCOMPARE(label(screen, "lblLastvisit"), entry.second);
        });
    }
}

void EditJobTest::removeCopyAndClear()
{
    OrderDesk desk;
    desk.addItem(u"Shirt"_s, {}, 300, 80);
    onCard(0, [](QWidget &screen, ModalScript &script) {
        type(u"asha"_s);
        addItem(script, u"Coat"_s, 2);
        addItem(script, u"Shirt"_s);
        QCOMPARE(text(screen, "txtAmountDue"), u"1100.00"_s);
        press(Qt::Key_I, Qt::ControlModifier);
        press(Qt::Key_Home);
        accessKey('c');
        QCOMPARE(itemNames(screen), u"Coat Shirt Coat"_s);
        QCOMPARE(text(screen, "txtAmountDue"), u"1900.00"_s);
        // Elsewhere Del is the field's.
        field(screen, "txtRemark").setFocus();
        press(Qt::Key_Delete);
        QCOMPARE(itemNames(screen), u"Coat Shirt Coat"_s);
        press(Qt::Key_I, Qt::ControlModifier);
        press(Qt::Key_Delete);
        QCOMPARE(itemNames(screen), u"Coat Shirt"_s);
        // With the last row gone the totals stay, and saving asks for an item.
        for (const QString &total : {u"1100.00"_s, u"800.00"_s, u"800.00"_s}) {
            QCOMPARE(text(screen, "txtAmountDue"), total);
            click(screen, "Command5");
        }
        tells(script, 's', u"Please Add Item!"_s);
    });
    QCOMPARE(desk.count(u"JOBS"_s), 0);
}

void EditJobTest::theMenuOfAnItemHasItsCommands()
{
    OrderDesk desk;
    desk.book(u"1"_s);
    onCard(1, [](QWidget &screen, ModalScript &script) {
        const auto choose = [&list = items(screen)](int entry) {
            press(Qt::Key_I, Qt::ControlModifier);
            emit list.menuWanted(list.mapToGlobal(QPoint()));
            QVERIFY(QApplication::activePopupWidget());
            while (entry-- > 0)
                press(Qt::Key_Down);
            press(Qt::Key_Return);
            QTRY_VERIFY(!QApplication::activePopupWidget());
        };
        script.expect(u"frmAddItem"_s, [](QWidget &) { press(Qt::Key_Escape); });
        choose(0);
        QTRY_VERIFY(script.isDone());
        choose(1);
        QTRY_COMPARE(itemNames(screen), u"Coat Coat"_s);
        choose(2);
        QTRY_COMPARE(itemNames(screen), u"Coat"_s);
        QCOMPARE(text(screen, "txtAmountDue"), u"800.00"_s);
        choose(3);
        QTRY_COMPARE(itemNames(screen), QString());
        QCOMPARE(text(screen, "txtAmountDue"), u"800.00"_s);
    });
}

void EditJobTest::enterAloneLeadsThroughAFreshCard()
{
    OrderDesk desk;
    onCard(0, [](QWidget &screen, ModalScript &script) {
        // The dates and the list that has no row yet, to what adds one.
        type(u"a\r\r\r\r"_s);
        QCOMPARE(focused(), u"Command4"_s);
        for (int i = 0; i < 2; ++i) {
            expectItem(script);
            press(Qt::Key_Return);
        }
        QCOMPARE(text(screen, "txtAmountDue"), u"800.00"_s);
        press(Qt::Key_Tab);
        QCOMPARE(focused(), u"txtAmountPaid"_s);
        // Nothing received, nothing suggested.
        press(Qt::Key_Return);
        QCOMPARE(cmbAccount(screen).Text(), QString());
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        type(u"50\r"_s);
        QCOMPARE(cmbAccount(screen).Text(), QString());
        type(u"cas\r\r\r\r\r"_s);
        QCOMPARE(focused(), u"Command1"_s);
        script.expectMessage(created);
        press(Qt::Key_Return);
        // One Enter too many saves nothing again.
        press(Qt::Key_Return);
        QVERIFY(script.isDone());
    });
    QCOMPARE(desk.lines(u"Select AmountDue, AmountPaid, CashAccID from JOBS"_s), QStringList{u"800|50|4"_s});
    onCard(1, [](QWidget &screen, ModalScript &script) {
        cmbAccount(screen).setText({});
        field(screen, "txtAmountPaid").setFocus();
        script.expectMessage(u"Please Select Receipt Account!"_s);
        accessKey('s');
        // Whoever chose none chooses now.
        QCOMPARE(focused(), u"cmbAccount"_s);
        QCOMPARE(cmbAccount(screen).Text(), QString());
    });
    // What was chosen then is suggested now, by the name that it has today; what is chosen already stays.
    desk.connection.execute(u"update Accounts set Title='Till' where id=4"_s);
    onCard(1, [](QWidget &screen, ModalScript &) {
        cmbAccount(screen).setText({});
        field(screen, "txtAmountPaid").setFocus();
        type(u"5\r"_s);
        QCOMPARE(cmbAccount(screen).Text(), u"Till"_s);
        cmbAccount(screen).setText(u"Sales"_s);
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        press(Qt::Key_Return);
        QCOMPARE(cmbAccount(screen).Text(), u"Sales"_s);
    });
}

void EditJobTest::clearedRowsAreSavedAllTheSame()
{
    OrderDesk desk;
    desk.addItem(u"Shirt"_s, {}, 300, 80);
    desk.book(u"1"_s, 2);
    onCard(1, [](QWidget &screen, ModalScript &script) {
        // What was removed before is forgotten.
        click(screen, "Command5");
        click(screen, "Command6");
        QCOMPARE(text(screen, "txtAmountDue"), u"800.00"_s);
        addItem(script, u"Shirt"_s);
        QCOMPARE(text(screen, "txtAmountDue"), u"300.00"_s);
        saveEdit(script);
    });
    QCOMPARE(
        desk.lines(u"Select Id, ItemName, ItemSr from JOBS_DETAIL"_s).join(u' '), u"1|Coat|1 2|Coat|1 3|Shirt|2"_s);
    QCOMPARE(desk.lines(u"Select AmountDue from JOBS"_s), QStringList{u"300"_s});
}

void EditJobTest::oneSavedRowIsRemovedPerSave()
{
    OrderDesk desk;
    desk.book(u"1"_s, 3);
    onCard(1, [](QWidget &screen, ModalScript &script) {
        ListView &list = items(screen);
        const auto remove = [&](int row) {
            list.setCurrentRow(row);
            click(screen, "Command5");
        };
        remove(0);
        script.expectMessage(u"Please Save the Job Card before removing another Item!"_s);
        remove(0);
        saveEdit(script);
        remove(0);
        saveEdit(script);
        QCOMPARE(text(screen, "txtAmountDue"), u"800.00"_s);

        // Rows that were never saved go as they came, before a saved one and after it.
        addItem(script);
        addItem(script);
        remove(2);
        remove(1);
        addItem(script);
        remove(0);
        remove(0);
        QCOMPARE(itemNames(screen), QString());
        addItem(script);
        saveEdit(script);
    });
    QCOMPARE(desk.lines(u"Select Id, ItemSr from JOBS_DETAIL"_s), QStringList{u"4|1"_s});
}

void EditJobTest::deletingAsksFirst()
{
    OrderDesk desk;
    desk.book(u"1"_s);
    ModalScript script;
    script.expect(u"frmEditJOB"_s, [&script](QWidget &) {
        script.expectMessage(u"Are you sure to Delete!"_s, Qt::Key_Escape);
        accessKey('d');
        press(Qt::Key_Escape);
    });
    QVERIFY(!showEdit(1));
    QCOMPARE(desk.count(u"JOBS"_s), 1);
    script.expect(u"frmEditJOB"_s, [&script](QWidget &) {
        script.expectMessage(u"Are you sure to Delete!"_s).expectMessage(u"Deleted."_s);
        accessKey('d');
    });
    QVERIFY(showEdit(1));
    QVERIFY(session::NeedRefresh);
    QCOMPARE(desk.count(u"JOBS"_s) + desk.count(u"JOBS_DETAIL"_s) + desk.count(u"postings"_s), 0);
    // As where another program did it.
    script.expectMessage(u"Job Card not found!"_s);
    QVERIFY(showEdit(1));
}

void EditJobTest::newOpensAFreshCardAfterThisOne()
{
    OrderDesk desk;
    desk.book(u"1"_s);
    ModalScript script;
    script.expect(u"frmEditJOB"_s, [](QWidget &) { accessKey('n'); });
    script.expect(u"frmEditJOB"_s, [](QWidget &screen) {
        QCOMPARE(screen.windowTitle(), u"Create New Job Card"_s);
        QCOMPARE(text(screen, "txtJOBID"), u"2"_s);
        QCOMPARE(itemNames(screen), QString());
        press(Qt::Key_Escape);
    });
    QVERIFY(!showEdit(1));
}

void EditJobTest::theReasonPanelOpensAndCloses()
{
    OrderDesk desk;
    desk.book(u"1"_s);
    onCard(1, [](QWidget &screen, ModalScript &script) {
        QVERIFY(!field(screen, "txtCancel").isVisible());
        click(screen, "Command8");
        QCOMPARE(focused(), u"txtCancel"_s);
        type(u"moved"_s);
        click(screen, "Command12");
        QVERIFY(!field(screen, "txtCancel").isVisible());
        QCOMPARE(focused(), u"chStatus"_s);
        press(Qt::Key_Space);
        saveEdit(script);
    });
    QCOMPARE(desk.lines(u"Select Status, CancelReason from JOBS"_s), QStringList{u"1|Moved"_s});
    QCOMPARE(GetAccountBalance(5, session::CurrentDate), 0.0);
}

void EditJobTest::keysMoveThroughTheScreen()
{
    OrderDesk desk;
    desk.book(u"1"_s);
    onCard(1, [](QWidget &, ModalScript &) {
        QStringList way{focused()};
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_PageDown, Qt::Key_Return, Qt::Key_PageDown, Qt::Key_PageUp,
                 Qt::Key_PageUp, Qt::Key_PageUp, Qt::Key_PageUp, Qt::Key_PageUp}) {
            press(key);
            way += focused();
        }
        QCOMPARE(way.join(u' '),
            u"cmbClient DateDel DateTrial lvItems Command4 lvItems DateTrial DateDel cmbClient JobDate"_s);
    });
}

void EditJobTest::aSaveThatFailsLeavesTheCardOnTheScreen()
{
    for (const bool full : {true, false}) {
        OrderDesk desk;
        Connection other;
        other.open(desk.path());
        onCard(0, [&](QWidget &screen, ModalScript &script) {
            type(u"Asha"_s);
            addItem(script, u"Coat"_s, 3);
            field(screen, "txtRemark").setText(QString(full ? 50000 : 5, u'x'));
            if (full)
                desk.connection.define(u"PRAGMA max_page_count = "_s + desk.lines(u"PRAGMA page_count"_s).first());
            else
                other.define(u"begin immediate"_s);
            script.expectBox(
                (full ? u"There is not enough space on the disk."_s : u"The file is in use by another program."_s)
                + u"\n\nNothing of this entry was written. When the cause is mended, it can be entered again.\n\n"_s
                + desk.path());
            accessKey('s');
            QVERIFY(driver::waitActive(screen));
            QCOMPARE(screen.windowTitle(), u"Create New Job Card"_s);
            QCOMPARE(text(screen, "txtAmountDue"), u"1200.00"_s);
            if (full)
                desk.connection.define(u"PRAGMA max_page_count = 100000"_s);
            else
                other.define(u"rollback"_s);
            QCOMPARE(desk.count(u"JOBS"_s) + desk.count(u"JOBS_DETAIL"_s) + desk.count(u"Postings"_s), 0);
            tells(script, 's', created);
            QCOMPARE(screen.windowTitle(), u"Edit JOB Card"_s);
        });
        QCOMPARE(desk.lines(u"Select ID, AmountDue from JOBS"_s), QStringList{u"1|1200"_s});
        QCOMPARE(desk.count(u"JOBS_DETAIL"_s), 1);
        QCOMPARE(desk.count(u"Postings"_s), 2);
    }
}

void EditJobTest::aSaveOfUnknownOutcomeGetsNoOtherNumber()
{
    OrderDesk desk;
    onCard(0, [&desk](QWidget &screen, ModalScript &script) {
        type(u"Asha"_s);
        addItem(script, u"Coat"_s, 3);
        {
            const StuckJournal disk;
            script.expectBox(u"The disk failed: the file cannot be read or written.\n\n"
                             "It is not known whether this entry was written. Look before you enter it again.\n\n"_s
                + desk.path());
            accessKey('s');
            QVERIFY(driver::waitActive(screen));
        }
        QCOMPARE(screen.windowTitle(), u"Create New Job Card"_s);
        // Without its journal the card stands there.
        QVERIFY(QFile::remove(desk.path() + u"-journal"_s));
        for (int again = 0; again < 2; ++again) {
            tells(script, 's',
                u"Duplicate Job ID!\r\nIt may be this card, of which it was not known whether it was written.\r\n"
                "Look at that card before you enter this one again."_s);
            QCOMPARE(text(screen, "txtJOBID"), u"1"_s);
        }
    });
    QCOMPARE(desk.lines(u"Select ID, AmountDue from JOBS"_s), QStringList{u"1|1200"_s});
}

void EditJobTest::aNumberUsedByAnotherProgramGivesWayToTheNext()
{
    OrderDesk desk;
    desk.book(u"1"_s);
    onCard(0, [&desk](QWidget &screen, ModalScript &script) {
        QCOMPARE(text(screen, "txtJOBID"), u"2"_s);
        type(u"Asha"_s);
        addItem(script);
        Connection other;
        other.open(desk.path());
        other.execute(u"Update JOBS set Id=2"_s);
        tells(script, 's', u"Duplicate Job ID!"_s);
        QCOMPARE(text(screen, "txtJOBID"), u"3"_s);
        tells(script, 's', created);
    });
    QCOMPARE(desk.lines(u"Select ID from JOBS"_s), QStringList({u"2"_s, u"3"_s}));
}

CORVANE_TEST(EditJobTest)
#include "tst_frmEditJOB.moc"
