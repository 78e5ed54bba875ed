#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <QIcon>

#include <functional>
#include <utility>
#include <vector>

struct ListColumn {
    QString title;
    /// Share of the list's width.
    double percent = 10;
    /// Aligned right, header included.
    bool numeric = false;
};

/// How a cell looks where that differs.
struct CellLook {
    bool bold = false;
    QColor ink = {};
    QIcon icon = {};
    /// What a screen reader says in the place of the text.
    QString said = {};
};

/// A row of a list: plain texts, the tag that says what it stands for, and how it looks.
struct ListRow {
    QStringList cells = {};
    /// A row without one (invalid, 0 or an empty text) stands for nothing that can be opened or marked.
    QVariant tag = {};
    /// Of the whole row; of columns that look otherwise in `looks`. Rows that look the same can share theirs.
    CellLook look = {};
    QList<std::pair<int, CellLook>> looks = {};
    QColor background = {};
    /// Sums up the others: a list of such rows alone is an empty one.
    bool closes = false;

    [[nodiscard]] bool hasTag() const;
    [[nodiscard]] const CellLook &lookOf(int column) const;
};

/// Rows of a list. Cells are texts; `Qt::UserRole` of column 0 is the row's tag. Cells that a row lacks are empty.
/// Where the user has sorted them, the model holds them in his order, so that a row's index is always its place on the
/// screen.
class ListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit ListModel(std::vector<ListColumn> columns, QObject *parent = nullptr);

    /// Tool tips are asked for when the pointer rests on a cell: kept with the rows they would take longer than all the
    /// rest of a full shop's list. An empty text shows none.
    using ToolTips = std::function<QString(const ListRow &row, int column)>;
    void setToolTips(ToolTips toolTips) { m_toolTips = std::move(toolTips); }

    /// Replaces all rows in one reset, however many. They come in the list's own order and are sorted as the list is.
    void setRows(std::vector<ListRow> rows);
    void clear() { setRows({}); }
    /// Returns the new row's index. It is the last until the rows are sorted anew.
    int appendRow(ListRow row);
    /// REQUIRES for these: `row` and `column` are there. A row goes by `removeRow(row)` of the base.
    void setRow(int row, ListRow newRow);
    void setCell(int row, int column, const QString &text);
    void setTag(int row, const QVariant &tag);
    [[nodiscard]] const std::vector<ListRow> &rows() const { return m_rows; }
    [[nodiscard]] const ListRow &at(int row) const { return m_rows.at(static_cast<size_t>(row)); }
    [[nodiscard]] QString cell(int row, int column) const { return at(row).cells.value(column); }
    [[nodiscard]] QVariant tag(int row) const { return at(row).tag; }
    /// Nothing is listed, or sums of nothing.
    [[nodiscard]] bool isEmpty() const;

    /// The row with that tag, or -1; of several the one nearest to the place `near`, by default the first.
    [[nodiscard]] int rowOfTag(const QVariant &tag, int near = 0) const;
    /// The first row that reads so in `column`, or -1.
    [[nodiscard]] int rowOfText(int column, const QString &text) const;

    [[nodiscard]] const std::vector<ListColumn> &columns() const { return m_columns; }
    void setTitle(int column, const QString &title);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(
        int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    bool removeRows(int row, int count, const QModelIndex &parent = {}) override;
    /// By `listOrder`; with -1 the list's own order is back. It holds for rows to come. A row that is changed stays
    /// where it is.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

private:
    [[nodiscard]] std::vector<int> sortRows();

    std::vector<ListColumn> m_columns;
    std::vector<ListRow> m_rows;
    /// The place of each row in the list's own order; numbers of removed rows are missing.
    std::vector<int> m_ownPlaces;
    int m_nextPlace = 0;
    int m_sortColumn = -1;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
    ToolTips m_toolTips;
};
