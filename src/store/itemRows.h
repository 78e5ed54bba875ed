#pragma once

#include <QDate>
#include <QHash>

#include <optional>

class Connection;

/// Sums, counts and scores over the rows of `JOBS_DETAIL`, from memory, for the lists that ask one for each of their
/// lines. Each answers what the statement told with it answers on the file, in the midst of a group too; Null is no
/// number, fulfils no condition and adds nothing. A period holds the beginning of both its days and all between: a date
/// with a time of day on the last day lies behind it.
namespace itemRows {

/// "Select sum(QNT) from JOBS_DETAIL where ItemID=.. and date between .. and ..", for each item that has such rows;
/// with a worker "and WorkerID=..", `finishedOnly` "and DoneByWorker>0".
[[nodiscard]] QHash<int, qint64> quantityByItem(
    Connection &connection, std::optional<int> worker, QDate from, QDate to, bool finishedOnly);

/// Rows, not pieces, that wait to be completed: "Select count(QNT) from Jobs_Detail where ItemID=.. and
/// DoneByWorker=0", with a day "and date=..".
[[nodiscard]] qint64 waiting(Connection &connection, int itemID, std::optional<QDate> day = {});

/// The date that a period is about: of the booking, or the promised one.
enum class Dated { Booked, Promised };
/// Pieces in hand by worker: "Select sum(QNT) from JOBS_Detail where DoneByWorker=0 and WorkerID=.. and DATE between
/// ..", or JobDelDate in the place of DATE.
[[nodiscard]] QHash<int, qint64> inHandByWorker(Connection &connection, Dated dated, QDate from, QDate to);

struct Rated {
    /// "Select Count(*) from Jobs_Detail where WorkerID=.."
    qint64 rows = 0;
    /// "SELECT Sum(Score) from Jobs_Detail where WorkerID=.."
    qint64 scores = 0;
};
[[nodiscard]] Rated ratedRows(Connection &connection, int workerID);

/// Rows of a job card. Those of the shop's own stock are no part of what is made for the client.
struct Progress {
    /// "isInventory=0".
    qint64 made = 0;
    /// "isInventory=0 and DoneByWorker=1".
    qint64 madeAndCompleted = 0;
    /// "DoneByWorker=2", stock included.
    qint64 delivered = 0;
};
[[nodiscard]] Progress progressOf(Connection &connection, int jobID);

} // namespace itemRows
