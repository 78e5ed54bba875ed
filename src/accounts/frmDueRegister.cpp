#include "accounts/frmDueRegister.h"

#include "accounts/frmAccountBook.h"
#include "base/Currency.h"
#include "base/session.h"
#include "base/values.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/lookups.h"
#include "ui/ListView.h"

#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

frmDueRegister::frmDueRegister() : RegisterScreen(u"frmDueRegister"_s, u"Client Dues REGISTER"_s, Refresh::InFront)
{
    lvSummary = new ListView(u"lvSummary"_s, {{u"Client"_s, 70}, {u"Due Amount"_s, 30, true}});
    lvSummary->setAccessibleName(windowTitle());
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
    Recordset &clients = DE().rsaccounts;
    clients.reopen(
        u"Select * from Accounts where type="_s + QString::number(accountType::Client) + u" order by Title"_s);
    for (; !clients.eof(); clients.moveNext()) {
        const qint32 id = clients.integer(u"ID");
        const Currency balance = Currency::fromDouble(GetAccountBalance(id, session::CurrentDate));
        if (balance.toDouble() >= 0)
            continue;
        total += balance;
        rows.push_back({.cells = {clients.text(u"Title"), Money(-balance.toDouble())}, .tag = id});
    }
    clients.close();
    lblTotal->setText(u"Clients : %1    Total Due : %2"_s.arg(rows.size()).arg(Money(-total.toDouble())));
    showRows(std::move(rows), lvSummary->currentRow() < 0 ? Keep::First : Keep::Tag);
}

void frmDueRegister::openRow(const ListRow &row)
{
    frmAccountBook().ShowAccount(row.cells.first());
}
