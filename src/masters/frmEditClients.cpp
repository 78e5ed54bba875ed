#include "masters/frmEditClients.h"

#include "base/values.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "ui/Command.h"
#include "ui/DateField.h"
#include "ui/complain.h"
#include "ui/formFields.h"
#include "ui/kvTextBox.h"

#include <QGridLayout>

using namespace Qt::StringLiterals;

namespace {

/// What `AddNewFromJobCard` answers.
QString &lastSavedName()
{
    static QString name;
    return name;
}

} // namespace

frmEditClients::frmEditClients() : MasterEditor(u"frmEditClients"_s, masterRows::clients())
{
    buildForm();
    connect(Command3, &Command::clicked, this, &frmEditClients::generateKey);
}

void frmEditClients::buildForm()
{
    txtKey = textField(u"txtKey"_s, u"Key"_s);
    txtAddress = textField(u"txtAddress"_s, u"Address"_s);
    txtCity = textField(u"txtCity"_s, u"City"_s);
    txtState = textField(u"txtState"_s, u"State"_s);
    txtMobile = textField(u"txtMobile"_s, u"Mobile"_s);
    dateDob = new DateField(u"dateDob"_s);
    dateDob->setForBirthdays();
    // Off the way of Enter and Tab: whoever wants no key passes on with one stroke.
    Command3 = new Command(u"Command3"_s, u"Auto &Gen"_s);
    Command3->setFocusPolicy(Qt::ClickFocus);
    auto *key = new QWidget;
    auto *keyRow = new QHBoxLayout(key);
    keyRow->setContentsMargins({});
    keyRow->addWidget(txtKey, 1);
    keyRow->addWidget(Command3);
    key->setFocusProxy(txtKey);

    auto *fields = new QGridLayout;
    addField(fields, u"Client Name :"_s, txtName);
    addField(fields, u"Mobile Number :"_s, txtMobile, u"( eg 9829******, without 91 or +91"_s);
    addField(fields, u"Key :"_s, key);
    addField(fields, u"Address :"_s, txtAddress);
    addField(fields, u"City/Town/Village :"_s, txtCity);
    addField(fields, u"State/Provision :"_s, txtState);
    addField(fields, u"Date of Birth :"_s, dateDob);
    stretch(fields);
    buildFrame(fields);
    resize(520, sizeHint().height());

    chainTabs({txtName, txtMobile, txtKey, txtAddress, txtCity, txtState, dateDob, Command1, Command2});
}

void frmEditClients::startNew()
{
    start(u"N"_s, u"Add New Client"_s);
}

void frmEditClients::AddNew()
{
    addOneAfterAnother(*this);
}

QString frmEditClients::AddNewFromJobCard()
{
    addOne();
    return lastSavedName();
}

void frmEditClients::Edit(int id)
{
    Recordset &row = startEdit(u"Edit Client Information"_s, id);
    m_loadedKey = txtKey->Text();
    dateDob->setBirthday(row.isNull(u"dob") ? QDate() : row.date(u"dob"));
    row.close();
    Command3->setEnabled(false);
    exec();
}

void frmEditClients::save()
{
    if (hasRefusedDate(*this))
        return;
    if (isNameMissing(u"Please Enter Client Name!"_s))
        return;
    if (!store({{u"Type"_s, accountType::Client}, {u"dob"_s, dateDob->birthday()}},
            {{u"Key"_s, txtKey, m_loadedKey, u"Duplicate Key!"_s}}))
        return;
    m_loadedKey = txtKey->Text();
    lastSavedName() = txtName->Text();
    finishSave(u"New Client Created."_s, u"Client Information Updated."_s);
}

void frmEditClients::generateKey()
{
    if (!isNew())
        return;
    // The last account of all, whatever it is: after a worker or a ledger account, which have no key, it begins anew.
    Recordset &accounts = DE().rsaccounts;
    accounts.openLast(u"Select * from Accounts order by ID"_s);
    const QString last = accounts.eof() ? QString() : accounts.textOrEmpty(u"Key");
    accounts.close();
    txtKey->setText(NumberText(Val(last) + 1));
    txtKey->setFocus(Qt::OtherFocusReason);
}
