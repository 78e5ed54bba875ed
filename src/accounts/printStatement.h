#pragma once

#include "reports/ReportPages.h"

#include <QDate>

#include <optional>

class ListModel;
class QString;
struct AccountStatement;

/// The statement on paper: the postings that stand in `list`, and the balances of the fill that they are of, under
/// `account` and the period as the screen shows them now. Its lines go through the scratch table `accountbook`. None
/// where the user broke it off.
[[nodiscard]] std::optional<ReportPages> printStatement(const ListModel &list, const AccountStatement &statement,
    const QString &account, QDate from, QDate to, bool withRemark);
