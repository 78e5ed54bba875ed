#include "app/startup.h"

#include "StartFolder.h"
#include "app/frmMain.h"
#include "app/programFolder.h"
#include "base/RuntimeError.h"
#include "base/clock.h"
#include "base/safeFile.h"
#include "base/session.h"
#include "base/values.h"
#include "store/DataEnvironment.h"
#include "store/settings.h"
#include "support/ModalScript.h"
#include "support/expectFault.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QProcess>
#include <QScopeGuard>
#include <QTest>

#include <optional>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using driver::press;

/// The way from a folder to an open database.
class StartupTest : public QObject {
    Q_OBJECT

private slots:
    void theFolderIsThatOfTheOptionOrTheEnvironmentOrTheProgramsOwn();
    void aFolderIsMadeAndGetsTheDemo();
    void aFirstStartOffersTheChoice();
    void theMarkerTellsAFirstRun();
    void theLastLineNamesTheDatabase();
    void aFolderThatCannotBeWrittenEndsTheStart();
    void anotherVersionIsLeftAlone();
    void theOfferIsRepeatedUntilADatabaseIsOpen();
    void aFileThatCannotBeMadeTellsWhy();
    void anUnfinishedSaveIsTold();
    void nobodyElseMayReadWhatTheProgramMakes();
    void theWorkingDate();
    void aClockThatIsWrongIsAskedAbout();
    void aFileIsCheckedInTheTerminal();
};

namespace {

const auto newShop = QStringList{u"Cash"_s, u"Purchase"_s, u"Sales"_s, u"Wages"_s};
const auto ashasShop = QStringList{u"Asha"_s} + newShop;

QString configOf(const QString &databasePath)
{
    return u"'Corvane Configuration file\r\n\r\n' Database Path\r\nDBPATH=%1\r\n"_s.arg(databasePath);
}

QString invalidDatabase(const QString &version)
{
    return u"Invalid Database!\r\nCorvane Can not Run with this Database!\r\nDatabase File Version : %1\r\n"
           "Supported Version : 15\r\nCorvane created a new database file."_s.arg(version);
}

QString fileError(Fault fault, const QString &path)
{
    return u"Database File Error!\r\n%1\r\n%2"_s.arg(RuntimeError(fault).text(), path);
}

void chooseDefault(QWidget &)
{
    press(Qt::Key_Space);
}

void chooseDemo(QWidget &)
{
    press({Qt::Key_Tab, Qt::Key_Space});
}

void closeIt(QWidget &)
{
    press(Qt::Key_Escape);
}

} // namespace

void StartupTest::theFolderIsThatOfTheOptionOrTheEnvironmentOrTheProgramsOwn()
{
    StartFolder own;
    QCOMPARE(chooseProgramFolder({}, own.folder.path()), own.folder.path());
    qputenv("XDG_DATA_HOME", "/home/tailor/data");
    QCOMPARE(chooseProgramFolder({}, own.path(u"gone"_s)), u"/home/tailor/data/corvane"_s);
    qunsetenv("XDG_DATA_HOME");
    qputenv("CORVANE_FOLDER", "/by/environment/");
    const auto unset = qScopeGuard([] { qunsetenv("CORVANE_FOLDER"); });
    QCOMPARE(chooseProgramFolder({}, own.folder.path()), u"/by/environment"_s);
    QCOMPARE(chooseProgramFolder(u"/by/option"_s, own.folder.path()), u"/by/option"_s);
    QCOMPARE(chooseProgramFolder(u"shop"_s, own.folder.path()), QDir::currentPath() + u"/shop"_s);
}

void StartupTest::aFolderIsMadeAndGetsTheDemo()
{
    StartFolder own;
    // Delivered without a demo, there is none.
    prepareProgramFolder(own.path(u"bare"_s), own.folder.path());
    QVERIFY(QDir(own.path(u"bare"_s)).exists() && QDir(own.path(u"bare"_s)).isEmpty());
    own.write(u"demo.mdb"_s, "delivered");
    QVERIFY(QFile::setPermissions(own.path(u"demo.mdb"_s), QFile::ReadOwner));
    prepareProgramFolder(own.path(u"new/shop"_s), own.folder.path());
    QCOMPARE(own.content(u"new/shop/demo.mdb"_s), "delivered"_ba);
    QVERIFY(QFile::permissions(own.path(u"new/shop/demo.mdb"_s)).testFlag(QFile::WriteOwner));
    // One that is there stays.
    own.write(u"new/shop/demo.mdb"_s, "worked in");
    prepareProgramFolder(own.path(u"new/shop"_s), own.folder.path());
    QCOMPARE(own.content(u"new/shop/demo.mdb"_s), "worked in"_ba);
}

