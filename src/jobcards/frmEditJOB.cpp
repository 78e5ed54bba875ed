#include "jobcards/frmEditJOB.h"

#include "base/session.h"
#include "base/values.h"
#include "comms/kvSMS.h"
#include "comms/modSMS.h"
#include "jobcards/JobCardItems.h"
#include "jobcards/MODPrintJOBCARD.h"
#include "jobcards/ScrollingText.h"
#include "jobcards/clientGreeting.h"
#include "masters/frmEditClients.h"
#include "masters/frmSearchClient.h"
#include "production/frmDDP.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/lookups.h"
#include "store/settings.h"
#include "ui/Command.h"
#include "ui/DateField.h"
#include "ui/accountCombo.h"
#include "ui/boxType.h"
#include "ui/complain.h"
#include "ui/entryFilters.h"
#include "ui/entryKeys.h"
#include "ui/formFields.h"
#include "ui/frmMsg.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"
#include "ui/modAutoSearch.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPalette>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int largestJobNumber = std::numeric_limits<qint16>::max();

kvTextBox *amountBox(const QString &name, bool shownOnly)
{
    auto *box = new kvTextBox(name, boxType::Plain);
    box->setText(Money(0));
    box->setAlignment(Qt::AlignRight);
    if (shownOnly) {
        showOnly(*box);
        box->setFocusPolicy(Qt::NoFocus);
    }
    return box;
}

} // namespace

frmEditJOB::frmEditJOB() : Screen(u"frmEditJOB"_s, u"Create New Job Card"_s), m_sms(new kvSMS(this))
{
    buildForm();
    setTabs();
    connectCommands();
    fillClients();
    fillWithTitles(*cmbAccount, u" where type=%1 and nature=%2 "_s.arg(accountType::Ledger).arg(accountNature::Income));
    setEntryKeys(EnterMovesOn | PageKeysMove);
}

void frmEditJOB::buildForm()
{
    auto *whole = new QVBoxLayout(this);
    whole->addWidget(buildGreeting());
    whole->addLayout(buildHead());
    m_items = new JobCardItems(JobRows, m_store);
    whole->addWidget(m_items, 1);
    whole->addLayout(buildFoot());
    whole->addLayout(buildCommands());
    resize(1060, 690);
}

QWidget *frmEditJOB::buildGreeting()
{
    m_greeting = new ScrollingText(u"lblLastvisit"_s);
    m_greeting->setObjectName(u"greeting"_s);
    m_greeting->setText(u"Welcome to Corvane"_s);
    return m_greeting;
}

QLayout *frmEditJOB::buildHead()
{
    txtJOBID = new kvTextBox(u"txtJOBID"_s, boxType::Plain);
    showOnly(*txtJOBID);
    txtJOBID->setFocusPolicy(Qt::ClickFocus);
    JobDate = new DateField(u"JobDate"_s);
    cmbClient = accountCombo(u"cmbClient"_s);
    // Off the way of Enter and Tab: whoever has found the client by typing goes on to the dates with one stroke.
    Command9 = new Command(u"Command9"_s, u"&Quick Find"_s);
    Command9->setFocusPolicy(Qt::ClickFocus);
    DateDel = new DateField(u"DateDel"_s);
    DateTrial = new DateField(u"DateTrial"_s);
    lblDelDate = new QLabel;
    lblDelDate->setObjectName(u"lblDelDate"_s);
    lblTrialInfo = new QLabel;
    lblTrialInfo->setObjectName(u"lblTrialInfo"_s);

    auto *grid = new QGridLayout;
    grid->addWidget(captionOf(txtJOBID, u"JOB ID"_s), 0, 0);
    grid->addWidget(txtJOBID, 0, 1);
    grid->addWidget(captionOf(JobDate, u"Date :"_s), 0, 2);
    grid->addWidget(JobDate, 0, 3);
    grid->addWidget(captionOf(DateDel, u"Delivery Date :"_s), 0, 5);
    grid->addWidget(DateDel, 0, 6);
    grid->addWidget(lblDelDate, 0, 7);
    grid->addWidget(captionOf(cmbClient, u"Client Name :"_s), 1, 0);
    grid->addWidget(cmbClient, 1, 1, 1, 3);
    grid->addWidget(Command9, 1, 4);
    grid->addWidget(captionOf(DateTrial, u"Trial  Date :"_s), 1, 5);
    grid->addWidget(DateTrial, 1, 6);
    grid->addWidget(lblTrialInfo, 1, 7);
    grid->addWidget(hintLabel(u"Ctrl+A in this field adds a new client."_s), 2, 1, 1, 4);
    grid->setColumnStretch(1, 2);
    grid->setColumnStretch(3, 2);
    grid->setColumnStretch(6, 2);
    grid->setColumnStretch(7, 3);
    return grid;
}

