#include "DemoShop.h"

#include "accounts/payrolls.h"
#include "base/session.h"
#include "base/values.h"
#include "demoData.h"
#include "jobcards/JobCardStore.h"
#include "jobcards/clsJobCardData.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/lookups.h"
#include "store/settings.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int cardCount = 320;
constexpr int clientCount = 72;
const QDate firstDay(2011, 4, 1);
const QDate lastDay(2011, 9, 30);

} // namespace

void DemoShop::fill()
{
    WriteGroup::run(DE().CN, [this] {
        addShop();
        addItems();
        addAccounts();
        addWorkers();
        addClients();
        bookCards();
        keepBooks();
        enterVouchers();
        payWorkers();
        SaveSetting(setting::WorkingDate, DateText(lastDay));
        SaveSetting(setting::DefaultFromDate, DateText(lastDay.addDays(-21)));
        SaveSetting(setting::DeliveryMargin, u"10"_s);
        SaveSetting(setting::ModemPort, u"1"_s);
        SaveSetting(setting::TagLine, u"Made to measure since 1962"_s);
        SaveSetting(setting::SmsTitle, u"Kovrel"_s);
    });
}

int DemoShop::pick(int low, int high)
{
    // Not a distribution of the library: those differ from one library to the next.
    return low + static_cast<int>(m_random() % static_cast<unsigned>(high - low + 1));
}

QString DemoShop::pickFrom(std::span<const QString> texts)
{
    return texts[static_cast<size_t>(pick(0, static_cast<int>(texts.size()) - 1))];
}

void DemoShop::addShop()
{
    Recordset &shop = DE().rsSHOP;
    shop.reopen(u"Select * from Shop"_s);
    shop.addNew();
    shop.set(u"Name", u"Kovrel Tailors"_s);
    shop.set(u"Address1", u"12, Station Road"_s);
    shop.set(u"Address2", u"Opposite Clock Tower"_s);
    shop.set(u"Address3", u"Jaipur 302001"_s);
    shop.set(u"Contacts", u"0141 555 0142, 98290 55501"_s);
    shop.update();
    shop.close();
}

void DemoShop::addItems()
{
    Recordset &items = DE().rsITEMS;
    items.reopen(u"Select * from Items"_s);
    for (const demoData::Item &item : demoData::items()) {
        QStringList lines;
        for (const demoData::Measure &measure : item.measures)
            lines += measure.fixed.isEmpty() ? measure.label : measure.label + u'=' + measure.fixed;
        items.addNew();
        items.set(u"Name", item.name);
        items.set(u"Fees", item.fees);
        items.set(u"WorkerFees", item.workerFees);
        items.set(u"ItemDetails", lines.join(u"\r\n"_s));
        items.set(u"ProdcutionCap", QString::number(item.capacity));
        items.set(u"OpPendingOrders", QString::number(item.pending));
        items.set(u"isInventory", item.inventory ? 1 : 0);
        items.update();
    }
    items.close();
}

void DemoShop::addAccount(const QString &title, int type, int nature)
{
    Recordset &accounts = DE().rsaccounts;
    accounts.reopen(u"Select * from accounts where id=0"_s);
    accounts.addNew();
    accounts.set(u"Title", title);
    accounts.set(u"Type", type);
    accounts.set(u"Nature", nature);
    if (type != accountType::Ledger) {
        accounts.set(u"Address", u"%1, %2"_s.arg(pick(1, 180)).arg(pickFrom(demoData::streets())));
        accounts.set(u"City", u"Jaipur"_s);
        accounts.set(u"State", u"Rajasthan"_s);
        accounts.set(u"Mobile", u"98%1"_s.arg(pick(10000000, 99999999)));
    }
    if (type == accountType::Client) {
        accounts.set(u"Key", QString::number(m_clients.size() + 1));
        const int year = pick(1945, 1995);
        const int month = pick(1, 12);
        const QDate birthday(year, month, pick(1, 28));
        // Not everybody tells it.
        if (m_clients.size() % 9 != 8)
            accounts.set(u"DOB", birthday);
    }
    accounts.update();
    accounts.close();
}

void DemoShop::addAccounts()
{
    for (const demoData::LedgerAccount &account : demoData::ledgerAccounts())
        addAccount(
            account.title, accountType::Ledger, account.income ? accountNature::Income : accountNature::Expenses);
}

void DemoShop::addWorkers()
{
    for (const QString &name : demoData::workers()) {
        addAccount(name, accountType::Worker, accountNature::Income);
        m_workers += name;
    }
}

void DemoShop::addClients()
{
    while (m_clients.size() < clientCount) {
        const QString name = pickFrom(demoData::firstNames()) + u' ' + pickFrom(demoData::lastNames());
        if (m_clients.contains(name))
            continue;
        addAccount(name, accountType::Client, accountNature::Income);
        m_clients += name;
    }
}

