#include "jobcards/frmEditJOB.h"

#include "OrderDesk.h"
#include "base/session.h"
#include "store/DataEnvironment.h"
#include "store/lookups.h"
#include "store/settings.h"
#include "support/ModalScript.h"
#include "support/expectFault.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/ListView.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QDateEdit>
#include <QLabel>
#include <QPushButton>
#include <QTest>

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
    void aReceiptAccountIsCompletedFromItsBeginning();
    void anAdvanceAboveTheTotalIsCutOnLeaving();
    void numbersTypedByHandMustBeFree();
    void storedTotalsAreShownAsTheyAre();
    void notesTellOfTrialAndDelivery_data();
    void notesTellOfTrialAndDelivery();
    void theGreetingTellsVisitAndBalance_data();
    void theGreetingTellsVisitAndBalance();
    void removeCopyAndClear();
    void theMenuOfAnItemHasItsCommands();
    void enterAloneLeadsThroughAFreshCard();
    void clearedRowsAreSavedAllTheSame();
    void clearForgetsWhatWasRemoved();
    void oneSavedRowIsRemovedPerSave();
    void theTotalIsThatOfTheAmountsThemselves();
    void aClientThatIsNobodyIsAskedFor();
    void deletingAsksFirst();
    void newOpensAFreshCardAfterThisOne();
    void theReasonPanelOpensAndCloses();
    void keysMoveThroughTheScreen();
    void aNumberBeyondTheRangeIsToldAtTheField();
    void aSaveThatFailsLeavesTheCardOnTheScreen_data();
    void aSaveThatFailsLeavesTheCardOnTheScreen();
    void aSaveOfUnknownOutcomeGetsNoOtherNumber();
    void aNumberUsedByAnotherProgramGivesWayToTheNext();
    void aCardThatAnotherProgramDeletedIsTold();
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

QString text(const QWidget &screen, const char *name)
{
    return control<QLineEdit>(screen, name).text();
}

kvComboBox &cmbClient(const QWidget &screen)
{
    return control<kvComboBox>(screen, "cmbClient");
}

kvComboBox &cmbAccount(const QWidget &screen)
{
    return control<kvComboBox>(screen, "cmbAccount");
}

QString greeting(const QWidget &screen)
{
    return control<QLabel>(screen, "lblLastvisit").text();
}

} // namespace

