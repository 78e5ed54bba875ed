#pragma once

#include "reports/ReportPages.h"

#include <QAbstractScrollArea>

/// Shows one page of a report at a time, as paper on a grey ground. The arrow keys and the wheel move it in sight.
/// Begins with the whole page.
class PageView : public QAbstractScrollArea {
    Q_OBJECT

public:
    enum class Fit { Page, Width, Percent };

    /// `name` becomes the object name.
    PageView(const QString &name, const ReportPages &pages);

    [[nodiscard]] int pageCount() const { return m_pages.count(); }
    /// From 1 on. Turning to one that isn't there turns to the next that is.
    [[nodiscard]] int currentPage() const { return m_number; }
    void setCurrentPage(int number);
    /// On by what is in sight; from the page's end to the next page, and from its beginning to the end of the one
    /// before.
    void readOn();
    void readBack();

    [[nodiscard]] Fit fit() const { return m_fit; }
    void setFit(Fit fit);
    /// 1 is the size on paper. Setting it fits no more.
    [[nodiscard]] double zoomFactor() const { return m_zoom; }
    void setZoomFactor(double factor);

signals:
    /// Another page or another size is shown.
    void changed();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void fitAnew();
    void layOutPaper();
    [[nodiscard]] double pixelsPerTwip() const;
    [[nodiscard]] QSize paperSize() const;

    ReportPages m_pages;
    int m_number = 1;
    ReportPages::Page m_page;
    Fit m_fit = Fit::Page;
    double m_zoom = 1;
};
