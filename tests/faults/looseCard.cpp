#include "looseCard.h"

#include "store/DataEnvironment.h"
#include "stores/deskWork.h"

using namespace Qt::StringLiterals;

namespace {

class LooseCard : public faults::Task {
public:
    explicit LooseCard(const faults::Random &random) : m_random(random) { }

    void prepare() override
    {
        m_number = JobCardStore::GetNewNum();
        m_amount = 100 + m_random.below(900);
    }

    void run() override
    {
        insert(u"JOBS (Id, [DATE], ClintID, ClintName, DeliveryDate, TrialDate, AmountDue, AmountPaid, JobFinished, "
               "Remark, Status, CancelReason) values (%1, #2011-04-01#, 5, 'Client 0', #2011-04-08#, #2011-04-05#, "
               "%2, 0, 0, '', 0, '')"_s);
        insert(u"JOBS_DETAIL ([DATE], JobID, ItemSr, ClintID, ClintName, ItemID, ItemName, QNT, FEES, Amount, Remarks, "
               "ItemDetails, ItemDetailsValue, JobDelDate, CuttingDate) values (#2011-04-01#, %1, 1, 5, 'Client 0', 1, "
               "'Shirt', 1, %2, %2, '', '', '', #2011-04-08#, #2011-04-01#)"_s);
        insert(u"Postings (VID, Vtype, sr, [Date], AccID, RefID, particulars, Remark, Amount) "
               "values (%1, 1, 1, #2011-04-01#, 5, 2, 'Sales', '', -%2)"_s);
        insert(u"Postings (VID, Vtype, sr, [Date], AccID, RefID, particulars, Remark, Amount) "
               "values (%1, 1, 2, #2011-04-01#, 2, 5, 'Sales', '', %2)"_s);
    }

private:
    void insert(const QString &row) const { DE().CN.execute(u"Insert into "_s + row.arg(m_number).arg(m_amount)); }

    faults::Random m_random;
    int m_number = 0;
    int m_amount = 0;
};

} // namespace

faults::Store looseCardStore()
{
    return {u"loose card"_s, [](const faults::Random &random) { return std::make_unique<LooseCard>(random); }};
}
