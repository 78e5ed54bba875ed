#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPageLayout>
#include <QRectF>
#include <QString>

#include <functional>
#include <vector>

class Progress;
class QPagedPaintDevice;
class QPainter;

/// A report on paper: every line of text, picture and line at its place, page by page. Places are in twips, 1/1440
/// inch, from the paper's top left corner, so that screen, printer and PDF show the same. A page is made when it is
/// asked for; copies share what makes them.
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
    /// With a `family`, that one, where the machine has it.
    [[nodiscard]] static QFont font(double pointSize, QFont::Weight weight, bool italic, const QString &family = {});

    /// `make` makes the page of an index, counted from 0 up to `count`. `paper` in twips. `fileName` is what a file of
    /// them is called, in the user's words and without a suffix; where it is empty, the title.
    ReportPages(
        const QString &title, QSize paper, int count, std::function<Page(int index)> make, const QString &fileName = {})
        : m_title(title), m_fileName(fileName.isEmpty() ? title : fileName), m_paper(paper), m_count(count),
          m_make(std::move(make))
    {
    }

    [[nodiscard]] const QString &title() const { return m_title; }
    [[nodiscard]] const QString &fileName() const { return m_fileName; }
    [[nodiscard]] QSize paper() const { return m_paper; }
    /// The paper as it is: labels of any size, and what is wider than high as a landscape of a known size where it is
    /// one.
    [[nodiscard]] QPageLayout pageLayout() const;
    [[nodiscard]] int count() const { return m_count; }
    [[nodiscard]] Page page(int index) const { return m_make(index); }

    /// `Broken` by the user.
    enum class Drawn { Whole, Broken, Failed };
    /// Draws the pages from `first` to `last`, counted from 1 and both included, on a paged device: a printer or a PDF,
    /// and shows how far it is. REQUIRES: the device bears `pageLayout`.
    [[nodiscard]] Drawn draw(QPagedPaintDevice &device, int first, int last) const;
    [[nodiscard]] Drawn draw(QPagedPaintDevice &device) const { return draw(device, 1, count()); }
    /// As `draw`, for a printer, which prints what it was given though the rest never comes: a long job is tried
    /// without it, and only what the user let pass is begun on it.
    [[nodiscard]] Drawn drawWhole(QPagedPaintDevice &device, int first, int last) const;

    /// Writes a PDF file; what stood at `path` is replaced only when all is written. Throws RuntimeError as all of
    /// `safeFile` where it can't be.
    [[nodiscard]] Drawn savePdf(const QString &path) const;

    /// Draws a page with its top left corner at the painter's origin, `scale` units of the painter for a twip.
    static void paint(QPainter &painter, const Page &page, double scale);

private:
    [[nodiscard]] Drawn put(QPagedPaintDevice &device, int first, int last, Progress &progress) const;

    QString m_title;
    QString m_fileName;
    QSize m_paper;
    int m_count;
    std::function<Page(int index)> m_make;
};
