#pragma once

#include <QDate>
#include <QString>

#include <optional>

/// A worker's task: who makes the garment of an item row, and what became of it.
namespace assignment {

/// What stands in the place of a worker's name where there is none.
[[nodiscard]] QString noWorker();

/// Whether an account of any type has that title.
[[nodiscard]] bool isAccount(const QString &title);

/// What a save receives, whatever screen collected it.
struct Assignment {
    QString worker;
    /// A `rowStatus`; none leaves the row where it is, as a cancelled one.
    std::optional<int> status;
    bool cuttingDone = false;
    QDate cuttingDate;
    double wages = 0;
    bool paid = false;
    QString location;
};

enum class Saved { Yes, RowGone, WorkerGone };

/// Writes the row and, when with it all of its job is delivered, closes the job; both or nothing, on the disk when it
/// returns. The day of the status is stamped each time, also where it stays what it was; "NA" keeps the name of who
/// worked on it before. Nothing is written where the row or the worker is no longer there.
[[nodiscard]] Saved save(qint32 rowID, const Assignment &given);

/// Who made this item for this client last before `day`, in lines for a label.
[[nodiscard]] QString lastJob(QDate day, qint32 itemID, qint32 clientID);

} // namespace assignment
