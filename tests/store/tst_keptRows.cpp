#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/itemRows.h"
#include "store/journal.h"
#include "support/StoreFile.h"
#include "support/testRegistry.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

/// What is kept in memory of the rows of a table says what the file says, whatever was written and taken back.
class KeptRowsTest : public QObject {
    Q_OBJECT

private slots:
    void anyOrderOfWritesIsFollowed();
    void aWriteCostsItsOwnRowsOnly();
};

namespace {

const QDate firstDay(2011, 4, 1);

/// Rows with a few items, workers, jobs and days, so that each question has answers; one number in seven is Null.
class Shop {
public:
    Shop()
    {
        // Old files may hold Nulls where ours can't.
        for (const QString &table : {u"JOBS_DETAIL"_s, u"postings"_s}) {
            Recordset columns(file.connection);
            columns.open(u"Select * from "_s + table);
            QStringList names;
            for (int i = 0; i < columns.columnCount(); ++i) {
                const bool isNumber = columns.columnName(i).compare(u"Id"_s, Qt::CaseInsensitive) == 0;
                const bool isDate = columns.columnName(i).contains(u"date"_s, Qt::CaseInsensitive);
                const bool isMoney = columns.columnName(i).compare(u"Amount"_s, Qt::CaseInsensitive) == 0;
                names += u"["_s + columns.columnName(i) + u"] "_s
                    + (isNumber       ? u"INTEGER PRIMARY KEY AUTOINCREMENT"_s
                            : isDate  ? u"DATETIME"_s
                            : isMoney ? u"CURRENCY"_s
                                      : u"INTEGER"_s);
            }
            columns.close();
            file.connection.define(u"alter table %1 rename to old%1"_s.arg(table));
            file.connection.define(u"create table "_s + table + u" ("_s + names.join(u", "_s) + u')');
        }
        other.open(file.path());
    }

    int upTo(int most) { return m_random.bounded(1, most + 1); }

    /// In one of the ways that the program writes.
    void writeSomething()
    {
        switch (upTo(9)) {
        case 1: file.connection.execute(u"Update JOBS_DETAIL set DoneByWorker=1 where ItemID="_s + text(3)); break;
        case 2: file.connection.execute(u"Update Postings set status=1 where VID="_s + text(3)); break;
        case 3: remove(); break;
        case 4: takeBack(); break;
        case 5:
            add(other);
            file.connection.noticeOtherWriters();
            break;
        case 6:
            if (upTo(6) == 1) {
                file.connection.execute(u"Delete * from JOBS_DETAIL"_s);
                file.connection.execute(u"Delete * from Postings"_s);
            }
            break;
        case 7: changeByRecordset(); break;
        default: add(file.connection); break;
        }
    }

    QString date() { return u'#' + firstDay.addDays(upTo(4)).toString(u"dd-MM-yyyy"_s) + u'#'; }
    QString text(int most) { return QString::number(upTo(most)); }

    StoreFile file;
    Connection other;

private:
    QString orNull(const QString &value) { return upTo(7) == 1 ? u"Null"_s : value; }

    QString moment()
    {
        QString date = this->date();
        return upTo(4) == 1 ? date.insert(date.size() - 1, u" 10:30:00"_s) : date;
    }

    void add(Connection &connection)
    {
        const QString status = QString::number(upTo(5) - 1);
        connection.execute(
            u"Insert into JOBS_DETAIL (JobID,ItemID,WorkerID,QNT,DoneByWorker,isInventory,Score,DATE,JobDelDate) values ("_s
            + QStringList{text(4), orNull(text(3)), orNull(text(3)), orNull(text(9)), orNull(status),
                orNull(QString::number(upTo(2) - 1)), orNull(text(5)), orNull(moment()), orNull(moment())}
                  .join(u',')
            + u')');
        const QString amount = QString::number((upTo(180000) - 90000) / 10000.0, 'f', 4);
        connection.execute(u"Insert into Postings (VID,AccID,Date,Amount,Status) values ("_s
            + QStringList{text(4), text(3), moment(), amount, QString::number(upTo(2) - 1)}.join(u',') + u')');
    }

    void remove()
    {
        file.connection.execute(u"Delete from JOBS_DETAIL where JobID="_s + text(4) + u" and ItemID="_s + text(3));
        file.connection.execute(u"Delete from Postings where VID="_s + text(4) + u" and AccID="_s + text(3));
    }

    void changeByRecordset()
    {
        Recordset rows(file.connection);
        rows.open(u"Select * from JOBS_DETAIL where JobID="_s + text(4));
        for (; !rows.eof(); rows.moveNext()) {
            rows.set(u"WorkerID", upTo(3));
            rows.set(u"Score", upTo(7) == 1 ? Value() : Value(upTo(5)));
        }
        rows.updateBatch();
        rows.reopen(u"Select * from Postings where VID="_s + text(4));
        if (!rows.eof()) {
            rows.set(u"AccID", upTo(3));
            rows.update();
        }
    }

    /// A group that the disk takes back, looked at in its midst.
    void takeBack()
    {
        try {
            WriteGroup::run(file.connection, [this] {
                add(file.connection);
                remove();
                (void)itemRows::ratedRows(file.connection, 1);
                (void)journal::sums(file.connection, 1, firstDay, firstDay);
                file.connection.define(u"PRAGMA max_page_count = 1"_s);
                file.addAccount(QString(200000, u'x'));
            });
            QFAIL("the group stands");
        } catch (const RuntimeError &error) {
            QCOMPARE(error.fault(), Fault::DiskFull);
        }
        file.connection.define(u"PRAGMA max_page_count = 100000"_s);
    }

