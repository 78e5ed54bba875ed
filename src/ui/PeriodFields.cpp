#include "ui/PeriodFields.h"

#include "base/session.h"
#include "base/values.h"
#include "store/defaultPeriod.h"
#include "ui/DateField.h"
#include "ui/complain.h"
#include "ui/formFields.h"
#include "ui/platformBox.h"

#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

PeriodFields::PeriodFields(QWidget *parent)
    : QWidget(parent), DateFrom(new DateField(u"DateFrom"_s)), DateTo(new DateField(u"DateTo"_s))
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->addWidget(captionOf(DateFrom, u"&From :"_s));
    row->addWidget(DateFrom);
    row->addWidget(captionOf(DateTo, u"&To :"_s));
    row->addWidget(DateTo);
    set(session::CurrentDate, session::CurrentDate);
}

QDate PeriodFields::from() const
{
    return DateFrom->date();
}

QDate PeriodFields::to() const
{
    return DateTo->date();
}

void PeriodFields::set(QDate from, QDate to)
{
    DateFrom->setDate(from);
    DateTo->setDate(to);
}

void PeriodFields::setShopDefault()
{
    QDate from = session::CurrentDate;
    QDate to = session::CurrentDate;
    SetDefaultPeriod(to, from);
    set(from, to);
}

void PeriodFields::takeMonth(Month month)
{
    const bool isMonth = from().day() == 1 && to() == from().addMonths(1).addDays(-1);
    const QDate base = isMonth ? from() : session::CurrentDate.addMonths(month == Month::Before ? 0 : -1);
    const QDate first = QDate(base.year(), base.month(), 1).addMonths(month == Month::Before ? -1 : 1);
    set(first, first.addMonths(1).addDays(-1));
}

bool PeriodFields::isUsable()
{
    if (hasRefusedDate(*this))
        return false;
    if (from() <= to())
        return true;
    platformBox::showCritical(u"Invalid date selection!"_s);
    DateTo->setFocus(Qt::OtherFocusReason);
    return false;
}

void PeriodFields::raiseLastToFirst()
{
    if (to() < from())
        DateTo->setDate(from());
}

QString PeriodFields::between() const
{
    return u"between #%1# and #%2#"_s.arg(DayMonthYear(from()), DayMonthYear(to()));
}

QString PeriodFields::inWords() const
{
    return from() == to() ? u"on "_s + DayMonthYear(from())
                          : u"between %1 and %2"_s.arg(DayMonthYear(from()), DayMonthYear(to()));
}

QList<QWidget *> PeriodFields::fields() const
{
    return {DateFrom, DateTo};
}
