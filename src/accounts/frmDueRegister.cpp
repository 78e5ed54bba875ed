#include "accounts/frmDueRegister.h"

#include "accounts/clientDues.h"
#include "accounts/frmAccountBook.h"
#include "base/session.h"
#include "base/values.h"
#include "ui/ListView.h"

#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

frmDueRegister::frmDueRegister() : RegisterScreen(u"frmDueRegister"_s, u"Client Dues REGISTER"_s, Refresh::InFront)
{
    lvSummary = new ListView(u"lvSummary"_s, {{u"Client"_s, 70}, {u"Due Amount"_s, 30, true}});
    lvSummary->setAccessibleName(windowTitle());
    lvSummary->letSort();
    setRegister(lvSummary);
    lblTotal = new QLabel;
    lblTotal->setObjectName(u"lblTotal"_s);
    auto *whole = new QVBoxLayout(this);
    whole->addWidget(lvSummary, 1);
    whole->addWidget(lblTotal, 0, Qt::AlignRight);
    resize(560, 580);
}

void frmDueRegister::ExcuteSQl()
{
    std::vector<ListRow> rows;
    Currency total;
    for (const ClientDue &due : clientDues(session::CurrentDate)) {
        total += due.amount;
        rows.push_back({.cells = {due.title, Money(due.amount.toDouble())}, .tag = due.client});
    }
    lblTotal->setText(u"Clients : %1    Total Due : %2"_s.arg(rows.size()).arg(Money(total.toDouble())));
    lvSummary->setEmptyText(u"No client owes anything on %1.\nWho does comes here by his job cards and vouchers."_s.arg(
        DayMonthYear(session::CurrentDate)));
    showRows(std::move(rows), lvSummary->currentRow() < 0 ? Keep::First : Keep::Tag);
}

void frmDueRegister::openRow(const ListRow &row)
{
    frmAccountBook().ShowAccount(row.cells.first());
}
