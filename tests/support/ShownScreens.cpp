#include "support/ShownScreens.h"

#include "ui/ListView.h"
#include "ui/NameLabel.h"
#include "ui/Screen.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QCalendarWidget>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A part of a control, which the control speaks for.
bool isPart(const QWidget &widget)
{
    const QWidget *const parent = widget.parentWidget();
    if (!parent || parent->isWindow())
        return false;
    // What a screen or a list of fields scrolls is no part of the scrolling.
    const auto *area = qobject_cast<const QScrollArea *>(parent->parentWidget());
    if (area && area->widget() == &widget)
        return false;
    return widget.objectName().startsWith(QLatin1String("qt_")) || qobject_cast<const QComboBox *>(parent)
        || qobject_cast<const QAbstractSpinBox *>(parent) || qobject_cast<const QCalendarWidget *>(parent)
        || parent->inherits("QAbstractScrollArea") || isPart(*parent);
}

bool isSpokenOf(const QWidget &widget)
{
    // What can't have the focus is still read.
    const bool isField = qobject_cast<const QLineEdit *>(&widget) || qobject_cast<const QPlainTextEdit *>(&widget);
    return (widget.focusPolicy() != Qt::NoFocus || isField) && !widget.focusProxy() && !isPart(widget);
}

bool isNameless(QWidget &widget)
{
    const QAccessibleInterface *const spoken = QAccessible::queryAccessibleInterface(&widget);
    return !spoken || spoken->text(QAccessible::Name).trimmed().isEmpty();
}

/// The room that the look leaves to a button's caption is less than it takes as the default command, in bold.
bool isCut(const QPushButton &button)
{
    QStyleOptionButton option;
    option.initFrom(&button);
    const QRect room = button.style()->subElementRect(QStyle::SE_PushButtonContents, &option, &button);
    QFont font = button.font();
    font.setBold(button.isDefault() || font.bold());
    const QSize caption = QFontMetrics(font).size(Qt::TextShowMnemonic, button.text());
    return !button.text().isEmpty() && (room.width() < caption.width() || button.height() < caption.height());
}

bool isCut(const QWidget &widget)
{
    if (const auto *button = qobject_cast<const QPushButton *>(&widget))
        return isCut(*button);
    const auto *label = qobject_cast<const QLabel *>(&widget);
    const bool isCaption = qobject_cast<const QAbstractButton *>(&widget) || (label && !label->text().isEmpty());
    // A name gives way by design, and shows itself whole in a tip; a message measures itself and scrolls.
    const bool isOther = qobject_cast<const NameLabel *>(&widget) || widget.objectName() == QLatin1String("lblMsg");
    if (!isCaption || isOther || isPart(widget))
        return false;
    if (label && label->wordWrap())
        return widget.height() < label->heightForWidth(widget.width());
    const QSize least = widget.minimumSizeHint();
    return widget.width() < least.width() || widget.height() < least.height();
}

/// What is seen of it, in the screen's places.
QRect placeOn(const Screen &screen, const QWidget &widget)
{
    QRect place = widget.rect();
    for (const QWidget *part = &widget; part != &screen; part = part->parentWidget())
        place = place.translated(part->pos()).intersected(part->parentWidget()->rect());
    return place;
}

/// It comes above what is there.
bool isAbove(const QWidget &widget)
{
    const QWidget *const parent = widget.parentWidget();
    const bool isOne = widget.objectName() == QLatin1String("notice") || widget.inherits("ctlInfo")
        || widget.inherits("ListFinder") || widget.inherits("MorningGlance");
    return isOne || (parent && !parent->isWindow() && isAbove(*parent));
}

bool isSeen(const QWidget &widget)
{
    const auto *label = qobject_cast<const QLabel *>(&widget);
    const bool isControl = label ? !label->text().isEmpty() : widget.focusPolicy() != Qt::NoFocus;
    return isControl && widget.isVisible() && !isPart(widget);
}

