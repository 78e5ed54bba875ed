#include "ui/kvTextBox.h"

#include "base/values.h"
#include "ui/entryKeys.h"

#include <QKeyEvent>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

kvTextBox::kvTextBox(QWidget *parent) : QLineEdit(parent), EntryBox(this)
{
    connect(this, &QLineEdit::textEdited, this, &kvTextBox::tidy);
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
        m_lastKey = startsWord && typesText ? QChar(key).toUpper().unicode() : key;
        return m_lastKey;
    }
    // What is selected goes with the next key, and its point with it.
    QString rest = text();
    if (hasSelectedText())
        rest.remove(selectionStart(), selectionLength());
    return amountKey(rest, key);
}

void kvTextBox::tidy(const QString &text)
{
    static const QRegularExpression lineBreak(u"\\r\\n|[\\r\\n\\x{2028}\\x{2029}]"_s);
    const auto tidied = [this](QString part) {
        part.replace(lineBreak, u" "_s);
        if (!isAmount())
            return part;
        QString amount;
        for (const QChar character : std::as_const(part)) {
            if (amountKey(amount, character.unicode()) >= keys::Blank)
                amount += character;
        }
        return amount;
    };
    const QString whole = tidied(text);
    if (whole == text)
        return;
    const qsizetype caret = tidied(text.left(cursorPosition())).size();
    QLineEdit::setText(whole);
    setCursorPosition(static_cast<int>(caret));
}
