#include "Store.h"

#include "accounts/payrolls.h"
#include "accounts/voucherKinds.h"
#include "accounts/vouchers.h"
#include "store/DataEnvironment.h"
#include "store/lookups.h"
#include "stores/deskWork.h"

using namespace Qt::StringLiterals;

namespace faults {

namespace {

/// A voucher as its screen has it. Without one that it could be about, nothing is done.
class VoucherTask : public Task {
public:
    explicit VoucherTask(Random random) : m_random(random) { }

protected:
    void fill(qint32 number)
    {
        const QStringList kinds = voucherKinds::names();
        m_voucher = {.number = number,
            .kind = kinds.at(m_random.below(kinds.size())),
            .date = QDate(2011, 4, 1).addDays(m_random.below(60)),
            .mainAccount = GetAccountTitle(desk::firstClient + m_random.below(desk::spareClient - desk::firstClient)),
            .otherAccount = u"Cash"_s,
            .remark = QString(m_random.below(6000), u'v'),
            .amount = u"%1.25"_s.arg(1 + m_random.below(9000))};
    }
    /// The number of one that is in the file; 0 where there is none.
    [[nodiscard]] qint32 any(bool isPayroll)
    {
        Recordset legs(DE().CN);
        legs.open(
            u"Select VID from Postings where vtype=2 and sr=1 and isPayroll=%1 order by VID"_s.arg(isPayroll ? 1 : 0));
        if (legs.recordCount() == 0)
            return 0;
        legs.moveTo(m_random.below(legs.recordCount()));
        return legs.value(0).toInt();
    }

    Random m_random;
    vouchers::Voucher m_voucher;
};

class NewVoucher : public VoucherTask {
public:
    using VoucherTask::VoucherTask;
    void prepare() override { fill(vouchers::GetNewNum()); }
    void run() override { vouchers::SaveNew(m_voucher); }
};

class ChangedVoucher : public VoucherTask {
public:
    using VoucherTask::VoucherTask;
    void prepare() override { fill(any(false)); }
    void run() override
    {
        if (m_voucher.number != 0)
            vouchers::SaveEdit(m_voucher);
    }
};

class DeletedVoucher : public VoucherTask {
public:
    using VoucherTask::VoucherTask;
    void prepare() override { m_number = any(false); }
    void run() override { vouchers::remove(m_number, false); }

private:
    qint32 m_number = 0;
};

class UndonePayroll : public VoucherTask {
public:
    using VoucherTask::VoucherTask;
    void prepare() override { m_number = any(true); }
    void run() override
    {
        if (m_number != 0)
            vouchers::remove(m_number, true);
    }

private:
    qint32 m_number = 0;
};

/// Some of the garments that are not paid yet.
class NewPayroll : public Task {
public:
    explicit NewPayroll(Random random) : m_random(random) { }
    void prepare() override
    {
        Recordset rows(DE().CN);
        rows.open(u"Select id from Jobs_Detail where MarkAsPaid=0 order by id"_s);
        for (; !rows.eof(); rows.moveNext()) {
            if (m_random.chance(50))
                m_payroll.rowIDs.push_back(rows.integer(u"id"));
        }
        m_payroll.worker = GetAccountTitle(desk::spareClient);
        m_payroll.amount = m_random.below(400) / 4.0;
        m_payroll.from = QDate(2011, 4, 1);
        m_payroll.to = QDate(2011, 4, 30);
    }
    void run() override { static_cast<void>(payrolls::create(m_payroll)); }

private:
    Random m_random;
    payrolls::Payroll m_payroll;
};

template <typename Kind>
std::unique_ptr<Task> made(const Random &random)
{
    return std::make_unique<Kind>(random);
}

} // namespace

std::vector<Store> bookStores()
{
    return {{u"new voucher"_s, made<NewVoucher>}, {u"changed voucher"_s, made<ChangedVoucher>},
        {u"payroll"_s, made<NewPayroll>}, {u"deleted voucher"_s, made<DeletedVoucher>},
        {u"undone payroll"_s, made<UndonePayroll>}};
}

} // namespace faults
