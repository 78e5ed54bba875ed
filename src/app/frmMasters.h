#pragma once

#include "ui/Screen.h"

/// The menu of the master lists.
class frmMasters : public Screen {
    Q_OBJECT

public:
    frmMasters();
};
