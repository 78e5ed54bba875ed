#include "Store.h"
#include "jobcards/JobCardStore.h"
#include "store/DataEnvironment.h"

using namespace Qt::StringLiterals;

std::vector<Operation> looseOperations()
{
    return {{u"loose card"_s,
        [](std::mt19937 &) -> Command {
            const int number = JobCardStore::GetNewNum();
            return [number] {
                DE().CN.execute(u"Insert into JOBS (Id, DATE, ClintID, ClintName, DeliveryDate, TrialDate, AmountDue, "
                                "AmountPaid, JobFinished, Remark, Status, CancelReason) values (%1, #1-Apr-2011#, 5, "
                                "'A', #1-Apr-2011#, #1-Apr-2011#, 10, 0, 0, '', 0, '')"_s.arg(number));
                DE().CN.execute(u"Insert into JOBS_DETAIL (DATE, JobID, ItemSr, ClintID, ClintName, ItemID, ItemName, "
                                "QNT, FEES, Amount, Remarks, ItemDetails, ItemDetailsValue, JobDelDate, CuttingDate) "
                                "values (#1-Apr-2011#, %1, 1, 5, 'A', 1, 'C', 1, 10, 10, '', '', '', #1-Apr-2011#, "
                                "#1-Apr-2011#)"_s.arg(number));
                for (const int serial : {1, 2})
                    DE().CN.execute(u"Insert into Postings (VID, Vtype, sr, [Date], AccID, RefID, particulars, Remark, "
                                    "Amount) values (%1, 1, %2, #1-Apr-2011#, %3, %4, 'Sales', '', %5)"_s.arg(number)
                                        .arg(serial)
                                        .arg(serial == 1 ? 5 : 2)
                                        .arg(serial == 1 ? 2 : 5)
                                        .arg(serial == 1 ? -10 : 10));
            };
        }}};
}
