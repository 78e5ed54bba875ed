#include "store/RowFollower.h"

#include "store/Recordset.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 secondsOfDay = 24 * 60 * 60;

} // namespace

qint64 momentOf(const QDateTime &moment)
{
    return momentOf(moment.date()) + moment.time().msecsSinceStartOfDay() / 1000;
}

qint64 momentOf(QDate day)
{
    return day.toJulianDay() * secondsOfDay;
}

void RowFollower::bringUp(Connection &connection)
{
    const Connection::Changes changes = connection.changesSince(m_table, m_mark);
    if (!changes.everything && changes.rows.empty())
        return;
    m_mark = {};
    Recordset rows(connection);
    const auto takeAll = [&] {
        for (; !rows.eof(); rows.moveNext())
            take(rows.value(0).toInt(), rows);
    };
    if (changes.everything) {
        forgetAll();
        rows.open(m_condition.isEmpty() ? m_select : m_select + u" where "_s + m_condition);
        takeAll();
    } else {
        std::vector<qint64> written(changes.rows.begin(), changes.rows.end());
        std::ranges::sort(written);
        written.erase(std::unique(written.begin(), written.end()), written.end());
        for (const qint64 number : written) {
            forget(number);
            const QString row = m_select + u" where Id="_s + QString::number(number);
            rows.reopen(m_condition.isEmpty() ? row : row + u" and "_s + m_condition);
            takeAll();
        }
    }
    m_mark = changes.now;
}
