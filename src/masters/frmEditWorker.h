#pragma once

#include "masters/MasterEditor.h"

/// Adds, changes and deletes workers.
class frmEditWorker : public MasterEditor {
    Q_OBJECT

public:
    frmEditWorker();

    /// Adds workers, one after the other, until the user closes the screen without saving.
    void AddNew();
    /// Changes the worker `id`, a number of `Accounts`. Throws RuntimeError (NoCurrentRecord) where there is none.
    void Edit(int id);

protected:
    void startNew() override;
    void save() override;

private:
    void buildForm();
};