/// The control that the caption lies over, or none.
const QWidget *under(const Screen &screen, const QLabel &caption)
{
    const auto widgets = screen.findChildren<QWidget *>();
    const auto found = std::ranges::find_if(widgets, [&](const QWidget *widget) {
        return widget != &caption && widget->window() == &screen && isSeen(*widget)
            && isAbove(*widget) == isAbove(caption) && !widget->isAncestorOf(&caption)
            && placeOn(screen, *widget).intersects(placeOn(screen, caption));
    });
    return found == widgets.end() ? nullptr : *found;
}

void warn(const Screen &screen, const char *what, const QWidget &widget)
{
    const auto *label = qobject_cast<const QLabel *>(&widget);
    qWarning("%s %s %s %s %s", qPrintable(screen.objectName()), what, widget.metaObject()->className(),
        qPrintable(widget.objectName()), label ? qPrintable(label->text()) : "");
}

void lookAtKeys(const Screen &screen)
{
    for (const Screen::Key &key : screen.keys()) {
        const auto isSame = [&key](const Screen::Key &other) { return other.key == key.key && !other.applies; };
        const bool isTwice = !key.applies && std::ranges::count_if(screen.keys(), isSame) > 1;
        if (isTwice || key.what.isEmpty())
            qWarning("%s has a key for nothing or two things: %s", qPrintable(screen.objectName()),
                qPrintable(QKeySequence(key.key).toString()));
    }
}

void lookForKey(const Screen &screen, const QString &verb, QKeyCombination wanted)
{
    const auto commands = screen.findChildren<QPushButton *>();
    const bool isCommanded = std::ranges::any_of(commands,
        [&verb](const QPushButton *command) { return (command->text().remove(u'&') + u' ').startsWith(verb + u' '); });
    if (isCommanded && std::ranges::count(screen.keys(), wanted, &Screen::Key::key) == 0)
        qWarning("%s has a command and no key for it: %s", qPrintable(screen.objectName()), qPrintable(verb));
}

} // namespace

bool ShownScreens::eventFilter(QObject *watched, QEvent *event)
{
    if (!watched->isWidgetType())
        return false;
    auto *widget = static_cast<QWidget *>(watched);
    auto *screen = qobject_cast<Screen *>(widget->window());
    if (!screen || screen->objectName().endsWith(QLatin1String("Screen")))
        return false;
    if (event->type() == QEvent::Paint) {
        // Once a text that has just changed got its room.
        QTimer::singleShot(0, widget, [widget, screen, isCutYet = isCut(*widget)] {
            if (isCutYet && widget->isVisible() && isCut(*widget))
                warn(*screen, "cuts", *widget);
            const auto *caption = qobject_cast<QLabel *>(widget);
            if (const QWidget *const other = caption && isSeen(*caption) ? under(*screen, *caption) : nullptr)
                warn(*screen, qPrintable(u"has over "_s + other->objectName()), *caption);
        });
    }
    if (widget == screen && (event->type() == QEvent::Show || event->type() == QEvent::Hide))
        lookAt(*screen);
    return false;
}

void ShownScreens::lookAt(const Screen &screen)
{
    m_seen.insert(screen.objectName());
    lookAtKeys(screen);
    lookForKey(screen, QStringLiteral("Save"), Qt::CTRL | Qt::Key_S);
    lookForKey(screen, QStringLiteral("Print"), Qt::CTRL | Qt::Key_P);
    const auto widgets = screen.findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (widget->window() != &screen)
            continue;
        // A screen reader goes on from a combo to the text in it.
        const auto *combo = qobject_cast<const QComboBox *>(widget);
        const bool isSilent = isNameless(*widget) || (combo && combo->lineEdit() && isNameless(*combo->lineEdit()));
        if (isSpokenOf(*widget) && isSilent)
            warn(screen, "has no name for", *widget);
        // By the time that it goes it was filled.
        const auto *list = qobject_cast<const ListView *>(widget);
        if (list && !screen.isVisible() && list->emptyText().isEmpty())
            warn(screen, "does not say what fills", *widget);
    }
}

QStringList ShownScreens::missing(QStringList screens) const
{
    screens.removeIf([this](const QString &name) { return m_seen.contains(name); });
    return screens;
}
