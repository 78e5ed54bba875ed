#pragma once

#include "jobcards/JobCardStore.h"
#include "jobcards/clsJobCardData.h"
#include "support/ModalScript.h"
#include "support/TestShop.h"

/// A shop with the client Asha Rao (account 5) and the item Coat (fee 400, wage 150), where job cards can be booked.
/// The working date is 10-Apr-2011.
struct OrderDesk : TestShop {
    OrderDesk();

    [[nodiscard]] JobCard card(const QString &number) const;
    [[nodiscard]] static JobCardRow row();
    [[nodiscard]] clsJobCardData rows(int count) const;
    JobCardStore book(const QString &number);

    [[nodiscard]] QStringList postings();
};

/// Opens the card `jobID`, a fresh one for 0, and does `work` on it; the card is closed with Escape afterwards.
void onCard(ModalScript &script, int jobID, const std::function<void(QWidget &)> &work);
/// In the item editor that comes up next the item is chosen by typing, its quantity entered and the editor closed.
void expectItem(ModalScript &script, const QString &item, const QString &quantity);
/// Name of the control that has the keyboard.
[[nodiscard]] QString focused();
