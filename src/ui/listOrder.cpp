#include "ui/listOrder.h"

#include "base/values.h"

#include <QHash>

#include <algorithm>
#include <limits>
#include <optional>

namespace {

/// None where a text is no date. Few days make many rows: each is read once.
std::optional<std::vector<qint64>> datesOf(const std::vector<QString> &texts)
{
    constexpr qint64 beforeAll = std::numeric_limits<qint64>::min();
    QHash<QString, qint64> known{{QString(), beforeAll}};
    std::vector<qint64> moments;
    moments.reserve(texts.size());
    for (const QString &text : texts) {
        auto moment = known.constFind(text);
        if (moment == known.constEnd()) {
            const auto read = readDateTime(text);
            if (!read)
                return {};
            moment = known.insert(text, read->toMSecsSinceEpoch());
        }
        moments.push_back(*moment);
    }
    const bool isAny = known.size() > 1;
    return isAny ? std::optional(std::move(moments)) : std::nullopt;
}

std::vector<double> numbersOf(const std::vector<QString> &texts)
{
    std::vector<double> numbers;
    numbers.reserve(texts.size());
    for (const QString &text : texts)
        numbers.push_back(shownNumber(text).value_or(-std::numeric_limits<double>::infinity()));
    return numbers;
}

template <typename Keys, typename Less>
void sortBy(std::vector<int> &places, const Keys &keys, Qt::SortOrder order, Less less)
{
    const auto key = [&keys](int place) -> const auto &
    {
        return keys[static_cast<size_t>(place)];
    };
    std::ranges::stable_sort(places, [&](int one, int other) {
        return order == Qt::AscendingOrder ? less(key(one), key(other)) : less(key(other), key(one));
    });
}

} // namespace

void listOrder::sort(std::vector<int> &places, const std::vector<QString> &texts, bool numeric, Qt::SortOrder order)
{
    if (const auto dates = datesOf(texts))
        sortBy(places, *dates, order, std::less());
    else if (numeric)
        sortBy(places, numbersOf(texts), order, std::less());
    else
        sortBy(places, texts, order,
            [](const QString &one, const QString &other) { return one.compare(other, Qt::CaseInsensitive) < 0; });
}