void StartupTest::aFirstStartOffersTheChoice()
{
    struct Choice {
        ModalScript::Action choose;
        QString database;
        QString marker;
        QStringList content;
    };
    for (const auto &[choose, database, marker, content] : {Choice{chooseDefault, u"data15.mdb"_s, u"1"_s, newShop},
             {chooseDemo, u"demo.mdb"_s, u"1"_s, ashasShop}, {closeIt, u"data15.mdb"_s, {}, newShop}}) {
        StartFolder start;
        start.addDatabase(u"demo.mdb"_s);
        ModalScript script;
        script.expect(u"frmSelectDB"_s, choose);
        QVERIFY(runProgram([&, database = database, content = content](frmMain &) {
            QCOMPARE(session::DBPath, start.path(database));
            QCOMPARE(session::CurrentDate, QDate(2011, 4, 1));
            QCOMPARE(accounts(), content);
        }));
        QCOMPARE(start.config(), configOf(start.path(database)));
        QVERIFY(QFileInfo(start.path(u"images"_s)).isDir());
        QCOMPARE(storedMarker(), marker);
        // The next start asks only who never chose.
        if (marker.isEmpty())
            script.expect(u"frmSelectDB"_s, closeIt);
        QVERIFY(runProgram([](frmMain &) {}));
    }
}

void StartupTest::theMarkerTellsAFirstRun()
{
    StartFolder start;
    QVERIFY(IsFirstRun());
    for (const auto &[stored, first] : {std::pair{u"0"_s, true}, {u"1"_s, false}, {u"2"_s, false}, {u"-1"_s, false}}) {
        storeMarker(stored);
        QCOMPARE(IsFirstRun(), first);
    }
}

void StartupTest::theLastLineNamesTheDatabase()
{
    StartFolder start;
    const QString byDefault = start.path(u"data15.mdb"_s);
    const std::pair<QByteArray, QString> configs[]{{"DBPATH=/shop/a.mdb", u"/shop/a.mdb"_s},
        {"first\r\n\r\nDBPATH=/shop/a.mdb\r\n", u"/shop/a.mdb"_s}, {"my DBPath here=/shop/a.mdb", u"/shop/a.mdb"_s},
        {"DBPATH=/दुकान/my shop.mdb", u"/दुकान/my shop.mdb"_s}, {"DBPATH=/shop/a=b.mdb", u"/shop/a"_s},
        {"DBPATH=", byDefault}, {"DBPATH=NONE", byDefault}, {"DBPATH=none", u"none"_s}, {"DBPATH==x", byDefault}};
    for (const auto &[config, path] : configs) {
        start.write(u"cv.ini"_s, config);
        ReadConfig();
        QCOMPARE(session::DBPath, path);
        QCOMPARE(start.content(u"cv.ini"_s), config);
    }
    session::DBPath = u"before"_s;
    for (const QByteArray &config :
        {"DBPATH=/shop/a.mdb\r\n\r\n"_ba, "DBPATH /shop/a.mdb"_ba, "PATH=/shop/a.mdb"_ba, ""_ba}) {
        start.write(u"cv.ini"_s, config);
        EXPECT_FAULT(Fault::SubscriptOutOfRange, Main());
        QCOMPARE(session::DBPath, u"before"_s);
        QCOMPARE(start.content(u"cv.ini"_s), config);
    }
}

