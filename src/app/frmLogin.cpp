#include "app/frmLogin.h"

#include "store/settings.h"
#include "ui/Command.h"
#include "ui/boxType.h"
#include "ui/complain.h"
#include "ui/entryFilters.h"
#include "ui/formFields.h"
#include "ui/frmMsg.h"
#include "ui/kvTextBox.h"
#include "ui/language.h"

#include <QGridLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

frmLogin::frmLogin()
    : Screen(u"frmLogin"_s, u"Corvane"_s), txtUserName(new kvTextBox(u"txtUserName"_s, boxType::Plain)),
      txtPassword(new kvTextBox(u"txtPassword"_s, boxType::Plain)), Command1(new Command(u"Command1"_s, u"&Login"_s))
{
    auto *heading = new QLabel(u"Login to Corvane"_s);
    heading->setObjectName(u"lblTitle"_s);
    txtPassword->setEchoMode(QLineEdit::Password);
    Command1->setDefault(true);

    auto *form = new QGridLayout(this);
    form->setContentsMargins(28, 24, 28, 24);
    form->addWidget(heading, 0, 0, 1, 2);
    form->setRowMinimumHeight(1, 4);
    addField(*form, 2, u"&User Name :"_s, txtUserName);
    addField(*form, 3, u"&Password :"_s, txtPassword);
    form->setRowMinimumHeight(4, 4);
    form->addWidget(Command1, 5, 1, Qt::AlignRight);
    form->setColumnMinimumWidth(1, 260);
    form->setSizeConstraint(QLayout::SetFixedSize);

    setEntryKeys(EnterMovesOn);
    // The last field: Enter goes on to the shop.
    keepEnter(txtPassword);
    txtPassword->setAutoTab(false);
    onEnter(txtPassword, [this] { Command1->trigger(); });
    TranslateForm(*this);
    connect(Command1, &Command::clicked, this, &frmLogin::check);
}

bool frmLogin::Login()
{
    m_passed = false;
    txtUserName->setFocus();
    exec();
    return m_passed;
}

void frmLogin::check()
{
    if (txtUserName->Text().isEmpty())
        return complain(u"Please enter user name!"_s, txtUserName);
    if (txtPassword->Text().isEmpty())
        return complain(u"Please enter password!"_s, txtPassword);
    if (txtUserName->Text() != GetSetting(setting::LoginName)
        || txtPassword->Text() != GetSetting(setting::LoginPassword)) {
        ShowMessage(u"Invalid user name or password!"_s);
        txtUserName->clear();
        txtPassword->clear();
        txtUserName->setFocus();
        return;
    }
    m_passed = true;
    accept();
}
