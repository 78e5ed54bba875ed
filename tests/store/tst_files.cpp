#include "base/safeFile.h"
#include "base/session.h"
#include "store/DataEnvironment.h"
#include "store/schema.h"
#include "store/settings.h"
#include "support/StoreFile.h"
#include "support/expectFault.h"
#include "support/fileContent.h"
#include "support/testRegistry.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

/// The file itself: how it is made, what it holds at first, and what happens with one that is no good.
class FilesTest : public QObject {
    Q_OBJECT

private slots:
    void aNewFileHoldsItsTablesItsVersionAndFourAccounts();
    void whereNoFileCanBeMadeNothingChanges();
    void aShopThatCannotBeOpenedIsWholeAllTheSame();
    void onlyTheOwnerMayReadItAndOnlyWithItsPassword();
    void aFileElsewhereStaysIdleAndTheDefaultFileIsUsed();
    void badFilesAreToldApartAndNotTouched();
    void writesWaitForTheDiskAndOpeningForNobody();
    void aSettingIsStoredOnce();
};

namespace {

QStringList storedAccounts(Connection &connection)
{
    return StoreFile::linesOf(connection, u"Select Title from Accounts order by id"_s);
}

const QStringList newAccounts{u"Wages"_s, u"Sales"_s, u"Purchase"_s, u"Cash"_s};

} // namespace

void FilesTest::aNewFileHoldsItsTablesItsVersionAndFourAccounts()
{
    StoreFile file;
    QCOMPARE(file.lines(u"Select name from sqlite_master where name not like 'sqlite%'"_s).join(u' '),
        u"SHOP ITEMS Accounts JOBS JOBS_DETAIL INFO Settings tmpHead tmpBody postings rank wagesregister accountbook"_s);
    for (const QString &empty : {u"SHOP"_s, u"ITEMS"_s, u"JOBS"_s, u"INFO"_s, u"tmpHead"_s, u"postings"_s})
        QCOMPARE(file.count(empty), 0);
    QCOMPARE(file.lines(u"Select SETTING, [VALUE] from Settings"_s).size(), 1);
    QCOMPARE(GetSetting(setting::DatabaseVersion), u"15"_s);
    QCOMPARE(file.lines(u"Select Id, Title, Type, Nature, readonly from Accounts order by id"_s),
        (QStringList{u"1|Wages|2|1|1"_s, u"2|Sales|2|0|1"_s, u"3|Purchase|2|1|1"_s, u"4|Cash|2|0|1"_s}));
    file.addAccount(u"Asha"_s);
    QCOMPARE(QDir(file.folder.path()).entryList(QDir::Files), QStringList{u"data15.mdb"_s});
}

