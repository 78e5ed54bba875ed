#pragma once

#include "base/Currency.h"

#include <QWidget>

class Command;
class JobCardStore;
class ListView;
class clsJobCardData;

/// The items of the open job card as a list, with the commands that change it. The list stays in step with the card's
/// rows, but for "Clear", which empties the list alone.
class JobCardItems : public QWidget {
    Q_OBJECT

public:
    /// REQUIRES: `rows` and `store` outlive the widget.
    JobCardItems(clsJobCardData &rows, JobCardStore &store);

    /// Shows the rows of a card that was just read, each under the name that its item has now.
    void showRows();
    /// Lets the user add an item for that client, or change the current one; false where he cancelled.
    bool add(int clientID);
    bool edit(int clientID);

    /// As "Remove".
    void removeRow();

    [[nodiscard]] bool isEmpty() const;
    /// Whether an item is current.
    [[nodiscard]] bool hasCurrent() const;
    /// Whether the list itself has the focus.
    [[nodiscard]] bool isListFocused() const;
    /// Sum of the amounts in the list.
    [[nodiscard]] Currency total() const;
    [[nodiscard]] Command *addCommand() const { return Command4; }
    /// What Tab goes through here: from the list over "Add" to what follows the items. The other commands are on the
    /// row's menu.
    [[nodiscard]] QList<QWidget *> tabOrder() const;

signals:
    /// "Add" was chosen, or Enter or a double click on an item: the screen knows for which client.
    void addWanted();
    void editWanted();
    /// The amounts may have changed.
    void changed();

private:
    void buildForm();
    void openMenu(QPoint place);
    void showRow(int listRow, int index);
    void copyRow();
    void clearRows();

    clsJobCardData &m_rows;
    JobCardStore &m_store;
    ListView *lvItems;
    Command *Command4;
    Command *Command5;
    Command *Command6;
    Command *Command10;
};
