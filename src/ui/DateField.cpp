#include "ui/DateField.h"

#include "base/clock.h"
#include "base/values.h"
#include "ui/FieldFocus.h"
#include "ui/InsertedText.h"
#include "ui/entryKeys.h"
#include "ui/fieldTip.h"
#include "ui/theme.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QStyleOptionComboBox>

using namespace Qt::StringLiterals;

namespace {

constexpr int thisCentury = 2000;
constexpr int century = 100;
constexpr int markWidth = 2;
constexpr int markRadius = 3;

/// "1/4/11" into its parts; digits without separators are taken as day, month and year of two digits each, the year
/// also of four.
QStringList partsOf(const QString &typed)
{
    static const QRegularExpression partPattern(u"[0-9]+|[A-Za-z]+"_s);
    static const QRegularExpression runOfDigits(u"^[0-9]{4}([0-9]{2}|[0-9]{4})?$"_s);
    if (runOfDigits.match(typed).hasMatch()) {
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
    // It bends what is no date into one.
    lineEdit()->setValidator(nullptr);
    connect(lineEdit(), &QLineEdit::textEdited, this, &DateField::takeEdit);
    // A date from the calendar takes the place of what was typed.
    connect(this, &QDateEdit::dateChanged, this, &DateField::dropTyped);
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
    setDate(minimumDate());
}

void DateField::setDate(QDate date)
{
    m_typed.clear();
    QDateEdit::setDate(date);
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
    QDateEdit::focusInEvent(event);
    // QDateTimeEdit has written its date over what is no date, and selected a part of it.
    showTyped();
    if (event->reason() != Qt::MouseFocusReason)
        selectWhole();
}

void DateField::focusOutEvent(QFocusEvent *event)
{
    takeTyped();
    QDateEdit::focusOutEvent(event);
    showTyped();
}

void DateField::paintEvent(QPaintEvent *event)
{
    QDateEdit::paintEvent(event);
    if (!m_isRefused)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(theme::warning(), markWidth));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), markRadius, markRadius);
}

void DateField::mousePressEvent(QMouseEvent *event)
{
    takeTyped();
    prepareCalendar();
    QDateEdit::mousePressEvent(event);
    if (isEmpty())
        calendarWidget()->showToday();
}

bool DateField::event(QEvent *event)
{
    if (event->type() != QEvent::InputMethod)
        return QDateEdit::event(event);
    typeComposed(*this, *static_cast<QInputMethodEvent *>(event));
    return true;
}

bool DateField::eventFilter(QObject *watched, QEvent *event)
{
    // The calendar is the only thing watched.
    if (event->type() == QEvent::Hide) {
        selectWhole();
        emit calendarClosed();
    }
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
    if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace)
        return deleteTyped(event->key());
    const QString text = event->text();
    const bool isCharacter = text.size() == 1 && !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    if (isCharacter && actAtOnce(text))
        return;
    if (isCharacter && (text.at(0).isLetterOrNumber() || u"/-. "_s.contains(text.at(0))))
        return type(text);
    const bool afterTyping = !m_typed.isEmpty();
    // Enter on what is no date does not go on to the screen's default command.
    if (!takeTyped())
        return;
    if (event->key() == Qt::Key_F2)
        return selectWhole();
    // There is no part to change in an empty field.
    if (isEmpty())
        return event->ignore();
    if (afterTyping || isWholeSelected())
        setCurrentSectionIndex(0);
    if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right)
        return moveToPart(currentSectionIndex() + (event->key() == Qt::Key_Right ? 1 : -1));
    QDateEdit::keyPressEvent(event);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        selectWhole();
}

void DateField::deleteTyped(int key)
{
    if (isReadOnly())
        return;
    if (key == Qt::Key_Backspace && !m_typed.isEmpty()) {
        m_isRefused = false;
        m_typed.chop(1);
        return showTyped();
    }
    if (m_forBirthdays)
        makeEmpty();
    else
        dropTyped();
}

