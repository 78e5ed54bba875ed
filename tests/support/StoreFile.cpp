#include "support/StoreFile.h"

#include "base/session.h"
#include "store/DataEnvironment.h"
#include "store/schema.h"

using namespace Qt::StringLiterals;

namespace {

Connection &newShop(const QTemporaryDir &folder)
{
    session::ProgramFolder = folder.path();
    session::DBPath = session::defaultDatabasePath();
    CreateDatabase([] {
        renewDE();
        DE().CN.open(session::DBPath);
    });
    return DE().CN;
}

} // namespace

StoreFile::StoreFile() : connection(newShop(folder)) { }

StoreFile::~StoreFile()
{
    renewDE();
}

void StoreFile::addAccount(const QString &title, QDate birthday, int type)
{
    Recordset rows(connection);
    rows.open(u"Select * from Accounts"_s);
    rows.addNew();
    rows.set(u"Title", title);
    rows.set(u"Type", type);
    rows.set(u"dob", birthday);
    rows.update();
}

void StoreFile::addPosting(int accountID, const Value &date, double amount, int status)
{
    Recordset rows(connection);
    rows.open(u"Select * from Postings where id=0"_s);
    rows.addNew();
    rows.set(u"AccID", accountID);
    rows.set(u"Vtype", 1);
    rows.set(u"Date", date);
    rows.set(u"particulars", u"Sales"_s);
    rows.set(u"Remark", QString());
    rows.set(u"Amount", amount);
    rows.set(u"Status", status);
    rows.update();
}

void StoreFile::addItem(
    const QString &name, const QString &measurements, double fees, double workerFees, bool inventory)
{
    Recordset items(connection);
    items.open(u"Select * from Items"_s);
    items.addNew();
    items.set(u"Name", name);
    items.set(u"ItemDetails", measurements);
    items.set(u"Fees", fees);
    items.set(u"WorkerFees", workerFees);
    items.set(u"isInventory", inventory ? 1 : 0);
    items.update();
}

void StoreFile::addJobRow(const JobRow &row)
{
    Recordset rows(connection);
    rows.open(u"Select * from JOBS_DETAIL where id=0"_s);
    rows.addNew();
    for (const QStringView date : {u"DATE", u"JobDelDate", u"CuttingDate"})
        rows.set(date, row.date);
    for (const QStringView text : {u"ClintName", u"ItemName", u"Remarks", u"ItemDetails", u"ItemDetailsValue"})
        rows.set(text, u"Asha Rao"_s);
    for (const QStringView amount : {u"FEES", u"Amount"})
        rows.set(amount, 1);
    rows.set(u"JobID", row.job);
    rows.set(u"ClintID", row.client);
    rows.set(u"ItemID", row.item);
    rows.set(u"WorkerID", row.worker);
    rows.set(u"DoneByWorker", row.status);
    rows.set(u"QNT", row.quantity);
    rows.set(u"isInventory", row.inventory ? 1 : 0);
    rows.update();
}

void StoreFile::addJob(const Job &job)
{
    Recordset jobs(connection);
    jobs.open(u"Select * from JOBS where id=0"_s);
    jobs.addNew();
    jobs.set(u"Id", job.number);
    jobs.set(u"ClintID", job.client);
    jobs.set(u"appeared", job.appeared);
    for (const QStringView date : {u"DATE", u"DeliveryDate", u"TrialDate", u"ClientDeliveryDate"})
        jobs.set(date, job.date);
    for (const QStringView number : {u"AmountDue", u"AmountPaid", u"JobFinished", u"Status"})
        jobs.set(number, 0);
    for (const QStringView text : {u"ClintName", u"Remark", u"CancelReason"})
        jobs.set(text, QString());
    jobs.update();
}

QStringList StoreFile::lines(const QString &statement)
{
    QStringList lines;
    Recordset rows(connection);
    rows.open(statement);
    for (; !rows.eof(); rows.moveNext()) {
        QStringList cells;
        for (int column = 0; column < rows.columnCount(); ++column) {
            const Value value = rows.value(column);
            cells += value.isNull() ? QString() : value.toText();
        }
        lines += cells.join(u'|');
    }
    return lines;
}

int StoreFile::count(const QString &table)
{
    Recordset rows(connection);
    rows.open(u"Select count(*) from "_s + table);
    return rows.value(0).toInt();
}
