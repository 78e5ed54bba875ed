#pragma once

#include "store/RowSet.h"
#include "store/Value.h"

#include <map>
#include <memory>
#include <optional>

class Connection;

/// The rows of a statement, read whole when it opens, with one current row. Columns are named without regard to case.
///
/// A result of "Select * from T .." over one table can be written: values set on the current row and rows added stay
/// pending until `update` or `updateBatch` and are dropped by `close`. A write names only the columns that were set to
/// something new and finds its row by row number. Where several columns share a name the first is meant.
///
/// Each misuse is its own RuntimeError with the statement or field in its text: AlreadyOpen, NotOpen, NoCurrentRecord,
/// ItemNotFound (no such column or child), InvalidUseOfNull, TypeMismatch, Overflow, MissingValue, RowNotFound.
class Recordset {
public:
    /// `defaultSource` is what `open()` opens: a table's name, or a statement. REQUIRES: `connection` outlives the
    /// recordset.
    explicit Recordset(Connection &connection, const QString &defaultSource = {});
    ~Recordset();
    Recordset(const Recordset &) = delete;
    Recordset &operator=(const Recordset &) = delete;

    /// Opens on the first row. A "SHAPE .." statement gives parent rows with named child recordsets.
    void open();
    void open(const QString &statement);
    /// `close` and `open` in one: the usual way to use a shared object.
    void reopen(const QString &statement);
    /// As `reopen` and `moveLast` where only the last row is wanted: reads and keeps that one alone. `statement` is one
    /// over one table that can be written.
    void openLast(const QString &statement);
    /// As `reopen` for a list that shows these columns of very many rows: of a table that could be written no other
    /// column is read, and it cannot be written then.
    void openColumns(const QString &statement, const QStringList &columns);
    /// As `reopen` where only one of the rows is wanted, and its number is known: `statement` is as above and ends with
    /// a condition. Without a row where that one is none of them.
    void openOne(const QString &statement, qint64 rowNumber);
    /// As `reopen` for a row that is to be added: the statement names columns and table, and no row is read.
    void openToAdd(const QString &statement);
    /// Without effect when closed.
    void close();
    [[nodiscard]] bool isOpen() const { return m_rows != nullptr; }

    [[nodiscard]] int recordCount() const;
    [[nodiscard]] int columnCount() const;
    [[nodiscard]] QString columnName(int column) const;
    /// Index of a column, for loops over many rows.
    [[nodiscard]] int column(QStringView name) const;

    /// True when no row is current: past the last one, or there are none.
    [[nodiscard]] bool eof() const;
    void moveFirst();
    void moveNext();
    /// On an empty recordset both leave no current row.
    void moveLast();
    /// To the row at `place`, counted from 0; `recordCount()` leaves no current row. REQUIRES: not beyond that.
    void moveTo(int place);

    [[nodiscard]] Value value(int column) const;
    [[nodiscard]] Value value(QStringView name) const { return value(column(name)); }
    [[nodiscard]] bool isNull(QStringView name) const { return value(name).isNull(); }
    [[nodiscard]] QString text(QStringView name) const;
    [[nodiscard]] QString textOrEmpty(QStringView name) const;
    [[nodiscard]] qint32 integer(QStringView name) const;
    [[nodiscard]] double number(QStringView name) const;
    [[nodiscard]] QDate date(QStringView name) const;

    /// Sets a column of the current row, converted to the column's type; pending until written.
    void set(QStringView name, const Value &value);
    /// Starts a new row and makes it current. Columns not set take their defaults.
    void addNew();
    /// Writes what is pending on the current row; an added row then shows its number and defaults.
    void update();
    /// Writes all that is pending, in the order of the rows, as one group.
    void updateBatch();

    /// The same rows, to be read on when this one has been closed or opened anew. REQUIRES: nothing is pending, and
    /// nothing is written through either while both live.
    [[nodiscard]] std::shared_ptr<Recordset> shared() const;

    /// The rows that belong to the current row of a shaped statement, on their first row. Owned by this recordset; it
    /// lives until the current row changes or the recordset closes.
    [[nodiscard]] Recordset &child(QStringView name);

private:
    struct Child;
    struct Pending {
        bool added = false;
        std::map<int, Value> values;
    };

    void openShaped(const QString &statement);
    void read(const QString &statement, const QStringList &columns = {});
    void showAll(std::shared_ptr<RowSet> rows);
    void show(std::shared_ptr<RowSet> rows, std::vector<int> order);
    void requireOpen() const;
    [[nodiscard]] int currentRow() const;
    [[nodiscard]] RuntimeError fault(Fault kind, const QString &field) const;
    template <typename Reader>
    auto readField(QStringView name, Reader reader) const;
    void writeRow(int row, const Pending &pending);

    Connection &m_connection;
    QString m_defaultSource;
    QString m_statement;
    std::shared_ptr<RowSet> m_rows;
    /// The rows shown, by their place in `m_rows`.
    std::vector<int> m_order;
    qsizetype m_current = 0;
    std::map<int, Pending> m_pending;
    std::vector<Child> m_children;
};
