#pragma once

#include "ui/RegisterScreen.h"

class Command;
class ListView;
class kvTextBox;

/// The list of a master: names alone, a search box that moves the selection, and the way to the editor. One design for
/// all four, which differ by a row of a table.
class MasterList : public RegisterScreen {
    Q_OBJECT

protected:
    enum Master { Clients, Workers, Items, Accounts };
    explicit MasterList(Master master);

    void activated() override;
    void refill() override;
    void openRow(const ListRow &row) override;

private:
    struct Kind;
    [[nodiscard]] static const Kind &kindOf(Master master);
    void buildForm();
    void connectCommands();
    void search();
    /// The row that begins with `text`, in any case; -1 where none does.
    [[nodiscard]] int rowBeginningWith(const QString &text) const;
    void addNew();

    const Kind &m_kind;
    kvTextBox *txtSearch;
    ListView *lstSummary;
    Command *Command1;
    Command *Command2;
    /// The one that the editor is open on, 0 where none is.
    int m_openID = 0;
};

class frmClients : public MasterList {
    Q_OBJECT

public:
    frmClients() : MasterList(Clients) { }
};

class frmWorkers : public MasterList {
    Q_OBJECT

public:
    frmWorkers() : MasterList(Workers) { }
};

class frmItems : public MasterList {
    Q_OBJECT

public:
    frmItems() : MasterList(Items) { }
};

class frmAccountsList : public MasterList {
    Q_OBJECT

public:
    frmAccountsList() : MasterList(Accounts) { }
};
