#include "registers/frmWorkerJobRegister.h"

#include "accounts/PiecesPanel.h"
#include "accounts/frmAccountBook.h"
#include "base/balanceText.h"
#include "base/session.h"
#include "base/values.h"
#include "comms/modSMS.h"
#include "masters/frmSearchClient.h"
#include "production/assignment.h"
#include "production/frmEditWorkerAssign.h"
#include "production/frmWorkerReport2.h"
#include "production/itemRowMarks.h"
#include "production/rowGone.h"
#include "registers/dueLook.h"
#include "registers/itemRowCells.h"
#include "registers/openJobCard.h"
#include "registers/selectScanned.h"
#include "registers/undoMark.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/itemRows.h"
#include "store/lookups.h"
#include "ui/Command.h"
#include "ui/ListView.h"
#include "ui/NameLabel.h"
#include "ui/PeriodFields.h"
#include "ui/accountCombo.h"
#include "ui/boxType.h"
#include "ui/complain.h"
#include "ui/entryFilters.h"
#include "ui/formFields.h"
#include "ui/frmMsg.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"
#include "ui/listFilter.h"
#include "ui/modAutoSearch.h"
#include "ui/platformBox.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

namespace column {
enum { Date, Job, Client, Quantity, Item, Remark, Delivery, Worker, Cutting, Status, Location, Balance, Count };
}

const auto all = u"*All"_s;
const auto assigned = u"Assigned"_s;
const auto notAssigned = u"Not Assigned"_s;
const auto cuttingDone = u"Cutting Done"_s;
const auto cuttingNotDone = u"Cutting Not Done"_s;
const auto jobHandedOver = u"Job Card as Delivered to Client"_s;
const auto nobody = u"-1000"_s;
const auto noWorkerChosen = u"Please Select Worker Name!"_s;
constexpr size_t closingRows = 2;

QStringList conditions()
{
    QStringList words{all};
    for (const int status : {rowStatus::Completed, rowStatus::Uncompleted, rowStatus::Delivered, rowStatus::Alteration,
             rowStatus::Canceled})
        words += rowStatus::word(status);
    return words + QStringList{assigned, notAssigned, cuttingDone, cuttingNotDone};
}

std::vector<ListColumn> columns()
{
    return {{u"Date"_s, 9}, {u"JOB ID"_s, 5.2}, {u"Client Name"_s, 11}, {u"Qty"_s, 3.4, true}, {u"Item Name"_s, 9},
        {u"Remark"_s, 6.6}, {u"Del. Date"_s, 14.8}, {u"Worker Name"_s, 9.2}, {u"Cutting"_s, 6.6}, {u"Status"_s, 11},
        {u"Location"_s, 6.4}, {u"Balance"_s, 8.6, true}};
}

void closeWithTotal(std::vector<ListRow> &rows)
{
    closeWithCount(rows,
        {.columns = column::Count,
            .column = column::Client,
            .words = u"Total JOBS : "_s,
            .looks = {{column::Client, {.bold = true}}}});
}

void keepStatus(std::vector<ListRow> &rows, const QString &word)
{
    keepRows(rows, column::Status, [&word](const QString &text) { return text == word; });
    closeWithTotal(rows);
}

void keepCutting(std::vector<ListRow> &rows, const QString &word)
{
    const QString kept = cutting::word(word == cuttingDone ? cutting::Done : cutting::NotDone);
    keepRows(rows, column::Cutting, [&kept](const QString &text) { return text == kept; });
    closeWithTotal(rows);
}

void keepAssigned(std::vector<ListRow> &rows, const QString &word)
{
    const bool wanted = word == assigned;
    keepRows(
        rows, column::Worker, [wanted](const QString &worker) { return (worker != assignment::noWorker()) == wanted; });
    keepRows(rows, column::Job, [](const QString &job) { return job != u" "_s; });
    closeWithTotal(rows);
}

void keepCondition(std::vector<ListRow> &rows, const QString &word)
{
    if (word == all)
        return;
    if (word == assigned || word == notAssigned)
        return keepAssigned(rows, word);
    if (word == cuttingDone || word == cuttingNotDone)
        return keepCutting(rows, word);
    keepStatus(rows, word);
}

QRadioButton *option(const QString &name, const QString &caption)
{
    auto *button = new QRadioButton(caption);
    button->setObjectName(name);
    return button;
}

/// Two options of which one is on, the first to begin with.
QLayout *eitherOf(QRadioButton *first, QRadioButton *second)
{
    auto *group = new QButtonGroup(first);
    group->addButton(first);
    group->addButton(second);
    first->setChecked(true);
    auto *row = new QHBoxLayout;
    row->addWidget(first);
    row->addWidget(second);
    return row;
}

