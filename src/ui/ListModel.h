#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <QIcon>

#include <map>
#include <vector>

struct ListColumn {
    QString title;
    /// Share of the list's width.
    double percent = 10;
    /// Aligned right, header included.
    bool numeric = false;
};

/// A row of a list: plain texts, the tag that says what it stands for, and how it looks where that differs.
struct ListRow {
    QStringList cells = {};
    QVariant tag = {};
    bool bold = false;
    QColor colour = {};
    QColor background = {};
    /// By column.
    std::map<int, QIcon> icons = {};
    std::map<int, QString> toolTips = {};
};

/// Rows of a list. Cells are texts; `Qt::UserRole` of column 0 is the row's tag. Cells that a row lacks are empty.
class ListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit ListModel(std::vector<ListColumn> columns, QObject *parent = nullptr);

    /// Replaces all rows in one reset, however many.
    void setRows(std::vector<ListRow> rows);
    void clear() { setRows({}); }
    /// Returns the new row's index.
    int appendRow(ListRow row);
    /// REQUIRES for these: `row` and `column` are there. A row goes by `removeRow(row)` of the base.
    void setRow(int row, ListRow newRow);
    void setCell(int row, int column, const QString &text);
    void setTag(int row, const QVariant &tag);
    [[nodiscard]] const ListRow &at(int row) const { return m_rows.at(static_cast<size_t>(row)); }
    [[nodiscard]] QString cell(int row, int column) const { return at(row).cells.value(column); }
    [[nodiscard]] QVariant tag(int row) const { return at(row).tag; }

    /// The first row with that tag, or -1.
    [[nodiscard]] int rowOfTag(const QVariant &tag) const;

    [[nodiscard]] const std::vector<ListColumn> &columns() const { return m_columns; }
    void setTitle(int column, const QString &title);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(
        int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    bool removeRows(int row, int count, const QModelIndex &parent = {}) override;

private:
    std::vector<ListColumn> m_columns;
    std::vector<ListRow> m_rows;
};
