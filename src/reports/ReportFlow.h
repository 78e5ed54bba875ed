#pragma once

#include "reports/Report.h"
#include "reports/SectionFiller.h"

#include <functional>
#include <memory>
#include <optional>

class Recordset;

/// Reads `source` from its first row to its end and finds where each page begins; the pages are made when they are
/// drawn, from the same rows, whatever becomes of the recordset. None where the user broke it off.
///
/// On page one the report head stands above the page head. Without a row the heads and feet of report and page still
/// print. A detail higher than a page flows on to the next; a group head that takes more than half of a page is not
/// repeated. Of two details or more, the last two are never parted from the foot that follows them, where all three fit
/// on a page. Throws RuntimeError (ItemNotFound) for a field that the source lacks.
[[nodiscard]] std::optional<ReportPages> layOut(const Report &report, Recordset &source);

/// The way of a report's sections on to pages. For `layOut` only.
class ReportFlow {
public:
    ReportFlow(const Report &report, std::shared_ptr<Recordset> rows);

    /// Finds the pages; calls `goOn` with how far it is for each detail, and ends where that says false.
    [[nodiscard]] bool measure(const std::function<bool(qint64 done, qint64 total)> &goOn);
    [[nodiscard]] int pageCount() const { return static_cast<int>(m_starts.size()); }
    /// REQUIRES: `measure` is done. `index` counts from 0.
    [[nodiscard]] ReportPages::Page makePage(int index) const;

private:
    using Kind = ReportSection::Kind;

    /// A section's turn in the flow.
    struct Spot {
        Kind kind;
        int group = 0;
        int row = 0;
        bool isEnd = false;
        friend bool operator==(const Spot &, const Spot &) = default;
    };
    struct Start {
        Spot spot;
        /// What is left of that section, where the page before holds its beginning.
        std::shared_ptr<const ReportBlock> rest;
    };
    /// A page while it is filled; without `page` it is only measured.
    struct Sheet {
        ReportPages::Page *page = nullptr;
        /// Where the next section goes, and where the page's room for sections begins and ends.
        double y = 0;
        double top = 0;
        double bottom = 0;
    };

    [[nodiscard]] bool isGrouped() const { return !m_report.m_details.isEmpty(); }
    [[nodiscard]] Spot firstSpot() const;
    [[nodiscard]] Spot after(const Spot &spot) const;
    [[nodiscard]] int rowsOf(int group) const;
    [[nodiscard]] Recordset *recordAt(const Spot &spot) const;
    [[nodiscard]] double heightAt(const Spot &spot) const;
    [[nodiscard]] ReportBlock blockAt(const Spot &spot) const;
    [[nodiscard]] double heightWithFoot(const Spot &spot) const;
    [[nodiscard]] double roomOnNextPage(const Spot &spot) const;

    void begin(Sheet &sheet, bool isFirst, const Spot &at) const;
    void put(Sheet &sheet, Kind kind, Recordset *record) const;
    void put(Sheet &sheet, ReportBlock block) const;

    Report m_report;
    std::shared_ptr<Recordset> m_rows;
    std::map<Kind, SectionFiller> m_fillers;
    double m_footHeight = 0;
    bool m_reportHeadFirst = false;
    std::vector<Start> m_starts;
};