void EditJobTest::aCardIsBookedClosedOpenedAndChangedByKeysAlone()
{
    OrderDesk desk;
    ModalScript script;
    onCard(script, 0, [&script](QWidget &screen) {
        QCOMPARE(screen.windowTitle(), u"Create New Job Card"_s);
        QCOMPARE(focused(), u"cmbClient"_s);
        type(u"ash"_s);
        QCOMPARE(cmbClient(screen).currentText(), u"Asha Rao"_s);
        press(Qt::Key_Return);
        QCOMPARE(greeting(screen), u"Welcome Asha Rao"_s);
        script.expect(u"frmAddItem"_s, [](QWidget &) {
            type(u"co"_s);
            press(Qt::Key_Return);
            type(u"41.5"_s);
            press(Qt::Key_Return);
            type(u"36"_s);
            accessKey('o');
        });
        accessKey('a');
        QCOMPARE(driver::rows(control<QAbstractItemView>(screen, "lvItems")),
            QList<QStringList>{QStringList({u"Coat"_s, QString(), u"1"_s, u"400.00"_s, u"400.00"_s})});
        control<kvTextBox>(screen, "txtAmountPaid").setFocus();
        type(u"150"_s);
        press(Qt::Key_Return);
        type(u"cas"_s);
        press(Qt::Key_Return);
        QCOMPARE(text(screen, "txtAmount"), u"250.00"_s);
        script.expectMessage(u"New Job Created."_s);
        accessKey('s');
        QCOMPARE(screen.windowTitle(), u"Edit JOB Card"_s);
        QCOMPARE(text(screen, "txtJOBID"), u"1"_s);
    });
    QCOMPARE(desk.lines(u"Select ID, ClintName, AmountDue, AmountPaid, CashAccID from JOBS"_s),
        QStringList{u"1|Asha Rao|400|150|4"_s});
    QCOMPARE(desk.lines(u"Select ItemName, QNT, ItemDetails, ItemDetailsValue, color from JOBS_DETAIL"_s),
        QStringList{u"Coat|1|Chest\r\nWaist|41.5\r\n36|16777215"_s});
    QCOMPARE(GetAccountBalance(5, session::CurrentDate), -250.0);

    onCard(script, 1, [&script](QWidget &screen) {
        press(Qt::Key_I, Qt::ControlModifier);
        QCOMPARE(focused(), u"lvItems"_s);
        script.expect(u"frmAddItem"_s, [](QWidget &editor) {
            control<kvTextBox>(editor, "txtQnt").setFocus();
            type(u"3"_s);
            accessKey('o');
        });
        press(Qt::Key_Return);
        QCOMPARE(text(screen, "txtAmountDue"), u"1200.00"_s);
        script.expectMessage(u"Job Edited."_s);
        accessKey('s');
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
    ModalScript script;
    onCard(script, 0, [](QWidget &screen) {
        QCOMPARE(control<QDateEdit>(screen, "JobDate").date(), QDate(2011, 4, 10));
        QCOMPARE(control<QDateEdit>(screen, "DateDel").date(), QDate(2011, 4, 17));
        QCOMPARE(control<QDateEdit>(screen, "DateTrial").date(), QDate(2011, 4, 10));
        QCOMPARE(control<QDateEdit>(screen, "DateDel").text(), u"17-Apr-2011"_s);
        QCOMPARE(text(screen, "txtJOBID"), u"501"_s);
        QVERIFY(control<QLineEdit>(screen, "txtJOBID").isReadOnly());
        QCOMPARE(greeting(screen), u"Welcome to Kovrel"_s);
        QCOMPARE(driver::entries(control<QComboBox>(screen, "cmbClient")), QStringList{u"Asha Rao"_s});
        QCOMPARE(driver::entries(control<QComboBox>(screen, "cmbAccount")), QStringList({u"Cash"_s, u"Sales"_s}));
        accessKey('d');
    });
    // A number that is none begins at 1.
    for (const QString &none : {u"0"_s, QString(), u"-3"_s}) {
        SaveSetting(setting::FirstJobNumber, none);
        onCard(script, 0, [](QWidget &screen) { QCOMPARE(text(screen, "txtJOBID"), u"1"_s); });
    }
    QCOMPARE(desk.count(u"JOBS"_s), 0);
}

void EditJobTest::theChecksComeInTheirOrder()
{
    OrderDesk desk;
    ModalScript script;
    onCard(script, 0, [&script](QWidget &screen) {
        script.expectMessage(u"Please Select Client!"_s);
        accessKey('s');
        QCOMPARE(focused(), u"cmbClient"_s);
        script.expectMessage(u"Please Select Client!"_s);
        accessKey('a');
        QCOMPARE(focused(), u"cmbClient"_s);
        type(u"a"_s);
        press(Qt::Key_Return);
        script.expectMessage(u"Please Add Item!"_s);
        accessKey('s');
        QCOMPARE(focused(), u"Command4"_s);
        script.expect(u"frmAddItem"_s, [](QWidget &) { press(Qt::Key_Escape); });
        accessKey('a');
        QCOMPARE(focused(), u"cmbAccount"_s);
        expectItem(script, u"Coat"_s, u"1"_s);
        accessKey('a');
        control<QLineEdit>(screen, "txtAmountPaid").setFocus();
        type(u"1x.0.0"_s);
        QCOMPARE(text(screen, "txtAmountPaid"), u"1.00"_s);
        script.expectMessage(u"Please Select Receipt Account!"_s);
        accessKey('s');
        QCOMPARE(focused(), u"cmbAccount"_s);
        control<QLineEdit>(screen, "txtAmountPaid").setText({});
        script.expectMessage(u"New Job Created."_s);
        accessKey('s');
        QCOMPARE(text(screen, "txtAmountPaid"), u"0"_s);
    });
    QCOMPARE(desk.lines(u"Select AmountPaid, CashAccID from JOBS"_s), QStringList{u"0|0"_s});
}

void EditJobTest::aReceiptAccountIsCompletedFromItsBeginning()
{
    OrderDesk desk;
    desk.book(u"1"_s);
    ModalScript script;
    onCard(script, 1, [&script](QWidget &screen) {
        auto &account = control<kvComboBox>(screen, "cmbAccount");
        account.setFocus();
        type(u"sal"_s);
        press(Qt::Key_Backspace);
        QCOMPARE(account.currentText(), u"Sal"_s);
        press(Qt::Key_Escape);
        script.expectMessage(u"Job Edited."_s);
        accessKey('s');
        QCOMPARE(account.currentText(), u"Sales"_s);
    });
    QCOMPARE(desk.lines(u"Select CashAccID from JOBS"_s), QStringList{u"2"_s});
}

void EditJobTest::anAdvanceAboveTheTotalIsCutOnLeaving()
{
    OrderDesk desk;
    desk.book(u"1"_s);
    ModalScript script;
    onCard(script, 1, [](QWidget &screen) {
        control<QLineEdit>(screen, "txtAmountPaid").setFocus();
        type(u"1600"_s);
        QCOMPARE(text(screen, "txtAmount"), u"1500.00"_s);
        press(Qt::Key_Tab);
        QCOMPARE(text(screen, "txtAmountPaid"), u"1600"_s);
        QCOMPARE(text(screen, "txtAmount"), u"0.00"_s);
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        type(u"1600.01"_s);
        press(Qt::Key_Tab);
        QCOMPARE(text(screen, "txtAmountPaid"), u"1600.00"_s);
        QCOMPARE(text(screen, "txtAmount"), u"0.00"_s);
    });
}

void EditJobTest::numbersTypedByHandMustBeFree()
{
    OrderDesk desk;
    desk.book(u"1"_s);
    desk.book(u"2"_s);
    SaveSetting(setting::ManualJobNumber, u"1"_s);
    ModalScript script;
    onCard(script, 2, [&script](QWidget &screen) {
        QCOMPARE(focused(), u"txtJOBID"_s);
        type(u"1a"_s);
        QCOMPARE(text(screen, "txtJOBID"), u"1"_s);
        script.expectMessage(u"Duplicate Job ID!"_s);
        accessKey('s');
        QCOMPARE(focused(), u"txtJOBID"_s);
        type(u"2"_s);
        script.expectMessage(u"Job Edited."_s);
        accessKey('s');
        control<QLineEdit>(screen, "txtJOBID").setFocus();
        type(u"77"_s);
        script.expectMessage(u"Job Edited."_s);
        accessKey('s');
    });
    QCOMPARE(desk.lines(u"Select ID from JOBS"_s), QStringList({u"1"_s, u"77"_s}));
    onCard(script, 0, [&script](QWidget &screen) {
        QCOMPARE(text(screen, "txtJOBID"), u"78"_s);
        type(u"77"_s);
        press(Qt::Key_Return);
        QCOMPARE(focused(), u"JobDate"_s);
        press(Qt::Key_Return);
        type(u"Asha"_s);
        expectItem(script, u"Coat"_s, u"1"_s);
        accessKey('a');
        script.expectMessage(u"Duplicate Job ID!"_s);
        accessKey('s');
    });
    QCOMPARE(desk.count(u"JOBS"_s), 2);
}

void EditJobTest::storedTotalsAreShownAsTheyAre()
{
    OrderDesk desk;
    desk.book(u"1"_s);
    DE().CN.execute(u"update JOBS set AmountDue=999.5, AmountPaid=12.25"_s);
    DE().CN.execute(u"update Items set NAME='Overcoat'"_s);
    ModalScript script;
    onCard(script, 1, [](QWidget &screen) {
        QCOMPARE(text(screen, "txtAmountDue"), u"999.50"_s);
        QCOMPARE(text(screen, "txtAmountPaid"), u"12.25"_s);
        QCOMPARE(text(screen, "txtAmount"), u"987.25"_s);
        QCOMPARE(driver::rows(control<QAbstractItemView>(screen, "lvItems")),
            QList<QStringList>{QStringList({u"Overcoat"_s, u"Wool"_s, u"2"_s, u"400.00"_s, u"800.00"_s})});
    });
}

void EditJobTest::notesTellOfTrialAndDelivery_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("trialNote");
    QTest::addColumn<QString>("deliveryNote");
    const auto row = [](const char *name, const QString &state, const QString &trial, const QString &delivery) {
        QTest::newRow(name) << state << trial << delivery;
    };
    row("fresh", u"appeared=0"_s, u"Not Appeared for Trial"_s, {});
    row("appeared", u"appeared=1, appearedDate=#12-Apr-2011#"_s, u"Appeared for Trial 12-Apr-2011"_s, {});
    row("appeared, day unknown", u"appeared=1"_s, {}, {});
    row("trial cancelled", u"appeared=2"_s, u"Trial Canceled"_s, {});
    row("delivered", u"JobFinished=1, ClientDeliveryDate=#20-Apr-2011#"_s, u"Not Appeared for Trial"_s,
        u"Delivered to Client : 20-Apr-2011"_s);
    row("delivered, day unknown", u"JobFinished=1"_s, u"Not Appeared for Trial"_s, {});
    row("day without delivery", u"ClientDeliveryDate=#20-Apr-2011#"_s, u"Not Appeared for Trial"_s, {});
}

void EditJobTest::notesTellOfTrialAndDelivery()
{
    QFETCH(QString, state);
    OrderDesk desk;
    desk.book(u"1"_s);
    DE().CN.execute(u"update JOBS set "_s + state);
    ModalScript script;
    onCard(script, 1, [](QWidget &screen) {
        QTEST(control<QLabel>(screen, "lblTrialInfo").text(), "trialNote");
        QTEST(control<QLabel>(screen, "lblDelDate").text(), "deliveryNote");
    });
}

void EditJobTest::theGreetingTellsVisitAndBalance_data()
{
    QTest::addColumn<double>("received");
    QTest::addColumn<QString>("greetingText");
    const QString visit = u"Welcome back Asha Rao, Your previous visit was: 10-Apr-2011  (1 month, 1 day"_s;
    QTest::newRow("owes") << 1350.0 << visit + u"  ago ) , Job # 1 , Due Balance : 250.00 Dr"_s;
    QTest::newRow("even") << 1600.0 << visit + u"  ago )  , Job # 1"_s;
    QTest::newRow("credit") << 1650.0 << visit + u"  ago ) , Job # 1 , Due Balance : -50.00 Cr"_s;
}

void EditJobTest::theGreetingTellsVisitAndBalance()
{
    QFETCH(double, received);
    OrderDesk desk;
    desk.book(u"1"_s);
    desk.addPosting(5, QDate(2011, 5, 1), received - 100);
    session::CurrentDate = {2011, 5, 11};
    ModalScript script;
    onCard(script, 0, [](QWidget &screen) {
        type(u"asha"_s);
        press(Qt::Key_Return);
        QTEST(greeting(screen), "greetingText");
        const QString before = greeting(screen);
        cmbClient(screen).setText({});
        cmbClient(screen).setFocus();
        press(Qt::Key_Return);
        QCOMPARE(greeting(screen), before);
    });
}

void EditJobTest::removeCopyAndClear()
{
    OrderDesk desk;
    desk.addItem(u"Shirt"_s, {}, 300, 80);
    ModalScript script;
    onCard(script, 0, [&script](QWidget &screen) {
        type(u"asha"_s);
        for (const auto &[item, quantity] : {std::pair(u"Coat"_s, u"2"_s), std::pair(u"Shirt"_s, u"1"_s)}) {
            expectItem(script, item, quantity);
            accessKey('a');
        }
        auto &list = control<QAbstractItemView>(screen, "lvItems");
        QCOMPARE(text(screen, "txtAmountDue"), u"1100.00"_s);
        press(Qt::Key_I, Qt::ControlModifier);
        press(Qt::Key_Home);
        accessKey('c');
        QCOMPARE(driver::column(list, 0), QStringList({u"Coat"_s, u"Shirt"_s, u"Coat"_s}));
        QCOMPARE(text(screen, "txtAmountDue"), u"1900.00"_s);
        // Elsewhere Del is the field's.
        control<QLineEdit>(screen, "txtRemark").setFocus();
        press(Qt::Key_Delete);
        QCOMPARE(list.model()->rowCount(), 3);
        press(Qt::Key_I, Qt::ControlModifier);
        press(Qt::Key_Delete);
        QCOMPARE(driver::column(list, 0), QStringList({u"Coat"_s, u"Shirt"_s}));
        QCOMPARE(text(screen, "txtAmountDue"), u"1100.00"_s);
        control<QPushButton>(screen, "Command5").click();
        QCOMPARE(text(screen, "txtAmountDue"), u"800.00"_s);
        control<QPushButton>(screen, "Command5").click();
        // With the last row gone the totals stay, and saving asks for an item.
        QCOMPARE(text(screen, "txtAmountDue"), u"800.00"_s);
        control<QPushButton>(screen, "Command5").click();
        script.expectMessage(u"Please Add Item!"_s);
        accessKey('s');
    });
    QCOMPARE(desk.count(u"JOBS"_s), 0);
}

void EditJobTest::theMenuOfAnItemHasItsCommands()
{
    OrderDesk desk;
    desk.book(u"1"_s);
    ModalScript script;
    onCard(script, 1, [&script](QWidget &screen) {
        const auto &list = control<QAbstractItemView>(screen, "lvItems");
        const auto choose = [&screen](int entry) {
            press(Qt::Key_I, Qt::ControlModifier);
            auto &lvItems = control<ListView>(screen, "lvItems");
            emit lvItems.menuWanted(lvItems.mapToGlobal(QPoint()));
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
        QTRY_COMPARE(list.model()->rowCount(), 2);
        choose(2);
        QTRY_COMPARE(list.model()->rowCount(), 1);
        QCOMPARE(text(screen, "txtAmountDue"), u"800.00"_s);
        choose(3);
        QTRY_COMPARE(list.model()->rowCount(), 0);
        QCOMPARE(text(screen, "txtAmountDue"), u"800.00"_s);
    });
}

void EditJobTest::enterAloneLeadsThroughAFreshCard()
{
    OrderDesk desk;
    ModalScript script;
    onCard(script, 0, [&script](QWidget &screen) {
        type(u"a"_s);
        // The dates and the list that has no row yet, to what adds one.
        for (int i = 0; i < 4; ++i)
            press(Qt::Key_Return);
        QCOMPARE(focused(), u"Command4"_s);
        for (int i = 0; i < 2; ++i) {
            expectItem(script, u"Coat"_s, u"1"_s);
            press(Qt::Key_Return);
        }
        QCOMPARE(text(screen, "txtAmountDue"), u"800.00"_s);
        press(Qt::Key_Tab);
        QCOMPARE(focused(), u"txtAmountPaid"_s);
        // Nothing received, nothing suggested.
        press(Qt::Key_Return);
        QCOMPARE(cmbAccount(screen).Text(), QString());
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        type(u"50"_s);
        press(Qt::Key_Return);
        QCOMPARE(cmbAccount(screen).Text(), QString());
        type(u"cas"_s);
        for (int i = 0; i < 5; ++i)
            press(Qt::Key_Return);
        QCOMPARE(focused(), u"Command1"_s);
        script.expectMessage(u"New Job Created."_s);
        press(Qt::Key_Return);
        // One Enter too many saves nothing again.
        press(Qt::Key_Return);
        QVERIFY(script.isDone());
    });
    QCOMPARE(desk.lines(u"Select AmountDue, AmountPaid, CashAccID from JOBS"_s), QStringList{u"800|50|4"_s});
    onCard(script, 1, [&script](QWidget &screen) {
        cmbAccount(screen).setText({});
        control<QLineEdit>(screen, "txtAmountPaid").setFocus();
        script.expectMessage(u"Please Select Receipt Account!"_s);
        accessKey('s');
        // Whoever chose none chooses now.
        QCOMPARE(focused(), u"cmbAccount"_s);
        QCOMPARE(cmbAccount(screen).Text(), QString());
    });
    // What was chosen then is suggested now, by the name that it has today; what is chosen already stays.
    DE().CN.execute(u"update Accounts set Title='Till' where id=4"_s);
    onCard(script, 1, [](QWidget &screen) {
        cmbAccount(screen).setText({});
        control<QLineEdit>(screen, "txtAmountPaid").setFocus();
        type(u"5"_s);
        press(Qt::Key_Return);
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
    desk.book(u"1"_s);
    ModalScript script;
    onCard(script, 1, [&script](QWidget &screen) {
        control<QPushButton>(screen, "Command6").click();
        QCOMPARE(text(screen, "txtAmountDue"), u"1600.00"_s);
        expectItem(script, u"Shirt"_s, u"1"_s);
        accessKey('a');
        QCOMPARE(text(screen, "txtAmountDue"), u"300.00"_s);
        script.expectMessage(u"Job Edited."_s);
        accessKey('s');
    });
    QCOMPARE(desk.lines(u"Select ItemName, ItemSr from JOBS_DETAIL"_s), QStringList({u"Coat|1"_s, u"Shirt|2"_s}));
    QCOMPARE(desk.lines(u"Select AmountDue from JOBS"_s), QStringList{u"300"_s});
}

void EditJobTest::clearForgetsWhatWasRemoved()
{
    OrderDesk desk;
    desk.book(u"1"_s);
    ModalScript script;
    onCard(script, 1, [&script](QWidget &screen) {
        control<QPushButton>(screen, "Command5").click();
        control<QPushButton>(screen, "Command6").click();
        expectItem(script, u"Coat"_s, u"1"_s);
        accessKey('a');
        script.expectMessage(u"Job Edited."_s);
        accessKey('s');
    });
    QCOMPARE(desk.lines(u"Select Id from JOBS_DETAIL"_s), QStringList({u"1"_s, u"2"_s}));
}

void EditJobTest::oneSavedRowIsRemovedPerSave()
{
    OrderDesk desk;
    JobCardStore store;
    clsJobCardData rows = desk.rows(3);
    store.SaveNew(desk.card(u"1"_s), rows);
    ModalScript script;
    onCard(script, 1, [&script](QWidget &screen) {
        const auto remove = [&screen] { control<QPushButton>(screen, "Command5").click(); };
        remove();
        script.expectMessage(u"Please Save the Job Card before removing another Item!"_s);
        remove();
        script.expectMessage(u"Job Edited."_s);
        accessKey('s');
        remove();
        script.expectMessage(u"Job Edited."_s);
        accessKey('s');
        QCOMPARE(text(screen, "txtAmountDue"), u"800.00"_s);

        // Rows that were never saved go as they came, before a saved one and after it.
        auto &list = control<ListView>(screen, "lvItems");
        const auto add = [&] {
            expectItem(script, u"co"_s, u"1"_s);
            accessKey('a');
            list.setCurrentRow(list.list().rowCount() - 1);
        };
        add();
        add();
        remove();
        remove();
        add();
        list.setCurrentRow(0);
        remove();
        list.setCurrentRow(0);
        remove();
        QCOMPARE(list.list().rowCount(), 0);
        add();
        script.expectMessage(u"Job Edited."_s);
        accessKey('s');
    });
    QCOMPARE(desk.lines(u"Select Id, ItemSr from JOBS_DETAIL"_s), QStringList{u"4|1"_s});
}

void EditJobTest::theTotalIsThatOfTheAmountsThemselves()
{
    OrderDesk desk;
    JobCardStore store;
    clsJobCardData rows = desk.rows(2);
    for (int i = 1; i <= 2; ++i)
        rows.SetAmount(i, 37.035);
    store.SaveNew(desk.card(u"1"_s), rows);
    DE().CN.execute(u"update Items set NAME='Overcoat'"_s);
    ModalScript script;
    onCard(script, 1, [&script](QWidget &screen) {
        QCOMPARE(
            driver::column(control<QAbstractItemView>(screen, "lvItems"), 4), QStringList({u"37.04"_s, u"37.04"_s}));
        static_cast<frmEditJOB &>(screen).DoTotal();
        QCOMPARE(text(screen, "txtAmountDue"), u"74.07"_s);
        script.expectMessage(u"Job Edited."_s);
        accessKey('s');
    });
    // The rows keep the name that they were booked under.
    QCOMPARE(desk.lines(u"Select ItemName from JOBS_DETAIL"_s), QStringList({u"Coat"_s, u"Coat"_s}));
}

void EditJobTest::aClientThatIsNobodyIsAskedFor()
{
    OrderDesk desk;
    ModalScript script;
    onCard(script, 0, [&script](QWidget &screen) {
        cmbClient(screen).setText(u"sha Rao"_s);
        for (const char command : {'a', 's'}) {
            script.expectMessage(u"Please Select Client!"_s);
            accessKey(command);
            QCOMPARE(focused(), u"cmbClient"_s);
        }
    });
}

void EditJobTest::deletingAsksFirst()
{
    OrderDesk desk;
    desk.book(u"1"_s);
    ModalScript script;
    bool deleted = true;
    script.expect(u"frmEditJOB"_s, [&script](QWidget &) {
        script.expectMessage(u"Are you sure to Delete!"_s, Qt::Key_Escape);
        accessKey('d');
        press(Qt::Key_Escape);
    });
    frmEditJOB().ShowEdit(1, deleted);
    QVERIFY(!deleted);
    QCOMPARE(desk.count(u"JOBS"_s), 1);
    script.expect(u"frmEditJOB"_s, [&script](QWidget &) {
        script.expectMessage(u"Are you sure to Delete!"_s).expectMessage(u"Deleted."_s);
        accessKey('d');
    });
    frmEditJOB().ShowEdit(1, deleted);
    QVERIFY(deleted);
    QVERIFY(session::NeedRefresh);
    QCOMPARE(desk.count(u"JOBS"_s) + desk.count(u"JOBS_DETAIL"_s) + desk.count(u"postings"_s), 0);
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
        QCOMPARE(control<QAbstractItemView>(screen, "lvItems").model()->rowCount(), 0);
        press(Qt::Key_Escape);
    });
    bool deleted = true;
    frmEditJOB().ShowEdit(1, deleted);
    QVERIFY(!deleted);
}

void EditJobTest::theReasonPanelOpensAndCloses()
{
    OrderDesk desk;
    desk.book(u"1"_s);
    ModalScript script;
    onCard(script, 1, [&script](QWidget &screen) {
        QVERIFY(!control<QLineEdit>(screen, "txtCancel").isVisible());
        control<QPushButton>(screen, "Command8").click();
        QCOMPARE(focused(), u"txtCancel"_s);
        type(u"moved"_s);
        control<QPushButton>(screen, "Command12").click();
        QVERIFY(!control<QLineEdit>(screen, "txtCancel").isVisible());
        QCOMPARE(focused(), u"chStatus"_s);
        press(Qt::Key_Space);
        script.expectMessage(u"Job Edited."_s);
        accessKey('s');
    });
    QCOMPARE(desk.lines(u"Select Status, CancelReason from JOBS"_s), QStringList{u"1|Moved"_s});
    QCOMPARE(GetAccountBalance(5, session::CurrentDate), 0.0);
}

void EditJobTest::keysMoveThroughTheScreen()
{
    OrderDesk desk;
    desk.book(u"1"_s);
    ModalScript script;
    onCard(script, 1, [](QWidget &) {
        QStringList way{focused()};
        for (int i = 0; i < 4; ++i) {
            press(i % 2 ? Qt::Key_PageDown : Qt::Key_Return);
            way += focused();
        }
        QCOMPARE(way, QStringList({u"cmbClient"_s, u"DateDel"_s, u"DateTrial"_s, u"lvItems"_s, u"Command4"_s}));
        press(Qt::Key_PageUp);
        QCOMPARE(focused(), u"lvItems"_s);
        press(Qt::Key_PageUp);
        press(Qt::Key_PageUp);
        press(Qt::Key_PageUp);
        press(Qt::Key_PageUp);
        QCOMPARE(focused(), u"JobDate"_s);
    });
}

void EditJobTest::aNumberBeyondTheRangeIsToldAtTheField()
{
    OrderDesk desk;
    desk.book(u"1"_s);
    SaveSetting(setting::ManualJobNumber, u"1"_s);
    ModalScript script;
    onCard(script, 1, [&script](QWidget &screen) {
        for (const QString &number : {u"32768"_s, u"0"_s, u"1.5"_s}) {
            control<QLineEdit>(screen, "txtJOBID").setText(number);
            script.expectMessage(u"Job ID must be a number from 1 to 32767!"_s);
            accessKey('s');
            QCOMPARE(focused(), u"txtJOBID"_s);
        }
    });
    QCOMPARE(desk.lines(u"Select ID from JOBS"_s), QStringList{u"1"_s});
}

void EditJobTest::aSaveThatFailsLeavesTheCardOnTheScreen_data()
{
    QTest::addColumn<bool>("full");
    QTest::addColumn<QString>("told");
    QTest::newRow("the disk is full") << true << u"There is not enough space on the disk."_s;
    QTest::newRow("another program writes") << false << u"The file is in use by another program."_s;
}

void EditJobTest::aSaveThatFailsLeavesTheCardOnTheScreen()
{
    QFETCH(bool, full);
    QFETCH(QString, told);
    OrderDesk desk;
    Connection other;
    other.open(desk.path());
    ModalScript script;
    onCard(script, 0, [&](QWidget &screen) {
        type(u"Asha"_s);
        expectItem(script, u"Coat"_s, u"3"_s);
        accessKey('a');
        control<QLineEdit>(screen, "txtRemark").setText(QString(full ? 50000 : 5, u'x'));
        if (full)
            desk.connection.define(u"PRAGMA max_page_count = "_s + desk.lines(u"PRAGMA page_count"_s).first());
        else
            other.define(u"begin immediate"_s);
        script.expectBox(told
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
        script.expectMessage(u"New Job Created."_s);
        accessKey('s');
        QCOMPARE(screen.windowTitle(), u"Edit JOB Card"_s);
    });
    QCOMPARE(desk.lines(u"Select ID, AmountDue from JOBS"_s), QStringList{u"1|1200"_s});
    QCOMPARE(desk.count(u"JOBS_DETAIL"_s), 1);
    QCOMPARE(desk.count(u"Postings"_s), 2);
}

void EditJobTest::aSaveOfUnknownOutcomeGetsNoOtherNumber()
{
    OrderDesk desk;
    ModalScript script;
    onCard(script, 0, [&](QWidget &screen) {
        type(u"Asha"_s);
        expectItem(script, u"Coat"_s, u"3"_s);
        accessKey('a');
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
            script.expectMessage(
                u"Duplicate Job ID!\r\nIt may be this card, of which it was not known whether it was written.\r\n"
                "Look at that card before you enter this one again."_s);
            accessKey('s');
            QCOMPARE(text(screen, "txtJOBID"), u"1"_s);
        }
    });
    QCOMPARE(desk.lines(u"Select ID, AmountDue from JOBS"_s), QStringList{u"1|1200"_s});
}

void EditJobTest::aCardThatAnotherProgramDeletedIsTold()
{
    OrderDesk desk;
    ModalScript script;
    script.expectMessage(u"Job Card not found!"_s);
    bool deleted = false;
    frmEditJOB().ShowEdit(1, deleted);
    QVERIFY(deleted);
}

void EditJobTest::aNumberUsedByAnotherProgramGivesWayToTheNext()
{
    OrderDesk desk;
    desk.book(u"1"_s);
    ModalScript script;
    onCard(script, 0, [&](QWidget &screen) {
        QCOMPARE(text(screen, "txtJOBID"), u"2"_s);
        type(u"Asha"_s);
        expectItem(script, u"Coat"_s, u"1"_s);
        accessKey('a');
        Connection other;
        other.open(desk.path());
        other.execute(u"Update JOBS set Id=2"_s);
        script.expectMessage(u"Duplicate Job ID!"_s);
        accessKey('s');
        QCOMPARE(text(screen, "txtJOBID"), u"3"_s);
        script.expectMessage(u"New Job Created."_s);
        accessKey('s');
    });
    QCOMPARE(desk.lines(u"Select ID from JOBS"_s), QStringList({u"2"_s, u"3"_s}));
}

CORVANE_TEST(EditJobTest)
#include "tst_frmEditJOB.moc"
