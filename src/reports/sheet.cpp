#include "reports/sheet.h"

#include "base/session.h"
#include "store/settings.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int headBand = 380;
constexpr int lineHeight = 360;

} // namespace

void sheet::addShopHead(ReportSection &head)
{
    constexpr int besideLogo = 2200;
    constexpr int restWidth = left + width - besideLogo;
    head.picture(u"logo"_s, {left, 40, 1900, 1600});
    head.label(u"lblCompany"_s, {besideLogo, 0, restWidth, 520}).points(20).bold().in(accent);
    head.label(u"lblAddress1"_s, {besideLogo, 560, restWidth, 260});
    head.label(u"lblAddress2"_s, {besideLogo, 820, restWidth, 260});
    head.label(u"lblAddress3"_s, {besideLogo, 1080, restWidth, 260});
    head.label(u"lblContact"_s, {besideLogo, 1360, restWidth, 260}).bold();
    head.label(u"lblTag"_s, {left, 1720, width, 280}).italic().centre().in(quiet);
    constexpr int thickness = 30;
    head.line({left, shopHeadHeight - thickness, width, 0}).thick(thickness).in(accent);
}

void sheet::dressShop(ReportSection &head, const QString &logo)
{
    setLogo(head, logo);
    head.setText(u"lblTag", GetSetting(setting::TagLine));
    head.setText(u"lblCompany", session::ShopName);
    head.setText(u"lbladdress1", session::ShopAddress1);
    head.setText(u"lbladdress2", session::ShopAddress2);
    head.setText(u"lbladdress3", session::ShopAddress3);
    head.setText(u"lblContact", session::ShopContacts);
}

void sheet::setLogo(ReportSection &head, const QString &path)
{
    if (!path.isEmpty())
        return head.setPicture(u"logo", path);
    for (const auto *name : {u"lblCompany", u"lbladdress1", u"lbladdress2", u"lbladdress3", u"lblContact"}) {
        QRect &place = head.control(name).place;
        place.moveLeft(left);
        place.setWidth(width);
    }
}

int sheet::addColumnHeads(ReportSection &head, int top, std::span<const Column> columns)
{
    head.frame({left, top, width, headBand}).on(band);
    for (const Column &column : columns) {
        ReportControl &title = head.caption(column.title, {column.left, top, column.width, headBand}).bold();
        if (column.numeric)
            title.right();
    }
    head.line({left, top + headBand, width, 0}).in(accent);
    return top + headBand;
}

ReportSection &sheet::addLines(Report &report, std::span<const Column> columns)
{
    ReportSection &line = report.add(ReportSection::Kind::Detail, u"Section1"_s, lineHeight);
    for (const Column &column : columns) {
        ReportControl &field =
            line.field(column.name, column.column, {column.left, 0, column.width, lineHeight}).as(column.format);
        field.wraps = column.wraps;
        if (column.numeric)
            field.right();
    }
    line.line({left, lineHeight, width, 0}).in(hairline);
    return line;
}

void sheet::keepLastLines(Report &report)
{
    // The last two are never parted from what closes the report, be it of no height.
    report.add(ReportSection::Kind::ReportFoot, u"Section5"_s, 0);
}

void sheet::addPageCount(ReportSection &foot, int top, int footWidth)
{
    foot.caption(u"Page %p of %P"_s, {0, top, footWidth, 240}).points(8).right().in(quiet);
}
