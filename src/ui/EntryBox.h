#pragma once

#include "ui/EntryField.h"
#include "ui/boxType.h"

#include <optional>

/// What kvTextBox, kvTextBoxMultiLine and kvComboBox have in common for those who use them.
class EntryBox {
public:
    /// See `boxType`.
    [[nodiscard]] int BoxType() const { return m_boxType; }
    void setBoxType(int boxType) { m_boxType = boxType; }
    /// Of the text while the field does not have the focus.
    [[nodiscard]] QColor ForeColor() const { return m_entry->foreColor(); }
    void setForeColor(const QColor &colour) { m_entry->setForeColor(colour); }

protected:
    /// `control` is this one, as the widget that it is too.
    explicit EntryBox(QWidget *control, int boxType = boxType::Text)
        : m_entry(new EntryField(control)), m_boxType(boxType)
    {
    }
    ~EntryBox() = default;
    Q_DISABLE_COPY_MOVE(EntryBox)

    [[nodiscard]] EntryField &entry() const { return *m_entry; }
    [[nodiscard]] bool isAmount() const { return m_boxType == boxType::Amount; }
    /// An amount as "0.00"; other text as it is.
    [[nodiscard]] QString inForm(const QString &text) const;
    /// The code to go on with when a character is typed beside `text`.
    [[nodiscard]] int amountKey(const QString &text, int key) const;
    /// What becomes of a text that is pasted or dropped (see `InsertedText`): in an amount the number that it names, in
    /// any other field one line.
    [[nodiscard]] std::optional<QString> inserted(const QString &text, const QString &beside) const;

    /// Makes the entry's signals the control's own; an amount that is left is put in form first.
    template <typename Control>
    void passOn(Control &control)
    {
        QObject::connect(m_entry, &EntryField::gotFocus, &control, &Control::gotFocus);
        QObject::connect(m_entry, &EntryField::lostFocus, &control, [this, &control] {
            if (isAmount())
                control.setText(control.Text());
            emit control.lostFocus();
        });
        QObject::connect(m_entry, &EntryField::keyDown, &control, &Control::keyDown);
        QObject::connect(m_entry, &EntryField::keyPress, &control, &Control::keyPress);
    }

private:
    EntryField *m_entry;
    int m_boxType;
};
