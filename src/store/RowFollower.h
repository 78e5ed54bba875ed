#pragma once

#include "store/Connection.h"

#include <QDateTime>

class Recordset;

/// A moment as one number, in seconds: what dates are compared by.
[[nodiscard]] qint64 momentOf(const QDateTime &moment);
/// The beginning of the day.
[[nodiscard]] qint64 momentOf(QDate day);

/// Rows of a table kept in memory, as much of each as who derives from it needs, so that a list can ask for sums and
/// counts once a line. A write costs the reading of the rows that it wrote; only a group that was taken back, or
/// another program, makes it read all again.
class RowFollower {
public:
    virtual ~RowFollower() = default;
    Q_DISABLE_COPY_MOVE(RowFollower)

protected:
    /// `select` reads the whole table, the column Id first: "Select Id, .. from T"; or of it the rows that fulfil
    /// `condition`.
    RowFollower(Connection::Followed table, const QString &select, const QString &condition = {})
        : m_table(table), m_select(select), m_condition(condition)
    {
    }

    /// Makes the rows what the file holds now. When it throws, all are read again at the next call.
    void bringUp(Connection &connection);

    virtual void forgetAll() = 0;
    /// The row, where there is one of that number.
    virtual void forget(qint64 number) = 0;
    /// Takes the current row; its number is unknown so far.
    virtual void take(qint64 number, const Recordset &row) = 0;

private:
    Connection::Followed m_table;
    QString m_select;
    QString m_condition;
    Connection::Mark m_mark;
};
