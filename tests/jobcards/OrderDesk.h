#pragma once

#include "jobcards/JobCardStore.h"
#include "jobcards/clsJobCardData.h"
#include "support/ModalScript.h"
#include "support/TestShop.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"

/// A shop with the client Asha Rao (account 5) and the item Coat (fee 400, wage 150), where job cards can be booked.
/// The working date is 10-Apr-2011.
struct OrderDesk : TestShop {
    OrderDesk();

    [[nodiscard]] JobCard card(const QString &number) const;
    [[nodiscard]] static JobCardRow row();
    [[nodiscard]] clsJobCardData rows(int count) const;
    JobCardStore book(const QString &number, int rowCount = 1);

    [[nodiscard]] QStringList postings();
};

/// Opens the card `jobID`, a fresh one for 0, and does `work` on it, with messages expected on the script; the card is
/// closed with Escape afterwards.
void onCard(int jobID, const std::function<void(QWidget &, ModalScript &)> &work);
/// Gives the command of that letter, which says `message`.
void tells(ModalScript &script, char command, const QString &message);
void saveEdit(ModalScript &script);
/// Adds an item to the open card by keys: in its editor the item is chosen by typing and its quantity entered.
void addItem(ModalScript &script, const QString &item = QStringLiteral("Coat"), int quantity = 1);
void expectItem(ModalScript &script, const QString &item = QStringLiteral("Coat"), int quantity = 1);
/// Name of the control that has the keyboard.
[[nodiscard]] QString focused();
