#pragma once

#include "ui/RegisterScreen.h"

class QLabel;

/// "Client Dues REGISTER": the clients who owe the shop money on the working date, and the way to their statements.
class frmDueRegister : public RegisterScreen {
    Q_OBJECT

public:
    frmDueRegister();

    void ExcuteSQl();

protected:
    void refill() override { ExcuteSQl(); }
    void openRow(const ListRow &row) override;

private:
    ListView *lvSummary;
    QLabel *lblTotal;
};
