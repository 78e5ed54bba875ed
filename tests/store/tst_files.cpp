#include "base/safeFile.h"
#include "base/session.h"
#include "base/values.h"
#include "store/DataEnvironment.h"
#include "store/schema.h"
#include "store/settings.h"
#include "support/StoreFile.h"
#include "support/expectFault.h"
#include "support/fileContent.h"
#include "support/testRegistry.h"

#include <QTest>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

/// The file itself: how it is made, what it holds at first, and what happens with one that is no good.
class FilesTest : public QObject {
    Q_OBJECT

private slots:
    void aNewFileHoldsTheTablesAndNothingElse();
    void aNewFileHasItsVersionAndFourAccounts();
    void anExistingFileIsLeftAlone();
    void aFolderThatCannotTakeTheFileChangesNothing();
    void aShopThatCannotBeOpenedIsWholeAllTheSame();
    void onlyTheOwnerMayReadIt();
    void aFileElsewhereStaysIdleAndTheDefaultFileIsUsed();
    void badFilesAreToldApartAndNotTouched_data();
    void badFilesAreToldApartAndNotTouched();
    void aLockedFileIsToldAsSuch();
    void oneFileAtRest();
    void aFullDiskTakesBackWhatHadNoRoom();
    void writesWaitForTheDisk();
    void theFileIsUnreadableWithoutItsPassword();
    void aSettingIsStoredOnce();
    void everySettingHasItsDefault();
};

void FilesTest::aNewFileHoldsTheTablesAndNothingElse()
{
    StoreFile file;
    Recordset rows(file.connection);
    rows.open(u"Select type, name from sqlite_master where name not like 'sqlite%'"_s);
    QStringList names;
    for (; !rows.eof(); rows.moveNext()) {
        QCOMPARE(rows.value(0).toText(), u"table"_s);
        names += rows.value(1).toText();
    }
    QCOMPARE(names,
        QStringList({u"SHOP"_s, u"ITEMS"_s, u"Accounts"_s, u"JOBS"_s, u"JOBS_DETAIL"_s, u"INFO"_s, u"Settings"_s,
            u"tmpHead"_s, u"tmpBody"_s, u"postings"_s, u"rank"_s, u"wagesregister"_s, u"accountbook"_s}));
    rows.reopen(u"Select * from JOBS_DETAIL"_s);
    QCOMPARE(rows.columnCount(), 34);
    QCOMPARE(rows.columnName(33), u"CuttingStatus"_s);
    for (const QString &scratch : {u"SHOP"_s, u"ITEMS"_s, u"JOBS"_s, u"INFO"_s, u"tmpHead"_s, u"postings"_s})
        QCOMPARE(file.count(scratch), 0);
}

void FilesTest::aNewFileHasItsVersionAndFourAccounts()
{
    StoreFile file;
    QCOMPARE(file.count(u"Settings"_s), 1);
    QCOMPARE(GetSetting(setting::DatabaseVersion), u"15"_s);
    Recordset rows(file.connection);
    rows.open(u"Select * from Accounts order by id"_s);
    QStringList lines;
    for (; !rows.eof(); rows.moveNext())
        lines += u"%1 %2 %3 %4 %5"_s.arg(rows.integer(u"Id"))
                     .arg(rows.text(u"Title"))
                     .arg(rows.integer(u"Type"))
                     .arg(rows.integer(u"Nature"))
                     .arg(rows.integer(u"readonly"));
    QCOMPARE(lines, QStringList({u"1 Wages 2 1 1"_s, u"2 Sales 2 0 1"_s, u"3 Purchase 2 1 1"_s, u"4 Cash 2 0 1"_s}));
}

void FilesTest::anExistingFileIsLeftAlone()
{
    StoreFile file;
    DE().CN.close();
    const QByteArray before = contentOf(file.path());
    bool opened = false;
    const auto fault = CreateDatabase([&opened] { opened = true; });
    QVERIFY(fault);
    QCOMPARE(fault->text(), u"The file exists already."_s);
    QVERIFY(!opened);
    QCOMPARE(session::DBPath, file.path());
    QCOMPARE(contentOf(file.path()), before);
}

void FilesTest::aFolderThatCannotTakeTheFileChangesNothing()
{
    QTemporaryDir folder;
    session::ProgramFolder = folder.path();
    session::DBPath = folder.filePath(u"missing/data15.mdb"_s);
    const auto fault = CreateDatabase([] { QFAIL("nothing was made to open"); });
    QVERIFY(fault);
    QVERIFY2(fault->text().contains(u"No such file or directory"_s), qPrintable(fault->text()));
    QCOMPARE(session::DBPath, folder.filePath(u"missing/data15.mdb"_s));
    QVERIFY(QDir(folder.path()).isEmpty());
}

