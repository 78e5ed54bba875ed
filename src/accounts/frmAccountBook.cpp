#include "accounts/frmAccountBook.h"

#include "accounts/documentTag.h"
#include "accounts/frmDayBook.h"
#include "accounts/frmTransiction.h"
#include "accounts/frmWorkerWagesRegister.h"
#include "accounts/openDocument.h"
#include "accounts/printStatement.h"
#include "base/balanceText.h"
#include "base/values.h"
#include "comms/kvSMS.h"
#include "comms/modSMS.h"
#include "reports/ReportPreview.h"
#include "store/codes.h"
#include "store/lookups.h"
#include "store/settings.h"
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

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int accountLetters = 12;
constexpr int gap = 8;

const auto chooseAccount = u"Choose an account: View (Alt+V) lists its statement."_s;

struct Group {
    QString name;
    int type;
};

/// In the order of their entries.
const std::array<Group, 3> &groups()
{
    static const std::array<Group, 3> all{{{u"Clients"_s, accountType::Client}, {u"Workers"_s, accountType::Worker},
        {u"Accounts"_s, accountType::Ledger}}};
    return all;
}

QLabel *sumLabel(const QString &name)
{
    auto *label = new QLabel;
    label->setObjectName(name);
    QFont strong = label->font();
    strong.setBold(true);
    label->setFont(strong);
    return label;
}

} // namespace

frmAccountBook::frmAccountBook()
    : RegisterScreen(u"frmAccountBook"_s, u"Account Book"_s, Refresh::OnCommand), m_sms(new kvSMS(this))
{
    buildForm();
    connectCommands();
    m_period->setShopDefault();
    loadList();
    cmbAccount->setFocus();
}

void frmAccountBook::buildForm()
{
    lvSummary = new ListView(u"lvSummary"_s,
        {{u"Date"_s, 11}, {u"VC #"_s, 7, true}, {u"Voucher"_s, 10}, {u"Particulars"_s, 24}, {u"Debit"_s, 12, true},
            {u"Credit"_s, 12, true}, {u"Remark"_s, 24}});
    lvSummary->setAccessibleName(u"Account statement"_s);
    lvSummary->setEmptyText(chooseAccount);
    setRegister(lvSummary);
    auto *whole = new QVBoxLayout(this);
    whole->addLayout(buildQuery());
    whole->addWidget(lvSummary, 1);
    whole->addLayout(buildSums());
    whole->addLayout(buildCommands());
    useRoom({1120, 660});

    chainTabs(QList<QWidget *>{cmbType, cmbAccount} + m_period->fields()
        + QList<QWidget *>{cmdView, lvSummary, cmdWages, cmdDayBook, cmdSMS, cmdPrint, cmdAdd});
}

QLayout *frmAccountBook::buildQuery()
{
    cmbType = new kvComboBox(u"cmbType"_s);
    cmbType->setEditable(false);
    for (const Group &group : groups())
        cmbType->addItem(group.name);
    cmbAccount = accountCombo(u"cmbAccount"_s);
    cmbAccount->setMinimumContentsLength(accountLetters);
    m_period = new PeriodFields;
    cmdView = new Command(u"cmdView"_s, u"&View"_s);
    cmdView->setDefault(true);
    auto *row = new QHBoxLayout;
    row->addWidget(captionOf(cmbType, u"&Group :"_s));
    row->addWidget(cmbType);
    row->addSpacing(gap);
    row->addWidget(captionOf(cmbAccount, u"A&ccount :"_s));
    row->addWidget(cmbAccount, 1);
    row->addSpacing(gap);
    row->addWidget(m_period);
    row->addWidget(cmdView);
    return row;
}

/// The sums of a long statement, in view wherever the list stands.
QLayout *frmAccountBook::buildSums()
{
    lblOpening = sumLabel(u"lblOpening"_s);
    lblDebits = sumLabel(u"lblDebits"_s);
    lblCredits = sumLabel(u"lblCredits"_s);
    lblClosing = sumLabel(u"lblClosing"_s);
    auto *row = new QHBoxLayout;
    for (const auto &[caption, label] :
        {std::pair{u"Opening Balance :"_s, lblOpening}, std::pair{u"Debits :"_s, lblDebits},
            std::pair{u"Credits :"_s, lblCredits}, std::pair{u"Closing Balance :"_s, lblClosing}}) {
        row->addWidget(captionOf(label, caption));
        row->addWidget(label);
        row->addStretch();
    }
    return row;
}

QLayout *frmAccountBook::buildCommands()
{
    cmdWages = new Command(u"cmdWages"_s, u"Wages Register"_s);
    cmdDayBook = new Command(u"cmdDayBook"_s, u"&Day Book"_s);
    cmdSMS = new Command(u"cmdSMS"_s, u"SMS Due Balance"_s);
    cmdPrint = new Command(u"cmdPrint"_s, u"&Print Report"_s);
    cmdAdd = new Command(u"cmdAdd"_s, u"&Add Entry"_s);
    auto *row = new QHBoxLayout;
    row->addWidget(cmdWages);
    row->addWidget(cmdDayBook);
    row->addStretch();
    row->addWidget(cmdSMS);
    row->addWidget(cmdPrint);
    row->addWidget(cmdAdd);
    return row;
}

