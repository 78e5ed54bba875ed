#include "store/fileCheck.h"

#include "base/FileLock.h"
#include "base/RuntimeError.h"
#include "base/safeFile.h"
#include "base/values.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include "store/RowSet.h"
#include "store/codes.h"
#include "store/leftBehind.h"
#include "store/schema.h"

#include <QDir>
#include <QFileInfo>
#include <QMap>
#include <QSet>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr int busyMilliseconds = 2000;

QString money(const Currency &amount)
{
    return Money(amount.toDouble());
}

struct Leg {
    int serial = 0;
    QString particulars;
    qint32 account = 0;
    qint32 otherSide = 0;
    Currency amount;
    QDate date;
    int status = postingStatus::Live;

    bool operator==(const Leg &) const = default;
};

QString described(const Leg &leg)
{
    return u"%1 of %2 on account %3 against %4, %5%6"_s.arg(leg.particulars, money(leg.amount))
        .arg(leg.account)
        .arg(leg.otherSide)
        .arg(DateText(leg.date), leg.status == postingStatus::Live ? QString() : u", out of the books"_s);
}

struct Row {
    qint32 id = 0;
    int serial = 0;
    QDate date;
    qint32 client = 0;
    qint32 item = 0;
    qint32 worker = 0;
    int quantity = 0;
    Currency fee;
    Currency amount;
};

class Look {
public:
    explicit Look(Connection &connection) : m_connection(connection) { }

    fileCheck::Report run()
    {
        m_accounts = numbersOf(u"Accounts"_s);
        m_items = numbersOf(u"ITEMS"_s);
        readRows();
        readPostings();
        lookAtCards();
        lookAtWhatIsLeft();
        lookAtVouchers();
        lookAtNumbers();
        lookAtTexts();
        return m_report;
    }

private:
    void differ(const QString &document, const QString &what) { m_report.differences += document + u": "_s + what; }

    QSet<qint32> numbersOf(const QString &table)
    {
        QSet<qint32> numbers;
        Recordset all(m_connection);
        all.open(u"Select Id from "_s + table);
        for (; !all.eof(); all.moveNext())
            numbers.insert(all.value(0).toInt());
        return numbers;
    }

    void readRows()
    {
        Recordset all(m_connection);
        all.open(u"Select JobID, Id, ItemSr, DATE, ClintID, ItemID, WorkerID, QNT, FEES, Amount from JOBS_DETAIL"_s);
        for (; !all.eof(); all.moveNext(), ++m_report.rows)
            m_rows[all.value(0).toInt()].push_back({all.value(1).toInt(), all.value(2).toInt(), all.value(3).toDate(),
                all.value(4).toInt(), all.value(5).toInt(), all.value(6).toInt(), all.value(7).toInt(),
                all.value(8).toCurrency(), all.value(9).toCurrency()});
    }

    void readPostings()
    {
        Currency sum;
        Currency liveSum;
        Recordset all(m_connection);
        all.open(u"Select VID, Vtype, sr, particulars, AccID, RefID, Amount, Date, Status from Postings order by id"_s);
        for (; !all.eof(); all.moveNext(), ++m_report.postings) {
            const Leg leg{all.value(2).toInt(), all.value(3).toText(), all.value(4).toInt(), all.value(5).toInt(),
                all.value(6).toCurrency(), all.value(7).toDate(), all.value(8).toInt()};
            sum += leg.amount;
            if (leg.status == postingStatus::Live)
                liveSum += leg.amount;
            const int kind = all.value(1).toInt();
            if (kind == documentKind::JobCard)
                m_cardLegs[all.value(0).toInt()].push_back(leg);
            else if (kind == documentKind::Voucher)
                m_voucherLegs[all.value(0).toInt()].push_back(leg);
            else
                differ(u"Journal"_s, u"a posting of the unknown kind %1."_s.arg(kind));
        }
        if (sum != Currency())
            differ(u"Journal"_s, u"it comes to %1 and not to 0."_s.arg(money(sum)));
        else if (liveSum != Currency())
            differ(u"Journal"_s, u"what counts in it comes to %1 and not to 0."_s.arg(money(liveSum)));
    }

