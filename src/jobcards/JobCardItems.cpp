#include "jobcards/JobCardItems.h"

#include "base/values.h"
#include "jobcards/JobCardStore.h"
#include "jobcards/clsJobCardData.h"
#include "jobcards/frmAddItem.h"
#include "store/lookups.h"
#include "ui/Command.h"
#include "ui/ListView.h"
#include "ui/RowMenu.h"
#include "ui/frmMsg.h"

#include <QBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int itemColumn = 0;
/// `Sr` of a row that the file does not hold yet.
constexpr qint16 neverSaved = 0;

} // namespace

JobCardItems::JobCardItems(clsJobCardData &rows, JobCardStore &store) : m_rows(rows), m_store(store)
{
    buildForm();
    connect(lvItems, &ListView::opened, this, &JobCardItems::editWanted);
    connect(lvItems, &ListView::menuWanted, this, &JobCardItems::openMenu);
    connect(Command4, &Command::clicked, this, &JobCardItems::addWanted);
    connect(Command5, &Command::clicked, this, &JobCardItems::removeRow);
    connect(Command6, &Command::clicked, this, &JobCardItems::clearRows);
    connect(Command10, &Command::clicked, this, &JobCardItems::copyRow);
}

void JobCardItems::buildForm()
{
    lvItems = new ListView(u"lvItems"_s,
        {{u"Item"_s, 30}, {u"Remark"_s, 30}, {u"QTY"_s, 12, true}, {u"FEES"_s, 12, true}, {u"Amount"_s, 12, true}});
    lvItems->setAccessibleName(u"Items"_s);
    lvItems->setEmptyText(u"No items yet.\nAdd (Alt+A) puts in the first."_s);
    Command4 = new Command(u"Command4"_s, u"&Add"_s);
    Command10 = new Command(u"Command10"_s, u"&Copy"_s);
    Command5 = new Command(u"Command5"_s, u"Remove"_s);
    Command6 = new Command(u"Command6"_s, u"Clear"_s);
    auto *commands = new QVBoxLayout;
    for (Command *command : {Command4, Command10, Command5, Command6})
        commands->addWidget(command);
    for (Command *command : {Command10, Command5, Command6})
        command->setFocusPolicy(Qt::ClickFocus);
    commands->addStretch();
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->addWidget(lvItems, 1);
    row->addLayout(commands);
    setFocusProxy(lvItems);
}

QList<QWidget *> JobCardItems::tabOrder() const
{
    return {lvItems, Command4};
}

bool JobCardItems::isEmpty() const
{
    return lvItems->list().rowCount() == 0;
}

bool JobCardItems::hasCurrent() const
{
    return lvItems->currentRow() >= 0;
}

bool JobCardItems::isListFocused() const
{
    return lvItems->hasFocus();
}

void JobCardItems::openMenu(QPoint place)
{
    auto *menu = new RowMenu(this);
    menu->add(u"Open"_s, Qt::Key_Enter, [this] { emit editWanted(); });
    menu->add(u"Copy"_s, Qt::Key_unknown, [this] { copyRow(); });
    menu->add(u"Remove"_s, Qt::Key_Delete, [this] { removeRow(); });
    menu->addSeparator();
    menu->add(u"Clear"_s, Qt::Key_unknown, [this] { clearRows(); });
    menu->open(place);
}

Currency JobCardItems::total() const
{
    Currency total;
    for (int row = 0; row < lvItems->list().rowCount(); ++row)
        total += Currency::fromDouble(lvItems->list().tag(row).toDouble());
    return total;
}

void JobCardItems::showRows()
{
    for (int i = 1; i <= m_rows.RowCount(); ++i) {
        showRow(i - 1, i);
        // As the item is called now; the row keeps the name that it was booked under.
        lvItems->list().setCell(i - 1, itemColumn, GetItemName(m_rows.ItemID(i)));
    }
    lvItems->setCurrentRow(0);
}

void JobCardItems::showRow(int listRow, int index)
{
    ListRow row;
    // The list shows money in two decimals; the total is that of the amounts themselves.
    row.tag = m_rows.Amount(index);
    row.cells = {m_rows.ItemName(index), m_rows.Remarks(index), QString::number(m_rows.Qty(index)),
        Money(m_rows.Fees(index)), Money(m_rows.Amount(index))};
    if (listRow < lvItems->list().rowCount())
        lvItems->list().setRow(listRow, row);
    else
        lvItems->setCurrentRow(lvItems->list().appendRow(row));
}

bool JobCardItems::add(int clientID)
{
    bool cancelled = true;
    frmAddItem().ItemDetails(m_rows, clientID, cancelled);
    if (cancelled)
        return false;
    showRow(lvItems->list().rowCount(), m_rows.RowCount());
    emit changed();
    Command4->setFocus(Qt::OtherFocusReason);
    return true;
}

bool JobCardItems::edit(int clientID)
{
    const int row = lvItems->currentRow();
    bool cancelled = true;
    frmAddItem().EditItemDetails(m_rows, clientID, row + 1, cancelled);
    if (cancelled)
        return false;
    showRow(row, row + 1);
    emit changed();
    return true;
}

void JobCardItems::removeRow()
{
    const int row = lvItems->currentRow();
    if (row < 0)
        return;
    if (const qint16 number = m_rows.Sr(row + 1); number != neverSaved) {
        if (m_store.EditMode() == u"E" && m_store.hasRemovedRows())
            return ShowMessage(u"Please Save the Job Card before removing another Item!"_s);
        m_store.noteRemovedRow(number);
    }
    m_rows.RemoveRow(row + 1);
    lvItems->list().removeRow(row);
    lvItems->setCurrentRow(std::min(row, lvItems->list().rowCount() - 1));
    emit changed();
}

void JobCardItems::copyRow()
{
    const int row = lvItems->currentRow();
    if (row < 0)
        return;
    m_rows.Copy(row + 1);
    showRow(lvItems->list().rowCount(), m_rows.RowCount());
    emit changed();
}

void JobCardItems::clearRows()
{
    // The rows of the card stay and are saved with it: only the list is emptied.
    m_store.forgetRemovedRows();
    lvItems->list().clear();
    if (m_rows.RowCount() > 0)
        lvItems->setEmptyText(u"The list is cleared.\nThe items of the card stay, and are saved with it."_s);
    emit changed();
}
