#include "app/MorningGlance.h"

#include "app/backup.h"
#include "app/frmMain.h"
#include "base/clock.h"
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

#include <QLabel>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// What the working day begins with.
class GlanceTest : public QObject {
    Q_OBJECT

private slots:
    void eachLineCounts();
    void eachLineOpensItsRegister();
    void theLastGoodBackupIsTold();
    void itIsReadAnewWhenItMust();
    void itIsSwitchedOffForGood();
    void aLineThatCannotBeReadSaysSo();
    void anEmptyShopSaysWhereToBegin();
};

namespace {

constexpr int asha = 5;
constexpr int babu = 6;
const QDate today{2011, 4, 10};
const QDate yesterday{2011, 4, 9};
const QDate tomorrow{2011, 4, 11};
const QStringList names{
    u"cmdOverdue"_s, u"cmdDueToday"_s, u"cmdTrials"_s, u"cmdBirthdays"_s, u"cmdDues"_s, u"cmdBackup"_s};

struct Shop : TestShop {
    Shop()
    {
        session::CurrentDate = today;
        addAccount(u"Asha Rao"_s, {1980, 4, 10});
        addAccount(u"Babu Lal"_s, {1990, 4, 10});
        addAccount(u"Mohan"_s, {1980, 4, 10}, accountType::Worker);
        // Of long ago, so that the shop is no new one.
        addJob({.number = 900, .client = asha, .date = {2009, 1, 2}});
    }

    void addADay()
    {
        for (const int status : {0, 1, 2, 3, 4}) {
            addJobRow({.job = 1, .client = asha, .status = status, .date = yesterday});
            addJobRow({.job = 1, .client = asha, .status = status, .date = today});
            addJobRow({.job = 1, .client = asha, .status = status, .date = tomorrow});
        }
        addJobRow({.job = 2, .client = asha, .date = {2010, 1, 1}});
        for (const QDate day : {yesterday, today, tomorrow})
            addJob({.number = day.day(), .client = asha, .date = day});
        addJob({.number = 20, .client = babu, .date = today, .appeared = trial::Appeared});
        addJob({.number = 21, .client = babu, .date = today});
        connection.execute(u"Update Jobs set Status=1 where id=21"_s);
        addPosting(asha, today, -1200.5);
        addPosting(asha, tomorrow, -5);
        addPosting(babu, today, 70);
    }
};

struct MainScreen : frmMain {
    MainScreen()
    {
        show();
        // It waits until the screen is painted.
        QVERIFY(!glance());
        QVERIFY(driver::waitActive(*this));
    }

    [[nodiscard]] MorningGlance *glance() const { return findChild<MorningGlance *>(); }
    [[nodiscard]] bool isShown() const
    {
        return QTest::qWaitFor([this] { return glance() && glance()->isVisible(); });
    }
    /// Goes to another screen by a key, does something there, and comes back.
    void visit(
        char key, const QString &name, const ModalScript::Action &work = [](QWidget &) {})
    {
        script.expect(name, [&work](QWidget &opened) {
            work(opened);
            press(Qt::Key_Escape);
        });
        accessKey(key);
        QVERIFY(script.isDone());
    }
    [[nodiscard]] QString line(int number) const
    {
        const QString text = control<Command>(*this, qPrintable(names.at(number - 1))).text();
        return text.startsWith(u"&%1   "_s.arg(number)) ? text.mid(5) : u"other number: "_s + text;
    }
    [[nodiscard]] QString lines() const
    {
        QStringList all;
        for (int number = 1; number <= names.size(); ++number)
            all += line(number);
        return all.join(u'\n');
    }

    ModalScript script;
};

struct Glance : MainScreen {
    Glance() { QVERIFY(isShown()); }
};

} // namespace

