#pragma once

#include "ui/ListModel.h"

#include <QTreeView>

/// A list of whole rows with one of them current. It has its own `ListModel`. Columns share the width by their
/// percentages and stretch with the window, none narrower than its head; a width that the user gave a column stays, and
/// so does the place that it was dragged to, for the next time too. Where nothing is listed it says why.
class ListView : public QTreeView {
    Q_OBJECT

public:
    /// `name` becomes the object name.
    ListView(const QString &name, std::vector<ListColumn> columns, QWidget *parent = nullptr);

    [[nodiscard]] ListModel &list() const { return *m_list; }

    /// Lets the user sort the rows: a click on a column's head sorts by it, ascending, the next one descending, and the
    /// third brings the list's own order back. Kept for the next time too. Not for a list whose order says something: a
    /// running balance, a sum at its end. REQUIRES: before it is a screen's register.
    void letSort();
    [[nodiscard]] bool letsSort() const { return isSortingEnabled(); }
    /// The columns as a menu, which does what a click on their heads does.
    void openOrderMenu();

    /// What stands in the list's middle, and is read out, while nothing is listed: why, and what brings rows.
    void setEmptyText(const QString &text);
    [[nodiscard]] const QString &emptyText() const { return m_emptyText; }

    /// The current row, or -1. Setting one scrolls to it; -1 or a row that isn't there leaves none current.
    [[nodiscard]] int currentRow() const;
    void setCurrentRow(int row);
    /// Tag of the current row; an invalid one where there is none.
    [[nodiscard]] QVariant currentTag() const;

signals:
    /// Enter or a double click on a row.
    void opened(int row);
    /// -1 where none is current any more.
    void currentRowChanged(int row);
    /// The right mouse button on a row, which is current then, or the menu key on the current one; `place` is on the
    /// monitor.
    void menuWanted(QPoint place);

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;

private:
    void readUserColumns();
    void readUserSort();
    void sortNext(int column);
    void tellEmpty();
    void measureFirstRows();
    void shareWidth();
    [[nodiscard]] double percentOf(int column) const;
    void keepUserWidth(int column, int width);
    void keepUserOrder();
    void keepUserSort();
    [[nodiscard]] QString widthsKey() const;
    [[nodiscard]] QString orderKey() const;
    [[nodiscard]] QString sortKey() const;

    ListModel *m_list;
    QString m_emptyText;
    /// What the texts of the first rows need, by column; none before there was one.
    std::vector<int> m_neededWidths;
    /// Widths that the user gave, by column; in pixels.
    std::map<int, int> m_userWidths;
    /// The program itself moves columns and their edges.
    bool m_arranging = false;
    bool m_userColumnsRead = false;
};
