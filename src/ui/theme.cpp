#include "ui/theme.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFontDatabase>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTabBar>

using namespace Qt::StringLiterals;

namespace {

constexpr double leastPointSize = 10;
constexpr int focusRingWidth = 2;
constexpr int focusRingRadius = 3;
constexpr double boxLineWidth = 1.4;
constexpr int frameWidth = 2;
constexpr QColor frameColour(0xc3, 0xcb, 0xd5);
constexpr int itemTextMargin = 6;
constexpr int itemHeightExtra = 6;
constexpr int fieldHeightExtra = 4;
constexpr int labelSpacing = 8;
constexpr int fieldSpacing = 10;
constexpr int windowMargin = 16;

/// Fusion with more room: lists and fields that are read and hit all day.
class RoomyStyle : public QProxyStyle {
public:
    RoomyStyle() : QProxyStyle(QStyleFactory::create(u"Fusion"_s)) { }

    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override
    {
        switch (metric) {
        case PM_DefaultFrameWidth:
            return isFramed(widget) ? frameWidth : QProxyStyle::pixelMetric(metric, option, widget);
        case PM_FocusFrameHMargin: return itemTextMargin;
        case PM_CheckBoxLabelSpacing:
        case PM_RadioButtonLabelSpacing: return labelSpacing;
        case PM_LayoutHorizontalSpacing:
        case PM_LayoutVerticalSpacing: return fieldSpacing;
        case PM_LayoutLeftMargin:
        case PM_LayoutTopMargin:
        case PM_LayoutRightMargin:
        case PM_LayoutBottomMargin: return windowMargin;
        default: return QProxyStyle::pixelMetric(metric, option, widget);
        }
    }

    QSize sizeFromContents(
        ContentsType type, const QStyleOption *option, const QSize &size, const QWidget *widget) const override
    {
        const QSize natural = QProxyStyle::sizeFromContents(type, option, size, widget);
        switch (type) {
        case CT_ItemViewItem: return natural + QSize(0, itemHeightExtra);
        case CT_LineEdit:
        case CT_ComboBox: return natural + QSize(0, fieldHeightExtra);
        default: return natural;
        }
    }

    void drawPrimitive(
        PrimitiveElement element, const QStyleOption *option, QPainter *painter, const QWidget *widget) const override
    {
        switch (element) {
        case PE_FrameFocusRect:
            if (qobject_cast<const QAbstractButton *>(widget) || qobject_cast<const QTabBar *>(widget))
                return drawFocusRing(*option, *painter);
            break;
        case PE_Frame:
            if (isFramed(widget))
                return drawFrame(option->rect, *painter);
            break;
        case PE_IndicatorCheckBox: return drawBox(*option, *painter, false);
        case PE_IndicatorRadioButton: return drawBox(*option, *painter, true);
        default: break;
        }
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }

    int styleHint(
        StyleHint hint, const QStyleOption *option, const QWidget *widget, QStyleHintReturn *returned) const override
    {
        // Buttons of the plain box look like all others.
        if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
            return 0;
        // Lists open on a double click and on Enter, on every desktop.
        if (hint == SH_ItemView_ActivateItemOnSingleClick)
            return 0;
        return QProxyStyle::styleHint(hint, option, widget, returned);
    }

private:
    static bool isFramed(const QWidget *widget)
    {
        const auto *frame = qobject_cast<const QFrame *>(widget);
        return frame && frame->frameShape() == QFrame::StyledPanel;
    }

    /// As wide as that of the lists: at 1.25 and 1.5 pixels to the point, the sides of a thinner one get lost.
    static void drawFrame(const QRect &place, QPainter &painter)
    {
        const QRect inner = place.adjusted(frameWidth, frameWidth, -frameWidth, -frameWidth);
        QPainterPath ring;
        ring.addRect(place);
        ring.addRect(inner);
        painter.fillPath(ring, frameColour);
    }

    /// Around a check box, an option or the text of a tab, in the colour that all focus rings have.
    static void drawFocusRing(const QStyleOption &option, QPainter &painter)
    {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(theme::focusRing(), focusRingWidth));
        painter.drawRoundedRect(QRectF(option.rect).adjusted(1, 1, -1, -1), focusRingRadius, focusRingRadius);
        painter.restore();
    }

    /// The square of a check box with its tick, or the circle of an option with its dot.
    static void drawBox(const QStyleOption &option, QPainter &painter, bool round)
    {
        const bool enabled = option.state.testFlag(State_Enabled);
        const QColor ink = enabled ? theme::accent() : option.palette.color(QPalette::Disabled, QPalette::Text);
        const QRectF place = QRectF(option.rect).adjusted(1.5, 1.5, -1.5, -1.5);
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(enabled ? theme::boxOutline() : ink, boxLineWidth));
        painter.setBrush(option.palette.color(QPalette::Base));
        round ? painter.drawEllipse(place) : painter.drawRoundedRect(place, 2, 2);
        const double size = place.width();
        if (option.state.testFlag(State_On) && round) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(ink);
            painter.drawEllipse(place.center(), size / 4, size / 4);
        } else if (option.state.testFlag(State_On)) {
            painter.setPen(QPen(ink, size / 6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            const QPointF corner = place.topLeft();
            painter.drawPolyline(QPolygonF{corner + size * QPointF(0.22, 0.52), corner + size * QPointF(0.42, 0.72),
                corner + size * QPointF(0.78, 0.28)});
        }
        painter.restore();
    }
};

