#include "registers/frmTrailDate.h"

#include "WorkDesk.h"
#include "base/session.h"
#include "store/settings.h"
#include "support/PseudoTerminal.h"
#include "ui/Command.h"
#include "ui/DateField.h"
#include "ui/ListView.h"
#include "ui/kvTextBox.h"
#include "ui/kvTextBoxMultiLine.h"

#include <QApplication>
#include <QLabel>

using namespace Qt::StringLiterals;
using driver::control;
using driver::press;

/// Trials of a period, their marks, and the reminder to a client.
class TrialTest : public QObject {
    Q_OBJECT

private slots:
    void theTrialsOfAPeriodAreListed();
    void anotherPeriodBeginsAtItsFirstTrial();
    void theMenuMarksTheRow();
    void aMovedTrialBeginsAnew();
    void theCardOfATrialOpens();
    void aJobThatIsGoneIsTold();
    void theNumberComesFromTheStatus();
    void theMessageIsKept();
};

namespace {

const QDate today{2011, 4, 10};
const QDate yesterday{2011, 4, 9};
const QDate tomorrow{2011, 4, 11};

struct Shop : Workshop {
    Shop()
    {
        session::CurrentDate = today;
        session::ShopName.clear();
        connection.execute(u"Insert into Shop (Name) values ('Kovrel')"_s);
        connection.execute(u"Update Accounts set Mobile='98290 55501' where id=5"_s);
    }

    [[nodiscard]] QString trialOf(int job)
    {
        return lines(u"Select appeared, appearedDate, trialdate from Jobs where id="_s + QString::number(job)).value(0);
    }
};

struct Trials : frmTrailDate {
    Trials() { QVERIFY(driver::show(*this)); }

    [[nodiscard]] QStringList listed() const
    {
        QStringList lines;
        for (const QStringList &row : driver::rows(list))
            lines += row.join(u'|');
        return lines;
    }
    void show(QDate from, QDate to)
    {
        control<DateField>(*this, "DateFrom").setDate(from);
        control<DateField>(*this, "DateTo").setDate(to);
        control<DateField>(*this, "DateTo").setFocus();
        press(Qt::Key_Return);
    }
    void choose(const QString &entry)
    {
        viaMenu(*this, entry);
        QTRY_VERIFY(!QApplication::activePopupWidget());
        QCoreApplication::processEvents();
    }

    ListView &list = listOf(*this);
    ModalScript script;
};

} // namespace

void TrialTest::theTrialsOfAPeriodAreListed()
{
    Shop shop;
    shop.addJob({.number = 9, .client = Shop::Vikram, .date = today});
    shop.addJob({.number = 4, .date = tomorrow, .appeared = 2});
    shop.addJob({.number = 3, .date = today, .appeared = 5});
    shop.addJob({.number = 7, .client = 99, .date = {2011, 4, 12}});
    shop.addJob({.number = 8, .date = yesterday, .appeared = 1});
    shop.addJob({.number = 2, .date = yesterday});
    shop.connection.execute(u"Update Jobs set appearedDate=#08-Apr-2011# where id=8"_s);
    Trials screen;
    QVERIFY(screen.list.hasFocus());
    const QString third = u"Asha Rao|10-Apr-2011||3|98290 55501"_s;
    const QString ninth = u"Vikram Mehta|10-Apr-2011|Not Appeared|9|"_s;
    QCOMPARE(screen.listed(), (QStringList{third, ninth}));
    const QString second = u"Asha Rao|09-Apr-2011|Not Appeared|2|98290 55501"_s;
    const QString eighth = u"Asha Rao|09-Apr-2011|Appeared [08-Apr-2011 ]|8|98290 55501"_s;
    const QString fourth = u"Asha Rao|11-Apr-2011|Trial Canceled|4|98290 55501"_s;
    screen.show(yesterday, tomorrow);
    QCOMPARE(screen.listed(), (QStringList{second, eighth, third, ninth, fourth}));
    // What is due stands out.
    QStringList said;
    for (int row = 0; row < 5; ++row) {
        const QModelIndex day = screen.list.model()->index(row, 1);
        said += day.data(Qt::AccessibleTextRole).toString();
        QCOMPARE(day.data(Qt::DecorationRole).isValid(), !said.last().isEmpty());
        QCOMPARE(day.data(Qt::FontRole).value<QFont>().bold(), !said.last().isEmpty());
        QCOMPARE(day.siblingAtColumn(2).data(Qt::DecorationRole).isValid(), row != 2);
    }
    QCOMPARE(said.join(u'|'), u"Overdue, 09-Apr-2011|||Today, 10-Apr-2011|"_s);
    screen.show({2011, 4, 12}, {2011, 4, 12});
    QCOMPARE(screen.listed(), QStringList{u"|12-Apr-2011|Not Appeared|7|"_s});
    screen.show(tomorrow, yesterday);
    QCOMPARE(screen.listed(), QStringList());
    screen.script.expectMessage(u"\"31/2/11\" is not a date!"_s);
    control<DateField>(screen, "DateTo").setFocus();
    driver::type(u"31/2/11"_s);
    control<Command>(screen, "Command1").click();
}

