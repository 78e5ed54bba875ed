#pragma once

#include "masters/MasterEditor.h"

class QRadioButton;
class kvTextBoxMultiLine;

/// Adds, changes and deletes what the shop makes or sells, with the measurement template: one field a line, with its
/// default value behind "=".
class frmEditItem : public MasterEditor {
    Q_OBJECT

public:
    frmEditItem();

    /// Adds items, one after the other, until the user closes the screen without saving.
    void AddNew();
    /// Changes the item `id`. Throws RuntimeError (NoCurrentRecord) where there is none.
    void Edit(int id);

protected:
    void startNew() override;
    void save() override;

private:
    void buildForm();
    [[nodiscard]] QLayout *buildFields();
    [[nodiscard]] QLayout *buildTemplate();
    void dropBlankLines();
    [[nodiscard]] bool isNumberWrong();
    [[nodiscard]] bool isBeyond(kvTextBox *box, double limit, const QString &message);

    kvTextBox *txtFees;
    kvTextBox *txtWorkerFees;
    kvTextBox *txtProductionCap;
    kvTextBox *txtPendingOrdersBal;
    QRadioButton *ckProduct;
    QRadioButton *ckNotInv;
    kvTextBoxMultiLine *txtItemDetails;
};
