#pragma once

#include "ui/RegisterScreen.h"

/// "Ratings": the workers by the sum of their scores, with the stars that their clients gave them.
class frmRatings : public RegisterScreen {
    Q_OBJECT

public:
    frmRatings();

    /// Rebuilds the ranking and the list.
    void GetRank();

private:
    ListView *lvSummary;
};
