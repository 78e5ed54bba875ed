#include "ui/signs.h"

#include "ui/theme.h"

#include <QApplication>
#include <QIconEngine>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>

#include <functional>
#include <numbers>

using namespace Qt::StringLiterals;

namespace {

/// Draws in a field of 16 units' height, in one colour.
using Drawing = std::function<void(QPainter &painter, const QColor &ink)>;
constexpr int mostStars = 5;
constexpr double fieldHeight = 16;
constexpr double lineWidth = 1.8;

class SignEngine : public QIconEngine {
public:
    SignEngine(Drawing draw, const QColor &ink, double width) : m_draw(std::move(draw)), m_ink(ink), m_width(width) { }

    void paint(QPainter *painter, const QRect &room, QIcon::Mode mode, QIcon::State) override
    {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        const double scale = qMin(room.width() / m_width, room.height() / fieldHeight);
        painter->translate(
            room.center().x() + 0.5 - m_width * scale / 2, room.center().y() + 0.5 - fieldHeight * scale / 2);
        painter->scale(scale, scale);
        const QColor ink = mode == QIcon::Selected ? QColor(Qt::white)
            : mode == QIcon::Disabled              ? theme::muted()
                                                   : m_ink;
        painter->setPen(QPen(ink, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        m_draw(*painter, ink);
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine *clone() const override { return new SignEngine(*this); }

private:
    Drawing m_draw;
    QColor m_ink;
    double m_width;
};

QIcon sign(const Drawing &draw, const QColor &ink, double width = fieldHeight)
{
    return QIcon(new SignEngine(draw, ink, width));
}

QPainterPath star(QPointF centre)
{
    constexpr double outer = 7;
    constexpr double inner = 3;
    QPainterPath path;
    for (int corner = 0; corner < 10; ++corner) {
        const double angle = corner * std::numbers::pi / 5;
        const double radius = corner % 2 ? inner : outer;
        const QPointF place = centre + radius * QPointF(std::sin(angle), -std::cos(angle));
        corner ? path.lineTo(place) : path.moveTo(place);
    }
    path.closeSubpath();
    return path;
}

void drawTick(QPainter &painter, const QColor &ink)
{
    painter.setBrush(ink);
    painter.drawEllipse(QPointF(8, 8), 6, 6);
    QPen tick = painter.pen();
    tick.setColor(ink == Qt::white ? theme::accent() : QColor(Qt::white));
    painter.setPen(tick);
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF{{5, 8.3}, {7.2, 10.5}, {11, 5.8}});
}

void drawHandedOver(QPainter &painter, const QColor &)
{
    painter.drawLine(QPointF(2, 8), QPointF(13, 8));
    painter.drawPolyline(QPolygonF{{8.5, 3}, {13.5, 8}, {8.5, 13}});
}

void drawTurned(QPainter &painter, const QColor &ink)
{
    painter.drawArc(QRectF(2.5, 2.5, 11, 11), 90 * 16, -290 * 16);
    painter.setBrush(ink);
    painter.drawPolygon(QPolygonF{{8.2, 0.2}, {8.2, 5}, {4.6, 2.6}});
}

void drawCross(QPainter &painter, const QColor &)
{
    painter.drawLine(QPointF(4, 4), QPointF(12, 12));
    painter.drawLine(QPointF(12, 4), QPointF(4, 12));
}

void drawRing(QPainter &painter, const QColor &)
{
    painter.drawEllipse(QPointF(8, 8), 5.5, 5.5);
}

/// The hands of a clock.
void drawClock(QPainter &painter, const QColor &ink)
{
    drawRing(painter, ink);
    painter.drawPolyline(QPolygonF{{8, 5}, {8, 8}, {10.5, 9.5}});
}

void drawExclamation(QPainter &painter, const QColor &ink)
{
    painter.setBrush(ink);
    painter.drawPolygon(QPolygonF{{8, 2}, {14.5, 13.5}, {1.5, 13.5}});
    QPen mark = painter.pen();
    mark.setColor(ink == Qt::white ? theme::accent() : QColor(Qt::white));
    painter.setPen(mark);
    painter.drawLine(QPointF(8, 6.2), QPointF(8, 9));
    painter.drawPoint(QPointF(8, 11.8));
}

} // namespace

QIcon signs::stars(int rating)
{
    if (rating < 0 || rating > mostStars)
        return {};
    const auto draw = [rating](QPainter &painter, const QColor &ink) {
        painter.setPen(QPen(ink, 1));
        for (int place = 0; place < mostStars; ++place) {
            painter.setBrush(place < rating ? QBrush(ink) : QBrush(Qt::NoBrush));
            painter.drawPath(star({fieldHeight * (place + 0.5), fieldHeight / 2}));
        }
    };
    return sign(draw, theme::gold(), fieldHeight * mostStars);
}

QSize signs::starsSize()
{
    const int height = QFontMetrics(QApplication::font()).height();
    return {height * mostStars, height};
}

QString signs::starsInWords(int rating)
{
    return u"%1 of %2 stars"_s.arg(rating).arg(mostStars);
}

void signs::showStars(QLabel &label, int rating)
{
    const QIcon icon = stars(rating);
    if (icon.isNull())
        return;
    label.setPixmap(icon.pixmap(starsSize(), label.devicePixelRatio()));
    label.setAccessibleName(starsInWords(rating));
}

QIcon signs::status(Status status)
{
    // One for all rows of a list.
    static const QIcon ring = sign(drawRing, theme::muted());
    static const QIcon tick = sign(drawTick, theme::good());
    static const QIcon handedOver = sign(drawHandedOver, theme::accent());
    static const QIcon turned = sign(drawTurned, theme::gold());
    static const QIcon cross = sign(drawCross, theme::warning());
    switch (status) {
    case Status::Uncompleted: return ring;
    case Status::Completed: return tick;
    case Status::Delivered: return handedOver;
    case Status::Alteration: return turned;
    case Status::Canceled: return cross;
    }
    return {};
}

QIcon signs::due(Due due)
{
    static const QIcon clock = sign(drawClock, theme::accent());
    static const QIcon exclamation = sign(drawExclamation, theme::warning());
    return due == Due::Overdue ? exclamation : clock;
}
