#include "reports/rptPrintVoucher.h"

#include "reports/sheet.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

using Format = ReportControl::Format;
using Kind = ReportSection::Kind;

std::array<sheet::Column, 2> columns()
{
    constexpr bool numeric = true;
    constexpr bool wraps = true;
    return {{{u"Particulars"_s, u"txtTitle"_s, u"acc.Title"_s, 220, 6800, Format::Plain, !numeric, wraps},
        {u"Amount"_s, u"txtAmount"_s, u"Amount"_s, 7200, 2220, Format::MoneyGrouped, numeric}}};
}

void addHead(Report &report)
{
    ReportSection &head = report.add(Kind::PageHead, u"Section2"_s, 3500);
    sheet::addShopHead(head);
    constexpr int top = sheet::shopHeadHeight + 70;
    const auto told = [&head](int left, int width, int row, const QString &caption, const QString &name) {
        head.caption(caption, {left, top + row * 360, 1460, 320}).in(sheet::quiet);
        head.label(name, {left + 1500, top + row * 360, width, 320}).bold();
    };
    told(sheet::left, 3600, 0, u"Voucher #:"_s, u"lblVC"_s);
    told(6200, 1780, 0, u"Date:"_s, u"lblDate"_s);
    told(sheet::left, 3600, 1, u"Vouche Type:"_s, u"lvlVcType"_s);
    sheet::addColumnHeads(head, top + 860, columns());
}

void addFoot(Report &report)
{
    ReportSection &foot = report.add(Kind::ReportFoot, u"Section3"_s, 2300);
    constexpr int right = sheet::left + sheet::width;
    constexpr int signature = 6200;
    foot.line({sheet::left, 40, sheet::width, 0}).in(sheet::accent);
    foot.caption(u"Remark :"_s, {sheet::left, 160, 1000, 300}).in(sheet::quiet);
    foot.label(u"txtRemark"_s, {sheet::left + 1040, 160, 4700, 300}).wrapped();
    foot.label(u"lblForCompany"_s, {signature, 160, right - signature, 300}).bold().right();
    foot.line({signature, 1700, right - signature, 0}).in(sheet::quiet);
    foot.caption(u"Auth Sig"_s, {signature, 1760, right - signature, 300}).right().in(sheet::quiet);
}

} // namespace

Report rptPrintVoucher()
{
    Report report(u"Voucher"_s, {});
    addHead(report);
    sheet::addLines(report, columns());
    addFoot(report);
    return report;
}
