#include "ui/ListView.h"

#include "ui/SpillingText.h"
#include "ui/theme.h"
#include "ui/userValues.h"

#include <QContextMenuEvent>
#include <QFontMetrics>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QScopedValueRollback>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int leastColumnWidth = 24;
constexpr int emptyTextMargin = 24;
constexpr int measuredRows = 32;
constexpr qsizetype longestPlainState = 8;
/// As wide as a date in bold letters with a sign before it, and that with the days to it.
const auto shortText = u"00-MMM-0000 MMMM"_s;
const auto longDate = u"00-MMM-0000 (-000 D) MMM"_s;

} // namespace

ListView::ListView(const QString &name, std::vector<ListColumn> columns, QWidget *parent)
    : QTreeView(parent), m_list(new ListModel(std::move(columns), this))
{
    setObjectName(name);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setModel(m_list);
    setItemDelegate(new SpillingText(*this, *m_list));
    header()->setMinimumSectionSize(leastColumnWidth);
    header()->setStretchLastSection(false);
    header()->setTextElideMode(Qt::ElideRight);
    header()->setSectionsMovable(true);
    header()->setFirstSectionMovable(true);
    connect(header(), &QHeaderView::sectionResized, this,
        [this](int column, int, int width) { keepUserWidth(column, width); });
    connect(header(), &QHeaderView::sectionMoved, this, &ListView::keepUserOrder);
    connect(m_list, &ListModel::modelReset, this, [this] {
        measureFirstRows();
        tellEmpty();
        emit currentRowChanged(-1);
    });
    connect(m_list, &ListModel::rowsInserted, this, &ListView::tellEmpty);
    connect(m_list, &ListModel::rowsRemoved, this, &ListView::tellEmpty);
    connect(this, &QTreeView::doubleClicked, this, [this](const QModelIndex &index) { emit opened(index.row()); });
}

void ListView::letSort(SortKept kept)
{
    m_keepsSort = kept == SortKept::ForTheNextTime;
    header()->setSortIndicatorClearable(true);
    header()->setSortIndicator(-1, Qt::AscendingOrder);
    setSortingEnabled(true);
    // The model's arrow is larger.
    header()->setSortIndicatorShown(false);
    // Only now: by then the rows are sorted.
    connect(header(), &QHeaderView::sortIndicatorChanged, this, [this] {
        shareWidth();
        scrollTo(currentIndex());
        keepUserSort();
    });
    header()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header(), &QHeaderView::customContextMenuRequested, this, &ListView::openOrderMenu);
}

void ListView::openOrderMenu()
{
    auto *menu = new QMenu(this);
    menu->setObjectName(u"orderMenu"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const int sorted = header()->sortIndicatorSection();
    for (int place = 0; place < m_list->columnCount(); ++place) {
        const int column = header()->logicalIndex(place);
        QString text = u"&%1   %2"_s.arg(place + 1).arg(m_list->columns()[static_cast<size_t>(column)].title);
        if (column == sorted)
            text += header()->sortIndicatorOrder() == Qt::AscendingOrder ? u"\tascending"_s : u"\tdescending"_s;
        connect(menu->addAction(text), &QAction::triggered, this, [this, column] { sortNext(column); });
    }
    menu->addSeparator();
    connect(menu->addAction(u"&0   The list's own order"_s), &QAction::triggered, this,
        [this] { header()->setSortIndicator(-1, Qt::AscendingOrder); });
    menu->popup(header()->mapToGlobal(QPoint(0, header()->height())));
    menu->setActiveAction(menu->actions().at(sorted < 0 ? 0 : header()->visualIndex(sorted)));
}

void ListView::sortNext(int column)
{
    if (header()->sortIndicatorSection() != column)
        header()->setSortIndicator(column, Qt::AscendingOrder);
    else if (header()->sortIndicatorOrder() == Qt::AscendingOrder)
        header()->setSortIndicator(column, Qt::DescendingOrder);
    else
        header()->setSortIndicator(-1, Qt::AscendingOrder);
}

void ListView::setEmptyText(const QString &text)
{
    m_emptyText = text;
    tellEmpty();
}

void ListView::tellEmpty()
{
    setAccessibleDescription(m_list->isEmpty() ? m_emptyText : QString());
    viewport()->update();
}

int ListView::currentRow() const
{
    return currentIndex().isValid() ? currentIndex().row() : -1;
}

void ListView::setCurrentRow(int row)
{
    setCurrentIndex(row >= 0 && row < model()->rowCount() ? model()->index(row, 0) : QModelIndex());
}

QVariant ListView::currentTag() const
{
    return currentIndex().siblingAtColumn(0).data(Qt::UserRole);
}

void ListView::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Mouse) {
        const QModelIndex under = indexAt(event->pos());
        if (!under.isValid())
            return;
        setCurrentIndex(under);
        return emit menuWanted(event->globalPos());
    }
    if (currentRow() < 0)
        return;
    const QRect row = visualRect(currentIndex());
    emit menuWanted(viewport()->mapToGlobal(row.bottomLeft() + QPoint(row.height(), 0)));
}

