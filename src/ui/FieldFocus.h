#pragma once

#include <QObject>

class QWidget;

/// Tells when a field is entered and left as its user sees it: its own drop-down list, a message above the screen, and
/// a look at another program are neither. Leaving one field comes before entering the next. Belongs to its field.
class FieldFocus : public QObject {
    Q_OBJECT

public:
    explicit FieldFocus(QWidget *field);
    ~FieldFocus() override;

signals:
    void entered();
    void left();

private:
    static void follow(const QWidget *focused);

    QWidget *m_field;
};

/// Shows `control` as selected while it has the focus, for controls that don't do so by themselves.
void showFocus(QWidget *control);
