#include "masters/frmEditAccount.h"

#include "store/codes.h"
#include "ui/Command.h"
#include "ui/complain.h"
#include "ui/formFields.h"
#include "ui/frmMsg.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"
#include "ui/modAutoSearch.h"

#include <QGridLayout>

using namespace Qt::StringLiterals;

frmEditAccount::frmEditAccount() : MasterEditor(u"frmEditAccount"_s, masterRows::accounts())
{
    buildForm();
}

void frmEditAccount::buildForm()
{
    cmbType = new kvComboBox(u"cmbType"_s);
    installAutoSearch(cmbType);
    // In the order of their numbers in `Nature`.
    setComboEntries(*cmbType, {u"Income"_s, u"Expenses"_s});
    auto *fields = new QGridLayout;
    addField(fields, u"Account Title :"_s, txtName);
    addField(fields, u"Type :"_s, cmbType);
    stretch(fields);
    buildFrame(fields);
    resize(460, sizeHint().height());
    chainTabs({Command1, Command2});
}

void frmEditAccount::startNew()
{
    start(u"N"_s, u"Add New Account"_s);
}

void frmEditAccount::ShowAddNew()
{
    addOne();
}

void frmEditAccount::ShowEdit(int AccountID)
{
    Recordset &row = startEdit(u"Edit Account"_s, AccountID);
    cmbType->setCurrentIndex(row.integer(u"Nature"));
    IsReadOnly = row.integer(u"ReadOnly");
    row.close();
    exec();
}

void frmEditAccount::save()
{
    if (isNameMissing(u"Please enter account title!"_s))
        return;
    if (cmbType->currentIndex() < 0)
        return complain(u"Please select account type"_s, cmbType);
    if (!isNew() && IsReadOnly == 1)
        return complain(u"Cant't Rename!"_s);
    if (!store({{u"Type"_s, accountType::Ledger}, {u"Nature"_s, cmbType->currentIndex()}}))
        return;
    if (!isNew())
        // The title that it was opened with stays the one that a change is measured by.
        return ShowMessage(u"Account information edited."_s);
    OldTitle = txtName->Text();
    ShowMessage(u"New Account created."_s);
    start(u"E"_s, u"Edit Account"_s);
}

void frmEditAccount::deleteRow()
{
    if (IsReadOnly == 1)
        return complain(u"Cant't Delete!"_s);
    MasterEditor::deleteRow();
}
