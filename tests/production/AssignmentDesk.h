#pragma once

#include "support/ModalScript.h"
#include "support/TestShop.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"

/// A workshop on 11-Apr-2011, with the client Asha Rao (account 5), the workers Mohan (6), Mohini (7) and Sita (8), and
/// on job card 321 one coat, its second row, with the number 1.
struct AssignmentDesk : TestShop {
    AssignmentDesk();

    /// Sets columns of a row: "Loc='Rack'".
    void set(const QString &columns, int row = 1);
    /// Columns of a row, as `lines` has them.
    [[nodiscard]] QString stored(const QString &columns, int row = 1);
};

/// Opens the assignment of the coat and does `work` on the screen, with messages expected on the script; it is closed
/// with Escape afterwards.
void onGarment(const std::function<void(QWidget &, ModalScript &)> &work);
