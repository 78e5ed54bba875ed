#include "jobcards/CardFinder.h"

#include "base/values.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/lookups.h"

#include <QSet>

#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

/// People write numbers in groups.
QString digitsOf(const QString &text)
{
    QString digits;
    std::ranges::copy_if(text, std::back_inserter(digits), [](QChar sign) { return sign.isDigit(); });
    return digits;
}

/// Cards that came from elsewhere may lack something, and are found all the same.
qint32 numberIn(const Value &value)
{
    return value.isNull() ? 0 : value.toInt();
}

QString textIn(const Value &value)
{
    return value.isNull() ? QString() : value.toText();
}

bool isPhone(const QString &text)
{
    return std::ranges::all_of(text, [](QChar sign) { return sign.isDigit() || u" +-"_s.contains(sign); });
}

} // namespace

CardFinder::CardFinder()
{
    Recordset &jobs = DE().rsJobs2;
    jobs.openColumns(
        u"Select * from Jobs"_s, {u"Id"_s, u"DATE"_s, u"ClintID"_s, u"AmountDue"_s, u"JobFinished"_s, u"Status"_s});
    const int number = jobs.column(u"Id");
    const int date = jobs.column(u"DATE");
    const int client = jobs.column(u"ClintID");
    const int amount = jobs.column(u"AmountDue");
    const int finished = jobs.column(u"JobFinished");
    const int status = jobs.column(u"Status");
    m_cards.reserve(static_cast<size_t>(jobs.recordCount()));
    for (; !jobs.eof(); jobs.moveNext())
        m_cards.push_back({.number = jobs.value(number).toInt(),
            .date = jobs.value(date).isNull() ? QDate() : jobs.value(date).toDate(),
            .client = numberIn(jobs.value(client)),
            .amount = Currency::fromDouble(Val(textIn(jobs.value(amount)))),
            .isFinished = numberIn(jobs.value(finished)) == jobState::Finished,
            .isCancelled = numberIn(jobs.value(status)) == cardStatus::Cancelled});
    jobs.close();
    std::ranges::sort(m_cards, [](const Card &left, const Card &right) {
        return std::tie(left.date, left.number) > std::tie(right.date, right.number);
    });
    for (const Card &card : m_cards) {
        if (!m_clients.contains(card.client))
            m_clients.insert(
                card.client, {titleOrBlank(card.client).toCaseFolded(), digitsOf(mobileOrBlank(card.client))});
    }
}

std::vector<CardFinder::Card> CardFinder::find(const QString &text, size_t most) const
{
    const QString name = text.simplified().toCaseFolded();
    const QString mobile = isPhone(text) ? digitsOf(text) : QString();
    QSet<qint32> clients;
    for (auto client = m_clients.begin(); client != m_clients.end(); ++client) {
        const bool isMeant =
            (!name.isEmpty() && client->name.contains(name)) || (!mobile.isEmpty() && client->mobile.contains(mobile));
        if (isMeant)
            clients.insert(client.key());
    }
    std::vector<Card> found;
    for (auto card = m_cards.begin(); card != m_cards.end() && found.size() < most && !clients.isEmpty(); ++card) {
        if (clients.contains(card->client))
            found.push_back(*card);
    }
    return found;
}