QLayout *frmEditJOB::buildFoot()
{
    txtRemark = new kvTextBox(u"txtRemark"_s);
    chJobStatus = new QCheckBox(u"Delivered [All Items has been Delivered to client] "_s);
    chJobStatus->setObjectName(u"chJobStatus"_s);
    chStatus = new QCheckBox(u"Cancel Job Card"_s);
    chStatus->setObjectName(u"chStatus"_s);
    Command8 = new Command(u"Command8"_s, u"Cancel Reason"_s);
    picCancel = new QWidget;
    picCancel->setObjectName(u"picCancel"_s);
    txtCancel = new kvTextBox(u"txtCancel"_s);
    Command12 = new Command(u"Command12"_s, u"Hide"_s);
    auto *reason = new QHBoxLayout(picCancel);
    reason->setContentsMargins({});
    reason->addWidget(captionOf(txtCancel, u"Cancel Reason"_s));
    reason->addWidget(txtCancel, 1);
    reason->addWidget(Command12);
    QSizePolicy keepsItsRoom = picCancel->sizePolicy();
    keepsItsRoom.setRetainSizeWhenHidden(true);
    picCancel->setSizePolicy(keepsItsRoom);
    picCancel->hide();

    auto *remark = new QHBoxLayout;
    remark->addWidget(captionOf(txtRemark, u"Remark:"_s));
    remark->addWidget(txtRemark, 1);
    auto *cancel = new QHBoxLayout;
    cancel->addWidget(chStatus);
    cancel->addWidget(Command8);
    cancel->addStretch();
    auto *state = new QVBoxLayout;
    state->addLayout(remark);
    state->addWidget(chJobStatus);
    state->addLayout(cancel);
    state->addWidget(picCancel);
    state->addStretch();

    txtAmountDue = amountBox(u"txtAmountDue"_s, true);
    txtAmountPaid = amountBox(u"txtAmountPaid"_s, false);
    txtAmountPaid->setText(u"0"_s);
    cmbAccount = accountCombo(u"cmbAccount"_s);
    txtAmount = amountBox(u"txtAmount"_s, true);
    QFont strong = txtAmount->font();
    strong.setBold(true);
    txtAmountDue->setFont(strong);
    txtAmount->setFont(strong);
    auto *money = new QGridLayout;
    const std::pair<QString, QWidget *> amounts[]{{u"Total Amount :"_s, txtAmountDue},
        {u"Amount Received :"_s, txtAmountPaid}, {u"Receipt Account :"_s, cmbAccount}, {u"Amount Due:"_s, txtAmount}};
    for (const auto &[caption, field] : amounts)
        addField(*money, money->rowCount(), caption, field);
    money->setColumnMinimumWidth(1, 200);

    auto *foot = new QHBoxLayout;
    foot->addLayout(state, 1);
    foot->addSpacing(24);
    foot->addLayout(money);
    return foot;
}

QLayout *frmEditJOB::buildCommands()
{
    Command1 = new Command(u"Command1"_s, u"&Save"_s);
    Command2 = new Command(u"Command2"_s, u"&Print"_s);
    Command3 = new Command(u"Command3"_s, u"&New"_s);
    Command7 = new Command(u"Command7"_s, u"&Delete"_s);
    Command11 = new Command(u"Command11"_s, u"Pending Orders Status"_s);
    Command1->setDefault(true);
    auto *row = new QHBoxLayout;
    row->addWidget(Command7);
    row->addWidget(Command11);
    row->addStretch();
    for (Command *command : {Command2, Command3, Command1})
        row->addWidget(command);
    return row;
}

