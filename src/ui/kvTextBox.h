#pragma once

#include "ui/EntryBox.h"

#include <QLineEdit>

/// A single-line entry field. Shown white on black with all text selected while it has the focus.
///
/// `BoxType` 0 starts each word with a capital as it is typed; text pasted or set stays as it is. `BoxType` 1 is an
/// amount: digits and one point can be typed, the number that a text names be pasted, and it reads "0.00" whenever it
/// is set or left. Any other is plain text. Line breaks in pasted text become blanks.
class kvTextBox : public QLineEdit, public EntryBox {
    Q_OBJECT

public:
    explicit kvTextBox(QWidget *parent = nullptr);
    /// `name` becomes the object name.
    explicit kvTextBox(const QString &name, int boxType = 0, QWidget *parent = nullptr);

    [[nodiscard]] QString Text() const { return text(); }
    /// An amount takes the form "0.00".
    void setText(const QString &text);
    /// What stays when the next key replaces the selection.
    [[nodiscard]] QString textBesideSelection() const;

    /// On by default: Enter moves to the next field and is not offered to anybody as a key press.
    [[nodiscard]] bool AutoTab() const { return m_autoTab; }
    void setAutoTab(bool on) { m_autoTab = on; }

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

    bool m_autoTab = true;
    int m_lastKey = 0;
};
