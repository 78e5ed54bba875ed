#include "reports/PageView.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace {

constexpr double twipsPerInch = 1440;
constexpr int margin = 18;
constexpr int shadow = 5;
constexpr int lineStep = 40;
constexpr QColor ground(0x8d, 0x97, 0xa3);

} // namespace

PageView::PageView(const QString &name, const ReportPages &pages) : m_pages(pages), m_page(pages.page(0))
{
    setObjectName(name);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setAutoFillBackground(false);
}

void PageView::setCurrentPage(int number)
{
    number = std::clamp(number, 1, pageCount());
    if (number == m_number)
        return;
    m_number = number;
    m_page = m_pages.page(number - 1);
    verticalScrollBar()->setValue(0);
    viewport()->update();
    emit changed();
}

void PageView::readOn()
{
    QScrollBar &bar = *verticalScrollBar();
    if (bar.value() < bar.maximum())
        bar.triggerAction(QScrollBar::SliderPageStepAdd);
    else
        setCurrentPage(m_number + 1);
}

void PageView::readBack()
{
    QScrollBar &bar = *verticalScrollBar();
    if (bar.value() > bar.minimum())
        return bar.triggerAction(QScrollBar::SliderPageStepSub);
    const int before = m_number;
    setCurrentPage(m_number - 1);
    if (m_number != before)
        bar.setValue(bar.maximum());
}

void PageView::setFit(Fit fit)
{
    m_fit = fit;
    fitAnew();
}

void PageView::setZoomFactor(double factor)
{
    m_fit = Fit::Percent;
    m_zoom = factor;
    layOutPaper();
}

void PageView::resizeEvent(QResizeEvent *)
{
    fitAnew();
}

double PageView::pixelsPerTwip() const
{
    return m_zoom * logicalDpiX() / twipsPerInch;
}

QSize PageView::paperSize() const
{
    return (QSizeF(m_pages.paper()) * pixelsPerTwip()).toSize();
}

void PageView::fitAnew()
{
    // A scroll bar that comes takes room; with it reckoned in from the first the size does not jump to and fro.
    const int bar = m_fit == Fit::Width ? verticalScrollBar()->sizeHint().width() : 0;
    const QSizeF room = maximumViewportSize() - QSize(2 * margin + bar, 2 * margin);
    const QSizeF natural = QSizeF(m_pages.paper()) * logicalDpiX() / twipsPerInch;
    if (m_fit == Fit::Width)
        m_zoom = room.width() / natural.width();
    else if (m_fit == Fit::Page)
        m_zoom = std::min(room.width() / natural.width(), room.height() / natural.height());
    m_zoom = std::max(m_zoom, 0.01);
    layOutPaper();
}

void PageView::layOutPaper()
{
    const QSize whole = paperSize() + QSize(2 * margin, 2 * margin);
    const auto range = [](QScrollBar &bar, int length, int room) {
        bar.setRange(0, std::max(0, length - room));
        // A line of what was read last stays in sight.
        bar.setPageStep(std::max(lineStep, room - lineStep));
        bar.setSingleStep(lineStep);
    };
    range(*verticalScrollBar(), whole.height(), viewport()->height());
    range(*horizontalScrollBar(), whole.width(), viewport()->width());
    viewport()->update();
    emit changed();
}

void PageView::paintEvent(QPaintEvent *event)
{
    QPainter painter(viewport());
    painter.fillRect(event->rect(), ground);
    const QSize paper = paperSize();
    const auto placeOf = [](const QScrollBar &bar, int length, int room) {
        return bar.maximum() > 0 ? margin - bar.value() : (room - length) / 2;
    };
    const QRect place(QPoint(placeOf(*horizontalScrollBar(), paper.width(), viewport()->width()),
                          placeOf(*verticalScrollBar(), paper.height(), viewport()->height())),
        paper);
    painter.fillRect(place.translated(shadow, shadow), QColor(0, 0, 0, 50));
    painter.fillRect(place, Qt::white);
    painter.setClipRect(place);
    painter.translate(place.topLeft());
    ReportPages::paint(painter, m_page, pixelsPerTwip());
}
