#include "app/frmMenu.h"

#include "accounts/frmAccountBook.h"
#include "accounts/frmDayBook.h"
#include "accounts/frmDueRegister.h"
#include "accounts/frmWorkerWagesRegister.h"
#include "app/menuColumn.h"
#include "comms/frmBirthDayRimenders.h"
#include "comms/frmSelectDate.h"
#include "production/frmRatings.h"
#include "registers/frmDeliveryRegister.h"
#include "registers/frmTrailDate.h"
#include "ui/Command.h"
#include "ui/language.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

frmMenu::frmMenu() : Screen(u"frmMenu"_s, u"Reports"_s)
{
    auto *books = new QVBoxLayout;
    Command *Command2 = menuColumn::add(*books, {"Command2"_L1, "D&ues Register"_L1});
    Command *Command3 = menuColumn::add(*books, {"Command3"_L1, "&Account Book"_L1});
    Command *Command7 = menuColumn::add(*books, {"Command7"_L1, "&Wages Register"_L1});
    Command *Command6 = menuColumn::add(*books, {"Command6"_L1, "&Day Book"_L1});
    Command *Command10 = menuColumn::add(*books, {"Command10"_L1, "Deli&very Register"_L1});

    auto *others = new QVBoxLayout;
    Command *Command5 = menuColumn::add(*others, {"Command5"_L1, "&Ratings"_L1});
    Command *Command4 = menuColumn::add(*others, {"Command4"_L1, "&Trial Reminder"_L1});
    Command *Command1 = menuColumn::add(*others, {"Command1"_L1, "&Birthdays Reminder"_L1});
    Command *Command9 = menuColumn::add(*others, {"Command9"_L1, "&Export Status Report"_L1});
    Command *Command8 = menuColumn::add(*others, {"Command8"_L1, "Back"_L1});

    auto *form = new QHBoxLayout(this);
    form->setContentsMargins(28, 24, 28, 24);
    form->setSpacing(18);
    form->addLayout(books);
    form->addLayout(others);
    form->setSizeConstraint(QLayout::SetFixedSize);

    TranslateForm(*this);
    connect(Command4, &Command::clicked, this, [] { frmTrailDate().exec(); });
    connect(Command2, &Command::clicked, this, [] { frmDueRegister().exec(); });
    connect(Command3, &Command::clicked, this, [] { frmAccountBook().exec(); });
    connect(Command7, &Command::clicked, this, [] { frmWorkerWagesRegister().exec(); });
    connect(Command6, &Command::clicked, this, [] { frmDayBook().exec(); });
    connect(Command5, &Command::clicked, this, [] { frmRatings().exec(); });
    connect(Command1, &Command::clicked, this, [] { frmBirthDayRimenders().exec(); });
    connect(Command9, &Command::clicked, this, [] { frmSelectDate().exec(); });
    connect(Command10, &Command::clicked, this, [] { frmDeliveryRegister().exec(); });
    connect(Command8, &Command::clicked, this, &QDialog::reject);
}
