#include "ui/Screen.h"

#include "base/session.h"
#include "store/DataEnvironment.h"
#include "ui/DateField.h"
#include "ui/entryKeys.h"
#include "ui/monitorFit.h"
#include "ui/userValues.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScreen>
#include <QTextEdit>
#include <QToolTip>
#include <QWindow>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr auto keepsEnterProperty = "corvaneKeepsEnter";

/// The shown screens, the one in front last.
QList<Screen *> &shownScreens()
{
    static QList<Screen *> screens;
    return screens;
}

bool keepsEnter(const QWidget *control)
{
    const auto *lines = qobject_cast<const QPlainTextEdit *>(control);
    const auto *list = qobject_cast<const QAbstractItemView *>(control);
    return (list && list->model()->rowCount() > 0) || (lines && !lines->isReadOnly())
        || qobject_cast<const QTextEdit *>(control) || control->property(keepsEnterProperty).toBool();
}

/// The key with what matters of its modifiers.
QKeyCombination combinationOf(const QKeyEvent &event)
{
    auto modifiers = event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool typesCharacter = event.key() < Qt::Key_Escape && (modifiers & ~Qt::ShiftModifier) == Qt::NoModifier;
    if (typesCharacter)
        modifiers = Qt::NoModifier;
    return QKeyCombination(
        modifiers, static_cast<Qt::Key>(event.key() == Qt::Key_Enter ? Qt::Key_Return : event.key()));
}

void placeAbove(QWidget &window, const QWidget &below)
{
    // The window manager keeps the screen above the one that it was opened from, which has to wait for it.
    window.winId();
    window.windowHandle()->setTransientParent(below.windowHandle());
    if (window.testAttribute(Qt::WA_Moved))
        return;
    const QRect room = below.screen()->availableGeometry();
    QRect place(QPoint(), window.size());
    place.moveCenter(below.geometry().center());
    place.moveLeft(qMax(room.left(), qMin(place.left(), room.right() - place.width())));
    place.moveTop(qMax(room.top(), qMin(place.top(), room.bottom() - place.height())));
    window.move(place.topLeft());
}

} // namespace

Screen::Screen(const QString &name, const QString &title)
{
    setObjectName(name);
    setWindowTitle(title);
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMaximizeButtonHint
        | Qt::WindowCloseButtonHint);
}

Screen::~Screen()
{
    shownScreens().removeAll(this);
}

Screen *Screen::front()
{
    return shownScreens().isEmpty() ? nullptr : shownScreens().constLast();
}

void Screen::setVisible(bool visible)
{
    if (visible == isVisible())
        return QDialog::setVisible(visible);
    if (!visible) {
        shownScreens().removeAll(this);
        rememberSize();
        return QDialog::setVisible(false);
    }
    takeRememberedSize();
    if (const Screen *below = front())
        placeAbove(*this, *below);
    shownScreens().append(this);
    QDialog::setVisible(true);
    activateWindow();
    comeToFront();
}

void Screen::takeRememberedSize()
{
    // One that is as large as its content asks, such as a message, stays so.
    m_hasOwnSize = m_remembersSize && testAttribute(Qt::WA_Resized) && !isMaximized();
    if (const QSize remembered = userValues().value(sizeKey()).toSize(); m_hasOwnSize && remembered.isValid())
        resize(remembered);
    // It comes up above the screen in front.
    fitToMonitor(*this, *(front() ? front() : this)->screen());
    if (!testAttribute(Qt::WA_Resized))
        adjustSize();
    m_sizeShown = size();
}

void Screen::rememberSize()
{
    // Only what the user made of it: else a screen would keep today's size when its design grows.
    if (m_hasOwnSize && size() != m_sizeShown && !isMaximized() && !isMinimized())
        userValues().setValue(sizeKey(), size());
}

QString Screen::sizeKey() const
{
    return u"Sizes/"_s + objectName();
}

