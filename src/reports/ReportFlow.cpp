#include "reports/ReportFlow.h"

#include "store/Recordset.h"
#include "ui/Progress.h"

using namespace Qt::StringLiterals;

namespace {

/// A group head is repeated while it leaves at least this share of the page to what follows.
constexpr double leastRoomBesideHead = 0.5;
/// How far it has come, within one group.
constexpr qint64 stepsOfGroup = 1000;

} // namespace

std::optional<ReportPages> layOut(const Report &report, Recordset &source)
{
    const auto flow = std::make_shared<ReportFlow>(report, source.shared());
    Progress progress(u"The pages are laid out..."_s);
    if (!flow->measure([&progress](qint64 done, qint64 total) { return progress.at(done, total); }))
        return {};
    return ReportPages(
        report.title(), report.paper().size, flow->pageCount(), [flow](int index) { return flow->makePage(index); },
        report.fileName());
}

ReportFlow::ReportFlow(const Report &report, std::shared_ptr<Recordset> rows)
    : m_report(report), m_rows(std::move(rows))
{
    for (const ReportSection &section : m_report.m_sections)
        m_fillers.emplace(section.kind(), SectionFiller(section));
    m_footHeight = heightAt({Kind::PageFoot});
    const Report::Paper &paper = m_report.m_paper;
    const double heads = heightAt({Kind::ReportHead}) + heightAt({Kind::PageHead});
    // Higher than a page it flows over several, below their heads.
    m_reportHeadFirst = heads <= paper.size.height() - paper.bottom - m_footHeight - paper.top;
}

ReportFlow::Spot ReportFlow::firstSpot() const
{
    return m_reportHeadFirst ? after({Kind::ReportHead}) : Spot{Kind::ReportHead};
}

ReportFlow::Spot ReportFlow::after(const Spot &spot) const
{
    const auto beginOf = [this](int group) {
        if (isGrouped())
            return group < m_rows->recordCount() ? Spot{Kind::GroupHead, group} : Spot{Kind::ReportFoot};
        return group == 0 && m_rows->recordCount() > 0 ? Spot{Kind::Detail} : Spot{Kind::ReportFoot};
    };
    switch (spot.kind) {
    case Kind::ReportHead: return beginOf(0);
    case Kind::GroupHead:
        return rowsOf(spot.group) > 0 ? Spot{Kind::Detail, spot.group} : Spot{Kind::GroupFoot, spot.group};
    case Kind::Detail:
        if (spot.row + 1 < rowsOf(spot.group))
            return {Kind::Detail, spot.group, spot.row + 1};
        return isGrouped() ? Spot{Kind::GroupFoot, spot.group} : Spot{Kind::ReportFoot};
    case Kind::GroupFoot: return beginOf(spot.group + 1);
    default: return {.kind = Kind::ReportFoot, .isEnd = true};
    }
}

int ReportFlow::rowsOf(int group) const
{
    if (!isGrouped())
        return m_rows->recordCount();
    m_rows->moveTo(group);
    return m_rows->child(m_report.m_details).recordCount();
}

Recordset *ReportFlow::recordAt(const Spot &spot) const
{
    const bool isDetail = spot.kind == Kind::Detail;
    if (!isDetail && spot.kind != Kind::GroupHead && spot.kind != Kind::GroupFoot)
        return nullptr;
    m_rows->moveTo(isGrouped() ? spot.group : spot.row);
    if (!isGrouped() || !isDetail)
        return m_rows.get();
    Recordset &details = m_rows->child(m_report.m_details);
    details.moveTo(spot.row);
    return &details;
}

double ReportFlow::heightAt(const Spot &spot) const
{
    const auto filler = m_fillers.find(spot.kind);
    return filler == m_fillers.end() ? 0 : filler->second.height(recordAt(spot));
}

ReportBlock ReportFlow::blockAt(const Spot &spot) const
{
    const auto filler = m_fillers.find(spot.kind);
    return filler == m_fillers.end() ? ReportBlock() : filler->second.fill(recordAt(spot));
}

/// Of the last two details and the foot behind them, where `spot` is the last but one; else 0.
double ReportFlow::heightWithFoot(const Spot &spot) const
{
    const Kind foot = isGrouped() && m_fillers.contains(Kind::GroupFoot) ? Kind::GroupFoot : Kind::ReportFoot;
    if (spot.kind != Kind::Detail || spot.row + 2 != rowsOf(spot.group) || !m_fillers.contains(foot))
        return 0;
    const bool comesNext = !isGrouped() || foot == Kind::GroupFoot || spot.group + 1 == m_rows->recordCount();
    if (!comesNext)
        return 0;
    return heightAt(spot) + heightAt({Kind::Detail, spot.group, spot.row + 1}) + heightAt({foot, spot.group});
}

