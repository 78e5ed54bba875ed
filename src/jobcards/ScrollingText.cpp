#include "jobcards/ScrollingText.h"

#include "ui/theme.h"

#include <QColor>
#include <QLabel>
#include <QPalette>

using namespace Qt::StringLiterals;

namespace {

constexpr int stepPixels = 1;
constexpr int stepMilliseconds = 20;
constexpr int startAt = 786;

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
    m_label->move(8, 6);
    m_timer.setInterval(stepMilliseconds);
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
}

void ScrollingText::restart()
{
    m_label->move(startAt, m_label->y());
}

void ScrollingText::moveOn()
{
    if (m_label->geometry().right() < 0)
        restart();
    else
        m_label->move(m_label->x() - stepPixels, m_label->y());
}

void ScrollingText::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    m_timer.start();
}

void ScrollingText::hideEvent(QHideEvent *event)
{
    m_timer.stop();
    QWidget::hideEvent(event);
}