void StartupTest::aFolderThatCannotBeWrittenEndsTheStart()
{
    StartFolder start;
    start.write(u"file"_s, "not a folder");
    // A file, a folder that is not there, and one whose configuration is a folder.
    QVERIFY(QDir(start.path({})).mkpath(u"odd/cv.ini"_s));
    for (const QString &folder : {u"file"_s, u"missing"_s, u"odd"_s}) {
        session::ProgramFolder = start.path(folder);
        EXPECT_FAULT(Fault::FileFault, Main());
    }
    QCOMPARE(start.content(u"file"_s), "not a folder"_ba);
    QVERIFY(!QFileInfo::exists(start.path(u"missing"_s)));
}

void StartupTest::anotherVersionIsLeftAlone()
{
    StartFolder start;
    start.addDatabase(u"old.mdb"_s, u"14"_s);
    start.configure(start.path(u"old.mdb"_s));
    const QByteArray before = start.content(u"old.mdb"_s);
    ModalScript script;
    script.expectBox(invalidDatabase(u"14"_s));
    RestartSession();
    QCOMPARE(session::DBPath, start.path(u"data15.mdb"_s));
    QCOMPARE(accounts(), newShop);
    QCOMPARE(GetSetting(setting::DatabaseVersion), u"15"_s);
    QCOMPARE(start.config(), configOf(start.path(u"data15.mdb"_s)));
    QCOMPARE(start.content(u"old.mdb"_s), before);
    RestartSession();
    QVERIFY(script.isDone());
    // A default file that is there is not replaced; until the next start the session goes on with what it has.
    const QByteArray byDefault = start.content(u"data15.mdb"_s);
    start.configure(start.path(u"old.mdb"_s));
    script.expectBox(invalidDatabase(u"14"_s));
    RestartSession();
    QCOMPARE(GetSetting(setting::DatabaseVersion), u"14"_s);
    QCOMPARE(start.content(u"data15.mdb"_s), byDefault);
    RestartSession();
    QCOMPARE(GetSetting(setting::DatabaseVersion), u"15"_s);
    // In the default place it stays in use.
    DE().CN.close();
    start.write(u"data15.mdb"_s, before);
    for (int run = 0; run < 2; ++run) {
        script.expectBox(invalidDatabase(u"14"_s));
        RestartSession();
        QVERIFY(script.isDone());
        QCOMPARE(accounts(), ashasShop);
    }
    DE().CN.close();
    QCOMPARE(start.content(u"data15.mdb"_s), before);
}

void StartupTest::theOfferIsRepeatedUntilADatabaseIsOpen()
{
    StartFolder start;
    ModalScript script;
    start.write(u"shop.mdb"_s, "x");
    start.write(u"demo.mdb"_s, "y");
    start.configure(start.path(u"shop.mdb"_s));
    const auto expectFault = [&](Fault fault, const QString &name, const ModalScript::Action &choose) {
        script.expectBox(fileError(fault, start.path(name))).expect(u"frmSelectDB"_s, choose);
    };
    // At the first run the choice comes before anything is opened, and then again for each file that fails.
    script.expect(u"frmSelectDB"_s, closeIt);
    expectFault(Fault::NotADatabase, u"shop.mdb"_s, closeIt);
    expectFault(Fault::NotADatabase, u"shop.mdb"_s, chooseDemo);
    expectFault(Fault::NotADatabase, u"demo.mdb"_s, [&](QWidget &window) {
        QVERIFY(QFile::remove(start.path(u"demo.mdb"_s)));
        closeIt(window);
    });
    expectFault(Fault::FileNotFound, u"data15.mdb"_s, chooseDefault);
    QVERIFY(runProgram([](frmMain &) { QCOMPARE(accounts(), newShop); }));
    QCOMPARE(start.content(u"shop.mdb"_s), "x"_ba);
    QCOMPARE(start.config(), configOf(start.path(u"data15.mdb"_s)));
}