    void lookAtCards()
    {
        Recordset sales(m_connection);
        sales.open(u"Select Id from Accounts where Title='Sales'"_s);
        m_sales = sales.eof() ? 0 : sales.value(0).toInt();
        QSet<qint32> seen;
        Recordset cards(m_connection);
        cards.open(u"Select Id, DATE, ClintID, AmountDue, AmountPaid, CashAccID, Status from JOBS order by id"_s);
        for (; !cards.eof(); cards.moveNext(), ++m_report.cards) {
            const qint32 number = cards.value(0).toInt();
            const QDate date = cards.value(1).toDate();
            if (!m_report.lastCard.isValid() || date > m_report.lastCard)
                m_report.lastCard = date;
            const QString card = u"Job card %1"_s.arg(number);
            if (seen.contains(number)) {
                differ(card, u"its number stands in the file twice."_s);
                continue;
            }
            seen.insert(number);
            const qint32 client = cards.value(2).toInt();
            if (!m_accounts.contains(client))
                differ(card, u"its client %1 does not exist."_s.arg(client));
            const Currency total = cards.value(3).toCurrency();
            lookAtRows(card, m_rows.take(number), date, client, total);

            const int status = cards.value(6).toInt();
            std::vector<Leg> due{{1, u"Sales"_s, client, m_sales, -total, date, status},
                {2, u"Sales"_s, m_sales, client, total, date, status}};
            if (const Currency paid = cards.value(4).toCurrency(); paid > Currency()) {
                const qint32 receipt = cards.value(5).toInt();
                due.push_back({3, u"Receipt"_s, receipt, client, -paid, date, status});
                due.push_back({4, u"Receipt"_s, client, receipt, paid, date, status});
            }
            lookAtLegs(card, m_cardLegs.take(number), due);
        }
    }

    void lookAtRows(const QString &card, const std::vector<Row> &rows, QDate date, qint32 client, const Currency &total)
    {
        if (rows.empty())
            return differ(card, u"it has no rows."_s);
        Currency sum;
        QSet<int> serials;
        for (const Row &row : rows) {
            sum += row.amount;
            if (row.serial >= 1 && row.serial <= static_cast<int>(rows.size()))
                serials.insert(row.serial);
            const QString name = card + u", row %1"_s.arg(row.id);
            if (row.date != date)
                differ(name, u"it is dated %1, its card %2."_s.arg(DateText(row.date), DateText(date)));
            if (row.client != client)
                differ(name, u"it names the client %1, its card %2."_s.arg(row.client).arg(client));
            if (!m_items.contains(row.item))
                differ(name, u"its item %1 does not exist."_s.arg(row.item));
            if (row.worker != 0 && !m_accounts.contains(row.worker))
                differ(name, u"its worker %1 does not exist."_s.arg(row.worker));
            // A fee may be typed finer than the file keeps it, and is multiplied as typed.
            const qint64 product = row.fee.tenThousandths() * row.quantity;
            if (std::llabs(row.amount.tenThousandths() - product) > std::abs(row.quantity) + 1)
                differ(name, u"%1 at %2 are not %3."_s.arg(row.quantity).arg(money(row.fee), money(row.amount)));
        }
        // The card keeps the total as it was shown, in two decimals.
        if (money(sum) != money(total))
            differ(card, u"its rows come to %1, the card says %2."_s.arg(money(sum), money(total)));
        if (serials.size() != static_cast<qsizetype>(rows.size()))
            differ(card, u"its %1 rows are not numbered 1 to %1."_s.arg(rows.size()));
    }

    void lookAtLegs(const QString &card, std::vector<Leg> legs, const std::vector<Leg> &due)
    {
        for (const Leg &leg : due) {
            const auto found = std::find(legs.begin(), legs.end(), leg);
            if (found == legs.end())
                differ(card, u"a posting is missing: %1."_s.arg(described(leg)));
            else
                legs.erase(found);
        }
        for (const Leg &leg : legs)
            differ(card, u"a posting too many: %1."_s.arg(described(leg)));
    }