void frmEditJOB::setTabs()
{
    chainTabs(QList<QWidget *>{JobDate, cmbClient, Command9, DateDel, DateTrial} + m_items->tabOrder()
        + QList<QWidget *>{txtAmountPaid, cmbAccount, txtRemark, chJobStatus, chStatus, Command8, txtCancel, Command12,
            Command1, Command2, Command3, Command7, Command11});
}

void frmEditJOB::connectCommands()
{
    filterKeys(txtJOBID, DigitKeysOnly);
    filterKeys(txtAmountPaid, DecimalKeysOnly);
    connect(cmbClient, &kvComboBox::lostFocus, this, &frmEditJOB::greetClient);
    connect(txtAmountPaid, &kvTextBox::lostFocus, this, &frmEditJOB::leaveReceived);
    // Elsewhere Enter moves on.
    keepEnter(Command1);
    keepEnter(m_items->addCommand());
    saveKey(Command1);
    printKey(Command2);
    onKey(Qt::CTRL | Qt::Key_I, u"To the items"_s, [this] { m_items->setFocus(Qt::ShortcutFocusReason); });
    onKey(
        Qt::CTRL | Qt::Key_A, u"In the client field: a new client"_s, [this] { addClient(); },
        [this] { return cmbClient->hasFocus(); });
    onKey(
        Qt::Key_Delete, u"In the list of items: remove the item"_s, [this] { m_items->removeRow(); },
        [this] { return m_items->isListFocused(); });
    connect(m_items, &JobCardItems::addWanted, this, &frmEditJOB::addItem);
    connect(m_items, &JobCardItems::editWanted, this, &frmEditJOB::editItem);
    connect(m_items, &JobCardItems::changed, this, &frmEditJOB::DoTotal);

    connect(Command1, &Command::clicked, this, &frmEditJOB::save);
    connect(Command2, &Command::clicked, this, [this] {
        if (m_store.EditMode() == u"E")
            PrintJobCard(m_store.CurrentJobID());
    });
    connect(Command3, &Command::clicked, this, [this] {
        m_freshWanted = true;
        reject();
    });
    connect(Command7, &Command::clicked, this, &frmEditJOB::deleteCard);
    connect(Command8, &Command::clicked, this, [this] {
        picCancel->setVisible(picCancel->isHidden());
        if (picCancel->isVisible())
            txtCancel->setFocus(Qt::OtherFocusReason);
    });
    connect(Command9, &Command::clicked, this, &frmEditJOB::findClient);
    connect(Command11, &Command::clicked, this, [] { frmDDP().exec(); });
    connect(Command12, &Command::clicked, this, [this] {
        chStatus->setFocus(Qt::OtherFocusReason);
        picCancel->hide();
    });
}

void frmEditJOB::done(int result)
{
    m_store.forgetRemovedRows();
    Screen::done(result);
}

void frmEditJOB::ShowAddNew()
{
    prepareNew();
    showCards();
}

void frmEditJOB::ShowEdit(int JobID, bool &JobDeleted)
{
    JobDeleted = !load(JobID);
    if (JobDeleted)
        return ShowMessage(u"Job Card not found!"_s);
    showCards();
    JobDeleted = m_jobDeleted;
}

void frmEditJOB::showCards()
{
    exec();
    // One fresh card after the other, each closed before the next opens: a day of bookings must not pile screens up.
    for (bool fresh = m_freshWanted; fresh;) {
        frmEditJOB next;
        next.prepareNew();
        next.exec();
        fresh = next.m_freshWanted;
    }
}

void frmEditJOB::prepareNew()
{
    m_greeting->setText(u"Welcome to "_s + session::ShopName);
    JobDate->setDate(session::CurrentDate);
    DateDel->setDate(session::CurrentDate.addDays(Int32(Val(GetSetting(setting::DeliveryMargin)))));
    DateTrial->setDate(session::CurrentDate);
    txtJOBID->setText(QString::number(JobCardStore::GetNewNum()));
    cmbClient->setFocus();
    allowManualNumber();
}

void frmEditJOB::allowManualNumber()
{
    if (!settingIsOn(setting::ManualJobNumber))
        return;
    txtJOBID->setReadOnly(false);
    txtJOBID->setPalette({});
    txtJOBID->setFocusPolicy(Qt::StrongFocus);
    setTabOrder(txtJOBID, JobDate);
    txtJOBID->setFocus();
}

