#include "store/postings.h"

#include "store/Recordset.h"

void addLegs(Recordset &postings, const Document &document, std::span<const Leg> legs)
{
    int serial = 0;
    for (const Leg &leg : legs) {
        postings.addNew();
        postings.set(u"VID", document.VID);
        postings.set(u"vType", document.Vtype);
        postings.set(u"Sr", ++serial);
        postings.set(u"Date", document.date);
        postings.set(u"particulars", leg.particulars);
        postings.set(u"accID", leg.account);
        postings.set(u"refID", leg.otherSide);
        postings.set(u"Remark", document.remark);
        postings.set(u"Amount", leg.amount);
        if (document.status != 0)
            postings.set(u"Status", document.status);
        if (document.isPayroll != 0)
            postings.set(u"isPayroll", document.isPayroll);
        postings.update();
    }
}
