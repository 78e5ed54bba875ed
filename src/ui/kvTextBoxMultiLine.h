#pragma once

#include "ui/EntryBox.h"

#include <QPlainTextEdit>

/// An entry field of several lines: Enter makes a new line, Tab leaves it. Shown white on black while it has the focus.
/// `BoxType` 1 takes digits and one point and reads "0.00" when set or left; there are no capitals of themselves.
/// Lines are separated by carriage return and line feed in `Text`.
class kvTextBoxMultiLine : public QPlainTextEdit, public EntryBox {
    Q_OBJECT

public:
    explicit kvTextBoxMultiLine(QWidget *parent = nullptr);
    /// `name` becomes the object name.
    explicit kvTextBoxMultiLine(const QString &name, QWidget *parent = nullptr);

    /// A text that was set and not changed since comes back as it was, whatever its line ends.
    [[nodiscard]] QString Text() const;
    void setText(const QString &text);

    [[nodiscard]] Qt::Alignment Alignment() const;
    void setAlignment(Qt::Alignment alignment);

signals:
    void changed();
    void gotFocus();
    void lostFocus();
    /// As in `kvTextBox`.
    void keyDown(int &key);
    void keyPress(int &key);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void insertFromMimeData(const QMimeData *source) override;

private:
    QString m_setText;
};