bool frmEditJOB::load(int jobID)
{
    m_greeting->setText(u"Welcome to "_s + session::ShopName);
    m_store.openSaved(jobID);
    setWindowTitle(u"Edit JOB Card"_s);
    cmbClient->setFocus();
    allowManualNumber();

    Recordset &job = DE().rsJobs2;
    job.reopen(u"Select * from JOBS where id="_s + QString::number(jobID));
    if (job.eof())
        return false;
    txtJOBID->setText(QString::number(job.integer(u"ID")));
    JobDate->setDate(job.date(u"DATE"));
    cmbClient->setText(GetAccountTitle(job.integer(u"ClintID")));
    if (job.integer(u"CashAccID") > 0)
        cmbAccount->setText(GetAccountTitle(job.integer(u"CashAccID")));
    DateDel->setDate(job.date(u"DeliveryDate"));
    DateTrial->setDate(job.date(u"TrialDate"));
    txtAmountDue->setText(Money(job.number(u"AmountDue")));
    txtAmountPaid->setText(NumberText(job.number(u"AmountPaid")));
    chJobStatus->setChecked(job.integer(u"JobFinished") != 0);
    txtRemark->setText(job.text(u"Remark"));
    chStatus->setChecked(job.integer(u"Status") != 0);
    txtCancel->setText(job.text(u"CancelReason"));
    if (job.integer(u"JobFinished") == jobState::Finished && !job.isNull(u"ClientDeliveryDate"))
        lblDelDate->setText(u"Delivered to Client : "_s + DayMonthYear(job.date(u"ClientDeliveryDate")));
    showTrialNote(job.integer(u"appeared"), job.isNull(u"appearedDate") ? QDate() : job.date(u"appearedDate"));
    job.close();

    m_store.readRows(JobRows);
    m_items->showRows();
    showAmountDue();
    return true;
}

void frmEditJOB::showTrialNote(int appeared, const QDate &appearedDate)
{
    if (appeared == trial::Appeared && appearedDate.isValid())
        lblTrialInfo->setText(u"Appeared for Trial "_s + DayMonthYear(appearedDate));
    else if (appeared == trial::NotAppeared)
        lblTrialInfo->setText(u"Not Appeared for Trial"_s);
    else if (appeared == trial::Canceled)
        lblTrialInfo->setText(u"Trial Canceled"_s);
}

void frmEditJOB::DoTotal()
{
    if (m_items->isEmpty())
        return;
    txtAmountDue->setText(Money(m_items->total().toDouble()));
    showAmountDue();
}

void frmEditJOB::showAmountDue()
{
    txtAmount->setText(Money(Val(txtAmountDue->Text()) - Val(txtAmountPaid->Text())));
}

void frmEditJOB::leaveReceived()
{
    if (Val(txtAmountPaid->Text()) > Val(txtAmountDue->Text()))
        txtAmountPaid->setText(txtAmountDue->Text());
    showAmountDue();
    suggestAccount();
}

/// Whoever comes on from the money finds the account where the shop put it last; not who is sent here because he has
/// chosen none.
void frmEditJOB::suggestAccount()
{
    if (Val(txtAmountPaid->Text()) <= 0 || !cmbAccount->Text().isEmpty() || !cmbAccount->hasFocus())
        return;
    const QString last = JobCardStore::lastReceiptAccount();
    if (cmbAccount->findText(last) >= 0)
        cmbAccount->setText(last);
}

void frmEditJOB::fillClients()
{
    fillWithTitles(*cmbClient, u" where type="_s + QString::number(accountType::Client));
}

void frmEditJOB::findClient()
{
    const QString title = frmSearchClient().SearchClient();
    if (title.isEmpty())
        return;
    cmbClient->setText(title);
    cmbClient->setFocus(Qt::OtherFocusReason);
}

void frmEditJOB::addClient()
{
    const QString title = frmEditClients().AddNewFromJobCard();
    fillClients();
    cmbClient->setText(title);
}

void frmEditJOB::greetClient()
{
    if (SelectComboEntry(*cmbClient) < 0)
        return;
    const ClientGreeting greeting = greetingOf(cmbClient->Text());
    m_greeting->setText(greeting.text);
    if (greeting.returning)
        m_greeting->restart();
}