/// The account in that column of the row's record; 0 where the row is gone.
qint32 accountOfRow(const ListRow &row, const QString &column)
{
    Recordset record(DE().CN);
    record.open(u"Select * from JOBS_DETAIL where id="_s + QString::number(row.tag.toInt()));
    return record.eof() ? 0 : record.integer(column);
}

/// "10-Apr-2011 (-3 D)".
QString daysLeft(QDate promised)
{
    return u"%1 (%2 D)"_s.arg(DayMonthYear(promised)).arg(session::CurrentDate.daysTo(promised));
}

QString cuttingWord(const Recordset &record)
{
    return record.isNull(u"CuttingStatus") ? QString() : cutting::word(record.integer(u"CuttingStatus"));
}

/// Balances of clients at the working date, each worked out once.
class Balances {
public:
    const QString &of(int client)
    {
        auto known = m_texts.find(client);
        if (known == m_texts.end())
            known = m_texts.insert(client, balanceText::inRegister(GetAccountBalance(client, session::CurrentDate)));
        return *known;
    }

private:
    QHash<int, QString> m_texts;
};

ListRow rowOf(const Recordset &record, Balances &balances)
{
    const int client = record.integer(u"ClintID");
    const int status = record.integer(u"DoneByWorker");
    const QDate promised = record.date(u"JobDelDate");
    ListRow row;
    row.tag = record.integer(u"Id");
    row.cells.reserve(column::Count);
    row.cells << DayMonthYear(record.date(u"Date")) << itemRowCells::job(record) << titleOrBlank(client)
              << QString::number(record.integer(u"QNT")) << itemNameOrBlank(record.integer(u"ItemID"))
              << record.textOrEmpty(u"Remarks") << daysLeft(promised)
              << itemRowCells::worker(record.integer(u"WorkerID")) << cuttingWord(record) << rowStatus::word(status)
              << (record.isNull(u"Loc") ? u" "_s : record.text(u"Loc")) << balances.of(client);
    if (itemRowCells::isOpen(status))
        row.looks.emplace_back(column::Delivery, dueLook(promised));
    row.looks.emplace_back(column::Status, CellLook{.icon = itemRowCells::statusSign(status)});
    return row;
}

int jobNumber(const ListRow &row)
{
    return Int32(Val(row.cells.value(column::Job)));
}

} // namespace

frmWorkerJobRegister::frmWorkerJobRegister()
    : RegisterScreen(u"frmWorkerJobRegister"_s, u"JOB Register"_s, Refresh::WhenNeeded), mode(u"C"_s)
{
    buildForm();
    connectCommands();
    setMarks();
    m_period->setShopDefault();
    fillWorkers();
    setComboText(*cmbClient, all);
    ExecuteSQL();
    lvSummary->setFocus();
}

void frmWorkerJobRegister::buildForm()
{
    auto *whole = new QVBoxLayout(this);
    whole->addLayout(buildQuery());
    whole->addLayout(buildSearch());
    whole->addLayout(buildLists(), 1);
    whole->addLayout(buildCommands());
    useRoom({1320, 680});

    chainTabs(m_period->fields()
        + QList<QWidget *>{opDt1, opDt2, OpInc, OpDesc, cmbClient, cmbCondition, txtSearchID, lvSummary}
        + m_pieces->fields() + QList<QWidget *>{Command1, Command3, Command8, Command4});
}

QLayout *frmWorkerJobRegister::buildQuery()
{
    m_period = new PeriodFields;
    opDt1 = option(u"opDt1"_s, u"Find Range : Job Date"_s);
    opDt2 = option(u"opDt2"_s, u"Find Range : Delivery  Date"_s);
    OpInc = option(u"OpInc"_s, u"Increasing order"_s);
    OpDesc = option(u"OpDesc"_s, u"Decreasing order"_s);
    auto *row = new QHBoxLayout;
    row->addWidget(m_period);
    row->addSpacing(18);
    row->addLayout(eitherOf(opDt1, opDt2));
    row->addSpacing(18);
    row->addLayout(eitherOf(OpInc, OpDesc));
    row->addStretch();
    return row;
}

