#pragma once

#include "reports/Report.h"

class Recordset;

/// Reads `source` from its first row to its end and lays all of it out. Without a row the heads and feet of report
/// and page still print. A detail higher than a page flows on to the next; a group head that takes more than half
/// of a page is not repeated. Throws RuntimeError (ItemNotFound) for a field that the source lacks.
[[nodiscard]] ReportPages layOut(const Report &report, Recordset &source);

/// The way of a report's sections on to pages. For `layOut` only.
class ReportFlow {
public:
    ReportFlow(const Report &report, Recordset &source);
    [[nodiscard]] ReportPages run();

private:
    using Item = ReportPages::Item;
    using Kind = ReportSection::Kind;

    /// A section filled from one record; places count from its top left corner.
    struct Block {
        std::vector<Item> items;
        double height = 0;
    };

    [[nodiscard]] static Block fill(const ReportSection &section, Recordset *record);
    void details(Recordset &rows);
    void place(Kind kind, Recordset *record);
    void place(Block block);
    void put(const Block &block);
    void putPart(Block &block, double room);
    void startPage();
    void endPage();
    void numberPages();

    const Report &m_report;
    Recordset &m_source;
    ReportPages m_pages;
    /// Where the next section goes, and where the page's room for sections begins and ends.
    double m_y = 0;
    double m_top = 0;
    double m_bottom = 0;
    bool m_inGroup = false;
};
