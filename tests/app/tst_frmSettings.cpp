#include "app/frmSettings.h"

#include "app/backup.h"
#include "app/frmShopINFO.h"
#include "app/startup.h"
#include "base/session.h"
#include "devices/shell.h"
#include "store/DataEnvironment.h"
#include "store/settings.h"
#include "support/ModalScript.h"
#include "support/PseudoTerminal.h"
#include "support/TestShop.h"
#include "support/fileContent.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/Command.h"
#include "ui/DateField.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"
#include "ui/kvTextBoxMultiLine.h"

#include <QCheckBox>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QMessageBox>
#include <QScopeGuard>
#include <QTabWidget>
#include <QTest>

#include <chrono>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// The shop's options, its backup, and the choice of its file.
class SettingsTest : public QObject {
    Q_OBJECT

private slots:
    void anUntouchedScreenSavesWhatItShows();
    void whatIsEnteredComesBack();
    void numbersAreTakenAsNumbers_data();
    void numbersAreTakenAsNumbers();
    void aNumberThatIsTooLargeIsToldAtItsField();
    void theTitleHasTenLetters();
    void theFromDateIsUsedOrNot();
    void whatNobodyShouldHaveStoredIsShownAllTheSame();
    void languageAndGlanceAreStoredOnlyWhenTheyAreChosen();
    void defaultDraftsAreAskedFor();
    void escapeSavesNothingButTheFolder();
    void theModemsAnswerIsShown_data();
    void theModemsAnswerIsShown();
    void aBackupByKeysAndBack();
    void withoutAFolderOrBackupNothingIsDone();
    void aBadBackupIsToldBeforeAndAfter();
    void aBackupOfAnotherVersionFallsToTheGate();
    void aRestoredShopThatCannotStartIsShownAllTheSame();
    void applyGoesOverToAnotherFile();
    void applyRefusesWhatIsNoPlaceForAShop_data();
    void applyRefusesWhatIsNoPlaceForAShop();
    void applyWithOtherThanAFile_data();
    void applyWithOtherThanAFile();
    void anotherDatabaseIsReadAnew();
    void theShopsLinesAndLogin();
    void withoutTheLockTheLoginIsForgotten();
};

namespace {

/// The screen in front of a shop's file.
struct Desk : TestShop {
    Desk() : stick(folder.filePath(u"stick 50%"_s)) { QDir().mkpath(stick); }
    void show()
    {
        screen = std::make_unique<frmSettings>();
        QVERIFY(driver::show(*screen));
    }
    template <typename Control>
    [[nodiscard]] Control &at(const char *name) const
    {
        return control<Control>(*screen, name);
    }
    [[nodiscard]] QString text(const char *name) const { return at<kvTextBox>(name).Text(); }
    /// Goes to the page of a control and then to it.
    void enter(const char *name) const
    {
        auto &field = at<QWidget>(name);
        auto &tabs = at<QTabWidget>("SSTab1");
        for (int page = 0; page < tabs.count(); ++page) {
            if (tabs.widget(page)->isAncestorOf(&field))
                tabs.setCurrentIndex(page);
        }
        field.setFocus(Qt::TabFocusReason);
        QVERIFY(field.isVisible() && field.isEnabled());
    }
    void command(const char *name) const
    {
        enter(name);
        press(Qt::Key_Return);
    }
    void enterText(const char *name, const QString &text) const
    {
        enter(name);
        press(Qt::Key_A, Qt::ControlModifier);
        type(text);
    }
    void save()
    {
        script.expectMessage(u"Settings Updated."_s);
        accessKey('s');
        QVERIFY(script.isDone());
    }
    [[nodiscard]] QStringList stored() { return lines(u"Select SETTING, VALUE from Settings"_s); }

    QString stick;
    ModalScript script;
    std::unique_ptr<frmSettings> screen;
};

} // namespace

