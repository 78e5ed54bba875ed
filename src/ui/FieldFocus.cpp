#include "ui/FieldFocus.h"

#include "ui/entryKeys.h"

#include <QApplication>
#include <QHash>
#include <QWidget>

namespace {

QHash<const QWidget *, FieldFocus *> &fields()
{
    static QHash<const QWidget *, FieldFocus *> all;
    return all;
}

/// At most one for each open window.
QList<QWidget *> &enteredFields()
{
    static QList<QWidget *> all;
    return all;
}

} // namespace

FieldFocus::FieldFocus(QWidget *field) : QObject(field), m_field(field)
{
    fields().insert(field, this);
    static const auto connection =
        connect(qApp, &QApplication::focusChanged, qApp, [](QWidget *, QWidget *focused) { follow(focused); });
    Q_UNUSED(connection)
}

FieldFocus::~FieldFocus()
{
    fields().remove(m_field);
    enteredFields().removeAll(m_field);
}

void FieldFocus::follow(const QWidget *focused)
{
    if (!focused)
        return;
    const auto entered = enteredFields();
    for (QWidget *field : entered) {
        if (field == focused || field->window() != focused->window())
            continue;
        enteredFields().removeAll(field);
        emit fields().value(field)->left();
    }
    FieldFocus *const now = fields().value(focused);
    if (!now || enteredFields().contains(now->m_field))
        return;
    enteredFields().append(now->m_field);
    emit now->entered();
}

void showFocus(QWidget *control)
{
    auto *focus = new FieldFocus(control);
    QObject::connect(focus, &FieldFocus::entered, control, [control] { ShowAsSelected(*control); });
    QObject::connect(focus, &FieldFocus::left, control, [control] { ShowAsNormal(*control); });
}
