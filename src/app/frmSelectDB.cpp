#include "app/frmSelectDB.h"

#include "base/session.h"
#include "ui/Command.h"

#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QLabel *explanation(const QString &text)
{
    auto *label = new QLabel(text);
    label->setWordWrap(true);
    label->setMinimumWidth(420);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

} // namespace

frmSelectDB::frmSelectDB() : Screen(u"frmSelectDB"_s, u"Select Database"_s)
{
    auto *heading = new QLabel(u"Please select Database to get start with Corvane"_s);
    heading->setObjectName(u"lblTitle"_s);
    auto *Command1 = new Command(u"Command1"_s, u"Default Database"_s);
    auto *Command2 = new Command(u"Command2"_s, u"Demo Database"_s);
    for (Command *command : {Command1, Command2})
        command->setMinimumHeight(44);

    auto *form = new QVBoxLayout(this);
    form->setContentsMargins(28, 24, 28, 28);
    form->addWidget(heading);
    form->addSpacing(12);
    form->addWidget(Command1);
    form->addWidget(explanation(u"Select Default Database if you've to setup new  shop with your own data."_s));
    form->addSpacing(12);
    form->addWidget(Command2);
    form->addWidget(explanation(
        u"Select Demo Database if you are new to Corvane . Demo database has some demo clients,items and job cards."_s));
    form->setSizeConstraint(QLayout::SetFixedSize);

    connect(Command1, &Command::clicked, this, [this] { choose(session::defaultDatabasePath()); });
    connect(Command2, &Command::clicked, this, [this] { choose(session::programPath(u"demo.mdb")); });
}

void frmSelectDB::choose(const QString &path)
{
    session::DBPath = path;
    accept();
}