void SettingsTest::anUntouchedScreenSavesWhatItShows()
{
    Desk desk;
    desk.show();
    desk.save();
    const auto of = [](setting::Key key) { return QString::number(key) + u'|' + setting::defaultOf(key); };
    QCOMPARE(desk.stored(),
        QStringList({u"16|15"_s, u"4|"_s, u"2|No"_s, u"3|No"_s, u"5|"_s, u"6|"_s, u"10|"_s, u"11|"_s, u"13|0"_s,
            u"14|0"_s, u"15|1"_s, u"22|0"_s, u"23|1"_s, of(setting::BookedSms), of(setting::CompletedSms),
            of(setting::DueSms), u"33|0"_s, u"34|3"_s, u"35|01-Apr-2011"_s, u"36|0"_s, of(setting::FootNote)}));
    QVERIFY(desk.screen->isVisible());
}

void SettingsTest::whatIsEnteredComesBack()
{
    Desk desk;
    desk.show();
    const QString longText(100'000, u'x');
    desk.at<kvTextBox>("txtTagLine").setText(longText);
    desk.enterText("txtLogo", u"/home/my shop/50% \"o'clock\".png"_s);
    desk.enterText("cmbSMSJobID", u"y"_s);
    desk.enterText("txtSMS1", u"Job %eid%"_s);
    desk.enter("chManual");
    press(Qt::Key_Space);
    desk.enter("cmbPeriod");
    press(Qt::Key_End);
    desk.enterText("cmbSMSPort", u"21"_s);
    desk.save();
    QCOMPARE(GetSetting(setting::TagLine), longText);
    QCOMPARE(GetSetting(setting::LogoFile), u"/home/my shop/50% \"o'clock\".png"_s);
    QCOMPARE(GetSetting(setting::SendJobNumber), u"Yes"_s);
    QCOMPARE(GetSetting(setting::BookedSms), u"Job %eid%"_s);
    QCOMPARE(GetSetting(setting::ManualJobNumber), u"1"_s);
    QCOMPARE(GetSetting(setting::DefaultPeriod), u"7"_s);
    QCOMPARE(GetSetting(setting::ModemPort), u"21"_s);
    const QStringList before = desk.stored();
    desk.show();
    QCOMPARE(desk.text("txtTagLine"), longText);
    QCOMPARE(desk.at<kvComboBox>("cmbSMSPort").Text(), u"21"_s);
    // An answer that was rubbed out is a no.
    desk.enter("cmbSMSJobID");
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Backspace);
    desk.save();
    QCOMPARE(GetSetting(setting::SendJobNumber), u"No"_s);
    QCOMPARE(desk.stored().size(), before.size());
}

void SettingsTest::numbersAreTakenAsNumbers_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("margin");
    QTest::newRow("nothing") << QString() << u"1"_s << u"0"_s;
    QTest::newRow("nought") << u"0"_s << u"1"_s << u"0"_s;
    QTest::newRow("below one") << u"0.9"_s << u"1"_s << u"0.9"_s;
    QTest::newRow("letters are left out") << u"-a12b"_s << u"12"_s << u"12"_s;
    QTest::newRow("a nought in front") << u"007"_s << u"7"_s << u"7"_s;
}

void SettingsTest::numbersAreTakenAsNumbers()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, start);
    QFETCH(const QString, margin);
    Desk desk;
    desk.show();
    for (const char *name : {"txtStartNum", "txtDelMargin"}) {
        desk.at<kvTextBox>(name).clear();
        desk.enterText(name, typed);
    }
    desk.save();
    QCOMPARE(GetSetting(setting::FirstJobNumber), start);
    QCOMPARE(GetSetting(setting::DeliveryMargin), margin);
}

