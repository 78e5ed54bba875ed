#pragma once

#include <QColor>
#include <QObject>

#include <functional>

class QKeyEvent;
class QWidget;

/// What the entry controls have in common: colours with and without the focus, and the way of a key press through the
/// screen's hands. Belongs to its control, which passes the signals on as its own.
class EntryField : public QObject {
    Q_OBJECT

public:
    explicit EntryField(QWidget *control);

    [[nodiscard]] QColor foreColor() const { return m_foreColor; }
    void setForeColor(const QColor &colour);

    /// Offers the key to the screen; true when it was swallowed.
    [[nodiscard]] bool keySwallowed(const QKeyEvent &event);

    /// Offers the character to the screen and then to `filter`, which returns the code to go on with. What is left goes
    /// to `act`; keys that type nothing go there at once.
    void passCharacter(
        QKeyEvent *event, const std::function<int(int)> &filter, const std::function<void(QKeyEvent *)> &act);

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void gotFocus();
    void lostFocus();
    void keyDown(int &key);
    void keyPress(int &key);

private:
    QWidget *m_control;
    QColor m_foreColor = Qt::black;
    bool m_isEntered = false;
};