void GlanceTest::eachLineCounts()
{
    Shop shop;
    shop.addJob({.number = 1, .client = asha, .date = {2011, 5, 1}, .appeared = trial::Canceled});
    {
        session::CurrentDate = {2011, 5, 1};
        const Glance screen;
        QCOMPARE(screen.lines(),
            u"No delivery is overdue\nNo delivery is due today\n1 trial today, none awaited\nNo client has a birthday\n"
            "No client owes anything\nNo good backup is known"_s);
        QCOMPARE(control<QLabel>(*screen.glance(), "lblDay").text(), u"Morning glance, 01-May-2011"_s);
    }
    session::CurrentDate = {2011, 5, 2};
    QCOMPARE(Glance().line(3), u"No trial today"_s);
    session::CurrentDate = today;
    shop.addADay();
    QCOMPARE(Glance().lines(),
        u"4 deliveries are overdue\n3 deliveries are due today\n3 trials today, 1 awaited\n2 clients have a birthday\n"
        "1 client owes 1,200.50\nNo good backup is known"_s);
}

void GlanceTest::eachLineOpensItsRegister()
{
    Shop shop;
    shop.addADay();
    Glance screen;
    const auto opens = [&screen](char key, const QString &name, int rows, QDate from = {}, QDate to = {}) {
        screen.visit(key, name, [=](QWidget &opened) {
            if (from.isValid()) {
                QCOMPARE(control<DateField>(opened, "DateFrom").date(), from);
                QCOMPARE(control<DateField>(opened, "DateTo").date(), to);
            }
            QCOMPARE(control<ListView>(opened, "lvSummary").list().rowCount(), rows);
        });
        QCOMPARE(screen.focusWidget(), &screen);
    };
    // The list of a line is what it counted.
    const int closingRows = 2;
    opens('1', u"frmDeliveryRegister"_s, 4 + closingRows, {2010, 1, 1}, yesterday);
    opens('2', u"frmDeliveryRegister"_s, 3 + closingRows, today, today);
    opens('3', u"frmTrailDate"_s, 3, today, today);
    opens('4', u"frmBirthDayRimenders"_s, 2);
    opens('5', u"frmDueRegister"_s, 1);
    screen.visit('6', u"frmSettings"_s, [](QWidget &opened) {
        const auto &tabs = *opened.findChild<QTabWidget *>();
        QCOMPARE(tabs.tabText(tabs.currentIndex()), u"&Backup"_s);
    });
}

void GlanceTest::theLastGoodBackupIsTold()
{
    Shop shop;
    const QDateTime moment(QDate(2011, 4, 1), QTime(10, 0));
    backup::noteGood(moment);
    Glance screen;
    const auto mark = [&screen] { return control<Command>(screen, "cmdBackup").icon().pixmap(16).toImage(); };
    const QImage none = mark();
    QCOMPARE(screen.line(6), u"Last good backup on 01-Apr-2011"_s);
    // No table was written to.
    machineClock::replace([now = moment.addDays(8)] { return now; });
    screen.visit('a', u"frmAbout"_s);
    QTRY_COMPARE(screen.line(6), u"Last good backup on 01-Apr-2011, over a week ago"_s);
    QVERIFY(mark() != none);
    backup::noteGood(moment.addDays(8));
    screen.visit('a', u"frmAbout"_s);
    QTRY_COMPARE(screen.line(6), u"Last good backup on 09-Apr-2011"_s);
    QCOMPARE(mark(), none);
}

void GlanceTest::itIsReadAnewWhenItMust()
{
    Shop shop;
    shop.addADay();
    Glance screen;
    // Something is written while another screen is in front; nothing is read meanwhile.
    screen.visit('a', u"frmAbout"_s, [&](QWidget &) {
        shop.addPosting(babu, today, -100);
        shop.addJobRow({.job = 3, .client = babu, .date = today});
        QCoreApplication::processEvents();
        QCOMPARE(screen.line(2), u"3 deliveries are due today"_s);
    });
    QTRY_COMPARE(screen.line(2), u"4 deliveries are due today"_s);
    QTRY_COMPARE(screen.line(5), u"2 clients owe 1,230.50"_s);
    // Another day.
    press(Qt::Key_F2);
    type(u"11/4"_s);
    press(Qt::Key_Tab);
    QTRY_COMPARE(screen.lines(),
        u"8 deliveries are overdue\n3 deliveries are due today\n1 trial today, 1 awaited\nNo client has a birthday\n"
        "2 clients owe 1,235.50\nNo good backup is known"_s);
}