void SettingsTest::aNumberThatIsTooLargeIsToldAtItsField()
{
    Desk desk;
    desk.show();
    for (const char *name : {"txtStartNum", "txtDelMargin"}) {
        desk.enterText(name, u"2147483648"_s);
        desk.enter("txtTagLine");
        desk.enter("txtSMSTitle");
        desk.script.expectMessage(u"This number is too large."_s);
        accessKey('s');
        QVERIFY(desk.script.isDone());
        QVERIFY(desk.at<kvTextBox>(name).hasFocus());
        desk.enterText(name, u"2147483647"_s);
    }
    QCOMPARE(desk.stored(), QStringList{u"16|15"_s});
    desk.save();
    QCOMPARE(GetSetting(setting::FirstJobNumber), u"2147483647"_s);
}

void SettingsTest::theTitleHasTenLetters()
{
    Desk desk;
    desk.show();
    desk.enterText("txtSMSTitle", u"needle and thread"_s);
    QCOMPARE(desk.text("txtSMSTitle"), u"Needle And"_s);
    press(Qt::Key_Backspace);
    type(u"y"_s);
    QCOMPARE(desk.text("txtSMSTitle"), u"Needle Any"_s);
    QGuiApplication::clipboard()->setText(u"a title that is pasted"_s);
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(desk.text("txtSMSTitle"), u"a title th"_s);
}

void SettingsTest::theFromDateIsUsedOrNot()
{
    Desk desk;
    desk.show();
    auto &frame = desk.at<QWidget>("frmDD");
    QVERIFY(!frame.isEnabled());
    desk.enter("Check1");
    press(Qt::Key_Space);
    QVERIFY(frame.isEnabled());
    desk.enter("DateFrom");
    type(u"17112025"_s);
    desk.save();
    QCOMPARE(GetSetting(setting::DefaultFromDate), u"17-Nov-2025"_s);
    QCOMPARE(GetSetting(setting::UseDefaultFromDate), u"1"_s);
    desk.show();
    QVERIFY(desk.at<QWidget>("frmDD").isEnabled());
    desk.enter("DateFrom");
    type(u"99"_s);
    desk.script.expectMessage(u"\"99\" is not a date!"_s);
    accessKey('s');
    QVERIFY(desk.script.isDone());
}

void SettingsTest::whatNobodyShouldHaveStoredIsShownAllTheSame()
{
    Desk desk;
    SaveSetting(setting::DefaultFromDate, u"soon"_s);
    SaveSetting(setting::DefaultPeriod, u"9"_s);
    SaveSetting(setting::SmsTitle, u"Needle and Thread"_s);
    SaveSetting(setting::SendJobNumber, u"Maybe"_s);
    desk.show();
    QCOMPARE(desk.at<DateField>("DateFrom").date(), QDate(2011, 4, 1));
    QCOMPARE(desk.at<kvComboBox>("cmbPeriod").Text(), u"1 Month"_s);
    desk.save();
    QCOMPARE(GetSetting(setting::SmsTitle), u"Needle and Thread"_s);
    QCOMPARE(GetSetting(setting::SendJobNumber), u"No"_s);
    desk.enter("txtSMSTitle");
    press(Qt::Key_End);
    press(Qt::Key_Backspace);
    QCOMPARE(desk.text("txtSMSTitle"), u"Needle and Threa"_s);
}

void SettingsTest::languageAndGlanceAreStoredOnlyWhenTheyAreChosen()
{
    Desk desk;
    desk.show();
    desk.enter("cmbLanguage");
    press(Qt::Key_Down);
    desk.enter("cmbHindiSlip");
    press(Qt::Key_Up);
    desk.save();
    QCOMPARE(GetSetting(setting::Language), u"Hindi"_s);
    QCOMPARE(GetSetting(setting::HindiSlip), u"Yes"_s);
    QCOMPARE(GetSetting(setting::ShowMorningGlance, u"none"_s), u"none"_s);
    desk.enter("chGlance");
    press(Qt::Key_Space);
    desk.save();
    QCOMPARE(GetSetting(setting::ShowMorningGlance, u"none"_s), u"0"_s);
    desk.show();
    QVERIFY(!desk.at<QCheckBox>("chGlance").isChecked());
}

