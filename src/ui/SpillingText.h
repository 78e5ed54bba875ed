#pragma once

#include <QStyledItemDelegate>

class ListModel;
class QTreeView;

/// Paints the cells of a list. In a line without a tag, which closes the list or says something of it, a text that its
/// column is too narrow for runs on over the empty cells behind it.
class SpillingText : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// REQUIRES: `list` shows `rows`, and is shown no longer than it lives.
    SpillingText(QTreeView &list, const ListModel &rows);

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    /// The cell whose text stands in this one's place: itself, or one before it that reaches over it.
    [[nodiscard]] QModelIndex sourceOf(const QStyleOptionViewItem &option, const QModelIndex &index) const;
    /// How far right the cell's text reaches, at least to its own edge.
    [[nodiscard]] int rightOf(const QStyleOptionViewItem &option, const QModelIndex &index) const;
    /// The next cell as the columns stand on the screen; an invalid index beyond the last.
    [[nodiscard]] QModelIndex beside(const QModelIndex &index, int step) const;

    const QTreeView &m_list;
    const ListModel &m_rows;
};
