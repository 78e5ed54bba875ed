#include "accounts/frmTransiction.h"

#include "accounts/frmPayrollDetails.h"
#include "accounts/printVoucher.h"
#include "accounts/voucherKinds.h"
#include "accounts/vouchers.h"
#include "base/session.h"
#include "base/values.h"
#include "ui/Command.h"
#include "ui/DateField.h"
#include "ui/accountCombo.h"
#include "ui/boxType.h"
#include "ui/complain.h"
#include "ui/formFields.h"
#include "ui/frmMsg.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"
#include "ui/kvTextBoxMultiLine.h"
#include "ui/modAutoSearch.h"

#include <QGridLayout>
#include <QLabel>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int accountLetters = 34;
constexpr int kindLetters = 10;

/// A word beside an account, as wide as the widest of them.
QLabel *sideLabel(const QString &name)
{
    auto *label = new QLabel;
    label->setObjectName(name);
    QFont strong = label->font();
    strong.setBold(true);
    label->setFont(strong);
    label->setMinimumWidth(QFontMetrics(strong).horizontalAdvance(u"MM"_s));
    return label;
}

kvTextBox *shownBox(const QString &name, int type)
{
    auto *box = new kvTextBox(name, type);
    showOnly(*box);
    box->setFocusPolicy(Qt::NoFocus);
    return box;
}

} // namespace

frmTransiction::frmTransiction() : Screen(u"frmTransiction"_s, u"Entry"_s)
{
    buildForm();
    connectCommands();
    setEntryKeys(EnterMovesOn);
}

void frmTransiction::buildForm()
{
    txtRemark = new kvTextBoxMultiLine(u"txtRemark"_s);
    auto *whole = new QVBoxLayout(this);
    whole->addLayout(buildHead());
    whole->addSpacing(12);
    whole->addLayout(buildSides());
    whole->addSpacing(12);
    whole->addWidget(captionOf(txtRemark, u"&Remark"_s), 0, Qt::AlignLeft);
    whole->addWidget(txtRemark, 1);
    whole->addLayout(buildCommands());
    resize(760, 390);
    // It can't be changed here, but it is to be read. In its place: on the way there a combo loses its colours.
    QPalette readable = cmbAccount->palette();
    readable.setColor(QPalette::Disabled, QPalette::Text, readable.color(QPalette::Active, QPalette::Text));
    cmbAccount->setPalette(readable);

    chainTabs(
        {VcDate, cmbParticulars, cmbRefAcc, txtAmount, txtRemark, cmdSave, cmdPrint, cmdDelete, cmdDetails, cmdCancel});
}

QLayout *frmTransiction::buildHead()
{
    txtVID = shownBox(u"txtVID"_s, boxType::Plain);
    txtVID->setMaximumWidth(100);
    VcDate = new DateField(u"VcDate"_s);
    cmbParticulars = new kvComboBox(u"cmbParticulars"_s);
    installAutoSearch(cmbParticulars);
    openListOnFocus(*cmbParticulars);
    cmbParticulars->setMinimumContentsLength(kindLetters);
    setComboEntries(*cmbParticulars, voucherKinds::names());
    auto *row = new QHBoxLayout;
    row->addWidget(captionOf(txtVID, u"Voucher #"_s));
    row->addWidget(txtVID);
    row->addStretch();
    row->addWidget(captionOf(VcDate, u"Da&te"_s));
    row->addWidget(VcDate);
    row->addStretch();
    row->addWidget(captionOf(cmbParticulars, u"&Voucher Type"_s));
    row->addWidget(cmbParticulars);
    return row;
}

