#include "support/NamelessControls.h"

#include "ui/Screen.h"

#include <QAbstractSpinBox>
#include <QAccessible>
#include <QCalendarWidget>
#include <QComboBox>
#include <QEvent>
#include <QLineEdit>

namespace {

/// A part of a control, which the control speaks for.
bool isPart(const QWidget &widget)
{
    const QWidget *const parent = widget.parentWidget();
    return widget.objectName().startsWith(QLatin1String("qt_")) || qobject_cast<const QComboBox *>(parent)
        || qobject_cast<const QAbstractSpinBox *>(parent) || qobject_cast<const QCalendarWidget *>(parent)
        || (parent && parent->inherits("QAbstractScrollArea")) || (parent && !parent->isWindow() && isPart(*parent));
}

bool isNameless(QWidget &widget)
{
    const QAccessibleInterface *const spoken = QAccessible::queryAccessibleInterface(&widget);
    return !spoken || spoken->text(QAccessible::Name).trimmed().isEmpty();
}

} // namespace

bool NamelessControls::eventFilter(QObject *watched, QEvent *event)
{
    auto *screen = event->type() == QEvent::Show ? qobject_cast<Screen *>(watched) : nullptr;
    if (!screen || screen->objectName().endsWith(QLatin1String("Screen")))
        return false;
    const auto widgets = screen->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (widget->focusPolicy() == Qt::NoFocus || widget->focusProxy() || widget->window() != screen
            || isPart(*widget))
            continue;
        // A screen reader goes on from a combo to the text in it.
        const auto *combo = qobject_cast<const QComboBox *>(widget);
        if (isNameless(*widget) || (combo && combo->lineEdit() && isNameless(*combo->lineEdit())))
            qWarning("%s has no name for %s %s", qPrintable(screen->objectName()), widget->metaObject()->className(),
                qPrintable(widget->objectName()));
    }
    return false;
}
