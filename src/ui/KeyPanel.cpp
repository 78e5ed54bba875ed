#include "ui/KeyPanel.h"

#include "ui/theme.h"

#include <QApplication>
#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QScreen>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostColumns = 3;
constexpr int spare = 16;
/// Of the letters of the screen.
constexpr double sizes[] = {1.15, 1, 0.85, 0.7};

/// A title takes as much room as a line of its own, and a gap before it.
std::vector<QString> htmlRows(const std::vector<KeyPanel::Group> &groups)
{
    std::vector<QString> rows;
    for (const auto &[title, lines] : groups) {
        if (lines.empty())
            continue;
        rows.push_back(
            u"<tr><td colspan='2' style='padding-top:6px; padding-bottom:3px; color:%1'><b>%2</b></td></tr>"_s.arg(
                theme::accent().name(), title.toHtmlEscaped()));
        for (const KeyLine &line : lines)
            rows.push_back(
                u"<tr><td style='padding-right:14px; white-space:nowrap'><b>%1</b></td><td style='white-space:nowrap'>%2</td></tr>"_s
                    .arg(line.keys.toHtmlEscaped(), line.what.toHtmlEscaped()));
    }
    return rows;
}

} // namespace

KeyPanel::KeyPanel(QWidget &screen, const std::vector<Group> &groups) : QFrame(&screen, Qt::ToolTip), m_screen(screen)
{
    setObjectName(u"keyPanel"_s);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameShape(QFrame::Box);
    setLineWidth(2);
    QPalette colours = palette();
    colours.setColor(QPalette::Window, Qt::white);
    colours.setColor(QPalette::WindowText, palette().color(QPalette::Text));
    setPalette(colours);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(spare, spare / 2, spare, spare);
    row->setSpacing(2 * spare);

    const QScreen &monitor = *screen.screen();
    const QSize room = monitor.availableSize() - QSize(spare, spare);
    const auto fits = [&] { return sizeHint().width() <= room.width() && sizeHint().height() <= room.height(); };
    bool isLaid = false;
    for (const double size : sizes) {
        QFont font = screen.font();
        font.setPointSizeF(font.pointSizeF() * size);
        for (int columns = 1; columns <= mostColumns && !isLaid; ++columns) {
            lay(groups, columns, font);
            isLaid = fits();
        }
    }
    resize(sizeHint().boundedTo(room));
    place(monitor);
    qApp->installEventFilter(this);
}

void KeyPanel::lay(const std::vector<Group> &groups, int columns, const QFont &font)
{
    qDeleteAll(findChildren<QLabel *>());
    const std::vector<QString> rows = htmlRows(groups);
    const size_t each = (rows.size() + static_cast<size_t>(columns) - 1) / static_cast<size_t>(columns);
    for (size_t from = 0; from < rows.size(); from += each) {
        QString text;
        for (size_t i = from; i < std::min(from + each, rows.size()); ++i)
            text += rows[i];
        auto *column = new QLabel(u"<table cellspacing='0' cellpadding='2'>%1</table>"_s.arg(text));
        column->setFont(font);
        layout()->addWidget(column);
        layout()->setAlignment(column, Qt::AlignTop);
    }
    layout()->activate();
}

void KeyPanel::place(const QScreen &monitor)
{
    const QRect room = monitor.availableGeometry();
    QRect place = rect();
    place.moveCenter(m_screen.mapToGlobal(m_screen.rect().center()));
    place.moveLeft(qBound(room.left(), place.left(), room.right() - place.width()));
    place.moveTop(qBound(room.top(), place.top(), room.bottom() - place.height()));
    move(place.topLeft());
}

bool KeyPanel::eventFilter(QObject *watched, QEvent *event)
{
    const bool isScreenLeft =
        watched == &m_screen && (event->type() == QEvent::WindowDeactivate || event->type() == QEvent::Hide);
    // An access key never comes as a key to the screen.
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::Shortcut || isScreenLeft)
        close();
    return false;
}
