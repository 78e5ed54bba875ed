#include "reports/scratch.h"

#include "base/values.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include "ui/Progress.h"

std::function<Value(const ListRow &row)> scratch::textOf(int column)
{
    return [column](const ListRow &row) { return Value(row.cells.value(column)); };
}

std::function<Value(const ListRow &row)> scratch::numberOf(int column)
{
    return [column](const ListRow &row) { return Value(Val(row.cells.value(column))); };
}

bool scratch::refill(Recordset &rows, Connection &connection, const Statements &statements, const ListModel &list,
    Which which, std::span<const Column> columns, const QString &what)
{
    // As many as are written at once: few enough that the user is heard in between.
    constexpr int batch = 1000;
    Progress progress(what);
    bool whole = true;
    rows.close();
    WriteGroup::runScratch(connection, [&] {
        connection.execute(statements.empty);
        rows.open(statements.write);
        int written = 0;
        for (const ListRow &row : list.rows()) {
            if (which == Which::Tagged && !row.hasTag())
                continue;
            rows.addNew();
            for (const Column &column : columns)
                rows.set(column.name, column.value(row));
            if (++written % batch != 0)
                continue;
            rows.updateBatch();
            whole = progress.at(written, static_cast<qint64>(list.rows().size()));
            if (!whole)
                break;
        }
        rows.updateBatch();
        rows.close();
        if (whole)
            rows.open(statements.source);
    });
    return whole;
}
