#include "reports/rptWagesRegister.h"

#include "reports/sheet.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

using Format = ReportControl::Format;
using Kind = ReportSection::Kind;

std::array<sheet::Column, 8> columns()
{
    constexpr bool numeric = true;
    constexpr bool wraps = true;
    return {{
        {u"Date"_s, u"txtDate"_s, u"date"_s, 200, 980, Format::ShortDayMonthShortYear},
        {u"JOB ID"_s, u"txtJobid"_s, u"Jobid"_s, 1240, 860},
        {u"Client Name"_s, u"txtClient"_s, u"client"_s, 2140, 1480, Format::Plain, !numeric, wraps},
        {u"Item"_s, u"txtItem"_s, u"item"_s, 3660, 1560, Format::Plain, !numeric, wraps},
        {u"Amount"_s, u"txtWages"_s, u"wages"_s, 5240, 860, Format::Money, numeric},
        {u"Balance"_s, u"txtBalance"_s, u"balance"_s, 6140, 980, Format::Money, numeric},
        {u"Completed Date"_s, u"txtCompleted"_s, u"completed"_s, 7260, 1240},
        {u"Paid  Unpaid"_s, u"txtStatus"_s, u"status"_s, 8560, 900},
    }};
}

} // namespace

Report rptWagesRegister()
{
    Report report(u"Wages Register"_s, {});
    report.add(Kind::ReportHead, u"Section4"_s, 620)
        .caption(u"Wages Register"_s, {sheet::left, 0, sheet::width, 520})
        .points(18)
        .bold()
        .in(sheet::accent);
    ReportSection &head = report.add(Kind::PageHead, u"Section2"_s, 1020);
    head.frame({sheet::left, 40, sheet::width, 420}).in(sheet::hairline);
    head.caption(u"Worker Name :"_s, {sheet::left + 80, 100, 1500, 300}).in(sheet::quiet);
    head.label(u"lblWorkerName"_s, {sheet::left + 1640, 100, 7600, 300}).bold();
    sheet::addColumnHeads(head, 600, columns());
    sheet::addLines(report, columns());
    sheet::keepLastLines(report);
    sheet::addPageCount(report.add(Kind::PageFoot, u"Section3"_s, 400), 60);
    return report;
}
