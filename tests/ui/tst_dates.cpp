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
#include <QLineEdit>
#include <QMenu>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTimer>
#include <QToolTip>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using driver::press;
using driver::type;

class DateScreen : public Screen {
public:
    explicit DateScreen(bool forBirthdays = false) : Screen(u"DateScreen"_s)
    {
        auto *form = new QVBoxLayout(this);
        form->addWidget(&date);
        form->addWidget(&next);
        date.setDate({2015, 6, 15});
        if (forBirthdays)
            date.setForBirthdays();
        QVERIFY(driver::show(*this));
    }
    ~DateScreen() override { QToolTip::hideText(); }

    [[nodiscard]] QLineEdit *line() const { return date.findChild<QLineEdit *>(); }
    [[nodiscard]] QString shown() const { return line()->text(); }
    void useCalendar(QKeyCombination opening, Qt::Key closing)
    {
        press({opening});
        QTRY_VERIFY(date.calendarWidget()->isVisible());
        press(closing);
        QTRY_VERIFY(!date.calendarWidget()->isVisible());
    }

    DateField date{u"DateFrom"_s};
    QLineEdit next;
};

namespace {

QString written(QDate date)
{
    return QLocale::c().toString(date, u"dd-MMM-yyyy");
}

} // namespace

/// Dates typed and chosen.
class DateTest : public QObject {
    Q_OBJECT

private slots:
    void datesAreTypedAsPeopleWriteThem();
    void typingBeginsAnewWhereverTheCaretStands();
    void whatIsNoDateIsNotSaved();
    void whatTheMouseBringsIsTyped();
    void keysAndCharactersChangeTheParts();
    void whatIsNoDateIsToldAndTheDateStays();
    void birthdaysMayBeEmpty();
    void aDateIsAskedFor();
};

void DateTest::datesAreTypedAsPeopleWriteThem()
{
    const std::pair<QString, QDate> typing[]{{u""_s, {2015, 6, 15}}, {u"5"_s, {2015, 6, 5}}, {u"5/4"_s, {2015, 4, 5}},
        {u"0504"_s, {2015, 4, 5}}, {u"1/4/2011"_s, {2011, 4, 1}}, {u"1.4.11"_s, {2011, 4, 1}},
        {u"1 sep 2011"_s, {2011, 9, 1}}, {u"1-April-11"_s, {2011, 4, 1}}, {u"1apr11"_s, {2011, 4, 1}},
        {u"010411"_s, {2011, 4, 1}}, {u"31122010"_s, {2010, 12, 31}}, {u"29-2-2012"_s, {2012, 2, 29}},
        {u"2011-04-01"_s, {2011, 4, 1}}};
    for (const auto &[typed, date] : typing) {
        DateScreen screen;
        QSignalSpy changes(&screen.date, &QDateEdit::dateChanged);
        type(typed);
        press(Qt::Key_Tab);
        QVERIFY(screen.next.hasFocus());
        QVERIFY2(screen.date.date() == date, qPrintable(typed));
        QCOMPARE(screen.shown(), written(date));
        QCOMPARE(changes.count(), typed.isEmpty() ? 0 : 1);
    }
}

/// A second typing means what the first one did.
void DateTest::typingBeginsAnewWhereverTheCaretStands()
{
    using Way = std::function<void(DateScreen & screen)>;
    const auto pressing = [](const QList<Qt::Key> &keys) -> Way {
        return [keys](auto &) {
            for (const Qt::Key key : keys)
                press(key);
        };
    };
    const std::map<QString, Way> ways{{u"entered"_s, pressing({})}, {u"F2"_s, pressing({Qt::Key_F2})},
        {u"Enter"_s, pressing({Qt::Key_Return})}, {u"Up"_s, pressing({Qt::Key_Up, Qt::Key_Down})},
        {u"Right and Up"_s, pressing({Qt::Key_Right, Qt::Key_Up, Qt::Key_Down})},
        {u"typed and Up"_s, pressing({Qt::Key_1, Qt::Key_0, Qt::Key_Up})},
        {u"the calendar closed"_s, [](auto &screen) { screen.useCalendar(Qt::Key_F4, Qt::Key_Escape); }},
        {u"a date chosen"_s, [](auto &screen) { screen.useCalendar(Qt::Key_F4, Qt::Key_Return); }},
        {u"a click on the year"_s,
            [](auto &screen) {
                const int yearAt = screen.line()->fontMetrics().horizontalAdvance(u"15-Jun-20"_s);
                QTest::mouseClick(screen.line(), Qt::LeftButton, {}, QPoint(yearAt, screen.line()->height() / 2));
            }},
        {u"a date set"_s,
            [](auto &screen) {
                const QDate date = screen.date.date();
                type(u"1"_s);
                screen.date.setDate(date);
                QCOMPARE(screen.shown(), written(date));
            }},
        {u"another program"_s, [](auto &screen) {
             for (const auto passing : {QEvent::FocusOut, QEvent::FocusIn}) {
                 QFocusEvent event(passing, Qt::ActiveWindowFocusReason);
                 QApplication::sendEvent(&screen.date, &event);
             }
         }}};
    for (const auto &[name, goOn] : ways) {
        DateScreen screen;
        for (const auto &[typed, entered] : {std::pair{u"20"_s, QDate(2015, 6, 20)}, {u"2/9"_s, QDate(2015, 9, 2)},
                 {u"3/4/2012"_s, QDate(2012, 4, 3)}, {u"4"_s, QDate(2012, 4, 4)}}) {
            QVERIFY(screen.date.hasFocus());
            goOn(screen);
            type(typed);
            QVERIFY2(screen.shown() == typed, qPrintable(name + u": "_s + screen.shown()));
            press(Qt::Key_Return);
            QCOMPARE(screen.date.date(), entered);
        }
    }
}

