#include "ui/DateField.h"

#include "base/clock.h"
#include "base/values.h"
#include "ui/FieldFocus.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <QStyleOptionComboBox>
#include <QTimer>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

constexpr int thisCentury = 2000;
constexpr int century = 100;

/// "1/4/11" into its parts; digits without separators are taken as day, month and year of two digits each, the year
/// also of four.
QStringList partsOf(const QString &typed, int firstPart)
{
    static const QRegularExpression partPattern(u"[0-9]+|[A-Za-z]+"_s);
    static const QRegularExpression runOfDigits(u"^[0-9]{4}([0-9]{2}|[0-9]{4})?$"_s);
    if (firstPart == 0 && runOfDigits.match(typed).hasMatch()) {
        QStringList parts{typed.left(2), typed.mid(2, 2)};
        if (typed.size() > 4)
            parts += typed.mid(4);
        return parts;
    }
    QStringList parts;
    for (auto matches = partPattern.globalMatch(typed); matches.hasNext();)
        parts += matches.next().captured();
    return parts;
}

} // namespace

DateField::DateField(QWidget *parent) : QDateEdit(parent)
{
    // The plain locale: others shorten September and order the parts in their own ways.
    setLocale(QLocale::c());
    setDisplayFormat(u"dd-MMM-yyyy"_s);
    setCalendarPopup(true);
    setFocusPolicy(Qt::StrongFocus);
    // Date fields are drawn less high than the text fields that they stand beside.
    setMinimumHeight(QLineEdit().sizeHint().height());
    showFocus(this);
}

DateField::DateField(const QString &name, QWidget *parent) : DateField(parent)
{
    setObjectName(name);
}

void DateField::setForBirthdays()
{
    m_forBirthdays = true;
    // The first date that the field knows stands for none.
    setSpecialValueText(u" "_s);
    makeEmpty();
}

bool DateField::isEmpty() const
{
    return m_forBirthdays && date() == minimumDate();
}

void DateField::makeEmpty()
{
    m_typed.clear();
    setDate(minimumDate());
    showTyped();
}

QDate DateField::birthday() const
{
    return isEmpty() ? QDate() : date();
}

void DateField::setBirthday(QDate date)
{
    if (date.isValid())
        setDate(date);
    else
        makeEmpty();
}

bool DateField::focusNextPrevChild(bool next)
{
    // Past QDateTimeEdit, for which Tab walks through the parts.
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    return QWidget::focusNextPrevChild(next);
}

void DateField::focusInEvent(QFocusEvent *event)
{
    m_refused.clear();
    QDateEdit::focusInEvent(event);
}

void DateField::focusOutEvent(QFocusEvent *event)
{
    takeTyped();
    QDateEdit::focusOutEvent(event);
}

void DateField::mousePressEvent(QMouseEvent *event)
{
    takeTyped();
    prepareCalendar();
    QDateEdit::mousePressEvent(event);
    if (isEmpty())
        calendarWidget()->showToday();
}

bool DateField::eventFilter(QObject *watched, QEvent *event)
{
    // The calendar is the only thing watched.
    if (event->type() == QEvent::Hide)
        emit calendarClosed();
    return QDateEdit::eventFilter(watched, event);
}

void DateField::wheelEvent(QWheelEvent *event)
{
    // A turn of the wheel over the field must not change a date unseen.
    event->ignore();
}

void DateField::keyPressEvent(QKeyEvent *event)
{
    const bool opensCalendar =
        event->key() == Qt::Key_F4 || (event->key() == Qt::Key_Down && event->modifiers().testFlag(Qt::AltModifier));
    if (opensCalendar)
        return openCalendar();
    if (event->matches(QKeySequence::Paste)) {
        m_typed.clear();
        return type(QApplication::clipboard()->text().simplified());
    }
    const bool empties = m_forBirthdays && !isReadOnly()
        && (event->key() == Qt::Key_Delete || (event->key() == Qt::Key_Backspace && m_typed.isEmpty()));
    if (empties)
        return makeEmpty();
    if (event->key() == Qt::Key_Backspace) {
        m_typed.chop(1);
        return showTyped();
    }
    const QString text = event->text();
    const bool types = text.size() == 1 && !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier))
        && (text.at(0).isLetterOrNumber() || u"/-. "_s.contains(text.at(0)));
    if (types)
        return type(text);
    // Enter on what is no date does not go on to the screen's default command.
    if (!takeTyped())
        return;
    // There is no part to change in an empty field.
    if (isEmpty())
        return event->ignore();
    if (isWholeSelected())
        setCurrentSectionIndex(0);
    QDateEdit::keyPressEvent(event);
}

