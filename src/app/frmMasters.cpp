#include "app/frmMasters.h"

#include "app/menuColumn.h"
#include "masters/MasterList.h"
#include "ui/Command.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

frmMasters::frmMasters() : Screen(u"frmMasters"_s, u"Masters"_s)
{
    auto *form = new QVBoxLayout(this);
    form->setContentsMargins(28, 24, 28, 24);
    Command *cmdCreateNewClint = menuColumn::add(*form, {"cmdCreateNewClint"_L1, "&Clients"_L1});
    Command *Command1 = menuColumn::add(*form, {"Command1"_L1, "&Workers"_L1});
    Command *Command3 = menuColumn::add(*form, {"Command3"_L1, "&Items"_L1});
    Command *Command2 = menuColumn::add(*form, {"Command2"_L1, "&Accounts"_L1});
    form->addSpacing(10);
    Command *Command8 = menuColumn::add(*form, {"Command8"_L1, "Back"_L1});
    form->setSizeConstraint(QLayout::SetFixedSize);

    connect(cmdCreateNewClint, &Command::clicked, this, [] { frmClients().exec(); });
    connect(Command1, &Command::clicked, this, [] { frmWorkers().exec(); });
    connect(Command3, &Command::clicked, this, [] { frmItems().exec(); });
    connect(Command2, &Command::clicked, this, [] { frmAccountsList().exec(); });
    connect(Command8, &Command::clicked, this, &QDialog::reject);
}
