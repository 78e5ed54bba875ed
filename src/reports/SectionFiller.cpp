#include "reports/SectionFiller.h"

#include "base/RuntimeError.h"
#include "base/values.h"
#include "store/Recordset.h"

#include <QRegularExpression>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

using Item = ReportPages::Item;

/// A line is set smaller to fit its place, but not below this share of its size: then it is broken instead.
constexpr double leastShrink = 0.6;
/// What the widths of single characters may fall short of a text's: kerning moves some apart.
constexpr double kerningAllowance = 0.98;

QString dateAs(const Value &value, const QString &form)
{
    if (const auto *moment = std::get_if<QDateTime>(&value.data()))
        return QLocale::c().toString(moment->date(), form);
    const QString text = value.toText();
    const auto moment = readDateTime(text);
    return moment ? QLocale::c().toString(moment->date(), form) : text;
}

QString moneyAs(const Value &value, QString (*form)(double amount))
{
    if (!std::holds_alternative<QString>(value.data()) && !std::holds_alternative<QDateTime>(value.data()))
        return form(value.toDouble());
    const QString text = value.toText();
    const auto number = wholeNumberText(text);
    return number ? form(*number) : text;
}

QString formatted(const Value &value, ReportControl::Format format)
{
    if (value.isNull())
        return {};
    switch (format) {
    case ReportControl::Format::Plain: break;
    case ReportControl::Format::DayMonthYear: return dateAs(value, u"dd-MMM-yyyy"_s);
    case ReportControl::Format::DayMonthShortYear: return dateAs(value, u"dd-MMM-yy"_s);
    case ReportControl::Format::ShortDayMonthShortYear: return dateAs(value, u"d-MMM-yy"_s);
    case ReportControl::Format::Money: return moneyAs(value, Money);
    case ReportControl::Format::MoneyGrouped: return moneyAs(value, MoneyGrouped);
    }
    return value.toText();
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

QStringList givenLines(const QString &text)
{
    static const QRegularExpression lineEnd(u"\r\n|[\r\n\u2028\u2029]"_s);
    return text.split(lineEnd);
}

QStringList broken(const QString &text, const QFont &font, double width)
{
    if (text.isEmpty())
        return {text};
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

/// A text set in its place.
struct SectionFiller::Set {
    QFont font;
    double lineHeight;
    QStringList lines;
};

SectionFiller::SectionFiller(const ReportSection &section) : m_section(section)
{
    for (const ReportControl &control : section.controls()) {
        if (control.kind == ReportControl::Kind::Line || control.kind == ReportControl::Kind::Frame) {
            m_drawn.push_back(&control);
            continue;
        }
        Text text{
            &control, ReportPages::font(control.pointSize, control.weight, control.slanted, control.family), 0, {}};
        const QFontMetricsF metrics(text.font);
        text.lineHeight = std::ceil(metrics.height());
        for (size_t code = 0; code < text.advances.size(); ++code)
            text.advances.at(code) = metrics.horizontalAdvance(QChar(static_cast<char16_t>(code)));
        m_flowing.push_back(std::move(text));
    }
    std::ranges::stable_sort(m_flowing, {}, [](const Text &text) { return text.control->place.y(); });
}

ReportBlock SectionFiller::fill(Recordset *record) const
{
    ReportBlock block;
    block.height = run(record, &block.items);
    return block;
}

SectionFiller::Set SectionFiller::set(const Text &text, const QString &shown)
{
    const double width = text.control->place.width();
    double estimate = 0;
    for (const QChar character : shown) {
        const bool isPlain = character.unicode() >= u' ' && character.unicode() < text.advances.size();
        estimate += isPlain ? text.advances.at(character.unicode()) : width + 1;
    }
    if (estimate <= width * kerningAllowance)
        return {text.font, text.lineHeight, {text.control->wraps ? shown.trimmed() : shown}};

    Set set{text.font, text.lineHeight, {}};
    const QStringList given = givenLines(shown);
    if (!text.control->wraps) {
        double widest = 0;
        for (const QString &line : given)
            widest = std::max(widest, QFontMetricsF(set.font).horizontalAdvance(line));
        const double shrink = widest > width ? width / widest : 1;
        if (shrink < 1) {
            set.font.setPixelSize(std::max(1, static_cast<int>(set.font.pixelSize() * std::max(shrink, leastShrink))));
            set.lineHeight = std::ceil(QFontMetricsF(set.font).height());
        }
        if (shrink >= leastShrink) {
            set.lines = given;
            return set;
        }
    }
    for (const QString &line : given)
        set.lines += broken(line, set.font, width);
    return set;
}

SectionFiller::Set SectionFiller::setLevel(const Text &text, Recordset *record) const
{
    const auto other = std::ranges::find(
        m_flowing, text.control->levelWith, [](const Text &flowing) { return flowing.control->name; });
    if (other == m_flowing.end())
        throw RuntimeError(Fault::ItemNotFound, m_section.name() + u'.' + text.control->levelWith);
    const auto linesOf = [record](const Text &column) {
        QList<QStringList> lines;
        for (const QString &line : givenLines(textOf(*column.control, record)))
            lines += broken(line, column.font, column.control->place.width());
        return lines;
    };
    const QList<QStringList> others = linesOf(*other);
    Set set{text.font, std::max(text.lineHeight, other->lineHeight), {}};
    QList<QStringList> own = linesOf(text);
    for (qsizetype i = 0; i < own.size(); ++i) {
        own[i].resize(std::max(own.at(i).size(), others.value(i).size()));
        set.lines += own.at(i);
    }
    return set;
}

double SectionFiller::run(Recordset *record, std::vector<Item> *items) const
{
    Growth growth;
    for (const Text &text : m_flowing) {
        const ReportControl &control = *text.control;
        const QRectF place(control.place);
        const double top = place.y() + growth.at(place.y());
        if (control.kind == ReportControl::Kind::Picture) {
            if (items && !control.picture.isNull())
                items->push_back(itemOf(control, Item::Kind::Picture, place.translated(0, top - place.y())));
            continue;
        }
        const Set set =
            control.levelWith.isEmpty() ? SectionFiller::set(text, textOf(control, record)) : setLevel(text, record);
        const double inset = std::max(0.0, (place.height() - set.lineHeight) / 2);
        double y = top + inset;
        for (const QString &line : set.lines) {
            if (items && !line.isEmpty()) {
                Item item = itemOf(control, Item::Kind::Text, {place.x(), y, place.width(), set.lineHeight});
                item.text = line;
                item.font = set.font;
                item.numbered = m_section.kind() == ReportSection::Kind::PageHead
                    || m_section.kind() == ReportSection::Kind::PageFoot;
                items->push_back(item);
            }
            y += set.lineHeight;
        }
        growth.note(place.y() + place.height(), std::max(0.0, y + inset - place.y() - place.height()));
    }
    const double height = m_section.height() + growth.at(m_section.height());
    if (!items)
        return height;

    // Lines and frames last: they take their length from what the texts have come to. They are drawn beneath the texts.
    std::vector<Item> ground;
    for (const ReportControl *control : m_drawn) {
        QRectF place(control->place);
        const double bottom = place.bottom();
        const bool line = control->kind == ReportControl::Kind::Line;
        const bool level = line && place.width() > place.height();
        place.setTop(place.y() + growth.at(place.y()));
        place.setBottom(level ? place.top() : bottom + growth.at(bottom));
        if (line && !level)
            place.setWidth(0);
        ground.push_back(itemOf(*control, line ? Item::Kind::Line : Item::Kind::Frame, place));
    }
    items->insert(items->begin(), ground.begin(), ground.end());
    return height;
}

ReportBlock ReportBlock::cutOff(double room)
{
    ReportBlock part;
    ReportBlock rest;
    double cut = height;
    for (const Item &item : items) {
        if (item.place.bottom() > room && item.kind == Item::Kind::Text)
            cut = std::min(cut, item.place.top());
    }
    // Whatever happens, the flow goes on.
    cut = std::clamp(cut, 1.0, std::max(1.0, room));
    for (Item item : items) {
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
    rest.height = height - cut;
    *this = std::move(rest);
    return part;
}
