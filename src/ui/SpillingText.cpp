#include "ui/SpillingText.h"

#include "ui/ListModel.h"

#include <QHeaderView>
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
    if (isEmpty(index) && isCovered(option, index))
        return;
    QStyleOptionViewItem wide = option;
    wide.rect.setRight(rightOf(option, index));
    QStyledItemDelegate::paint(painter, wide, index);
}

int SpillingText::rightOf(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QRect own = m_list.visualRect(index);
    int right = own.right();
    if (m_rows.columns()[static_cast<size_t>(index.column())].numeric)
        return right;
    const int needed = own.left() + sizeHint(option, index).width();
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

bool SpillingText::isCovered(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QModelIndex before = beside(index, -1);
    while (before.isValid() && isEmpty(before))
        before = beside(before, -1);
    return before.isValid() && rightOf(option, before) >= m_list.visualRect(index).right();
}