void DateTest::whatIsNoDateIsToldAndTheDateStays()
{
    for (const QString &typed :
        {u"31/6/2015"_s, u"29-2-2011"_s, u"abc"_s, u"1/13"_s, u"1/4/2011/9"_s, u"1/4/99999"_s}) {
        DateScreen screen;
        // Escape drops it, told or not, and no more.
        for (const bool isTold : {false, true}) {
            type(typed);
            QCOMPARE(screen.shown(), typed);
            if (isTold)
                press(Qt::Key_Return);
            press(Qt::Key_Escape);
            QCOMPARE(screen.shown() + screen.date.refused(), u"15-Jun-2015"_s);
            QVERIFY(screen.isVisible());
        }
        type(typed);
        press(Qt::Key_Return);
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
            press(Qt::Key_Tab);
        }
        QVERIFY(screen.date.hasFocus());
        type(u"5"_s);
        QCOMPARE(screen.shown(), u"5"_s);
        QVERIFY(!isMarked());
        press(Qt::Key_Tab);
        QCOMPARE(screen.date.date(), QDate(2015, 6, 5));
        QCOMPARE(screen.date.refused(), QString());
    }
}

void DateTest::whatIsNoDateIsNotSaved()
{
    DateScreen screen;
    ModalScript script;
    const auto isRefused = [&] {
        script.expectMessage(u"\"31/6\" is not a date!"_s);
        return hasRefusedDate(screen);
    };
    type(u"31/6"_s);
    screen.next.setFocus();
    for (int i = 0; i < 2; ++i) {
        QVERIFY(isRefused());
        QTRY_VERIFY(screen.date.hasFocus());
        QCOMPARE(screen.shown(), u"31/6"_s);
    }
    // Chosen in the calendar, the date that stayed is one again.
    screen.useCalendar(Qt::Key_F4, Qt::Key_Return);
    QVERIFY(!hasRefusedDate(screen));
    QCOMPARE(screen.shown(), u"15-Jun-2015"_s);
    // What is half typed when a key saves counts too.
    type(u"30/6"_s);
    QVERIFY(!hasRefusedDate(screen));
    QCOMPARE(screen.date.date(), QDate(2015, 6, 30));
    type(u"31/6"_s);
    QVERIFY(isRefused());
}