QLayout *frmTransiction::buildSides()
{
    cmbAccount = accountCombo(u"cmbAccount"_s);
    cmbAccount->setEnabled(false);
    cmbRefAcc = accountCombo(u"cmbRefAcc"_s);
    openListOnFocus(*cmbRefAcc);
    nameAloud(cmbAccount, u"Main account"_s);
    nameAloud(cmbRefAcc, u"Other account"_s);
    txtAmount = new kvTextBox(u"txtAmount"_s, boxType::Amount);
    txtAmount2 = shownBox(u"txtAmount2"_s, boxType::Amount);
    nameAloud(txtAmount2, u"Amount of the other account"_s);
    lblMain = sideLabel(u"lblMain"_s);
    lblMainType = sideLabel(u"lblMainType"_s);
    lblRef = sideLabel(u"lblRef"_s);
    lblRefType = sideLabel(u"lblRefType"_s);

    auto *grid = new QGridLayout;
    enum { Word, Account, Side, Amount };
    grid->addWidget(new QLabel(u"Account"_s), 0, Account);
    grid->addWidget(captionOf(txtAmount, u"A&mount"_s), 0, Amount);
    const auto addSide = [grid](int row, QLabel *word, kvComboBox *account, QLabel *side, kvTextBox *amount) {
        account->setMinimumContentsLength(accountLetters);
        amount->setAlignment(Qt::AlignRight);
        amount->setText(u"0.00"_s);
        grid->addWidget(word, row, Word);
        grid->addWidget(account, row, Account);
        grid->addWidget(side, row, Side);
        grid->addWidget(amount, row, Amount);
    };
    addSide(1, lblMain, cmbAccount, lblMainType, txtAmount);
    addSide(2, lblRef, cmbRefAcc, lblRefType, txtAmount2);
    grid->setColumnStretch(Account, 1);
    return grid;
}

QLayout *frmTransiction::buildCommands()
{
    cmdDetails = new Command(u"cmdDetails"_s, u"Payroll &Details"_s);
    cmdDetails->hide();
    cmdDelete = new Command(u"cmdDelete"_s, u"&Delete"_s);
    cmdPrint = new Command(u"cmdPrint"_s, u"&Print"_s);
    cmdCancel = new Command(u"cmdCancel"_s, u"&Cancel"_s);
    cmdSave = new Command(u"cmdSave"_s, u"&Save"_s);
    cmdSave->setDefault(true);
    auto *row = new QHBoxLayout;
    row->addWidget(cmdDelete);
    row->addWidget(cmdDetails);
    row->addStretch();
    row->addWidget(cmdPrint);
    row->addWidget(cmdCancel);
    row->addWidget(cmdSave);
    return row;
}

void frmTransiction::connectCommands()
{
    connect(cmbParticulars, &kvComboBox::lostFocus, this, &frmTransiction::showLabels);
    connect(txtAmount, &kvTextBox::changed, this, [this] { txtAmount2->setText(NumberText(Val(txtAmount->Text()))); });
    connect(cmdSave, &Command::clicked, this, &frmTransiction::save);
    saveKey(cmdSave);
    connect(cmdDelete, &Command::clicked, this, &frmTransiction::deleteEntry);
    connect(cmdCancel, &Command::clicked, this, &QDialog::reject);
    connect(cmdPrint, &Command::clicked, this, &frmTransiction::print);
    printKey(cmdPrint);
    connect(
        cmdDetails, &Command::clicked, this, [this] { frmPayrollDetails().ExecuteSQL(cmbAccount->Text(), VoucherID); });
}

void frmTransiction::fillAccounts()
{
    fillWithTitles(*cmbRefAcc, {});
    // The same thousands of titles, once.
    cmbAccount->setModel(cmbRefAcc->model());
}

void frmTransiction::setMode(const QString &mode)
{
    EditMode = mode;
    const bool isStored = mode == u"E"_s;
    setWindowTitle(isStored ? u"Edit Entry"_s : u"Add New Entry"_s);
    cmdDelete->setEnabled(isStored);
    cmdPrint->setEnabled(isStored);
}

void frmTransiction::ShowAddNew(const QString &accountTitle, bool &changed)
{
    fillAccounts();
    VoucherID = vouchers::GetNewNum();
    txtVID->setText(QString::number(VoucherID));
    setMode(u"N"_s);
    EntryChanged = false;
    MainAccountTitle = accountTitle;
    VcDate->setDate(session::CurrentDate);
    cmbAccount->setText(accountTitle);
    cmbParticulars->setFocus();
    exec();
    changed = EntryChanged;
}

