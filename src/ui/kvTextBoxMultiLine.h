#pragma once

#include <QPlainTextEdit>

class EntryField;

/// An entry field of several lines: Enter makes a new line, Tab leaves it. Shown white on black while it has the focus.
/// `BoxType` 1 takes digits and one point and reads "0.00" when set or left; there are no capitals of themselves.
/// Lines are separated by carriage return and line feed in `Text`.
class kvTextBoxMultiLine : public QPlainTextEdit {
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE setText NOTIFY changed)
    Q_PROPERTY(int BoxType READ BoxType WRITE setBoxType)
    Q_PROPERTY(Qt::Alignment Alignment READ Alignment WRITE setAlignment)
    Q_PROPERTY(QFont Font READ font WRITE setFont)
    Q_PROPERTY(QColor ForeColor READ ForeColor WRITE setForeColor)

public:
    explicit kvTextBoxMultiLine(QWidget *parent = nullptr);
    /// `name` becomes the object name.
    explicit kvTextBoxMultiLine(const QString &name, QWidget *parent = nullptr);

    /// A text that was set and not changed since comes back as it was, whatever its line ends.
    [[nodiscard]] QString Text() const;
    void setText(const QString &text);

    [[nodiscard]] int BoxType() const { return m_boxType; }
    void setBoxType(int boxType) { m_boxType = boxType; }
    [[nodiscard]] Qt::Alignment Alignment() const;
    void setAlignment(Qt::Alignment alignment);
    [[nodiscard]] QColor ForeColor() const;
    void setForeColor(const QColor &colour);

signals:
    void changed();
    void gotFocus();
    void lostFocus();
    /// As in `kvTextBox`.
    void keyDown(int &key);
    void keyPress(int &key);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    EntryField *m_entry;
    int m_boxType = 0;
    QString m_setText;
};
