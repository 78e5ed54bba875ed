#pragma once

#include "base/RuntimeError.h"
#include "store/Connection.h"

#include <QByteArray>
#include <QList>

#include <vector>

/// Rows of a result, kept compactly: nine bytes a cell, and the texts one behind the other. A full shop's item rows fit
/// in some ten megabytes this way, where a value object for each cell would take many times that.
class RowSet {
public:
    enum class Type : quint8 { Any, Integer, Floating, Money, Text, Date };
    struct Column {
        QString name;
        Type type = Type::Any;
    };

    /// Columns of a result that is not read by a statement. `table` as in `table()`.
    explicit RowSet(std::vector<Column> columns, const QString &table = {});

    /// Reads `statement` to its end. With `rowNumbers` the first column is taken as the row number and is no column of
    /// the result.
    RowSet(Connection::Statement &statement, bool rowNumbers, const QString &table);

    /// The columns that `statement` gives. `rowNumbers` as above.
    [[nodiscard]] static std::vector<Column> columnsOf(const Connection::Statement &statement, bool rowNumbers);

    [[nodiscard]] int rowCount() const { return m_rowCount; }
    [[nodiscard]] const std::vector<Column> &columns() const { return m_columns; }
    /// Index of the first column of that name without regard to case, or -1.
    [[nodiscard]] int indexOf(QStringView name) const;
    [[nodiscard]] Value value(int row, int column) const;
    [[nodiscard]] qint64 rowNumber(int row) const { return m_rowNumbers.at(static_cast<size_t>(row)); }
    /// The table that rows can be written back to; empty where they can't.
    [[nodiscard]] const QString &table() const { return m_table; }

    /// Adds a row of Nulls without a row number; returns its place.
    int addRow();
    void setRow(int row, qint64 rowNumber, const std::vector<Value> &values);
    void setValue(int row, int column, const Value &value);

private:
    enum class Kind : quint8 { Null, Integer, Floating, Text };
    /// Some hundred rows. A large result is a row of blocks and never moved as it grows.
    struct Block {
        QList<Kind> kinds;
        QList<quint64> payloads;
        QByteArray texts;

        quint64 keepText(QByteArrayView text);
    };
    struct Place {
        Block &block;
        qsizetype cell;
    };
    /// Room for one row more, its cells Null: the place of its first cell.
    Place growRow();
    [[nodiscard]] Place placeOf(int row, int column);
    void readRow(Connection::Statement &statement, int firstColumn);
    [[nodiscard]] static quint32 nameHash(QStringView name);

    std::vector<Column> m_columns;
    std::vector<quint32> m_nameHashes;
    QString m_table;
    int m_rowCount = 0;
    std::vector<Block> m_blocks;
    std::vector<qint64> m_rowNumbers;
};