    void lookAtWhatIsLeft()
    {
        for (const auto &[number, rows] : m_rows.asKeyValueRange())
            differ(u"Job card %1"_s.arg(number), u"it does not exist, but has %1 rows."_s.arg(rows.size()));
        for (const auto &[number, legs] : m_cardLegs.asKeyValueRange())
            differ(u"Job card %1"_s.arg(number), u"it does not exist, but has %1 postings."_s.arg(legs.size()));
    }

    void lookAtVouchers()
    {
        m_report.vouchers = static_cast<int>(m_voucherLegs.size());
        for (const auto &[number, legs] : m_voucherLegs.asKeyValueRange()) {
            const QString voucher = u"Voucher %1"_s.arg(number);
            Currency sum;
            for (const Leg &leg : legs)
                sum += leg.amount;
            if (sum != Currency())
                differ(voucher, u"its postings come to %1 and not to 0."_s.arg(money(sum)));
            for (const Leg &leg : legs) {
                Leg mirrored = leg;
                mirrored.serial = 3 - leg.serial;
                std::swap(mirrored.account, mirrored.otherSide);
                mirrored.amount = -leg.amount;
                if (std::count(legs.begin(), legs.end(), leg) != std::count(legs.begin(), legs.end(), mirrored))
                    differ(voucher, u"a posting has no other side: %1."_s.arg(described(leg)));
            }
        }
    }

    /// An automatic number that is handed out a second time would take over what refers to the first.
    void lookAtNumbers()
    {
        for (const schema::Table &table : schema::tables()) {
            if (table.columns.front().type != schema::Type::AutoNumber)
                continue;
            Recordset highest(m_connection);
            highest.open(u"Select max(Id) from ["_s + table.name + u"]"_s);
            Recordset given(m_connection);
            given.open(u"Select seq from sqlite_sequence where name='"_s + table.name + u"'"_s);
            const qint64 lastGiven = given.eof() ? 0 : given.value(0).toInt();
            if (!highest.value(0).isNull() && highest.value(0).toInt() > lastGiven)
                differ(u"Table "_s + table.name,
                    u"the number %1 was not handed out yet."_s.arg(highest.value(0).toText()));
        }
    }

    /// A page of a long text that the disk has lost reads as nothing but noughts, which no entry puts there.
    void lookAtTexts()
    {
        for (const schema::Table &table : schema::tables()) {
            QByteArrayList conditions;
            for (const schema::Column &column : table.columns) {
                if (column.type == schema::Type::Text)
                    conditions += "instr([" + QByteArray(column.name.data()) + "], char(0)) > 0";
            }
            if (conditions.isEmpty())
                continue;
            Connection::Statement rows(m_connection,
                "select count(*) from [" + QByteArray(table.name.data()) + "] where " + conditions.join(" or "), {},
                {});
            const RowSet counted(rows, false, {});
            if (const int count = counted.value(0, 0).toInt(); count > 0)
                differ(u"Table "_s + table.name, u"a part of a text is lost in %1 of its rows."_s.arg(count));
        }
    }

    Connection &m_connection;
    fileCheck::Report m_report;
    QSet<qint32> m_accounts;
    QSet<qint32> m_items;
    qint32 m_sales = 0;
    QMap<qint32, std::vector<Row>> m_rows;
    QMap<qint32, std::vector<Leg>> m_cardLegs;
    QMap<qint32, std::vector<Leg>> m_voucherLegs;
};

QStringList damagesOf(Connection &connection)
{
    QStringList lines;
    Recordset found(connection);
    found.open(u"PRAGMA integrity_check"_s);
    for (; !found.eof(); found.moveNext())
        lines += found.value(0).toText().split(u'\n', Qt::SkipEmptyParts);
    lines.removeAll(u"ok"_s);
    return lines;
}

QString toldBy(const RuntimeError &error)
{
    return error.source().isEmpty() ? error.text() : error.text() + u' ' + error.source();
}

fileCheck::Report unreadable(const QString &why)
{
    fileCheck::Report report;
    report.failure = why;
    return report;
}

/// `file` is a path or a file in the making.
template <typename File>
fileCheck::Report checkInPlace(const File &file)
{
    fileCheck::Report report;
    try {
        Connection connection;
        connection.openReadOnly(file);
        // One transaction over all: other programs' writes wait.
        connection.define(u"begin"_s);
        const QStringList damages = damagesOf(connection);
        if (damages.isEmpty())
            report = fileCheck::agreement(connection);
        report.damages = damages;
        connection.define(u"rollback"_s);
    } catch (const RuntimeError &error) {
        report.failure = toldBy(error);
    }
    return report;
}

