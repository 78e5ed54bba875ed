#include "ui/kvTextBox.h"

#include "base/values.h"
#include "ui/EntryField.h"
#include "ui/boxType.h"
#include "ui/entryKeys.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

kvTextBox::kvTextBox(QWidget *parent) : QLineEdit(parent), m_entry(new EntryField(this))
{
    connect(this, &QLineEdit::textEdited, this, &kvTextBox::flattenLines);
    connect(this, &QLineEdit::textChanged, this, &kvTextBox::changed);
    connect(m_entry, &EntryField::gotFocus, this, &kvTextBox::gotFocus);
    connect(m_entry, &EntryField::lostFocus, this, [this] {
        if (m_boxType == boxType::Amount)
            setText(text());
        emit lostFocus();
    });
    connect(m_entry, &EntryField::keyDown, this, &kvTextBox::keyDown);
    connect(m_entry, &EntryField::keyPress, this, &kvTextBox::keyPress);
}

kvTextBox::kvTextBox(const QString &name, int boxType, QWidget *parent) : kvTextBox(parent)
{
    setObjectName(name);
    m_boxType = boxType;
}

void kvTextBox::setText(const QString &text)
{
    QLineEdit::setText(m_boxType == boxType::Amount ? Money(Val(text)) : text);
    // A long text shows its beginning.
    if (!hasFocus())
        home(false);
}

QColor kvTextBox::ForeColor() const
{
    return m_entry->foreColor();
}

void kvTextBox::setForeColor(const QColor &colour)
{
    m_entry->setForeColor(colour);
}

void kvTextBox::keyPressEvent(QKeyEvent *event)
{
    if (m_entry->keySwallowed(*event))
        return;
    if (m_autoTab && keys::characterCode(*event) == keys::Enter)
        return cSendKeys::SendKeys(u"{tab}"_s);
    if (m_boxType == boxType::Amount && event->matches(QKeySequence::Paste))
        return pasteAmount();
    m_entry->passCharacter(
        event, [this](int key) { return filtered(key); }, [this](QKeyEvent *left) { QLineEdit::keyPressEvent(left); });
}

int kvTextBox::filtered(int key)
{
    // Copy, cut and the like are for the field to act on.
    const bool typesText = key >= keys::Blank;
    if (m_boxType == boxType::Amount && typesText) {
        // What is selected goes with the next key, and its point with it.
        QString rest = text();
        if (hasSelectedText())
            rest.remove(selectionStart(), selectionLength());
        return DecimalKeysOnly(rest, key);
    }
    if (m_boxType == boxType::Text) {
        const bool startsWord = text().isEmpty() || m_lastKey == keys::Blank;
        m_lastKey = startsWord && typesText ? QChar(key).toUpper().unicode() : key;
        return m_lastKey;
    }
    return key;
}

void kvTextBox::pasteAmount()
{
    const QString pasted = QApplication::clipboard()->text();
    for (const QChar character : pasted) {
        if (filtered(character.unicode()) >= keys::Blank)
            insert(character);
    }
}

void kvTextBox::flattenLines(const QString &text)
{
    static const QRegularExpression lineBreak(u"\\r\\n|[\\r\\n\\x{2028}\\x{2029}]"_s);
    if (!text.contains(lineBreak))
        return;
    const qsizetype behindCaret = text.size() - cursorPosition();
    QString flat = text;
    flat.replace(lineBreak, u" "_s);
    QLineEdit::setText(flat);
    setCursorPosition(static_cast<int>(flat.size() - behindCaret));
}
