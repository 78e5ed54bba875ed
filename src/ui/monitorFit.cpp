#include "ui/monitorFit.h"

#include <QApplication>
#include <QBoxLayout>
#include <QScreen>
#include <QScrollArea>
#include <QTabWidget>

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

/// Of a window, or of a part of one.
void makeScrollable(QWidget &whole)
{
    // Children of the window from the first on: so its order of tabs outlives the change.
    auto *area = new Room(&whole);
    auto *content = new QWidget(&whole);
    whole.layout()->setSizeConstraint(QLayout::SetDefaultConstraint);
    content->setLayout(whole.layout());
    area->setObjectName(u"room"_s);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(content);
    // The ground is that of the part.
    content->setAutoFillBackground(false);
    area->viewport()->setAutoFillBackground(false);
    auto *around = new QVBoxLayout(&whole);
    around->setContentsMargins({});
    around->addWidget(area);
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

/// So that what stands around them is always seen.
void makePagesScrollable(const QTabWidget &tabs)
{
    for (int index = 0; index < tabs.count(); ++index) {
        QWidget *const page = tabs.widget(index);
        makeScrollable(*page);
        for (QWidget *asking = page; !asking->isWindow(); asking = asking->parentWidget())
            asking->updateGeometry();
    }
}

} // namespace

void fitToMonitor(QWidget &window, const QScreen &monitor)
{
    if (!window.layout())
        return;
    const QSize room = monitor.availableSize() - frame;
    QSize size = window.testAttribute(Qt::WA_Resized) ? window.size() : window.sizeHint();
    if (!fits(leastSize(*window.layout()), room)) {
        QWidget *const focused = window.focusWidget();
        for (const QTabWidget *tabs : window.findChildren<QTabWidget *>())
            makePagesScrollable(*tabs);
        if (!fits(leastSize(*window.layout()), room))
            makeScrollable(window);
        if (focused)
            focused->setFocus(Qt::OtherFocusReason);
        size = size.expandedTo(room);
    }
    window.setMinimumSize(window.minimumSize().boundedTo(room));
    if (!fits(size, room))
        window.resize(size.boundedTo(room));
}
