#include "jobcards/frmEditJOB.h"

#include "OrderDesk.h"
#include "base/session.h"
#include "jobcards/ScrollingText.h"
#include "store/settings.h"
#include "support/PseudoTerminal.h"
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
    void theChecksComeInTheirOrder();
    void theAdvanceAndItsAccountAreSetRightOnLeaving();
    void numbersTypedByHandMustBeFree();
    void storedTotalsAreShownAsTheyAre();
    void notesTellOfTrialAndDelivery();
    void theGreetingTellsVisitAndBalance();
    void aLongGreetingIsReadFromItsBeginningAndMovesOn();
    void removeCopyAndClear();
    void theMenuOfAnItemHasItsCommands();
    void enterAloneLeadsThroughAFreshCard();
    void clearedRowsAreSavedAllTheSame();
    void oneSavedRowIsRemovedPerSave();
    void deletingAsksFirst();
    void newOpensAFreshCardAfterThisOne();
    void theReasonPanelOpensAndCloses();
    void aSaveThatFailsLeavesTheCardOnTheScreen();
    void aSaveOfUnknownOutcomeGetsNoOtherNumber();
    void aNumberUsedByAnotherProgramGivesWayToTheNext();
    void quickFindAndForecastComeBackToTheCard();
    void aNewClientIsAddedOnTheSpot();
    void theClientIsOfferedAMessage();
    void theMessageTellsNumberAndBalance();
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
const QString offer = u"This Job has been registered.\r\nWould you like to Inform Client via SMS?"_s;

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
    SaveSetting(setting::DeliveryMargin, u"7"_s);
    onCard(0, [](QWidget &screen, ModalScript &script) {
        QCOMPARE(screen.windowTitle(), u"Create New Job Card"_s);
        QCOMPARE(label(screen, "lblLastvisit"), u"Welcome to Kovrel"_s);
        QStringList dates;
        for (const char *name : {"JobDate", "DateDel", "DateTrial"})
            dates += control<QDateEdit>(screen, name).text();
        QCOMPARE(dates.join(u' '), u"10-Apr-2011 17-Apr-2011 10-Apr-2011"_s);
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
    QCOMPARE(
        desk.lines(u"Select QNT, Amount, ItemDetailsValue from JOBS_DETAIL"_s), QStringList{u"3|1200|41.5\r\n36"_s});
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
        addItem(script);
        field(screen, "txtAmountPaid").setFocus();
        type(u"1"_s);
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
        tells(script, 's', u"Duplicate Job ID!"_s);
        QCOMPARE(focused(), u"txtJOBID"_s);
        for (const QString &free : {u"2"_s, u"77"_s}) {
            field(screen, "txtJOBID").setFocus();
            type(free);
            saveEdit(script);
        }
    });
    QCOMPARE(desk.lines(u"Select ID from JOBS"_s), QStringList({u"1"_s, u"77"_s}));
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
        });
    }
}

