#include "store/schema.h"

#include "base/safeFile.h"
#include "base/session.h"
#include "store/DataEnvironment.h"
#include "store/settings.h"

#include <QFileInfo>

#include <array>

using namespace Qt::StringLiterals;

namespace schema {

namespace {

using enum Type;

constexpr Column rowNumber{"Id"_L1, AutoNumber, true};
constexpr auto emptyText = "''"_L1;
constexpr auto zero = "0"_L1;

constexpr Column shop[]{
    rowNumber,
    {"NAME"_L1, Text, true},
    {"ADDRESS1"_L1, Text, false},
    {"ADDRESS2"_L1, Text, false},
    {"ADDRESS3"_L1, Text, false},
    {"CONTACTS"_L1, Text, false},
};

constexpr Column items[]{
    rowNumber,
    {"NAME"_L1, Text, true},
    {"NAMEHindi"_L1, Text, false},
    {"ItemDetails"_L1, Text, true},
    {"ItemDetailsHindi"_L1, Text, false},
    {"FEES"_L1, Currency, true},
    {"WorkerFees"_L1, Currency, true, zero},
    {"OpPendingOrders"_L1, Text, false},
    {"ProdcutionCap"_L1, Text, false},
    {"PendingOrders"_L1, Text, false},
    {"isInventory"_L1, Integer, true, zero},
};

constexpr Column accounts[]{
    rowNumber,
    {"Key"_L1, Text, false},
    {"Title"_L1, Text, true},
    {"Type"_L1, Integer, true},
    {"Nature"_L1, Integer, true, zero},
    {"ADDRESS"_L1, Text, false},
    {"CITY"_L1, Text, false},
    {"STATE"_L1, Text, false},
    {"MOBILE"_L1, Text, false},
    {"DOB"_L1, Date, false},
    {"readonly"_L1, Integer, true, zero},
};

constexpr Column jobs[]{
    {"Id"_L1, Integer, true, "1"_L1},
    {"DATE"_L1, Date, true},
    {"ClintID"_L1, Integer, true},
    {"ClintName"_L1, Text, true},
    {"DeliveryDate"_L1, Date, true},
    {"ClientDeliveryDate"_L1, Date, false},
    {"TrialDate"_L1, Date, true},
    {"appeared"_L1, Integer, true, zero},
    {"appearedDate"_L1, Date, false},
    {"AmountDue"_L1, Currency, true},
    {"AmountPaid"_L1, Currency, true},
    {"JobFinished"_L1, Integer, true},
    {"Remark"_L1, Text, true},
    {"CashAccID"_L1, Integer, true, zero},
    {"Status"_L1, Integer, true},
    {"CancelReason"_L1, Text, true},
};

constexpr Column jobsDetail[]{
    rowNumber,
    {"DATE"_L1, Date, true},
    {"JobID"_L1, Integer, true},
    {"ItemSr"_L1, Integer, true, zero},
    {"ClintID"_L1, Integer, true},
    {"ClintName"_L1, Text, true},
    {"ItemID"_L1, Integer, true},
    {"isInventory"_L1, Integer, true, zero},
    {"ItemName"_L1, Text, true},
    {"QNT"_L1, Integer, true},
    {"FEES"_L1, Currency, true},
    {"Amount"_L1, Currency, true},
    {"Remarks"_L1, Text, true},
    {"ItemDetails"_L1, Text, true},
    {"ItemDetailsValue"_L1, Text, true},
    {"WorkerID"_L1, Integer, true, zero},
    {"WorkerName"_L1, Text, false},
    {"JobDelDate"_L1, Date, true},
    {"CompletedDate"_L1, Date, false},
    {"AltDate"_L1, Date, false},
    {"DelToCustDate"_L1, Date, false},
    {"DoneByWorker"_L1, Integer, true, zero},
    {"WorkerWagesDue"_L1, Currency, true, zero},
    {"MarkAsPaid"_L1, Integer, true, zero},
    {"PayrollID"_L1, Integer, true, zero},
    {"Loc"_L1, Text, false},
    {"Img1"_L1, Text, false},
    {"Img2"_L1, Text, false},
    {"color"_L1, Double, false},
    {"Score"_L1, Integer, true, zero},
    {"ClientFeedback"_L1, Text, true, emptyText},
    {"ClientRemarks"_L1, Text, true, emptyText},
    {"CuttingDate"_L1, Date, true},
    {"CuttingStatus"_L1, Integer, false},
};

constexpr Column info[]{
    rowNumber,
    {"USER"_L1, Text, true},
    {"PASS"_L1, Text, true},
};

constexpr Column settingRows[]{
    rowNumber,
    {"SETTING"_L1, Text, true},
    {"VALUE"_L1, Text, true},
};

constexpr Column tmpHead[]{
    rowNumber,
    {"Date"_L1, Text, true},
    {"JOBID"_L1, Integer, true},
    {"NAME"_L1, Text, true},
    {"DELDATE"_L1, Text, true},
    {"TrialDate"_L1, Text, true},
    {"AMOUNTDUE"_L1, Text, true},
    {"AMOUNTPAID"_L1, Text, true},
    {"AMOUNT"_L1, Text, true},
};

constexpr Column tmpBody[]{
    rowNumber,
    {"JOBID"_L1, Integer, true},
    {"QNT"_L1, Integer, true},
    {"ItemNAME"_L1, Text, true},
    {"Remarks"_L1, Text, true},
    {"FESS"_L1, Text, true},
    {"AMOUNT"_L1, Text, true},
};

constexpr Column postings[]{
    rowNumber,
    {"VID"_L1, Integer, true, zero},
    {"Vtype"_L1, Integer, true},
    {"sr"_L1, Integer, true, zero},
    {"Date"_L1, Date, true},
    {"AccID"_L1, Integer, true},
    {"RefID"_L1, Integer, true, zero},
    {"particulars"_L1, Text, true},
    {"Remark"_L1, Text, true},
    {"Amount"_L1, Currency, true},
    {"Status"_L1, Integer, true, zero},
    {"isPayroll"_L1, Integer, true, zero},
};

constexpr Column rank[]{
    rowNumber,
    {"NAME"_L1, Text, true},
    {"Score"_L1, Double, true},
    {"Rating"_L1, Double, true},
};

constexpr Column wagesRegister[]{
    rowNumber,
    {"date"_L1, Date, true},
    {"Jobid"_L1, Text, true},
    {"client"_L1, Text, true},
    {"item"_L1, Text, true},
    {"wages"_L1, Double, true},
    {"balance"_L1, Double, true},
    {"completed"_L1, Text, true},
    {"status"_L1, Text, true},
};

constexpr Column accountBook[]{
    rowNumber,
    {"vid"_L1, Text, true},
    {"date"_L1, Date, true},
    {"vaucher"_L1, Text, true},
    {"particulars"_L1, Text, true},
    {"debit"_L1, Double, true},
    {"credit"_L1, Double, true},
    {"remark"_L1, Text, true},
};

constexpr Table allTables[]{
    {"SHOP"_L1, shop},
    {"ITEMS"_L1, items},
    {"Accounts"_L1, accounts},
    {"JOBS"_L1, jobs},
    {"JOBS_DETAIL"_L1, jobsDetail},
    {"INFO"_L1, info},
    {"Settings"_L1, settingRows},
    {"tmpHead"_L1, tmpHead},
    {"tmpBody"_L1, tmpBody},
    {"postings"_L1, postings},
    {"rank"_L1, rank},
    {"wagesregister"_L1, wagesRegister},
    {"accountbook"_L1, accountBook},
};

/// The declared types are what `RowSet` knows columns by. Automatic numbers are never handed out twice, not even after
/// the row with the highest one is deleted: hence "autoincrement".
QString declaration(Type type)
{
    switch (type) {
    case AutoNumber: return u"INTEGER PRIMARY KEY AUTOINCREMENT"_s;
    case Integer: return u"INTEGER"_s;
    case Currency: return u"CURRENCY"_s;
    case Double: return u"DOUBLE"_s;
    case Date: return u"DATETIME"_s;
    case Text: return u"TEXT COLLATE FOLDED"_s;
    }
    return {};
}

QString creationOf(const Table &table)
{
    QStringList columns;
    for (const Column &column : table.columns) {
        QString text = u"[%1] %2"_s.arg(column.name, declaration(column.type));
        if (column.required)
            text += u" NOT NULL"_s;
        if (!column.defaultValue.isEmpty())
            text += u" DEFAULT "_s + column.defaultValue;
        columns += text;
    }
    return u"create table [%1] (%2)"_s.arg(table.name, columns.join(u", "_s));
}

} // namespace

std::span<const Table> tables()
{
    return allTables;
}

} // namespace schema