int Screen::exec()
{
    const QPointer<Screen> below = front();
    setModal(true);
    show();
    // A screen may close itself when it is activated.
    const int answer = isVisible() ? QDialog::exec() : result();
    if (below && below == front()) {
        below->activateWindow();
        below->comeToFront();
    }
    return answer;
}

bool Screen::event(QEvent *event)
{
    // Also where the user comes back from another program, perhaps this one's second start.
    if (event->type() == QEvent::WindowActivate)
        noticeOtherWriters();
    return QDialog::event(event);
}

void Screen::noticeOtherWriters()
{
    if (DE().CN.othersHaveWritten())
        session::NeedRefresh = true;
}

void Screen::comeToFront()
{
    noticeOtherWriters();
    activated();
}

bool Screen::previewKey(QObject *receiver, QKeyEvent *event)
{
    if (!receiver->isWidgetType())
        return false;
    auto *screen = qobject_cast<Screen *>(static_cast<QWidget *>(receiver)->window());
    return screen && screen->preview(event);
}

bool Screen::preview(QKeyEvent *event)
{
    if (const Key *key = keyFor(*event)) {
        event->accept();
        // The screen may be gone before the call returns.
        const auto act = key->act;
        act();
        return true;
    }
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier) {
        event->accept();
        auto *date = qobject_cast<DateField *>(focusWidget());
        if (!date || !date->dropTyped())
            escapePressed();
        return true;
    }
    if (combinationOf(*event) == QKeyCombination(Qt::Key_F1)) {
        event->accept();
        tellKeys();
        return true;
    }
    const QWidget *const focused = focusWidget();
    const int character = keys::characterCode(*event);
    if (m_entryKeys.testFlag(EnterMovesOn) && character == keys::Enter && !(focused && keepsEnter(focused)))
        return EnterToTab(character) == keys::Swallowed;
    const int key = keys::keyCode(*event);
    if (m_entryKeys.testFlag(PageKeysMove) && (key == keys::PageDown || key == keys::PageUp))
        return PageKeysToTab(key) == keys::Swallowed;
    return false;
}

void Screen::keepEnter(QWidget *control)
{
    control->setProperty(keepsEnterProperty, true);
}

void Screen::onKey(QKeyCombination key, const QString &what, std::function<void()> act, std::function<bool()> applies)
{
    m_keys.push_back({key, what, std::move(act), std::move(applies)});
}

const Screen::Key *Screen::keyFor(const QKeyEvent &event) const
{
    const QKeyCombination pressed = combinationOf(event);
    if (pressed == QKeyCombination(Qt::Key_F2) && qobject_cast<const DateField *>(focusWidget()))
        return nullptr;
    const auto found = std::ranges::find_if(
        m_keys, [pressed](const Key &key) { return key.key == pressed && (!key.applies || key.applies()); });
    return found == m_keys.end() ? nullptr : &*found;
}

void Screen::tellKeys()
{
    QString lines;
    const auto add = [&lines](const QString &key, const QString &what) {
        lines += u"<tr><td><b>%1</b></td><td>&nbsp;&nbsp;%2</td></tr>"_s.arg(key.toHtmlEscaped(), what.toHtmlEscaped());
    };
    for (const Key &key : m_keys)
        add(QKeySequence(key.key).toString(QKeySequence::NativeText), key.what);
    if (m_entryKeys.testFlag(EnterMovesOn))
        add(u"Enter"_s, u"Next field"_s);
    if (m_entryKeys.testFlag(PageKeysMove))
        add(u"Page Down, Page Up"_s, u"Next field, field before"_s);
    add(u"Esc"_s, u"Close"_s);
    QToolTip::showText(mapToGlobal(rect().center()) - QPoint(width() / 4, height() / 4),
        u"<table>"_s + lines + u"</table>"_s, this, rect(), std::numeric_limits<int>::max());
}

void Screen::escapePressed()
{
    reject();
}
