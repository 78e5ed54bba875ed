#pragma once

#include <QImage>
#include <QPolygonF>
#include <QWidget>

#include <vector>

/// A sheet to draw on with the mouse or a tablet, shown as large as there is room for and never larger than it is. What
/// is drawn can be taken back stroke by stroke.
class NoteCanvas : public QWidget {
    Q_OBJECT

public:
    enum class Tool { Pen, Eraser };

    /// `name` becomes the object name. The sheet is white.
    explicit NoteCanvas(const QString &name, QWidget *parent = nullptr);

    /// What is drawn on from now on; the sheet takes its size.
    void setGround(const QImage &picture);
    void setTool(Tool tool) { m_tool = tool; }
    /// Ends the stroke that is being drawn.
    void liftPen();
    /// Makes the whole sheet white.
    void wipe();
    /// Takes back the last stroke, or the last `wipe`.
    void undo();
    [[nodiscard]] bool canUndo() const { return !m_strokes.empty(); }

    /// The ground with all that was drawn on it; a stroke comes when it ends.
    [[nodiscard]] const QImage &picture() const { return m_picture; }
    /// Where the sheet is shown.
    [[nodiscard]] QRectF place() const;

    [[nodiscard]] QSize sizeHint() const override;

signals:
    /// Whether there is something to take back may have changed.
    void strokesChanged();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void tabletEvent(QTabletEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    /// In points of the sheet. One without any point is a wipe.
    struct Stroke {
        Tool tool;
        double width;
        QPolygonF points;
    };

    void begin(const QPointF &position, Tool tool);
    void goOn(const QPointF &position);
    void draw(QPainter &painter, const Stroke &stroke) const;
    void drawLast();
    [[nodiscard]] double zoom() const { return place().width() / m_picture.width(); }
    [[nodiscard]] QPointF onSheet(const QPointF &position) const;

    QImage m_ground;
    QImage m_picture;
    std::vector<Stroke> m_strokes;
    Tool m_tool = Tool::Pen;
    bool m_isDown = false;
};
