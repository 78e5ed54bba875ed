#pragma once

#include "reports/ReportPages.h"
#include "reports/ReportSection.h"

#include <QFontMetricsF>

#include <array>

class Recordset;

/// A section filled from one record; places count from its top left corner.
struct ReportBlock {
    std::vector<ReportPages::Item> items;
    double height = 0;

    /// Takes away what ends within `room` and returns it; the rest moves up. REQUIRES: `room` is above zero.
    [[nodiscard]] ReportBlock cutOff(double room);
};

/// Fills a section from records. What all records have in common (fonts, their measures, the order from the top) is
/// found once: a statement of 65,000 lines is measured before its first page is shown.
class SectionFiller {
public:
    /// REQUIRES: `section` outlives the filler and stays as it is.
    explicit SectionFiller(const ReportSection &section);

    /// The record is the recordset's current row; without one, fields stay empty. Throws RuntimeError (ItemNotFound)
    /// for a field that the record lacks.
    [[nodiscard]] ReportBlock fill(Recordset *record) const;
    /// The height of what `fill` makes, for less work.
    [[nodiscard]] double height(Recordset *record) const { return run(record, nullptr); }

private:
    struct Text {
        const ReportControl *control;
        QFont font;
        double lineHeight;
        /// Widths of the Latin characters. Set side by side they are no narrower than the text that they make up.
        std::array<double, 256> advances;
    };
    struct Set;

    double run(Recordset *record, std::vector<ReportPages::Item> *items) const;
    [[nodiscard]] static Set set(const Text &text, const QString &shown);
    [[nodiscard]] Set setLevel(const Text &text, Recordset *record) const;

    const ReportSection &m_section;
    /// Texts and pictures, from the top down; a picture has no font.
    std::vector<Text> m_flowing;
    std::vector<const ReportControl *> m_drawn;
};