double ReportFlow::roomOnNextPage(const Spot &spot) const
{
    Sheet next;
    begin(next, false, spot);
    return next.bottom - next.y;
}

bool ReportFlow::measure(const std::function<bool(qint64 done, qint64 total)> &goOn)
{
    Sheet sheet;
    const auto startPage = [&](const Spot &at, std::shared_ptr<const ReportBlock> rest = {}) {
        begin(sheet, m_starts.empty(), at);
        m_starts.push_back({at, std::move(rest)});
    };
    startPage(firstSpot());
    for (Spot spot = firstSpot(); !spot.isEnd; spot = after(spot)) {
        const qint64 within = isGrouped() ? spot.row * stepsOfGroup / std::max(1, rowsOf(spot.group)) : spot.row;
        const qint64 total = m_rows->recordCount() * (isGrouped() ? stepsOfGroup : 1);
        if (spot.kind == Kind::Detail && !goOn(spot.group * stepsOfGroup + within, total))
            return false;
        double height = heightAt(spot);
        const double together = heightWithFoot(spot);
        const double room = sheet.bottom - sheet.y;
        const bool staysTogether = together > room && together <= roomOnNextPage(spot);
        // Below a report head alone there may be less room than on the pages behind it.
        const bool fitsOnNext = height > room && sheet.y <= sheet.top && roomOnNextPage(spot) >= height;
        if (fitsOnNext || (sheet.y > sheet.top && (height > room || staysTogether)))
            startPage(spot);
        if (height > sheet.bottom - sheet.y) {
            ReportBlock rest = blockAt(spot);
            while (rest.height > sheet.bottom - sheet.y) {
                static_cast<void>(rest.cutOff(sheet.bottom - sheet.y));
                startPage(spot, std::make_shared<ReportBlock>(rest));
            }
            height = rest.height;
        }
        sheet.y += height;
    }
    return true;
}

ReportPages::Page ReportFlow::makePage(int index) const
{
    const auto place = static_cast<size_t>(index);
    const Start &start = m_starts.at(place);
    const Start *const next = place + 1 < m_starts.size() ? &m_starts[place + 1] : nullptr;
    ReportPages::Page page;
    Sheet sheet{.page = &page};
    begin(sheet, index == 0, start.spot);
    for (Spot spot = start.spot; !spot.isEnd; spot = after(spot)) {
        const bool endsHere = next && next->spot == spot;
        if (endsHere && !next->rest)
            break;
        ReportBlock block = start.rest && spot == start.spot ? *start.rest : blockAt(spot);
        if (endsHere) {
            put(sheet, block.cutOff(sheet.bottom - sheet.y));
            break;
        }
        put(sheet, std::move(block));
    }
    sheet.y = sheet.bottom;
    put(sheet, Kind::PageFoot, nullptr);
    for (ReportPages::Item &item : page) {
        if (!item.numbered)
            continue;
        item.text.replace(u"%p"_s, QString::number(index + 1));
        item.text.replace(u"%P"_s, QString::number(pageCount()));
    }
    return page;
}

void ReportFlow::begin(Sheet &sheet, bool isFirst, const Spot &at) const
{
    const Report::Paper &paper = m_report.m_paper;
    sheet.y = paper.top;
    sheet.bottom = paper.size.height() - paper.bottom - m_footHeight;
    if (isFirst && m_reportHeadFirst)
        put(sheet, Kind::ReportHead, nullptr);
    put(sheet, Kind::PageHead, nullptr);
    const bool isInGroup = isGrouped() && (at.kind == Kind::Detail || at.kind == Kind::GroupFoot);
    if (isInGroup && !isFirst) {
        const Spot head{Kind::GroupHead, at.group};
        const double height = heightAt(head);
        if (sheet.bottom - sheet.y - height >= leastRoomBesideHead * (sheet.bottom - paper.top))
            put(sheet, Kind::GroupHead, recordAt(head));
    }
    sheet.top = sheet.y;
}

void ReportFlow::put(Sheet &sheet, Kind kind, Recordset *record) const
{
    const auto filler = m_fillers.find(kind);
    if (filler == m_fillers.end())
        return;
    if (sheet.page)
        put(sheet, filler->second.fill(record));
    else
        sheet.y += filler->second.height(record);
}

void ReportFlow::put(Sheet &sheet, ReportBlock block) const
{
    for (ReportPages::Item &item : block.items) {
        item.place.translate(m_report.m_paper.left, sheet.y);
        sheet.page->push_back(std::move(item));
    }
    sheet.y += block.height;
}
