#include "reports/ReportPages.h"

#include "base/RuntimeError.h"
#include "base/safeFile.h"
#include "ui/Progress.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>

using namespace Qt::StringLiterals;

namespace {

constexpr double twipsPerInch = 1440;
constexpr double twipsPerPoint = 20;
constexpr int pdfResolution = 1200;
const QString onPaper = u"The pages are put on paper..."_s;
/// So many are drawn before the user could break off.
constexpr int pagesAtOnce = 40;

/// Keeps nothing of what is written.
class Nowhere : public QIODevice {
public:
    Nowhere() { open(WriteOnly); }

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *, qint64 size) override { return size; }
};

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
    // Into a PDF photographs are packed, codes are not.
    painter.setRenderHint(QPainter::LosslessImageRendering, item.picture.depth() == 1);
    painter.drawImage(target, item.picture);
}

} // namespace

QFont ReportPages::font(double pointSize, QFont::Weight weight, bool italic, const QString &family)
{
    QStringList families{u"Liberation Sans"_s, u"Arial"_s, u"Helvetica"_s, QGuiApplication::font().family()};
    if (!family.isEmpty())
        families.prepend(family);
    QFont font(families);
    font.setPixelSize(qRound(pointSize * twipsPerPoint));
    font.setWeight(weight);
    font.setItalic(italic);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

QPageLayout ReportPages::pageLayout() const
{
    const QSizeF points = QSizeF(m_paper) / twipsPerPoint;
    const QPageSize::PageSizeId known = QPageSize::id(points, QPageSize::Point, QPageSize::FuzzyOrientationMatch);
    const bool isLandscape = known != QPageSize::Custom && points.width() > points.height();
    const QPageSize size =
        known == QPageSize::Custom ? QPageSize(points, QPageSize::Point, {}, QPageSize::ExactMatch) : QPageSize(known);
    QPageLayout layout(size, isLandscape ? QPageLayout::Landscape : QPageLayout::Portrait, {});
    layout.setMode(QPageLayout::FullPageMode);
    return layout;
}

ReportPages::Drawn ReportPages::draw(QPagedPaintDevice &device, int first, int last) const
{
    Progress progress(onPaper);
    return put(device, first, last, progress);
}

ReportPages::Drawn ReportPages::drawWhole(QPagedPaintDevice &device, int first, int last) const
{
    if (last - first >= pagesAtOnce) {
        Nowhere nowhere;
        QPdfWriter trial(&nowhere);
        trial.setPageLayout(pageLayout());
        if (const Drawn drawn = draw(trial, first, last); drawn != Drawn::Whole)
            return drawn;
    }
    Progress progress(onPaper, Progress::WayOut::None);
    return put(device, first, last, progress);
}

ReportPages::Drawn ReportPages::put(QPagedPaintDevice &device, int first, int last, Progress &progress) const
{
    QPainter painter;
    if (!painter.begin(&device))
        return Drawn::Failed;
    for (int number = first; number <= last; ++number) {
        if (!progress.at(number - first, last - first + 1))
            return Drawn::Broken;
        if (number > first && !device.newPage())
            return Drawn::Failed;
        paint(painter, page(number - 1), device.logicalDpiX() / twipsPerInch);
    }
    return painter.end() ? Drawn::Whole : Drawn::Failed;
}

ReportPages::Drawn ReportPages::savePdf(const QString &path) const
{
    UnfinishedFile unfinished(path);
    // In memory: a file of the toolkit forgets that an earlier piece could not be written.
    QBuffer content;
    content.open(QIODevice::WriteOnly);
    Drawn drawn = Drawn::Failed;
    {
        QPdfWriter writer(&content);
        writer.setTitle(m_title);
        writer.setCreator(u"Corvane"_s);
        writer.setResolution(pdfResolution);
        writer.setPageLayout(pageLayout());
        drawn = draw(writer);
    }
    if (drawn == Drawn::Broken)
        return drawn;
    if (drawn == Drawn::Failed)
        throw RuntimeError(Fault::FileFault, u"The pages cannot be drawn."_s, path, Written::Nothing);
    unfinished.write(content.data());
    unfinished.replace();
    return drawn;
}

void ReportPages::paint(QPainter &painter, const Page &page, double scale)
{
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.scale(scale, scale);
    for (const Item &item : page) {
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
