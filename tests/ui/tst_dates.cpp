#include "base/clock.h"
#include "support/ModalScript.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/DateField.h"
#include "ui/Screen.h"
#include "ui/complain.h"
#include "ui/frmSetDate.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QTimer>
#include <QToolTip>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

class DateScreen : public Screen {
public:
    DateScreen() : Screen(u"DateScreen"_s)
    {
        auto *form = new QVBoxLayout(this);
        form->addWidget(&date);
        form->addWidget(&next);
        date.setDate({2015, 6, 15});
    }

    [[nodiscard]] QString shown() const { return date.findChild<QLineEdit *>()->text(); }

    DateField date{u"DateFrom"_s};
    QLineEdit next;
};

/// Dates typed and chosen.
class DateTest : public QObject {
    Q_OBJECT

private slots:
    void datesAreTypedAsPeopleWriteThem_data();
    void datesAreTypedAsPeopleWriteThem();
    void typingBeginsAnewWhereverTheCaretStands_data();
    void typingBeginsAnewWhereverTheCaretStands();
    void whatIsNoDateIsNotSaved();
    void whatTheMouseBringsIsTyped_data();
    void whatTheMouseBringsIsTyped();
    void escapeDropsWhatIsTyped();
    void aCharacterStepsTheDay();
    void whatIsNoDateIsToldAndTheDateStays_data();
    void whatIsNoDateIsToldAndTheDateStays();
    void keysChangeThePartsAndOpenTheCalendar();
    void theWheelChangesNothing();
    void birthdaysMayBeEmpty_data();
    void birthdaysMayBeEmpty();
    void aDateIsAskedFor();
};

void DateTest::datesAreTypedAsPeopleWriteThem_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QDate>("date");
    const auto row = [](const QString &typed, const QDate &date) { QTest::newRow(qPrintable(typed)) << typed << date; };
    row(u""_s, {2015, 6, 15});
    row(u"5"_s, {2015, 6, 5});
    row(u"5/4"_s, {2015, 4, 5});
    row(u"0504"_s, {2015, 4, 5});
    row(u"1/4/2011"_s, {2011, 4, 1});
    row(u"1.4.11"_s, {2011, 4, 1});
    row(u"1 sep 2011"_s, {2011, 9, 1});
    row(u"1-April-11"_s, {2011, 4, 1});
    row(u"1apr11"_s, {2011, 4, 1});
    row(u"010411"_s, {2011, 4, 1});
    row(u"31122010"_s, {2010, 12, 31});
    row(u"29-2-2012"_s, {2012, 2, 29});
    row(u"2011-04-01"_s, {2011, 4, 1});
}

void DateTest::datesAreTypedAsPeopleWriteThem()
{
    QFETCH(QString, typed);
    QFETCH(QDate, date);
    DateScreen screen;
    QVERIFY(driver::show(screen));
    QSignalSpy changes(&screen.date, &QDateEdit::dateChanged);
    driver::type(typed);
    driver::press(Qt::Key_Tab);
    QVERIFY(screen.next.hasFocus());
    QCOMPARE(screen.date.date(), date);
    QCOMPARE(screen.shown(), QLocale::c().toString(date, u"dd-MMM-yyyy"));
    QCOMPARE(changes.count(), date == QDate(2015, 6, 15) ? 0 : 1);
}

void DateTest::typingBeginsAnewWhereverTheCaretStands_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"entered", "F2", "Enter", "Up", "Right and Up", "a click on the year", "typed and Up",
             "the calendar closed", "a date chosen", "a date set", "another program"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