void StartupTest::aFileThatCannotBeMadeTellsWhy()
{
    StartFolder start;
    storeMarker(u"1"_s);
    start.configure(start.path(u"gone/shop.mdb"_s));
    // Another start is making the default file at this moment.
    auto maker = std::make_unique<UnfinishedFile>(start.path(u"data15.mdb"_s));
    ModalScript script;
    script.expectBox(u"Database File Error!\r\nThe file cannot be made: No such file or directory.\n\n"
                     "Nothing of this file was written. When the cause is mended, it can be made again.\r\n"_s
        + start.path(u"gone/shop.mdb"_s));
    script.expect(u"frmSelectDB"_s, chooseDefault);
    script.expectBox(fileError(Fault::Locked, start.path(u"data15.mdb"_s)));
    script.expect(u"frmSelectDB"_s, [&](QWidget &) {
        maker.reset();
        press(Qt::Key_Space);
    });
    QVERIFY(runProgram([&](frmMain &) { QCOMPARE(accounts(), newShop); }));
    QVERIFY(!QFileInfo::exists(start.path(u"gone"_s)));
}

void StartupTest::anUnfinishedSaveIsTold()
{
    StartFolder start;
    start.addDatabase(u"data15.mdb"_s);
    start.write(u"data15.mdb-journal"_s, "not zero");
    const QString kept = start.path(u"data15-aside-20260601-100000"_s);
    ModalScript script;
    script.expectBox(u"The program or the computer was stopped in the midst of a save. "
                     "What was not finished has been taken back.\r\n"
                     "The file and its journal, as they were found, are kept in:\r\n"_s
        + kept);
    RestartSession();
    QVERIFY(script.isDone());
    QCOMPARE(accounts(), ashasShop);
    QCOMPARE(start.content(u"data15-aside-20260601-100000/data15.mdb-journal"_s), "not zero"_ba);
    RestartSession();

    // Where the file cannot be opened either, the copy is told with that.
    start.write(u"data15.mdb"_s, QByteArray(8192, 'x'));
    start.write(u"data15.mdb-journal"_s, "again");
    script.expectBox(fileError(Fault::NotADatabase, start.path(u"data15.mdb"_s))
        + u"\r\nThe file and its journal, as they were found, are kept in:\r\n%1-2"_s.arg(kept));
    script.expect(u"frmSelectDB"_s, [&](QWidget &) {
        QVERIFY(QFile::remove(start.path(u"data15.mdb"_s)));
        press(Qt::Key_Space);
    });
    RestartSession();
    QCOMPARE(accounts(), newShop);
}

void StartupTest::nobodyElseMayReadWhatTheProgramMakes()
{
    StartFolder start;
    storeMarker(u"1"_s);
    QProcess program;
    program.setChildProcessModifier([] { umask(0); });
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"XDG_CONFIG_HOME"_s, start.path(u"user"_s));
    program.setProcessEnvironment(environment);
    program.start(QCoreApplication::applicationDirPath() + u"/../corvane"_s, {u"--folder"_s, start.path(u"shop"_s)});
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(start.path(u"shop/images"_s)), 20000);
    program.kill();
    QVERIFY(program.waitForFinished());
    constexpr auto others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    QStringList found;
    QDirIterator made(start.path(u"shop"_s), QDirIterator::Subdirectories);
    while (made.hasNext()) {
        const QString path = made.next();
        if (made.fileName() == u".." || made.fileName() == u"." || path.endsWith(u"-journal"_s))
            continue;
        found += made.fileName();
        QVERIFY2((QFile::permissions(path) & others) == QFile::Permissions(), qPrintable(path));
    }
    found.sort();
    QCOMPARE(found, QStringList({u"cv.ini"_s, u"data15.mdb"_s, u"demo.mdb"_s, u"images"_s}));
    QCOMPARE(QFile::permissions(start.path(u"shop"_s)) & others, QFile::Permissions());
}

void StartupTest::theWorkingDate()
{
    struct Stored {
        QString date;
        QString follow;
        QDate expected;
    };
    for (const auto &[date, follow, expected] :
        {Stored{{}, {}, {2011, 4, 1}}, {u"17-Nov-2025"_s, u"0"_s, {2025, 11, 17}},
            {u"17-Nov-2025"_s, u"1"_s, {2026, 6, 1}}, {u"17-Nov-2025"_s, u"2"_s, {2025, 11, 17}}}) {
        StartFolder start;
        RestartSession();
        if (!date.isNull())
            SaveSetting(setting::WorkingDate, date);
        if (!follow.isNull())
            SaveSetting(setting::FollowSystemDate, follow);
        RestartSession();
        QCOMPARE(session::CurrentDate, expected);
        QCOMPARE(GetSetting(setting::WorkingDate, {}), date);
        SaveSetting(setting::WorkingDate, u"soon"_s);
        EXPECT_FAULT(Fault::TypeMismatch, InitCurrentDate());
    }
}