void DemoShop::bookCards()
{
    const qint64 days = firstDay.daysTo(lastDay);
    for (int i = 0; i < cardCount; ++i) {
        QDate day = firstDay.addDays(i * days / (cardCount - 1));
        // The shop is closed on Sundays.
        if (day.dayOfWeek() == Qt::Sunday)
            day = day.addDays(-1);
        bookCard(day);
    }
}

QString DemoShop::measured(const QString &client, const QString &item, const QString &label, int from, int to)
{
    QString &value = m_measurements[client + u'/' + item + u'/' + label];
    if (value.isEmpty()) {
        const QString whole = QString::number(pick(from, to));
        value = whole + pickFrom(std::array<QString, 4>{QString(), u".25"_s, u".5"_s, u".75"_s});
    }
    return value;
}

void DemoShop::addRows(clsJobCardData &rows, const QString &client)
{
    const auto items = demoData::items();
    for (int count = pick(1, 3); count > 0; --count) {
        const demoData::Item &item = items[static_cast<size_t>(pick(0, static_cast<int>(items.size()) - 1))];
        QStringList labels;
        QStringList values;
        for (const demoData::Measure &measure : item.measures) {
            labels += measure.label;
            values += measure.fixed.isEmpty() ? measured(client, item.name, measure.label, measure.from, measure.to)
                                              : measure.fixed;
        }
        JobCardRow row;
        row.ItemName = item.name;
        row.ItemID = Int16(GetItemID(item.name));
        row.isInv = item.inventory ? -1 : 0;
        row.Qty = Int16(item.fees < 1000 ? pick(1, 4) : 1);
        row.Fees = item.fees;
        row.Amount = row.Fees * row.Qty;
        row.Remarks = pickFrom(demoData::cloths());
        row.ItemDetails = labels.join(u"\r\n"_s);
        row.ItemDetailsValue = values.join(u"\r\n"_s);
        row.Color = QString::number(pick(0x202020, 0xf0f0f0));
        row.ClientRemarks = pickFrom(demoData::clientNotes());
        rows.AddNewRow(row);
    }
}

void DemoShop::bookCard(QDate day)
{
    clsJobCardData rows;
    const QString client = m_clients.at(pick(0, static_cast<int>(m_clients.size()) - 1));
    addRows(rows, client);
    double total = 0;
    for (int i = 1; i <= rows.RowCount(); ++i)
        total += rows.Amount(i);
    // Most pay a part in round notes when they order.
    const double advance = chance(75) ? std::floor(total * pick(2, 6) / 1000) * 100 : 0;
    const QDate delivery = day.addDays(pick(7, 15));
    JobCard card;
    card.JobIDText = QString::number(JobCardStore::GetNewNum());
    card.JobDate = day;
    card.ClientTitle = client;
    card.ReceiptAccountTitle = chance(85) ? u"Cash"_s : u"State Bank"_s;
    card.DeliveryDate = delivery;
    card.TrialDate = delivery.addDays(-3);
    card.TotalText = Money(total);
    card.ReceivedText = NumberText(advance);
    card.Cancelled = chance(2);
    card.CancelReason = card.Cancelled ? u"Client moved away"_s : QString();
    JobCardStore store;
    store.SaveNew(card, rows);
    if (card.Cancelled)
        return;
    produce(store.CurrentJobID(), delivery);
    fit(store.CurrentJobID());
    if (delivery < lastDay.addDays(-2))
        settle(store.CurrentJobID(), client, delivery, total - advance);
}

void DemoShop::produce(int jobID, QDate delivery)
{
    Recordset &records = DE().rsJOBS_DETAIL;
    records.reopen(u"Select * from jobs_detail where JobID="_s + QString::number(jobID));
    const QDate assigned = delivery.addDays(-6);
    const QDate finished = delivery.addDays(-1);
    for (; !records.eof(); records.moveNext()) {
        if (assigned > lastDay || records.integer(u"isInventory") != 0)
            continue;
        const QString worker = m_workers.at(pick(0, static_cast<int>(m_workers.size()) - 1));
        records.set(u"WorkerID", GetAccountID(worker));
        records.set(u"WorkerName", worker);
        // Of the last days' work some is not cut yet, and some is late.
        const bool isLate = finished >= lastDay.addDays(-5) && chance(25);
        if (isLate && chance(40))
            continue;
        records.set(u"CuttingStatus", cutting::Done);
        records.set(u"CuttingDate", assigned);
        if (finished > lastDay || isLate)
            continue;
        records.set(u"CompletedDate", finished);
        records.set(u"DoneByWorker", rowStatus::Completed);
        records.set(u"Loc", u"Rack %1"_s.arg(pick(1, 6)));
        if (chance(70))
            records.set(u"Score", pick(2, 5));
        if (finished >= lastDay.addDays(-5) && chance(20)) {
            records.set(u"AltDate", lastDay);
            records.set(u"DoneByWorker", rowStatus::Alteration);
        }
    }
    records.updateBatch();
    records.close();
}

