#include "masters/MasterList.h"

#include "base/session.h"
#include "base/values.h"
#include "masters/frmEditAccount.h"
#include "masters/frmEditClients.h"
#include "masters/frmEditItem.h"
#include "masters/frmEditWorker.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/lookups.h"
#include "ui/Command.h"
#include "ui/ListView.h"
#include "ui/accountCombo.h"
#include "ui/boxType.h"
#include "ui/complain.h"
#include "ui/entryFilters.h"
#include "ui/entryKeys.h"
#include "ui/formFields.h"
#include "ui/kvTextBox.h"
#include "ui/language.h"

#include <QBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

struct MasterList::Kind {
    QString screen;
    QString title;
    QString table;
    QString keyColumn;
    Recordset DataEnvironment::*lookups;
    QStringList (*names)();
    void (*addNew)();
    void (*edit)(int id);
    QString emptyText;
    QString backCaption = u"&Back"_s;
    bool controlAAdds = false;
};

const MasterList::Kind &MasterList::kindOf(Master master)
{
    static const Kind kinds[]{
        {.screen = u"frmClients"_s,
            .title = u"Clients"_s,
            .table = u"Accounts"_s,
            .keyColumn = u"Title"_s,
            .lookups = &DataEnvironment::rsaccounts,
            .names = [] { return accountTitles(u" where Type="_s + QString::number(accountType::Client)); },
            .addNew = [] { frmEditClients().AddNew(); },
            .edit = [](int id) { frmEditClients().Edit(id); },
            .emptyText = u"No clients yet.\nAdd New (Ctrl+A) writes the first."_s,
            .controlAAdds = true},
        {.screen = u"frmWorkers"_s,
            .title = u"Workers"_s,
            .table = u"Accounts"_s,
            .keyColumn = u"Title"_s,
            .lookups = &DataEnvironment::rsaccounts,
            .names = [] { return accountTitles(u" where Type="_s + QString::number(accountType::Worker)); },
            .addNew = [] { frmEditWorker().AddNew(); },
            .edit = [](int id) { frmEditWorker().Edit(id); },
            .emptyText = u"No workers yet.\nAdd New (Alt+A) writes the first."_s},
        {.screen = u"frmItems"_s,
            .title = u"Items"_s,
            .table = u"Items"_s,
            .keyColumn = u"Name"_s,
            .lookups = &DataEnvironment::rsItems2,
            .names = [] { return FillComboAll(u"Name"_s, u"Name"_s, u"Items"_s, DE().rsITEMS); },
            .addNew = [] { frmEditItem().AddNew(); },
            .edit = [](int id) { frmEditItem().Edit(id); },
            .emptyText = u"No items yet.\n"
                         "Add New (Alt+A) writes the first: what the shop makes, its charge and its measurements."_s},
        {.screen = u"frmAccountsList"_s,
            .title = u"Accounts"_s,
            .table = u"Accounts"_s,
            .keyColumn = u"Title"_s,
            .lookups = &DataEnvironment::rsaccounts,
            .names = [] { return accountTitles(u" where type="_s + QString::number(accountType::Ledger)); },
            .addNew = [] { frmEditAccount().ShowAddNew(); },
            .edit = [](int id) { frmEditAccount().ShowEdit(id); },
            .emptyText = u"No accounts yet.\nAdd New (Alt+A) writes the first."_s,
            .backCaption = u"Back"_s},
    };
    return kinds[master];
}

MasterList::MasterList(Master master)
    : RegisterScreen(kindOf(master).screen, kindOf(master).title, Refresh::WhenNeeded), m_kind(kindOf(master))
{
    buildForm();
    connectCommands();
    TranslateForm(*this);
    session::NeedRefresh = true;
}

void MasterList::buildForm()
{
    // Searching ignores case; what is typed stays as typed.
    txtSearch = new kvTextBox(u"txtSearch"_s, boxType::Plain);
    txtSearch->setAutoTab(false);
    lstSummary = new ListView(u"lstSummary"_s, {{m_kind.title, 100}});
    lstSummary->setHeaderHidden(true);
    lstSummary->setAccessibleName(m_kind.title);
    lstSummary->setEmptyText(m_kind.emptyText);
    setRegister(lstSummary);
    Command1 = new Command(u"Command1"_s, u"&Add New"_s);
    Command1->setDefault(true);
    Command2 = new Command(u"Command2"_s, m_kind.backCaption);

    auto *head = new QHBoxLayout;
    head->addWidget(captionOf(txtSearch, u"Sea&rch :"_s));
    head->addWidget(txtSearch, 1);
    auto *commands = new QHBoxLayout;
    commands->addWidget(Command2);
    commands->addStretch();
    commands->addWidget(Command1);
    auto *form = new QVBoxLayout(this);
    form->addLayout(head);
    form->addWidget(lstSummary, 1);
    form->addLayout(commands);
    resize(420, 480);
    chainTabs({lstSummary, Command1, Command2});
}

void MasterList::connectCommands()
{
    connect(txtSearch, &kvTextBox::changed, this, &MasterList::search);
    connect(txtSearch, &kvTextBox::keyDown, this, [this](int &key) { key = ListNavKeys(*lstSummary, key); });
    onEnter(txtSearch, [this] { openCurrent(); });
    connect(Command1, &Command::clicked, this, &MasterList::addNew);
    connect(Command2, &Command::clicked, this, &QDialog::reject);
    if (m_kind.controlAAdds)
        onKey(Qt::CTRL | Qt::Key_A, u"Add New"_s, [this] { Command1->trigger(); });
}

void MasterList::activated()
{
    RegisterScreen::activated();
    // The next search is typed over the last one.
    txtSearch->selectAll();
}

void MasterList::refill()
{
    const QStringList names = m_kind.names();
    std::vector<ListRow> rows;
    rows.reserve(static_cast<size_t>(names.size()));
    for (const QString &entry : names)
        rows.push_back({.cells = {entry}, .tag = entry});
    const bool hadNone = lstSummary->currentRow() < 0;
    showRows(std::move(rows), Keep::Tag);
    // What was looked for in vain may have been added since.
    if (hadNone && !txtSearch->Text().isEmpty())
        return search();
    // What was edited may have got another name.
    if (m_openID > 0) {
        const Value name = GetFieldValueNum(m_kind.keyColumn, m_kind.table, u"ID"_s, m_openID, DE().*m_kind.lookups);
        if (const int row = lstSummary->list().rowOfTag(name.toText()); row >= 0)
            lstSummary->setCurrentRow(row);
    }
}

void MasterList::search()
{
    lstSummary->setCurrentRow(rowBeginningWith(txtSearch->Text()));
    // With the others that begin so in view below it.
    lstSummary->scrollTo(lstSummary->currentIndex(), QAbstractItemView::PositionAtTop);
}

int MasterList::rowBeginningWith(const QString &text) const
{
    const ListModel &list = lstSummary->list();
    for (int row = 0; row < list.rowCount(); ++row) {
        if (list.cell(row, 0).startsWith(text, Qt::CaseInsensitive))
            return row;
    }
    return -1;
}

void MasterList::openRow(const ListRow &row)
{
    const double id =
        GetFieldValue(u"ID"_s, m_kind.table, m_kind.keyColumn, row.cells.first(), DE().*m_kind.lookups).toDouble();
    if (id < 0)
        return complain(u"Another program has deleted or renamed \"%1\"."_s.arg(row.cells.first()));
    m_openID = Int16(id);
    m_kind.edit(m_openID);
    m_openID = 0;
}

void MasterList::addNew()
{
    m_kind.addNew();
    txtSearch->setFocus(Qt::OtherFocusReason);
}
