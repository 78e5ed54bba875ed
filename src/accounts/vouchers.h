#pragma once

#include <QDate>
#include <QString>

#include <optional>

/// Vouchers in the journal: two legs each, the main account's and the other side's, which sum to 0. Each write is one
/// durable one and sets `session::NeedRefresh`; where it can't be made whole nothing is written, and RuntimeError says
/// what another program has taken away since the screen was filled.
namespace vouchers {

/// What a save receives, whatever screen collected it.
struct Voucher {
    qint32 number = 0;
    /// One of `voucherKinds`; the sign of both legs follows from it.
    QString kind;
    QDate date;
    QString mainAccount;
    QString otherAccount;
    QString remark = {};
    /// Above 0. The leg above zero gets it as it was typed.
    QString amount = {};
};

/// The highest voucher number plus 1. It is not tested again when the voucher is saved.
[[nodiscard]] qint32 GetNewNum();
void SaveNew(const Voucher &voucher);
/// Both legs in place. A payroll may be changed as any other voucher; its garments don't follow.
void SaveEdit(const Voucher &voucher);
/// With a payroll goes the mark of payment of all its garments.
void remove(qint32 number, bool isPayroll);

/// What the main account's leg says of a voucher.
struct Stored {
    Voucher voucher;
    /// Of the main account: above zero a credit.
    double amount = 0;
    bool isPayroll = false;
};
/// None where that leg is missing: the voucher is damaged, or gone. An account that is gone has no title.
[[nodiscard]] std::optional<Stored> read(qint32 number);

} // namespace vouchers