void SettingsTest::defaultDraftsAreAskedFor()
{
    Desk desk;
    SaveSetting(setting::BookedSms, u"own"_s);
    desk.show();
    const auto ask = [&desk](Qt::Key answer) {
        desk.script.expect(u"QMessageBox"_s, [answer](QWidget &box) {
            QCOMPARE(static_cast<QMessageBox &>(box).text(), u"Are you sure to load default SMS drafts?"_s);
            press(answer);
        });
        desk.command("Command8");
        QVERIFY(desk.script.isDone());
    };
    ask(Qt::Key_Escape);
    QCOMPARE(desk.at<kvTextBoxMultiLine>("txtSMS1").Text(), u"own"_s);
    ask(Qt::Key_Return);
    QCOMPARE(desk.at<kvTextBoxMultiLine>("txtSMS1").Text(), setting::defaultOf(setting::BookedSms));
    QCOMPARE(GetSetting(setting::BookedSms), u"own"_s);
}

void SettingsTest::escapeSavesNothingButTheFolder()
{
    Desk desk;
    desk.show();
    desk.enterText("txtTagLine", u"not kept"_s);
    desk.script.expect(u"QFileDialog"_s, [](QWidget &) { press(Qt::Key_Escape); });
    desk.command("Command6");
    QCOMPARE(desk.stored(), QStringList{u"16|15"_s});
    QVERIFY(driver::waitActive(*desk.screen));
    desk.script.expect(u"QFileDialog"_s, [&desk](QWidget &dialog) {
        QCOMPARE(dialog.windowTitle(), u"Select a Folder"_s);
        QVERIFY(driver::waitActive(dialog));
        type(desk.stick);
        press(Qt::Key_Return);
    });
    desk.command("Command6");
    QCOMPARE(desk.text("txtBackuppath"), desk.stick);
    QVERIFY(driver::waitActive(*desk.screen));
    press(Qt::Key_Escape);
    QVERIFY(!desk.screen->isVisible());
    QCOMPARE(desk.stored(), QStringList({u"16|15"_s, u"19|"_s + desk.stick}));
}

void SettingsTest::theModemsAnswerIsShown_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<QList<QByteArray>>("says");
    QTest::addColumn<QString>("shown");
    QTest::newRow("taken") << u"98290"_s << QList<QByteArray>{"\r\nOK\r\n", "\r\n> ", "\r\n+CMGS: 5\r\n\r\nOK\r\n"}
                           << u"OK\n+CMGS: 5\nOK"_s;
    QTest::newRow("refused") << u"98290"_s << QList<QByteArray>{"\r\nOK\r\n", "\r\n> ", "\r\n+CMS ERROR: 310\r\n"}
                             << u"OK\n+CMS ERROR: 310"_s;
    QTest::newRow("no texts") << u"98290"_s << QList<QByteArray>{"\r\nERROR\r\n"} << u"ERROR"_s;
    QTest::newRow("an echo that reads like an answer")
        << u"98290"_s
        << QList<QByteArray>{"AT > OK\r\r\nOK\r\n", "AT >\r\r\n> ", "OK, no ERROR\r\n|+CMGS: 5\r\n\r\nOK\r\n"}
        << u"AT > OK\nOK\nAT >\n> OK, no ERROR\n+CMGS: 5\nOK"_s;
    QTest::newRow("no number") << QString() << QList<QByteArray>{"\r\nOK\r\n"} << u"OK"_s;
}

