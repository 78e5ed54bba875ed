#include "jobcards/ScrollingText.h"

#include "ui/fieldTip.h"
#include "ui/theme.h"

#include <QColor>
#include <QLabel>
#include <QPalette>

using namespace Qt::StringLiterals;

namespace {

constexpr int stepPixels = 1;
constexpr int stepMilliseconds = 20;
/// Quickly in, so that it is soon read.
constexpr int comingPixels = 32;
constexpr int home = 8;
constexpr int startAt = 786;
/// How long it stands: all of it is read, or as much as there is room for.
constexpr int wholeMilliseconds = 15000;
constexpr int partMilliseconds = 4000;

} // namespace

ScrollingText::ScrollingText(const QString &labelName, QWidget *parent) : QWidget(parent), m_label(new QLabel(this))
{
    m_label->setObjectName(labelName);
    m_label->setTextFormat(Qt::PlainText);
    QFont font = m_label->font();
    font.setBold(true);
    m_label->setFont(font);
    QPalette band = palette();
    band.setColor(QPalette::Window, theme::accent());
    band.setColor(QPalette::WindowText, Qt::white);
    setPalette(band);
    setAutoFillBackground(true);
    m_label->setPalette(band);
    setFixedHeight(m_label->fontMetrics().height() + 12);
    m_label->move(home, 6);
    connect(&m_timer, &QTimer::timeout, this, &ScrollingText::moveOn);
}

QString ScrollingText::text() const
{
    return m_label->text();
}

void ScrollingText::setText(const QString &text)
{
    m_label->setText(text);
    m_label->adjustSize();
    setToolTip(plainTip(text));
    stand();
}

void ScrollingText::restart()
{
    m_label->move(std::max(startAt, width()), m_label->y());
    m_isComing = true;
    m_timer.setInterval(stepMilliseconds);
}

void ScrollingText::stand()
{
    m_label->move(home, m_label->y());
    m_isComing = false;
    m_timer.setInterval(m_label->geometry().right() < width() ? wholeMilliseconds : partMilliseconds);
}

void ScrollingText::moveOn()
{
    m_timer.setInterval(stepMilliseconds);
    if (m_label->geometry().right() < 0)
        return restart();
    m_label->move(m_label->x() - (m_isComing ? comingPixels : stepPixels), m_label->y());
    if (m_isComing && m_label->x() <= home)
        stand();
}

void ScrollingText::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    stand();
    m_timer.start();
}

void ScrollingText::hideEvent(QHideEvent *event)
{
    m_timer.stop();
    QWidget::hideEvent(event);
}
