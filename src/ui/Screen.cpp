#include "ui/Screen.h"

#include "base/session.h"
#include "store/DataEnvironment.h"
#include "ui/Command.h"
#include "ui/DateField.h"
#include "ui/KeyPanel.h"
#include "ui/entryKeys.h"
#include "ui/monitorFit.h"
#include "ui/userValues.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScreen>
#include <QTextEdit>
#include <QWindow>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr auto keepsEnterProperty = "corvaneKeepsEnter";

/// The shown screens, the one in front last.
QList<Screen *> &shownScreens()
{
    static QList<Screen *> screens;
    return screens;
}

Screen::Guide &openGuide()
{
    static Screen::Guide guide;
    return guide;
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

/// Where the slash needs Shift, it comes as one with Shift, or as what else is on its key.
bool asksForKeys(const QKeyEvent &event)
{
    const auto modifiers = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return modifiers == Qt::ControlModifier && (event.key() == Qt::Key_Slash || event.key() == Qt::Key_Question);
}

bool isModifier(int key)
{
    return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr;
}

/// As the key is called on the keyboards that people have.
QString keyName(QKeyCombination key)
{
    return QKeySequence(key).toString(QKeySequence::NativeText).replace(u"Return"_s, u"Enter"_s);
}

QString withoutAccessKey(QString caption)
{
    return caption.remove(u'&');
}

/// A key that is held does again only what leads on.
bool isMove(const QKeyEvent &event)
{
    constexpr std::array moves{Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_PageUp, Qt::Key_PageDown,
        Qt::Key_Plus, Qt::Key_Minus};
    return std::ranges::find(moves, event.key()) != moves.end();
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

void Screen::useRoom(QSize least)
{
    constexpr double share = 0.85;
    resize((share * screen()->availableSize()).expandedTo(least));
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
    if (closeKeyPanel(*event)) {
        event->accept();
        return true;
    }
    if (const Key *key = keyFor(*event)) {
        event->accept();
        if (event->isAutoRepeat() && !isMove(*event))
            return true;
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
    if (asksForKeys(*event)) {
        event->accept();
        tellKeys();
        return true;
    }
    if (combinationOf(*event) == QKeyCombination(Qt::Key_F1) && openGuide()) {
        event->accept();
        openGuide()(objectName());
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

void Screen::saveKey(Command *command)
{
    onKey(Qt::CTRL | Qt::Key_S, withoutAccessKey(command->text()), [command] { command->trigger(); });
}

void Screen::printKey(Command *command)
{
    onKey(Qt::CTRL | Qt::Key_P, withoutAccessKey(command->text()), [command] { command->trigger(); });
}

void Screen::setGuide(Guide guide)
{
    openGuide() = std::move(guide);
}

/// True where that is all that the key does. Any other one does its own too: it may be what the panel was asked for.
bool Screen::closeKeyPanel(const QKeyEvent &event)
{
    if (!m_keyPanel || isModifier(event.key()))
        return false;
    delete m_keyPanel;
    return event.key() == Qt::Key_Escape || asksForKeys(event);
}

void Screen::tellKeys()
{
    m_keyPanel = new KeyPanel(*this,
        {{u"Keys: "_s + windowTitle(), ownKeys()}, {u"Where you are now"_s, keysOf(focusWidget())},
            {u"Everywhere"_s, commonKeys()}});
    m_keyPanel->show();
}

std::vector<KeyLine> Screen::ownKeys() const
{
    std::vector<KeyLine> lines;
    for (const Key &key : m_keys)
        lines.push_back({keyName(key.key), key.what});
    lines.insert(lines.end(), m_toldKeys.begin(), m_toldKeys.end());
    return lines;
}

std::vector<KeyLine> Screen::commonKeys() const
{
    std::vector<KeyLine> lines;
    if (m_entryKeys.testFlag(EnterMovesOn))
        lines.push_back({u"Enter"_s, u"Next field"_s});
    if (m_entryKeys.testFlag(PageKeysMove))
        lines.push_back({u"Page Down, Page Up"_s, u"Next field, field before"_s});
    lines.push_back({u"Tab, Shift+Tab"_s, u"Next control, control before"_s});
    lines.push_back({u"Alt"_s, u"With an underlined letter: its command or field"_s});
    lines.push_back({u"F1"_s, u"The guide, at what it says of this screen"_s});
    lines.push_back({u"Ctrl+/"_s, u"These keys"_s});
    lines.push_back({u"Esc"_s, u"Close"_s});
    return lines;
}

void Screen::escapePressed()
{
    reject();
}
