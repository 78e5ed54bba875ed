#pragma once

#include "reports/ReportPages.h"

#include <QPageLayout>

#include <functional>

class QPdfWriter;

/// Reports on paper: PDF files that are written into memory.
namespace paper {

void writePdf(const QPageLayout &layout, const std::function<void(QPdfWriter &writer)> &paint);

/// The texts of all pages at their places, to be drawn with nothing but the toolkit.
class Texts {
public:
    explicit Texts(const ReportPages &pages);

    void writePdf() const;
    [[nodiscard]] qint64 pageCount() const { return static_cast<qint64>(m_pages.size()); }

private:
    QPageLayout m_layout;
    std::vector<ReportPages::Page> m_pages;
};

} // namespace paper