void ListView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return QTreeView::keyPressEvent(event);
    if (currentRow() >= 0)
        emit opened(currentRow());
}

void ListView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTreeView::currentChanged(current, previous);
    emit currentRowChanged(current.isValid() ? current.row() : -1);
}

void ListView::paintEvent(QPaintEvent *event)
{
    QTreeView::paintEvent(event);
    if (!m_list->isEmpty())
        return;
    QRect room = viewport()->rect();
    if (const int rows = m_list->rowCount(); rows > 0)
        room.setTop(visualRect(m_list->index(rows - 1, 0)).bottom());
    QPainter painter(viewport());
    painter.setPen(theme::muted());
    painter.drawText(
        room.adjusted(emptyTextMargin, 0, -emptyTextMargin, 0), Qt::AlignCenter | Qt::TextWordWrap, m_emptyText);
}

void ListView::resizeEvent(QResizeEvent *event)
{
    QTreeView::resizeEvent(event);
    shareWidth();
}

void ListView::showEvent(QShowEvent *event)
{
    if (!m_userColumnsRead) {
        m_userColumnsRead = true;
        readUserColumns();
        readUserSort();
    }
    shareWidth();
    QTreeView::showEvent(event);
}

void ListView::readUserColumns()
{
    const QScopedValueRollback arranging(m_arranging, true);
    const QVariantList widths = userValues().value(widthsKey()).toList();
    for (int column = 0; column < widths.size() && column < m_list->columnCount(); ++column) {
        if (const int width = widths.at(column).toInt(); width > 0)
            m_userWidths[column] = width;
    }
    const QVariantList order = userValues().value(orderKey()).toList();
    // One of a list that had other columns means nothing.
    if (order.size() != m_list->columnCount())
        return;
    for (int place = 0; place < order.size(); ++place)
        header()->moveSection(header()->visualIndex(order.at(place).toInt()), place);
}

void ListView::readUserSort()
{
    const QScopedValueRollback arranging(m_arranging, true);
    const QVariantList kept = userValues().value(sortKey()).toList();
    const int column = kept.value(0, -1).toInt();
    if (!letsSort() || !m_keepsSort || kept.size() != 2 || column < 0 || column >= m_list->columnCount())
        return;
    // A list begins with its first row, whichever that is.
    const bool isAtBeginning = currentRow() == 0;
    header()->setSortIndicator(column, kept.at(1).toBool() ? Qt::DescendingOrder : Qt::AscendingOrder);
    if (isAtBeginning)
        setCurrentRow(0);
}