namespace {

void addVersion(Connection &file)
{
    file.execute(u"Insert into Settings (SETTING, [VALUE]) values ('%1', '%2')"_s.arg(setting::DatabaseVersion)
                     .arg(session::SupportedDatabaseVersion));
}

void addDefaultAccounts(Recordset &accounts)
{
    struct Account {
        QString title;
        int nature;
    };
    constexpr int income = 0;
    constexpr int expenses = 1;
    constexpr int ledgerAccount = 2;
    accounts.reopen(u"Select * from accounts order by id"_s);
    for (const auto &[title, nature] : std::array<Account, 4>{
             {{u"Wages"_s, expenses}, {u"Sales"_s, income}, {u"Purchase"_s, expenses}, {u"Cash"_s, income}}}) {
        accounts.addNew();
        accounts.set(u"Title", title);
        accounts.set(u"Type", ledgerAccount);
        accounts.set(u"Nature", nature);
        accounts.set(u"readonly", 1);
    }
    accounts.updateBatch();
    accounts.close();
}

void makeFile(const QString &path, bool asShop)
{
    if (QFileInfo::exists(path))
        throw RuntimeError(Fault::FileFault, u"The file exists already."_s, path);
    UnfinishedFile unfinished(path);
    Connection file;
    file.create(unfinished);
    WriteGroup::run(file, [&] {
        for (const schema::Table &table : schema::tables())
            file.define(schema::creationOf(table));
        if (!asShop)
            return;
        addVersion(file);
        Recordset accounts(file);
        addDefaultAccounts(accounts);
    });
    file.close();
    unfinished.place();
}

} // namespace

std::optional<RuntimeError> CreateDatabase(const std::function<void()> &openDatabase)
{
    try {
        const bool asShop = session::isDefaultDatabase(session::DBPath);
        makeFile(session::DBPath, asShop);
        session::DBPath = session::defaultDatabasePath();
        openDatabase();
        // Where the opening itself has told that there is none, its cause is the one that counts.
        if (!asShop && DE().CN.isOpen()) {
            WriteGroup::run(DE().CN, [] {
                SaveSetting(setting::DatabaseVersion, QString::number(session::SupportedDatabaseVersion));
                addDefaultAccounts(DE().rsaccounts);
            });
        }
    } catch (const RuntimeError &error) {
        return error;
    }
    return {};
}
