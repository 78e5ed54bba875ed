#include "registers/frmTrailDate.h"

#include "base/session.h"
#include "store/settings.h"
#include "support/ModalScript.h"
#include "support/PseudoTerminal.h"
#include "support/TestShop.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/Command.h"
#include "ui/DateField.h"
#include "ui/ListView.h"
#include "ui/kvTextBox.h"
#include "ui/kvTextBoxMultiLine.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>

using namespace Qt::StringLiterals;
using driver::control;
using driver::press;

/// Trials of a period, their marks, and the reminder to a client.
class TrialTest : public QObject {
    Q_OBJECT

private slots:
    void theTrialsOfAPeriodAreListed();
    void anotherPeriodBeginsAtItsFirstTrial();
    void whatIsDueStandsOut();
    void theMenuMarksTheRow_data();
    void theMenuMarksTheRow();
    void aMovedTrialBeginsAnew();
    void theCardOfATrialOpens();
    void aJobThatIsGoneIsTold();
    void theNumberComesFromTheStatus();
    void whatIsMissingIsTold();
    void theMessageIsKept();
};

namespace {

constexpr int asha = 5;
constexpr int babu = 6;
const QDate today{2011, 4, 10};
const QDate yesterday{2011, 4, 9};
const QDate tomorrow{2011, 4, 11};

struct Shop : TestShop {
    Shop()
    {
        session::CurrentDate = today;
        session::ShopName.clear();
        connection.execute(u"Insert into Shop (Name) values ('Kovrel')"_s);
        addAccount(u"Asha Rao"_s);
        addAccount(u"Babu Lal"_s);
        connection.execute(u"Update Accounts set Mobile='98290 55501' where id=5"_s);
    }