void StartupTest::aClockThatIsWrongIsAskedAbout()
{
    StartFolder start;
    RestartSession();
    SaveSetting(setting::WorkingDate, u"17-Nov-2025"_s);
    SaveSetting(setting::FollowSystemDate, u"1"_s);
    ModalScript script;
    const auto startsOn = [&script](QDate today, std::optional<Qt::Key> answer) {
        machineClock::replace([today] { return QDateTime(today, QTime(0, 5)); });
        if (answer)
            script.expectMessage(u"The date of this computer is %1. Its clock seems to be wrong.\r\n"
                                 "Would you like to work with that date?"_s.arg(DayMonthYear(today)),
                *answer);
        RestartSession();
        return session::CurrentDate;
    };
    QCOMPARE(startsOn({1970, 1, 1}, Qt::Key_N), QDate(2025, 11, 17));
    QCOMPARE(startsOn({1999, 12, 31}, Qt::Key_Y), QDate(1999, 12, 31));
    QCOMPARE(startsOn({2000, 1, 1}, {}), QDate(2000, 1, 1));
    QCOMPARE(GetSetting(setting::WorkingDate), u"17-Nov-2025"_s);
}

void StartupTest::aFileIsCheckedInTheTerminal()
{
    StartFolder start;
    start.addDatabase(u"data15.mdb"_s);
    start.addDatabase(u"other.mdb"_s);
    start.write(u"text.mdb"_s, QByteArray(8192, 'x'));
    {
        Connection other;
        other.open(start.path(u"other.mdb"_s));
        other.execute(u"Insert into Postings (VID, Vtype, [Date], AccID, particulars, Remark, Amount) "
                      "values (7, 2, #1-Apr-2011#, 4, 'Receipt', '', 50)"_s);
    }
    const auto check = [&start](const QStringList &arguments, QString &out) {
        QProcess program;
        QProcessEnvironment bare;
        for (const QString &kept : {u"PATH"_s, u"HOME"_s, u"LD_LIBRARY_PATH"_s, u"ASAN_OPTIONS"_s, u"LSAN_OPTIONS"_s})
            bare.insert(kept, QProcessEnvironment::systemEnvironment().value(kept));
        program.setProcessEnvironment(bare);
        program.start(QCoreApplication::applicationDirPath() + u"/../corvane"_s,
            QStringList{u"--check"_s, u"--folder"_s, start.path({})} + arguments);
        const bool ended = program.waitForFinished() && program.exitStatus() == QProcess::NormalExit;
        out = QString::fromUtf8(program.readAllStandardOutput());
        return ended ? program.exitCode() : -1;
    };
    QString out;
    QCOMPARE(check({}, out), 0);
    QCOMPARE(out, start.path(u"data15.mdb"_s) + u"\n0 cards, 0 rows, 0 vouchers, 0 postings: whole.\n"_s);
    start.configure(start.path(u"other.mdb"_s));
    QCOMPARE(check({}, out), 1);
    QVERIFY2(out.contains(u"Voucher 7: its postings come to 50.00 and not to 0.\n"_s), qPrintable(out));
    QVERIFY2(out.endsWith(u"1 voucher, 1 posting: 3 differences.\n"_s), qPrintable(out));
    QCOMPARE(check({start.path(u"data15.mdb"_s)}, out), 0);
    QCOMPARE(check({start.path(u"text.mdb"_s)}, out), 2);
    QVERIFY(out.contains(u"not a database of this program"_s));
    QCOMPARE(check({start.path(u"gone.mdb"_s)}, out), 2);
    start.write(u"cv.ini"_s, "nothing");
    QCOMPARE(check({}, out), 2);
    QCOMPARE(QDir(start.path({})).entryList(QDir::Files),
        QStringList({u"cv.ini"_s, u"data15.mdb"_s, u"other.mdb"_s, u"text.mdb"_s}));
}

CORVANE_TEST(StartupTest)
#include "tst_startup.moc"
