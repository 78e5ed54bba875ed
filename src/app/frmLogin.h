#pragma once

#include "ui/Screen.h"

class Command;
class kvTextBox;

/// Asks for the one name and password that guard the program.
class frmLogin : public Screen {
    Q_OBJECT

public:
    frmLogin();

    /// Shows the screen modally. True when the user passed; false when it was closed.
    [[nodiscard]] bool Login();

private:
    void check();

    kvTextBox *txtUserName;
    kvTextBox *txtPassword;
    Command *Command1;
    bool m_passed = false;
};
