#pragma once

#include <QLineEdit>

class EntryField;

/// A single-line entry field. Shown white on black with all text selected while it has the focus.
///
/// `BoxType` 0 starts each word with a capital as it is typed; text pasted or set stays as it is. `BoxType` 1 is an
/// amount: digits and one point can be typed, and it reads "0.00" whenever it is set or left. Any other is plain text.
/// Line breaks in pasted text become blanks.
class kvTextBox : public QLineEdit {
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE setText NOTIFY changed)
    Q_PROPERTY(int BoxType READ BoxType WRITE setBoxType)
    Q_PROPERTY(bool AutoTab READ AutoTab WRITE setAutoTab)
    Q_PROPERTY(Qt::Alignment Alignment READ alignment WRITE setAlignment)
    Q_PROPERTY(QFont Font READ font WRITE setFont)
    Q_PROPERTY(QColor ForeColor READ ForeColor WRITE setForeColor)

public:
    explicit kvTextBox(QWidget *parent = nullptr);
    /// `name` becomes the object name.
    explicit kvTextBox(const QString &name, int boxType = 0, QWidget *parent = nullptr);

    [[nodiscard]] QString Text() const { return text(); }
    /// An amount takes the form "0.00".
    void setText(const QString &text);

    [[nodiscard]] int BoxType() const { return m_boxType; }
    void setBoxType(int boxType) { m_boxType = boxType; }
    /// On by default: Enter moves to the next field and is not offered to anybody as a key press.
    [[nodiscard]] bool AutoTab() const { return m_autoTab; }
    void setAutoTab(bool on) { m_autoTab = on; }
    [[nodiscard]] QColor ForeColor() const;
    void setForeColor(const QColor &colour);

signals:
    void changed();
    void gotFocus();
    /// After an amount was put in form.
    void lostFocus();
    /// A key by its code, then the character that it types by its code (see `keys`), both before the field acts on
    /// them. A slot may set 0 to swallow it; of a character it may make another.
    void keyDown(int &key);
    void keyPress(int &key);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    /// What becomes of a character under the rules of the box type.
    [[nodiscard]] int filtered(int key);
    void pasteAmount();
    void flattenLines(const QString &text);

    EntryField *m_entry;
    int m_boxType = 0;
    bool m_autoTab = true;
    int m_lastKey = 0;
};
