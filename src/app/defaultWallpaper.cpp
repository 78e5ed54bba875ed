#include "app/defaultWallpaper.h"

#include <QPainter>
#include <QPainterPath>

using namespace Qt::StringLiterals;

namespace {

constexpr QColor clothLight(0x2a, 0x4a, 0x66);
constexpr QColor clothDark(0x12, 0x24, 0x36);
constexpr QColor threadColour(0xe8, 0x96, 0x3a);
constexpr QColor tapeColour(0xe9, 0xc4, 0x6a);
constexpr QColor tapeInk(0x4a, 0x38, 0x10);

/// What the pieces were drawn on; the wallpaper is scaled from it.
constexpr QSizeF drawing(1366, 768);

/// The part of it that the pieces take up.
constexpr QRectF piecesRoom(230, 112, 842, 546);

/// A whole number of ribs of the weave.
constexpr int stripeDistance = 84;

/// How much finer than a pixel the lines are that a curve is taken apart into.
constexpr qreal fineness = 16;

QColor chalk(qreal strength)
{
    QColor colour(0xf4, 0xf1, 0xe6);
    colour.setAlphaF(static_cast<float>(strength));
    return colour;
}

QPen chalkPen(qreal width, qreal strength, Qt::PenStyle style = Qt::SolidLine)
{
    return {chalk(strength), width, style, Qt::RoundCap, Qt::RoundJoin};
}

/// One repeat of a herringbone weave with a chalk stripe at `stripe`, transparent between the threads.
QPixmap weave(int stripe)
{
    constexpr int half = 14;
    constexpr int rise = 7;
    constexpr int ribs = stripeDistance / (2 * half);
    QPixmap repeat(stripeDistance, 2 * rise);
    repeat.fill(Qt::transparent);
    QPainter painter(&repeat);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(chalk(0.045), 2));
    for (int rib = 0; rib < ribs; ++rib) {
        const int x = rib * 2 * half;
        for (int y = -2 * rise; y <= 4 * rise; y += rise) {
            painter.drawLine(x, y + half, x + half, y);
            painter.drawLine(x + half, y, x + 2 * half, y + half);
        }
    }
    for (const int x : {stripe, (stripe + stripeDistance - 1) % stripeDistance})
        painter.fillRect(x, 0, 1, 2 * rise, chalk(0.05));
    return repeat;
}

void drawCloth(QPainter &painter, QSize size)
{
    QRadialGradient light(size.width() * 0.42, size.height() * 0.36, size.width() * 0.75);
    light.setColorAt(0, clothLight);
    light.setColorAt(1, clothDark);
    const QRect all(QPoint(), size);
    painter.fillRect(all, light);
    painter.drawTiledPixmap(all, weave(size.width() / 2 % stripeDistance));
}

/// A cutting line, and the seam inside it, `allowance` away. `grain` is where the thread of the cloth has to run.
void drawPiece(QPainter &painter, const QPainterPath &outline, qreal allowance, QLineF grain)
{
    painter.fillPath(outline, chalk(0.035));
    painter.strokePath(outline, chalkPen(5, 0.12));
    painter.strokePath(outline, chalkPen(2.2, 0.82));

    QPainterPathStroker margin;
    margin.setWidth(2 * allowance);
    margin.setJoinStyle(Qt::RoundJoin);
    QPen seam = chalkPen(1.5, 0.50, Qt::CustomDashLine);
    seam.setDashPattern({7, 4});
    seam.setCapStyle(Qt::FlatCap);
    painter.strokePath(outline.subtracted(margin.createStroke(outline)), seam);

    painter.setPen(chalkPen(1.5, 0.60));
    painter.drawLine(grain);
    for (const QLineF &end : {grain, QLineF(grain.p2(), grain.p1())}) {
        for (const qreal turn : {25.0, -25.0}) {
            QLineF barb = end;
            barb.setLength(14);
            barb.setAngle(barb.angle() + turn);
            painter.drawLine(barb);
        }
    }
}

