#include "accounts/payrolls.h"

#include "base/RuntimeError.h"
#include "base/session.h"
#include "base/values.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/lookups.h"
#include "store/postings.h"

#include <array>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

const auto wages = u"Wages"_s;

qint32 accountOf(const QString &title)
{
    const auto account = findAccountID(title);
    if (!account)
        throw RuntimeError(Fault::NoCurrentRecord, u"There is no account \"%1\". Nothing was written."_s.arg(title), {},
            Written::Nothing);
    return *account;
}

qint16 requireNumber()
{
    const qint32 number = payrolls::GetNewNum();
    constexpr qint32 highest = std::numeric_limits<qint16>::max();
    if (number > highest)
        throw RuntimeError(Fault::Overflow,
            u"This payroll would need the number %1, and payrolls go up to %2. Nothing was written."_s.arg(number).arg(
                highest),
            {}, Written::Nothing);
    return static_cast<qint16>(number);
}

/// The garment's row, current in `garments`; paid for already it must not be paid again.
void findUnpaid(Recordset &garments, qint32 rowID)
{
    garments.reopen(u"Select * from jobs_detail where id="_s + QString::number(rowID));
    if (garments.eof() || garments.integer(u"MarkAsPaid") != wage::Unpaid)
        throw RuntimeError(Fault::RowNotFound,
            u"The jobs have changed since they were listed. Nothing was written. List them again."_s, {},
            Written::Nothing);
}

} // namespace

qint32 payrolls::GetNewNum()
{
    Recordset &postings = DE().rspostings2;
    postings.openLast(u"Select * from Postings where vtype=%1 order by vID"_s.arg(documentKind::Voucher));
    const qint32 last = postings.eof() ? 0 : postings.integer(u"ID");
    postings.close();
    return last + 1;
}

qint32 payrolls::create(const Payroll &payroll)
{
    qint16 number = 0;
    WriteGroup::run(DE().CN, [&] {
        const qint32 worker = accountOf(payroll.worker);
        const qint32 wagesAccount = accountOf(wages);
        number = requireNumber();
        Recordset &garments = DE().rsJOBS_DETAIL;
        for (const qint32 rowID : payroll.rowIDs)
            findUnpaid(garments, rowID);

        Recordset &postings = DE().rspostings;
        postings.openToAdd(u"Select * from Postings order by ID"_s);
        const std::array<Leg, 2> legs{
            {{wages, worker, wagesAccount, payroll.amount}, {wages, wagesAccount, worker, -payroll.amount}}};
        addLegs(postings,
            {.VID = number,
                .Vtype = documentKind::Voucher,
                .date = session::CurrentDate,
                .remark =
                    u"Wages [ From :"_s + DayMonthYear(payroll.from) + u" To "_s + DayMonthYear(payroll.to) + u" ]"_s,
                .isPayroll = 1},
            legs);
        postings.close();

        for (const qint32 rowID : payroll.rowIDs) {
            findUnpaid(garments, rowID);
            garments.set(u"MarkAsPaid", wage::Paid);
            garments.set(u"PayrollID", number);
            garments.update();
        }
        garments.close();
    });
    session::NeedRefresh = true;
    return number;
}
