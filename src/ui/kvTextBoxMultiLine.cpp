#include "ui/kvTextBoxMultiLine.h"

#include "ui/InsertedText.h"
#include "ui/entryKeys.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QTextOption>

using namespace Qt::StringLiterals;

kvTextBoxMultiLine::kvTextBoxMultiLine(QWidget *parent) : QPlainTextEdit(parent), EntryBox(this)
{
    setTabChangesFocus(true);
    connect(this, &QPlainTextEdit::textChanged, this, &kvTextBoxMultiLine::changed);
    connect(&entry(), &EntryField::lostFocus, this, [this] {
        QTextCursor caret = textCursor();
        caret.clearSelection();
        setTextCursor(caret);
    });
    passOn(*this);
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
    m_setText = inForm(text);
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

void kvTextBoxMultiLine::keyPressEvent(QKeyEvent *event)
{
    if (entry().keySwallowed(*event))
        return;
    entry().passCharacter(
        event, [this](int key) { return amountKey(toPlainText(), key); },
        [this](QKeyEvent *left) { QPlainTextEdit::keyPressEvent(left); });
}

void kvTextBoxMultiLine::insertFromMimeData(const QMimeData *source)
{
    if (!isAmount())
        return QPlainTextEdit::insertFromMimeData(source);
    const QTextCursor caret = textCursor();
    const QString text = toPlainText();
    const QString rest = text.left(caret.selectionStart()) + text.mid(caret.selectionEnd());
    if (const auto made = inserted(source->text(), rest))
        insertPlainText(*made);
    else
        refuseNumber(*this, source->text());
}
