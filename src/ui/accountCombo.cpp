#include "ui/accountCombo.h"

#include "store/DataEnvironment.h"
#include "store/lookups.h"
#include "ui/complain.h"
#include "ui/kvComboBox.h"
#include "ui/modAutoSearch.h"

using namespace Qt::StringLiterals;

kvComboBox *accountCombo(const QString &name)
{
    auto *combo = new kvComboBox(name);
    installAutoSearch(combo);
    return combo;
}

QStringList accountTitles(const QString &condition)
{
    return FillCombo(u"Title"_s, u"Accounts"_s, condition, DE().rsaccounts);
}

void fillWithTitles(kvComboBox &combo, const QString &condition, const QString &first)
{
    QStringList titles = accountTitles(condition);
    if (!first.isEmpty())
        titles.prepend(first);
    setComboEntries(combo, titles);
}

bool requireEntry(kvComboBox &combo, const QString &message)
{
    if (SelectComboEntry(combo) >= 0)
        return true;
    complain(message, &combo);
    return false;
}