void SettingsTest::theModemsAnswerIsShown()
{
    QFETCH(const QString, number);
    QFETCH(const QList<QByteArray>, says);
    QFETCH(const QString, shown);
    const PseudoTerminal line;
    Desk desk;
    session::ShopName = u"Kovrel"_s;
    desk.show();
    desk.enterText("cmbSMSPort", u"3"_s);
    if (!number.isEmpty())
        desk.enterText("txtTestNumber", number);
    QByteArray heard;
    std::thread modem([&line, &says, &heard] {
        for (const QByteArray &word : says) {
            const qsizetype before = heard.size();
            // A line ends with a carriage return, the message with its own sign.
            while (heard.size() == before || !(heard.endsWith('\r') || heard.endsWith(char(26)))) {
                heard += line.received();
                std::this_thread::sleep_for(5ms);
            }
            for (const QByteArray &part : word.split('|')) {
                line.say(part);
                std::this_thread::sleep_for(word.contains('|') ? 200ms : 0ms);
            }
        }
    });
    desk.command("cmdTest");
    modem.join();
    QCOMPARE(desk.at<kvTextBoxMultiLine>("txtModemAnswer").toPlainText(), shown);
    if (says.size() == 3)
        QCOMPARE(heard, QByteArray("AT+CMGF=1\rAT+CMGS=\"98290\"\rThis is a test message of Kovrel.") + char(26));
    // A port that is not there.
    qputenv("CORVANE_MODEM", "/dev/no modem");
    desk.command("cmdTest");
    QVERIFY(desk.at<kvTextBoxMultiLine>("txtModemAnswer").toPlainText().contains(u"/dev/no modem is not there"_s));
}

void SettingsTest::aBackupByKeysAndBack()
{
    Desk desk;
    desk.addJob({.number = 7, .date = QDate(2026, 11, 21)});
    desk.addJob({.number = 8, .date = QDate(2026, 11, 20)});
    SaveSetting(setting::BackupFolder, desk.stick);
    SaveSetting(setting::TagLine, u"then"_s);
    desk.show();
    desk.enter("Command4");
    QCOMPARE(desk.at<QLabel>("lblLastGood").text(), u"No good backup of this shop is known yet."_s);
    QCOMPARE(desk.at<QLabel>("lblHolding").text(), u"This folder has no backup yet."_s);
    for (int time = 0; time < 2; ++time) {
        desk.script.expectBox(u"Database Backup Created."_s);
        desk.command("Command4");
        QVERIFY(desk.script.isDone());
    }
    QCOMPARE(desk.at<QLabel>("lblLastGood").text(), u"Last good backup: 01-Apr-2011 at 10:00"_s);
    QTRY_VERIFY(desk.at<QLabel>("lblHolding").text().endsWith(u", holds 2 cards, last on 21-Nov-2026."_s));

    SaveSetting(setting::TagLine, u"since"_s);
    SaveSetting(setting::BackupFolder, u"/elsewhere"_s);
    desk.script.expectBox(u"Database restored."_s);
    desk.command("Command5");
    QVERIFY(desk.script.isDone());
    QCOMPARE(GetSetting(setting::TagLine), u"then"_s);
    QCOMPARE(desk.text("txtTagLine"), u"then"_s);
    QCOMPARE(desk.text("txtBackuppath"), desk.stick);
    const QString kept = desk.folder.filePath(u"data15-aside-20110401-100000.mdb"_s);
    QVERIFY(desk.at<QLabel>("lblKept").text().endsWith(kept));
    QVERIFY(QFileInfo::exists(kept));
}

void SettingsTest::withoutAFolderOrBackupNothingIsDone()
{
    Desk desk;
    desk.show();
    for (const char *command : {"Command7", "Command4", "Command5"}) {
        desk.script.expectBox(u"Please select backup file path!"_s);
        desk.command(command);
        QVERIFY(desk.script.isDone());
    }
    SaveSetting(setting::BackupFolder, desk.stick);
    desk.show();
    desk.script.expectBox(u"No backup file found!"_s);
    desk.command("Command5");
    QStringList opened;
    shell::replaceOpener([&opened](const QString &path) { opened += path; });
    const auto putBack = qScopeGuard([] { shell::replaceOpener({}); });
    desk.command("Command7");
    QCOMPARE(opened, QStringList{desk.stick});

    QDir(desk.stick).removeRecursively();
    desk.script.expectBox(u"This folder is not there:\r\n"_s + desk.stick);
    desk.command("Command7");
    desk.script.expectBox(u"The file cannot be made: No such file or directory.\n\nNothing of this file was written. "
                          "When the cause is mended, it can be made again.\r\n"_s
        + desk.stick + u"/CVbackup.gz"_s);
    desk.command("Command4");
    QVERIFY(desk.script.isDone());
    QVERIFY(!backup::lastGood().isValid());
    QCOMPARE(opened.size(), 1);
}

