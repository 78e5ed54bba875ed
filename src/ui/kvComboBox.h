#pragma once

#include "ui/EntryBox.h"

#include <QComboBox>

/// An editable combo box with the common behaviour of entry fields: white on black while it has the focus; with
/// `BoxType` 1 it takes digits and one point and reads "0.00" when set or left. Nothing typed is added to its list, and
/// nothing is completed unless `installAutoSearch` was called on it.
class kvComboBox : public QComboBox, public EntryBox {
    Q_OBJECT

public:
    explicit kvComboBox(QWidget *parent = nullptr);
    /// `name` becomes the object name.
    explicit kvComboBox(const QString &name, QWidget *parent = nullptr);

    [[nodiscard]] QString Text() const { return currentText(); }
    /// Selects the first entry that reads `text` exactly, none where there is no such entry; shows `text` either way.
    void setText(const QString &text);

signals:
    void changed();
    void gotFocus();
    void lostFocus();
    /// As in `kvTextBox`.
    void keyDown(int &key);
    void keyPress(int &key);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
};