void EditJobTest::aLongGreetingIsReadFromItsBeginningAndMovesOn()
{
    ScrollingText greeting(u"lblLastvisit"_s);
    greeting.resize(700, greeting.height());
    QVERIFY(driver::show(greeting));
    const auto &line = control<QLabel>(greeting, "lblLastvisit");
    greeting.setText(u"Welcome back "_s + QString(140, u'm'));
    const int place = line.x();
    QVERIFY(place >= 0 && place < 20);
    greeting.restart();
    // In from the right, to its place soon, and on.
    QVERIFY(line.x() >= greeting.width());
    QTRY_VERIFY_WITH_TIMEOUT(line.x() == place, 2000);
    QTRY_VERIFY_WITH_TIMEOUT(line.x() < place - 5, 8000);
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
        const QStringList after{u"Coat Coat"_s, u"Coat"_s, {}};
        for (int entry = 1; entry <= 3; ++entry) {
            choose(entry);
            QTRY_COMPARE(itemNames(screen), after.at(entry - 1));
        }
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
    // What was chosen then is suggested now; what is chosen already stays.
    onCard(1, [](QWidget &screen, ModalScript &) {
        for (const auto &[chosen, after] : {std::pair(QString(), u"Cash"_s), {u"Sales"_s, u"Sales"_s}}) {
            cmbAccount(screen).setText(chosen);
            field(screen, "txtAmountPaid").setFocus();
            type(u"5\r"_s);
            QCOMPARE(cmbAccount(screen).Text(), after);
        }
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
    desk.book(u"1"_s, 2);
    onCard(1, [](QWidget &screen, ModalScript &script) {
        const auto remove = [&](int row) {
            items(screen).setCurrentRow(row);
            click(screen, "Command5");
        };
        remove(0);
        script.expectMessage(u"Please Save the Job Card before removing another Item!"_s);
        remove(0);
        saveEdit(script);
        QCOMPARE(text(screen, "txtAmountDue"), u"800.00"_s);

        // Rows that were never saved go as they came, before a saved one and after it.
        addItem(script);
        addItem(script);
        remove(2);
        remove(0);
        remove(0);
        QCOMPARE(itemNames(screen), QString());
        addItem(script);
        saveEdit(script);
    });
    QCOMPARE(desk.lines(u"Select Id, ItemSr from JOBS_DETAIL"_s), QStringList{u"3|1"_s});
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
}

void EditJobTest::aSaveThatFailsLeavesTheCardOnTheScreen()
{
    OrderDesk desk;
    Connection other;
    other.open(desk.path());
    onCard(0, [&](QWidget &screen, ModalScript &script) {
        type(u"Asha"_s);
        addItem(script, u"Coat"_s, 3);
        other.define(u"begin immediate"_s);
        script.expectBox(
            u"The file is in use by another program.\n\nNothing of this entry was written. When the cause is mended, "
            "it can be entered again.\n\n"_s
            + desk.path());
        accessKey('s');
        QVERIFY(driver::waitActive(screen));
        QCOMPARE(screen.windowTitle(), u"Create New Job Card"_s);
        QCOMPARE(text(screen, "txtAmountDue"), u"1200.00"_s);
        other.define(u"rollback"_s);
        QCOMPARE(desk.count(u"JOBS"_s) + desk.count(u"JOBS_DETAIL"_s) + desk.count(u"Postings"_s), 0);
        tells(script, 's', created);
        QCOMPARE(screen.windowTitle(), u"Edit JOB Card"_s);
    });
    QCOMPARE(desk.lines(u"Select ID, AmountDue from JOBS"_s), QStringList{u"1|1200"_s});
    QCOMPARE(desk.count(u"JOBS_DETAIL"_s), 1);
    QCOMPARE(desk.count(u"Postings"_s), 2);
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

void EditJobTest::quickFindAndForecastComeBackToTheCard()
{
    OrderDesk desk;
    desk.addAccount(u"Ravi Jain"_s);
    onCard(0, [](QWidget &screen, ModalScript &script) {
        script.expect(u"frmSearchClient"_s, [](QWidget &) { type(u"jain\r"_s); });
        accessKey('q');
        QCOMPARE(cmbClient(screen).Text(), u"Ravi Jain"_s);
        QCOMPARE(focused(), u"cmbClient"_s);
        press(Qt::Key_Return);
        QCOMPARE(label(screen, "lblLastvisit"), u"Welcome Ravi Jain"_s);
        // Given up, the search leaves the client.
        script.expect(u"frmSearchClient"_s, [](QWidget &) { press(Qt::Key_Escape); });
        accessKey('q');
        QCOMPARE(cmbClient(screen).Text(), u"Ravi Jain"_s);
        script.expect(u"frmDDP"_s, [](QWidget &) { press(Qt::Key_Escape); });
        click(screen, "Command11");
    });
}

void EditJobTest::aNewClientIsAddedOnTheSpot()
{
    OrderDesk desk;
    onCard(0, [](QWidget &screen, ModalScript &script) {
        type(u"as"_s);
        script.expect(u"frmEditClients"_s, [](QWidget &) {
            type(u"Meera O'Brien"_s);
            accessKey('s');
        });
        script.expectMessage(u"New Client Created."_s);
        press(Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(cmbClient(screen).Text(), u"Meera O'Brien"_s);
        QCOMPARE(focused(), u"cmbClient"_s);
        // Nothing saved: the name saved before stands again.
        script.expect(u"frmEditClients"_s, [](QWidget &) { press(Qt::Key_Escape); });
        press(Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(cmbClient(screen).Text(), u"Meera O'Brien"_s);
        addItem(script);
        tells(script, 's', created);
        // Elsewhere the keys select all, as everywhere.
        field(screen, "txtRemark").setFocus();
        press(Qt::Key_A, Qt::ControlModifier);
    });
    QCOMPARE(desk.lines(u"Select ClintName from JOBS"_s), QStringList{u"Meera O'Brien"_s});
}

void EditJobTest::theClientIsOfferedAMessage()
{
    const QString failed = u"Mobile Number Not Found!\r\nSMS Sending has been Failed."_s;
    const struct {
        QString wanted;
        QString mobile;
        Qt::Key answer;
        QString told;
    } cases[]{{u"No"_s, u"98290"_s, Qt::Key_unknown, {}}, {u"Yes"_s, u"98290"_s, Qt::Key_Escape, {}},
        {u"Yes"_s, {}, Qt::Key_Return, failed},
        // Anything but "No" makes the offer.
        {u"no"_s, u"98290"_s, Qt::Key_Return, {}}};
    for (const auto &entry : cases) {
        OrderDesk desk;
        desk.book(u"1"_s);
        SaveSetting(setting::SendJobNumber, entry.wanted);
        SaveSetting(setting::ModemPort, u"3"_s);
        desk.connection.execute(u"update Accounts set Mobile='%1' where id=5"_s.arg(entry.mobile));
        const PseudoTerminal modem;
        onCard(1, [&entry](QWidget &, ModalScript &script) {
            script.expectMessage(u"Job Edited."_s);
            if (entry.answer != Qt::Key_unknown)
                script.expectMessage(offer, entry.answer);
            if (!entry.told.isEmpty())
                script.expectMessage(entry.told);
            accessKey('s');
            QVERIFY(script.isDone());
        });
        QCOMPARE(modem.received().contains("98290"), entry.answer == Qt::Key_Return && entry.told.isEmpty());
    }
}

void EditJobTest::theMessageTellsNumberAndBalance()
{
    OrderDesk desk;
    SaveSetting(setting::SendJobNumber, u"Yes"_s);
    SaveSetting(setting::ModemPort, u"1"_s);
    SaveSetting(setting::BookedSms, u"%eid%: %amount%"_s);
    SaveSetting(setting::SmsTitle, u"Kovrel"_s);
    SaveSetting(setting::PrintAfterSave, u"1"_s);
    desk.connection.execute(u"update Accounts set Mobile='098290 12345' where id=5"_s);
    const PseudoTerminal modem;
    onCard(0, [](QWidget &screen, ModalScript &script) {
        cmbClient(screen).setText(u"Asha Rao"_s);
        addItem(script, u"co"_s, 2);
        field(screen, "txtAmountPaid").setFocus();
        type(u"100.5\rcash"_s);
        // The card is printed before the offer.
        script.expectMessage(created);
        script.expect(u"ReportPreview"_s, [](QWidget &) { press(Qt::Key_Escape); });
        script.expectMessage(offer);
        accessKey('s');
    });
    QCOMPARE(modem.received(), QByteArray("AT+CMGF=1\rAT+CMGS=\"9829012345\"\r1: 699.5\rKovrel\x1a"));
}

CORVANE_TEST(EditJobTest)
#include "tst_frmEditJOB.moc"
