#pragma once

#include <QScrollArea>

#include <vector>

class QGridLayout;
class QLabel;
class kvTextBox;

/// The list of measurement fields: a scrolling column of labels with their values. There is always at least one slot;
/// it is blank and disabled while the list has no field.
class ItemDetails : public QScrollArea {
    Q_OBJECT

public:
    /// `name` becomes the object name.
    explicit ItemDetails(const QString &name, QWidget *parent = nullptr);

    [[nodiscard]] int count() const { return m_count; }

    void AddFeild(const QString &Caption, const QString &Value);
    void ClearList();
    /// Label and value of field `Index`, counted from 0. REQUIRES: 0 <= Index < count().
    void ListItemText(int Index, QString &Caption, QString &Value) const;
    /// Puts the focus on the first value. Without effect while there is no field.
    void SetFocusToList();

    /// Captions and values are never cut at the side.
    [[nodiscard]] QSize minimumSizeHint() const override;

private:
    struct Field {
        QLabel *lblCap;
        kvTextBox *txtValue;
    };

    void addSlot();
    void lblGotFocus(QLabel *label);
    void lbllostFocus(QLabel *label);

    QWidget *m_panel;
    QGridLayout *m_grid;
    std::vector<Field> m_fields;
    int m_count = 0;
};
