#pragma once

#include "ui/Screen.h"

class Command;
class QCheckBox;
class QGroupBox;
class kvTextBox;

/// The shop's name, address and contacts as they stand on printed matter, and the login that the program asks for.
class frmShopINFO : public Screen {
    Q_OBJECT

public:
    frmShopINFO();

private:
    void buildForm();
    void load();
    void lockChanged(bool on);
    void save();

    kvTextBox *txtName;
    kvTextBox *txtADDRESS1;
    kvTextBox *txtADDRESS2;
    kvTextBox *txtADDRESS3;
    kvTextBox *txtCONTACTS;
    QCheckBox *Check1;
    QGroupBox *Frame1;
    kvTextBox *txtUserName;
    kvTextBox *txtPassword;
    Command *Command1;
};
