#pragma once

#include <QDate>
#include <QString>

#include <vector>

/// Payrolls: a voucher on a worker that pays garments. Undoing one is deleting its voucher (see `vouchers::remove`).
namespace payrolls {

struct Payroll {
    QString worker;
    /// The garments paid by it, as they stand in the list.
    std::vector<qint32> rowIDs = {};
    /// What the worker is credited with: the wages of the last garment alone, whatever the others come to.
    double amount = 0;
    /// Named in the remark.
    QDate from = {};
    QDate to = {};
};

/// The row number of the last voucher's leg plus 1: it jumps ahead of the vouchers' own numbers.
[[nodiscard]] qint32 GetNewNum();

/// Posts both legs on the working date and marks each garment as paid under the payroll's number: all of it or nothing,
/// on the disk when it returns. Returns the number. Nothing is written, and RuntimeError says why, where there is no
/// account "Wages", the worker is gone, a garment is gone or paid already, or the number is above 32767.
qint32 create(const Payroll &payroll);

} // namespace payrolls
