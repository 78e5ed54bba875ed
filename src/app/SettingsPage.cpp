#include "app/SettingsPage.h"

#include "ui/formFields.h"

#include <QGridLayout>
#include <QLabel>

SettingsPage::SettingsPage(QWidget *page) : m_page(page), m_grid(new QGridLayout(page))
{
    m_grid->setContentsMargins(18, 16, 18, 12);
}

void SettingsPage::add(const QString &caption, QWidget *field, const QString &hint)
{
    addField(*m_grid, m_grid->rowCount(), caption, field);
    addHint(hint);
}

void SettingsPage::add(QWidget *field, const QString &hint)
{
    m_grid->addWidget(field, m_grid->rowCount(), 1);
    addHint(hint);
}

void SettingsPage::addNote(const QString &note)
{
    m_grid->addWidget(hintLabel(note), m_grid->rowCount(), 0, 1, 2);
}

QWidget *SettingsPage::finished()
{
    m_grid->setColumnStretch(1, 1);
    m_grid->setRowStretch(m_grid->rowCount(), 1);
    return m_page;
}

QWidget *SettingsPage::together(QWidget *field, const QList<QWidget *> &others)
{
    auto *all = new QWidget;
    auto *row = new QHBoxLayout(all);
    row->setContentsMargins({});
    row->addWidget(field, 1);
    for (QWidget *other : others)
        row->addWidget(other);
    all->setFocusProxy(field);
    return all;
}

QWidget *SettingsPage::inRow(const QList<QWidget *> &controls)
{
    auto *all = new QWidget;
    auto *row = new QHBoxLayout(all);
    row->setContentsMargins({});
    for (QWidget *control : controls)
        row->addWidget(control);
    row->addStretch();
    all->setFocusProxy(controls.first());
    return all;
}

void SettingsPage::addHint(const QString &hint)
{
    if (hint.isEmpty())
        return;
    QLabel *label = hintLabel(hint);
    label->setContentsMargins(2, -m_grid->verticalSpacing() / 2, 0, 0);
    m_grid->addWidget(label, m_grid->rowCount(), 1);
}
