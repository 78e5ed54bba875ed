#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <deque>
#include <functional>

/// The modal windows that a part of a test is expected to bring up, in their order, and what the user does in each. It
/// runs beside the test, in whatever event loop is running, from the first `expect` on. It fails the test on a window
/// that was not expected, which it closes, on one that did not come, and when nothing goes on for a time limit; then it
/// closes all windows so that the test ends.
class ModalScript : public QObject {
    Q_OBJECT

public:
    using Action = std::function<void(QWidget &)>;

    ModalScript();
    /// Fails the test where windows are still awaited.
    ~ModalScript() override;

    /// A window of the class `className`; `action` ends by closing it, mostly by a key. Windows that come up meanwhile
    /// are the next ones.
    ModalScript &expect(const QString &className, const Action &action);
    /// The message screen or the plain box with exactly this text, answered by a key.
    ModalScript &expectMessage(const QString &text, Qt::Key answer = Qt::Key_Return);
    ModalScript &expectBox(const QString &text);

    [[nodiscard]] bool isDone() const { return m_steps.empty(); }

private:
    struct Step {
        QString className;
        Action action;
    };

    ModalScript &expectText(const QString &className, const char *label, const QString &text, Qt::Key answer);
    void look();
    void meet(QWidget &window);
    void giveUp(const QString &why);

    QTimer m_timer;
    std::deque<Step> m_steps;
    QList<QPointer<QWidget>> m_met;
    QElapsedTimer m_sinceProgress;
    bool m_givenUp = false;
};