QPainterPath jacketFront()
{
    QPainterPath path(QPointF(612, 118));
    path.cubicTo(650, 128, 690, 142, 742, 168); // shoulder
    path.cubicTo(712, 232, 716, 292, 786, 328); // armhole
    path.cubicTo(774, 404, 768, 466, 792, 628); // side
    path.cubicTo(716, 648, 628, 652, 560, 640); // hem
    path.cubicTo(528, 634, 518, 610, 518, 574); // rounded front corner
    path.lineTo(512, 362); // front edge
    path.cubicTo(524, 330, 540, 300, 566, 262); // break of the lapel
    path.lineTo(536, 236);
    path.lineTo(566, 196); // notch
    path.cubicTo(578, 166, 594, 138, 612, 118);
    path.closeSubpath();
    return path;
}

QPainterPath sleeve()
{
    QPainterPath path(QPointF(892, 250));
    path.cubicTo(930, 168, 1010, 150, 1066, 232);
    path.cubicTo(1058, 330, 1064, 400, 1036, 560);
    path.lineTo(930, 548);
    path.cubicTo(936, 440, 914, 350, 892, 250);
    path.closeSubpath();
    return path;
}

QPainterPath collar()
{
    QPainterPath path(QPointF(236, 232));
    path.cubicTo(300, 196, 384, 196, 448, 232);
    path.lineTo(430, 292);
    path.cubicTo(378, 264, 306, 264, 254, 292);
    path.closeSubpath();
    return path;
}

void drawPieces(QPainter &painter)
{
    drawPiece(painter, jacketFront(), 15, QLineF(660, 320, 660, 560));
    painter.setPen(chalkPen(1.5, 0.55));
    painter.drawLine(QPointF(566, 262), QPointF(612, 118)); // roll of the lapel
    painter.drawLine(QPointF(676, 470), QPointF(752, 462)); // pocket
    painter.drawLine(QPointF(676, 484), QPointF(752, 476));
    QPainterPath dart(QPointF(696, 300));
    dart.lineTo(688, 372);
    dart.lineTo(696, 444);
    dart.lineTo(704, 372);
    dart.closeSubpath();
    painter.drawPath(dart);
    painter.setBrush(Qt::NoBrush);
    for (const qreal y : {392.0, 462.0, 532.0}) // buttons
        painter.drawEllipse(QPointF(548, y), 7, 7);

    drawPiece(painter, sleeve(), 13, QLineF(984, 290, 984, 480));
    drawPiece(painter, collar(), 11, QLineF(302, 236, 382, 236));
}

void drawTape(QPainter &painter)
{
    QPainterPath course(QPointF(-40, 560));
    course.cubicTo(150, 430, 250, 470, 330, 570);
    course.cubicTo(420, 690, 620, 740, 800, 700);
    course.cubicTo(1000, 650, 1180, 640, 1420, 720);
    painter.save();
    painter.translate(3, 6);
    painter.strokePath(course, QPen(QColor(0, 0, 0, 70), 36));
    painter.restore();
    painter.strokePath(course, QPen(tapeColour, 34));

    QFont digits = painter.font();
    digits.setPixelSize(13);
    digits.setBold(true);
    painter.setFont(digits);
    constexpr qreal step = 11;
    int mark = 0;
    qreal toNext = step;
    // In short straight lines, walked once: the path itself measures its whole length for each place asked of it.
    const QPolygonF lines = course.toSubpathPolygons(QTransform::fromScale(fineness, fineness)).constFirst();
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const QLineF line(lines[i - 1] / fineness, lines[i] / fineness);
        for (; toNext <= line.length(); toNext += step) {
            ++mark;
            painter.save();
            painter.translate(line.pointAt(toNext / line.length()));
            painter.rotate(-line.angle());
            const bool whole = mark % 5 == 0;
            painter.setPen(QPen(tapeInk, whole ? 1.8 : 1));
            painter.drawLine(QPointF(0, -17), QPointF(0, whole ? -5 : -10));
            if (whole)
                painter.drawText(QRectF(-14, -5, 28, 20), Qt::AlignCenter, QString::number(mark / 5));
            painter.restore();
        }
        toNext -= line.length();
    }
}

