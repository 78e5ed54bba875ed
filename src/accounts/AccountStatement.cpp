#include "accounts/AccountStatement.h"

#include "accounts/BookLines.h"
#include "base/balanceText.h"
#include "base/values.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/lookups.h"
#include "ui/theme.h"

using namespace Qt::StringLiterals;

namespace {

using Statement = AccountStatement;

constexpr size_t sums = 3;

/// A line that is no posting. `amounts` is the ink of its name and its two sides, where they have one of their own.
ListRow sumLine(const QString &name, const balanceText::Sides &sides, const QColor &amounts)
{
    QStringList cells(Statement::ColumnCount, u" "_s);
    cells[Statement::Particulars] = name;
    cells[Statement::Debit] = sides.debit;
    cells[Statement::Credit] = sides.credit;
    ListRow row{.cells = cells, .look = {.bold = true, .ink = theme::warning()}, .closes = true};
    for (const int column : {Statement::Particulars, Statement::Debit, Statement::Credit})
        row.looks.push_back({column, {.bold = true, .ink = amounts}});
    return row;
}

} // namespace

AccountStatement AccountStatement::of(qint32 account, QDate from, QDate to)
{
    const qint16 id = Int16(account);
    AccountStatement statement;
    statement.OpeningBalance = GetAccountBalance(id, from.addDays(-1));

    Recordset &postings = DE().rspostings;
    postings.reopen(u"Select * from Postings where status=%1 and AccID=%2"_s.arg(postingStatus::Live).arg(id)
        + u" and date between #"_s + DayMonthYear(from) + u"# and #"_s + DayMonthYear(to)
        + u"#    order by date,vid"_s);
    statement.rows.reserve(static_cast<size_t>(postings.recordCount()) + sums);
    if (statement.OpeningBalance != 0)
        statement.rows.push_back(
            sumLine(u"Balance B/F "_s, balanceText::ofBalance(statement.OpeningBalance), theme::warning()));
    BookLines lines(postings, u"RefID");
    for (; !postings.eof(); postings.moveNext()) {
        balanceText::Sides sides = balanceText::ofPosting(lines.amount());
        ListRow &row = statement.rows.emplace_back(lines.begin(ColumnCount));
        row.cells << std::move(sides.debit) << std::move(sides.credit) << lines.remark();
    }
    postings.close();

    statement.PeriodDebits = GetAccountDebits(id, from, to);
    statement.PeriodCredits = GetAccountCredits(id, from, to);
    statement.rows.push_back(
        sumLine(u"Current Total "_s, {Money(-statement.PeriodDebits), Money(statement.PeriodCredits)}, theme::good()));
    statement.ClosingBalance = GetAccountBalance(id, to);
    statement.rows.push_back(
        sumLine(u"Balance C/F "_s, balanceText::ofBalance(statement.ClosingBalance), theme::warning()));
    return statement;
}
