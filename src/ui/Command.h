#pragma once

#include <QPushButton>

/// A command of a screen. Its access key, a click and `trigger` all take the focus to it before `clicked` is emitted,
/// so that the field being left has done its part (an amount put in form, a filter applied) when the command acts.
/// Enter acts on it when it has the focus and the screen lets Enter through; it is the default button only when told
/// so.
class Command : public QPushButton {
    Q_OBJECT

public:
    explicit Command(const QString &caption, QWidget *parent = nullptr);
    /// `name` becomes the object name.
    Command(const QString &name, const QString &caption, QWidget *parent = nullptr);

    /// As a press of the access key, for the shortcuts that a screen reads itself. Without effect while it is disabled
    /// or hidden.
    void trigger();

    /// Shows the command disabled, with a tool tip that says why.
    void setComesLater(const QString &toolTip);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
};
