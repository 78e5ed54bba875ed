#include "Store.h"

#include "store/DataEnvironment.h"

using namespace Qt::StringLiterals;

namespace faults {

namespace {

/// Several accounts in one batch.
class AccountBatch : public Task {
public:
    explicit AccountBatch(Random random) : m_first(random.below(1'000'000)), m_count(2 + random.below(6)) { }
    void run() override
    {
        Recordset &accounts = DE().rsaccounts;
        accounts.reopen(u"Select * from accounts order by id"_s);
        for (int i = 0; i < m_count; ++i) {
            accounts.addNew();
            accounts.set(u"Title", u"Client %1 of %2"_s.arg(i + 1).arg(m_first));
            accounts.set(u"Type", 0);
            accounts.set(u"ADDRESS", QString(600, u'a'));
        }
        accounts.updateBatch();
        accounts.close();
    }

private:
    int m_first;
    int m_count;
};

} // namespace

std::vector<Store> accountStores()
{
    return {{u"batch of accounts"_s, [](const Random &random) { return std::make_unique<AccountBatch>(random); }}};
}

} // namespace faults