void TrialTest::anotherPeriodBeginsAtItsFirstTrial()
{
    Shop shop;
    for (const int job : {1, 2, 3}) {
        shop.addJob({.number = job, .date = today});
        shop.addJob({.number = 10 + job, .date = tomorrow});
    }
    Trials screen;
    press(Qt::Key_End);
    QCOMPARE(screen.list.currentRow(), 2);
    screen.show(tomorrow, tomorrow);
    QCOMPARE(screen.list.currentRow(), 0);
    press(Qt::Key_Down);
    screen.show(tomorrow, tomorrow);
    QCOMPARE(screen.list.currentRow(), 1);
}

void TrialTest::theMenuMarksTheRow()
{
    const struct {
        QString entry;
        QString trial;
        QString word;
    } marks[]{{u"Set Status Appeared"_s, u"1|10-Apr-2011|10-Apr-2011"_s, u"Appeared [10-Apr-2011 ]"_s},
        {u"Set Status Not Appeared"_s, u"0||10-Apr-2011"_s, u"Not Appeared"_s},
        {u"Cancel Trial"_s, u"2||10-Apr-2011"_s, u"Trial Canceled"_s}};
    Shop shop;
    for (const int job : {1, 2, 3})
        shop.addJob({.number = job, .date = today, .appeared = 1});
    shop.connection.execute(u"Update Jobs set appearedDate=#05-Apr-2011#"_s);
    Trials screen;
    press(Qt::Key_Down);
    const QString before = shop.trialOf(1);
    const auto undo = [] { press(Qt::Key_Z, Qt::ControlModifier); };
    for (const auto &mark : marks) {
        screen.choose(mark.entry);
        QCOMPARE(shop.trialOf(2), mark.trial);
        QCOMPARE(shop.trialOf(1), before);
        QCOMPARE(shop.trialOf(3), before);
        QCOMPARE(screen.list.currentRow(), 1);
        QCOMPARE(screen.list.list().cell(1, 2), mark.word);
        // The day of the former mark comes back too.
        undo();
        QCOMPARE(shop.trialOf(2), before);
        QCOMPARE(screen.list.list().cell(1, 2), u"Appeared [05-Apr-2011 ]"_s);
    }
    // But not over what was done on the card since.
    screen.choose(u"Cancel Trial"_s);
    shop.connection.execute(u"Update Jobs set Remark='Velvet' where id=2"_s);
    screen.script.expectMessage(
        u"Cancel Trial, 2\r\n\r\nIt has been changed since it was marked. Nothing has been undone."_s);
    undo();
    QCOMPARE(shop.trialOf(2), u"2||10-Apr-2011"_s);
}

