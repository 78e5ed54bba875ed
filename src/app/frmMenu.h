#pragma once

#include "ui/Screen.h"

/// The menu of the registers, books and reports.
class frmMenu : public Screen {
    Q_OBJECT

public:
    frmMenu();
};