void frmAccountBook::connectCommands()
{
    setPeriod(m_period, cmdView);
    connect(cmbType, &QComboBox::activated, this, &frmAccountBook::loadList);
    connect(cmbAccount, &kvComboBox::keyPress, this, [this](int &key) {
        if (key != keys::Enter)
            return;
        key = keys::Swallowed;
        cmdView->trigger();
    });
    for (int group = 0; group < cmbType->count(); ++group) {
        const auto key = static_cast<Qt::Key>(Qt::Key_1 + group);
        onKey(Qt::CTRL | key, u"Group: "_s + cmbType->itemText(group), [this, group] { chooseGroup(group); });
    }
    connect(cmdView, &Command::clicked, this, &frmAccountBook::view);
    connect(cmdAdd, &Command::clicked, this, &frmAccountBook::addEntry);
    connect(cmdPrint, &Command::clicked, this, &frmAccountBook::print);
    printKey(cmdPrint);
    connect(cmdSMS, &Command::clicked, this, &frmAccountBook::sendDue);
    connect(cmdWages, &Command::clicked, this, &frmAccountBook::showWages);
    connect(cmdDayBook, &Command::clicked, this, [] { frmDayBook().exec(); });
}

void frmAccountBook::ShowAccount(const QString &title)
{
    lvSummary->setFocus();
    cmbAccount->setText(title);
    ExecuteSQL();
    exec();
}

void frmAccountBook::loadList()
{
    const Group &group = groups().at(static_cast<size_t>(qMax(cmbType->currentIndex(), 0)));
    fillWithTitles(*cmbAccount, u" where type="_s + QString::number(group.type));
}

void frmAccountBook::chooseGroup(int group)
{
    if (group != cmbType->currentIndex()) {
        cmbType->setCurrentIndex(group);
        loadList();
    }
    cmbAccount->setFocus(Qt::ShortcutFocusReason);
}

void frmAccountBook::ExecuteSQL()
{
    m_statement = {};
    lvSummary->setEmptyText(chooseAccount);
    const bool isChosen = SelectComboEntry(*cmbAccount) >= 0;
    if (const auto account = isChosen ? findAccountID(cmbAccount->Text()) : std::nullopt) {
        m_statement = AccountStatement::of(*account, m_period->from(), m_period->to());
        lvSummary->setEmptyText(u"No posting of %1 %2.\n\nOther dates and View (Alt+V) list others; Add Entry (Alt+A) "
                                "writes a voucher."_s.arg(cmbAccount->Text(), m_period->inWords()));
    }
    showRows(std::move(m_statement.rows), lvSummary->currentRow() < 0 ? Keep::First : Keep::Tag);
    showSums();
}

void frmAccountBook::showSums()
{
    lblOpening->setText(balanceText::inRegister(m_statement.OpeningBalance));
    lblDebits->setText(Money(-m_statement.PeriodDebits));
    lblCredits->setText(Money(m_statement.PeriodCredits));
    lblClosing->setText(balanceText::inRegister(m_statement.ClosingBalance));
}

/// Tells where the box's text begins no account of the group, or one that is gone since the list was loaded.
bool frmAccountBook::requireAccount()
{
    if (SelectComboEntry(*cmbAccount) >= 0) {
        if (findAccountID(cmbAccount->Text()))
            return true;
        loadList();
    }
    platformBox::show(u"Please select Account!"_s);
    cmbAccount->setFocus(Qt::OtherFocusReason);
    return false;
}

void frmAccountBook::view()
{
    if (!m_period->isUsable() || !requireAccount())
        return;
    ExecuteSQL();
    lvSummary->setFocus(Qt::OtherFocusReason);
}

void frmAccountBook::openRow(const ListRow &row)
{
    if (!requireAccount())
        return;
    if (const auto document = DocumentTag::of(row.tag.toString()); document && openDocument(*document))
        ExecuteSQL();
}

void frmAccountBook::addEntry()
{
    if (!requireAccount())
        return;
    bool changed = false;
    frmTransiction().ShowAddNew(cmbAccount->Text(), changed);
    if (changed)
        ExecuteSQL();
}

void frmAccountBook::showWages()
{
    frmWorkerWagesRegister().exec();
    ExecuteSQL();
}

void frmAccountBook::sendDue()
{
    if (cmbAccount->Text().isEmpty() || hasRefusedDate(*m_period) || !requireAccount())
        return;
    const QString account = cmbAccount->Text();
    const double balance = GetAccountBalance(GetAccountID(account), m_period->to());
    m_sms->sendAtShopPort(GetClientMobile(account, 0),
        GetDueSMS(NumberText(balance)) + u" ("_s + DayMonthYear(m_period->to()) + u")\r\r"_s
            + GetSetting(setting::SmsTitle));
}

void frmAccountBook::print()
{
    if (hasRefusedDate(*m_period))
        return;
    const bool withRemark = AskUser(u"Print Account Statement with Remark?"_s) == 1;
    const auto pages = printStatement(
        lvSummary->list(), m_statement, cmbAccount->Text(), m_period->from(), m_period->to(), withRemark);
    if (pages)
        ReportPreview(*pages).exec();
}