QLayout *frmWorkerJobRegister::buildSearch()
{
    cmbClient = accountCombo(u"cmbClient"_s);
    cmbClient->setMinimumContentsLength(20);
    cmbCondition = new kvComboBox(u"cmbCondition"_s);
    cmbCondition->setEditable(false);
    cmbCondition->addItems(conditions());
    txtSearchID = new kvTextBox(u"txtSearchID"_s, boxType::Plain);
    txtSearchID->setAutoTab(false);
    txtSearchID->setMaximumWidth(120);
    lblListed = new NameLabel(u"lblListed"_s);
    auto *row = new QHBoxLayout;
    row->addWidget(captionOf(cmbClient, u"&Worker :"_s));
    row->addWidget(cmbClient);
    row->addSpacing(18);
    row->addWidget(captionOf(cmbCondition, u"&Sort :"_s));
    row->addWidget(cmbCondition);
    row->addSpacing(18);
    row->addWidget(captionOf(txtSearchID, u"&Job ID #"_s));
    row->addWidget(txtSearchID);
    row->addSpacing(18);
    row->addWidget(lblListed, 1);
    return row;
}

QLayout *frmWorkerJobRegister::buildLists()
{
    lvSummary = new ListView(u"lvSummary"_s, columns());
    lvSummary->setAccessibleName(windowTitle());
    lvSummary->list().setToolTips([](const ListRow &row, int cell) {
        return cell == column::Client ? GetContactLine(Int16(accountOfRow(row, u"ClintID"_s)))
            : cell == column::Worker  ? GetContactLine(Int16(accountOfRow(row, u"WorkerID"_s)))
                                      : QString();
    });
    setRegister(lvSummary);

    m_pieces = new PiecesPanel(u"Qty"_s, *lvSummary);
    auto *row = new QHBoxLayout;
    row->addWidget(lvSummary, 1);
    row->addWidget(m_pieces);
    return row;
}

QLayout *frmWorkerJobRegister::buildCommands()
{
    Command1 = new Command(u"Command1"_s, u"&Details"_s);
    Command3 = new Command(u"Command3"_s, u"&Overview"_s);
    Command8 = new Command(u"Command8"_s, u"&Quick Find"_s);
    Command4 = new Command(u"Command4"_s, u"&View"_s);
    Command4->setDefault(true);
    auto *row = new QHBoxLayout;
    row->addWidget(Command1);
    row->addWidget(Command3);
    row->addStretch();
    row->addWidget(Command8);
    row->addWidget(Command4);
    return row;
}

void frmWorkerJobRegister::connectCommands()
{
    setPeriod(m_period, Command4);
    onEnter(cmbClient, [this] { view(); });
    onEnter(txtSearchID, [this] { searchJob(); });
    connect(txtSearchID, &kvTextBox::changed, this, [this] {
        if (txtSearchID->Text().isEmpty())
            mode = u"C"_s;
    });
    connect(cmbCondition, &QComboBox::activated, this, &frmWorkerJobRegister::filterChosen);
    connect(Command4, &Command::clicked, this, &frmWorkerJobRegister::view);
    connect(Command8, &Command::clicked, this, &frmWorkerJobRegister::quickFind);
    connect(Command1, &Command::clicked, m_pieces, &PiecesPanel::open);
    connect(Command3, &Command::clicked, this, &frmWorkerJobRegister::overview);
    onKey(Qt::CTRL | Qt::Key_D, u"Details"_s, [this] { Command1->trigger(); });
    onKey(Qt::CTRL | Qt::Key_F, u"Quick Find"_s, [this] { Command8->trigger(); });
    onKey(
        Qt::CTRL | Qt::Key_O, u"Order of the details"_s, [this] { m_pieces->openOrderMenu(); },
        [this] { return m_pieces->isVisible(); });
}

void frmWorkerJobRegister::setMarks()
{
    using Write = std::function<std::optional<MarkedRows>(const ListRow &row)>;
    const auto mark = [this](const QString &caption, QKeyCombination key, const Write &write) {
        return RowAction{caption, key, caption + u'?',
            [this, caption, write](const ListRow &row) { afterMark(caption, row, write(row)); }};
    };
    const auto withLocation = [](int status) {
        return [status](const ListRow &row) {
            const QString location = platformBox::askText(u"Please specify location!"_s, u"Kovrel"_s);
            return itemRowMarks::status(row.tag.toInt(), status, session::CurrentDate, location);
        };
    };
    setRowActions({
        mark(u"Mark Item as Cutting Done"_s, Qt::Key_F6,
            [](const ListRow &row) { return itemRowMarks::cuttingDone(row.tag.toInt()); }),
        mark(u"Mark Item as Completed"_s, Qt::Key_F7, withLocation(rowStatus::Completed)),
        mark(u"Mark Item as Alteration"_s, Qt::Key_unknown, withLocation(rowStatus::Alteration)),
        mark(u"Mark Item as Delivered to Client"_s, Qt::Key_F8,
            [](const ListRow &row) {
                return itemRowMarks::status(row.tag.toInt(), rowStatus::Delivered, session::CurrentDate);
            }),
        mark(jobHandedOver, Qt::CTRL | Qt::Key_F8,
            [](const ListRow &row) { return itemRowMarks::jobDelivered(jobNumber(row), session::CurrentDate); }),
        {},
        {u"Open Job Card"_s, Qt::Key_F3, {}, [](const ListRow &row) { openJobCard(jobNumber(row)); }},
        {u"Open Client Account"_s, Qt::Key_F2, {}, [this](const ListRow &row) { openAccount(row); }},
    });
}