bool DateField::actAtOnce(const QString &character)
{
    const bool isUntouched = m_typed.isEmpty() || m_isRefused;
    const bool stepsForth = character == u'+';
    const bool stepsBack = character == u'-' && isUntouched;
    const bool isToday = character.toLower() == u't' && isUntouched;
    if (isReadOnly() || !(stepsForth || stepsBack || isToday))
        return false;
    if (isUntouched)
        dropTyped();
    else if (!takeTyped())
        return true;
    if (isToday)
        setDate(machineClock::today());
    else if (!isEmpty())
        setDate(date().addDays(stepsForth ? 1 : -1));
    selectWhole();
    return true;
}

void DateField::moveToPart(int index)
{
    setCurrentSectionIndex(qBound(0, index, sectionCount() - 1));
    setSelectedSection(currentSection());
}

void DateField::selectWhole()
{
    lineEdit()->selectAll();
}

bool DateField::isWholeSelected() const
{
    return lineEdit()->selectedText() == lineEdit()->text();
}

void DateField::type(const QString &text)
{
    if (isReadOnly())
        return;
    if (m_isRefused)
        m_typed.clear();
    m_isRefused = false;
    m_typed += text;
    showTyped();
}

/// What the mouse or the menu puts into the line or takes out of it.
void DateField::takeEdit()
{
    if (m_isTakingBack)
        return;
    const QScopedValueRollback takingBack(m_isTakingBack, true);
    const QString put = takeBack(*lineEdit(), shownText()).simplified();
    if (put.isEmpty())
        return deleteTyped(Qt::Key_Delete);
    m_typed.clear();
    type(put);
}

QValidator::State DateField::validate(QString &input, int &place) const
{
    // QDateTimeEdit would correct a date that isn't finished, and take one that was taken back.
    const bool isOurs = !m_typed.isEmpty() || input != lineEdit()->text();
    return isOurs ? QValidator::Intermediate : QDateEdit::validate(input, place);
}

QString DateField::shownText() const
{
    if (!m_typed.isEmpty())
        return m_typed;
    return isEmpty() ? specialValueText() : DateText(date());
}

void DateField::showTyped()
{
    m_isRefused = m_isRefused && !m_typed.isEmpty();
    update();
    const QString shown = shownText();
    if (lineEdit()->text() == shown)
        return;
    const QSignalBlocker quiet(lineEdit());
    lineEdit()->setText(shown);
}

bool DateField::dropTyped()
{
    if (m_typed.isEmpty())
        return false;
    m_typed.clear();
    showTyped();
    selectWhole();
    return true;
}

QString DateField::refused()
{
    takeTyped();
    return m_typed;
}

bool DateField::takeTyped()
{
    if (m_typed.isEmpty())
        return true;
    const QDate typed = typedDate();
    if (!typed.isValid() || typed < minimumDate() || typed > maximumDate()) {
        refuse();
        return false;
    }
    setDate(typed);
    return true;
}

void DateField::refuse()
{
    m_isRefused = true;
    update();
    const QString wayBack =
        isEmpty() ? u"Escape empties the field."_s : u"Escape brings back %1."_s.arg(DateText(date()));
    showFieldTip(*this, u"\"%1\" is not a date. "_s.arg(m_typed) + wayBack);
}

QDate DateField::typedDate() const
{
    const QStringList typed = partsOf(m_typed);
    // A year in front is the one form that is read as it stands.
    if (typed.size() == 3 && typed.at(0).size() == 4) {
        const auto moment = readDateTime(typed.join(u'-'));
        return moment ? moment->date() : QDate();
    }
    QStringList parts = DateText(date()).split(u'-');
    if (typed.isEmpty() || typed.size() > parts.size() || (isEmpty() && typed.size() < parts.size()))
        return {};
    for (int i = 0; i < typed.size(); ++i)
        parts[i] = typed.at(i);
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
    // Also where the chosen date is the one that stayed behind what was typed.
    connect(calendarWidget(), &QCalendarWidget::clicked, this, &DateField::dropTyped);
    connect(calendarWidget(), &QCalendarWidget::activated, this, &DateField::dropTyped);
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
