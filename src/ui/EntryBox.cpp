#include "ui/EntryBox.h"

#include "base/values.h"
#include "ui/entryKeys.h"

QString EntryBox::inForm(const QString &text) const
{
    return isAmount() ? Money(Val(text)) : text;
}

int EntryBox::amountKey(const QString &text, int key) const
{
    // Copy, cut and the like are for the field to act on.
    return isAmount() && key >= keys::Blank ? DecimalKeysOnly(text, key) : key;
}
