#include "masters/frmSearchClient.h"

#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/jetsql.h"
#include "store/settings.h"
#include "ui/Command.h"
#include "ui/ListView.h"
#include "ui/boxType.h"
#include "ui/entryFilters.h"
#include "ui/entryKeys.h"
#include "ui/formFields.h"
#include "ui/kvTextBox.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

constexpr int searchesInARow = 2;
const auto howToSearch = u"Type a part of the name, the address, the mobile number or another field.\n"
                         "The clients that have it come here."_s;

} // namespace

frmSearchClient::frmSearchClient() : RegisterScreen(u"frmSearchClient"_s, u"Search Client"_s, Refresh::OnCommand)
{
    buildForm();
    opShowAllUndel->setChecked(settingIsOn(setting::ShowUndelivered));
    connect(opShowAllUndel, &QCheckBox::clicked, this,
        [](bool ticked) { SaveSetting(setting::ShowUndelivered, ticked ? u"1"_s : u"0"_s); });
    connect(Command1, &Command::clicked, this, &frmSearchClient::openCurrent);
    connect(Command2, &Command::clicked, this, &QDialog::reject);
}

void frmSearchClient::buildForm()
{
    const Search searches[]{{u"txtName"_s, u"Name :"_s, u"Title"_s}, {u"txtMobile"_s, u"Mobile :"_s, u"Mobile"_s},
        {u"txtAddress"_s, u"Address :"_s, u"Address"_s}, {u"txtCity"_s, u"City :"_s, u"City"_s},
        {u"txtState"_s, u"State :"_s, u"State"_s}, {u"txtKey"_s, u"Key :"_s, u"Key"_s}};
    auto *grid = new QGridLayout;
    int place = 0;
    for (const Search &search : searches) {
        const int row = place / searchesInARow;
        const int column = place % searchesInARow * 2;
        kvTextBox *box = searchBox(search);
        grid->addWidget(captionOf(box, search.caption), row, column);
        grid->addWidget(box, row, column + 1);
        ++place;
    }
    lvResults = new ListView(u"lvResults"_s, {{u"Name"_s, 30}, {u"Address"_s, 34}, {u"City"_s, 16}, {u"Mobile"_s, 20}});
    lvResults->setAccessibleName(u"Clients"_s);
    lvResults->setEmptyText(howToSearch);
    // Which client comes first, and is taken by Enter, is to be the same tomorrow.
    lvResults->letSort(ListView::SortKept::WhileOpen);
    setRegister(lvResults);

    auto *query = new QGroupBox(u"Alter Query"_s);
    query->setObjectName(u"fmQuery"_s);
    fmQuery = query;
    opShowAllUndel = new QCheckBox(u"Show all jobs"_s);
    opShowAllUndel->setObjectName(u"opShowAllUndel"_s);
    auto *queryRow = new QHBoxLayout(fmQuery);
    queryRow->addWidget(opShowAllUndel);
    fmQuery->hide();

    Command1 = new Command(u"Command1"_s, u"&Ok"_s);
    Command1->setDefault(true);
    Command2 = new Command(u"Command2"_s, u"&Cancel"_s);
    auto *commands = new QHBoxLayout;
    commands->addWidget(fmQuery);
    commands->addStretch();
    commands->addWidget(Command2);
    commands->addWidget(Command1);

    auto *whole = new QVBoxLayout(this);
    whole->addLayout(grid);
    whole->addWidget(lvResults, 1);
    whole->addLayout(commands);
    resize(820, 540);
}

kvTextBox *frmSearchClient::searchBox(const Search &search)
{
    // Searching ignores case; what is typed stays as typed.
    auto *box = new kvTextBox(search.name, boxType::Plain);
    box->setAutoTab(false);
    connect(box, &kvTextBox::changed, this, [this, box, column = search.column] { SearchText(box->Text(), column); });
    connect(box, &kvTextBox::keyDown, this, [this](int &key) { ScrollLV(*lvResults, key); });
    onEnter(box, [this] { openCurrent(); });
    return box;
}

QString frmSearchClient::SearchClient()
{
    m_chosen.clear();
    exec();
    return m_chosen;
}

QString frmSearchClient::SearchClient2(bool &ShowAllUndel)
{
    fmQuery->show();
    const QString title = SearchClient();
    ShowAllUndel = m_showAll;
    return title;
}

void frmSearchClient::SearchText(const QString &text, const QString &column)
{
    std::vector<ListRow> rows;
    if (!text.isEmpty()) {
        Recordset &clients = DE().rsaccounts;
        clients.reopen(u"Select * from Accounts  where type="_s + QString::number(accountType::Client) + u" and "_s
            + column + u" like '%"_s + jetsql::quoted(text) + u"%'"_s);
        rows.reserve(static_cast<size_t>(clients.recordCount()));
        for (; !clients.eof(); clients.moveNext())
            rows.push_back({.cells = {clients.text(u"Title"), clients.textOrEmpty(u"Address"),
                                clients.textOrEmpty(u"City"), clients.textOrEmpty(u"Mobile")},
                .tag = clients.integer(u"ID")});
        clients.close();
    }
    lvResults->setEmptyText(text.isEmpty()
            ? howToSearch
            : u"No client's %1 has \"%2\".\nA shorter part of it, or another field, may find more."_s.arg(
                column.toLower() == u"title" ? u"name"_s : column.toLower(), text));
    // Enter right after the last letter takes the first hit.
    showRows(std::move(rows), Keep::First);
    FindListItem(*lvResults, text);
}

void frmSearchClient::FindListItem(ListView &list, const QString &text)
{
    const QString sought = text.toUpper();
    for (int row = 0; row < list.list().rowCount(); ++row) {
        if (list.list().cell(row, 0).left(text.size()).trimmed().toUpper().contains(sought))
            return list.setCurrentRow(row);
    }
}

void frmSearchClient::ScrollLV(ListView &list, int key)
{
    const int row = list.currentRow();
    if (key == keys::Up && row > 0)
        list.setCurrentRow(row - 1);
    else if (key == keys::Down && row < list.list().rowCount() - 1)
        list.setCurrentRow(row + 1);
}

void frmSearchClient::openRow(const ListRow &row)
{
    m_chosen = row.cells.first();
    m_showAll = opShowAllUndel->isChecked();
    accept();
}
