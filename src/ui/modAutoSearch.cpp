#include "ui/modAutoSearch.h"

#include "ui/entryKeys.h"
#include "ui/fieldTip.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMouseEvent>
#include <QScopeGuard>
#include <QSignalBlocker>
#include <QTimer>
#include <QToolTip>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The text that the program has set last.
constexpr auto givenTextProperty = "corvaneGivenText";
/// What no entry begins with, typed last.
constexpr auto refusedTextProperty = "corvaneRefusedText";

int firstEntryThatBeginsWith(const QComboBox &combo, const QString &text)
{
    for (int i = 0; i < combo.count(); ++i) {
        if (combo.itemText(i).startsWith(text, Qt::CaseInsensitive))
            return i;
    }
    return -1;
}

/// The text without what is selected and what stands behind it: where typing goes on.
QString textBeforeSelection(const QLineEdit &line)
{
    return line.hasSelectedText() ? line.text().left(line.selectionStart()) : line.text();
}

QModelIndex viewIndex(const QComboBox &combo, int index)
{
    return combo.model()->index(index, combo.modelColumn(), combo.rootModelIndex());
}

void selectEntry(QComboBox &combo, int index)
{
    combo.setProperty(refusedTextProperty, {});
    combo.setCurrentIndex(index);
    // Setting the index that is set already would leave what was typed standing.
    if (combo.lineEdit() && combo.lineEdit()->text() != combo.itemText(index))
        combo.setEditText(combo.itemText(index));
    if (combo.view()->isVisible())
        combo.view()->setCurrentIndex(viewIndex(combo, index));
}

/// Shows a text that was not picked from the list. The entry selected before must not stay selected behind it.
void showOwnText(QComboBox &combo, const QString &text)
{
    combo.setProperty(refusedTextProperty, {});
    QLineEdit *const line = combo.lineEdit();
    const int entry = combo.findText(text, Qt::MatchExactly);
    if (entry != combo.currentIndex()) {
        // Whoever listens to the text hears of the change below, and of nothing in between.
        const QSignalBlocker quiet(line);
        const QString before = line->text();
        combo.setCurrentIndex(entry);
        line->setText(before);
    }
    line->setText(text);
    if (combo.view()->isVisible())
        combo.view()->setCurrentIndex(entry < 0 ? QModelIndex() : viewIndex(combo, entry));
}

void refuse(QComboBox &combo, const QString &text)
{
    combo.setProperty(refusedTextProperty, text);
    showFieldTip(combo, u"No name begins with \"%1\""_s.arg(text));
}

/// Selects what `text` begins, the rest of the entry selected for the next key to replace.
bool typeAhead(QComboBox &combo, const QString &text)
{
    const int entry = firstEntryThatBeginsWith(combo, text);
    if (entry < 0)
        return false;
    selectEntry(combo, entry);
    // What else begins so stands below it.
    if (combo.view()->isVisible())
        combo.view()->scrollTo(viewIndex(combo, entry), QAbstractItemView::PositionAtTop);
    QToolTip::hideText();
    const auto length = static_cast<int>(combo.itemText(entry).size());
    combo.lineEdit()->setSelection(length, static_cast<int>(text.size()) - length);
    return true;
}

class AutoSearch : public QObject {
public:
    explicit AutoSearch(QComboBox &combo)
        : QObject(&combo), m_combo(combo), m_line(combo.lineEdit()), m_list(combo.view())
    {
        for (QObject *part : std::initializer_list<QObject *>{&combo, m_line, m_list})
            part->installEventFilter(this);
        // Deleting, cutting and undoing change the text without a key that the search sees.
        connect(m_line, &QLineEdit::textEdited, this, &AutoSearch::textEdited);
        connect(&combo, &QComboBox::currentTextChanged, this, &AutoSearch::showWhetherChosen);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        // The combo is touched for what a user does alone: while it is being destroyed it still hides its list.
        switch (event->type()) {
        case QEvent::KeyPress: return keyPressed(watched, static_cast<QKeyEvent *>(event));
        case QEvent::ShortcutOverride: return watched == m_list && overriddenByList(*static_cast<QKeyEvent *>(event));
        case QEvent::Wheel:
            // A turn of the wheel over the field must not choose another entry unseen.
            event->ignore();
            return watched == &m_combo;
        case QEvent::WindowActivate:
            // The line would drop its selection now, as the open list has the focus and not the line.
            return watched == m_line;
        case QEvent::InputMethod: return composing(watched, *static_cast<QInputMethodEvent *>(event));
        case QEvent::FocusIn:
            m_isClickedInto = static_cast<QFocusEvent *>(event)->reason() == Qt::MouseFocusReason;
            return false;
        case QEvent::MouseButtonPress: m_selectsWhole = std::exchange(m_isClickedInto, false); return false;
        case QEvent::MouseButtonRelease: return watched == m_line && clickedInto(*static_cast<QMouseEvent *>(event));
        default: return false;
        }
    }

private:
    static bool isCommandKey(const QKeyEvent &event)
    {
        const auto modifiers = event.modifiers() & (Qt::AltModifier | Qt::ControlModifier);
        const bool namesKey =
            event.key() != Qt::Key_Alt && event.key() != Qt::Key_Control && event.key() != Qt::Key_Shift;
        return (modifiers == Qt::AltModifier || modifiers == Qt::ControlModifier) && namesKey;
    }