    QRandomGenerator m_random{1};
};

} // namespace

void KeptRowsTest::anyOrderOfWritesIsFollowed()
{
    Shop shop;
    Connection &file = shop.file.connection;
    int answered = 0;
    for (int step = 0; step < 600; ++step) {
        shop.writeSomething();
        const int id = shop.upTo(3);
        const QString number = QString::number(id);
        const QDate from = firstDay.addDays(shop.upTo(4));
        const QDate to = from.addDays(shop.upTo(4) - 2);
        const QString between =
            u" between #%1# and #%2#"_s.arg(from.toString(u"dd-MM-yyyy"_s), to.toString(u"dd-MM-yyyy"_s));
        const auto same = [&](auto counted, const QString &statement) {
            const auto kept = static_cast<double>(counted);
            const double told = shop.file.lines(statement).first().toDouble();
            answered += told != 0 ? 1 : 0;
            QVERIFY2(
                kept == told, qPrintable(u"step %1: %2 for %3: %4"_s.arg(step).arg(kept).arg(told).arg(statement)));
        };
        const QString ofItem = u"Select sum(QNT) from JOBS_Detail where ItemID="_s + number;
        same(itemRows::quantityByItem(file, {}, from, to, false).value(id), ofItem + u"and date"_s + between);
        same(itemRows::quantityByItem(file, 2, from, to, false).value(id),
            ofItem + u"and WorkerID=2and date"_s + between);
        same(itemRows::quantityByItem(file, 2, from, to, true).value(id),
            ofItem + u"and WorkerID=2and date"_s + between + u" and  DoneByWorker>0 "_s);
        const QString waiting =
            u"Select count(QNT) from Jobs_Detail where ItemID="_s + number + u" and DoneByWorker=0"_s;
        same(itemRows::waiting(file, id), waiting);
        same(itemRows::waiting(file, id, from), waiting + u" and date=#%1#"_s.arg(from.toString(u"dd-MM-yyyy"_s)));
        const QString inHand =
            u"Select sum(QNT) from JOBS_Detail where DoneByWorker=0 and WorkerID="_s + number + u" and "_s;
        same(
            itemRows::inHandByWorker(file, itemRows::Dated::Booked, from, to).value(id), inHand + u"Date "_s + between);
        same(itemRows::inHandByWorker(file, itemRows::Dated::Promised, from, to).value(id),
            inHand + u"JobDelDate "_s + between);
        const itemRows::Rated rated = itemRows::ratedRows(file, id);
        same(rated.rows, u"Select Count(*) from Jobs_Detail where WorkerID="_s + number);
        same(rated.scores, u"SELECT Sum(Score) from Jobs_Detail where WorkerID="_s + number);
        const itemRows::Progress progress = itemRows::progressOf(file, id);
        const QString made = u"Select count(*) from Jobs_Detail where isInventory=0 and JobID="_s + number;
        same(progress.made, made);
        same(progress.madeAndCompleted, made + u" and DoneByWorker=1"_s);
        same(progress.delivered,
            u"Select count(*) from Jobs_Detail where  JobID="_s + number + u" and DoneByWorker=2"_s);
        const journal::Sums sums = journal::sums(file, id, from, to);
        const QString posted =
            u"Select sum(Amount) from Postings where status=0 and AccID="_s + number + u" and date"_s + between;
        same(sums.balance.toDouble(), posted);
        same(sums.credits.toDouble(), posted + u" and Amount>0"_s);
        same(sums.debits.toDouble(), posted + u" and Amount<0"_s);
    }
    // The random rows did ask something.
    QVERIFY2(answered > 1200, qPrintable(QString::number(answered)));
}

void KeptRowsTest::aWriteCostsItsOwnRowsOnly()
{
    StoreFile file;
    for (int row = 0; row < 20; ++row)
        file.addJobRow({.job = row, .worker = 1});
    const Connection::Mark before = file.connection.changesSince(Connection::Followed::ItemRows, {}).now;
    file.connection.execute(u"Update JOBS_DETAIL set Score=5 where JobID=7"_s);
    file.connection.execute(u"Update Accounts set City='Pune'"_s);
    const auto changes = file.connection.changesSince(Connection::Followed::ItemRows, before);
    QVERIFY(!changes.everything);
    QCOMPARE(std::vector<qint64>(changes.rows.begin(), changes.rows.end()), std::vector<qint64>{8});
    // All of them, one by one.
    file.connection.execute(u"Delete * from JOBS_DETAIL"_s);
    const auto emptied = file.connection.changesSince(Connection::Followed::ItemRows, changes.now);
    QVERIFY(!emptied.everything && emptied.rows.size() == 20);
    QCOMPARE(itemRows::ratedRows(file.connection, 1).rows, 0);
    file.connection.close();
    file.connection.open(file.path());
    QVERIFY(file.connection.changesSince(Connection::Followed::ItemRows, emptied.now).everything);
}

CORVANE_TEST(KeptRowsTest)
#include "tst_keptRows.moc"
