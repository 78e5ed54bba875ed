#include "paper.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

namespace {

constexpr int pdfResolution = 1200;
constexpr double twipsPerInch = 1440;

} // namespace

void paper::writePdf(const QPageLayout &layout, const std::function<void(QPdfWriter &writer)> &paint)
{
    QByteArray file;
    QBuffer buffer(&file);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(pdfResolution);
    writer.setPageLayout(layout);
    paint(writer);
}

paper::Texts::Texts(const ReportPages &pages) : m_layout(pages.pageLayout())
{
    for (int index = 0; index < pages.count(); ++index)
        m_pages.push_back(pages.page(index));
}

void paper::Texts::writePdf() const
{
    paper::writePdf(m_layout, [this](QPdfWriter &writer) {
        QPainter painter(&writer);
        painter.scale(writer.logicalDpiX() / twipsPerInch, writer.logicalDpiY() / twipsPerInch);
        for (size_t index = 0; index < m_pages.size(); ++index) {
            if (index > 0)
                writer.newPage();
            for (const ReportPages::Item &item : m_pages[index]) {
                if (item.kind != ReportPages::Item::Kind::Text)
                    continue;
                painter.setPen(item.ink);
                painter.setFont(item.font);
                painter.drawText(item.place, static_cast<int>(item.alignment), item.text);
            }
        }
    });
}
