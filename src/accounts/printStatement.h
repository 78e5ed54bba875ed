#pragma once

#include <QDate>

class ListModel;
class QString;
struct AccountStatement;

/// Shows the statement's print: the postings that stand in `list`, and the balances of the fill that they are of, under
/// `account` and the period as the screen shows them now. Its lines go through the scratch table `accountbook`.
void printStatement(const ListModel &list, const AccountStatement &statement, const QString &account, QDate from,
    QDate to, bool withRemark);
