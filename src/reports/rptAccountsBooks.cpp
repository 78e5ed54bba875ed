#include "reports/rptAccountsBooks.h"

#include "reports/sheet.h"

#include <vector>

using namespace Qt::StringLiterals;

namespace {

using Format = ReportControl::Format;
using Kind = ReportSection::Kind;

constexpr bool numeric = true;
constexpr bool wraps = true;
/// Places of the columns that have a sum.
constexpr size_t debit = 4;
constexpr size_t credit = 5;

std::vector<sheet::Column> columns()
{
    return {
        {u"Date"_s, u"txtDate"_s, u"Date"_s, 220, 1100, Format::DayMonthShortYear},
        {u"VC #"_s, u"txtVid"_s, u"vid"_s, 1360, 700, Format::Plain, numeric},
        {u"Voucher"_s, u"txtVoucher"_s, u"vaucher"_s, 2200, 1100},
        {u"Particulars"_s, u"txtParticulars"_s, u"particulars"_s, 3360, 3360, Format::Plain, !numeric, wraps},
        {u"Debit"_s, u"txtDebit"_s, u"debit"_s, 6780, 1300, Format::Money, numeric},
        {u"Credit"_s, u"txtCredit"_s, u"credit"_s, 8120, 1320, Format::Money, numeric},
    };
}

std::vector<sheet::Column> columnsWithRemark()
{
    return {
        {u"Date"_s, u"txtDate"_s, u"Date"_s, 220, 1000, Format::DayMonthShortYear},
        {u"VC #"_s, u"txtVid"_s, u"vid"_s, 1240, 620, Format::Plain, numeric},
        {u"Voucher"_s, u"txtVoucher"_s, u"vaucher"_s, 1960, 960},
        {u"Particulars"_s, u"txtParticulars"_s, u"particulars"_s, 2960, 2120, Format::Plain, !numeric, wraps},
        {u"Debit"_s, u"txtDebit"_s, u"debit"_s, 5120, 1120, Format::Money, numeric},
        {u"Credit"_s, u"txtCredit"_s, u"credit"_s, 6280, 1120, Format::Money, numeric},
        {u"Remark"_s, u"txtRemark"_s, u"remark"_s, 7500, 1940, Format::Plain, !numeric, wraps},
    };
}

/// The sums stand in the page foot under the columns that they are of.
Report statement(std::span<const sheet::Column> columns)
{
    Report report(u"Account Statement"_s, {});
    ReportSection &head = report.add(Kind::ReportHead, u"Section4"_s, 1000);
    head.label(u"lblCompany"_s, {sheet::left, 0, sheet::width, 520}).points(18).bold().in(sheet::accent);
    head.label(u"lblAddress"_s, {sheet::left, 540, sheet::width, 280}).in(sheet::quiet).wrapped();

    ReportSection &pageHead = report.add(Kind::PageHead, u"Section2"_s, 1900);
    pageHead.caption(u"Account Statement"_s, {sheet::left, 0, sheet::width, 420}).points(14).bold();
    const auto told = [&pageHead](int top, int left, const QString &caption, const QString &name, int width) {
        pageHead.caption(caption, {left, top, 1760, 300}).in(sheet::quiet);
        pageHead.label(name, {left + 1800, top, width, 300}).bold().wrapped();
    };
    constexpr int second = 5300;
    told(480, sheet::left, u"Account :"_s, u"lblParty"_s, 7560);
    told(800, sheet::left, u"Report Period :"_s, u"lblPeriod"_s, 3300);
    told(800, second, u"Opening Balance :"_s, u"lblOpn"_s, 2400);
    told(1120, second, u"Closing Balance :"_s, u"lblCls"_s, 2400);
    sheet::addColumnHeads(pageHead, 1480, columns);

    sheet::addLines(report, columns);
    sheet::keepLastLines(report);

    ReportSection &foot = report.add(Kind::PageFoot, u"Section3"_s, 900);
    foot.line({sheet::left, 60, sheet::width, 0}).in(sheet::accent);
    foot.caption(u"Current Total"_s, {sheet::left + 80, 120, 3000, 300}).bold();
    const auto sum = [&foot](const QString &name, const sheet::Column &above) {
        foot.label(name, {above.left, 120, above.width, 300}).bold().right();
    };
    sum(u"lblTotalDr"_s, columns[debit]);
    sum(u"lblTotalCr"_s, columns[credit]);
    foot.line({sheet::left, 460, sheet::width, 0}).in(sheet::hairline);
    sheet::addPageCount(foot, 540);
    return report;
}

} // namespace

Report rptAccountsBooks()
{
    return statement(columns());
}

Report rptAccountsBooks2()
{
    return statement(columnsWithRemark());
}
