#include "statement.h"

#include "byHand.h"
#include "reports/PageView.h"
#include "reports/ReportFlow.h"
#include "reports/ReportPreview.h"
#include "reports/scratch.h"
#include "reports/sheet.h"
#include "store/DataEnvironment.h"
#include "ui/ListModel.h"

#include <QApplication>
#include <QFontMetricsF>

#include <algorithm>
#include <array>
#include <memory>

using namespace Qt::StringLiterals;
using Kind = ReportSection::Kind;

namespace {

constexpr int lineCount = 65'000;
constexpr int monthDays = 28;
constexpr int headHeight = 1000;
constexpr int footHeight = 700;

std::array<sheet::Column, 7> columns()
{
    using Format = ReportControl::Format;
    return {{{u"Date"_s, u"txtDate"_s, u"date"_s, 160, 1000, Format::DayMonthShortYear},
        {u"VC #"_s, u"txtVid"_s, u"vid"_s, 1180, 700, Format::Plain, true},
        {u"Voucher"_s, u"txtVoucher"_s, u"vaucher"_s, 2000, 900},
        {u"Particulars"_s, u"txtParticulars"_s, u"particulars"_s, 2950, 2000, Format::Plain, false, true},
        {u"Debit"_s, u"txtDebit"_s, u"debit"_s, 5000, 1200, Format::Money, true},
        {u"Credit"_s, u"txtCredit"_s, u"credit"_s, 6240, 1200, Format::Money, true},
        {u"Remark"_s, u"txtRemark"_s, u"remark"_s, 7540, 1950, Format::Plain, false, true}}};
}

Report report()
{
    Report report(u"Account Statement"_s, {});
    ReportSection &head = report.add(Kind::PageHead, u"Section2"_s, headHeight);
    head.caption(u"Account Statement"_s, {sheet::left, 0, sheet::width, 500}).points(16).bold();
    sheet::addColumnHeads(head, 600, columns());
    sheet::addLines(report, columns());
    ReportSection &foot = report.add(Kind::PageFoot, u"Section3"_s, footHeight);
    foot.line({sheet::left, 40, sheet::width, 0});
    sheet::addPageCount(foot, 300);
    return report;
}

const auto source = u"Select * from accountbook"_s;

/// Measures each text that may be higher than a line, and fills pages with the heights.
qint64 countPages(byHand::Statement &rows)
{
    const auto wrapped = columns();
    const QFontMetricsF metrics(ReportPages::font(10, QFont::Normal, false));
    const Report::Paper paper;
    const double room = paper.size.height() - paper.top - paper.bottom - headHeight - footHeight;
    constexpr int particulars = 4;
    constexpr int remark = 7;
    constexpr double line = 360;
    const double textLine = std::ceil(metrics.height());
    qint64 pages = 1;
    double used = 0;
    while (rows.step()) {
        double height = line;
        for (const auto &[column, place] : {std::pair(particulars, 3), std::pair(remark, 6)}) {
            const auto bytes = rows.text(column);
            const QString text = QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
            const double width = wrapped.at(static_cast<size_t>(place)).width;
            if (metrics.horizontalAdvance(text) <= width)
                continue;
            const double lines = std::round(
                metrics.boundingRect(QRectF(0, 0, width, 1e6), Qt::TextWordWrap, text).height() / metrics.height());
            // A line is set in the middle of its place; further ones go on below it.
            height = std::max(height, line + (lines - 1) * textLine);
        }
        if (used + height > room) {
            ++pages;
            used = 0;
        }
        used += height;
    }
    rows.reset();
    return pages;
}

std::optional<ReportPages> &laidOut()
{
    static std::optional<ReportPages> pages;
    return pages;
}

} // namespace

void statement::fill(ListModel &list)
{
    const QDate first(2010, 4, 1);
    std::vector<ListRow> rows{{.cells = {{}, {}, {}, u"Balance B/F "_s, {}, u"100.00"_s, {}}}};
    for (int i = 0; i < lineCount; ++i) {
        const QString amount = QString::number(i % 9000) + u".50"_s;
        rows.push_back(
            {.cells = {first.addDays(i / 140).toString(u"dd-MMM-yyyy"_s), QString::number(i / 2 + 1),
                 i % 2 ? u"Receipt"_s : u"Sale"_s, i % 3 ? u"Mohan Lal Gupta"_s : u"Rajeshwari Chandrashekhar Iyer"_s,
                 i % 2 ? u" "_s : amount, i % 2 ? amount : u" "_s,
                 i % monthDays ? QString() : u"By cheque, to be cleared within a week of delivery"_s},
                .tag = u"1|%1"_s.arg(i)});
    }
    rows.push_back({.cells = {{}, {}, {}, u"Balance C/F "_s, {}, u"100.00"_s, {}}});
    list.setRows(std::move(rows));
}

std::optional<ReportPages> statement::print(const ListModel &list)
{
    const std::array<scratch::Column, 7> taken{{{u"Date"_s, scratch::textOf(0)}, {u"VID"_s, scratch::textOf(1)},
        {u"vaucher"_s, scratch::textOf(2)}, {u"particulars"_s, scratch::textOf(3)}, {u"debit"_s, scratch::numberOf(4)},
        {u"credit"_s, scratch::numberOf(5)}, {u"Remark"_s, scratch::textOf(6)}}};
    Recordset rows(DE().CN);
    if (!scratch::refill(rows, DE().CN, {u"Delete * from Accountbook"_s, u"Select * from Accountbook"_s, source}, list,
            scratch::Which::Tagged, taken, u"The statement is made..."_s))
        return {};
    return layOut(report(), rows);
}

bench::Case statement::preview()
{
    ListModel list(std::vector<ListColumn>(columns().size()));
    fill(list);
    laidOut() = print(list);
    bench::Case work{u"open the preview of a statement of 65,000 lines"_s, 1.5};
    work.rounds = 7;
    work.ours = [] {
        return bench::timed([] {
            Recordset rows(DE().CN);
            rows.open(source);
            const ReportPages pages = *layOut(report(), rows);
            ReportPreview preview(pages);
            preview.show();
            QApplication::processEvents();
            return pages.count();
        });
    };
    const auto rows = std::make_shared<byHand::Statement>("select * from accountbook");
    work.byHand = [rows] { return bench::timed([&rows] { return countPages(*rows); }); };
    return work;
}

double statement::slowestPage()
{
    constexpr int turns = 60;
    constexpr double nanosecondsInMillisecond = 1e6;
    const ReportPages &pages = laidOut().value();
    PageView view(u"pages"_s, pages);
    view.resize(1000, 700);
    view.show();
    QApplication::processEvents();
    double slowest = 0;
    for (int turn = 1; turn <= turns; ++turn) {
        const bench::Run run = bench::timed([&] {
            view.setCurrentPage(turn % 2 ? pages.count() - turn : pages.count() * turn / turns);
            view.viewport()->repaint();
            return view.currentPage();
        });
        slowest = std::max(slowest, static_cast<double>(run.time.count()) / nanosecondsInMillisecond);
    }
    return slowest;
}
