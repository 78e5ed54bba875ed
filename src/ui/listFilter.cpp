#include "ui/listFilter.h"

#include <algorithm>

using namespace Qt::StringLiterals;

void keepRows(std::vector<ListRow> &rows, int column, const std::function<bool(const QString &text)> &passes)
{
    std::erase_if(rows, [&](const ListRow &row) { return !passes(row.cells.value(column)); });
}

void closeWithCount(std::vector<ListRow> &rows, const Closing &closing)
{
    const auto count = std::ranges::count_if(rows, &ListRow::hasTag);
    const QStringList blanks(closing.columns, u" "_s);
    if (closing.afterBlankRow)
        rows.push_back({.cells = blanks, .closes = true});
    ListRow total{.cells = blanks, .look = closing.look, .looks = closing.looks, .closes = true};
    total.cells[closing.column] = closing.words + QString::number(count);
    rows.push_back(std::move(total));
}