/// Looks at the file as it will be when the write beside it is taken back. REQUIRES: `lock` has the file alone.
fileCheck::Report checkCopy(const QString &file, std::shared_ptr<FileLock> lock)
{
    const QTemporaryDir folder;
    if (!folder.isValid())
        throw RuntimeError(Fault::FileFault, folder.errorString(), QDir::tempPath());
    const QString copy = folder.filePath(QFileInfo(file).fileName());
    // No engine of this process has the file open, either: copying drops the locks that one would have on it.
    for (const QString &suffix : {QString(), u"-journal"_s, u"-wal"_s}) {
        if (QFileInfo::exists(file + suffix))
            safeFile::copyWhole(file + suffix, copy + suffix);
    }
    lock.reset();
    try {
        // The first opening takes the unfinished write back.
        Connection().open(copy);
    } catch (const RuntimeError &error) {
        return unreadable(error.text() + u' ' + file);
    }
    fileCheck::Report report = checkInPlace(copy);
    report.remark = u"An unfinished write lies beside the file; this is the file as the next start will make it."_s;
    return report;
}

/// Reads a statement of the engine's own language and gives each row to `take`.
template <typename Take>
void readRows(Connection &connection, const QByteArray &sql, Take take)
{
    Connection::Statement rows(connection, sql, {}, {});
    while (rows.step())
        take(rows.handle());
}

QString textAt(sqlite3_stmt *row, int column)
{
    return QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(row, column)));
}

int isStopped(void *stop)
{
    return *static_cast<const std::atomic_bool *>(stop) ? 1 : 0;
}

void stopWith(Connection &connection, const std::atomic_bool &stop)
{
    constexpr int stepsBetween = 10'000;
    const Connection::Statement any(connection, "select 1", {}, {});
    sqlite3_progress_handler(
        sqlite3_db_handle(any.handle()), stepsBetween, isStopped, const_cast<std::atomic_bool *>(&stop));
}

void lookAtPages(Connection &connection, fileCheck::Holding &holding)
{
    readRows(connection, "PRAGMA integrity_check", [&holding](sqlite3_stmt *row) {
        if (textAt(row, 0) != u"ok")
            holding.failure = RuntimeError(Fault::Damaged).text();
    });
}

} // namespace

fileCheck::Report fileCheck::check(const UnfinishedFile &file)
{
    return checkInPlace(file);
}

fileCheck::Holding fileCheck::look(const UnfinishedFile &file, Pages pages, const std::atomic_bool &stop)
{
    Holding holding;
    try {
        Connection connection;
        connection.openReadOnly(file);
        stopWith(connection, stop);
        readRows(connection, "select VALUE from Settings where SETTING='16'",
            [&holding](sqlite3_stmt *row) { holding.version = Val(textAt(row, 0)); });
        readRows(connection, "select count(*), max(DATE) from JOBS", [&holding](sqlite3_stmt *row) {
            holding.cards = sqlite3_column_int(row, 0);
            if (const auto last = readDateTime(textAt(row, 1)))
                holding.lastCard = last->date();
        });
        if (pages == Pages::All)
            lookAtPages(connection, holding);
    } catch (const RuntimeError &error) {
        holding.failure = error.text();
    }
    return holding;
}

fileCheck::Report fileCheck::agreement(Connection &connection)
{
    return Look(connection).run();
}

fileCheck::Report fileCheck::check(const QString &path)
{
    if (!QFileInfo::exists(path))
        return checkInPlace(path);
    const QString file = QFileInfo(path).canonicalFilePath();
    try {
        auto lock = FileLock::shared(file, busyMilliseconds);
        // A journal beside a file in use may be that of a write under way, which the engine waits for.
        if (lock->isAlone() && leftBehind::isHot(file))
            return checkCopy(file, std::move(lock));
        return checkInPlace(file);
    } catch (const RuntimeError &error) {
        return unreadable(toldBy(error));
    }
}