void SettingsTest::aBadBackupIsToldBeforeAndAfter()
{
    Desk desk;
    SaveSetting(setting::BackupFolder, desk.stick);
    writeContent(desk.stick + u"/cvbackup.gz"_s, QByteArray(3000, 'x'));
    desk.show();
    desk.enter("Command5");
    QTRY_COMPARE(desk.at<QLabel>("lblHolding").text(),
        u"The backup cvbackup.gz in this folder cannot be restored: The file was not packed by gzip, or its beginning "
        "is damaged."_s);
    desk.script.expectBox(
        u"The file was not packed by gzip, or its beginning is damaged.\r\n"_s + desk.stick + u"/cvbackup.gz"_s);
    desk.command("Command5");
    QVERIFY(desk.script.isDone());
    QCOMPARE(GetSetting(setting::BackupFolder), desk.stick);
}

void SettingsTest::aBackupOfAnotherVersionFallsToTheGate()
{
    Desk desk;
    SaveSetting(setting::BackupFolder, desk.stick);
    SaveSetting(setting::DatabaseVersion, u"16"_s);
    QVERIFY(backup::make(DE().CN.content(), desk.stick, [](qint64, qint64) { return true; }));
    SaveSetting(setting::DatabaseVersion, u"15"_s);
    desk.show();
    desk.enter("Command5");
    QTRY_VERIFY(
        desk.at<QLabel>("lblHolding").text().endsWith(u"It is of version 16; this program works with version 15."_s));
    desk.script.expectBox(u"Database restored."_s);
    desk.script.expectBox(u"Invalid Database!\r\nCorvane Can not Run with this Database!\r\nDatabase File Version : "
                          "16\r\nSupported Version : 15\r\nCorvane created a new database file."_s);
    desk.command("Command5");
    QVERIFY(desk.script.isDone());
    // The restored one is in use, as it was.
    QCOMPARE(session::DBPath, session::defaultDatabasePath());
    QCOMPARE(GetSetting(setting::DatabaseVersion), u"16"_s);
    QCOMPARE(GetSetting(setting::BackupFolder), desk.stick);
    // The one that the shop had is whole beside it.
    session::DBPath = desk.folder.filePath(u"data15-aside-20110401-100000.mdb"_s);
    OpenDatabase();
    QCOMPARE(GetSetting(setting::DatabaseVersion), u"15"_s);
}

void SettingsTest::aRestoredShopThatCannotStartIsShownAllTheSame()
{
    Desk desk;
    SaveSetting(setting::BackupFolder, desk.stick);
    SaveSetting(setting::TagLine, u"then"_s);
    SaveSetting(setting::WorkingDate, u"soon"_s);
    QVERIFY(backup::make(DE().CN.content(), desk.stick, [](qint64, qint64) { return true; }));
    SaveSetting(setting::TagLine, u"since"_s);
    SaveSetting(setting::WorkingDate, u"01-Apr-2011"_s);
    desk.show();
    desk.script.expectBox(u"Database restored."_s);
    desk.script.expect(u"QMessageBox"_s, [](QWidget &) { press(Qt::Key_Return); });
    desk.command("Command5");
    QVERIFY(desk.script.isDone());
    QCOMPARE(desk.text("txtTagLine"), u"then"_s);
    QVERIFY(desk.at<QLabel>("lblKept").text().contains(u"data15-aside-20110401-100000.mdb"_s));
}

