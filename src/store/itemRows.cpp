#include "store/itemRows.h"

#include "store/Recordset.h"
#include "store/RowFollower.h"
#include "store/codes.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace itemRows {

namespace {

/// No number of a row: it equals none that is asked for, and lies below and outside all.
constexpr int null = std::numeric_limits<int>::min();
constexpr qint64 noMoment = std::numeric_limits<qint64>::min();

struct Row {
    qint64 number;
    int job;
    int item;
    int worker;
    int quantity;
    int status;
    int inventory;
    int score;
    qint64 booked;
    qint64 promised;
};

class Rows : public RowFollower {
public:
    Rows()
        : RowFollower(Connection::Followed::ItemRows,
            u"Select Id, JobID, ItemID, WorkerID, QNT, DoneByWorker, isInventory, Score, DATE, JobDelDate from "
            "JOBS_DETAIL"_s)
    {
    }

    using RowFollower::bringUp;
    [[nodiscard]] const std::vector<Row> &all() const { return m_rows; }
    [[nodiscard]] Rated ofWorker(int worker) const { return m_byWorker.value(worker); }
    [[nodiscard]] Progress ofJob(int job) const { return m_byJob.value(job); }

protected:
    void forgetAll() override
    {
        m_rows.clear();
        m_places.clear();
        m_byWorker.clear();
        m_byJob.clear();
    }

    void forget(qint64 number) override
    {
        const auto place = m_places.constFind(number);
        if (place == m_places.cend())
            return;
        count(m_rows[*place], -1);
        // The last one takes its place.
        m_places[m_rows.back().number] = *place;
        m_rows[*place] = m_rows.back();
        m_rows.pop_back();
        m_places.remove(number);
    }

    void take(qint64 number, const Recordset &row) override
    {
        const auto whole = [&row](int column) { return row.value(column).isNull() ? null : row.value(column).toInt(); };
        const auto moment = [&row](int column) {
            return row.value(column).isNull() ? noMoment : momentOf(row.value(column).toDateTime());
        };
        m_places.insert(number, m_rows.size());
        m_rows.push_back(
            {number, whole(1), whole(2), whole(3), whole(4), whole(5), whole(6), whole(7), moment(8), moment(9)});
        count(m_rows.back(), 1);
    }

private:
    void count(const Row &row, int by)
    {
        Rated &rated = m_byWorker[row.worker];
        rated.rows += by;
        rated.scores += row.score == null ? 0 : by * row.score;
        Progress &progress = m_byJob[row.job];
        const bool made = row.inventory == 0;
        progress.made += made ? by : 0;
        progress.madeAndCompleted += made && row.status == rowStatus::Completed ? by : 0;
        progress.delivered += row.status == rowStatus::Delivered ? by : 0;
    }

    std::vector<Row> m_rows;
    QHash<qint64, size_t> m_places;
    QHash<int, Rated> m_byWorker;
    QHash<int, Progress> m_byJob;
};

const Rows &kept(Connection &connection)
{
    static Rows rows;
    rows.bringUp(connection);
    return rows;
}

const std::vector<Row> &rows(Connection &connection)
{
    return kept(connection).all();
}

qint64 countedQuantity(const Row &row)
{
    return row.quantity == null ? 0 : row.quantity;
}

} // namespace

QHash<int, qint64> quantityByItem(
    Connection &connection, std::optional<int> worker, QDate from, QDate to, bool finishedOnly)
{
    QHash<int, qint64> sums;
    for (const Row &row : rows(connection)) {
        if (row.booked >= momentOf(from) && row.booked <= momentOf(to) && (!worker || row.worker == worker)
            && (!finishedOnly || row.status > rowStatus::Uncompleted))
            sums[row.item] += countedQuantity(row);
    }
    return sums;
}

qint64 waiting(Connection &connection, int itemID, std::optional<QDate> day)
{
    return std::ranges::count_if(rows(connection), [&](const Row &row) {
        return row.item == itemID && row.status == rowStatus::Uncompleted && row.quantity != null
            && (!day || row.booked == momentOf(*day));
    });
}

QHash<int, qint64> inHandByWorker(Connection &connection, Dated dated, QDate from, QDate to)
{
    QHash<int, qint64> sums;
    for (const Row &row : rows(connection)) {
        const qint64 moment = dated == Dated::Booked ? row.booked : row.promised;
        if (row.status == rowStatus::Uncompleted && moment >= momentOf(from) && moment <= momentOf(to))
            sums[row.worker] += countedQuantity(row);
    }
    return sums;
}

Rated ratedRows(Connection &connection, int workerID)
{
    return kept(connection).ofWorker(workerID);
}

Progress progressOf(Connection &connection, int jobID)
{
    return kept(connection).ofJob(jobID);
}

} // namespace itemRows
