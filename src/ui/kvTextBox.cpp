#include "ui/kvTextBox.h"

#include "base/values.h"
#include "ui/InsertedText.h"
#include "ui/entryKeys.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

kvTextBox::kvTextBox(QWidget *parent) : QLineEdit(parent), EntryBox(this)
{
    new InsertedText(this, [this](const QString &text, const QString &beside) { return inserted(text, beside); });
    connect(this, &QLineEdit::textChanged, this, &kvTextBox::changed);
    passOn(*this);
}

kvTextBox::kvTextBox(const QString &name, int boxType, QWidget *parent) : kvTextBox(parent)
{
    setObjectName(name);
    setBoxType(boxType);
}

void kvTextBox::setText(const QString &text)
{
    QLineEdit::setText(inForm(text));
    // A long text shows its beginning.
    if (!hasFocus())
        home(false);
}

QString kvTextBox::textBesideSelection() const
{
    QString rest = text();
    if (hasSelectedText())
        rest.remove(selectionStart(), selectedText().size());
    return rest;
}

void kvTextBox::keyPressEvent(QKeyEvent *event)
{
    if (entry().keySwallowed(*event))
        return;
    if (m_autoTab && keys::characterCode(*event) == keys::Enter)
        return cSendKeys::SendKeys(u"{tab}"_s);
    entry().passCharacter(
        event, [this](int key) { return filtered(key); }, [this](QKeyEvent *left) { QLineEdit::keyPressEvent(left); });
}

int kvTextBox::filtered(int key)
{
    if (BoxType() == boxType::Text) {
        const bool typesText = key >= keys::Blank;
        const bool startsWord = text().isEmpty() || m_lastKey == keys::Blank;
        m_lastKey = startsWord && typesText ? static_cast<int>(QChar::toUpper(static_cast<char32_t>(key))) : key;
        return m_lastKey;
    }
    return amountKey(textBesideSelection(), key);
}
