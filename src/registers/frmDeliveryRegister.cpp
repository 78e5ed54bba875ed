#include "registers/frmDeliveryRegister.h"

#include "base/session.h"
#include "base/values.h"
#include "masters/frmSearchClient.h"
#include "production/frmEditWorkerAssign.h"
#include "registers/dueLook.h"
#include "registers/itemRowCells.h"
#include "registers/selectScanned.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/lookups.h"
#include "store/settings.h"
#include "ui/Command.h"
#include "ui/ListView.h"
#include "ui/NameLabel.h"
#include "ui/PeriodFields.h"
#include "ui/accountCombo.h"
#include "ui/boxType.h"
#include "ui/complain.h"
#include "ui/entryFilters.h"
#include "ui/formFields.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"
#include "ui/language.h"
#include "ui/listFilter.h"
#include "ui/modAutoSearch.h"
#include "ui/workingDate.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QLabel>

#include <map>
#include <unordered_map>

using namespace Qt::StringLiterals;

namespace {

enum Column {
    PromisedColumn,
    BookedColumn,
    DaysColumn,
    JobColumn,
    ClientColumn,
    ItemColumn,
    RemarkColumn,
    WorkerColumn,
    StatusColumn,
    ColumnCount
};

const auto all = u"*All"_s;
const auto noWorkerChosen = u"Please Select Worker Name!"_s;
constexpr int usualDays = 5;
constexpr size_t closingRows = 2;

std::vector<ListColumn> columns()
{
    return {{u"Del. Date"_s, 13}, {u"Date"_s, 10}, {u"Days"_s, 7, true}, {u"JOB ID"_s, 6}, {u"Client Name"_s, 15},
        {u"Item Name"_s, 13}, {u"Remark"_s, 11}, {u"Worker Name"_s, 12}, {u"Status"_s, 13}};
}

/// A cancelled garment has no word here.
QString statusWord(int status)
{
    return status == rowStatus::Canceled ? QString() : rowStatus::word(status);
}

/// One under alteration is open work again.
QIcon statusSign(int status)
{
    return itemRowCells::statusSign(status == rowStatus::Alteration ? rowStatus::Uncompleted : status);
}

void closeWithTotal(std::vector<ListRow> &rows)
{
    closeWithCount(rows,
        {.columns = ColumnCount,
            .column = ItemColumn,
            .words = u"Total JOBS : "_s,
            .looks = {{ItemColumn, {.bold = true}}}});
}

void keepStatus(std::vector<ListRow> &rows, const QString &word)
{
    keepRows(rows, StatusColumn, [&word](const QString &text) { return text == word; });
    closeWithTotal(rows);
}

/// Makes rows of garments. What many of them have in common, the texts of a day and the look of a status, is made once.
class RowMaker {
public:
    ListRow rowOf(const Recordset &record)
    {
        const QDate promised = record.date(u"JobDelDate");
        const int status = record.integer(u"DoneByWorker");
        const Day &day = dayOf(promised);
        ListRow row;
        row.tag = record.integer(u"Id");
        row.cells.reserve(ColumnCount);
        row.cells << day.date << dayOf(record.date(u"Date")).date << day.daysLeft << itemRowCells::job(record)
                  << titleOrBlank(record.integer(u"ClintID")) << itemNameOrBlank(record.integer(u"ItemID"))
                  << record.textOrEmpty(u"Remarks") << itemRowCells::worker(record.integer(u"WorkerID"))
                  << statusWord(status);
        row.looks = statusLook(status);
        if (const CellLook due = dueLook(promised); due.bold && itemRowCells::isOpen(status)) {
            row.looks.emplace_back(PromisedColumn, due);
            row.looks.emplace_back(DaysColumn, CellLook{.bold = true, .ink = due.ink});
        }
        return row;
    }

private:
    using Looks = decltype(ListRow::looks);
    struct Day {
        QString date;
        QString daysLeft;
    };

    const Day &dayOf(QDate date)
    {
        Day &day = m_days[date.toJulianDay()];
        if (day.date.isEmpty())
            day = {DayMonthYear(date), QString::number(session::CurrentDate.daysTo(date)) + u" Days"_s};
        return day;
    }

    const Looks &statusLook(int status)
    {
        Looks &looks = m_statusLooks[status];
        if (looks.isEmpty() && !statusWord(status).isEmpty())
            looks = {{StatusColumn, {.icon = statusSign(status)}}};
        return looks;
    }

    /// References stay good.
    std::unordered_map<qint64, Day> m_days;
    std::map<int, Looks> m_statusLooks;
};

} // namespace

frmDeliveryRegister::frmDeliveryRegister()
    : RegisterScreen(u"frmDeliveryRegister"_s, u"Delivery Register"_s, Refresh::WhenNeeded), mode(u"C"_s)
{
    buildForm();
    connectCommands();
    TranslateForm(*this);
    if (GetSetting(setting::Language) == u"Hindi"_s)
        takeHindiHeads();
    m_period->set(session::CurrentDate, session::CurrentDate.addDays(usualDays));
    fillWorkers();
    setComboText(*cmbClient, all);
    lvSummary->setFocus();
    session::NeedRefresh = true;
}

