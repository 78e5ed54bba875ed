#include "base/balanceText.h"

#include "base/values.h"

#include <cmath>

using namespace Qt::StringLiterals;

QString balanceText::inGreeting(double balance)
{
    return Money(-balance) + (balance < 0 ? u" Dr"_s : u" Cr"_s);
}

QString balanceText::inRegister(double balance)
{
    if (balance == 0)
        return u"None"_s;
    return Money(std::abs(balance)) + (balance < 0 ? u" Dr"_s : u" Cr"_s);
}

QString balanceText::onStatement(double balance)
{
    if (balance == 0)
        return u"None"_s;
    return NumberText(std::abs(balance)) + (balance < 0 ? u" Dr."_s : u" Cr."_s);
}

balanceText::Sides balanceText::ofPosting(double amount)
{
    Sides sides;
    (amount < 0 ? sides.debit : sides.credit) = Money(std::abs(amount));
    return sides;
}

balanceText::Sides balanceText::ofBalance(double balance)
{
    return balance == 0 ? Sides() : ofPosting(balance);
}