/// Most come to be fitted; who doesn't is told to, or needs no trial.
void DemoShop::fit(int jobID)
{
    Recordset &job = DE().rsJobs2;
    job.reopen(u"Select * from jobs where id="_s + QString::number(jobID));
    if (const QDate trial = job.date(u"TrialDate"); trial < lastDay && chance(85)) {
        const bool came = chance(95);
        job.set(u"appeared", came ? trial::Appeared : trial::Canceled);
        if (came)
            job.set(u"appearedDate", trial);
        job.update();
    }
    job.close();
}

void DemoShop::settle(int jobID, const QString &client, QDate day, double due)
{
    // Nine in ten collect; of those most pay in full, some a part, and a few leave a deposit for the next order.
    if (!chance(90))
        return;
    Recordset &job = DE().rsJobs2;
    job.reopen(u"Select * from jobs where id="_s + QString::number(jobID));
    job.set(u"ClientDeliveryDate", day);
    job.set(u"JobFinished", 1);
    job.update();
    job.close();
    Recordset &records = DE().rsJOBS_DETAIL;
    records.reopen(u"Select * from jobs_detail where JobID="_s + QString::number(jobID));
    for (; !records.eof(); records.moveNext()) {
        records.set(u"DelToCustDate", day);
        records.set(u"DoneByWorker", rowStatus::Delivered);
    }
    records.updateBatch();
    records.close();
    const int manner = pick(1, 100);
    if (manner <= 84)
        receive(client, day, due);
    else if (manner <= 94)
        receive(client, day, std::floor(due / 200) * 100);
    else
        receive(client, day, due + 500);
}

void DemoShop::receive(const QString &client, QDate day, double amount)
{
    if (amount > 0)
        note({.kind = u"Receipt"_s, .mainAccount = client, .remark = {}, .amount = amount}, day);
}

void DemoShop::note(const demoData::Entry &entry, QDate day)
{
    m_vouchers.push_back({.kind = entry.kind,
        .date = day,
        .mainAccount = entry.mainAccount,
        .otherAccount = entry.otherAccount,
        .remark = entry.remark,
        .amount = NumberText(entry.amount)});
}

/// Each month's bills, and on the last day, which ends the half year, all that was put off.
void DemoShop::keepBooks()
{
    for (QDate day = firstDay.addMonths(1).addDays(-1); day <= lastDay; day = day.addDays(1).addMonths(1).addDays(-1)) {
        for (const demoData::Entry &entry : demoData::monthlyEntries())
            note(entry, day);
    }
    for (const demoData::Entry &entry : demoData::lastDayEntries())
        note(entry, lastDay);
    for (const QString &worker : m_workers)
        note({.kind = u"Payment"_s, .mainAccount = worker, .remark = u"Advance"_s, .amount = 100.0 * pick(2, 9)},
            lastDay);
}

/// Day by day, as they came about.
void DemoShop::enterVouchers()
{
    std::ranges::stable_sort(m_vouchers, {}, &vouchers::Voucher::date);
    for (vouchers::Voucher &voucher : m_vouchers) {
        voucher.number = vouchers::GetNewNum();
        vouchers::SaveNew(voucher);
    }
    m_vouchers.clear();
}

void DemoShop::payWorkers()
{
    const QDate august(2011, 8, 1);
    payWorker(u"Babu Lal"_s, august, august.addMonths(1).addDays(-1));
    payWorker(u"Kishan Chand"_s, august, august.addMonths(1).addDays(-1));
}

/// A payroll credits the wages of its last garment; the rest is written by hand, and all of it paid.
void DemoShop::payWorker(const QString &worker, QDate from, QDate to)
{
    Recordset &garments = DE().rsJOBS_DETAIL;
    garments.reopen(u"Select * from jobs_detail where WorkerID=%1 and CompletedDate between #%2# and #%3#"_s
                        .arg(GetAccountID(worker))
                        .arg(DayMonthYear(from), DayMonthYear(to)));
    payrolls::Payroll payroll{.worker = worker, .from = from, .to = to};
    double total = 0;
    for (; !garments.eof(); garments.moveNext()) {
        payroll.rowIDs.push_back(garments.integer(u"id"));
        payroll.amount = garments.number(u"WorkerWagesDue");
        total += payroll.amount;
    }
    garments.close();
    session::CurrentDate = to;
    payrolls::create(payroll);
    const QString month = u"August"_s;
    note({.kind = u"Wages"_s,
             .mainAccount = worker,
             .otherAccount = u"Wages"_s,
             .remark = month,
             .amount = total - payroll.amount},
        to);
    note({.kind = u"Payment"_s, .mainAccount = worker, .remark = month, .amount = total}, to.addDays(1));
    enterVouchers();
}
