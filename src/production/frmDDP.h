#pragma once

#include "ui/RegisterScreen.h"

#include <QDate>

class ListView;

/// "Pending Orders Status": for each item with a daily capacity, what is waiting, how many days that is, and the
/// earliest delivery date. It only tells; nothing is stored.
class frmDDP : public RegisterScreen {
    Q_OBJECT

public:
    frmDDP();

    /// Fills the list. Throws RuntimeError (Overflow) for a wait beyond 16 bits of days.
    void Prddict();

    /// Rows of the item, not pieces, that are not completed, whenever they were booked. Through `rsJOBS_DETAIL2`, as
    /// the next.
    [[nodiscard]] static qint32 GetPendingOrders(qint16 itemID);
    /// Those among them that are dated `day`.
    [[nodiscard]] static qint32 GetOrdersToday(qint16 itemID, QDate day);

private:
    ListView *lvSummary;
};
