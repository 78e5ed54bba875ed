#include "reports/rptWorkerJobCard.h"

#include "reports/sheet.h"

using namespace Qt::StringLiterals;

namespace {

using Format = ReportControl::Format;
using Kind = ReportSection::Kind;

constexpr QSize a5{8391, 11906};
constexpr int margin = 567;
constexpr int width = a5.width() - 2 * margin;
constexpr int valueLeft = 1560;
constexpr int codeSize = 1500;
constexpr int codeLeft = width - codeSize;
constexpr int besideCode = codeLeft - valueLeft - 120;
constexpr int besideCaption = width - valueLeft;
constexpr int lineHeight = 340;

void addHead(Report &report)
{
    ReportSection &head = report.add(Kind::PageHead, u"Section2"_s, 660);
    head.label(u"lblCompany"_s, {0, 0, width, 480}).points(18).bold().in(sheet::accent);
    head.line({0, 540, width, 0}).thick(30).in(sheet::accent);
}

/// A caption with its field; the value has what room there is, or ends before the code.
ReportControl &addField(
    ReportSection &section, int top, const QString &caption, const QString &column, int valueWidth = besideCode)
{
    section.caption(caption, {0, top, valueLeft - 60, lineHeight}).in(sheet::quiet);
    return section.field(column, column, {valueLeft, top, valueWidth, lineHeight}).points(11);
}

void addOrder(ReportSection &slip)
{
    constexpr int numberHeight = 520;
    slip.picture(u"code"_s, {codeLeft, 60, codeSize, codeSize});
    slip.caption(u"JobID:"_s, {0, 40, valueLeft - 60, numberHeight}).in(sheet::quiet);
    slip.field(u"JobID"_s, u"JobID"_s, {valueLeft, 40, 820, numberHeight}).points(18).bold();
    slip.caption(u"/"_s, {valueLeft + 840, 40, 140, numberHeight}).points(18).in(sheet::quiet);
    slip.field(u"ItemSr"_s, u"ItemSr"_s, {valueLeft + 1000, 40, 900, numberHeight}).points(18).bold();
    addField(slip, 580, u"DATE:"_s, u"DATE"_s).as(Format::DayMonthYear);
    addField(slip, 920, u"Delivery Date:"_s, u"JobDelDate"_s).as(Format::DayMonthYear).bold();
    addField(slip, 1260, u"Worker Name:"_s, u"WorkerName"_s).bold();
    addField(slip, 1680, u"Client Name:"_s, u"ClintName"_s, besideCaption);
    addField(slip, 2020, u"Item Name:"_s, u"ItemName"_s, besideCaption).bold();
    addField(slip, 2360, u"QNT:"_s, u"QNT"_s, besideCaption).bold();
}

void addMeasurements(ReportSection &slip)
{
    constexpr int top = 2780;
    constexpr int titleHeight = 380;
    constexpr int middle = 2700;
    constexpr int inset = 80;
    slip.frame({0, top, width, titleHeight}).on(sheet::band);
    slip.caption(u"Specifications"_s, {inset, top, width - inset, titleHeight}).bold();
    constexpr int lines = top + titleHeight + 40;
    slip.field(u"ItemDetails"_s, u"ItemDetails"_s, {inset, lines, middle - 2 * inset, lineHeight})
        .points(11)
        .wrappedLevelWith(u"ItemDetailsValue"_s)
        .in(sheet::quiet);
    slip.field(u"ItemDetailsValue"_s, u"ItemDetailsValue"_s,
            {middle + inset, lines, width - middle - 2 * inset, lineHeight})
        .points(11)
        .bold()
        .wrappedLevelWith(u"ItemDetails"_s);
    constexpr int end = lines + lineHeight + 40;
    slip.line({middle, top + titleHeight, 0, end - top - titleHeight}).in(sheet::hairline);
    slip.line({0, end, width, 0}).in(sheet::accent);
    addField(slip, end + 80, u"Remark:"_s, u"Remarks"_s, besideCaption).wrapped();
    addField(slip, end + 80 + lineHeight, u"Client Note :"_s, u"ClientRemarks"_s, besideCaption).wrapped();
}

} // namespace

Report rptWorkerJobCard()
{
    Report report(u"Job Order"_s, {a5, margin, 500, 400});
    addHead(report);
    ReportSection &slip = report.add(Kind::Detail, u"Section1"_s, 4400);
    addOrder(slip);
    addMeasurements(slip);
    sheet::addPageCount(report.add(Kind::PageFoot, u"Section3"_s, 280), 40, width);
    return report;
}