/// Once, so that the columns stand still from one filling to the next: dates and numbers of the first rows, about as
/// many as are seen, and the words of the first one tell what the column needs; long texts don't.
void ListView::measureFirstRows()
{
    if (!m_neededWidths.empty() || m_list->rowCount() == 0)
        return;
    const QFontMetrics letters(header()->font());
    const int longest = letters.horizontalAdvance(longDate);
    const int longestWords = letters.horizontalAdvance(shortText);
    for (int column = 0; column < m_list->columnCount(); ++column) {
        int needed = 0;
        for (int row = 0; row < std::min(measuredRows, m_list->rowCount()); ++row) {
            const QString text = m_list->cell(row, column);
            const bool isFigure = !text.isEmpty() && text.front().isDigit();
            // Of words, those that say where something stands: few, and none of them may be cut.
            const bool isState = text.size() <= longestPlainState || !m_list->at(row).lookOf(column).icon.isNull();
            if (row > 0 && !isFigure && !isState)
                continue;
            const int width = sizeHintForIndex(m_list->index(row, column)).width();
            if (width <= (isFigure ? longest : longestWords))
                needed = std::max(needed, width);
        }
        m_neededWidths.push_back(needed);
    }
    shareWidth();
}

/// The columns that the user left alone share what the others leave, by their percentages. Where that is too little for
/// a column's head or for its short texts, it gets as much as they need, and the others share the rest.
void ListView::shareWidth()
{
    const QScopedValueRollback arranging(m_arranging, true);
    std::map<int, int> widths = m_userWidths;
    int room = viewport()->width();
    double percents = 0;
    for (int column = 0; column < m_list->columnCount(); ++column) {
        if (const auto own = widths.find(column); own != widths.end())
            room -= own->second;
        else
            percents += percentOf(column);
    }
    const auto give = [&](int column, int width) {
        widths[column] = width;
        room -= width;
        percents -= percentOf(column);
    };
    for (int column = 0; column < m_list->columnCount();) {
        const int needed = m_neededWidths.empty() ? 0 : m_neededWidths[static_cast<size_t>(column)];
        const int least = qMax(header()->sectionSizeHint(column), needed);
        if (!widths.contains(column) && room * percentOf(column) / percents < least) {
            give(column, least);
            column = 0;
        } else {
            ++column;
        }
    }
    for (int column = 0; column < m_list->columnCount(); ++column) {
        if (!widths.contains(column))
            give(column, static_cast<int>(room * percentOf(column) / percents));
        header()->resizeSection(column, widths[column]);
    }
}

double ListView::percentOf(int column) const
{
    return m_list->columns()[static_cast<size_t>(column)].percent;
}

void ListView::keepUserWidth(int column, int width)
{
    if (m_arranging || !isVisible())
        return;
    m_userWidths[column] = width;
    shareWidth();
    QVariantList widths;
    for (int i = 0; i < m_list->columnCount(); ++i) {
        const auto own = m_userWidths.find(i);
        widths += own == m_userWidths.end() ? 0 : own->second;
    }
    userValues().setValue(widthsKey(), widths);
}

void ListView::keepUserOrder()
{
    if (m_arranging || !isVisible())
        return;
    QVariantList order;
    for (int place = 0; place < m_list->columnCount(); ++place)
        order += header()->logicalIndex(place);
    userValues().setValue(orderKey(), order);
}

void ListView::keepUserSort()
{
    if (m_arranging || !m_keepsSort || !isVisible())
        return;
    const int column = header()->sortIndicatorSection();
    if (column < 0)
        userValues().remove(sortKey());
    else
        userValues().setValue(sortKey(), QVariantList{column, header()->sortIndicatorOrder() == Qt::DescendingOrder});
}

QString ListView::widthsKey() const
{
    return u"Lists/%1.%2"_s.arg(window()->objectName(), objectName());
}

QString ListView::orderKey() const
{
    return widthsKey() + u".order"_s;
}

QString ListView::sortKey() const
{
    return widthsKey() + u".sort"_s;
}
