#include "production/frmDDP.h"

#include "base/session.h"
#include "base/values.h"
#include "store/DataEnvironment.h"
#include "ui/ListView.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

qint32 countOf(const QString &statement)
{
    Recordset &rows = DE().rsJOBS_DETAIL2;
    rows.reopen(statement);
    const qint32 count = rows.value(0).toInt();
    rows.close();
    return count;
}

/// A number kept as text; items of old files may have none.
double numberIn(const Recordset &row, QStringView column)
{
    return Val(row.textOrEmpty(column));
}

} // namespace

frmDDP::frmDDP() : RegisterScreen(u"frmDDP"_s, u"Pending Orders Status"_s, Refresh::OnCommand)
{
    lvSummary = new ListView(u"lvSummary"_s,
        {{u"Name of Item"_s, 24}, {u"Production Cap."_s, 18, true}, {u"Pending Orders"_s, 18, true},
            {u"Order Today"_s, 14, true}, {u"Watting"_s, 11, true}, {u"Pre. Del. Date"_s, 15, true}});
    lvSummary->setAccessibleName(windowTitle());
    setRegister(lvSummary);
    auto *whole = new QVBoxLayout(this);
    whole->addWidget(lvSummary);
    resize(920, 520);
    Prddict();
}

void frmDDP::Prddict()
{
    std::vector<ListRow> rows;
    Recordset &items = DE().rsITEMS;
    items.reopen(u"Select * from items order by name"_s);
    for (; !items.eof(); items.moveNext()) {
        const qint16 id = Int16(items.integer(u"ID"));
        const qint32 pending = Int32(GetPendingOrders(id) + numberIn(items, u"OpPendingOrders"));
        const qint32 cap = Int32(numberIn(items, u"ProdcutionCap"));
        if (cap == 0)
            continue;
        const qint16 days = Int16(static_cast<double>(pending) / cap);
        rows.push_back({.cells = {items.text(u"Name"), QString::number(cap), QString::number(pending),
                            QString::number(GetOrdersToday(id, session::CurrentDate)),
                            QString::number(days) + u" Days"_s, DayMonthYear(session::CurrentDate.addDays(days + 1))}});
    }
    items.close();
    showRows(std::move(rows), Keep::First);
}

qint32 frmDDP::GetPendingOrders(qint16 itemID)
{
    return countOf(
        u"Select count(QNT) from Jobs_Detail where ItemID="_s + QString::number(itemID) + u" and DoneByWorker=0"_s);
}

qint32 frmDDP::GetOrdersToday(qint16 itemID, QDate day)
{
    return countOf(u"Select count(QNT) from Jobs_Detail where ItemID="_s + QString::number(itemID) + u" and date=#"_s
        + DateText(day) + u"# and DoneByWorker=0"_s);
}
