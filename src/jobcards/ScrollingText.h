#pragma once

#include <QTimer>
#include <QWidget>

class QLabel;

/// A line of text that comes in from the right, stands at its beginning until it is read, wanders off to the left, and
/// comes in again when it has left the view. Its tool tip has it whole. It moves only while it can be seen.
class ScrollingText : public QWidget {
    Q_OBJECT

public:
    /// `labelName` becomes the object name of the label that carries the text.
    explicit ScrollingText(const QString &labelName, QWidget *parent = nullptr);

    [[nodiscard]] QString text() const;
    /// The new text stands at its beginning.
    void setText(const QString &text);
    /// Starts again at the right.
    void restart();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void stand();
    void moveOn();

    QLabel *m_label;
    QTimer m_timer;
    bool m_isComing = false;
};
