#include "reports/rptJOBCARD.h"

using namespace Qt::StringLiterals;

namespace {

using Format = ReportControl::Format;
using Kind = ReportSection::Kind;

constexpr QColor accent(0x1d, 0x3f, 0x5e);
constexpr QColor quiet(0x5a, 0x64, 0x70);
constexpr QColor hairline(0xc2, 0xca, 0xd3);
constexpr QColor band(0xe6, 0xeb, 0xf1);

/// The columns of the table of items: left edge and width.
constexpr int left = 144;
constexpr int width = 9360;
constexpr QPoint particulars{220, 2760};
constexpr QPoint remark{3080, 2900};
constexpr QPoint quantity{6020, 680};
constexpr QPoint fees{6760, 1260};
constexpr QPoint amount{8080, 1360};

QRect cell(QPoint column, int top, int height)
{
    return {column.x(), top, column.y(), height};
}

void addHead(Report &report)
{
    ReportSection &head = report.add(Kind::GroupHead, u"Section6"_s, 3760);
    head.picture(u"logo"_s, {left, 40, 1900, 1600});
    head.label(u"lblCompany"_s, {2200, 0, 7304, 520}).points(20).bold().in(accent);
    head.label(u"lblAddress1"_s, {2200, 560, 7304, 260});
    head.label(u"lblAddress2"_s, {2200, 820, 7304, 260});
    head.label(u"lblAddress3"_s, {2200, 1080, 7304, 260});
    head.label(u"lblContact"_s, {2200, 1360, 7304, 260}).bold();
    head.label(u"lblTag"_s, {left, 1720, width, 280}).italic().centre().in(quiet);
    head.line({left, 2080, width, 0}).thick(30).in(accent);

    head.caption(u"Client Name :"_s, {left, 2180, 1560, 360}).in(quiet);
    head.field(u"txtNAME"_s, u"NAME"_s, {1740, 2180, 3900, 360}).points(11).bold().wrapped();
    head.caption(u"Delivery Date :"_s, {left, 2560, 1560, 300}).in(quiet);
    head.field(u"txtDELDATE"_s, u"DELDATE"_s, {1740, 2560, 3000, 300}).as(Format::DayMonthYear).bold();
    head.caption(u"Trial Date:"_s, {left, 2880, 1560, 300}).in(quiet);
    head.field(u"Text3"_s, u"trialdate"_s, {1740, 2880, 3000, 300}).as(Format::DayMonthYear);
    head.caption(u"Job Card #"_s, {5900, 2180, 1400, 360}).in(quiet);
    head.field(u"txtJOBID"_s, u"JobID"_s, {7400, 2180, 2104, 360}).points(14).bold();
    head.caption(u"Date:"_s, {5900, 2560, 1400, 300}).in(quiet);
    head.field(u"txtDate"_s, u"Date"_s, {7400, 2560, 2104, 300}).as(Format::DayMonthYear);

    constexpr int columns = 3340;
    constexpr int columnsHeight = 380;
    head.frame({left, columns, width, columnsHeight}).on(band);
    head.caption(u"Particulars"_s, cell(particulars, columns, columnsHeight)).bold();
    head.caption(u"Remark"_s, cell(remark, columns, columnsHeight)).bold();
    head.caption(u"QTY"_s, cell(quantity, columns, columnsHeight)).bold().right();
    head.caption(u"Fees"_s, cell(fees, columns, columnsHeight)).bold().right();
    head.caption(u"Amount"_s, cell(amount, columns, columnsHeight)).bold().right();
    head.line({left, columns + columnsHeight, width, 0}).in(accent);
}

void addItem(Report &report)
{
    constexpr int height = 360;
    ReportSection &item = report.add(Kind::Detail, u"Section1"_s, height);
    item.field(u"txtItemNAME"_s, u"ItemNAME"_s, cell(particulars, 0, height)).wrapped();
    item.field(u"Text2"_s, u"Remarks"_s, cell(remark, 0, height)).wrapped();
    item.field(u"Text1"_s, u"QNT"_s, cell(quantity, 0, height)).right();
    item.field(u"txtFESS"_s, u"FESS"_s, cell(fees, 0, height)).as(Format::MoneyGrouped).right();
    item.field(u"txtAMOUNT"_s, u"AMOUNT"_s, cell(amount, 0, height)).as(Format::MoneyGrouped).right();
    item.line({left, height, width, 0}).in(hairline);
}

void addFoot(Report &report)
{
    ReportSection &foot = report.add(Kind::GroupFoot, u"Section7"_s, 3560);
    foot.line({left, 0, width, 0}).in(accent);
    constexpr int captions = 5900;
    constexpr QPoint totals{7600, 1840};
    foot.caption(u"Total"_s, {captions, 100, 1700, 320}).in(quiet);
    foot.field(u"txtAMOUNTDUE"_s, u"AMOUNTDUE"_s, cell(totals, 100, 320)).as(Format::MoneyGrouped).right();
    foot.caption(u"Amount Received"_s, {captions, 420, 1700, 320}).in(quiet);
    foot.field(u"txtAMOUNTPAID"_s, u"AMOUNTPAID"_s, cell(totals, 420, 320)).as(Format::MoneyGrouped).right();
    foot.frame({captions - 100, 780, left + width - captions + 100, 400}).on(band);
    foot.caption(u"Amount Due"_s, {captions, 780, 1700, 400}).bold();
    foot.field(u"Text4"_s, u"Amount"_s, cell(totals, 780, 400)).as(Format::MoneyGrouped).points(12).bold().right();

    foot.frame({left, 160, 4700, 2700}).dashes().in(quiet);
    foot.caption(u"Staple Cloth Samples here..."_s, {left + 120, 220, 4400, 260}).points(9).italic().in(quiet);
    foot.label(u"lblForCompany"_s, {captions - 700, 1400, 4304, 300}).bold().right();
    foot.line({captions + 600, 2540, left + width - captions - 600, 0}).in(quiet);
    foot.caption(u"Auth Sig"_s, {captions + 600, 2580, left + width - captions - 600, 260}).right().in(quiet);
    foot.line({left, 3060, width, 0}).in(hairline);
    foot.label(u"lblfootnote"_s, {left, 3120, width, 280}).points(9).wrapped().centre().in(quiet);
}

} // namespace

Report rptJOBCARD()
{
    Report report(u"Print Job Card"_s, {}, u"Body"_s);
    addHead(report);
    addItem(report);
    addFoot(report);
    report.add(Kind::PageFoot, u"Section3"_s, 300)
        .caption(u"Page %p of %P"_s, {left, 40, width, 240})
        .points(8)
        .right()
        .in(quiet);
    return report;
}