    void textEdited()
    {
        // A text that is set would end what is being composed.
        m_isEditOpen = m_isComposing;
        if (m_isComposing)
            return;
        const int caret = m_line->cursorPosition();
        showOwnText(m_combo, m_line->text());
        m_line->setCursorPosition(caret);
    }

    bool composing(const QObject *watched, QInputMethodEvent &input)
    {
        if (watched == &m_combo) {
            m_isComposing = !input.preeditString().isEmpty();
            if (m_isEditOpen && !m_isComposing)
                textEdited();
            return false;
        }
        if (watched != m_list)
            return false;
        // As a key in the list, it is one in the text.
        QCoreApplication::sendEvent(&m_combo, &input);
        return true;
    }

    /// True for the end of the click that brought the focus: it selects all as each other way into the field does, but
    /// for a part that the mouse was drawn over.
    bool clickedInto(const QMouseEvent &release)
    {
        const bool isClick = std::exchange(m_selectsWhole, false) && release.button() == Qt::LeftButton;
        if (!isClick || m_line->hasSelectedText())
            return false;
        selectWhole(*m_line);
        return true;
    }

    bool keyPressed(const QObject *watched, QKeyEvent *event)
    {
        if (watched == &m_combo)
            return keyInText(event);
        return watched == m_list && keyInList(event);
    }

    /// Always true: the list would let Enter take the row under the mouse, before it comes as a key.
    bool overriddenByList(const QKeyEvent &event)
    {
        // An access key works on the screen only while no list is open above it.
        if (isCommandKey(event))
            m_combo.hidePopup();
        return true;
    }

    bool keyInText(QKeyEvent *event)
    {
        if (event->matches(QKeySequence::Paste)) {
            const QString text = textBeforeSelection(*m_line) + QApplication::clipboard()->text().simplified();
            if (!typeAhead(m_combo, text))
                refuse(m_combo, text);
            return true;
        }
        const bool isArrow = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
        if (isArrow && !(event->modifiers() & Qt::AltModifier)) {
            step(event->key() == Qt::Key_Up ? -1 : 1);
            return true;
        }
        const int character = keys::characterCode(*event);
        if (character < keys::Blank && character != keys::Backspace && character != keys::Enter)
            return false;
        if (character == keys::Enter && isRefusedText())
            return true;
        return AutoSearchKey(m_combo, character) == keys::Swallowed;
    }

    /// Who types fast presses Enter before he sees that his letters were refused. The name that stands there instead is
    /// taken by the next Enter only.
    bool isRefusedText()
    {
        const QString text = m_combo.property(refusedTextProperty).toString();
        if (text.isEmpty())
            return false;
        selectWhole(*m_line);
        refuse(m_combo, text);
        m_combo.setProperty(refusedTextProperty, {});
        return true;
    }

    bool keyInList(QKeyEvent *event)
    {
        if (movesInList(event))
            return true;
        const int character = keys::characterCode(*event);
        if (character == keys::Enter && isRefusedText())
            return true;
        if (character < keys::Blank && character != keys::Backspace && event->key() != Qt::Key_Left
            && event->key() != Qt::Key_Right)
            m_combo.hidePopup();
        // From here on it is a key in the text, for the screen to see first.
        QKeyEvent passedOn(event->type(), event->key(), event->modifiers(), event->text(), event->isAutoRepeat());
        QCoreApplication::sendEvent(&m_combo, &passedOn);
        return true;
    }

    bool movesInList(const QKeyEvent *event)
    {
        const bool isArrow = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
        if (isCommandKey(*event) && !isArrow)
            return false;
        switch (event->key()) {
        case Qt::Key_Escape: m_combo.hidePopup(); return true;
        case Qt::Key_Up: event->modifiers() & Qt::AltModifier ? m_combo.hidePopup() : step(-1); return true;
        case Qt::Key_Down: event->modifiers() & Qt::AltModifier ? m_combo.hidePopup() : step(1); return true;
        case Qt::Key_PageUp: step(1 - m_combo.maxVisibleItems()); return true;
        case Qt::Key_PageDown: step(m_combo.maxVisibleItems() - 1); return true;
        case Qt::Key_Home: step(-m_combo.count()); return true;
        case Qt::Key_End: step(m_combo.count()); return true;
        case Qt::Key_Shift:
        case Qt::Key_Control:
        case Qt::Key_Alt:
        case Qt::Key_AltGr: return true;
        default: return false;
        }
    }

