#include "ui/Screen.h"

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
#include <QWindow>

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
    return qobject_cast<const QAbstractItemView *>(control) || qobject_cast<const QPlainTextEdit *>(control)
        || qobject_cast<const QTextEdit *>(control) || control->property(keepsEnterProperty).toBool();
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
    m_hasOwnSize = testAttribute(Qt::WA_Resized) && !isMaximized();
    if (const QSize remembered = userValues().value(sizeKey()).toSize(); m_hasOwnSize && remembered.isValid())
        resize(remembered);
    fitToMonitor(*this);
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

void Screen::comeToFront()
{
    DE().CN.noticeOtherWriters();
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
    if (keyPreview(event)) {
        event->accept();
        return true;
    }
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier) {
        event->accept();
        auto *date = qobject_cast<DateField *>(focusWidget());
        if (!date || !date->dropTyped())
            escapePressed();
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

bool Screen::keyPreview(QKeyEvent *)
{
    return false;
}

void Screen::escapePressed()
{
    reject();
}