void SettingsTest::applyGoesOverToAnotherFile()
{
    Desk desk;
    SaveSetting(setting::TagLine, u"of the branch"_s);
    const QString branch = desk.folder.filePath(u"branch 50% \"o'clock\" ö.mdb"_s);
    QVERIFY(QFile::copy(session::DBPath, branch));
    SaveSetting(setting::TagLine, u"own"_s);
    desk.show();
    desk.enter("txtDBPath");
    desk.at<kvTextBox>("txtDBPath").setText(branch);
    desk.script.expectBox(u"Changes made to Configuration file has been saved."_s);
    desk.command("Command9");
    QVERIFY(desk.script.isDone());
    QCOMPARE(session::DBPath, branch);
    QCOMPARE(desk.text("txtTagLine"), u"of the branch"_s);
    QVERIFY(contentOf(desk.folder.filePath(u"cv.ini"_s)).endsWith("DBPATH=" + branch.toUtf8() + "\r\n"));
}

void SettingsTest::applyRefusesWhatIsNoPlaceForAShop_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("told");
    QTest::newRow("what the configuration cannot hold")
        << u"/shops/a=b.mdb"_s
        << u"A path with the sign \"=\" or with a line break cannot be kept in the configuration file."_s;
    QTest::newRow("relative") << u"shops/new.mdb"_s << u"Please enter the whole path of the file, with all folders."_s;
    QTest::newRow("a safety copy")
        << u"/shops/copies/data15-20110401.mdb"_s
        << u"This is a safety copy, which the program takes away when its time has come. Work in it would be lost.\r\n"
           "Please copy the file to another folder first, and apply that one."_s;
}

void SettingsTest::applyRefusesWhatIsNoPlaceForAShop()
{
    QFETCH(const QString, path);
    QFETCH(const QString, told);
    Desk desk;
    desk.show();
    const QString before = session::DBPath;
    desk.enterText("txtDBPath", path);
    desk.script.expectMessage(told);
    desk.command("Command9");
    QVERIFY(desk.script.isDone());
    QCOMPARE(session::DBPath, before);
    QTRY_VERIFY(desk.at<kvTextBox>("txtDBPath").hasFocus());
    QVERIFY(!QFileInfo::exists(desk.folder.filePath(u"cv.ini"_s)));
}

void SettingsTest::applyWithOtherThanAFile_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("nothing") << QString();
    QTest::newRow("a file that is not there") << u"%1/new shop.mdb"_s;
    QTest::newRow("a folder") << u"%1/stick 50%"_s;
}

void SettingsTest::applyWithOtherThanAFile()
{
    QFETCH(const QString, path);
    Desk desk;
    SaveSetting(setting::TagLine, u"own"_s);
    desk.show();
    desk.enter("txtDBPath");
    desk.at<kvTextBox>("txtDBPath").setText(path.isEmpty() ? path : path.arg(desk.folder.path()));
    desk.script.expectBox(u"Changes made to Configuration file has been saved."_s);
    const bool isFolder = QFileInfo(desk.text("txtDBPath")).isDir();
    if (isFolder) {
        desk.script.expectBox(u"Database File Error!\r\nThe file cannot be opened for reading and writing.\r\n"_s
            + desk.text("txtDBPath"));
        // Default Database is the first choice.
        desk.script.expect(u"frmSelectDB"_s, [](QWidget &) { press(Qt::Key_Return); });
    }
    desk.command("Command9");
    QVERIFY(desk.script.isDone());
    QCOMPARE(desk.text("txtDBPath"), session::defaultDatabasePath());
    QCOMPARE(desk.text("txtTagLine"), u"own"_s);
    QCOMPARE(QFileInfo::exists(desk.folder.filePath(u"new shop.mdb"_s)), path.endsWith(u"new shop.mdb"));
}

