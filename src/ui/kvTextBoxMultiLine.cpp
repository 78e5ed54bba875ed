#include "ui/kvTextBoxMultiLine.h"

#include "base/values.h"
#include "ui/EntryField.h"
#include "ui/boxType.h"
#include "ui/entryKeys.h"

#include <QKeyEvent>
#include <QTextOption>

using namespace Qt::StringLiterals;

kvTextBoxMultiLine::kvTextBoxMultiLine(QWidget *parent) : QPlainTextEdit(parent), m_entry(new EntryField(this))
{
    setTabChangesFocus(true);
    connect(this, &QPlainTextEdit::textChanged, this, &kvTextBoxMultiLine::changed);
    connect(m_entry, &EntryField::gotFocus, this, &kvTextBoxMultiLine::gotFocus);
    connect(m_entry, &EntryField::lostFocus, this, [this] {
        QTextCursor caret = textCursor();
        caret.clearSelection();
        setTextCursor(caret);
        if (m_boxType == boxType::Amount)
            setText(Text());
        emit lostFocus();
    });
    connect(m_entry, &EntryField::keyDown, this, &kvTextBoxMultiLine::keyDown);
    connect(m_entry, &EntryField::keyPress, this, &kvTextBoxMultiLine::keyPress);
}

kvTextBoxMultiLine::kvTextBoxMultiLine(const QString &name, QWidget *parent) : kvTextBoxMultiLine(parent)
{
    setObjectName(name);
}

QString kvTextBoxMultiLine::Text() const
{
    if (!document()->isModified())
        return m_setText;
    return toPlainText().replace(u'\n', u"\r\n"_s);
}

void kvTextBoxMultiLine::setText(const QString &text)
{
    m_setText = m_boxType == boxType::Amount ? Money(Val(text)) : text;
    setPlainText(m_setText);
}

Qt::Alignment kvTextBoxMultiLine::Alignment() const
{
    return document()->defaultTextOption().alignment();
}

void kvTextBoxMultiLine::setAlignment(Qt::Alignment alignment)
{
    QTextOption option = document()->defaultTextOption();
    option.setAlignment(alignment);
    document()->setDefaultTextOption(option);
}

QColor kvTextBoxMultiLine::ForeColor() const
{
    return m_entry->foreColor();
}

void kvTextBoxMultiLine::setForeColor(const QColor &colour)
{
    m_entry->setForeColor(colour);
}

void kvTextBoxMultiLine::keyPressEvent(QKeyEvent *event)
{
    if (m_entry->keySwallowed(*event))
        return;
    const auto filtered = [this](int key) {
        return m_boxType == boxType::Amount && key >= keys::Blank ? DecimalKeysOnly(toPlainText(), key) : key;
    };
    m_entry->passCharacter(event, filtered, [this](QKeyEvent *left) { QPlainTextEdit::keyPressEvent(left); });
}