QPalette houseColours()
{
    const QColor window(0xf2, 0xf4, 0xf7);
    const QColor ink(0x16, 0x21, 0x2c);
    // Fainter than what can be used, and still read.
    const QColor faint(0x5d, 0x69, 0x75);
    QPalette colours(window);
    colours.setColor(QPalette::Window, window);
    colours.setColor(QPalette::WindowText, ink);
    colours.setColor(QPalette::Base, Qt::white);
    colours.setColor(QPalette::AlternateBase, QColor(0xf6, 0xf8, 0xfb));
    colours.setColor(QPalette::Text, Qt::black);
    colours.setColor(QPalette::Button, QColor(0xe6, 0xea, 0xef));
    colours.setColor(QPalette::ButtonText, ink);
    colours.setColor(QPalette::Highlight, theme::accent());
    colours.setColor(QPalette::HighlightedText, Qt::white);
    colours.setColor(QPalette::Link, theme::accent());
    colours.setColor(QPalette::ToolTipBase, QColor(0xff, 0xfb, 0xe6));
    colours.setColor(QPalette::ToolTipText, ink);
    colours.setColor(QPalette::PlaceholderText, theme::muted());
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colours.setColor(QPalette::Disabled, role, faint);
    colours.setColor(QPalette::Disabled, QPalette::Base, window);
    colours.setColor(QPalette::Disabled, QPalette::Highlight, faint);
    return colours;
}

// Text fields, combos and date fields have no rule here: what they show of the focus is in their palette.
const auto styleSheet = uR"(
QPushButton {
    padding: 6px 16px; border: 1px solid #aab4c0; border-radius: 5px; background: #fdfdfe; color: #16212c;
}
QPushButton:hover { background: #eef3f9; }
QPushButton:pressed, QPushButton:checked { background: #d5e0ec; }
QPushButton:default { background: #1d5a8a; border-color: #1d5a8a; color: white; font-weight: 600; }
QPushButton:default:hover { background: #256ca4; }
QPushButton:focus { border: 2px solid %focus%; padding: 5px 15px; outline: none; }
QPushButton:disabled { background: #eceff3; border: 1px solid #d3d9e0; color: #5d6975; font-weight: normal; }
QDialogButtonBox QPushButton { min-width: 56px; }
QToolButton:focus { border: 2px solid %focus%; border-radius: 4px; }

QTreeView, QListView, QTableView { border: 2px solid #c3cbd5; border-radius: 3px; }
QTreeView:focus, QListView:focus, QTableView:focus { border-color: %focus%; }
QComboBox QAbstractItemView { border: 1px solid #7d8997; border-radius: 0; }
QCalendarWidget QTableView { border: none; }
QHeaderView::section {
    background: #e4e9ef; color: #16212c; padding: 6px 7px; border: none;
    border-right: 1px solid #c3cbd5; border-bottom: 1px solid #c3cbd5; font-weight: 600;
}

QGroupBox { border: 1px solid #c3cbd5; border-radius: 5px; margin-top: 0.9em; padding-top: 0.4em; }
QGroupBox::title { subcontrol-origin: margin; left: 10px; padding: 0 4px; color: #3b4a5a; }

QLabel#lblTitle { font-size: 14pt; font-weight: 600; color: #1d5a8a; }
QFrame#ctlInfo { background: #fffbe6; border: 1px solid #d9c98a; border-radius: 6px; }
QLabel#notice {
    background: #fffbe6; color: #16212c; border: 1px solid #d9c98a; border-radius: 6px; padding: 14px 28px;
    font-weight: 600;
}
QFrame#morningGlance { background: rgba(255, 255, 255, 250); border: 1px solid #c3cbd5; border-radius: 8px; }
QFrame#morningGlance QPushButton { text-align: left; background: transparent; border: 1px solid transparent; }
QFrame#morningGlance QPushButton:hover { background: #eef3f9; }
QFrame#morningGlance QPushButton:focus { border: 2px solid %focus%; }
QToolTip { border: 1px solid #d9c98a; padding: 4px; background: #fffbe6; color: #16212c; }
)"_s;

} // namespace

QColor theme::accent()
{
    return {0x1d, 0x5a, 0x8a};
}

QColor theme::muted()
{
    return {0x5a, 0x66, 0x74};
}

QColor theme::warning()
{
    return {0xb3, 0x26, 0x1e};
}

QColor theme::good()
{
    return {0x1e, 0x7a, 0x46};
}

QColor theme::gold()
{
    return {0x9c, 0x5a, 0x00};
}

QColor theme::focusRing()
{
    return {0xc4, 0x6a, 0x0c};
}

QColor theme::boxOutline()
{
    return {0x6b, 0x77, 0x85};
}

void applyTheme(QApplication &application)
{
    auto *style = new RoomyStyle;
    style->setParent(&application);
    QApplication::setStyle(style);
    QApplication::setPalette(houseColours());
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPointSizeF(qMax(leastPointSize, font.pointSizeF()));
    QApplication::setFont(font);
    // The messages' font is not on every machine; its text is then drawn as all other text is.
    QFont::insertSubstitution(u"MS Sans Serif"_s, font.family());
    application.setStyleSheet(QString(styleSheet).replace(u"%focus%"_s, theme::focusRing().name()));
}
