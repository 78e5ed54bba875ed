#include "ui/EntryField.h"

#include "ui/FieldFocus.h"
#include "ui/entryKeys.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QWidget>

EntryField::EntryField(QWidget *control) : QObject(control), m_control(control)
{
    control->installEventFilter(this);
    auto *focus = new FieldFocus(control);
    connect(focus, &FieldFocus::entered, this, [this] {
        m_isEntered = true;
        ShowAsSelected(*m_control);
        emit gotFocus();
    });
    connect(focus, &FieldFocus::left, this, [this] {
        m_isEntered = false;
        ShowAsNormal(*m_control);
        setForeColor(m_foreColor);
        emit lostFocus();
    });
}

void EntryField::setForeColor(const QColor &colour)
{
    m_foreColor = colour;
    // White on black while it is entered, whatever its own colour.
    if (!m_isEntered)
        setTextColour(*m_control, colour);
}

bool EntryField::keySwallowed(const QKeyEvent &event)
{
    int key = keys::keyCode(event);
    if (key == 0)
        return false;
    emit keyDown(key);
    return key == keys::Swallowed;
}

bool EntryField::eventFilter(QObject *, QEvent *event)
{
    return event->type() == QEvent::InputMethod && typeComposed(*m_control, *static_cast<QInputMethodEvent *>(event));
}

void EntryField::passCharacter(
    QKeyEvent *event, const std::function<int(int)> &filter, const std::function<void(QKeyEvent *)> &act)
{
    const int typed = keys::characterCode(*event);
    // An access key whose command is disabled would be taken for the letter.
    const bool isAccessKey = typed == 0 && event->modifiers() == Qt::AltModifier && !event->text().isEmpty()
        && event->text().at(0).isPrint();
    if (isAccessKey)
        return event->ignore();
    if (typed == 0)
        return act(event);
    int character = typed;
    emit keyPress(character);
    if (character != keys::Swallowed)
        character = filter(character);
    if (character == keys::Swallowed)
        return;
    if (character == typed)
        return act(event);
    QKeyEvent changed(event->type(), event->key(), event->modifiers(), keys::textOf(character));
    act(&changed);
}
