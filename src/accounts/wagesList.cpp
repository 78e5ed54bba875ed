#include "accounts/wagesList.h"

#include "base/Currency.h"
#include "base/values.h"
#include "reports/ReportFlow.h"
#include "reports/ReportPreview.h"
#include "reports/rptWagesRegister.h"
#include "reports/scratch.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/lookups.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

ListRow rowOf(const Recordset &garment, Currency &balance)
{
    const Currency wages = garment.value(u"WorkerWagesDue").toCurrency();
    balance += wages;
    return {.cells = {DayMonthYear(garment.date(u"Date")),
                QString::number(garment.integer(u"JobID")) + u" / "_s + QString::number(garment.integer(u"ItemSr")),
                garment.text(u"ClintName"), QString::number(garment.integer(u"QNT")),
                itemNameOrBlank(garment.integer(u"ItemID")), Money(wages.toDouble()), Money(balance.toDouble()),
                garment.isNull(u"CompletedDate") ? QString() : DayMonthYear(garment.date(u"CompletedDate")),
                garment.integer(u"MarkAsPaid") == wage::Unpaid ? u"Unpaid"_s : u"Paid"_s},
        .tag = garment.integer(u"ID")};
}

} // namespace

std::vector<ListColumn> wagesList::columns(const QString &quantity)
{
    return {{u"Date"_s, 11}, {u"JOB ID"_s, 8}, {u"Client Name"_s, 18}, {quantity, 5, true}, {u"Item Name"_s, 15},
        {u"Wages Due"_s, 11, true}, {u"Balance"_s, 11, true}, {u"Completed Date"_s, 13}, {u"Paid/Unpaid"_s, 10}};
}

std::vector<ListRow> wagesList::read(const QString &statement)
{
    std::vector<ListRow> rows;
    Recordset &garments = DE().rsJOBS_DETAIL;
    garments.reopen(statement);
    rows.reserve(static_cast<size_t>(garments.recordCount()));
    Currency balance;
    for (; !garments.eof(); garments.moveNext())
        rows.push_back(rowOf(garments, balance));
    garments.close();
    return rows;
}

void wagesList::print(const ListModel &list, const QString &worker, const QString &times, const QString &file)
{
    const auto item = [&times](
                          const ListRow &row) -> Value { return row.cells.at(Quantity) + times + row.cells.at(Item); };
    const std::array<scratch::Column, 8> columns{
        {{u"Date"_s, scratch::textOf(Date)}, {u"JobID"_s, scratch::textOf(Job)}, {u"Client"_s, scratch::textOf(Client)},
            {u"Item"_s, item}, {u"wages"_s, scratch::numberOf(Wages)}, {u"balance"_s, scratch::numberOf(Balance)},
            {u"completed"_s, scratch::textOf(Completed)}, {u"Status"_s, scratch::textOf(Paid)}}};
    Recordset &rows = DE().rstmpWagesRegister;
    rows.close();
    if (!scratch::refill(rows, DE().CN,
            {u"Delete * from wagesregister"_s, u"Select * from wagesregister"_s, u"Select * from wagesregister"_s},
            list, scratch::Which::All, columns, u"The register is made..."_s))
        return;
    Report report = rptWagesRegister();
    report.section(u"Section2").setText(u"lblWorkerName", worker);
    report.setFileName(file);
    const auto pages = layOut(report, rows);
    rows.close();
    if (pages)
        ReportPreview(*pages).exec();
}
