#include "store/DataEnvironment.h"
#include "store/lookups.h"
#include "support/StoreFile.h"
#include "support/expectFault.h"
#include "support/testRegistry.h"

using namespace Qt::StringLiterals;

/// What stands in the file, and what the caller is told, when the disk fails or another program keeps the file.
class DiskFaultsTest : public QObject {
    Q_OBJECT

private slots:
    void aGroupGoesBackWhole();
    void aWriteByItselfIsWholeOrNot();
    void aGroupThatCannotBeginOrCommitGoesBack();
    void scratchTablesAreNoEntry();
    void aGroupThatIsClosedInItsMidstGoesBack();
};

namespace {

/// From now on the file may not grow, as on a disk that is full.
void fill(StoreFile &file)
{
    file.connection.define(u"PRAGMA max_page_count = "_s + file.lines(u"PRAGMA page_count"_s).first());
}

void makeRoom(StoreFile &file)
{
    file.connection.define(u"PRAGMA max_page_count = 100000"_s);
}

const auto large = QString(200000, u'x');

} // namespace

void DiskFaultsTest::aGroupGoesBackWhole()
{
    // The failure flies through, comes in or behind a group within, is dropped by the body, or made another fault.
    for (const QString &way : {u"thrown"_s, u"nested"_s, u"behind"_s, u"dropped"_s, u"changed"_s}) {
        StoreFile file;
        file.addAccount(u"Asha"_s);
        file.addPosting(5, QDate(2011, 4, 1), 100);
        QCOMPARE(GetAccountBalance(5, {2011, 4, 1}), 100.0);
        fill(file);
        int takenBack = 0;
        const auto count = [&takenBack](Written written) {
            QCOMPARE(written, Written::Nothing);
            ++takenBack;
        };
        const auto body = [&] {
            DE().CN.execute(u"Update Postings set Amount=70 where AccID=5"_s);
            DE().CN.execute(u"Update Accounts set Title='Babu' where Id=5"_s);
            QCOMPARE(GetAccountBalance(5, {2011, 4, 1}), 70.0);
            QCOMPARE(GetAccountTitle(5), u"Babu"_s);
            if (way == u"thrown")
                file.addAccount(large);
            if (way == u"nested")
                WriteGroup::run(
                    file.connection, [&] { file.addAccount(large); }, count);
            if (way == u"behind") {
                WriteGroup::run(
                    file.connection, [&] { file.addAccount(u"C"_s); }, count);
                file.addAccount(large);
            }
            try {
                file.addAccount(large);
            } catch (const RuntimeError &) {
                if (way == u"changed")
                    throw RuntimeError(Fault::TypeMismatch);
            }
            // Nothing more is written, or it would stand alone.
            EXPECT_FAULT(Fault::DiskFull, file.addAccount(u"D"_s));
        };
        const RuntimeError error = failureOf([&] { WriteGroup::run(file.connection, body, count); });
        QVERIFY2(error.fault() == Fault::DiskFull, qPrintable(way));
        QCOMPARE(error.written(), Written::Nothing);
        QVERIFY(error.canGoOn());
        QCOMPARE(error.source(), file.path());
        QCOMPARE(error.text(),
            u"There is not enough space on the disk.\n\nNothing of this entry was written. "
            "When the cause is mended, it can be entered again."_s);
        QCOMPARE(takenBack, way == u"nested" ? 2 : 1);
        QCOMPARE(GetAccountBalance(5, {2011, 4, 1}), 100.0);
        QCOMPARE(GetAccountTitle(5), u"Asha"_s);
        QCOMPARE(file.count(u"Accounts"_s), 5);

        makeRoom(file);
        WriteGroup::run(
            file.connection, [&] { file.addAccount(large); }, count);
        QCOMPARE(file.count(u"Accounts"_s), 6);
        QCOMPARE(takenBack, way == u"nested" ? 2 : 1);
    }
}

