#include "accounts/frmWorkerWagesRegister.h"

#include "accounts/PiecesPanel.h"
#include "accounts/payrolls.h"
#include "accounts/wagesList.h"
#include "base/session.h"
#include "base/values.h"
#include "production/frmEditWorkerAssign.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/itemRows.h"
#include "store/lookups.h"
#include "ui/Command.h"
#include "ui/ListView.h"
#include "ui/PeriodFields.h"
#include "ui/accountCombo.h"
#include "ui/complain.h"
#include "ui/entryKeys.h"
#include "ui/formFields.h"
#include "ui/frmMsg.h"
#include "ui/kvComboBox.h"
#include "ui/modAutoSearch.h"
#include "ui/platformBox.h"

#include <QBoxLayout>
#include <QLabel>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int workerLetters = 14;
const auto chooseWorker = u"Choose a worker: View (Alt+V) lists his completed jobs."_s;

QRadioButton *option(const QString &name, const QString &caption)
{
    auto *button = new QRadioButton(caption);
    button->setObjectName(name);
    return button;
}

double amountIn(const ListRow &row, wagesList::Column column)
{
    return Val(row.cells.at(column));
}

} // namespace

frmWorkerWagesRegister::frmWorkerWagesRegister()
    : RegisterScreen(u"frmWorkerWagesRegister"_s, u"WAGES REGISTER"_s, Refresh::WhenNeeded)
{
    buildForm();
    connectCommands();
    m_period->setShopDefault();
    fillWithTitles(*cmbClient, u" where type="_s + QString::number(accountType::Worker));
    session::NeedRefresh = true;
}

void frmWorkerWagesRegister::buildForm()
{
    auto *whole = new QVBoxLayout(this);
    whole->addLayout(buildQuery());
    whole->addLayout(buildLists(), 1);
    whole->addLayout(buildCommands());
    useRoom({1140, 640});

    chainTabs(QList<QWidget *>{cmbClient} + m_period->fields() + QList<QWidget *>{op1, op2, op3, cmdView, lvSummary}
        + m_pieces->fields() + QList<QWidget *>{cmdDetails, cmdPrint, cmdPayroll});
}

QLayout *frmWorkerWagesRegister::buildQuery()
{
    cmbClient = accountCombo(u"cmbClient"_s);
    cmbClient->setMinimumContentsLength(workerLetters);
    m_period = new PeriodFields;
    op1 = option(u"op1"_s, u"View : All"_s);
    op2 = option(u"op2"_s, u"View : Paid"_s);
    op3 = option(u"op3"_s, u"View : Unpaid"_s);
    op1->setChecked(true);
    // Tab goes to the one that is chosen, and the arrows on from there.
    for (QRadioButton *other : {op2, op3})
        other->setFocusPolicy(Qt::ClickFocus);
    cmdView = new Command(u"cmdView"_s, u"&View"_s);
    cmdView->setDefault(true);
    auto *row = new QHBoxLayout;
    row->addWidget(captionOf(cmbClient, u"&Worker :"_s));
    row->addWidget(cmbClient, 1);
    row->addSpacing(12);
    row->addWidget(m_period);
    row->addSpacing(12);
    for (QRadioButton *button : {op1, op2, op3})
        row->addWidget(button);
    row->addSpacing(12);
    row->addWidget(cmdView);
    return row;
}

QLayout *frmWorkerWagesRegister::buildLists()
{
    lvSummary = new ListView(u"lvSummary"_s, wagesList::columns(u"Qty"_s));
    lvSummary->setAccessibleName(windowTitle());
    lvSummary->setEmptyText(chooseWorker);
    setRegister(lvSummary);
    m_pieces = new PiecesPanel(u"QNT"_s, *lvSummary);
    auto *row = new QHBoxLayout;
    row->addWidget(lvSummary, 1);
    row->addWidget(m_pieces);
    return row;
}

QLayout *frmWorkerWagesRegister::buildCommands()
{
    cmdDetails = new Command(u"cmdDetails"_s, u"Details"_s);
    lblPayroll = new QLabel;
    lblPayroll->setObjectName(u"lblPayroll"_s);
    cmdPrint = new Command(u"cmdPrint"_s, u"&Print Report"_s);
    cmdPayroll = new Command(u"cmdPayroll"_s, u"&Create Payroll"_s);
    auto *row = new QHBoxLayout;
    row->addWidget(cmdDetails);
    row->addSpacing(12);
    row->addWidget(lblPayroll, 1);
    row->addWidget(cmdPrint);
    row->addWidget(cmdPayroll);
    return row;
}

