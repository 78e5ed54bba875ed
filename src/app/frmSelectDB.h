#pragma once

#include "ui/Screen.h"

/// The choice between the shop's own database and the demo. A command makes it `session::DBPath`, and the screen is
/// accepted: its caller keeps the choice and restarts the session. Closing the screen changes nothing.
class frmSelectDB : public Screen {
    Q_OBJECT

public:
    frmSelectDB();

private:
    void choose(const QString &path);
};
