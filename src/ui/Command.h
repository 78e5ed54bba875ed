#pragma once

#include <QPushButton>

/// A command of a screen. Its access key, a click and `trigger` all take the focus to it before `clicked` is emitted,
/// so that the field being left has done its part (an amount put in form, a filter applied) when the command acts.
/// With the focus Enter acts on it too, where the screen lets Enter through; it is no default button unless told to be.
class Command : public QPushButton {
    Q_OBJECT

public:
    explicit Command(const QString &caption, QWidget *parent = nullptr);
    /// `name` becomes the object name.
    Command(const QString &name, const QString &caption, QWidget *parent = nullptr);

    /// As the access key, for shortcuts that a screen reads itself. Without effect while it is disabled or hidden.
    void trigger();

    /// Shows the command disabled, with a tool tip that says why.
    void setComesLater(const QString &toolTip);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void act();
};