void frmDeliveryRegister::buildForm()
{
    lvSummary = new ListView(u"lvSummary"_s, columns());
    lvSummary->setAccessibleName(windowTitle());
    setRegister(lvSummary);
    ListView1 = new QTreeView(this);
    ListView1->setObjectName(u"ListView1"_s);
    ListView1->setFocusPolicy(Qt::NoFocus);
    ListView1->hide();

    auto *whole = new QVBoxLayout(this);
    whole->addLayout(buildQuery());
    whole->addLayout(buildSearch());
    whole->addWidget(lvSummary, 1);
    whole->addLayout(buildCommands());
    useRoom({1180, 640});
    chainTabs(
        m_period->fields() + QList<QWidget *>{cmbClient, cmbCondition, txtSearchID, lvSummary, Command8, Command4});
}

QLayout *frmDeliveryRegister::buildQuery()
{
    m_period = new PeriodFields;
    cmbClient = accountCombo(u"cmbClient"_s);
    cmbClient->setMinimumContentsLength(24);
    lblCurrentDate = new QLabel;
    lblCurrentDate->setObjectName(u"lblCurrentDate"_s);
    QHBoxLayout *row = captionedRow({{u"&Worker:"_s, cmbClient}});
    row->insertWidget(0, m_period);
    row->addStretch();
    row->addWidget(lblCurrentDate);
    return row;
}

QLayout *frmDeliveryRegister::buildSearch()
{
    cmbCondition = new kvComboBox(u"cmbCondition"_s);
    cmbCondition->setEditable(false);
    cmbCondition->addItem(all);
    for (const int status : {rowStatus::Completed, rowStatus::Uncompleted, rowStatus::Delivered, rowStatus::Alteration})
        cmbCondition->addItem(rowStatus::word(status));
    txtSearchID = new kvTextBox(u"txtSearchID"_s, boxType::Plain);
    txtSearchID->setAutoTab(false);
    txtSearchID->setMaximumWidth(120);
    lblListed = new NameLabel(u"lblListed"_s);
    QHBoxLayout *row = captionedRow({{u"&Sort :"_s, cmbCondition}, {u"&Job ID #"_s, txtSearchID}});
    row->addWidget(lblListed, 1);
    return row;
}

QLayout *frmDeliveryRegister::buildCommands()
{
    Command8 = new Command(u"Command8"_s, u"Quick Find"_s);
    Command4 = new Command(u"Command4"_s, u"Show All"_s);
    Command4->setDefault(true);
    auto *row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(Command8);
    row->addWidget(Command4);
    return row;
}

void frmDeliveryRegister::connectCommands()
{
    setPeriod(m_period, Command4);
    onEnter(cmbClient, [this] { showAll(); });
    onEnter(txtSearchID, [this] { searchJob(); });
    connect(txtSearchID, &kvTextBox::changed, this, [this] {
        if (txtSearchID->Text().isEmpty())
            mode = u"C"_s;
    });
    // Nothing can be typed there: a change is always a choice.
    connect(cmbCondition, &QComboBox::activated, this, [this] {
        m_openOnly = false;
        filterChosen();
    });
    connect(cmbCondition, &kvComboBox::lostFocus, this, &frmDeliveryRegister::filterChosen);
    onEnter(cmbCondition, [this] { filterChosen(); });
    connect(Command4, &Command::clicked, this, &frmDeliveryRegister::showAll);
    connect(Command8, &Command::clicked, this, &frmDeliveryRegister::quickFind);
    onKey(Qt::CTRL | Qt::Key_D, u"Read the list again, whatever its status"_s, [this] { readAgain(); });
    onKey(Qt::CTRL | Qt::Key_F, u"Quick Find"_s, [this] { Command8->trigger(); });
}

void frmDeliveryRegister::takeHindiHeads()
{
    ListView1->header()->setFont(hindiFont());
    ChangeHeaderFont(*lvSummary, *ListView1, false);
}

void frmDeliveryRegister::fillWorkers()
{
    fillWithTitles(*cmbClient, u" where Type="_s + QString::number(accountType::Worker), all);
}

void frmDeliveryRegister::activated()
{
    lblCurrentDate->setText(u"Current Date : "_s + DayMonthYear(session::CurrentDate));
    workingDate::mark(*lblCurrentDate);
    RegisterScreen::activated();
}

void frmDeliveryRegister::refill()
{
    filterChosen();
}

void frmDeliveryRegister::ShowOpen(QDate from, QDate to)
{
    m_period->set(from, to);
    m_openOnly = true;
    exec();
}

void frmDeliveryRegister::ExecuteSQL()
{
    m_openOnly = false;
    showRows(readRows(), Keep::First);
}

