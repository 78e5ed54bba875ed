#pragma once

#include "ui/Screen.h"

/// Tells the versions and who made the program.
class frmAbout : public Screen {
    Q_OBJECT

public:
    frmAbout();
};
