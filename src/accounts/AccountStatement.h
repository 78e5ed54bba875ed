#pragma once

#include "ui/ListModel.h"

#include <QDate>

/// The statement of one account over a period, both ends included: what is brought forward, each live posting, the
/// period's own movement, and what is carried forward. Above zero is credit.
struct AccountStatement {
    enum Column { Date, Number, Voucher, Particulars, Debit, Credit, Remark, ColumnCount };

    double OpeningBalance = 0;
    double ClosingBalance = 0;
    /// At or below 0.
    double PeriodDebits = 0;
    double PeriodCredits = 0;
    /// As they stand in the list. A posting's tag is that of its document; the others have none.
    std::vector<ListRow> rows = {};

    /// Throws RuntimeError (Overflow) for an account above 32767, before anything is read.
    [[nodiscard]] static AccountStatement of(qint32 account, QDate from, QDate to);
};
