#include "ui/ListModel.h"

#include "ui/listOrder.h"

#include <QFont>

#include <algorithm>
#include <cstdlib>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

QVariant alignment(const ListColumn &column)
{
    return static_cast<int>(column.numeric ? Qt::AlignRight : Qt::AlignLeft) | static_cast<int>(Qt::AlignVCenter);
}

/// What is read in a column: where a sign stands in a text's place, what a screen reader says of it.
std::vector<QString> textsOf(const std::vector<ListRow> &rows, int column)
{
    std::vector<QString> texts;
    texts.reserve(rows.size());
    for (const ListRow &row : rows) {
        const QString text = row.cells.value(column).trimmed();
        texts.push_back(text.isEmpty() ? row.lookOf(column).said : text);
    }
    return texts;
}

} // namespace

bool ListRow::hasTag() const
{
    return tag.typeId() == QMetaType::QString ? !tag.toString().isEmpty() : tag.toLongLong() != 0;
}

const CellLook &ListRow::lookOf(int column) const
{
    const auto own = std::ranges::find(looks, column, &std::pair<int, CellLook>::first);
    return own == looks.end() ? look : own->second;
}

ListModel::ListModel(std::vector<ListColumn> columns, QObject *parent)
    : QAbstractTableModel(parent), m_columns(std::move(columns))
{
}

void ListModel::setRows(std::vector<ListRow> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    m_nextPlace = rowCount();
    m_ownPlaces.resize(m_rows.size());
    std::iota(m_ownPlaces.begin(), m_ownPlaces.end(), 0);
    if (m_sortColumn >= 0)
        std::ignore = sortRows();
    endResetModel();
}

int ListModel::appendRow(ListRow row)
{
    const auto place = static_cast<int>(m_rows.size());
    beginInsertRows({}, place, place);
    m_rows.push_back(std::move(row));
    m_ownPlaces.push_back(m_nextPlace++);
    endInsertRows();
    return place;
}

void ListModel::setRow(int row, ListRow newRow)
{
    m_rows.at(static_cast<size_t>(row)) = std::move(newRow);
    emit dataChanged(index(row, 0), index(row, columnCount() - 1));
}

void ListModel::setCell(int row, int column, const QString &text)
{
    QStringList &cells = m_rows.at(static_cast<size_t>(row)).cells;
    if (cells.size() <= column)
        cells.resize(column + 1);
    cells[column] = text;
    emit dataChanged(index(row, column), index(row, column), {Qt::DisplayRole});
}

void ListModel::setTag(int row, const QVariant &tag)
{
    m_rows.at(static_cast<size_t>(row)).tag = tag;
    emit dataChanged(index(row, 0), index(row, 0), {Qt::UserRole});
}

bool ListModel::isEmpty() const
{
    return std::ranges::all_of(m_rows, &ListRow::closes);
}

int ListModel::rowOfTag(const QVariant &tag, int near) const
{
    int nearest = -1;
    for (int row = 0; row < rowCount(); ++row) {
        if (at(row).tag == tag && (nearest < 0 || std::abs(row - near) < std::abs(nearest - near)))
            nearest = row;
    }
    return nearest;
}

int ListModel::rowOfText(int column, const QString &text) const
{
    const auto found =
        std::ranges::find_if(m_rows, [&](const ListRow &row) { return row.cells.value(column) == text; });
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

void ListModel::setTitle(int column, const QString &title)
{
    m_columns.at(static_cast<size_t>(column)).title = title;
    emit headerDataChanged(Qt::Horizontal, column, column);
}

int ListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int ListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant ListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const ListRow &row = at(index.row());
    const int column = index.column();
    const auto ifSet = [](const QColor &colour) { return colour.isValid() ? QVariant(colour) : QVariant(); };
    switch (role) {
    case Qt::DisplayRole: return row.cells.value(column);
    case Qt::UserRole: return column == 0 ? row.tag : QVariant();
    case Qt::TextAlignmentRole: return alignment(m_columns[static_cast<size_t>(column)]);
    case Qt::FontRole: {
        if (!row.lookOf(column).bold)
            return {};
        QFont bold;
        bold.setBold(true);
        return bold;
    }
    case Qt::ForegroundRole: return ifSet(row.lookOf(column).ink);
    case Qt::BackgroundRole: return ifSet(row.background);
    case Qt::DecorationRole: {
        const QIcon &icon = row.lookOf(column).icon;
        return icon.isNull() ? QVariant() : QVariant(icon);
    }
    case Qt::AccessibleTextRole: {
        const QString &said = row.lookOf(column).said;
        return said.isEmpty() ? QVariant() : QVariant(said);
    }
    case Qt::ToolTipRole: return m_toolTips ? m_toolTips(row, column) : QVariant();
    default: return {};
    }
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    const ListColumn &column = m_columns[static_cast<size_t>(section)];
    const bool isSorted = section == m_sortColumn;
    const bool isAscending = m_sortOrder == Qt::AscendingOrder;
    // The arrow stands before the title, where a narrow column does not cut it.
    if (role == Qt::DisplayRole && isSorted)
        return (isAscending ? u"\u25b2 "_s : u"\u25bc "_s) + column.title;
    // In a narrow column the tip shows what the head has no room for.
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return column.title;
    if (role == Qt::AccessibleTextRole && isSorted)
        return column.title + (isAscending ? u", ascending"_s : u", descending"_s);
    if (role == Qt::TextAlignmentRole)
        return alignment(column);
    return {};
}

bool ListModel::removeRows(int row, int count, const QModelIndex &parent)
{
    if (parent.isValid() || row < 0 || count < 1 || row + count > rowCount())
        return false;
    beginRemoveRows({}, row, row + count - 1);
    m_rows.erase(m_rows.begin() + row, m_rows.begin() + row + count);
    m_ownPlaces.erase(m_ownPlaces.begin() + row, m_ownPlaces.begin() + row + count);
    endRemoveRows();
    return true;
}

void ListModel::sort(int column, Qt::SortOrder order)
{
    m_sortColumn = column < columnCount() ? column : -1;
    m_sortOrder = order;
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    const std::vector<int> from = sortRows();
    std::vector<int> to(from.size());
    for (size_t place = 0; place < from.size(); ++place)
        to[static_cast<size_t>(from[place])] = static_cast<int>(place);
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    for (const QModelIndex &cell : before)
        after += index(to[static_cast<size_t>(cell.row())], cell.column());
    changePersistentIndexList(before, after);
    emit layoutChanged({}, VerticalSortHint);
}

/// Returns where each row was.
std::vector<int> ListModel::sortRows()
{
    std::vector<int> from(m_rows.size());
    std::iota(from.begin(), from.end(), 0);
    std::ranges::sort(from, {}, [this](int place) { return m_ownPlaces[static_cast<size_t>(place)]; });
    if (m_sortColumn >= 0)
        listOrder::sort(
            from, textsOf(m_rows, m_sortColumn), columns()[static_cast<size_t>(m_sortColumn)].numeric, m_sortOrder);
    std::vector<ListRow> rows;
    std::vector<int> ownPlaces;
    rows.reserve(from.size());
    ownPlaces.reserve(from.size());
    for (const int place : from) {
        rows.push_back(std::move(m_rows[static_cast<size_t>(place)]));
        ownPlaces.push_back(m_ownPlaces[static_cast<size_t>(place)]);
    }
    m_rows = std::move(rows);
    m_ownPlaces = std::move(ownPlaces);
    return from;
}
