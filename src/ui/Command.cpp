#include "ui/Command.h"

#include <QKeyEvent>

namespace {

constexpr int leastWidth = 90;

} // namespace

Command::Command(const QString &caption, QWidget *parent) : QPushButton(caption, parent)
{
    setAutoDefault(false);
    setFocusPolicy(Qt::StrongFocus);
}

Command::Command(const QString &name, const QString &caption, QWidget *parent) : Command(caption, parent)
{
    setObjectName(name);
}

void Command::trigger()
{
    if (!isEnabled() || !isVisible())
        return;
    setFocus(Qt::ShortcutFocusReason);
    act();
}

void Command::act()
{
    // Not by click(): Qt's widgets know no exceptions, and a failure told further out would leave behind what click()
    // holds.
    emit clicked();
}

void Command::setComesLater(const QString &toolTip)
{
    setEnabled(false);
    setToolTip(toolTip);
}

QSize Command::sizeHint() const
{
    QSize size = QPushButton::sizeHint();
    // The look writes a default command bold, of which the size that it asks for knows nothing.
    if (isDefault()) {
        QFont bold = font();
        bold.setBold(true);
        size.rwidth() += QFontMetrics(bold).horizontalAdvance(text()) - fontMetrics().horizontalAdvance(text());
    }
    // Here and not as a least width in the style sheet, which would let a narrow screen cut the caption.
    return size.expandedTo({leastWidth, 0});
}

bool Command::event(QEvent *event)
{
    if (event->type() != QEvent::Shortcut || static_cast<QShortcutEvent *>(event)->isAmbiguous())
        return QPushButton::event(event);
    // At once and not after the button was seen going down: what is typed next belongs to what the command brings up.
    trigger();
    return true;
}

void Command::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && !event->isAutoRepeat())
        return act();
    if (isEnter)
        return;
    QPushButton::keyPressEvent(event);
}
