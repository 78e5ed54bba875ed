#include "reports/rptJOBCARD.h"

#include "reports/sheet.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

using Format = ReportControl::Format;
using Kind = ReportSection::Kind;

std::array<sheet::Column, 5> columns()
{
    constexpr bool numeric = true;
    return {{
        {u"Particulars"_s, u"txtItemNAME"_s, u"ItemNAME"_s, 220, 2760, Format::Plain, false, true},
        {u"Remark"_s, u"Text2"_s, u"Remarks"_s, 3080, 2900, Format::Plain, false, true},
        {u"QTY"_s, u"Text1"_s, u"QNT"_s, 6020, 680, Format::Plain, numeric},
        {u"Fees"_s, u"txtFESS"_s, u"FESS"_s, 6760, 1260, Format::MoneyGrouped, numeric},
        {u"Amount"_s, u"txtAMOUNT"_s, u"AMOUNT"_s, 8080, 1360, Format::MoneyGrouped, numeric},
    }};
}

void addHead(Report &report)
{
    ReportSection &head = report.add(Kind::GroupHead, u"Section6"_s, 3760);
    sheet::addShopHead(head);
    head.caption(u"Client Name :"_s, {sheet::left, 2180, 1560, 360}).in(sheet::quiet);
    head.field(u"txtNAME"_s, u"NAME"_s, {1740, 2180, 3900, 360}).points(11).bold().wrapped();
    head.caption(u"Delivery Date :"_s, {sheet::left, 2560, 1560, 300}).in(sheet::quiet);
    head.field(u"txtDELDATE"_s, u"DELDATE"_s, {1740, 2560, 3000, 300}).as(Format::DayMonthYear).bold();
    head.caption(u"Trial Date:"_s, {sheet::left, 2880, 1560, 300}).in(sheet::quiet);
    head.field(u"Text3"_s, u"trialdate"_s, {1740, 2880, 3000, 300}).as(Format::DayMonthYear);
    head.caption(u"Job Card #"_s, {5900, 2180, 1400, 360}).in(sheet::quiet);
    head.field(u"txtJOBID"_s, u"JobID"_s, {7400, 2180, 2104, 360}).points(14).bold();
    head.caption(u"Date:"_s, {5900, 2560, 1400, 300}).in(sheet::quiet);
    head.field(u"txtDate"_s, u"Date"_s, {7400, 2560, 2104, 300}).as(Format::DayMonthYear);
    sheet::addColumnHeads(head, 3340, columns());
}

void addFoot(Report &report)
{
    ReportSection &foot = report.add(Kind::GroupFoot, u"Section7"_s, 3560);
    constexpr int right = sheet::left + sheet::width;
    foot.line({sheet::left, 0, sheet::width, 0}).in(sheet::accent);
    constexpr int captions = 5900;
    constexpr int totals = 7600;
    constexpr int totalsWidth = 1840;
    foot.caption(u"Total"_s, {captions, 100, 1700, 320}).in(sheet::quiet);
    foot.field(u"txtAMOUNTDUE"_s, u"AMOUNTDUE"_s, {totals, 100, totalsWidth, 320}).as(Format::MoneyGrouped).right();
    foot.caption(u"Amount Received"_s, {captions, 420, 1700, 320}).in(sheet::quiet);
    foot.field(u"txtAMOUNTPAID"_s, u"AMOUNTPAID"_s, {totals, 420, totalsWidth, 320}).as(Format::MoneyGrouped).right();
    foot.frame({captions - 100, 780, right - captions + 100, 400}).on(sheet::band);
    foot.caption(u"Amount Due"_s, {captions, 780, 1700, 400}).bold();
    foot.field(u"Text4"_s, u"Amount"_s, {totals, 780, totalsWidth, 400})
        .as(Format::MoneyGrouped)
        .points(12)
        .bold()
        .right();

    foot.frame({sheet::left, 160, 4700, 2700}).dashes().in(sheet::quiet);
    foot.caption(u"Staple Cloth Samples here..."_s, {sheet::left + 120, 220, 4400, 260})
        .points(9)
        .italic()
        .in(sheet::quiet);
    foot.label(u"lblForCompany"_s, {captions - 700, 1400, 4304, 300}).bold().right();
    foot.line({captions + 600, 2540, right - captions - 600, 0}).in(sheet::quiet);
    foot.caption(u"Auth Sig"_s, {captions + 600, 2580, right - captions - 600, 260}).right().in(sheet::quiet);
    foot.line({sheet::left, 3060, sheet::width, 0}).in(sheet::hairline);
    foot.label(u"lblfootnote"_s, {sheet::left, 3120, sheet::width, 280}).points(9).wrapped().centre().in(sheet::quiet);
}

} // namespace

Report rptJOBCARD()
{
    Report report(u"Print Job Card"_s, {}, u"Body"_s);
    addHead(report);
    sheet::addLines(report, columns());
    addFoot(report);
    sheet::addPageCount(report.add(Kind::PageFoot, u"Section3"_s, 300), 40);
    return report;
}