void FilesTest::whereNoFileCanBeMadeNothingChanges()
{
    StoreFile file;
    DE().CN.close();
    const QByteArray before = contentOf(file.path());
    for (const auto &[path, why] : {std::pair{file.path(), u"The file exists already."_s},
             {file.folder.filePath(u"missing/data15.mdb"_s), u"No such file or directory"_s}}) {
        session::DBPath = path;
        const auto fault = CreateDatabase([] { QFAIL("nothing was made to open"); });
        QVERIFY(fault);
        QVERIFY2(fault->text().contains(why), qPrintable(fault->text()));
        QCOMPARE(session::DBPath, path);
    }
    QCOMPARE(contentOf(file.path()), before);
    QCOMPARE(QDir(file.folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList{u"data15.mdb"_s});
}

void FilesTest::aShopThatCannotBeOpenedIsWholeAllTheSame()
{
    QTemporaryDir folder;
    session::ProgramFolder = folder.path();
    session::DBPath = session::defaultDatabasePath();
    // A start that was cut short has left these.
    for (const QString &rest : {u"data15.mdb.new"_s, u"data15.mdb.new-journal"_s, u"data15.mdb-journal"_s})
        writeContent(folder.filePath(rest), QByteArray(9000, 'x'));
    const auto fault = CreateDatabase([] { throw RuntimeError(Fault::Locked, u"now"_s); });
    QVERIFY(fault && fault->fault() == Fault::Locked);
    renewDE();
    DE().CN.open(session::DBPath);
    QCOMPARE(DE().CN.keptAside(), QString());
    QCOMPARE(GetSetting(setting::DatabaseVersion), u"15"_s);
    QCOMPARE(storedAccounts(DE().CN), newAccounts);
    const QStringList names = QDir(folder.path()).entryList(QDir::Files);
    QCOMPARE(names.size(), 2);
    QVERIFY(names.last().startsWith(u"data15.mdb-journal.aside-"_s));
    renewDE();
}

void FilesTest::onlyTheOwnerMayReadItAndOnlyWithItsPassword()
{
    constexpr auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    StoreFile file;
    file.addAccount(u"Recognisable"_s);
    QCOMPARE(QFile::permissions(file.path()) & others, QFile::Permissions());
    DE().CN.close();
    const QByteArray content = contentOf(file.path());
    QVERIFY(!content.contains("SQLite") && !content.contains("Recognisable"));
    QVERIFY(QFile::setPermissions(file.path(), QFile::ReadOwner | QFile::WriteOwner | others));
    DE().CN.open(file.path());
    QCOMPARE(QFile::permissions(file.path()) & others, QFile::Permissions());
    WriteGroup::run(DE().CN, [&] {
        file.addAccount(u"Asha"_s);
        QCOMPARE(QFile::permissions(file.path() + u"-journal"_s) & others, QFile::Permissions());
    });
}

void FilesTest::aFileElsewhereStaysIdleAndTheDefaultFileIsUsed()
{
    StoreFile file;
    const QString elsewhere = file.folder.filePath(u"demo.mdb"_s);
    session::DBPath = elsewhere;
    CreateDatabase([] {
        renewDE();
        DE().CN.open(session::DBPath);
    });
    QCOMPARE(session::DBPath, file.path());
    QCOMPARE(storedAccounts(DE().CN), newAccounts + newAccounts);
    Connection idle;
    idle.open(elsewhere);
    QVERIFY(storedAccounts(idle).isEmpty());

    // Whoever opens has told already what is wrong with the default file; nothing else is made of it.
    session::DBPath = file.folder.filePath(u"another.mdb"_s);
    const auto fault = CreateDatabase([] { renewDE(); });
    QVERIFY2(!fault, qPrintable(fault ? fault->report() : QString()));
}

void FilesTest::badFilesAreToldApartAndNotTouched()
{
    StoreFile file;
    DE().CN.close();
    const QByteArray whole = contentOf(file.path());
    const auto makeWith = [](const QString &path, const char *password) {
        sqlite3 *database = nullptr;
        sqlite3_open(path.toUtf8().constData(), &database);
        sqlite3_key(database, password, static_cast<int>(qstrlen(password)));
        sqlite3_exec(database, "PRAGMA cipher_page_size = 4096; PRAGMA kdf_iter = 64000; create table other (a)",
            nullptr, nullptr, nullptr);
        sqlite3_close(database);
    };
    using Make = std::function<void(const QString &)>;
    const auto holds = [](const QByteArray &bytes) -> Make {
        return [bytes](const QString &path) { writeContent(path, bytes); };
    };
    const auto withoutItsLast = [&](qsizetype bytes) { return holds(whole.first(whole.size() - bytes)); };
    struct Bad {
        QString name;
        Fault fault;
        Make make;
    };
    const std::vector<Bad> all{
        {u"missing"_s, Fault::FileNotFound, [](const QString &) {}},
        {u"a folder"_s, Fault::CannotOpen, [](const QString &path) { QVERIFY(QDir().mkdir(path)); }},
        {u"a socket's like"_s, Fault::CannotOpen,
            [](const QString &path) { QVERIFY(QFile::link(u"/dev/null"_s, path)); }},
        {u"empty"_s, Fault::NotADatabase, holds({})},
        {u"a text"_s, Fault::NotADatabase, holds(QByteArray(8192, 'x'))},
        {u"another password"_s, Fault::NotADatabase, [&](const QString &path) { makeWith(path, "another"); }},
        {u"no shop's tables"_s, Fault::NotADatabase, [&](const QString &path) { makeWith(path, "bluepaperwindow"); }},
        {u"cut by a byte"_s, Fault::Damaged, withoutItsLast(1)},
        {u"cut by 100"_s, Fault::Damaged, withoutItsLast(100)},
        {u"cut by nearly a page"_s, Fault::Damaged, withoutItsLast(4095)},
        {u"cut by a page"_s, Fault::Damaged, withoutItsLast(4096)},
        {u"only its first page"_s, Fault::Damaged, holds(whole.first(4096) + QByteArray(whole.size() - 4096, '\x55'))},
    };
    for (const auto &[name, fault, make] : all) {
        const QString path = file.folder.filePath(name + u".mdb"_s);
        make(path);
        const QByteArray before = contentOf(path);
        Connection connection;
        const RuntimeError error = failureOf([&] { connection.open(path); });
        QVERIFY2(error.fault() == fault, qPrintable(name + u": "_s + error.report()));
        QVERIFY(!error.report().contains(u"bluepaper"_s));
        QVERIFY(!connection.isOpen());
        QCOMPARE(contentOf(path), before);
        QVERIFY(!QFile::exists(path + u"-journal"_s));
    }
}

void FilesTest::writesWaitForTheDiskAndOpeningForNobody()
{
    constexpr int extra = 3;
    const auto durability = [](Connection &connection) {
        const QString mode = StoreFile::linesOf(connection, u"PRAGMA journal_mode"_s).first();
        return mode == u"delete" ? StoreFile::linesOf(connection, u"PRAGMA synchronous"_s).first().toInt() : -1;
    };
    StoreFile file;
    QCOMPARE(durability(file.connection), extra);
    const UnfinishedFile unfinished(file.folder.filePath(u"made.mdb"_s));
    Connection made;
    made.create(unfinished);
    QCOMPARE(durability(made), extra);
    made.close();

    Connection second;
    file.connection.define(u"begin exclusive"_s);
    EXPECT_FAULT(Fault::Locked, second.open(file.path()));
    file.connection.define(u"commit"_s);
    // Somebody's tool has changed the way of writing, and keeps the file open.
    file.connection.define(u"PRAGMA journal_mode = WAL"_s);
    const Connection::Statement reading(file.connection, "select * from Accounts", {}, {});
    EXPECT_FAULT(Fault::Locked, second.open(file.path()));
    QVERIFY(!second.isOpen());
}

void FilesTest::aSettingIsStoredOnce()
{
    StoreFile file;
    QCOMPARE(GetSetting(6, u"fallback"_s), u"fallback"_s);
    SaveSetting(6, u"It's first"_s);
    SaveSetting(6, u"It's 2nd"_s);
    QCOMPARE(GetSetting(6, u"fallback"_s), u"It's 2nd"_s);
    SaveSetting(6, {});
    QCOMPARE(GetSetting(6, u"fallback"_s), QString());
    QCOMPARE(file.count(u"Settings where SETTING='6'"_s), 1);
}

CORVANE_TEST(FilesTest)
#include "tst_files.moc"
