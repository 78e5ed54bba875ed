#include "production/frmDDP.h"

#include "base/session.h"
#include "base/values.h"
#include "store/DataEnvironment.h"
#include "store/itemRows.h"
#include "ui/ListView.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

qint32 waitingRows(int itemID, std::optional<QDate> day = {})
{
    DE().rsJOBS_DETAIL2.close();
    return Int32(static_cast<double>(itemRows::waiting(DE().CN, itemID, day)));
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
    lvSummary->setEmptyText(u"No item has a production capacity.\n"
                            "Enter under Masters, Items how many pieces can be made in a day."_s);
    lvSummary->letSort();
    setRegister(lvSummary, Rows::AreOnlyRead);
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
    return waitingRows(itemID);
}

qint32 frmDDP::GetOrdersToday(qint16 itemID, QDate day)
{
    return waitingRows(itemID, day);
}
