#include "store/journal.h"

#include "store/Recordset.h"

#include <QHash>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace journal {

namespace {

const QByteArray table = "postings";
constexpr qint64 secondsOfDay = 24 * 60 * 60;

qint64 instant(const QDateTime &moment)
{
    return moment.date().toJulianDay() * secondsOfDay + moment.time().msecsSinceStartOfDay() / 1000;
}

qint64 startOf(QDate day)
{
    return day.toJulianDay() * secondsOfDay;
}

/// A posting of an account, with the sums over it and all before it.
struct Entry {
    qint64 at = 0;
    Sums sums;
};

class Summary {
public:
    const std::vector<Entry> *entriesOf(Connection &connection, int accountID)
    {
        if (m_writeStamp != connection.writeStamp(table))
            build(connection);
        const auto found = m_accounts.constFind(accountID);
        return found == m_accounts.cend() ? nullptr : &*found;
    }

private:
    void build(Connection &connection)
    {
        m_accounts.clear();
        Recordset postings(connection);
        postings.open(u"Select AccID, Date, Amount from Postings where status=0"_s);
        for (; !postings.eof(); postings.moveNext()) {
            const Currency amount = postings.value(2).toCurrency();
            Entry entry{instant(postings.value(1).toDateTime()), {amount, {}, {}}};
            (amount > Currency() ? entry.sums.credits : entry.sums.debits) = amount;
            m_accounts[postings.value(0).toInt()].push_back(entry);
        }
        for (std::vector<Entry> &entries : m_accounts) {
            std::stable_sort(
                entries.begin(), entries.end(), [](const Entry &a, const Entry &b) { return a.at < b.at; });
            Sums running;
            for (Entry &entry : entries) {
                running.balance += entry.sums.balance;
                running.credits += entry.sums.credits;
                running.debits += entry.sums.debits;
                entry.sums = running;
            }
        }
        m_writeStamp = connection.writeStamp(table);
    }

    quint64 m_writeStamp = 0;
    QHash<int, std::vector<Entry>> m_accounts;
};

} // namespace

Sums sums(Connection &connection, int accountID, QDate from, QDate to)
{
    static Summary summary;
    const std::vector<Entry> *entries = summary.entriesOf(connection, accountID);
    if (!entries || from > to)
        return {};
    const auto first = std::partition_point(
        entries->begin(), entries->end(), [start = startOf(from)](const Entry &entry) { return entry.at < start; });
    const auto end = std::partition_point(
        first, entries->end(), [last = startOf(to)](const Entry &entry) { return entry.at <= last; });
    if (first == end)
        return {};
    Sums result = std::prev(end)->sums;
    if (first != entries->begin()) {
        const Sums &before = std::prev(first)->sums;
        result.balance -= before.balance;
        result.credits -= before.credits;
        result.debits -= before.debits;
    }
    return result;
}

} // namespace journal