void DiskFaultsTest::aWriteByItselfIsWholeOrNot()
{
    StoreFile file;
    fill(file);
    for (const bool statement : {true, false}) {
        const RuntimeError error = failureOf([&] {
            if (statement)
                file.connection.execute(u"Update Accounts set ADDRESS='%1'"_s.arg(large));
            else
                file.addAccount(large);
        });
        QCOMPARE(error.fault(), Fault::DiskFull);
        QCOMPARE(error.written(), Written::Nothing);
    }
    QCOMPARE(file.lines(u"Select count(*), max(ADDRESS) from Accounts"_s), QStringList{u"4|"_s});
    // What has room is written.
    file.addAccount(u"B"_s);
    QCOMPARE(file.count(u"Accounts"_s), 5);
    QCOMPARE(file.lines(u"PRAGMA integrity_check"_s), QStringList{u"ok"_s});
}

void DiskFaultsTest::aGroupThatCannotBeginOrCommitGoesBack()
{
    for (const bool begins : {false, true}) {
        StoreFile file;
        Connection other;
        other.open(file.path());
        std::optional<Connection::Statement> reading;
        if (begins) {
            // Another program reads on and on.
            reading.emplace(other, "select * from Accounts", std::vector<Value>(), QString());
            QVERIFY(reading->step());
        } else {
            other.define(u"begin immediate"_s);
        }
        bool ran = false;
        bool takenBack = false;
        const auto write = [&] {
            ran = true;
            file.connection.execute(u"Update Accounts set Title='Till' where id=4"_s);
            QCOMPARE(GetAccountTitle(4), u"Till"_s);
            file.addAccount(u"Asha"_s);
        };
        const RuntimeError error =
            failureOf([&] { WriteGroup::run(file.connection, write, [&](Written) { takenBack = true; }); });
        QCOMPARE(error.fault(), Fault::Locked);
        QCOMPARE(error.written(), Written::Nothing);
        QVERIFY(error.text().contains(u"in use by another program"_s));
        QCOMPARE(ran, begins);
        QCOMPARE(takenBack, begins);
        QCOMPARE(GetAccountTitle(4), u"Cash"_s);
        reading.reset();
        other.close();
        QCOMPARE(file.count(u"Accounts"_s), 4);
        WriteGroup::run(file.connection, write);
        file.addAccount(u"by itself"_s);
        other.open(file.path());
        QCOMPARE(StoreFile::linesOf(other, u"Select id from Accounts"_s).size(), 6);
    }
}

void DiskFaultsTest::scratchTablesAreNoEntry()
{
    StoreFile file;
    Connection other;
    other.open(file.path());
    const auto toldBy = [&file] {
        try {
            WriteGroup::runScratch(file.connection, [&file] {
                file.connection.execute(u"Insert into rank (NAME, Score, Rating) values ('%1', 1, 1)"_s.arg(large));
            });
        } catch (const RuntimeError &error) {
            return error.written() == Written::NotTried && error.canGoOn() ? error.text() : error.report();
        }
        return QString();
    };
    fill(file);
    QCOMPARE(toldBy(), u"There is not enough space on the disk."_s);
    makeRoom(file);
    other.define(u"begin immediate"_s);
    QCOMPARE(toldBy(), u"The file is in use by another program."_s);
    other.define(u"rollback"_s);
    QCOMPARE(file.count(u"rank"_s), 0);
    QCOMPARE(toldBy(), QString());
    QCOMPARE(file.count(u"rank"_s), 1);
}

void DiskFaultsTest::aGroupThatIsClosedInItsMidstGoesBack()
{
    StoreFile file;
    // As when the process ends itself in an event loop that shows how far the group is.
    const auto body = [&file] {
        file.addAccount(u"half"_s);
        file.connection.close();
    };
    WriteGroup::run(file.connection, body);
    EXPECT_FAULT(Fault::NotOpen, WriteGroup::run(file.connection, body));
    file.connection.open(file.path());
    QCOMPARE(file.count(u"Accounts"_s), 4);
}

CORVANE_TEST(DiskFaultsTest)
#include "tst_diskFaults.moc"
