#pragma once

#include "jobcards/JobCardStore.h"
#include "jobcards/clsJobCardData.h"
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