    [[nodiscard]] QString trialOf(int job)
    {
        return lines(u"Select appeared, appearedDate, trialdate from Jobs where id="_s + QString::number(job)).value(0);
    }
};

ListView &trials(const QWidget &screen)
{
    return control<ListView>(screen, "lvSummary");
}

QStringList listed(const QWidget &screen)
{
    QStringList lines;
    for (const QStringList &row : driver::rows(trials(screen)))
        lines += row.join(u'|');
    return lines;
}

void show(const QWidget &screen, QDate from, QDate to)
{
    control<DateField>(screen, "DateFrom").setDate(from);
    control<DateField>(screen, "DateTo").setDate(to);
    control<DateField>(screen, "DateTo").setFocus();
    press(Qt::Key_Return);
}

QMenu *rowMenu(ListView &list)
{
    QContextMenuEvent pressed(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(&list, &pressed);
    return qobject_cast<QMenu *>(QApplication::activePopupWidget());
}

/// By the menu key and the arrows.
void choose(QWidget &screen, const QString &entry)
{
    QMenu *menu = rowMenu(trials(screen));
    QVERIFY(menu);
    while (menu->activeAction()->text() != entry)
        QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    QTRY_VERIFY(!QApplication::activePopupWidget());
    QCoreApplication::processEvents();
}

} // namespace

void TrialTest::theTrialsOfAPeriodAreListed()
{
    Shop shop;
    shop.addJob({.number = 9, .client = babu, .date = today});
    shop.addJob({.number = 4, .client = asha, .date = tomorrow, .appeared = 2});
    shop.addJob({.number = 3, .client = asha, .date = today, .appeared = 5});
    shop.addJob({.number = 7, .client = 99, .date = {2011, 4, 12}});
    shop.addJob({.number = 8, .client = asha, .date = yesterday, .appeared = 1});
    shop.connection.execute(u"Update Jobs set appearedDate=#08-Apr-2011# where id=8"_s);
    frmTrailDate screen;
    QVERIFY(driver::show(screen));
    QCOMPARE(screen.windowTitle(), u"Trial Date Reminders"_s);
    QVERIFY(trials(screen).hasFocus());
    const QString third = u"Asha Rao|10-Apr-2011||3|98290 55501"_s;
    const QString ninth = u"Babu Lal|10-Apr-2011|Not Appeared|9|"_s;
    QCOMPARE(listed(screen), (QStringList{third, ninth}));
    const QString eighth = u"Asha Rao|09-Apr-2011|Appeared [08-Apr-2011 ]|8|98290 55501"_s;
    const QString fourth = u"Asha Rao|11-Apr-2011|Trial Canceled|4|98290 55501"_s;
    show(screen, yesterday, tomorrow);
    QCOMPARE(listed(screen), (QStringList{eighth, third, ninth, fourth}));
    show(screen, {2011, 4, 12}, {2011, 4, 12});
    QCOMPARE(listed(screen), QStringList{u"|12-Apr-2011|Not Appeared|7|"_s});
    show(screen, tomorrow, yesterday);
    QCOMPARE(listed(screen), QStringList());

    ModalScript script;
    script.expectMessage(u"\"31/2/11\" is not a date!"_s);
    control<DateField>(screen, "DateTo").setFocus();
    driver::type(u"31/2/11"_s);
    control<Command>(screen, "Command1").click();
    QVERIFY(script.isDone());
    press(Qt::Key_Escape);
    press(Qt::Key_Escape);
    QVERIFY(!screen.isVisible());
}

void TrialTest::anotherPeriodBeginsAtItsFirstTrial()
{
    Shop shop;
    for (const int job : {1, 2, 3}) {
        shop.addJob({.number = job, .client = asha, .date = today});
        shop.addJob({.number = 10 + job, .client = asha, .date = tomorrow});
    }
    frmTrailDate screen;
    QVERIFY(driver::show(screen));
    press(Qt::Key_End);
    QCOMPARE(trials(screen).currentRow(), 2);
    show(screen, tomorrow, tomorrow);
    QCOMPARE(trials(screen).currentRow(), 0);
    press(Qt::Key_Down);
    show(screen, tomorrow, tomorrow);
    QCOMPARE(trials(screen).currentRow(), 1);
}

void TrialTest::whatIsDueStandsOut()
{
    Shop shop;
    shop.addJob({.number = 1, .date = yesterday});
    shop.addJob({.number = 2, .date = yesterday, .appeared = 1});
    shop.addJob({.number = 3, .date = today});
    shop.addJob({.number = 4, .date = tomorrow});
    frmTrailDate screen;
    QVERIFY(driver::show(screen));
    show(screen, yesterday, tomorrow);
    QStringList said;
    for (int row = 0; row < 4; ++row) {
        const QModelIndex day = trials(screen).model()->index(row, 1);
        said += day.data(Qt::AccessibleTextRole).toString();
        QCOMPARE(day.data(Qt::DecorationRole).isValid(), !said.last().isEmpty());
        QCOMPARE(day.data(Qt::FontRole).value<QFont>().bold(), !said.last().isEmpty());
        QVERIFY(trials(screen).model()->index(row, 2).data(Qt::DecorationRole).isValid());
    }
    QCOMPARE(said, (QStringList{u"Overdue, 09-Apr-2011"_s, {}, u"Today, 10-Apr-2011"_s, {}}));
}

void TrialTest::theMenuMarksTheRow_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("trial");
    QTest::newRow("appeared") << u"Set Status Appeared"_s << u"1|10-Apr-2011|10-Apr-2011"_s;
    QTest::newRow("not appeared") << u"Set Status Not Appeared"_s << u"0||10-Apr-2011"_s;
    QTest::newRow("canceled") << u"Cancel Trial"_s << u"2||10-Apr-2011"_s;
}

