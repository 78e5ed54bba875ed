#include "itemList.h"

#include "base/values.h"
#include "store/DataEnvironment.h"
#include "store/lookups.h"

using namespace Qt::StringLiterals;

std::vector<ListColumn> itemList::columns()
{
    return {{u"Date"_s, 10}, {u"Job #"_s, 8, true}, {u"Client"_s, 20}, {u"Item"_s, 16}, {u"Qty"_s, 6, true},
        {u"Amount"_s, 10, true}, {u"Worker"_s, 20}, {u"Delivery"_s, 10}};
}

void itemList::fill(ListModel &list)
{
    Recordset &records = DE().rsJOBS_DETAIL;
    records.reopen(u"Select * from JOBS_DETAIL order by id"_s);
    std::vector<ListRow> rows;
    rows.reserve(static_cast<size_t>(records.recordCount()));
    for (; !records.eof(); records.moveNext()) {
        const int worker = records.integer(u"WorkerID");
        ListRow row;
        row.tag = records.integer(u"Id");
        row.cells = {DayMonthYear(records.date(u"DATE")), QString::number(records.integer(u"JobID")),
            GetAccountTitle(records.integer(u"ClintID")), GetItemName(records.integer(u"ItemID")),
            QString::number(records.integer(u"QNT")), Money(records.number(u"Amount")),
            worker > 0 ? GetAccountTitle(worker) : QString(), DayMonthYear(records.date(u"JobDelDate"))};
        rows.push_back(std::move(row));
    }
    records.close();
    list.setRows(std::move(rows));
}