void GlanceTest::itIsSwitchedOffForGood()
{
    Shop shop;
    const auto stored = [] { return GetSetting(setting::ShowMorningGlance, u"none"_s); };
    {
        const Glance screen;
        control<Command>(screen, "cmdOverdue").setFocus();
        press(Qt::Key_G, Qt::ControlModifier);
        QVERIFY(!screen.glance()->isVisible());
        QCOMPARE(screen.focusWidget(), &screen);
        QCOMPARE(stored(), u"0"_s);
    }
    shop.addADay();
    MainScreen screen;
    QTRY_VERIFY(screen.glance());
    QTest::qWait(50);
    QVERIFY(!screen.glance()->isVisible());
    press(Qt::Key_G, Qt::ControlModifier);
    QVERIFY(screen.isShown());
    QCOMPARE(screen.line(1), u"4 deliveries are overdue"_s);
    QCOMPARE(stored(), u"1"_s);
    control<Command>(screen, "cmdHide").click();
    QVERIFY(!screen.glance()->isVisible());
    // Another shop, as a restore brings it, has its own choice.
    for (const bool isOn : {true, false}) {
        screen.visit(
            'a', u"frmAbout"_s, [isOn](QWidget &) { SaveSetting(setting::ShowMorningGlance, isOn ? u"1"_s : u"0"_s); });
        QTRY_COMPARE(screen.glance()->isVisible(), isOn);
    }
}

void GlanceTest::aLineThatCannotBeReadSaysSo()
{
    Shop shop;
    shop.addADay();
    // More accounts than a balance has numbers for.
    shop.connection.execute(u"Insert into Accounts (Id, Title, Type) values (40000, 'Zoya', 0)"_s);
    Glance screen;
    const auto &dues = control<Command>(screen, "cmdDues");
    QVERIFY2(screen.line(5).startsWith(u"This cannot be read: Overflow"_s), qPrintable(screen.line(5)));
    QVERIFY(dues.toolTip().contains(u"Overflow"_s));
    screen.visit('5', u"frmMsg"_s);
    QCOMPARE(screen.line(1), u"4 deliveries are overdue"_s);
    shop.connection.execute(u"Delete * from Accounts where Id=40000"_s);
    screen.visit('a', u"frmAbout"_s);
    QTRY_COMPARE(screen.line(5), u"1 client owes 1,200.50"_s);
    QVERIFY(dues.toolTip().isEmpty());
}

void GlanceTest::anEmptyShopSaysWhereToBegin()
{
    TestShop shop;
    Glance screen;
    const auto shown = [&screen] {
        QStringList lines;
        for (const char *name : {"cmdBeginItems", "cmdBeginClients", "cmdBeginCard", "cmdOverdue"}) {
            const auto &line = control<Command>(screen, name);
            if (line.isVisible())
                lines += line.text().section(u"   "_s, 0, 0) + u' ' + line.objectName().mid(3);
        }
        return lines.join(u' ');
    };
    QCOMPARE(shown(), u"&1 BeginItems &2 BeginClients &3 BeginCard &4 Overdue"_s);
    screen.visit('1', u"frmItems"_s, [&shop](QWidget &) { shop.addItem(u"Coat"_s, u"Chest"_s, 400, 150); });
    QTRY_COMPARE(shown(), u"&1 BeginClients &2 BeginCard &3 Overdue"_s);
    screen.visit('1', u"frmClients"_s, [&shop](QWidget &) { shop.addAccount(u"Asha Rao"_s, {1980, 4, 10}); });
    QTRY_COMPARE(shown(), u"&1 BeginCard &2 Overdue"_s);
    screen.visit('1', u"frmEditJOB"_s, [&shop](QWidget &) { shop.addJob({.client = asha, .date = today}); });
    QTRY_COMPARE(shown(), u"&1 Overdue"_s);
}

CORVANE_TEST(GlanceTest)
#include "tst_MorningGlance.moc"