void TrialTest::theMenuMarksTheRow()
{
    QFETCH(const QString, entry);
    Shop shop;
    for (const int job : {1, 2, 3})
        shop.addJob({.number = job, .date = today, .appeared = 2});
    frmTrailDate screen;
    QVERIFY(driver::show(screen));
    QStringList captions;
    QMenu *menu = rowMenu(trials(screen));
    for (const QAction *action : menu->actions())
        captions += action->isSeparator() ? u"-"_s : action->text();
    QCOMPARE(captions.join(u'|'),
        u"Set Status Appeared|Set Status Not Appeared|-|Cancel Trial|New Trial Date|-|Open Job Card"_s);
    menu->close();

    press(Qt::Key_Down);
    const QString before = shop.trialOf(1);
    choose(screen, entry);
    QTEST(shop.trialOf(2), "trial");
    QCOMPARE(shop.trialOf(1), before);
    QCOMPARE(shop.trialOf(3), before);
    QCOMPARE(trials(screen).currentRow(), 1);
    const int code = shop.trialOf(2).left(1).toInt();
    const QString words[]{u"Not Appeared"_s, u"Appeared [10-Apr-2011 ]"_s, u"Trial Canceled"_s};
    QCOMPARE(trials(screen).list().cell(1, 2), words[code]);
    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(shop.trialOf(2), before);
    QCOMPARE(trials(screen).list().cell(1, 2), words[2]);

    // A list without rows has no menu.
    show(screen, yesterday, yesterday);
    QVERIFY(!rowMenu(trials(screen)));
}

void TrialTest::aMovedTrialBeginsAnew()
{
    Shop shop;
    shop.addJob({.number = 1, .date = today, .appeared = 2});
    shop.addJob({.number = 2, .date = today, .appeared = 1});
    shop.addJob({.number = 3, .date = today});
    frmTrailDate screen;
    ModalScript script;
    QVERIFY(driver::show(screen));
    script.expect(u"frmSetDate"_s, [](QWidget &prompt) {
        QCOMPARE(control<DateField>(prompt, "DateFrom").date(), today);
        driver::type(u"15"_s);
        press(Qt::Key_Return);
    });
    choose(screen, u"New Trial Date"_s);
    QCOMPARE(shop.trialOf(1), u"0||15-Apr-2011"_s);
    QCOMPARE(driver::column(trials(screen), 3), (QStringList{u"2"_s, u"3"_s}));
    // The one that went left its place to the next.
    QCOMPARE(trials(screen).currentTag().toInt(), 2);
    // The prompt gives back the date that it was given, and that is written as any other.
    script.expect(u"frmSetDate"_s, [](QWidget &) { press(Qt::Key_Escape); });
    choose(screen, u"New Trial Date"_s);
    QCOMPARE(shop.trialOf(2), u"0||10-Apr-2011"_s);
}

void TrialTest::theCardOfATrialOpens()
{
    Shop shop;
    shop.addJob({.number = 1, .date = today});
    frmTrailDate screen;
    ModalScript script;
    QVERIFY(driver::show(screen));
    const auto closeIt = [](QWidget &card) {
        QCOMPARE(control<kvTextBox>(card, "txtJOBID").text(), u"1"_s);
        press(Qt::Key_Escape);
    };
    script.expect(u"frmEditJOB"_s, closeIt);
    choose(screen, u"Open Job Card"_s);
    QTRY_VERIFY(script.isDone());
    script.expect(u"frmEditJOB"_s, closeIt);
    QVERIFY(driver::waitActive(screen));
    press(Qt::Key_Return);
    QVERIFY(script.isDone());
}

void TrialTest::aJobThatIsGoneIsTold()
{
    for (const QString &entry :
        {u"Set Status Appeared"_s, u"Cancel Trial"_s, u"New Trial Date"_s, u"Open Job Card"_s}) {
        Shop shop;
        shop.addJob({.number = 1, .date = today});
        frmTrailDate screen;
        ModalScript script;
        QVERIFY(driver::show(screen));
        shop.connection.execute(u"Delete * from Jobs"_s);
        script.expectMessage(u"Job Card not found!"_s);
        choose(screen, entry);
        QTRY_VERIFY(script.isDone());
        QTRY_COMPARE(listed(screen), QStringList());
    }
}

