#include "masters/MasterList.h"

#include "base/session.h"
#include "base/values.h"
#include "masters/accountTypes.h"
#include "masters/frmEditAccount.h"
#include "masters/frmEditClients.h"
#include "masters/frmEditItem.h"
#include "masters/frmEditWorker.h"
#include "store/DataEnvironment.h"
#include "store/lookups.h"
#include "ui/Command.h"
#include "ui/ListView.h"
#include "ui/boxType.h"
#include "ui/entryKeys.h"
#include "ui/formFields.h"
#include "ui/kvTextBox.h"
#include "ui/language.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

QStringList titlesOfType(const QString &condition)
{
    return FillCombo(u"Title"_s, u"Accounts"_s, condition, DE().rsaccounts);
}

} // namespace

struct MasterList::Kind {
    QString screen;
    QString title;
    QString table;
    QString keyColumn;
    Recordset DataEnvironment::*lookups;
    QStringList (*names)();
    void (*addNew)();
    void (*edit)(int id);
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
            .names = [] { return titlesOfType(u" where Type="_s + QString::number(accountType::Client)); },
            .addNew = [] { frmEditClients().AddNew(); },
            .edit = [](int id) { frmEditClients().Edit(id); },
            .controlAAdds = true},
        {.screen = u"frmWorkers"_s,
            .title = u"Workers"_s,
            .table = u"Accounts"_s,
            .keyColumn = u"Title"_s,
            .lookups = &DataEnvironment::rsaccounts,
            .names = [] { return titlesOfType(u" where Type="_s + QString::number(accountType::Worker)); },
            .addNew = [] { frmEditWorker().AddNew(); },
            .edit = [](int id) { frmEditWorker().Edit(id); }},
        {.screen = u"frmItems"_s,
            .title = u"Items"_s,
            .table = u"Items"_s,
            .keyColumn = u"Name"_s,
            .lookups = &DataEnvironment::rsItems2,
            .names = [] { return FillComboAll(u"Name"_s, u"Name"_s, u"Items"_s, DE().rsITEMS); },
            .addNew = [] { frmEditItem().AddNew(); },
            .edit = [](int id) { frmEditItem().Edit(id); }},
        {.screen = u"frmAccountsList"_s,
            .title = u"Accounts"_s,
            .table = u"Accounts"_s,
            .keyColumn = u"Title"_s,
            .lookups = &DataEnvironment::rsaccounts,
            .names = [] { return titlesOfType(u" where type="_s + QString::number(accountType::Ledger)); },
            .addNew = [] { frmEditAccount().ShowAddNew(); },
            .edit = [](int id) { frmEditAccount().ShowEdit(id); },
            .backCaption = u"Back"_s},
    };
    return kinds[master];
}

MasterList::MasterList(Master master) : Screen(kindOf(master).screen, kindOf(master).title), m_kind(kindOf(master))
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
    connect(txtSearch, &kvTextBox::keyPress, this, [this](int &key) {
        if (key != keys::Enter)
            return;
        key = keys::Swallowed;
        openSelected();
    });
    connect(lstSummary, &ListView::opened, this, &MasterList::openSelected);
    connect(Command1, &Command::clicked, this, &MasterList::addNew);
    connect(Command2, &Command::clicked, this, &QDialog::reject);
}

bool MasterList::keyPreview(QKeyEvent *event)
{
    constexpr int controlA = 1;
    if (!m_kind.controlAAdds || keys::characterCode(*event) != controlA)
        return Screen::keyPreview(event);
    Command1->trigger();
    return true;
}

void MasterList::activated()
{
    if (session::NeedRefresh)
        fill();
    // The next search is typed over the last one.
    txtSearch->selectAll();
}

void MasterList::fill()
{
    // The selection stays with what it was on, also under a new name. Where that is gone, with its neighbour.
    const int row = lstSummary->currentRow();
    QString name = row < 0 ? QString() : lstSummary->list().cell(row, 0);
    if (m_openID > 0) {
        const Value found = GetFieldValueNum(m_kind.keyColumn, m_kind.table, u"ID"_s, m_openID, DE().*m_kind.lookups);
        name = found == Value(-1) ? QString() : found.toText();
    }
    const QStringList names = m_kind.names();
    std::vector<ListRow> rows;
    rows.reserve(static_cast<size_t>(names.size()));
    for (const QString &entry : names)
        rows.push_back({.cells = {entry}});
    // Where the user looks stays in view.
    const int scrolled = lstSummary->verticalScrollBar()->value();
    lstSummary->list().setRows(std::move(rows));
    lstSummary->doItemsLayout();
    lstSummary->verticalScrollBar()->setValue(scrolled);
    if (row >= 0) {
        const int same = rowOf(name);
        lstSummary->setCurrentRow(same >= 0 ? same : qMin(row, static_cast<int>(names.size()) - 1));
    } else if (!txtSearch->Text().isEmpty()) {
        // What was looked for in vain may have been added since.
        search();
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

int MasterList::rowOf(const QString &name) const
{
    const ListModel &list = lstSummary->list();
    for (int row = 0; row < list.rowCount(); ++row) {
        if (list.cell(row, 0) == name)
            return row;
    }
    return -1;
}

void MasterList::openSelected()
{
    const int row = lstSummary->currentRow();
    if (row < 0)
        return;
    const QString name = lstSummary->list().cell(row, 0);
    m_openID = Int16(GetFieldValue(u"ID"_s, m_kind.table, m_kind.keyColumn, name, DE().*m_kind.lookups).toDouble());
    m_kind.edit(m_openID);
    m_openID = 0;
}

void MasterList::addNew()
{
    m_kind.addNew();
    txtSearch->setFocus(Qt::OtherFocusReason);
}
