#include "reports/rptLabel.h"

#include "reports/sheet.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QSize paper{5669, 2835};
constexpr int margin = 140;
constexpr int width = paper.width() - 2 * margin;
constexpr int valueLeft = 1120;
constexpr int codeSize = 1260;
constexpr int besideCode = width - codeSize - 60 - valueLeft;
constexpr int lineHeight = 250;
/// Below it there is room for two lines more.
constexpr int remarkTop = 1750;

ReportControl &addField(ReportSection &label, int top, const QString &caption, const QString &column)
{
    label.caption(caption, {0, top, valueLeft - 40, lineHeight}).points(8).in(sheet::quiet);
    return label.field(column, column, {valueLeft, top, besideCode, lineHeight}).points(9);
}

} // namespace

Report rptLabel()
{
    Report report(u"Print Label"_s, {paper, margin, margin, margin});
    ReportSection &label = report.add(ReportSection::Kind::Detail, u"Section1"_s, remarkTop + lineHeight);
    label.label(u"lblCompany"_s, {0, 0, width, 310}).points(11).bold().in(sheet::accent);
    label.line({0, 320, width, 0}).in(sheet::accent);
    label.picture(u"code"_s, {width - codeSize, 360, codeSize, codeSize});
    constexpr int numberHeight = 400;
    label.caption(u"Job Card #:"_s, {0, 340, valueLeft - 40, numberHeight}).points(8).in(sheet::quiet);
    label.field(u"JobID"_s, u"JobID"_s, {valueLeft, 340, 640, numberHeight}).points(14).bold();
    label.caption(u"/"_s, {valueLeft + 655, 340, 110, numberHeight}).points(14).in(sheet::quiet);
    label.field(u"ItemSr"_s, u"ItemSr"_s, {valueLeft + 780, 340, 700, numberHeight}).points(14).bold();
    addField(label, 750, u"Date :"_s, u"DATE"_s).as(ReportControl::Format::DayMonthShortYear);
    addField(label, 1000, u"Client Name:"_s, u"ClintName"_s).bold();
    addField(label, 1250, u"Worker Name:"_s, u"WorkerName"_s);
    addField(label, 1500, u"Item Name:"_s, u"ItemName"_s).bold();
    ReportControl &remark = addField(label, remarkTop, u"Remark:"_s, u"Remarks"_s).points(8).wrapped();
    remark.place.setWidth(width - valueLeft);
    return report;
}