void TrialTest::theNumberComesFromTheStatus()
{
    Shop shop;
    const PseudoTerminal modem;
    SaveSetting(setting::ModemPort, u"3"_s);
    frmTrailDate screen;
    ModalScript script;
    QVERIFY(driver::show(screen));
    // An empty list: nothing.
    control<Command>(screen, "Command2").click();
    QCOMPARE(control<QLabel>(screen, "lblNumber").text(), QString());
    shop.addJob({.number = 1, .date = today});
    shop.addJob({.number = 2, .date = today, .appeared = 5});
    show(screen, today, today);
    QCOMPARE(control<QLabel>(screen, "lblNumber").text(), u"Goes to 0, the number in the column \"Status\""_s);
    control<kvTextBoxMultiLine>(screen, "txtMessage").setText(u"Come"_s);
    script.expectBox(u"Message Sent"_s);
    control<Command>(screen, "Command2").setFocus();
    press(Qt::Key_Space);
    QVERIFY(script.isDone());
    QCOMPARE(modem.received(), QByteArray("AT+CMGF=1\rAT+CMGS=\"0\"\rCome\x1a"));
    QCOMPARE(control<QLabel>(screen, "lblNumber").text(), u"Goes to 0, the number in the column \"Status\""_s);
    trials(screen).setCurrentRow(1);
    QCOMPARE(control<QLabel>(screen, "lblNumber").text(), u"No number in the column \"Status\""_s);
}

void TrialTest::whatIsMissingIsTold()
{
    Shop shop;
    const PseudoTerminal modem;
    shop.addJob({.number = 1, .date = today});
    shop.addJob({.number = 2, .date = today, .appeared = 5});
    frmTrailDate screen;
    ModalScript script;
    QVERIFY(driver::show(screen));
    const QString noPort = u"Modem Com Port Error!\r\nSMS Sending has been Failed."_s;
    const QString noNumber = u"Mobile Number Not Found!\r\nSMS Sending has been Failed."_s;
    for (const QString &told : {noPort, noNumber}) {
        script.expectMessage(told);
        press(Qt::Key_M, Qt::ControlModifier);
        QVERIFY(script.isDone());
        press(Qt::Key_Down);
    }
    // A port that fails is told, and the message is told to be sent all the same.
    SaveSetting(setting::ModemPort, u"COM3"_s);
    trials(screen).setCurrentRow(0);
    script.expectBox(u"Invalid port number"_s).expectBox(u"Message Sent"_s);
    press(Qt::Key_M, Qt::ControlModifier);
    QVERIFY(script.isDone());
    QCOMPARE(modem.received(), QByteArray());
}

void TrialTest::theMessageIsKept()
{
    Shop shop;
    const QString usual = u"Kovrel\r\nDear Customer\r\nYour Trial Date is : \r\n"
                          "Please don't forgot visit our shop for a trial."_s;
    for (const QString &kept : {usual, u"It's ready\r\nCome"_s, QString()}) {
        frmTrailDate screen;
        QVERIFY(driver::show(screen));
        auto &message = control<kvTextBoxMultiLine>(screen, "txtMessage");
        QCOMPARE(message.Text(), kept);
        message.setFocus();
        message.selectAll();
        if (kept != usual) {
            press(Qt::Key_Delete);
        } else {
            driver::type(u"It's ready"_s);
            press(Qt::Key_Return);
            driver::type(u"Come"_s);
        }
        QCOMPARE(GetSetting(setting::TrialReminder, usual), kept);
        press(Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(GetSetting(setting::TrialReminder), message.Text());
        QVERIFY(!control<QLabel>(screen, "lblSaved").text().isEmpty());
    }
}

CORVANE_TEST(TrialTest)
#include "tst_frmTrailDate.moc"
