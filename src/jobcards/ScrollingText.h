#pragma once

#include <QTimer>
#include <QWidget>

class QLabel;

/// A line of text that wanders from right to left and starts again at the right when it has left the view.
/// It moves only while it can be seen.
class ScrollingText : public QWidget {
    Q_OBJECT

public:
    /// `labelName` becomes the object name of the label that carries the text.
    explicit ScrollingText(const QString &labelName, QWidget *parent = nullptr);

    [[nodiscard]] QString text() const;
    /// The text goes on from where the last one is.
    void setText(const QString &text);
    /// Starts again at the right.
    void restart();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void moveOn();

    QLabel *m_label;
    QTimer m_timer;
};