void frmDeliveryRegister::RemoveUnwanted(const QString &word)
{
    std::vector<ListRow> rows = lvSummary->list().rows();
    keepStatus(rows, word);
    showRows(std::move(rows), Keep::Tag);
}

void frmDeliveryRegister::filterChosen()
{
    std::vector<ListRow> rows = readRows();
    if (const QString word = cmbCondition->currentText(); word != all) {
        keepStatus(rows, word);
        tellWhatIsListed(word);
    }
    showRows(std::move(rows), lvSummary->currentRow() < 0 ? Keep::First : Keep::Tag);
}

QString frmDeliveryRegister::accountID(const QString &title)
{
    if (const auto account = findAccountID(title)) {
        m_account = *account;
        m_whom = title;
    }
    return QString::number(m_account);
}

void frmDeliveryRegister::joinStatement()
{
    const QString rows = u"Select * from JOBS_Detail where "_s;
    const QString order = u" order by JobDelDate,id"_s;
    if (mode == u"S"_s)
        sql =
            rows + u"WorkerID="_s + accountID(cmbClient->Text()) + u" and JobDelDate "_s + m_period->between() + order;
    else if (mode == u"C"_s)
        sql = rows + u"JobDelDate between #"_s + DateText(m_period->from()) + u"# and #"_s + DateText(m_period->to())
            + u'#' + order;
    else if (mode == u"SID"_s)
        sql = rows + u"JOBid="_s + NumberText(Val(txtSearchID->Text()));
    else if (mode == u"CUST"_s)
        sql = rows + u"ClintID="_s + accountID(m_client) + u" and JobDelDate "_s + m_period->between() + order;
}

std::vector<ListRow> frmDeliveryRegister::readRows()
{
    m_period->raiseLastToFirst();
    joinStatement();
    Recordset &records = DE().rsJOBS_DETAIL;
    records.openColumns(sql,
        {u"Id"_s, u"DATE"_s, u"JobID"_s, u"ItemSr"_s, u"ClintID"_s, u"ItemID"_s, u"Remarks"_s, u"WorkerID"_s,
            u"JobDelDate"_s, u"DoneByWorker"_s});
    std::vector<ListRow> rows;
    rows.reserve(static_cast<size_t>(records.recordCount()) + closingRows);
    RowMaker maker;
    for (; !records.eof(); records.moveNext()) {
        if (!m_openOnly || itemRowCells::isOpen(records.integer(u"DoneByWorker")))
            rows.push_back(maker.rowOf(records));
    }
    records.close();
    closeWithTotal(rows);
    tellWhatIsListed({});
    session::NeedRefresh = false;
    return rows;
}

void frmDeliveryRegister::tellWhatIsListed(const QString &status)
{
    const QString every = m_openOnly ? u"what is not handed over"_s : u"every status"_s;
    const QString which = status.isEmpty() ? every : status;
    const QString whose = mode == u"CUST"_s || mode == u"S"_s ? m_whom : u"All workers"_s;
    const QString listed = mode == u"SID"_s ? u"Job %1, %2"_s.arg(NumberText(Val(txtSearchID->Text())), which)
                                            : u"%1, %2, promised for %3 to %4"_s.arg(whose, which,
                                                DayMonthYear(m_period->from()), DayMonthYear(m_period->to()));
    lblListed->setText(listed);
    lvSummary->setEmptyText(
        u"No garment is listed for this:\n%1\n\nOther dates and Show All, or another word under Sort, list "
        "more; Job ID lists a card whatever its dates."_s.arg(listed));
}

void frmDeliveryRegister::showAll()
{
    if (!m_period->isUsable() || !requireEntry(*cmbClient, noWorkerChosen))
        return;
    const bool isOfAll = cmbClient->Text() == all;
    if (!isOfAll && !findAccountID(cmbClient->Text())) {
        // Gone since the list was filled.
        fillWorkers();
        return complain(noWorkerChosen, cmbClient);
    }
    mode = isOfAll ? u"C"_s : u"S"_s;
    ExecuteSQL();
}

void frmDeliveryRegister::searchJob()
{
    mode = u"SID"_s;
    ExecuteSQL();
    selectScanned(*lvSummary, JobColumn, *txtSearchID);
    txtSearchID->selectAll();
}

void frmDeliveryRegister::quickFind()
{
    if (hasRefusedDate(*this))
        return;
    const QString client = frmSearchClient().SearchClient();
    if (client.isEmpty())
        return;
    setComboText(*cmbClient, client);
    m_client = client;
    mode = u"CUST"_s;
    ExecuteSQL();
    lvSummary->setFocus(Qt::OtherFocusReason);
}

void frmDeliveryRegister::readAgain()
{
    m_openOnly = false;
    showRows(readRows(), Keep::Tag);
}

void frmDeliveryRegister::openRow(const ListRow &row)
{
    frmEditWorkerAssign().ShowEdit(row.tag.toInt());
}
