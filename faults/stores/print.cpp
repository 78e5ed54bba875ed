#include "Store.h"
#include "jobcards/MODPrintJOBCARD.h"
#include "store/DataEnvironment.h"
#include "store/Recordset.h"

using namespace Qt::StringLiterals;

std::vector<Operation> printOperations()
{
    return {{u"printed card"_s, [](std::mt19937 &) -> Command {
                 Recordset cards(DE().CN);
                 cards.open(u"Select Id from JOBS order by Id"_s);
                 if (cards.eof())
                     return [] {};
                 return [number = cards.value(0).toInt()] { FillJobCardTemp(number); };
             }}};
}
