#include "ui/EntryBox.h"

#include "base/values.h"
#include "ui/InsertedText.h"
#include "ui/entryKeys.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

QString EntryBox::inForm(const QString &text) const
{
    return isAmount() ? Money(Val(text)) : text;
}

int EntryBox::amountKey(const QString &text, int key) const
{
    // Copy, cut and the like are for the field to act on.
    return isAmount() && key >= keys::Blank ? DecimalKeysOnly(text, key) : key;
}

std::optional<QString> EntryBox::inserted(const QString &text, const QString &beside) const
{
    if (isAmount())
        return numberFor(text, beside, DecimalKeysOnly);
    static const QRegularExpression lineBreak(u"\\r\\n|[\\r\\n\\x{2028}\\x{2029}]"_s);
    return QString(text).replace(lineBreak, u" "_s);
}
