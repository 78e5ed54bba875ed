#include "accounts/printStatement.h"

#include "accounts/AccountStatement.h"
#include "base/balanceText.h"
#include "base/session.h"
#include "base/values.h"
#include "reports/ReportFlow.h"
#include "reports/rptAccountsBooks.h"
#include "reports/scratch.h"
#include "store/DataEnvironment.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

using Statement = AccountStatement;

/// The list's postings as rows of the report; false once the user broke off.
bool refillSource(Recordset &rows, const ListModel &list)
{
    const std::array<scratch::Column, 7> columns{{{u"Date"_s, scratch::textOf(Statement::Date)},
        {u"VID"_s, scratch::textOf(Statement::Number)}, {u"vaucher"_s, scratch::textOf(Statement::Voucher)},
        {u"particulars"_s, scratch::textOf(Statement::Particulars)}, {u"debit"_s, scratch::numberOf(Statement::Debit)},
        {u"credit"_s, scratch::numberOf(Statement::Credit)}, {u"Remark"_s, scratch::textOf(Statement::Remark)}}};
    return scratch::refill(rows, DE().CN,
        {u"Delete * from Accountbook"_s, u"Select * from Accountbook"_s, u"Select * from accountbook"_s}, list,
        scratch::Which::Tagged, columns, u"The statement is made..."_s);
}

} // namespace

std::optional<ReportPages> printStatement(const ListModel &list, const AccountStatement &statement,
    const QString &account, QDate from, QDate to, bool withRemark)
{
    Recordset &rows = DE().rsaccountbooks;
    rows.close();
    if (!refillSource(rows, list))
        return {};
    Report report = withRemark ? rptAccountsBooks2() : rptAccountsBooks();
    ReportSection &head = report.section(u"Section4");
    head.setText(u"lblCompany", session::ShopName);
    head.setText(u"lblAddress",
        QStringList{session::ShopAddress1, session::ShopAddress2, session::ShopAddress3, session::ShopContacts}.join(
            u"\r\n"_s));
    ReportSection &pageHead = report.section(u"Section2");
    pageHead.setText(u"lblParty", account);
    pageHead.setText(u"lblPeriod", DayMonthYear(from) + u" To "_s + DayMonthYear(to));
    pageHead.setText(u"lblOpn", balanceText::onStatement(statement.OpeningBalance));
    pageHead.setText(u"lblCls", balanceText::onStatement(statement.ClosingBalance));
    ReportSection &pageFoot = report.section(u"Section3");
    pageFoot.setText(u"lblTotalDr", Money(-statement.PeriodDebits));
    pageFoot.setText(u"lblTotalCr", Money(statement.PeriodCredits));
    report.setFileName(u"Account Statement %1 %2 to %3"_s.arg(account, DayMonthYear(from), DayMonthYear(to)));
    std::optional<ReportPages> pages = layOut(report, rows);
    rows.close();
    return pages;
}
