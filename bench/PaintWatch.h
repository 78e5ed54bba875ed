#pragma once

#include <QObject>
#include <QString>

#include <functional>

class QWidget;

/// Calls `painted` once, when the window of the given object name has been painted for the first time and what was
/// painted was handed to the display.
class PaintWatch : public QObject {
    Q_OBJECT

public:
    PaintWatch(const QString &windowName, std::function<void(QWidget &)> painted);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QString m_windowName;
    std::function<void(QWidget &)> m_painted;
};
