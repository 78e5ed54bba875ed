#include "Store.h"

#include "base/Currency.h"
#include "base/values.h"
#include "jobcards/JobCardStore.h"
#include "jobcards/MODPrintJOBCARD.h"
#include "jobcards/clsJobCardData.h"
#include "store/DataEnvironment.h"
#include "store/lookups.h"
#include "stores/deskWork.h"

using namespace Qt::StringLiterals;

namespace faults {

namespace {

class CardTask : public Task {
public:
    explicit CardTask(const Random &random) : m_random(random) { }

protected:
    void openAnyCard()
    {
        const QList<qint32> numbers = desk::cardNumbers();
        m_store.openSaved(numbers.at(m_random.below(numbers.size())));
        m_store.readRows(m_rows);
    }

    Random m_random;
    JobCardStore m_store;
    clsJobCardData m_rows;
    JobCard m_card;
};

class NewCard : public CardTask {
public:
    using CardTask::CardTask;
    void prepare() override
    {
        for (int rows = 1 + m_random.below(4); rows > 0; --rows)
            m_rows.AddNewRow(desk::row(m_random));
        m_card = desk::card(JobCardStore::GetNewNum(), m_rows, m_random);
    }
    void run() override
    {
        m_store.EditMode() == u"N" ? m_store.SaveNew(m_card, m_rows) : m_store.SaveEdit(m_card, m_rows);
    }
};

/// One row is taken off, one changed and one added; the total and the advance follow.
class ChangedCard : public CardTask {
public:
    using CardTask::CardTask;
    void prepare() override
    {
        openAnyCard();
        if (m_rows.RowCount() > 1) {
            m_store.noteRemovedRow(m_rows.Sr(1));
            m_rows.RemoveRow(1);
        }
        m_rows.SetQty(1, static_cast<qint16>(m_rows.Qty(1) + 1));
        m_rows.SetAmount(1, m_rows.Qty(1) * m_rows.Fees(1));
        m_rows.AddNewRow(desk::row(m_random));
        m_card = desk::card(m_store.CurrentJobID(), m_rows, m_random);
    }
    void run() override { m_store.SaveEdit(m_card, m_rows); }
};

class CancelledCard : public CardTask {
public:
    using CardTask::CardTask;
    void prepare() override
    {
        openAnyCard();
        m_card = desk::card(m_store.CurrentJobID(), m_rows, m_random);
        m_card.Cancelled = true;
        m_card.CancelReason = u"Moved away"_s;
    }
    void run() override { m_store.SaveEdit(m_card, m_rows); }
};

class DeletedCard : public CardTask {
public:
    using CardTask::CardTask;
    void prepare() override { openAnyCard(); }
    void run() override { m_store.deleteCard(); }
};

/// The scratch tables of a print are filled with a card.
class PrintedCard : public CardTask {
public:
    using CardTask::CardTask;
    void prepare() override { openAnyCard(); }
    void run() override { FillJobCardTemp(m_store.CurrentJobID()); }
};

template <typename Kind>
std::unique_ptr<Task> made(const Random &random)
{
    return std::make_unique<Kind>(random);
}

} // namespace

std::vector<Store> jobCardStores()
{
    return {{u"new card"_s, made<NewCard>}, {u"changed card"_s, made<ChangedCard>},
        {u"cancelled card"_s, made<CancelledCard>}, {u"deleted card"_s, made<DeletedCard>},
        {u"printed card"_s, made<PrintedCard>}};
}

} // namespace faults
