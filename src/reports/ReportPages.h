#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPageLayout>
#include <QRectF>
#include <QString>

#include <vector>

class QPagedPaintDevice;
class QPainter;

/// A report on paper: every line of text, picture and line at its place, page by page. Places are in twips, 1/1440
/// inch, from the paper's top left corner, so that screen, printer and PDF show the same.
class ReportPages {
public:
    struct Item {
        enum class Kind { Text, Picture, Line, Frame };
        Kind kind;
        QRectF place;
        /// One line.
        QString text = {};
        QFont font = {};
        Qt::Alignment alignment = Qt::AlignLeft;
        QColor ink = Qt::black;
        QColor ground = {};
        int thickness = 0;
        bool dashed = false;
        QImage picture = {};
        /// "%p" and "%P" in the text stand for the page and the number of pages.
        bool numbered = false;
    };
    using Page = std::vector<Item>;

    /// The font of all reports in twips: measured in it, a text is as wide on paper as it was when it was laid out.
    [[nodiscard]] static QFont font(double pointSize, QFont::Weight weight, bool italic);

    ReportPages(const QString &title, QSize paper) : m_title(title), m_paper(paper) { }

    [[nodiscard]] const QString &title() const { return m_title; }
    [[nodiscard]] QPageLayout pageLayout() const;
    [[nodiscard]] int count() const { return static_cast<int>(m_pages.size()); }
    [[nodiscard]] const Page &page(int index) const { return m_pages.at(static_cast<size_t>(index)); }
    [[nodiscard]] Page &addPage() { return m_pages.emplace_back(); }
    [[nodiscard]] std::vector<Page> &pages() { return m_pages; }

    /// Draws the pages from `first` to `last`, counted from 1 and both included, on a paged device: a printer, its
    /// preview, a PDF. REQUIRES: the device bears `pageLayout`. False where it does not begin or breaks off.
    [[nodiscard]] bool draw(QPagedPaintDevice &device, int first, int last) const;
    [[nodiscard]] bool draw(QPagedPaintDevice &device) const { return draw(device, 1, count()); }

    /// Writes a PDF file; what stood at `path` is replaced only when all is written. False where it can't be.
    [[nodiscard]] bool savePdf(const QString &path) const;

private:
    void drawPage(QPainter &painter, int index) const;

    QString m_title;
    QSize m_paper;
    std::vector<Page> m_pages;
};
