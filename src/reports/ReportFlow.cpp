#include "reports/ReportFlow.h"

#include "base/values.h"
#include "store/Recordset.h"

#include <QFontMetricsF>
#include <QRegularExpression>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// A line is set smaller to fit its place, but not below this share of its size: then it is broken instead.
constexpr double leastShrink = 0.6;
/// A group head is repeated while it leaves at least this share of the page to what follows.
constexpr double leastRoomBesideHead = 0.5;

QString formatted(const Value &value, ReportControl::Format format)
{
    if (value.isNull())
        return {};
    const QString plain = value.toText();
    switch (format) {
    case ReportControl::Format::Plain: break;
    case ReportControl::Format::DayMonthYear:
        if (const auto moment = readDateTime(plain))
            return DayMonthYear(moment->date());
        break;
    case ReportControl::Format::Money:
        if (const auto number = wholeNumberText(plain))
            return Money(*number);
        break;
    case ReportControl::Format::MoneyGrouped:
        if (const auto number = wholeNumberText(plain))
            return MoneyGrouped(*number);
        break;
    }
    return plain;
}

/// `column` may lead into a child: "acc.Title".
Value fieldOf(Recordset &record, const QString &column)
{
    const auto dot = column.indexOf(u'.');
    Recordset &from = dot < 0 ? record : record.child(QStringView(column).left(dot));
    return from.eof() ? Value() : from.value(QStringView(column).mid(dot + 1));
}

QString textOf(const ReportControl &control, Recordset *record)
{
    if (control.kind == ReportControl::Kind::Label)
        return control.text;
    if (control.kind != ReportControl::Kind::Field || !record)
        return {};
    return formatted(fieldOf(*record, control.text), control.format);
}

struct SetText {
    QFont font;
    QStringList lines;
};

QStringList broken(const QString &text, const QFont &font, double width)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QTextLayout layout(text, font);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        lines += text.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    return lines;
}

/// Finds size and lines of a text in its place.
SetText setText(const ReportControl &control, const QString &text)
{
    static const QRegularExpression lineEnd(u"\r\n|[\r\n\u2028\u2029]"_s);
    const double width = control.place.width();
    SetText set{ReportPages::font(control.pointSize, control.weight, control.slanted), {}};
    const QStringList given = text.split(lineEnd);

    if (!control.wraps) {
        double widest = 0;
        for (const QString &line : given)
            widest = std::max(widest, QFontMetricsF(set.font).horizontalAdvance(line));
        const double shrink = widest > width ? width / widest : 1;
        set.font.setPixelSize(std::max(1, static_cast<int>(set.font.pixelSize() * std::max(shrink, leastShrink))));
        if (shrink >= leastShrink) {
            set.lines = given;
            return set;
        }
    }
    for (const QString &line : given)
        set.lines += line.isEmpty() ? QStringList(line) : broken(line, set.font, width);
    return set;
}

ReportPages::Item itemOf(const ReportControl &control, ReportPages::Item::Kind kind, const QRectF &place)
{
    return {.kind = kind,
        .place = place,
        .alignment = control.alignment,
        .ink = control.ink,
        .ground = control.ground,
        .thickness = control.thickness,
        .dashed = control.dashed,
        .picture = control.picture};
}

/// How far growing texts push down what stands at or below a height of the section as designed.
class Growth {
public:
    [[nodiscard]] double at(double height) const
    {
        double shift = 0;
        for (const auto &[designed, by] : m_grown) {
            if (designed <= height)
                shift = std::max(shift, by);
        }
        return shift;
    }
    /// A control that was to end at `designed` ends lower by `by`.
    void note(double designed, double by) { m_grown.emplace_back(designed, by); }

private:
    std::vector<std::pair<double, double>> m_grown;
};

} // namespace

ReportPages layOut(const Report &report, Recordset &source)
{
    return ReportFlow(report, source).run();
}

ReportFlow::ReportFlow(const Report &report, Recordset &source)
    : m_report(report), m_source(source), m_pages(report.m_title, report.m_paper.size)
{
}

ReportPages ReportFlow::run()
{
    startPage();
    place(Kind::ReportHead, nullptr);
    if (m_report.m_details.isEmpty()) {
        details(m_source);
    } else {
        for (m_source.moveFirst(); !m_source.eof(); m_source.moveNext()) {
            place(Kind::GroupHead, &m_source);
            m_inGroup = true;
            details(m_source.child(m_report.m_details));
            place(Kind::GroupFoot, &m_source);
            m_inGroup = false;
        }
    }
    place(Kind::ReportFoot, nullptr);
    endPage();
    numberPages();
    return std::move(m_pages);
}

void ReportFlow::details(Recordset &rows)
{
    for (rows.moveFirst(); !rows.eof(); rows.moveNext())
        place(Kind::Detail, &rows);
}

