#pragma once

#include <QtGlobal>

class Connection;

/// Where the legs of vouchers stand in the file, so that opening one does not look through the whole journal. Kept up
/// as postings are written.
namespace voucherLegs {

/// The row of leg `serial`, 1 or 2, of voucher `number`: the first, where two vouchers share it. A hint: the row may
/// be gone. 0 where none is known.
[[nodiscard]] qint64 rowOf(Connection &connection, qint32 number, int serial);

} // namespace voucherLegs