void drawNeedle(QPainter &painter, QPointF eye, qreal length, qreal degrees)
{
    painter.save();
    painter.translate(eye);
    painter.rotate(degrees);
    QPainterPath needle(QPointF(-length * 0.06, 0));
    needle.cubicTo(0, -length * 0.035, length * 0.12, -length * 0.03, length * 0.3, -length * 0.02);
    needle.lineTo(length, 0);
    needle.lineTo(length * 0.3, length * 0.02);
    needle.cubicTo(length * 0.12, length * 0.03, 0, length * 0.035, -length * 0.06, 0);
    QPainterPath hole;
    hole.addEllipse(QPointF(length * 0.05, 0), length * 0.05, length * 0.014);
    QLinearGradient steel(0, -length * 0.03, 0, length * 0.03);
    steel.setColorAt(0, QColor(0xf4, 0xf6, 0xf8));
    steel.setColorAt(1, QColor(0x8e, 0x9a, 0xa6));
    painter.fillPath(needle.subtracted(hole), steel);
    painter.restore();
}

void drawThread(QPainter &painter)
{
    QPainterPath thread(QPointF(1122, 470));
    thread.cubicTo(1230, 380, 1290, 300, 1200, 250);
    thread.cubicTo(1120, 210, 1100, 320, 1190, 330);
    thread.cubicTo(1290, 340, 1350, 250, 1420, 190);
    painter.strokePath(thread, QPen(QColor(0, 0, 0, 60), 5, Qt::SolidLine, Qt::RoundCap));
    painter.strokePath(thread, QPen(threadColour, 2.6, Qt::SolidLine, Qt::RoundCap));
    drawNeedle(painter, QPointF(1126, 467), 150, 140);
}

} // namespace

QPixmap defaultWallpaper(QSize size, qreal pixelRatio)
{
    const qreal scale = qMax(size.width() / drawing.width(), size.height() / drawing.height());
    const QTransform fit = QTransform::fromTranslate(size.width() / 2.0, size.height() / 2.0)
                               .scale(scale, scale)
                               .translate(-drawing.width() / 2, -drawing.height() / 2);
    // On a layer of their own, where a line of chalk replaces what is under it: to mix each of these long thin lines
    // with the cloth takes five times as long as to lay all of them over it at once.
    const QRect layer = fit.mapRect(piecesRoom).toAlignedRect();
    QImage pieces(layer.size() * pixelRatio, QImage::Format_ARGB32_Premultiplied);
    pieces.setDevicePixelRatio(pixelRatio);
    pieces.fill(Qt::transparent);
    QPainter chalkPainter(&pieces);
    chalkPainter.setRenderHint(QPainter::Antialiasing);
    chalkPainter.setCompositionMode(QPainter::CompositionMode_Source);
    chalkPainter.translate(-layer.topLeft());
    chalkPainter.setTransform(fit, true);
    drawPieces(chalkPainter);
    chalkPainter.end();

    QPixmap picture(size * pixelRatio);
    picture.setDevicePixelRatio(pixelRatio);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    drawCloth(painter, size);
    painter.drawImage(layer.topLeft(), pieces);
    painter.setTransform(fit, true);
    drawTape(painter);
    drawThread(painter);
    return picture;
}

QPixmap programSign(int side)
{
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / 64.0, side / 64.0);
    QPainterPath patch;
    patch.addRoundedRect(2, 2, 60, 60, 13, 13);
    QLinearGradient cloth(0, 0, 0, 64);
    cloth.setColorAt(0, clothLight);
    cloth.setColorAt(1, clothDark);
    painter.fillPath(patch, cloth);
    QPainterPath stitches;
    stitches.addRoundedRect(7, 7, 50, 50, 9, 9);
    QPen stitch = chalkPen(1.6, 0.7, Qt::CustomDashLine);
    stitch.setDashPattern({3, 2.5});
    painter.strokePath(stitches, stitch);
    QPainterPath thread(QPointF(45, 19));
    thread.cubicTo(60, 40, 44, 54, 33, 44);
    thread.cubicTo(24, 36, 34, 28, 40, 36);
    painter.strokePath(thread, QPen(threadColour, 3, Qt::SolidLine, Qt::RoundCap));
    drawNeedle(painter, QPointF(46, 17), 44, 133);
    return picture;
}