void FilesTest::aShopThatCannotBeOpenedIsWholeAllTheSame()
{
    QTemporaryDir folder;
    session::ProgramFolder = folder.path();
    session::DBPath = session::defaultDatabasePath();
    // A start that was cut short has left these.
    writeContent(folder.filePath(u"data15.mdb.new"_s), QByteArray(9000, 'x'));
    writeContent(folder.filePath(u"data15.mdb.new-journal"_s), QByteArray(9000, 'x'));
    writeContent(folder.filePath(u"data15.mdb-journal"_s), QByteArray(9000, 'x'));
    const auto fault = CreateDatabase([] { throw RuntimeError(Fault::Locked, u"now"_s); });
    QVERIFY(fault && fault->fault() == Fault::Locked);
    renewDE();
    DE().CN.open(session::DBPath);
    QCOMPARE(DE().CN.keptAside(), QString());
    QCOMPARE(GetSetting(setting::DatabaseVersion), u"15"_s);
    Recordset rows(DE().CN);
    rows.open(u"Select * from Accounts"_s);
    QCOMPARE(rows.recordCount(), 4);
    rows.reopen(u"Select * from Settings"_s);
    QCOMPARE(rows.recordCount(), 1);
    const QStringList names = QDir(folder.path()).entryList(QDir::Files);
    QCOMPARE(names.size(), 2);
    QVERIFY(names.last().startsWith(u"data15.mdb-journal.aside-"_s));
    renewDE();
}

void FilesTest::onlyTheOwnerMayReadIt()
{
    constexpr auto owner = QFile::ReadOwner | QFile::WriteOwner;
    constexpr auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    StoreFile file;
    QCOMPARE(QFile::permissions(file.path()) & others, QFile::Permissions());
    DE().CN.close();
    QVERIFY(QFile::setPermissions(file.path(), owner | others));
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
    Recordset rows(DE().CN);
    rows.open(u"Select * from Accounts"_s);
    QCOMPARE(rows.recordCount(), 8);
    Connection idle;
    idle.open(elsewhere);
    Recordset idleRows(idle);
    idleRows.open(u"Select * from Accounts"_s);
    QCOMPARE(idleRows.recordCount(), 0);

    // Whoever opens has told already what is wrong with the default file; nothing else is made of it.
    session::DBPath = file.folder.filePath(u"another.mdb"_s);
    const auto fault = CreateDatabase([] { renewDE(); });
    QVERIFY2(!fault, qPrintable(fault ? fault->report() : QString()));
}

void FilesTest::badFilesAreToldApartAndNotTouched_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("fault");
    QTest::newRow("missing") << u"missing"_s << static_cast<int>(Fault::FileNotFound);
    QTest::newRow("a folder") << u"folder"_s << static_cast<int>(Fault::CannotOpen);
    QTest::newRow("empty") << u"empty"_s << static_cast<int>(Fault::NotADatabase);
    QTest::newRow("a text") << u"text"_s << static_cast<int>(Fault::NotADatabase);
    QTest::newRow("another password") << u"key"_s << static_cast<int>(Fault::NotADatabase);
    QTest::newRow("no shop's tables") << u"foreign"_s << static_cast<int>(Fault::NotADatabase);
    QTest::newRow("cut short") << u"short"_s << static_cast<int>(Fault::Damaged);
    QTest::newRow("a page overwritten") << u"page"_s << static_cast<int>(Fault::Damaged);
}

void FilesTest::badFilesAreToldApartAndNotTouched()
{
    QFETCH(QString, kind);
    StoreFile file;
    DE().CN.close();
    const QString path = file.folder.filePath(u"bad.mdb"_s);
    QByteArray content = contentOf(file.path());
    const auto madeWith = [&path](const char *password) {
        sqlite3 *database = nullptr;
        sqlite3_open(path.toUtf8().constData(), &database);
        sqlite3_key(database, password, static_cast<int>(qstrlen(password)));
        sqlite3_exec(database, "PRAGMA cipher_page_size = 4096; PRAGMA kdf_iter = 64000; create table other (a)",
            nullptr, nullptr, nullptr);
        sqlite3_close(database);
    };
    if (kind == u"folder")
        QVERIFY(QDir(file.folder.path()).mkdir(u"bad.mdb"_s));
    else if (kind == u"empty")
        writeContent(path, {});
    else if (kind == u"text")
        writeContent(path, QByteArray(8192, 'x'));
    else if (kind == u"key")
        madeWith("another");
    else if (kind == u"foreign")
        madeWith("bluepaperwindow");
    else if (kind == u"short")
        writeContent(path, content.left(content.size() - 4096));
    else if (kind == u"page")
        // The page behind the first that the tables begin in: that of the settings.
        writeContent(path, content.replace(4096, content.size() - 4096, QByteArray(content.size() - 4096, '\x55')));
    const QByteArray before = contentOf(path);
    Connection connection;
    QTEST(([&] {
        try {
            connection.open(path);
        } catch (const RuntimeError &error) {
            return error.report().contains(u"bluepaper"_s) ? 0 : error.number();
        }
        return 0;
    })(),
        "fault");
    QVERIFY(!connection.isOpen());
    QCOMPARE(contentOf(path), before);
    QVERIFY(!QFile::exists(path + u"-journal"_s));
}

