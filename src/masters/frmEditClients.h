#pragma once

#include "masters/MasterEditor.h"

class DateField;

/// Adds, changes and deletes clients.
class frmEditClients : public MasterEditor {
    Q_OBJECT

public:
    frmEditClients();

    /// Adds clients, one after the other, until the user closes the screen without saving.
    void AddNew();
    /// Adds one client and returns the name that was saved last on this screen, in this run of the program: the new
    /// client's, or where nothing was saved the one from before, empty where there is none.
    [[nodiscard]] QString AddNewFromJobCard();
    /// Changes the client `id`, a number of `Accounts`. Throws RuntimeError (NoCurrentRecord) where there is none.
    void Edit(int id);

protected:
    void startNew() override;
    void save() override;

private:
    void buildForm();
    void generateKey();

    kvTextBox *txtKey;
    kvTextBox *txtAddress;
    kvTextBox *txtCity;
    kvTextBox *txtState;
    kvTextBox *txtMobile;
    DateField *dateDob;
    Command *Command3;

    QString m_loadedKey;
};
