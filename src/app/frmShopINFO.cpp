#include "app/frmShopINFO.h"

#include "app/shopSettings.h"
#include "ui/Command.h"
#include "ui/boxType.h"
#include "ui/complain.h"
#include "ui/formFields.h"
#include "ui/frmMsg.h"
#include "ui/kvTextBox.h"
#include "ui/language.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

using namespace Qt::StringLiterals;

frmShopINFO::frmShopINFO()
    : Screen(u"frmShopINFO"_s, u"Shop INFO"_s), txtName(new kvTextBox(u"txtName"_s)),
      txtADDRESS1(new kvTextBox(u"txtADDRESS1"_s)), txtADDRESS2(new kvTextBox(u"txtADDRESS2"_s)),
      txtADDRESS3(new kvTextBox(u"txtADDRESS3"_s)), txtCONTACTS(new kvTextBox(u"txtCONTACTS"_s, boxType::Plain)),
      Check1(new QCheckBox(u"Use Password Lock"_s)), Frame1(new QGroupBox(u"User Account Information"_s)),
      txtUserName(new kvTextBox(u"txtUserName"_s, boxType::Plain)),
      txtPassword(new kvTextBox(u"txtPassword"_s, boxType::Plain)), Command1(new Command(u"Command1"_s, u"&Save"_s))
{
    Check1->setObjectName(u"Check1"_s);
    Frame1->setObjectName(u"Frame1"_s);
    buildForm();
    load();
    TranslateForm(*this);

    setEntryKeys(EnterMovesOn);
    keepEnter(Command1);
    saveKey(Command1);
    connect(Check1, &QCheckBox::toggled, this, &frmShopINFO::lockChanged);
    connect(Command1, &Command::clicked, this, &frmShopINFO::save);
}

void frmShopINFO::buildForm()
{
    Command1->setDefault(true);
    auto *fields = new QGridLayout;
    addField(*fields, 0, u"Shop Name :"_s, txtName);
    addField(*fields, 1, u"Address :"_s, txtADDRESS1);
    fields->addWidget(txtADDRESS2, 2, 1);
    fields->addWidget(txtADDRESS3, 3, 1);
    nameAloud(txtADDRESS2, u"Address, second line"_s);
    nameAloud(txtADDRESS3, u"Address, third line"_s);
    addField(*fields, 4, u"Contacts :"_s, txtCONTACTS);
    fields->addWidget(hintLabel(u"These lines head all that is printed."_s), 5, 1);

    auto *account = new QGridLayout(Frame1);
    addField(*account, 0, u"User Name :"_s, txtUserName);
    addField(*account, 1, u"Password :"_s, txtPassword);
    account->addWidget(
        hintLabel(
            u"Asked for at each start, in just these letters, small and large. Without the lock they are forgotten."_s),
        2, 1);
    account->setColumnStretch(1, 1);

    auto *form = new QVBoxLayout(this);
    form->setContentsMargins(28, 16, 28, 16);
    form->addLayout(fields);
    form->addSpacing(10);
    form->addWidget(Check1);
    form->addWidget(Frame1);
    form->addStretch();
    form->addSpacing(6);
    form->addWidget(Command1, 0, Qt::AlignRight);
    resize(560, sizeHint().height());
}

void frmShopINFO::load()
{
    const shopSettings::Shop shop = shopSettings::readShop();
    txtName->setText(shop.name);
    txtADDRESS1->setText(shop.address1);
    txtADDRESS2->setText(shop.address2);
    txtADDRESS3->setText(shop.address3);
    txtCONTACTS->setText(shop.contacts);
    Check1->setChecked(shop.login.has_value());
    Frame1->setEnabled(shop.login.has_value());
    if (shop.login) {
        txtUserName->setText(shop.login->name);
        txtPassword->setText(shop.login->password);
    }
}

void frmShopINFO::lockChanged(bool on)
{
    Frame1->setEnabled(on);
    if (on)
        return;
    txtUserName->clear();
    txtPassword->clear();
}

void frmShopINFO::save()
{
    if (Check1->isChecked() && (txtUserName->Text().isEmpty() || txtPassword->Text().isEmpty()))
        return complain(u"Please enter User Name and Password!"_s, txtUserName);
    shopSettings::Shop shop{.name = txtName->Text(),
        .address1 = txtADDRESS1->Text(),
        .address2 = txtADDRESS2->Text(),
        .address3 = txtADDRESS3->Text(),
        .contacts = txtCONTACTS->Text()};
    if (Check1->isChecked())
        shop.login = shopSettings::Login{txtUserName->Text(), txtPassword->Text()};
    shopSettings::saveShop(shop);
    ShowMessage(u"Shop Info Updated."_s);
}
