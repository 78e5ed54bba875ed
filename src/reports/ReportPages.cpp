#include "reports/ReportPages.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

constexpr double twipsPerInch = 1440;
constexpr double twipsPerPoint = 20;
constexpr int pdfResolution = 1200;

QPen penOf(const ReportPages::Item &item)
{
    QPen pen(item.ink, item.thickness, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    if (item.dashed)
        pen.setDashPattern({8, 6});
    return pen;
}

void drawPicture(QPainter &painter, const ReportPages::Item &item)
{
    const QSizeF size = QSizeF(item.picture.size()).scaled(item.place.size(), Qt::KeepAspectRatio);
    QRectF target(QPointF(), size);
    target.moveCenter(item.place.center());
    painter.drawImage(target, item.picture);
}

} // namespace

QFont ReportPages::font(double pointSize, QFont::Weight weight, bool italic)
{
    QFont font(QStringList{u"Liberation Sans"_s, u"Arial"_s, u"Helvetica"_s, QGuiApplication::font().family()});
    font.setPixelSize(qRound(pointSize * twipsPerPoint));
    font.setWeight(weight);
    font.setItalic(italic);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

QPageLayout ReportPages::pageLayout() const
{
    const QSizeF points = QSizeF(m_paper) / twipsPerPoint;
    QPageLayout layout(QPageSize(points, QPageSize::Point, {}, QPageSize::FuzzyMatch), QPageLayout::Portrait, {});
    layout.setMode(QPageLayout::FullPageMode);
    return layout;
}

bool ReportPages::draw(QPagedPaintDevice &device, int first, int last) const
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    for (int number = first; number <= last; ++number) {
        if (number > first && !device.newPage())
            return false;
        drawPage(painter, number - 1);
    }
    return painter.end();
}

bool ReportPages::savePdf(const QString &path) const
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    {
        QPdfWriter writer(&file);
        writer.setTitle(m_title);
        writer.setCreator(u"Corvane"_s);
        writer.setResolution(pdfResolution);
        writer.setPageLayout(pageLayout());
        if (!draw(writer))
            return false;
    }
    return file.commit();
}

void ReportPages::drawPage(QPainter &painter, int index) const
{
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.scale(painter.device()->logicalDpiX() / twipsPerInch, painter.device()->logicalDpiY() / twipsPerInch);
    for (const Item &item : page(index)) {
        switch (item.kind) {
        case Item::Kind::Text:
            painter.setPen(item.ink);
            painter.setFont(item.font);
            painter.drawText(item.place,
                static_cast<int>(item.alignment) | Qt::AlignTop | Qt::TextSingleLine | Qt::TextDontClip, item.text);
            break;
        case Item::Kind::Picture: drawPicture(painter, item); break;
        case Item::Kind::Line:
            painter.setPen(penOf(item));
            painter.drawLine(item.place.topLeft(), item.place.bottomRight());
            break;
        case Item::Kind::Frame:
            if (item.ground.isValid()) {
                painter.fillRect(item.place, item.ground);
            } else {
                painter.setPen(penOf(item));
                painter.setBrush(Qt::NoBrush);
                painter.drawRect(item.place);
            }
            break;
        }
    }
    painter.restore();
}
