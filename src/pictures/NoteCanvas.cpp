#include "pictures/NoteCanvas.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPointingDevice>
#include <QTabletEvent>

namespace {

constexpr double penWidth = 2;
constexpr double eraserWidth = 6;
constexpr QSize sheetSize(900, 520);
const QColor surroundings(0xc9, 0xce, 0xd6);

/// Through the middles between the points, so that no corner is seen where the hand made none.
QPainterPath smooth(const QPolygonF &points)
{
    QPainterPath path(points.first());
    for (qsizetype i = 1; i + 1 < points.size(); ++i)
        path.quadTo(points.at(i), (points.at(i) + points.at(i + 1)) / 2);
    path.lineTo(points.last());
    return path;
}

} // namespace

NoteCanvas::NoteCanvas(const QString &name, QWidget *parent)
    : QWidget(parent), m_ground(sheetSize, QImage::Format_RGB32)
{
    setObjectName(name);
    setMinimumSize(300, 180);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setCursor(Qt::CrossCursor);
    m_ground.fill(Qt::white);
    m_picture = m_ground;
}

QSize NoteCanvas::sizeHint() const
{
    return sheetSize;
}

void NoteCanvas::setGround(const QImage &picture)
{
    // What is seen through is white, as the sheet.
    m_ground = QImage(picture.size(), QImage::Format_RGB32);
    m_ground.fill(Qt::white);
    QPainter(&m_ground).drawImage(QPoint(), picture);
    m_picture = m_ground;
    m_strokes.clear();
    update();
}

void NoteCanvas::wipe()
{
    liftPen();
    m_strokes.push_back({m_tool, 0, {}});
    drawLast();
}

void NoteCanvas::undo()
{
    if (m_strokes.empty())
        return;
    m_isDown = false;
    m_strokes.pop_back();
    m_picture = m_ground;
    QPainter painter(&m_picture);
    for (const Stroke &stroke : m_strokes)
        draw(painter, stroke);
    update();
    emit strokesChanged();
}

QRectF NoteCanvas::place() const
{
    QSizeF shown = m_picture.size();
    if (shown.width() > width() || shown.height() > height())
        shown.scale(size(), Qt::KeepAspectRatio);
    QRectF place(QPointF(), shown);
    place.moveCenter(QRectF(rect()).center());
    // Between two points of the monitor it would be blurred.
    place.moveTopLeft(place.topLeft().toPoint());
    return place;
}

QPointF NoteCanvas::onSheet(const QPointF &position) const
{
    return (position - place().topLeft()) / zoom();
}

void NoteCanvas::begin(const QPointF &position, Tool tool)
{
    liftPen();
    m_isDown = true;
    // As wide as told on the screen, also on a picture that is shown smaller than it is.
    const double width = (tool == Tool::Pen ? penWidth : eraserWidth) / zoom();
    m_strokes.push_back({tool, width, {onSheet(position)}});
    update();
    emit strokesChanged();
}

void NoteCanvas::goOn(const QPointF &position)
{
    if (!m_isDown)
        return;
    m_strokes.back().points += onSheet(position);
    update();
}

void NoteCanvas::liftPen()
{
    if (!m_isDown)
        return;
    m_isDown = false;
    drawLast();
}

void NoteCanvas::drawLast()
{
    QPainter painter(&m_picture);
    draw(painter, m_strokes.back());
    update();
    emit strokesChanged();
}

void NoteCanvas::draw(QPainter &painter, const Stroke &stroke) const
{
    if (stroke.points.isEmpty())
        return painter.fillRect(m_picture.rect(), Qt::white);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(
        stroke.tool == Tool::Pen ? Qt::black : Qt::white, stroke.width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    if (stroke.points.size() == 1)
        painter.drawPoint(stroke.points.first());
    else
        painter.drawPath(smooth(stroke.points));
}

void NoteCanvas::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        begin(event->position(), m_tool);
}

void NoteCanvas::mouseMoveEvent(QMouseEvent *event)
{
    goOn(event->position());
}

void NoteCanvas::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        liftPen();
}

void NoteCanvas::tabletEvent(QTabletEvent *event)
{
    // Accepted, it does not come once more as of a mouse.
    event->accept();
    const bool isTurned = event->pointerType() == QPointingDevice::PointerType::Eraser;
    if (event->type() == QEvent::TabletPress && event->button() == Qt::LeftButton)
        begin(event->position(), isTurned ? Tool::Eraser : m_tool);
    else if (event->type() == QEvent::TabletMove)
        goOn(event->position());
    else if (event->type() == QEvent::TabletRelease && event->button() == Qt::LeftButton)
        liftPen();
}

void NoteCanvas::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), surroundings);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QRectF sheet = place();
    painter.drawImage(sheet, m_picture);
    if (!m_isDown)
        return;
    painter.setClipRect(sheet);
    painter.translate(sheet.topLeft());
    painter.scale(zoom(), zoom());
    draw(painter, m_strokes.back());
}