void frmTransiction::ShowEdit(qint32 number, bool &changed)
{
    EntryChanged = false;
    fillAccounts();
    VoucherID = number;
    setMode(u"E"_s);
    const auto stored = vouchers::read(number);
    // Another program may have deleted it: the list that it was opened from is to see that.
    changed = !stored;
    if (!stored)
        return ShowMessage(u"Entry is damaged!"_s);
    const vouchers::Voucher &voucher = stored->voucher;
    txtVID->setText(QString::number(VoucherID));
    MainAccountTitle = voucher.mainAccount;
    cmbRefAcc->setText(voucher.otherAccount);
    cmbParticulars->setText(voucher.kind);
    VcDate->setDate(voucher.date);
    txtRemark->setText(voucher.remark);
    const bool isCredit = stored->amount > 0;
    const voucherKinds::Sides sides = voucherKinds::sides(isCredit);
    lblMain->setText(sides.mainLabel);
    lblMainType->setText(sides.mainSide);
    lblRef->setText(sides.otherLabel);
    // On both ways of a voucher, until it is saved.
    lblRefType->setText(u"Cr"_s);
    txtAmount->setText(NumberText(std::abs(stored->amount)));
    IsPayrollEntry = stored->isPayroll;
    cmdDetails->setVisible(IsPayrollEntry);
    cmbAccount->setText(MainAccountTitle);
    if (voucher.mainAccount.isEmpty() || voucher.otherAccount.isEmpty())
        ShowMessage(u"An account of this entry has been deleted!"_s);
    cmbParticulars->setFocus();
    exec();
    changed = EntryChanged;
}

void frmTransiction::showLabels()
{
    const auto sides = voucherKinds::sidesOf(cmbParticulars->Text());
    if (!sides)
        return;
    lblMain->setText(sides->mainLabel);
    lblMainType->setText(sides->mainSide);
    lblRef->setText(sides->otherLabel);
    lblRefType->setText(sides->otherSide);
}

bool frmTransiction::isPayable()
{
    const double amount = Val(txtAmount->Text());
    if (amount == 0) {
        complain(u"Please enter amount!"_s, txtAmount);
        return false;
    }
    if (amount > largestAmount) {
        complain(u"Amount is too high!"_s, txtAmount);
        return false;
    }
    return true;
}

void frmTransiction::save()
{
    if (hasRefusedDate(*this))
        return;
    if (!requireEntry(*cmbParticulars, u"Please select voucher!"_s)
        || !requireEntry(*cmbRefAcc, u"Please Select Account!"_s) || !isPayable())
        return;
    if (cmbRefAcc->Text() == MainAccountTitle || MainAccountTitle.isEmpty())
        return ShowMessage(u"Please Check accounts!"_s);
    showLabels();
    const vouchers::Voucher voucher{.number = VoucherID,
        .kind = cmbParticulars->Text(),
        .date = VcDate->date(),
        .mainAccount = MainAccountTitle,
        .otherAccount = cmbRefAcc->Text(),
        .remark = txtRemark->Text(),
        .amount = txtAmount->Text()};
    if (EditMode == u"N"_s) {
        vouchers::SaveNew(voucher);
        setMode(u"E"_s);
        EntryChanged = true;
        return ShowMessage(u"New Entry saved."_s);
    }
    vouchers::SaveEdit(voucher);
    EntryChanged = true;
    ShowMessage(u"Entry Updated."_s);
}

void frmTransiction::deleteEntry()
{
    if (EditMode != u"E"_s || AskUser(u"Are you sure to delete entry?"_s) != 1)
        return;
    const auto payrollWarning = u"You are going to delete a payroll?\r\nThis action will reset all jobs as unpaid?\r\n"
                                "Press Yes to Delete!"_s;
    if (IsPayrollEntry && AskUser(payrollWarning) != 1)
        return;
    vouchers::remove(VoucherID, IsPayrollEntry);
    EntryChanged = true;
    accept();
}

void frmTransiction::print()
{
    if (EditMode == u"E"_s)
        printVoucher(VoucherID, cmbParticulars->Text(), txtRemark->Text());
}
