#include "Store.h"
#include "store/DataEnvironment.h"

using namespace Qt::StringLiterals;

namespace {

/// Saved as the editors of clients and workers do, for `count` accounts at once.
Command newAccounts(std::mt19937 &random, int count)
{
    const quint32 mark = random();
    return [mark, count] {
        Recordset &accounts = DE().rsaccounts;
        accounts.reopen(u"Select * from accounts order by id"_s);
        for (int i = 0; i < count; ++i) {
            accounts.addNew();
            accounts.set(u"Title", u"Client %1 %2"_s.arg(mark).arg(i));
            accounts.set(u"Type", 0);
            accounts.set(u"ADDRESS", QString(2000, u'a'));
        }
        accounts.updateBatch();
        accounts.close();
    };
}

Command changedAccount(std::mt19937 &random)
{
    const QString city = QString::number(random());
    return [city] {
        Recordset &accounts = DE().rsaccounts;
        accounts.reopen(u"Select * from accounts where Type=0 order by id"_s);
        accounts.set(u"City", city);
        accounts.update();
        accounts.close();
    };
}

} // namespace

std::vector<Operation> accountOperations()
{
    return {{u"new account"_s, [](std::mt19937 &random) { return newAccounts(random, 1); }},
        {u"batch of accounts"_s, [](std::mt19937 &random) { return newAccounts(random, 5); }},
        {u"changed account"_s, changedAccount}};
}