void frmWorkerWagesRegister::connectCommands()
{
    setPeriod(m_period, cmdView);
    connect(cmbClient, &kvComboBox::keyPress, this, [this](int &key) {
        if (key != keys::Enter)
            return;
        key = keys::Swallowed;
        cmdView->trigger();
    });
    connect(cmdView, &Command::clicked, this, &frmWorkerWagesRegister::view);
    connect(cmdPayroll, &Command::clicked, this, &frmWorkerWagesRegister::createPayroll);
    printKey(cmdPrint);
    connect(cmdPrint, &Command::clicked, this, [this] {
        wagesList::print(lvSummary->list(), cmbClient->Text(), u" x  "_s,
            u"Wages Register %1 %2 to %3"_s.arg(
                cmbClient->Text(), DayMonthYear(m_period->from()), DayMonthYear(m_period->to())));
    });
    connect(cmdDetails, &Command::clicked, m_pieces, &PiecesPanel::open);
    onKey(
        Qt::CTRL | Qt::Key_O, u"Order of the details"_s, [this] { m_pieces->openOrderMenu(); },
        [this] { return m_pieces->isVisible(); });
}

void frmWorkerWagesRegister::view()
{
    if (!m_period->isUsable())
        return;
    session::NeedRefresh = true;
    ExecuteSQL();
}

void frmWorkerWagesRegister::ExecuteSQL()
{
    const bool isChosen = SelectComboEntry(*cmbClient) >= 0;
    const auto worker = isChosen ? findAccountID(cmbClient->Text()) : std::nullopt;
    if (!worker) {
        lvSummary->setEmptyText(chooseWorker);
        showRows({}, Keep::First);
        return tellWhatAPayrollPosts();
    }
    buildStatement(*worker);
    lvSummary->setEmptyText(
        u"No %1 job of %2 %3.\n\nCompleted jobs come here by the date of their card. Other dates and "
        "View (Alt+V) list others."_s.arg(op1->isChecked() ? u"completed"_s
                : ViewIsUnpaid                             ? u"unpaid"_s
                                                           : u"paid"_s,
            cmbClient->Text(), m_period->inWords()));
    showRows(wagesList::read(WagesSQL), Keep::Place);
    session::NeedRefresh = false;
    m_quantities = itemRows::quantityByItem(DE().CN, *worker, m_period->from(), m_period->to(), true);
    m_pieces->fill([this](qint16 itemID) { return GetItemWiseDetails(itemID); });
    tellWhatAPayrollPosts();
}

void frmWorkerWagesRegister::buildStatement(qint32 worker)
{
    ViewIsUnpaid = op3->isChecked();
    QString paid;
    if (!op1->isChecked())
        paid = (ViewIsUnpaid ? u"MarkAsPaid=%1 and "_s : u"MarkAsPaid>%1 and "_s).arg(wage::Unpaid);
    WagesSQL = u"Select * from JOBS_Detail where "_s + paid + u"WorkerID="_s + QString::number(worker) + u"and date "_s
        + m_period->between() + u" and  DoneByWorker>%1  order by date,id"_s.arg(rowStatus::Uncompleted);
}

qint32 frmWorkerWagesRegister::GetItemWiseDetails(qint16 itemID) const
{
    return Int32(static_cast<double>(m_quantities.value(itemID)));
}

void frmWorkerWagesRegister::tellWhatAPayrollPosts()
{
    const std::vector<ListRow> &rows = lvSummary->list().rows();
    if (!ViewIsUnpaid || rows.empty())
        return lblPayroll->clear();
    lblPayroll->setText(
        u"Jobs to pay : %1    Their wages : %2    The payroll posts the last one's : %3"_s.arg(rows.size())
            .arg(rows.back().cells.at(wagesList::Balance), rows.back().cells.at(wagesList::Wages)));
}

void frmWorkerWagesRegister::openRow(const ListRow &row)
{
    frmEditWorkerAssign().ShowEdit(row.tag.toInt());
}

void frmWorkerWagesRegister::createPayroll()
{
    if (!ViewIsUnpaid)
        return ShowMessage(u"Select Unpaid jobs only!"_s);
    if (hasRefusedDate(*m_period))
        return;
    if (m_period->from() > m_period->to())
        return complain(u"Invalid date selection!"_s, m_period->fields().constLast());
    if (!requireEntry(*cmbClient, u"Please select Worker!"_s))
        return;
    const std::vector<ListRow> &rows = lvSummary->list().rows();
    if (rows.empty())
        return ShowMessage(u"No job found to make payroll for this worker!"_s);
    if (amountIn(rows.back(), wagesList::Balance) == 0)
        return platformBox::show(u"Balance is 0"_s);
    payrolls::Payroll payroll{.worker = cmbClient->Text(),
        .amount = amountIn(rows.back(), wagesList::Wages),
        .from = m_period->from(),
        .to = m_period->to()};
    for (const ListRow &row : rows)
        payroll.rowIDs.push_back(row.tag.toInt());
    payrolls::create(payroll);
    ExecuteSQL();
    platformBox::show(u"Payroll Created."_s);
}
