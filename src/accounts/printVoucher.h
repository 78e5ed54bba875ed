#pragma once

#include <QtGlobal>

class QString;

/// Shows the print of a voucher: its stored legs, under the kind and with the remark that stand on the screen.
void printVoucher(qint32 number, const QString &kind, const QString &remark);