    /// Moves the selection itself, with the list open or closed: what Enter takes is what the text says, wherever the
    /// mouse happens to rest on the list. From half a name it goes to what that begins.
    void step(int by)
    {
        if (m_combo.count() == 0)
            return;
        const int begun = m_combo.currentIndex() < 0 && !m_line->text().isEmpty()
            ? firstEntryThatBeginsWith(m_combo, m_line->text())
            : -1;
        const int index = begun >= 0 ? begun : qBound(0, m_combo.currentIndex() + by, m_combo.count() - 1);
        selectEntry(m_combo, index);
        selectWhole(*m_line);
        emit m_combo.activated(index);
        emit m_combo.textActivated(m_combo.itemText(index));
    }

    /// Half a name is no choice yet, and is written so.
    void showWhetherChosen(const QString &text)
    {
        QFont font = m_line->font();
        font.setItalic(!text.isEmpty() && m_combo.currentIndex() < 0);
        m_line->setFont(font);
    }

    QComboBox &m_combo;
    QLineEdit *m_line;
    QAbstractItemView *m_list;
    bool m_isClickedInto = false;
    bool m_selectsWhole = false;
    bool m_isComposing = false;
    /// The text was changed under what is being composed, and the entry behind it not yet.
    bool m_isEditOpen = false;
};

class OpensOnFocus : public QObject {
public:
    explicit OpensOnFocus(QComboBox &combo) : QObject(&combo), m_combo(combo) { combo.installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        const auto reason =
            event->type() == QEvent::FocusIn ? static_cast<QFocusEvent *>(event)->reason() : Qt::NoFocusReason;
        if (isUsers(reason))
            // When the click that brought the focus, or the key, has done what it does.
            QTimer::singleShot(0, this, [this, reason] {
                if (!m_combo.hasFocus())
                    return;
                SelectTypedEntry(m_combo);
                // The open list takes the end of the click.
                if (reason == Qt::MouseFocusReason && !m_combo.lineEdit()->hasSelectedText())
                    selectWhole(*m_combo.lineEdit());
            });
        return false;
    }

private:
    static bool isUsers(Qt::FocusReason reason)
    {
        return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason
            || reason == Qt::MouseFocusReason;
    }

    QComboBox &m_combo;
};

} // namespace

int AutoSearchKey(QComboBox &combo, int key)
{
    QLineEdit *const line = combo.lineEdit();
    if (!line)
        return keys::Swallowed;
    combo.setCursor(Qt::WaitCursor);
    const auto pointer = qScopeGuard([&combo] { combo.unsetCursor(); });
    if (key >= keys::Blank) {
        // Before the list opens: opening it may cost the line its selection.
        const QString text = textBeforeSelection(*line) + keys::textOf(key);
        ShowDropDown(combo);
        if (!typeAhead(combo, text))
            refuse(combo, text);
        return keys::Swallowed;
    }
    if (key == keys::Backspace) {
        QString text = textBeforeSelection(*line);
        if (!line->hasSelectedText())
            text.chop(1);
        showOwnText(combo, text);
    } else {
        line->deselect();
    }
    if (key == keys::Backspace || key == keys::Enter)
        line->end(false);
    return key == keys::Enter ? key : keys::Swallowed;
}

void SelectTypedEntry(QComboBox &combo)
{
    SelectComboEntry(combo);
    ShowDropDown(combo);
}

void ShowDropDown(QComboBox &combo)
{
    if (combo.view()->isVisible() || !combo.isVisible())
        return;
    combo.showPopup();
    // What follows the entry is in view with it.
    combo.view()->scrollTo(viewIndex(combo, combo.currentIndex()), QAbstractItemView::PositionAtTop);
}

int SelectComboEntry(QComboBox &combo)
{
    const QString text = combo.currentText();
    const bool isGiven = combo.property(givenTextProperty) == text;
    const int entry = text.isEmpty() ? -1
        : isGiven                    ? combo.findText(text, Qt::MatchFixedString)
                                     : firstEntryThatBeginsWith(combo, text);
    if (entry >= 0)
        selectEntry(combo, entry);
    return entry;
}

void installAutoSearch(QComboBox *combo)
{
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setCompleter(nullptr);
    // A list of thousands of names is not measured line by line.
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    if (auto *list = qobject_cast<QListView *>(combo->view()))
        list->setUniformItemSizes(true);
    new AutoSearch(*combo);
}

void openListOnFocus(QComboBox &combo)
{
    new OpensOnFocus(combo);
}

void setComboEntries(QComboBox &combo, const QStringList &entries)
{
    {
        const QSignalBlocker quiet(&combo);
        combo.clear();
        combo.addItems(entries);
    }
    combo.setCurrentIndex(-1);
    if (combo.lineEdit())
        combo.lineEdit()->clear();
}

void setComboText(QComboBox &combo, const QString &text)
{
    combo.setProperty(givenTextProperty, text);
    if (QLineEdit *line = combo.lineEdit()) {
        showOwnText(combo, text);
        // The next name is typed over it; elsewhere a long one shows its beginning.
        if (combo.window()->focusWidget() == &combo)
            selectWhole(*line);
        else
            line->home(false);
    } else
        combo.setCurrentIndex(combo.findText(text, Qt::MatchExactly));
}
