#include "ui/frmSetDate.h"
#include "ui/complain.h"

#include "ui/Command.h"
#include "ui/DateField.h"
#include "ui/formFields.h"

#include <QGridLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

frmSetDate::frmSetDate()
    : Screen(u"frmSetDate"_s, u"Select Date"_s), DateFrom(new DateField(u"DateFrom"_s)),
      Command1(new Command(u"Command1"_s, u"&Ok"_s))
{
    auto *form = new QGridLayout(this);
    addField(*form, 0, u"&Date :"_s, DateFrom);
    form->addWidget(Command1, 1, 1, Qt::AlignRight);
    form->setColumnMinimumWidth(1, 180);
    form->setSizeConstraint(QLayout::SetFixedSize);
    Command1->setDefault(true);
    connect(Command1, &Command::clicked, this, [this] {
        if (!hasRefusedDate(*this))
            accept();
    });
}

QDate frmSetDate::SelectDate(QDate date)
{
    DateFrom->setDate(date);
    DateFrom->setFocus();
    return exec() == Accepted ? DateFrom->date() : date;
}
