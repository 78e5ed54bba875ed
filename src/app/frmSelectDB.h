#pragma once

#include "ui/Screen.h"

/// The choice between the shop's own database and the demo. A command writes the choice to the configuration, remembers
/// that the user has chosen, and restarts the session on it. Closing the screen changes nothing.
class frmSelectDB : public Screen {
    Q_OBJECT

public:
    frmSelectDB();

private:
    void choose(const QString &path);
};