void TrialTest::aMovedTrialBeginsAnew()
{
    Shop shop;
    shop.addJob({.number = 1, .date = today, .appeared = 2});
    shop.addJob({.number = 2, .date = today, .appeared = 1});
    shop.addJob({.number = 3, .date = today});
    Trials screen;
    screen.script.expect(u"frmSetDate"_s, [](QWidget &prompt) {
        QCOMPARE(control<DateField>(prompt, "DateFrom").date(), today);
        driver::type(u"15\r"_s);
    });
    screen.choose(u"New Trial Date"_s);
    QCOMPARE(shop.trialOf(1), u"0||15-Apr-2011"_s);
    QCOMPARE(driver::column(screen.list, 3), (QStringList{u"2"_s, u"3"_s}));
    // The one that went left its place to the next.
    QCOMPARE(screen.list.currentTag().toInt(), 2);
    // The prompt gives back the date that it was given, and that is written as any other.
    screen.script.expect(u"frmSetDate"_s, [](QWidget &) { press(Qt::Key_Escape); });
    screen.choose(u"New Trial Date"_s);
    QCOMPARE(shop.trialOf(2), u"0||10-Apr-2011"_s);
    driver::press({Qt::CTRL | Qt::Key_Z, Qt::CTRL | Qt::Key_Z});
    QCOMPARE(shop.trialOf(1), u"2||10-Apr-2011"_s);
}

void TrialTest::theCardOfATrialOpens()
{
    Shop shop;
    shop.addJob({.number = 1, .date = today});
    Trials screen;
    screen.script.expect(u"frmEditJOB"_s, [](QWidget &card) {
        QCOMPARE(control<kvTextBox>(card, "txtJOBID").text(), u"1"_s);
        press(Qt::Key_Escape);
    });
    press(Qt::Key_Return);
}

void TrialTest::aJobThatIsGoneIsTold()
{
    for (const QString &entry :
        {u"Set Status Appeared"_s, u"Cancel Trial"_s, u"New Trial Date"_s, u"Open Job Card"_s}) {
        Shop shop;
        shop.addJob({.number = 1, .date = today});
        Trials screen;
        shop.connection.execute(u"Delete * from Jobs"_s);
        screen.script.expectMessage(u"Job Card not found!"_s);
        screen.choose(entry);
        QTRY_VERIFY(screen.script.isDone());
        QTRY_COMPARE(screen.listed(), QStringList());
    }
}

void TrialTest::theNumberComesFromTheStatus()
{
    Shop shop;
    const PseudoTerminal modem;
    Trials screen;
    const auto number = [&screen] { return control<QLabel>(screen, "lblNumber").text(); };
    // An empty list: nothing.
    control<Command>(screen, "Command2").click();
    QCOMPARE(number(), QString());
    shop.addJob({.number = 1, .date = today});
    shop.addJob({.number = 2, .date = today, .appeared = 5});
    screen.show(today, today);
    const QString failed = u"\r\nSMS Sending has been Failed."_s;
    const auto send = [&] {
        control<kvTextBoxMultiLine>(screen, "txtMessage").setText(u"Come"_s);
        press(Qt::Key_M, Qt::ControlModifier);
        QVERIFY(screen.script.isDone());
    };
    screen.script.expectMessage(u"Modem Com Port Error!"_s + failed);
    send();
    // A port that fails is told, and the message is told to be sent all the same.
    SaveSetting(setting::ModemPort, u"COM3"_s);
    screen.script.expectBox(u"Invalid port number"_s).expectBox(u"Message Sent"_s);
    send();
    QCOMPARE(modem.received(), QByteArray());
    SaveSetting(setting::ModemPort, u"3"_s);
    screen.script.expectBox(u"Message Sent"_s);
    send();
    QCOMPARE(modem.received(), QByteArray("AT+CMGF=1\rAT+CMGS=\"0\"\rCome\x1a"));
    QCOMPARE(number(), u"Goes to 0 (column \"Status\")"_s);
    screen.list.setCurrentRow(1);
    QCOMPARE(number(), u"No number in the column \"Status\""_s);
    screen.script.expectMessage(u"Mobile Number Not Found!"_s + failed);
    send();
}

void TrialTest::theMessageIsKept()
{
    const Shop shop;
    const QString usual = u"Kovrel\r\nDear Customer\r\nYour Trial Date is : \r\n"
                          "Please don't forgot visit our shop for a trial."_s;
    for (const QString &kept : {usual, u"It's ready\r\nCome"_s, QString()}) {
        Trials screen;
        auto &message = control<kvTextBoxMultiLine>(screen, "txtMessage");
        QCOMPARE(message.Text(), kept);
        message.setFocus();
        message.selectAll();
        if (kept != usual) {
            press(Qt::Key_Delete);
        } else {
            driver::type(u"It's ready\r"_s);
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
