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

using Cells = std::vector<std::pair<QString, Value>>;

void add(Connection &connection, const QString &table, const Cells &cells)
{
    Recordset rows(connection);
    rows.openToAdd(u"Select * from "_s + table);
    rows.addNew();
    for (const auto &[column, value] : cells)
        rows.set(column, value);
    rows.update();
}

} // namespace

StoreFile::StoreFile() : connection(newShop(folder)) { }

StoreFile::~StoreFile()
{
    renewDE();
}

void StoreFile::addAccount(const QString &title, QDate birthday, int type)
{
    add(connection, u"Accounts"_s, {{u"Title"_s, title}, {u"Type"_s, type}, {u"dob"_s, birthday}});
}

void StoreFile::addPosting(int accountID, const Value &date, double amount, int status)
{
    add(connection, u"Postings"_s,
        {{u"AccID"_s, accountID}, {u"Vtype"_s, 1}, {u"Date"_s, date}, {u"particulars"_s, u"Sales"_s},
            {u"Remark"_s, QString()}, {u"Amount"_s, amount}, {u"Status"_s, status}});
}

void StoreFile::addItem(
    const QString &name, const QString &measurements, double fees, double workerFees, bool inventory)
{
    add(connection, u"Items"_s,
        {{u"Name"_s, name}, {u"ItemDetails"_s, measurements}, {u"Fees"_s, fees}, {u"WorkerFees"_s, workerFees},
            {u"isInventory"_s, inventory ? 1 : 0}});
}

void StoreFile::addJobRow(const JobRow &row)
{
    Cells cells{{u"JobID"_s, row.job}, {u"ClintID"_s, row.client}, {u"ItemID"_s, row.item}, {u"WorkerID"_s, row.worker},
        {u"DoneByWorker"_s, row.status}, {u"QNT"_s, row.quantity}, {u"isInventory"_s, row.inventory ? 1 : 0},
        {u"FEES"_s, 1}, {u"Amount"_s, 1}};
    for (const QString &date : {u"DATE"_s, u"JobDelDate"_s, u"CuttingDate"_s})
        cells.emplace_back(date, row.date);
    for (const QString &text : {u"ClintName"_s, u"ItemName"_s, u"Remarks"_s, u"ItemDetails"_s, u"ItemDetailsValue"_s})
        cells.emplace_back(text, u"Asha Rao"_s);
    add(connection, u"JOBS_DETAIL"_s, cells);
}

void StoreFile::addJob(const Job &job)
{
    Cells cells{{u"Id"_s, job.number}, {u"ClintID"_s, job.client}, {u"appeared"_s, job.appeared}};
    for (const QString &date : {u"DATE"_s, u"DeliveryDate"_s, u"TrialDate"_s, u"ClientDeliveryDate"_s})
        cells.emplace_back(date, job.date);
    for (const QString &number : {u"AmountDue"_s, u"AmountPaid"_s, u"JobFinished"_s, u"Status"_s})
        cells.emplace_back(number, 0);
    for (const QString &text : {u"ClintName"_s, u"Remark"_s, u"CancelReason"_s})
        cells.emplace_back(text, QString());
    add(connection, u"JOBS"_s, cells);
}

QStringList StoreFile::linesOf(Connection &connection, const QString &statement)
{
    QStringList lines;
    Recordset rows(connection);
    rows.open(statement);
    for (; !rows.eof(); rows.moveNext()) {
        QStringList cells;
        for (int column = 0; column < rows.columnCount(); ++column)
            cells += rows.value(column).isNull() ? QString() : rows.value(column).toText();
        lines += cells.join(u'|');
    }
    return lines;
}

int StoreFile::count(const QString &table)
{
    return lines(u"Select count(*) from "_s + table).first().toInt();
}