ReportFlow::Block ReportFlow::fill(const ReportSection &section, Recordset *record)
{
    Block block;
    Growth growth;
    std::vector<const ReportControl *> fromTheTop;
    for (const ReportControl &control : section.controls())
        fromTheTop.push_back(&control);
    std::ranges::stable_sort(fromTheTop, {}, [](const ReportControl *control) { return control->place.y(); });

    std::vector<const ReportControl *> drawn;
    for (const ReportControl *control : fromTheTop) {
        if (control->kind == ReportControl::Kind::Line || control->kind == ReportControl::Kind::Frame) {
            drawn.push_back(control);
            continue;
        }
        const QRectF place(control->place);
        const double top = place.y() + growth.at(place.y());
        if (control->kind == ReportControl::Kind::Picture) {
            if (!control->picture.isNull())
                block.items.push_back(itemOf(*control, Item::Kind::Picture, place.translated(0, top - place.y())));
            continue;
        }
        const SetText set = setText(*control, textOf(*control, record));
        const double lineHeight = std::ceil(QFontMetricsF(set.font).height());
        const double inset = std::max(0.0, (place.height() - lineHeight) / 2);
        double y = top + inset;
        for (const QString &line : set.lines) {
            Item item = itemOf(*control, Item::Kind::Text, {place.x(), y, place.width(), lineHeight});
            item.text = line;
            item.font = set.font;
            item.numbered = section.kind() == Kind::PageHead || section.kind() == Kind::PageFoot;
            if (!line.isEmpty())
                block.items.push_back(item);
            y += lineHeight;
        }
        growth.note(place.y() + place.height(), std::max(0.0, y + inset - place.y() - place.height()));
    }

    // Lines and frames last: they take their length from what the texts have come to. They are drawn beneath the texts.
    std::vector<Item> ground;
    for (const ReportControl *control : drawn) {
        QRectF place(control->place);
        const double bottom = place.bottom();
        const bool level = control->kind == ReportControl::Kind::Line && place.width() > place.height();
        place.setTop(place.y() + growth.at(place.y()));
        place.setBottom(level ? place.top() : bottom + growth.at(bottom));
        if (control->kind == ReportControl::Kind::Line && !level)
            place.setWidth(0);
        const bool line = control->kind == ReportControl::Kind::Line;
        ground.push_back(itemOf(*control, line ? Item::Kind::Line : Item::Kind::Frame, place));
    }
    block.items.insert(block.items.begin(), ground.begin(), ground.end());
    block.height = section.height() + growth.at(section.height());
    return block;
}

void ReportFlow::place(Kind kind, Recordset *record)
{
    if (const ReportSection *section = m_report.find(kind))
        place(fill(*section, record));
}

void ReportFlow::place(Block block)
{
    if (block.height > m_bottom - m_y && m_y > m_top) {
        endPage();
        startPage();
    }
    while (block.height > m_bottom - m_y) {
        putPart(block, m_bottom - m_y);
        endPage();
        startPage();
    }
    put(block);
}

void ReportFlow::put(const Block &block)
{
    auto &page = m_pages.pages().back();
    for (Item item : block.items) {
        item.place.translate(m_report.m_paper.left, m_y);
        page.push_back(item);
    }
    m_y += block.height;
}

/// Puts what ends within `room` and keeps the rest in `block`, moved up.
void ReportFlow::putPart(Block &block, double room)
{
    Block part;
    Block rest;
    double cut = block.height;
    for (const Item &item : block.items) {
        if (item.place.bottom() > room && item.kind == Item::Kind::Text)
            cut = std::min(cut, item.place.top());
    }
    // Whatever happens, the flow goes on.
    cut = std::clamp(cut, 1.0, room);
    for (Item item : block.items) {
        if (item.place.bottom() <= cut) {
            part.items.push_back(item);
            continue;
        }
        const bool spans = item.place.top() < cut && item.kind != Item::Kind::Text && item.kind != Item::Kind::Picture;
        if (spans) {
            Item upper = item;
            upper.place.setBottom(cut);
            part.items.push_back(upper);
            item.place.setTop(cut);
        }
        item.place.translate(0, -std::min(cut, item.place.top()));
        rest.items.push_back(item);
    }
    part.height = cut;
    rest.height = block.height - cut;
    put(part);
    block = rest;
}

void ReportFlow::startPage()
{
    static_cast<void>(m_pages.addPage());
    const Report::Paper &paper = m_report.m_paper;
    const ReportSection *foot = m_report.find(Kind::PageFoot);
    m_y = paper.top;
    m_bottom = paper.size.height() - paper.bottom - (foot ? foot->height() : 0);
    if (const ReportSection *head = m_report.find(Kind::PageHead))
        put(fill(*head, nullptr));
    if (const ReportSection *head = m_report.find(Kind::GroupHead); head && m_inGroup) {
        const Block repeated = fill(*head, &m_source);
        if (m_bottom - m_y - repeated.height >= leastRoomBesideHead * (m_bottom - paper.top))
            put(repeated);
    }
    m_top = m_y;
}

void ReportFlow::endPage()
{
    m_y = m_bottom;
    if (const ReportSection *foot = m_report.find(Kind::PageFoot))
        put(fill(*foot, nullptr));
}

void ReportFlow::numberPages()
{
    int number = 0;
    for (ReportPages::Page &page : m_pages.pages()) {
        ++number;
        for (Item &item : page) {
            if (!item.numbered)
                continue;
            item.text.replace(u"%p"_s, QString::number(number));
            item.text.replace(u"%P"_s, QString::number(m_pages.count()));
        }
    }
}
