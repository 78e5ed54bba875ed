#include "PaintWatch.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

PaintWatch::PaintWatch(const QString &windowName, std::function<void(QWidget &)> painted)
    : m_windowName(windowName), m_painted(std::move(painted))
{
    qApp->installEventFilter(this);
}

bool PaintWatch::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Paint || !watched->isWidgetType() || watched->objectName() != m_windowName)
        return false;
    qApp->removeEventFilter(this);
    // The window is painted first and its controls after it, all in one go; only then does the loop come round.
    QTimer::singleShot(0, this, [this, window = static_cast<QWidget *>(watched)] { m_painted(*window); });
    return false;
}
