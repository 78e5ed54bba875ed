#include "ui/kvComboBox.h"

#include "base/values.h"
#include "ui/EntryField.h"
#include "ui/boxType.h"
#include "ui/entryKeys.h"
#include "ui/modAutoSearch.h"

#include <QKeyEvent>
#include <QWheelEvent>

kvComboBox::kvComboBox(QWidget *parent) : QComboBox(parent), m_entry(new EntryField(this))
{
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    connect(this, &QComboBox::currentTextChanged, this, &kvComboBox::changed);
    connect(m_entry, &EntryField::gotFocus, this, &kvComboBox::gotFocus);
    connect(m_entry, &EntryField::lostFocus, this, [this] {
        if (m_boxType == boxType::Amount)
            setText(Text());
        emit lostFocus();
    });
    connect(m_entry, &EntryField::keyDown, this, &kvComboBox::keyDown);
    connect(m_entry, &EntryField::keyPress, this, &kvComboBox::keyPress);
}

kvComboBox::kvComboBox(const QString &name, QWidget *parent) : kvComboBox(parent)
{
    setObjectName(name);
}

void kvComboBox::setText(const QString &text)
{
    setComboText(*this, m_boxType == boxType::Amount ? Money(Val(text)) : text);
}

QColor kvComboBox::ForeColor() const
{
    return m_entry->foreColor();
}

void kvComboBox::setForeColor(const QColor &colour)
{
    m_entry->setForeColor(colour);
}

void kvComboBox::keyPressEvent(QKeyEvent *event)
{
    if (m_entry->keySwallowed(*event))
        return;
    const auto filtered = [this](int key) {
        return m_boxType == boxType::Amount && key >= keys::Blank ? DecimalKeysOnly(Text(), key) : key;
    };
    m_entry->passCharacter(event, filtered, [this](QKeyEvent *left) { QComboBox::keyPressEvent(left); });
}

void kvComboBox::wheelEvent(QWheelEvent *event)
{
    // A turn of the wheel over the field must not choose another entry unseen.
    event->ignore();
}
