#include "ui/SpillingText.h"

#include "ui/ListModel.h"

#include <QHeaderView>
#include <QPainter>
#include <QTreeView>

namespace {

bool isEmpty(const QModelIndex &cell)
{
    return cell.data().toString().trimmed().isEmpty();
}

} // namespace

SpillingText::SpillingText(QTreeView &list, const ListModel &rows)
    : QStyledItemDelegate(&list), m_list(list), m_rows(rows)
{
}

void SpillingText::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    if (m_rows.at(index.row()).hasTag())
        return QStyledItemDelegate::paint(painter, option, index);
    // Each cell paints its own part: the list has filled its ground meanwhile.
    const QModelIndex source = sourceOf(option, index);
    QStyleOptionViewItem whole = option;
    whole.rect.setLeft(m_list.visualRect(source).left());
    whole.rect.setRight(rightOf(option, source));
    painter->save();
    painter->setClipRect(option.rect, Qt::IntersectClip);
    QStyledItemDelegate::paint(painter, whole, source);
    painter->restore();
}

QModelIndex SpillingText::sourceOf(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QModelIndex before = index;
    while (before.isValid() && isEmpty(before))
        before = beside(before, -1);
    const bool isReached = before.isValid() && rightOf(option, before) >= m_list.visualRect(index).right();
    return isReached ? before : index;
}

int SpillingText::rightOf(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    int right = m_list.visualRect(index).right();
    if (m_rows.columns()[static_cast<size_t>(index.column())].numeric)
        return right;
    const int needed = m_list.visualRect(index).left() + sizeHint(option, index).width();
    QModelIndex next = beside(index, 1);
    for (; right < needed && next.isValid() && isEmpty(next); next = beside(next, 1))
        right = m_list.visualRect(next).right();
    return right;
}

QModelIndex SpillingText::beside(const QModelIndex &index, int step) const
{
    const QHeaderView &header = *m_list.header();
    const int column = header.logicalIndex(header.visualIndex(index.column()) + step);
    return column < 0 ? QModelIndex() : index.siblingAtColumn(column);
}