bool DateField::isWholeSelected() const
{
    return lineEdit()->selectedText() == lineEdit()->text();
}

void DateField::type(const QString &text)
{
    if (isReadOnly())
        return;
    m_refused.clear();
    if (m_typed.isEmpty())
        m_firstPart = isWholeSelected() || isEmpty() ? 0 : currentSectionIndex();
    m_typed += text;
    showTyped();
}

QValidator::State DateField::validate(QString &input, int &place) const
{
    // QDateTimeEdit would correct a date that isn't finished.
    return m_typed.isEmpty() ? QDateEdit::validate(input, place) : QValidator::Intermediate;
}

void DateField::showTyped()
{
    const QSignalBlocker quiet(lineEdit());
    if (m_typed.isEmpty() && isEmpty())
        return lineEdit()->setText(specialValueText());
    QStringList parts = DateText(date()).split(u'-');
    if (!m_typed.isEmpty())
        parts = parts.first(m_firstPart) << m_typed;
    lineEdit()->setText(parts.join(u'-'));
}

bool DateField::takeTyped()
{
    if (m_typed.isEmpty())
        return true;
    const QDate typed = typedDate();
    const QString text = std::exchange(m_typed, {});
    const bool fits = typed.isValid() && typed >= minimumDate() && typed <= maximumDate();
    showTyped();
    if (fits) {
        setDate(typed);
        return true;
    }
    m_refused = text;
    QApplication::beep();
    // Once the focus has moved: a change of focus hides the tip.
    QTimer::singleShot(0, this, [this, text] {
        const QString kept = isEmpty() ? u"empty"_s : DateText(date());
        QToolTip::showText(
            mapToGlobal(rect().bottomLeft()), u"\"%1\" is not a date. It is still %2."_s.arg(text, kept));
    });
    return false;
}

QDate DateField::typedDate() const
{
    const QStringList typed = partsOf(m_typed, m_firstPart);
    // A year in front is the one form that is read as it stands.
    if (m_firstPart == 0 && typed.size() == 3 && typed.at(0).size() == 4) {
        const auto moment = readDateTime(typed.join(u'-'));
        return moment ? moment->date() : QDate();
    }
    QStringList parts = DateText(date()).split(u'-');
    const qsizetype lastPart = m_firstPart + typed.size();
    if (typed.isEmpty() || lastPart > parts.size() || (isEmpty() && lastPart < parts.size()))
        return {};
    for (int i = 0; i < typed.size(); ++i)
        parts[m_firstPart + i] = typed.at(i);
    QString &year = parts[2];
    if (year.size() == 2)
        year = QString::number(wholeYear(year.toInt()));
    const auto moment = readDateTime(parts.join(u'-'));
    return moment ? moment->date() : QDate();
}

int DateField::wholeYear(int ofTwoDigits) const
{
    const int year = thisCentury + ofTwoDigits;
    return m_forBirthdays && year > machineClock::today().year() ? year - century : year;
}

/// A calendar is made when it is first wanted: making one takes as long as making a whole row of other fields.
void DateField::prepareCalendar()
{
    if (m_calendarPrepared)
        return;
    m_calendarPrepared = true;
    calendarWidget()->setLocale(QLocale::c());
    calendarWidget()->setFirstDayOfWeek(Qt::Monday);
    calendarWidget()->installEventFilter(this);
}

void DateField::openCalendar()
{
    // QDateTimeEdit opens it for a press on its arrow and in no other way.
    QStyleOptionComboBox option;
    option.initFrom(this);
    option.editable = true;
    option.subControls = QStyle::SC_All;
    const QPointF arrow =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this).center();
    QMouseEvent press(
        QEvent::MouseButtonPress, arrow, mapToGlobal(arrow), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    mousePressEvent(&press);
}
