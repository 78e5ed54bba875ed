#include "ui/NameLabel.h"

#include "ui/fieldTip.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

NameLabel::NameLabel(const QString &name, int most) : m_most(most)
{
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    if (most == 0)
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

QSize NameLabel::sizeHint() const
{
    const QSize whole = QLabel::sizeHint();
    return {std::min(whole.width(), fontMetrics().averageCharWidth() * m_most), whole.height()};
}

QSize NameLabel::minimumSizeHint() const
{
    return sizeHint();
}

bool NameLabel::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QLabel::event(event);
    if (shown() != text())
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), plainTip(text()), this);
    return true;
}

void NameLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    drawFrame(&painter);
    style()->drawItemText(&painter, contentsRect().marginsRemoved({margin(), margin(), margin(), margin()}),
        static_cast<int>(alignment()), palette(), isEnabled(), shown(), foregroundRole());
}

QString NameLabel::shown() const
{
    return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width() - 2 * margin());
}
