#pragma once

#include "ui/Screen.h"

class Command;
class kvTextBox;

/// Asks for the number that stands on a client's job card and opens that card.
class frmOpenJob : public Screen {
    Q_OBJECT

public:
    frmOpenJob();

protected:
private:
    void openCard();

    kvTextBox *txtJOBID;
    Command *Command1;
};