void frmWorkerJobRegister::ExecuteSQL()
{
    showRows(readRows(), Keep::First);
}

void frmWorkerJobRegister::RemoveUnwanted(const QString &word)
{
    keepFiltered([&word](std::vector<ListRow> &rows) { keepStatus(rows, word); });
}

void frmWorkerJobRegister::RemoveUnwanted2(const QString &word)
{
    keepFiltered([&word](std::vector<ListRow> &rows) { keepCutting(rows, word); });
}

void frmWorkerJobRegister::RemoveUnwanted3(const QString &word)
{
    keepFiltered([&word](std::vector<ListRow> &rows) { keepAssigned(rows, word); });
}

qint32 frmWorkerJobRegister::GetItemWiseDetails(qint16 itemID) const
{
    return Int32(static_cast<double>(m_quantities.value(itemID)));
}

qint32 frmWorkerJobRegister::GetItemWiseDetails2(qint16 itemID) const
{
    return GetItemWiseDetails(itemID);
}

void frmWorkerJobRegister::refill()
{
    filterChosen();
}

void frmWorkerJobRegister::filterChosen()
{
    std::vector<ListRow> rows = readRows();
    const QString condition = cmbCondition->currentText();
    keepCondition(rows, condition);
    tellWhatIsListed(condition);
    showRows(std::move(rows), Keep::Place);
}

void frmWorkerJobRegister::keepFiltered(const std::function<void(std::vector<ListRow> &rows)> &filter)
{
    std::vector<ListRow> rows = lvSummary->list().rows();
    filter(rows);
    showRows(std::move(rows), Keep::Tag);
}

void frmWorkerJobRegister::fillWorkers()
{
    fillWithTitles(*cmbClient, u" where type="_s + QString::number(accountType::Worker), all);
}

/// Whose garments are asked for. One who is gone by that name since then is listed on by his number.
void frmWorkerJobRegister::findAccount()
{
    if (mode == u"C"_s || mode == u"SID"_s)
        return;
    const QString title = mode == u"S"_s ? cmbClient->Text() : m_client;
    if (const auto account = findAccountID(title)) {
        m_account = *account;
        m_whom = title;
    }
}

QString frmWorkerJobRegister::statement() const
{
    const QString rows = u"Select * from JOBS_Detail where isInventory=0 and "_s;
    const QString order = u" order by "_s + dateColumn + u' ' + sortOrder + u", JobID"_s;
    const QString period = m_period->between() + order;
    if (mode == u"SID"_s)
        return rows + u"JOBid="_s + NumberText(Val(txtSearchID->Text()));
    if (mode == u"S"_s)
        return rows + u"WorkerID="_s + QString::number(m_account) + u" and "_s + dateColumn + u"  "_s + period;
    if (mode == u"CUST"_s)
        return rows + u"ClintID="_s + QString::number(m_account) + u" and "_s + dateColumn + u' ' + period;
    if (mode == u"CUSTUNDEL"_s)
        return u"Select * from JOBS_Detail where  isInventory=0 and ClintID="_s + QString::number(m_account) + u' '
            + order;
    return rows + dateColumn + u' ' + period;
}

std::vector<ListRow> frmWorkerJobRegister::readRows()
{
    m_period->raiseLastToFirst();
    dateColumn = opDt1->isChecked() ? u"Date"_s : u"JobDelDate"_s;
    sortOrder = OpInc->isChecked() ? u"ASC"_s : u"DESC"_s;
    findAccount();

    Recordset &records = DE().rsJOBS_DETAIL;
    records.reopen(statement());
    std::vector<ListRow> rows;
    rows.reserve(static_cast<size_t>(records.recordCount()) + closingRows);
    Balances balances;
    for (; !records.eof(); records.moveNext())
        rows.push_back(rowOf(records, balances));
    records.close();
    closeWithTotal(rows);
    fillDetails();
    tellWhatIsListed(all);
    session::NeedRefresh = false;
    return rows;
}

