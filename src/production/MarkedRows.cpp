#include "production/MarkedRows.h"

#include "store/DataEnvironment.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString rowOf(const QString &table, qint32 id)
{
    return u"Select * from "_s + table + u" where id="_s + QString::number(id);
}

} // namespace

bool MarkedRows::change(const QString &table, const QString &condition, const std::function<void(Recordset &row)> &set)
{
    Recordset rows(DE().CN);
    rows.open(u"Select * from "_s + table + u" where "_s + condition);
    const size_t first = m_rows.size();
    for (; !rows.eof(); rows.moveNext()) {
        Row row{.table = table, .id = rows.integer(u"id"), .cells = {}};
        for (int column = 0; column < rows.columnCount(); ++column)
            row.cells.push_back({.column = rows.columnName(column), .before = rows.value(column), .after = {}});
        m_rows.push_back(std::move(row));
        set(rows);
    }
    rows.updateBatch();
    rows.moveFirst();
    for (size_t i = first; i < m_rows.size(); ++i, rows.moveNext()) {
        for (Cell &cell : m_rows[i].cells)
            cell.after = rows.value(cell.column);
    }
    return m_rows.size() > first;
}

void MarkedRows::watch(const QString &table, qint32 id, const QString &column)
{
    Recordset row(DE().CN);
    row.open(rowOf(table, id));
    if (row.eof())
        return;
    const Value now = row.value(column);
    m_rows.push_back({.table = table, .id = id, .cells = {{.column = column, .before = now, .after = now}}});
}

MarkedRows::TakenBack MarkedRows::takeBack() const
{
    auto outcome = TakenBack::Yes;
    WriteGroup::run(DE().CN, [this, &outcome] {
        for (const Row &row : m_rows) {
            outcome = look(row);
            if (outcome != TakenBack::Yes)
                return;
        }
        std::ranges::for_each(m_rows, &MarkedRows::putBack);
    });
    return outcome;
}

MarkedRows::TakenBack MarkedRows::look(const Row &row)
{
    Recordset now(DE().CN);
    now.open(rowOf(row.table, row.id));
    if (now.eof())
        return TakenBack::Gone;
    const bool isSame =
        std::ranges::all_of(row.cells, [&now](const Cell &cell) { return now.value(cell.column) == cell.after; });
    return isSame ? TakenBack::Yes : TakenBack::Changed;
}

void MarkedRows::putBack(const Row &row)
{
    Recordset now(DE().CN);
    now.open(rowOf(row.table, row.id));
    for (const Cell &cell : row.cells) {
        if (cell.before != cell.after)
            now.set(cell.column, cell.before);
    }
    now.update();
}
