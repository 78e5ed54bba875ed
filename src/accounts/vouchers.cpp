#include "accounts/vouchers.h"

#include "accounts/voucherKinds.h"
#include "base/RuntimeError.h"
#include "base/session.h"
#include "base/values.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/lookups.h"
#include "store/postings.h"
#include "store/voucherLegs.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int mainLeg = 1;
constexpr int otherLeg = 2;

qint32 accountOf(const QString &title)
{
    const auto account = findAccountID(title);
    if (!account)
        throw RuntimeError(Fault::NoCurrentRecord,
            u"Another program has renamed or deleted \"%1\". Nothing was written."_s.arg(title), {}, Written::Nothing);
    return *account;
}

/// The main account's leg, and the other one: a credit stands as it was typed.
std::array<Leg, 2> legsOf(const vouchers::Voucher &voucher)
{
    const qint32 main = accountOf(voucher.mainAccount);
    const qint32 other = accountOf(voucher.otherAccount);
    const Value credit(voucher.amount);
    const Value debit(-Val(voucher.amount));
    const bool isCredit = voucherKinds::isMainCredit(voucher.kind);
    return {{{voucher.kind, main, other, isCredit ? credit : debit},
        {voucher.kind, other, main, isCredit ? debit : credit}}};
}

/// The first row of a statement over legs of that number, which may be none.
void openLeg(Recordset &posting, const QString &statement, qint32 number, int serial)
{
    if (const qint64 row = voucherLegs::rowOf(DE().CN, number, serial)) {
        posting.openOne(statement, row);
        if (!posting.eof())
            return;
    }
    posting.reopen(statement);
}

void openToRewrite(Recordset &posting, qint32 number, int serial)
{
    openLeg(posting,
        u"Select * from Postings where vid="_s + QString::number(number) + u" and sr="_s + QString::number(serial)
            + u" and vtype="_s + QString::number(documentKind::Voucher),
        number, serial);
}

/// Both, before the first is written.
void requireLegs(qint32 number)
{
    Recordset &posting = DE().rspostings;
    for (const int serial : {mainLeg, otherLeg}) {
        openToRewrite(posting, number, serial);
        const bool isGone = posting.eof();
        posting.close();
        if (isGone)
            throw RuntimeError(Fault::RowNotFound,
                u"Entry %1 is damaged, or another program has deleted it. Nothing was written."_s.arg(number), {},
                Written::Nothing);
    }
}

void rewriteLeg(const vouchers::Voucher &voucher, int serial, const Leg &leg)
{
    Recordset &posting = DE().rspostings;
    openToRewrite(posting, voucher.number, serial);
    posting.set(u"particulars", leg.particulars);
    posting.set(u"Date", voucher.date);
    posting.set(u"accID", leg.account);
    posting.set(u"refID", leg.otherSide);
    posting.set(u"Remark", voucher.remark);
    posting.set(u"Amount", leg.amount);
    posting.update();
    posting.close();
}

} // namespace

qint32 vouchers::GetNewNum()
{
    Recordset &postings = DE().rspostings2;
    postings.openLast(u"Select * from Postings where vtype=%1 and sr=1 order by vID"_s.arg(documentKind::Voucher));
    const qint32 last = postings.eof() ? 0 : postings.integer(u"vid");
    postings.close();
    return last + 1;
}

void vouchers::SaveNew(const Voucher &voucher)
{
    WriteGroup::run(DE().CN, [&voucher] {
        const std::array<Leg, 2> legs = legsOf(voucher);
        Recordset &postings = DE().rspostings;
        postings.openToAdd(u"Select * from Postings order by ID"_s);
        addLegs(postings,
            {.VID = voucher.number, .Vtype = documentKind::Voucher, .date = voucher.date, .remark = voucher.remark},
            legs);
        postings.close();
    });
    session::NeedRefresh = true;
}

void vouchers::SaveEdit(const Voucher &voucher)
{
    WriteGroup::run(DE().CN, [&voucher] {
        const auto [main, other] = legsOf(voucher);
        requireLegs(voucher.number);
        rewriteLeg(voucher, mainLeg, main);
        rewriteLeg(voucher, otherLeg, other);
    });
    session::NeedRefresh = true;
}

void vouchers::remove(qint32 number, bool isPayroll)
{
    WriteGroup::run(DE().CN, [number, isPayroll] {
        if (isPayroll) {
            Recordset &garments = DE().rsJOBS_DETAIL;
            garments.reopen(u"Select * from jobs_detail where PayrollID="_s + QString::number(number));
            for (; !garments.eof(); garments.moveNext()) {
                garments.set(u"MarkAsPaid", wage::Unpaid);
                garments.set(u"PayrollID", 0);
            }
            garments.updateBatch();
            garments.close();
        }
        DE().CN.execute(u"Delete from Postings where vid=%1 and vtype=%2"_s.arg(number).arg(documentKind::Voucher));
    });
    session::NeedRefresh = true;
}

std::optional<vouchers::Stored> vouchers::read(qint32 number)
{
    Recordset &posting = DE().rspostings;
    openLeg(posting,
        u"Select * from Postings where vid=%1 and vtype=%2 and sr=1"_s.arg(number).arg(documentKind::Voucher), number,
        mainLeg);
    std::optional<Stored> found;
    if (!posting.eof()) {
        found = {{.number = number,
                     .kind = posting.text(u"particulars"),
                     .date = posting.date(u"Date"),
                     .mainAccount = titleOrBlank(posting.integer(u"accID")),
                     .otherAccount = titleOrBlank(posting.integer(u"refID")),
                     .remark = posting.text(u"Remark")},
            posting.number(u"Amount"), posting.integer(u"isPayroll") > 0};
    }
    posting.close();
    return found;
}