void FilesTest::aLockedFileIsToldAsSuch()
{
    StoreFile file;
    Connection other;
    other.open(file.path());
    other.define(u"begin exclusive"_s);
    Connection connection;
    EXPECT_FAULT(Fault::Locked, connection.open(file.path()));
    other.define(u"commit"_s);
    connection.open(file.path());
    QVERIFY(connection.isOpen());
}

void FilesTest::oneFileAtRest()
{
    StoreFile file;
    file.addAccount(u"Asha"_s);
    QCOMPARE(QDir(file.folder.path()).entryList(QDir::Files), QStringList{u"data15.mdb"_s});
    DE().CN.close();
    QCOMPARE(QDir(file.folder.path()).entryList(QDir::Files), QStringList{u"data15.mdb"_s});
}

void FilesTest::aFullDiskTakesBackWhatHadNoRoom()
{
    StoreFile file;
    file.addAccount(u"Asha"_s);
    Recordset pages(file.connection);
    pages.open(u"PRAGMA page_count"_s);
    file.connection.define(u"PRAGMA max_page_count = "_s + pages.value(0).toText());
    EXPECT_FAULT(Fault::DiskFull, file.addAccount(QString(200000, u'x')));
    file.addAccount(u"B"_s);
    QCOMPARE(file.count(u"Accounts"_s), 6);
    // Inside a group the engine takes the whole group back, and the file is sound.
    EXPECT_FAULT(Fault::DiskFull, WriteGroup::run(file.connection, [&file] {
        file.addAccount(u"C"_s);
        file.addAccount(QString(200000, u'x'));
    }));
    Connection again;
    again.open(file.path());
    Recordset rows(again);
    rows.open(u"Select * from Accounts"_s);
    QCOMPARE(rows.recordCount(), 6);
    rows.reopen(u"PRAGMA integrity_check"_s);
    QCOMPARE(rows.value(0).toText(), u"ok"_s);
}

void FilesTest::writesWaitForTheDisk()
{
    constexpr int extra = 3;
    const auto durability = [](Connection &connection) {
        Recordset asked(connection);
        asked.open(u"PRAGMA synchronous"_s);
        const int synchronous = asked.value(0).toInt();
        asked.reopen(u"PRAGMA journal_mode"_s);
        return asked.value(0).toText() == u"delete" ? synchronous : -1;
    };
    StoreFile file;
    QCOMPARE(durability(file.connection), extra);
    const UnfinishedFile unfinished(file.folder.filePath(u"made.mdb"_s));
    Connection made;
    made.create(unfinished);
    QCOMPARE(durability(made), extra);
    made.close();

    // Somebody's tool has changed the way of writing, and keeps the file open.
    file.connection.define(u"PRAGMA journal_mode = WAL"_s);
    const Connection::Statement reading(file.connection, "select * from Accounts", {}, {});
    Connection second;
    EXPECT_FAULT(Fault::Locked, second.open(file.path()));
    QVERIFY(!second.isOpen());
}

void FilesTest::theFileIsUnreadableWithoutItsPassword()
{
    StoreFile file;
    file.addAccount(u"Recognisable"_s);
    DE().CN.close();
    const QByteArray content = contentOf(file.path());
    QCOMPARE(content.size() % 4096, 0);
    QVERIFY(!content.contains("SQLite"));
    QVERIFY(!content.contains("Recognisable"));
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

void FilesTest::everySettingHasItsDefault()
{
    StoreFile file;
    QCOMPARE(setting::defaults().size(), 36U);
    QCOMPARE(GetSetting(setting::WorkingDate), u"1-April-2011"_s);
    QCOMPARE(GetSetting(setting::SendJobNumber), u"No"_s);
    QVERIFY(settingIsOn(setting::UseDefaultFromDate));
    QVERIFY(!settingIsOn(setting::ManualJobNumber));
    SaveSetting(setting::ManualJobNumber, u"1"_s);
    QVERIFY(settingIsOn(setting::ManualJobNumber));
    for (const setting::Default &entry : setting::defaults())
        QVERIFY(entry.key != 27 && entry.key != 29 && entry.key != 30);
    QCOMPARE(ParseDate(GetSetting(setting::DefaultFromDate)), QDate(2011, 4, 1));
}

CORVANE_TEST(FilesTest)
#include "tst_files.moc"