/// A second typing means what the first one did.
void DateTest::typingBeginsAnewWhereverTheCaretStands()
{
    QFETCH(QString, way);
    const std::pair<QString, QDate> entries[]{
        {u"20"_s, {2015, 6, 20}}, {u"2/9"_s, {2015, 9, 2}}, {u"3/4/2012"_s, {2012, 4, 3}}, {u"4"_s, {2012, 4, 4}}};
    DateScreen screen;
    QVERIFY(driver::show(screen));
    QDate date(2015, 6, 15);
    for (const auto &[typed, entered] : entries) {
        QVERIFY(screen.date.hasFocus());
        if (way == u"F2"_s) {
            driver::press(Qt::Key_F2);
        } else if (way == u"Enter"_s) {
            driver::press(Qt::Key_Return);
        } else if (way == u"Up"_s) {
            driver::press(Qt::Key_Up);
            QCOMPARE(screen.date.date(), date.addDays(1));
            driver::press(Qt::Key_Down);
        } else if (way == u"Right and Up"_s) {
            driver::press(Qt::Key_Right);
            driver::press(Qt::Key_Up);
            QCOMPARE(screen.date.date(), date.addMonths(1));
            driver::press(Qt::Key_Down);
        } else if (way == u"a click on the year"_s) {
            auto *line = screen.date.findChild<QLineEdit *>();
            const int yearAt = line->fontMetrics().horizontalAdvance(u"15-Jun-20"_s);
            QTest::mouseClick(line, Qt::LeftButton, {}, QPoint(yearAt, line->height() / 2));
        } else if (way == u"typed and Up"_s) {
            driver::type(u"10"_s);
            driver::press(Qt::Key_Up);
            QCOMPARE(screen.date.date(), QDate(date.year(), date.month(), 11));
        } else if (way == u"the calendar closed"_s || way == u"a date chosen"_s) {
            driver::press(Qt::Key_F4);
            QTRY_VERIFY(screen.date.calendarWidget()->isVisible());
            driver::press(way == u"a date chosen"_s ? Qt::Key_Return : Qt::Key_Escape);
            QTRY_VERIFY(!screen.date.calendarWidget()->isVisible());
        } else if (way == u"a date set"_s) {
            driver::type(u"1"_s);
            screen.date.setDate(date);
            QCOMPARE(screen.shown(), QLocale::c().toString(date, u"dd-MMM-yyyy"));
        } else if (way == u"another program"_s) {
            QFocusEvent gone(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
            QApplication::sendEvent(&screen.date, &gone);
            QFocusEvent back(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
            QApplication::sendEvent(&screen.date, &back);
        }
        driver::type(typed);
        QCOMPARE(screen.shown(), typed);
        driver::press(Qt::Key_Return);
        QCOMPARE(screen.date.date(), entered);
        date = entered;
    }
}

void DateTest::whatIsNoDateIsToldAndTheDateStays_data()
{
    QTest::addColumn<QString>("typed");
    for (const char *typed : {"31/6/2015", "29-2-2011", "abc", "1/13", "1/4/2011/9", "1/4/99999"})
        QTest::newRow(typed) << QString::fromLatin1(typed);
}

void DateTest::whatIsNoDateIsToldAndTheDateStays()
{
    QFETCH(QString, typed);
    DateScreen screen;
    QVERIFY(driver::show(screen));
    driver::type(typed);
    QCOMPARE(screen.shown(), typed);
    driver::press(Qt::Key_Return);
    QCOMPARE(screen.date.date(), QDate(2015, 6, 15));
    QTRY_COMPARE(QToolTip::text(), u"\"%1\" is not a date. Escape brings back 15-Jun-2015."_s.arg(typed));
    // It stands there, marked, wherever the focus goes, until something better takes its place.
    const auto isMarked = [&screen] {
        const QColor corner = screen.date.grab().toImage().pixelColor(screen.date.width() / 2, 1);
        return corner.red() > 150 && corner.green() < 100;
    };
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(screen.shown(), typed);
        QCOMPARE(screen.date.refused(), typed);
        QVERIFY(isMarked());
        driver::press(Qt::Key_Tab);
    }
    QVERIFY(screen.date.hasFocus());
    driver::type(u"5"_s);
    QCOMPARE(screen.shown(), u"5"_s);
    QVERIFY(!isMarked());
    driver::press(Qt::Key_Tab);
    QCOMPARE(screen.date.date(), QDate(2015, 6, 5));
    QCOMPARE(screen.date.refused(), QString());
    QToolTip::hideText();
}

void DateTest::whatIsNoDateIsNotSaved()
{
    DateScreen screen;
    QVERIFY(driver::show(screen));
    ModalScript script;
    driver::type(u"31/6"_s);
    screen.next.setFocus();
    for (int i = 0; i < 2; ++i) {
        script.expectMessage(u"\"31/6\" is not a date!"_s);
        QVERIFY(hasRefusedDate(screen));
        QTRY_VERIFY(screen.date.hasFocus());
        QCOMPARE(screen.shown(), u"31/6"_s);
    }
    // Chosen in the calendar, the date that stayed is one again.
    driver::press(Qt::Key_F4);
    QTRY_VERIFY(screen.date.calendarWidget()->isVisible());
    driver::press(Qt::Key_Return);
    QTRY_VERIFY(!screen.date.calendarWidget()->isVisible());
    QVERIFY(!hasRefusedDate(screen));
    QCOMPARE(screen.shown(), u"15-Jun-2015"_s);
    // What is half typed when a key saves counts too.
    driver::type(u"30/6"_s);
    QVERIFY(!hasRefusedDate(screen));
    QCOMPARE(screen.date.date(), QDate(2015, 6, 30));
    driver::type(u"31/6"_s);
    script.expectMessage(u"\"31/6\" is not a date!"_s);
    QVERIFY(hasRefusedDate(screen));
    QToolTip::hideText();
}

void DateTest::whatTheMouseBringsIsTyped_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"Ctrl+V", "menu", "middle button", "composed"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

void DateTest::whatTheMouseBringsIsTyped()
{
    QFETCH(QString, way);
    DateScreen screen;
    QVERIFY(driver::show(screen));
    auto *line = screen.date.findChild<QLineEdit *>();
    const auto choose = [&screen, line](const QString &entry) {
        QTimer::singleShot(0, &screen, [entry] {
            const auto actions = qobject_cast<QMenu *>(QApplication::activePopupWidget())->actions();
            for (QAction *action : actions) {
                if (action->text().startsWith(entry))
                    action->trigger();
            }
            QApplication::activePopupWidget()->close();
        });
        const QPoint place = line->rect().center();
        QContextMenuEvent wanted(QContextMenuEvent::Mouse, place, line->mapToGlobal(place));
        QApplication::sendEvent(line, &wanted);
    };
    const auto bring = [&](const QString &text) {
        QApplication::clipboard()->setText(text);
        QApplication::clipboard()->setText(text, QClipboard::Selection);
        if (way == u"Ctrl+V"_s) {
            driver::press(Qt::Key_V, Qt::ControlModifier);
        } else if (way == u"menu"_s) {
            choose(u"&Paste"_s);
        } else if (way == u"middle button"_s) {
            QTest::mouseClick(line, Qt::MiddleButton, {}, line->rect().center());
        } else {
            QInputMethodEvent begun(text.left(1), {});
            QApplication::sendEvent(&screen.date, &begun);
            QInputMethodEvent composed;
            composed.setCommitString(text);
            QApplication::sendEvent(&screen.date, &composed);
        }
    };
    bring(u"31-feb-2011"_s);
    QCOMPARE(screen.shown(), u"31-feb-2011"_s);
    QCOMPARE(screen.date.date(), QDate(2015, 6, 15));
    QCOMPARE(screen.date.refused(), u"31-feb-2011"_s);
    bring(u"28-feb-2011"_s);
    QCOMPARE(screen.date.refused(), QString());
    QCOMPARE(screen.date.date(), QDate(2011, 2, 28));
    screen.next.setFocus();
    QCOMPARE(screen.shown(), u"28-Feb-2011"_s);

    // What the menu takes out of a date leaves it whole.
    screen.date.setFocus();
    driver::press(Qt::Key_F2);
    choose(u"Cu&t"_s);
    QCOMPARE(screen.shown(), u"28-Feb-2011"_s);
    line->setSelection(1, 1);
    driver::press(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(screen.shown(), u"28-Feb-2011"_s);
    QCOMPARE(screen.date.date(), QDate(2011, 2, 28));
    QToolTip::hideText();
}

void DateTest::escapeDropsWhatIsTyped()
{
    DateScreen screen;
    QVERIFY(driver::show(screen));
    for (const bool isRefused : {false, true}) {
        driver::type(u"31/6"_s);
        if (isRefused)
            driver::press(Qt::Key_Return);
        driver::press(Qt::Key_Escape);
        QVERIFY(screen.isVisible());
        QCOMPARE(screen.shown(), u"15-Jun-2015"_s);
        QCOMPARE(screen.date.refused(), QString());
    }
    driver::press(Qt::Key_Escape);
    QVERIFY(!screen.isVisible());
    QToolTip::hideText();
}

void DateTest::aCharacterStepsTheDay()
{
    machineClock::replace([] { return QDateTime(QDate(2011, 4, 1), QTime(10, 0)); });
    DateScreen screen;
    QVERIFY(driver::show(screen));
    driver::type(u"++"_s);
    QCOMPARE(screen.date.date(), QDate(2015, 6, 17));
    driver::type(u"-"_s);
    QCOMPARE(screen.date.date(), QDate(2015, 6, 16));
    driver::type(u"30+"_s);
    QCOMPARE(screen.date.date(), QDate(2015, 7, 1));
    // Behind a number it parts the date.
    driver::type(u"3-8"_s);
    driver::press(Qt::Key_Tab);
    QCOMPARE(screen.date.date(), QDate(2015, 8, 3));
    screen.date.setFocus();
    driver::type(u"1oct"_s);
    driver::press(Qt::Key_Tab);
    QCOMPARE(screen.date.date(), QDate(2015, 10, 1));
    screen.date.setFocus();
    driver::type(u"t"_s);
    QCOMPARE(screen.date.date(), QDate(2011, 4, 1));
    machineClock::replace({});
}

void DateTest::keysChangeThePartsAndOpenTheCalendar()
{
    DateScreen screen;
    QVERIFY(driver::show(screen));
    driver::press(Qt::Key_Up);
    QCOMPARE(screen.date.date(), QDate(2015, 6, 16));
    driver::type(u"20"_s);
    driver::press(Qt::Key_Down);
    QCOMPARE(screen.date.date(), QDate(2015, 6, 19));
    driver::type(u"1"_s);
    driver::press(Qt::Key_Backspace);
    QCOMPARE(screen.shown(), u"19-Jun-2015"_s);
    for (const bool byF4 : {true, false}) {
        driver::press(byF4 ? Qt::Key_F4 : Qt::Key_Down, byF4 ? Qt::NoModifier : Qt::AltModifier);
        QTRY_VERIFY(screen.date.calendarWidget()->isVisible());
        driver::press(Qt::Key_Escape);
        QTRY_VERIFY(!screen.date.calendarWidget()->isVisible());
    }
    QVERIFY(screen.isVisible());
    QCOMPARE(screen.date.date(), QDate(2015, 6, 19));
}

void DateTest::theWheelChangesNothing()
{
    DateScreen screen;
    QVERIFY(driver::show(screen));
    QWheelEvent turn(QPointF(5, 5), screen.date.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
        Qt::NoScrollPhase, false);
    QApplication::sendEvent(&screen.date, &turn);
    QCOMPARE(screen.date.date(), QDate(2015, 6, 15));
}

void DateTest::birthdaysMayBeEmpty_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QDate>("date");
    const auto row = [](const QString &typed, const QDate &date) { QTest::newRow(qPrintable(typed)) << typed << date; };
    row(u"12/5/1975"_s, {1975, 5, 12});
    row(u"12/5/75"_s, {1975, 5, 12});
    row(u"120510"_s, {2010, 5, 12});
    row(u"12/5/11"_s, {2011, 5, 12});
    row(u"12/5/12"_s, {1912, 5, 12});
    row(u"1975-05-12"_s, {1975, 5, 12});
    // Half a date of an empty field is none.
    row(u"12"_s, {});
    row(u"12/5"_s, {});
    row(u"31/6/1975"_s, {});
}

void DateTest::birthdaysMayBeEmpty()
{
    QFETCH(QString, typed);
    QFETCH(QDate, date);
    machineClock::replace([] { return QDateTime(QDate(2011, 4, 1), QTime(10, 0)); });
    DateScreen screen;
    screen.date.setForBirthdays();
    QVERIFY(driver::show(screen));
    const auto isEmpty = [&screen] { return screen.date.isEmpty() && screen.shown().trimmed().isEmpty(); };
    QVERIFY(isEmpty());
    for (const auto key : {Qt::Key_Up, Qt::Key_PageDown, Qt::Key_Right, Qt::Key_Delete}) {
        driver::press(key);
        QVERIFY(isEmpty());
    }
    driver::press(Qt::Key_F4);
    QTRY_VERIFY(screen.date.calendarWidget()->isVisible());
    QCOMPARE(screen.date.calendarWidget()->yearShown(), QDate::currentDate().year());
    driver::press(Qt::Key_Escape);
    QTRY_VERIFY(!screen.date.calendarWidget()->isVisible());
    QVERIFY(isEmpty());
    driver::type(typed);
    QCOMPARE(screen.shown(), typed);
    driver::press(Qt::Key_Tab);
    QVERIFY(screen.next.hasFocus());
    QCOMPARE(screen.date.birthday(), date);
    QCOMPARE(screen.date.refused(), date.isValid() ? QString() : typed);
    QCOMPARE(screen.date.isEmpty(), !date.isValid());
    for (const auto key : {Qt::Key_Delete, Qt::Key_Backspace}) {
        screen.date.setBirthday({1980, 1, 31});
        QCOMPARE(screen.shown(), u"31-Jan-1980"_s);
        screen.date.setFocus(Qt::TabFocusReason);
        driver::press(key);
        QVERIFY(isEmpty());
        driver::press(Qt::Key_Tab);
        QVERIFY(isEmpty());
    }
    QToolTip::hideText();
    machineClock::replace({});
}

void DateTest::aDateIsAskedFor()
{
    const QDate given(2011, 4, 1);
    ModalScript script;
    script.expect(u"frmSetDate"_s, [](QWidget &window) {
        QCOMPARE(window.windowTitle(), u"Select Date"_s);
        driver::type(u"5/6/2012"_s);
        driver::accessKey('o');
    });
    QCOMPARE(frmSetDate().SelectDate(given), QDate(2012, 6, 5));
    script.expect(u"frmSetDate"_s, [](QWidget &) {
        driver::type(u"5/6/2012"_s);
        driver::press(Qt::Key_Return);
    });
    QCOMPARE(frmSetDate().SelectDate(given), QDate(2012, 6, 5));
    script.expect(u"frmSetDate"_s, [](QWidget &) {
        driver::type(u"5/6/2012"_s);
        driver::press(Qt::Key_Escape);
        driver::press(Qt::Key_Escape);
    });
    QCOMPARE(frmSetDate().SelectDate(given), given);
    script.expect(u"frmSetDate"_s, [&script](QWidget &) {
        driver::type(u"5/13/2012"_s);
        script.expectMessage(u"\"5/13/2012\" is not a date!"_s);
        driver::accessKey('o');
        driver::type(u"5/6/2012"_s);
        driver::press(Qt::Key_Return);
    });
    QCOMPARE(frmSetDate().SelectDate(given), QDate(2012, 6, 5));
}

CORVANE_TEST(DateTest)
#include "tst_dates.moc"
