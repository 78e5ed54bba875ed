#include "ui/fieldTip.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QTimer>
#include <QToolTip>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

/// A tip is drawn this far below the place that it is given.
constexpr int tipOffset = 24;

bool hasOpenList(const QWidget &field)
{
    const auto *combo = qobject_cast<const QComboBox *>(&field);
    return combo && combo->view()->isVisible();
}

} // namespace

QString plainTip(const QString &text)
{
    return u"<p style='white-space:pre'>%1</p>"_s.arg(text.toHtmlEscaped());
}

void showFieldTip(QWidget &field, const QString &text)
{
    QApplication::beep();
    // Once the focus has moved: a change of focus hides the tip.
    QTimer::singleShot(0, &field, [&field, text] {
        const QWidget *const modal = QApplication::activeModalWidget();
        if (!field.isVisible() || (modal && modal != field.window()))
            return;
        const int below = field.height();
        const int above = -tipOffset - field.height();
        QToolTip::showText(field.mapToGlobal(QPoint(0, hasOpenList(field) ? above : below)), text, &field);
    });
}
