#pragma once

#include "masters/MasterEditor.h"

class kvComboBox;

/// Adds, changes and deletes ledger accounts. Those that the program itself posts to can be looked at only.
class frmEditAccount : public MasterEditor {
    Q_OBJECT

public:
    frmEditAccount();

    /// Opens an empty screen. Saving turns it into the editor of the new account.
    void ShowAddNew();
    /// Changes the account `AccountID`. Throws RuntimeError (NoCurrentRecord) where there is none.
    void ShowEdit(int AccountID);

protected:
    void startNew() override;
    void save() override;
    void deleteRow() override;

private:
    void buildForm();

    kvComboBox *cmbType;
    int IsReadOnly = 0;
};