void frmWorkerJobRegister::fillDetails()
{
    m_quantities.clear();
    const bool isOfWorker = mode == u"S"_s;
    if (!isOfWorker && mode != u"C"_s)
        return m_pieces->clear();
    m_quantities = itemRows::quantityByItem(
        DE().CN, isOfWorker ? std::optional(m_account) : std::nullopt, m_period->from(), m_period->to(), false);
    m_pieces->fill(
        [&](qint16 itemID) { return isOfWorker ? GetItemWiseDetails(itemID) : GetItemWiseDetails2(itemID); });
}

void frmWorkerJobRegister::tellWhatIsListed(const QString &condition)
{
    const QString which = condition == all ? u"every status"_s : condition;
    const QString whose = mode == u"C"_s ? u"All workers"_s : m_whom;
    QString listed;
    if (mode == u"SID"_s)
        listed = u"Job %1, %2"_s.arg(NumberText(Val(txtSearchID->Text())), which);
    else if (mode == u"CUSTUNDEL"_s)
        listed = u"%1, %2, all dates"_s.arg(whose, which);
    else
        listed = u"%1, %2, %3 %4 to %5"_s.arg(whose, which, opDt1->isChecked() ? u"booked"_s : u"promised for"_s,
            DayMonthYear(m_period->from()), DayMonthYear(m_period->to()));
    lblListed->setText(listed);
    const QString advice = mode == u"CUSTUNDEL"_s
        ? u"Another word under Sort lists more."_s
        : u"Other dates and View (Alt+V), or another word under Sort, list more; Job ID lists a card whatever its dates."_s;
    lvSummary->setEmptyText(u"No garment is listed for this:\n%1\n\n%2"_s.arg(listed, advice));
}

void frmWorkerJobRegister::view()
{
    if (!m_period->isUsable() || !requireEntry(*cmbClient, noWorkerChosen))
        return;
    const bool isOfAll = cmbClient->Text() == all;
    if (!isOfAll && !findAccountID(cmbClient->Text())) {
        fillWorkers();
        return complain(noWorkerChosen, cmbClient);
    }
    mode = isOfAll ? u"C"_s : u"S"_s;
    filterChosen();
}

void frmWorkerJobRegister::searchJob()
{
    mode = u"SID"_s;
    ExecuteSQL();
    selectScanned(*lvSummary, column::Job, *txtSearchID);
    txtSearchID->selectAll();
}

void frmWorkerJobRegister::quickFind()
{
    if (hasRefusedDate(*this))
        return;
    bool allJobs = false;
    const QString client = frmSearchClient().SearchClient2(allJobs);
    if (client.isEmpty())
        return;
    m_client = client;
    mode = allJobs ? u"CUSTUNDEL"_s : u"CUST"_s;
    ExecuteSQL();
    lvSummary->setFocus(Qt::OtherFocusReason);
}

void frmWorkerJobRegister::overview()
{
    if (!m_period->isUsable())
        return;
    using itemRows::Dated;
    QString worker;
    frmWorkerReport2().ShowWorkerOverView(
        dateColumn == u"Date"_s ? Dated::Booked : Dated::Promised, m_period->from(), m_period->to(), worker);
    if (worker == nobody)
        return;
    fillWorkers();
    setComboText(*cmbClient, worker);
    view();
}

void frmWorkerJobRegister::openRow(const ListRow &row)
{
    frmEditWorkerAssign().ShowEdit(row.tag.toInt());
}

void frmWorkerJobRegister::openAccount(const ListRow &row)
{
    const QString client = titleOrBlank(accountOfRow(row, u"ClintID"_s));
    if (client.isEmpty())
        ShowMessage(u"This client is no longer there!"_s);
    else
        frmAccountBook().ShowAccount(client);
    filterChosen();
}

void frmWorkerJobRegister::afterMark(const QString &what, const ListRow &row, const std::optional<MarkedRows> &marked)
{
    const bool isOfJob = what == jobHandedOver;
    if (marked) {
        const QString name =
            what + u", "_s + (isOfJob ? QString::number(jobNumber(row)) : row.cells.value(column::Job));
        keepForUndo(name, [this, name, marked = *marked, row] { takeBack(name, marked, row); });
    } else
        isOfJob ? ShowMessage(u"Job Card not found!"_s) : tellRowGone();
    filterChosen();
}

void frmWorkerJobRegister::takeBack(const QString &what, const MarkedRows &marked, const ListRow &row)
{
    undoMark(what, marked);
    filterChosen();
    // Where the filter had taken it out, it is back.
    if (const int place = lvSummary->list().rowOfTag(row.tag, 0); place >= 0)
        lvSummary->setCurrentRow(place);
}