void frmEditJOB::addItem()
{
    if (!requireEntry(*cmbClient, u"Please Select Client!"_s))
        return;
    if (!m_items->add(GetAccountID(cmbClient->Text())))
        cmbAccount->setFocus();
}

void frmEditJOB::editItem()
{
    if (!m_items->hasCurrent())
        return;
    if (SelectComboEntry(*cmbClient) < 0)
        return ShowMessage(u"Please Select Client!"_s);
    m_items->edit(GetAccountID(cmbClient->Text()));
}

JobCard frmEditJOB::collect() const
{
    JobCard card;
    card.JobIDText = txtJOBID->Text();
    card.JobDate = JobDate->date();
    card.ClientTitle = cmbClient->Text();
    card.ReceiptAccountTitle = cmbAccount->Text();
    card.DeliveryDate = DateDel->date();
    card.TrialDate = DateTrial->date();
    card.TotalText = txtAmountDue->Text();
    card.ReceivedText = txtAmountPaid->Text();
    card.Delivered = chJobStatus->isChecked();
    card.Cancelled = chStatus->isChecked();
    card.Remark = txtRemark->Text();
    card.CancelReason = txtCancel->Text();
    return card;
}

void frmEditJOB::save()
{
    if (hasRefusedDate(*this))
        return;
    if (!requireEntry(*cmbClient, u"Please Select Client!"_s))
        return;
    if (m_items->isEmpty())
        return complain(u"Please Add Item!"_s, m_items->addCommand());
    if (txtAmountPaid->Text().isEmpty())
        txtAmountPaid->setText(u"0"_s);
    const auto received = wholeNumberText(txtAmountPaid->Text());
    if (!received || std::abs(*received) > largestAmount)
        return complain(u"Amount Received is not a valid amount!"_s, txtAmountPaid);
    if (Val(txtAmountPaid->Text()) > 0 && !requireEntry(*cmbAccount, u"Please Select Receipt Account!"_s))
        return;
    const double number = Val(txtJOBID->Text());
    if (number < 1 || number > largestJobNumber || number != std::floor(number))
        return complain(u"Job ID must be a number from 1 to %1!"_s.arg(largestJobNumber), txtJOBID);
    if (m_store.isDuplicate(txtJOBID->Text()))
        return complainOfDuplicate();
    if (m_store.EditMode() == u"N") {
        m_store.SaveNew(collect(), JobRows);
        m_store.forgetRemovedRows();
        txtJOBID->setText(QString::number(m_store.CurrentJobID()));
        setWindowTitle(u"Edit JOB Card"_s);
        ShowMessage(u"New Job Created."_s);
        if (settingIsOn(setting::PrintAfterSave))
            PrintJobCard(m_store.CurrentJobID());
    } else {
        m_store.SaveEdit(collect(), JobRows);
        ShowMessage(u"Job Edited."_s);
    }
    // An Enter too many, behind that for the message, must not save again.
    Command3->setFocus(Qt::OtherFocusReason);
    offerSMS();
}

void frmEditJOB::complainOfDuplicate()
{
    if (m_store.mayStand())
        return complain(
            u"Duplicate Job ID!\r\nIt may be this card, of which it was not known whether it was written.\r\n"
            "Look at that card before you enter this one again."_s,
            txtJOBID);
    complain(u"Duplicate Job ID!"_s, txtJOBID);
    // A number that the user can't change was offered by the program; another one has used it meanwhile.
    if (m_store.EditMode() == u"N" && txtJOBID->isReadOnly())
        txtJOBID->setText(QString::number(JobCardStore::GetNewNum()));
}

void frmEditJOB::offerSMS()
{
    if (GetSetting(setting::SendJobNumber) == u"No")
        return;
    if (AskUser(u"This Job has been registered.\r\nWould you like to Inform Client via SMS?"_s) != 1)
        return;
    m_sms->sendAtShopPort(
        GetClientMobile(cmbClient->Text(), 0), GetBookedSMS(m_store.CurrentJobID(), Val(txtAmount->Text())));
}

void frmEditJOB::deleteCard()
{
    if (m_store.EditMode() == u"N")
        return;
    if (AskUser(u"Are you sure to Delete!"_s) != 1)
        return;
    m_store.deleteCard();
    ShowMessage(u"Deleted."_s);
    m_jobDeleted = true;
    reject();
}
