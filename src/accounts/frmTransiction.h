#pragma once

#include "ui/Screen.h"

/// "Entry": one voucher, an amount of money between two accounts.
class frmTransiction : public Screen {
    Q_OBJECT

public:
    frmTransiction();

    /// Opens an empty voucher on the account of that title; `changed` tells whether anything was saved.
    void ShowAddNew(const QString &accountTitle, bool &changed);
    /// Opens the voucher of that number; `changed` tells whether it was saved or deleted. One without its first leg is
    /// told and not opened.
    void ShowEdit(qint32 number, bool &changed);
};
