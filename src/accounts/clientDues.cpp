#include "accounts/clientDues.h"

#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/lookups.h"

using namespace Qt::StringLiterals;

std::vector<ClientDue> clientDues(QDate day)
{
    std::vector<ClientDue> dues;
    Recordset &clients = DE().rsaccounts;
    clients.openColumns(
        u"Select * from Accounts where type="_s + QString::number(accountType::Client) + u" order by Title"_s,
        {u"ID"_s, u"Title"_s});
    for (; !clients.eof(); clients.moveNext()) {
        const qint32 id = clients.integer(u"ID");
        const Currency balance = Currency::fromDouble(GetAccountBalance(id, day));
        if (balance < Currency())
            dues.push_back({id, clients.text(u"Title"), -balance});
    }
    clients.close();
    return dues;
}