void DateTest::whatTheMouseBringsIsTyped()
{
    for (const QString &way : {u"Ctrl+V"_s, u"menu"_s, u"middle button"_s, u"composed"_s}) {
        DateScreen screen;
        QLineEdit *const line = screen.line();
        const auto choose = [&screen, line](const QString &entry) {
            QTimer::singleShot(0, &screen, [entry] {
                for (QAction *action : qobject_cast<QMenu *>(QApplication::activePopupWidget())->actions()) {
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
            if (way == u"Ctrl+V"_s)
                press(Qt::Key_V, Qt::ControlModifier);
            else if (way == u"menu"_s)
                choose(u"&Paste"_s);
            else if (way == u"middle button"_s)
                QTest::mouseClick(line, Qt::MiddleButton, {}, line->rect().center());
            else
                driver::compose(screen.date, text);
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
        press(Qt::Key_F2);
        choose(u"Cu&t"_s);
        QCOMPARE(screen.shown(), u"28-Feb-2011"_s);
        line->setSelection(1, 1);
        press(Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(screen.shown(), u"28-Feb-2011"_s);
        QCOMPARE(screen.date.date(), QDate(2011, 2, 28));
    }
}

void DateTest::keysAndCharactersChangeTheParts()
{
    machineClock::replace([] { return QDateTime(QDate(2011, 4, 1), QTime(10, 0)); });
    const auto putBack = qScopeGuard([] { machineClock::replace({}); });
    DateScreen screen;
    const auto typed = [&screen](const QString &text, std::initializer_list<QKeyCombination> keys = {}) {
        type(text);
        press(keys);
        return screen.date.date();
    };
    QCOMPARE(typed(u"++"_s), QDate(2015, 6, 17));
    QCOMPARE(typed(u"-"_s), QDate(2015, 6, 16));
    QCOMPARE(typed(u"30+"_s), QDate(2015, 7, 1));
    // Behind a number it parts the date.
    QCOMPARE(typed(u"3-8"_s, {Qt::Key_Return}), QDate(2015, 8, 3));
    QCOMPARE(typed(u"1oct"_s, {Qt::Key_Return}), QDate(2015, 10, 1));
    QCOMPARE(typed(u""_s, {Qt::Key_Up}), QDate(2015, 10, 2));
    QCOMPARE(typed(u"20"_s, {Qt::Key_Down}), QDate(2015, 10, 19));
    QCOMPARE(typed(u""_s, {Qt::Key_Right, Qt::Key_Up}), QDate(2015, 11, 19));
    typed(u"1"_s, {Qt::Key_Backspace});
    QCOMPARE(screen.shown(), u"19-Nov-2015"_s);
    for (const QKeyCombination opening : {QKeyCombination(Qt::Key_F4), Qt::ALT | Qt::Key_Down})
        screen.useCalendar(opening, Qt::Key_Escape);
    QVERIFY(screen.isVisible());
    driver::turnWheel(screen.date);
    QCOMPARE(screen.date.date(), QDate(2015, 11, 19));
    QCOMPARE(typed(u"t"_s), QDate(2011, 4, 1));
}

void DateTest::birthdaysMayBeEmpty()
{
    machineClock::replace([] { return QDateTime(QDate(2011, 4, 1), QTime(10, 0)); });
    const auto putBack = qScopeGuard([] { machineClock::replace({}); });
    DateScreen screen(true);
    const auto isEmpty = [&screen] { return screen.date.isEmpty() && screen.shown().trimmed().isEmpty(); };
    QVERIFY(isEmpty());
    for (const auto key : {Qt::Key_Up, Qt::Key_PageDown, Qt::Key_Right, Qt::Key_Delete}) {
        press(key);
        QVERIFY(isEmpty());
    }
    screen.useCalendar(Qt::Key_F4, Qt::Key_Escape);
    QCOMPARE(screen.date.calendarWidget()->yearShown(), QDate::currentDate().year());
    QVERIFY(isEmpty());
    // Half a date of an empty field is none.
    const std::pair<QString, QDate> typing[]{{u"12/5/1975"_s, {1975, 5, 12}}, {u"12/5/75"_s, {1975, 5, 12}},
        {u"120510"_s, {2010, 5, 12}}, {u"12/5/11"_s, {2011, 5, 12}}, {u"12/5/12"_s, {1912, 5, 12}},
        {u"1975-05-12"_s, {1975, 5, 12}}, {u"12"_s, {}}, {u"12/5"_s, {}}, {u"31/6/1975"_s, {}}};
    for (const auto &[typed, date] : typing) {
        type(typed);
        QCOMPARE(screen.shown(), typed);
        press(Qt::Key_Tab);
        QVERIFY(screen.next.hasFocus());
        QVERIFY2(screen.date.birthday() == date, qPrintable(typed));
        QCOMPARE(screen.date.refused(), date.isValid() ? QString() : typed);
        QCOMPARE(screen.date.isEmpty(), !date.isValid());
        for (const auto key : {Qt::Key_Delete, Qt::Key_Backspace}) {
            screen.date.setBirthday({1980, 1, 31});
            QCOMPARE(screen.shown(), u"31-Jan-1980"_s);
            screen.date.setFocus(Qt::TabFocusReason);
            press(key);
            QVERIFY(isEmpty());
            press(Qt::Key_Tab);
            QVERIFY(isEmpty());
        }
        screen.date.setFocus(Qt::TabFocusReason);
    }
}

void DateTest::aDateIsAskedFor()
{
    ModalScript script;
    script.expect(u"frmSetDate"_s, [&script](QWidget &) {
        type(u"5/13/2012"_s);
        script.expectMessage(u"\"5/13/2012\" is not a date!"_s);
        driver::accessKey('o');
        type(u"5/6/2012"_s);
        press(Qt::Key_Return);
    });
    QCOMPARE(frmSetDate().SelectDate({2011, 4, 1}), QDate(2012, 6, 5));
}

CORVANE_TEST(DateTest)
#include "tst_dates.moc"
