#include "store/journal.h"

#include "store/Recordset.h"
#include "store/RowFollower.h"
#include "store/codes.h"

#include <QHash>

#include <algorithm>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace journal {

namespace {

/// A posting of an account, with the sums over it and all before it.
struct Entry {
    qint64 at;
    qint64 number;
    Currency amount;
    Sums upTo;
};

/// The live postings of an account.
struct Account {
    std::vector<Entry> entries;
    bool isSummed = false;

    void sumUp()
    {
        if (std::exchange(isSummed, true))
            return;
        std::ranges::sort(entries, {}, [](const Entry &entry) { return std::pair(entry.at, entry.number); });
        Sums running;
        for (Entry &entry : entries) {
            running.balance += entry.amount;
            (entry.amount > Currency() ? running.credits : running.debits) += entry.amount;
            entry.upTo = running;
        }
    }
};

class Summary : public RowFollower {
public:
    Summary() : RowFollower(Connection::Followed::Postings, u"Select Id, AccID, Date, Amount, status from Postings"_s)
    {
    }

    /// By date; none where the account never had one.
    const std::vector<Entry> *entriesOf(Connection &connection, int accountID)
    {
        bringUp(connection);
        const auto found = m_accounts.find(accountID);
        if (found == m_accounts.end())
            return nullptr;
        found->sumUp();
        return &found->entries;
    }

protected:
    void forgetAll() override
    {
        m_accounts.clear();
        m_accountOf.clear();
    }

    void forget(qint64 number) override
    {
        const auto known = m_accountOf.constFind(number);
        if (known == m_accountOf.cend())
            return;
        Account &account = m_accounts[*known];
        std::erase_if(account.entries, [number](const Entry &entry) { return entry.number == number; });
        account.isSummed = false;
        m_accountOf.erase(known);
    }

    void take(qint64 number, const Recordset &row) override
    {
        if (row.value(4) != Value(postingStatus::Live))
            return;
        const int accountID = row.value(1).toInt();
        m_accountOf.insert(number, accountID);
        Account &account = m_accounts[accountID];
        account.entries.push_back({momentOf(row.value(2).toDateTime()), number, row.value(3).toCurrency(), {}});
        account.isSummed = false;
    }

private:
    QHash<int, Account> m_accounts;
    /// By the posting's number.
    QHash<qint64, int> m_accountOf;
};

} // namespace

Sums sums(Connection &connection, int accountID, QDate from, QDate to)
{
    static Summary summary;
    const std::vector<Entry> *entries = summary.entriesOf(connection, accountID);
    if (!entries || from > to)
        return {};
    const auto first = std::partition_point(
        entries->begin(), entries->end(), [start = momentOf(from)](const Entry &entry) { return entry.at < start; });
    const auto end = std::partition_point(
        first, entries->end(), [last = momentOf(to)](const Entry &entry) { return entry.at <= last; });
    if (first == end)
        return {};
    Sums result = std::prev(end)->upTo;
    if (first != entries->begin()) {
        const Sums &before = std::prev(first)->upTo;
        result.balance -= before.balance;
        result.credits -= before.credits;
        result.debits -= before.debits;
    }
    return result;
}

} // namespace journal