void SettingsTest::anotherDatabaseIsReadAnew()
{
    Desk desk;
    SaveSetting(setting::TagLine, u"of the demo"_s);
    QVERIFY(QFile::copy(session::DBPath, desk.folder.filePath(u"demo.mdb"_s)));
    SaveSetting(setting::TagLine, u"own"_s);
    desk.show();
    desk.enterText("txtDBPath", u"/typed"_s);
    desk.script.expect(u"frmSelectDB"_s, [](QWidget &) { press(Qt::Key_Escape); });
    desk.command("Command10");
    QCOMPARE(desk.text("txtTagLine"), u"own"_s);
    QCOMPARE(desk.text("txtDBPath"), session::DBPath);
    desk.script.expect(u"frmSelectDB"_s, [](QWidget &) {
        press(Qt::Key_Tab);
        press(Qt::Key_Return);
    });
    desk.command("Command10");
    QVERIFY(desk.script.isDone());
    QCOMPARE(desk.text("txtDBPath"), desk.folder.filePath(u"demo.mdb"_s));
    QCOMPARE(desk.text("txtTagLine"), u"of the demo"_s);
}

void SettingsTest::theShopsLinesAndLogin()
{
    TestShop shop;
    ModalScript script;
    shop.connection.execute(u"insert into SHOP (NAME, ADDRESS1) values ('Needle', 'Mill Road')"_s);
    frmShopINFO screen;
    QVERIFY(driver::show(screen));
    const auto text = [&screen](const char *name) -> kvTextBox & { return control<kvTextBox>(screen, name); };
    QCOMPARE(text("txtName").Text(), u"Needle"_s);
    QCOMPARE(text("txtADDRESS2").Text(), QString());
    auto &frame = control<QWidget>(screen, "Frame1");
    QVERIFY(!frame.isEnabled());
    type(u"o'clock & sons"_s);
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    type(u"first floor"_s);
    control<QCheckBox>(screen, "Check1").setFocus();
    press(Qt::Key_Space);
    QVERIFY(frame.isEnabled());
    const auto complain = [&] {
        script.expectMessage(u"Please enter User Name and Password!"_s);
        accessKey('s');
        QVERIFY(script.isDone());
        QVERIFY(text("txtUserName").hasFocus());
    };
    complain();
    type(u"asha"_s);
    complain();
    QCOMPARE(shop.count(u"Settings"_s), 1);
    text("txtPassword").setFocus();
    type(u"needle 7"_s);
    script.expectMessage(u"Shop Info Updated."_s);
    accessKey('s');
    QVERIFY(script.isDone());
    QCOMPARE(shop.lines(u"Select NAME, ADDRESS1, ADDRESS2, ADDRESS3, CONTACTS from SHOP"_s),
        QStringList{u"o'clock & Sons|Mill Road|First Floor||"_s});
    QCOMPARE(shop.lines(u"Select SETTING, VALUE from Settings"_s),
        QStringList({u"16|15"_s, u"7|1"_s, u"8|asha"_s, u"9|needle 7"_s}));
}

void SettingsTest::withoutTheLockTheLoginIsForgotten()
{
    TestShop shop;
    ModalScript script;
    SaveSetting(setting::UsePasswordLock, u"1"_s);
    SaveSetting(setting::LoginName, u"asha"_s);
    SaveSetting(setting::LoginPassword, u"needle 7"_s);
    frmShopINFO screen;
    QVERIFY(driver::show(screen));
    QCOMPARE(control<kvTextBox>(screen, "txtPassword").Text(), u"needle 7"_s);
    control<QCheckBox>(screen, "Check1").setFocus();
    press(Qt::Key_Space);
    QCOMPARE(control<kvTextBox>(screen, "txtUserName").Text(), QString());
    script.expectMessage(u"Shop Info Updated."_s);
    accessKey('s');
    QVERIFY(script.isDone());
    QCOMPARE(GetSetting(setting::UsePasswordLock) + GetSetting(setting::LoginName) + GetSetting(setting::LoginPassword),
        u"0"_s);
    // A shop without its row gets one.
    QCOMPARE(shop.count(u"SHOP"_s), 1);
    press(Qt::Key_Escape);
    QVERIFY(!screen.isVisible());
}

CORVANE_TEST(SettingsTest)

#include "tst_frmSettings.moc"
