#pragma once

#include "ui/Screen.h"

class Command;
class DateField;
class QLabel;
class QLayout;
class kvComboBox;
class kvTextBox;
class kvTextBoxMultiLine;

/// "Entry": one voucher, an amount of money between two accounts. The main one is that which it is opened on.
class frmTransiction : public Screen {
    Q_OBJECT

public:
    frmTransiction();

    /// Opens an empty voucher on the account of that title; `changed` tells whether anything was saved or deleted.
    void ShowAddNew(const QString &accountTitle, bool &changed);
    /// Opens the voucher of that number; `changed` as above. One without its main account's leg is told and not opened.
    void ShowEdit(qint32 number, bool &changed);

private:
    void buildForm();
    [[nodiscard]] QLayout *buildHead();
    [[nodiscard]] QLayout *buildSides();
    [[nodiscard]] QLayout *buildCommands();
    void connectCommands();
    void fillAccounts();
    void setMode(const QString &mode);
    void showLabels();
    [[nodiscard]] bool isPayable();

    void save();
    void deleteEntry();
    void print();

    kvTextBox *txtVID;
    DateField *VcDate;
    kvComboBox *cmbParticulars;
    QLabel *lblMain;
    kvComboBox *cmbAccount;
    QLabel *lblMainType;
    kvTextBox *txtAmount;
    QLabel *lblRef;
    kvComboBox *cmbRefAcc;
    QLabel *lblRefType;
    kvTextBox *txtAmount2;
    kvTextBoxMultiLine *txtRemark;
    Command *cmdDetails;
    Command *cmdDelete;
    Command *cmdPrint;
    Command *cmdCancel;
    Command *cmdSave;

    QString EditMode;
    qint32 VoucherID = 0;
    QString MainAccountTitle;
    bool EntryChanged = false;
    bool IsPayrollEntry = false;
};
