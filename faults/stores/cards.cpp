#include "Store.h"
#include "base/values.h"
#include "jobcards/JobCardStore.h"
#include "jobcards/clsJobCardData.h"
#include "store/DataEnvironment.h"
#include "store/lookups.h"

#include <QDate>

using namespace Qt::StringLiterals;

namespace {

const QDate firstDay(2011, 4, 1);

JobCardRow randomRow(std::mt19937 &random)
{
    const QStringList items = FillCombo(u"Name"_s, u"Items"_s, {}, DE().rsItems2);
    JobCardRow row;
    row.ItemName = items.at(pick(random, static_cast<int>(items.size())));
    row.ItemID = static_cast<qint16>(GetItemID(row.ItemName));
    row.Qty = static_cast<qint16>(1 + pick(random, 4));
    row.Fees = GetItemFees(row.ItemID);
    row.Amount = row.Qty * row.Fees;
    row.Remarks = QString(pick(random, 300), u'r');
    row.ItemDetails = u"Chest\r\nWaist"_s;
    // Now and then one that needs pages of its own.
    row.ItemDetailsValue = QString(pick(random, 8) == 0 ? 20000 : 40, u'4');
    return row;
}

JobCard randomCard(std::mt19937 &random, const clsJobCardData &rows)
{
    const QStringList clients = FillCombo(u"Title"_s, u"Accounts"_s, u" where type=0"_s, DE().rsaccounts);
    Currency total;
    for (int i = 1; i <= rows.RowCount(); ++i)
        total += Currency::fromDouble(rows.Amount(i));
    JobCard card;
    card.JobDate = firstDay.addDays(pick(random, 200));
    card.ClientTitle = clients.at(pick(random, static_cast<int>(clients.size())));
    card.DeliveryDate = card.JobDate.addDays(7);
    card.TrialDate = card.JobDate.addDays(3);
    card.TotalText = Money(total.toDouble());
    card.ReceivedText = pick(random, 2) == 0 ? u"0"_s : Money(total.toDouble() / 2);
    card.ReceiptAccountTitle = u"Cash"_s;
    card.Remark = QString::number(random());
    return card;
}

/// A card and what is to be done with it, as a screen holds them.
struct OpenCard {
    JobCardStore store;
    clsJobCardData rows;
    JobCard card;
};

std::shared_ptr<OpenCard> randomSavedCard(std::mt19937 &random)
{
    Recordset cards(DE().CN);
    cards.open(u"Select Id from JOBS order by Id"_s);
    if (cards.recordCount() == 0)
        return {};
    for (int steps = pick(random, cards.recordCount()); steps > 0; --steps)
        cards.moveNext();
    auto open = std::make_shared<OpenCard>();
    open->store.openSaved(cards.value(0).toInt());
    open->store.readRows(open->rows);
    return open;
}

Command newCard(std::mt19937 &random)
{
    auto open = std::make_shared<OpenCard>();
    for (int count = 1 + pick(random, 4); count > 0; --count)
        open->rows.AddNewRow(randomRow(random));
    open->card = randomCard(random, open->rows);
    open->card.JobIDText = QString::number(JobCardStore::GetNewNum());
    return [open] { open->store.SaveNew(open->card, open->rows); };
}

Command changed(std::mt19937 &random, bool cancelled)
{
    const auto open = randomSavedCard(random);
    if (!open)
        return newCard(random);
    if (open->rows.RowCount() > 1) {
        open->store.noteRemovedRow(open->rows.Sr(1));
        open->rows.RemoveRow(1);
    }
    open->rows.AddNewRow(randomRow(random));
    open->card = randomCard(random, open->rows);
    open->card.JobIDText = QString::number(open->store.CurrentJobID());
    open->card.Cancelled = cancelled;
    open->card.CancelReason = cancelled ? u"Moved away"_s : QString();
    return [open] { open->store.SaveEdit(open->card, open->rows); };
}

Command deleted(std::mt19937 &random)
{
    const auto open = randomSavedCard(random);
    if (!open)
        return newCard(random);
    return [open] { open->store.deleteCard(); };
}

} // namespace

std::vector<Operation> cardOperations()
{
    return {{u"new card"_s, newCard}, {u"changed card"_s, [](std::mt19937 &random) { return changed(random, false); }},
        {u"cancelled card"_s, [](std::mt19937 &random) { return changed(random, true); }},
        {u"deleted card"_s, deleted}};
}
