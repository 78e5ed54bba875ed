#include "ui/monitorFit.h"

#include <QApplication>
#include <QBoxLayout>
#include <QScreen>
#include <QScrollArea>

using namespace Qt::StringLiterals;

namespace {

/// What a window manager's frame takes, in logical pixels.
constexpr QSize frame(8, 32);
/// Around a control that has come into view.
constexpr int spare = 8;

QSize leastSize(const QLayout &content)
{
    return content.sizeConstraint() == QLayout::SetFixedSize ? content.totalSizeHint() : content.totalMinimumSize();
}

bool fits(QSize size, QSize room)
{
    return size.width() <= room.width() && size.height() <= room.height();
}

class Room : public QScrollArea {
public:
    using QScrollArea::QScrollArea;

protected:
    bool focusNextPrevChild(bool next) override
    {
        // Past QScrollArea, which would show the end of a control that is wider than the room.
        // NOLINTNEXTLINE(bugprone-parent-virtual-call)
        return QWidget::focusNextPrevChild(next);
    }
};

void makeScrollable(QWidget &window)
{
    QWidget *const focused = window.focusWidget();
    // Children of the window from the first on: so its order of tabs outlives the change.
    auto *area = new Room(&window);
    auto *content = new QWidget(&window);
    window.layout()->setSizeConstraint(QLayout::SetDefaultConstraint);
    content->setLayout(window.layout());
    area->setObjectName(u"room"_s);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(content);
    auto *whole = new QVBoxLayout(&window);
    whole->setContentsMargins({});
    whole->addWidget(area);
    if (focused)
        focused->setFocus(Qt::OtherFocusReason);
    QObject::connect(qApp, &QApplication::focusChanged, area, [area, content](QWidget *, const QWidget *now) {
        if (!now || !content->isAncestorOf(now))
            return;
        // Of one that is larger than the room, the beginning.
        const QSize room = area->viewport()->size() - QSize(2 * spare, 2 * spare);
        const QRect place(now->mapTo(content, QPoint()), now->size().boundedTo(room));
        area->ensureVisible(
            place.center().x(), place.center().y(), place.width() / 2 + spare, place.height() / 2 + spare);
    });
}

} // namespace

void fitToMonitor(QWidget &window, const QScreen &monitor)
{
    if (!window.layout())
        return;
    const QSize room = monitor.availableSize() - frame;
    QSize size = window.testAttribute(Qt::WA_Resized) ? window.size() : window.sizeHint();
    if (!fits(leastSize(*window.layout()), room)) {
        makeScrollable(window);
        size = size.expandedTo(room);
    }
    window.setMinimumSize(window.minimumSize().boundedTo(room));
    if (!fits(size, room))
        window.resize(size.boundedTo(room));
}
