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
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QRegularExpression>
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
    void numbersAreTakenAsNumbers();
    void theTitleHasTenLetters();
    void whatNobodyShouldHaveStoredIsShownAllTheSame();
    void defaultDraftsAreAskedFor();
    void escapeSavesNothingButTheFolder();
    void theModemsAnswerIsShown();
    void aBackupByKeysAndBack();
    void withoutAFolderOrBackupNothingIsDone();
    void aBackupOfAnotherVersionFallsToTheGate();
    void aRestoredShopThatCannotStartIsShownAllTheSame();
    void applyRefusesWhatIsNoPlaceForAShop();
    void applyGoesOverToTheFileThatIsThere();
    void anotherDatabaseIsReadAnew();
    void theShopsLinesAndLogin();
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
    /// Presses a command, and answers the boxes that come.
    void command(const char *name, std::initializer_list<QString> boxes)
    {
        for (const QString &text : boxes)
            script.expectBox(text);
        command(name);
        QVERIFY(script.isDone());
    }
    void save(const QString &message = u"Settings Updated."_s)
    {
        script.expectMessage(message);
        accessKey('s');
        QVERIFY(script.isDone());
    }
    [[nodiscard]] QStringList stored() { return lines(u"Select SETTING, VALUE from Settings"_s); }
    /// What the labels of the backup page tell.
    [[nodiscard]] QString told(const char *name) const { return at<QLabel>(name).text(); }
    /// Where a restore puts the shop that was there.
    [[nodiscard]] QString aside() const { return folder.filePath(u"data15-aside-20110401-100000.mdb"_s); }
    void backUp() const
    {
        QVERIFY(backup::make(DE().CN.content(), stick, [](qint64, qint64) { return true; }));
    }

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
    const QString logo = u"/home/my shop/50% \"o'clock\".png"_s;
    desk.enterText("txtLogo", logo);
    desk.enterText("cmbSMSJobID", u"y"_s);
    desk.enterText("txtSMS1", u"Job %eid%"_s);
    desk.enter("chManual");
    press(Qt::Key_Space);
    desk.enter("cmbPeriod");
    press(Qt::Key_End);
    QVERIFY(!desk.at<QWidget>("frmDD").isEnabled());
    desk.enter("Check1");
    press(Qt::Key_Space);
    desk.enter("DateFrom");
    type(u"17112025"_s);
    desk.enterText("cmbSMSPort", u"21"_s);
    desk.enter("cmbLanguage");
    press(Qt::Key_Down);
    desk.enter("cmbHindiSlip");
    press(Qt::Key_Up);
    desk.save();
    const std::pair<setting::Key, QString> entered[]{{setting::LogoFile, logo}, {setting::SendJobNumber, u"Yes"_s},
        {setting::BookedSms, u"Job %eid%"_s}, {setting::ManualJobNumber, u"1"_s}, {setting::DefaultPeriod, u"7"_s},
        {setting::ModemPort, u"21"_s}, {setting::Language, u"Hindi"_s}, {setting::HindiSlip, u"Yes"_s},
        {setting::UseDefaultFromDate, u"1"_s}, {setting::DefaultFromDate, u"17-Nov-2025"_s}};
    for (const auto &[key, value] : entered)
        QCOMPARE(GetSetting(key), value);
    // Whether the glance is shown is stored only when it is chosen.
    const QStringList before = desk.stored();
    QVERIFY(before.filter(QRegularExpression(u"^40"_s)).isEmpty());
    desk.show();
    QCOMPARE(desk.text("txtLogo"), logo);
    QCOMPARE(desk.at<kvComboBox>("cmbSMSPort").Text(), u"21"_s);
    QCOMPARE(desk.at<kvComboBox>("cmbLanguage").Text() + desk.at<kvComboBox>("cmbHindiSlip").Text(), u"HindiYes"_s);
    // An answer that was rubbed out is a no.
    desk.enter("cmbSMSJobID");
    press({Qt::CTRL | Qt::Key_A, Qt::Key_Backspace});
    desk.enter("chGlance");
    press(Qt::Key_Space);
    desk.save();
    QCOMPARE(GetSetting(setting::SendJobNumber) + GetSetting(setting::ShowMorningGlance), u"No0"_s);
    QCOMPARE(desk.stored().size(), before.size() + 1);
    desk.show();
    QVERIFY(!desk.at<QCheckBox>("chGlance").isChecked());
}

void SettingsTest::numbersAreTakenAsNumbers()
{
    Desk desk;
    desk.show();
    for (const auto &[typed, start, margin] : {std::tuple{u""_s, u"1"_s, u"0"_s}, {u"0.9"_s, u"1"_s, u"0.9"_s},
             {u"-a12b"_s, u"12"_s, u"12"_s}, {u"007"_s, u"7"_s, u"7"_s}}) {
        for (const char *name : {"txtStartNum", "txtDelMargin"}) {
            desk.at<kvTextBox>(name).clear();
            desk.enterText(name, typed);
        }
        desk.save();
        QCOMPARE(GetSetting(setting::FirstJobNumber), start);
        QCOMPARE(GetSetting(setting::DeliveryMargin), margin);
    }
    // One that is too large is told at its field.
    const QStringList before = desk.stored();
    for (const char *name : {"txtStartNum", "txtDelMargin"}) {
        desk.enterText(name, u"2147483648"_s);
        desk.enter("txtSMSTitle");
        desk.save(u"This number is too large."_s);
        QVERIFY(desk.at<kvTextBox>(name).hasFocus());
        desk.enterText(name, u"2147483647"_s);
    }
    QCOMPARE(desk.stored(), before);
    desk.save();
    QCOMPARE(GetSetting(setting::FirstJobNumber), u"2147483647"_s);
}

void SettingsTest::theTitleHasTenLetters()
{
    Desk desk;
    SaveSetting(setting::SmsTitle, u"Needle and Thread"_s);
    desk.show();
    // A longer one of old stays, and only gets shorter.
    desk.save();
    QCOMPARE(GetSetting(setting::SmsTitle), u"Needle and Thread"_s);
    desk.enter("txtSMSTitle");
    press({Qt::Key_End, Qt::Key_Backspace});
    QCOMPARE(desk.text("txtSMSTitle"), u"Needle and Threa"_s);
    press({Qt::CTRL | Qt::Key_A, Qt::Key_Backspace});
    type(u"needle and thread"_s);
    QCOMPARE(desk.text("txtSMSTitle"), u"Needle And"_s);
    press(Qt::Key_A, Qt::ControlModifier);
    driver::paste(u"a title that is pasted"_s);
    QCOMPARE(desk.text("txtSMSTitle"), u"a title th"_s);
}

void SettingsTest::whatNobodyShouldHaveStoredIsShownAllTheSame()
{
    Desk desk;
    SaveSetting(setting::DefaultFromDate, u"soon"_s);
    SaveSetting(setting::UseDefaultFromDate, u"1"_s);
    SaveSetting(setting::DefaultPeriod, u"9"_s);
    SaveSetting(setting::SendJobNumber, u"Maybe"_s);
    desk.show();
    QCOMPARE(desk.at<DateField>("DateFrom").date(), QDate(2011, 4, 1));
    QCOMPARE(desk.at<kvComboBox>("cmbPeriod").Text(), u"1 Month"_s);
    desk.enter("DateFrom");
    type(u"99"_s);
    desk.save(u"\"99\" is not a date!"_s);
    press(Qt::Key_Escape);
    desk.save();
    QCOMPARE(GetSetting(setting::SendJobNumber), u"No"_s);
}

void SettingsTest::defaultDraftsAreAskedFor()
{
    Desk desk;
    SaveSetting(setting::BookedSms, u"own"_s);
    desk.show();
    const auto &draft = desk.at<kvTextBoxMultiLine>("txtSMS1");
    desk.script.expect(u"QMessageBox"_s, [](QWidget &) { press(Qt::Key_Escape); });
    desk.command("Command8");
    QCOMPARE(draft.Text(), u"own"_s);
    desk.command("Command8", {u"Are you sure to load default SMS drafts?"_s});
    QCOMPARE(draft.Text(), setting::defaultOf(setting::BookedSms));
    QCOMPARE(GetSetting(setting::BookedSms), u"own"_s);
}

void SettingsTest::escapeSavesNothingButTheFolder()
{
    Desk desk;
    desk.show();
    desk.enterText("txtTagLine", u"not kept"_s);
    desk.script.expect(u"QFileDialog"_s, [&desk](QWidget &dialog) {
        QCOMPARE(dialog.windowTitle(), u"Select a Folder"_s);
        QVERIFY(driver::waitActive(dialog));
        type(desk.stick);
        press(Qt::Key_Return);
    });
    desk.command("Command6");
    QVERIFY(driver::waitActive(*desk.screen));
    QCOMPARE(desk.text("txtBackuppath"), desk.stick);
    press(Qt::Key_Escape);
    QVERIFY(!desk.screen->isVisible());
    QCOMPARE(desk.stored(), QStringList({u"16|15"_s, u"19|"_s + desk.stick}));
}

void SettingsTest::theModemsAnswerIsShown()
{
    struct Talk {
        QString number;
        QList<QByteArray> says;
        QString shown;
    };
    const Talk talks[]{{u"98290"_s, {"\r\nOK\r\n", "\r\n> ", "\r\n+CMGS: 5\r\n\r\nOK\r\n"}, u"OK\n+CMGS: 5\nOK"_s},
        {u"98290"_s, {"\r\nOK\r\n", "\r\n> ", "\r\n+CMS ERROR: 310\r\n"}, u"OK\n+CMS ERROR: 310"_s},
        {u"98290"_s, {"\r\nERROR\r\n"}, u"ERROR"_s},
        // An echo that reads like an answer.
        {u"98290"_s, {"AT > OK\r\r\nOK\r\n", "AT >\r\r\n> ", "OK, no ERROR\r\n|+CMGS: 5\r\n\r\nOK\r\n"},
            u"AT > OK\nOK\nAT >\n> OK, no ERROR\n+CMGS: 5\nOK"_s},
        {{}, {"\r\nOK\r\n"}, u"OK"_s}};
    for (const auto &[number, says, shown] : talks) {
        const PseudoTerminal line;
        Desk desk;
        session::ShopName = u"Kovrel"_s;
        desk.show();
        desk.enterText("cmbSMSPort", u"3"_s);
        if (!number.isEmpty())
            desk.enterText("txtTestNumber", number);
        QByteArray heard;
        std::thread modem([&line, &says = says, &heard] {
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
        const auto &answer = desk.at<kvTextBoxMultiLine>("txtModemAnswer");
        QCOMPARE(answer.toPlainText(), shown);
        if (says.size() == 3)
            QCOMPARE(heard, QByteArray("AT+CMGF=1\rAT+CMGS=\"98290\"\rThis is a test message of Kovrel.") + char(26));
        // A port that is not there.
        qputenv("CORVANE_MODEM", "/dev/no modem");
        desk.command("cmdTest");
        QVERIFY(answer.toPlainText().contains(u"/dev/no modem is not there"_s));
    }
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
    QCOMPARE(desk.told("lblLastGood"), u"No good backup of this shop is known yet."_s);
    QCOMPARE(desk.told("lblHolding"), u"This folder has no backup yet."_s);
    for (int time = 0; time < 2; ++time)
        desk.command("Command4", {u"Database Backup Created."_s});
    QCOMPARE(desk.told("lblLastGood"), u"Last good backup: 01-Apr-2011 at 10:00"_s);
    QTRY_VERIFY(desk.told("lblHolding").endsWith(u", holds 2 cards, last on 21-Nov-2026."_s));

    SaveSetting(setting::TagLine, u"since"_s);
    SaveSetting(setting::BackupFolder, u"/elsewhere"_s);
    desk.command("Command5", {u"Database restored."_s});
    QCOMPARE(GetSetting(setting::TagLine), u"then"_s);
    QCOMPARE(desk.text("txtTagLine"), u"then"_s);
    QCOMPARE(desk.text("txtBackuppath"), desk.stick);
    QVERIFY(desk.told("lblKept").endsWith(desk.aside()));
    QVERIFY(QFileInfo::exists(desk.aside()));

    // A bad one is told before and after.
    const QString backup = desk.stick + u"/CVbackup.gz"_s;
    writeContent(backup, QByteArray(3000, 'x'));
    desk.show();
    desk.enter("Command5");
    const QString why = u"The file was not packed by gzip, or its beginning is damaged."_s;
    QTRY_COMPARE(desk.told("lblHolding"), u"The backup CVbackup.gz in this folder cannot be restored: "_s + why);
    desk.command("Command5", {why + u"\r\n"_s + backup});
    QCOMPARE(GetSetting(setting::TagLine), u"then"_s);
}

void SettingsTest::withoutAFolderOrBackupNothingIsDone()
{
    Desk desk;
    desk.show();
    for (const char *command : {"Command7", "Command4", "Command5"})
        desk.command(command, {u"Please select backup file path!"_s});
    SaveSetting(setting::BackupFolder, desk.stick);
    desk.show();
    desk.command("Command5", {u"No backup file found!"_s});
    QStringList opened;
    shell::replaceOpener([&opened](const QString &path) { opened += path; });
    const auto putBack = qScopeGuard([] { shell::replaceOpener({}); });
    desk.command("Command7");
    QDir(desk.stick).removeRecursively();
    desk.command("Command7", {u"This folder is not there:\r\n"_s + desk.stick});
    desk.command("Command4",
        {u"The file cannot be made: No such file or directory.\n\nNothing of this file was written. "
         "When the cause is mended, it can be made again.\r\n"_s
            + desk.stick + u"/CVbackup.gz"_s});
    QVERIFY(!backup::lastGood().isValid());
    QCOMPARE(opened, QStringList{desk.stick});
}

void SettingsTest::aBackupOfAnotherVersionFallsToTheGate()
{
    Desk desk;
    SaveSetting(setting::BackupFolder, desk.stick);
    SaveSetting(setting::DatabaseVersion, u"16"_s);
    desk.backUp();
    SaveSetting(setting::DatabaseVersion, u"15"_s);
    desk.show();
    desk.enter("Command5");
    QTRY_VERIFY(desk.told("lblHolding").endsWith(u"It is of version 16; this program works with version 15."_s));
    desk.command("Command5",
        {u"Database restored."_s,
            u"Invalid Database!\r\nCorvane Can not Run with this Database!\r\nDatabase File Version : "
            "16\r\nSupported Version : 15\r\nCorvane created a new database file."_s});
    // The restored one is in use, as it was.
    QCOMPARE(session::DBPath, session::defaultDatabasePath());
    QCOMPARE(GetSetting(setting::DatabaseVersion), u"16"_s);
    QCOMPARE(GetSetting(setting::BackupFolder), desk.stick);
    // The one that the shop had is whole beside it.
    session::DBPath = desk.aside();
    OpenDatabase();
    QCOMPARE(GetSetting(setting::DatabaseVersion), u"15"_s);
}

void SettingsTest::aRestoredShopThatCannotStartIsShownAllTheSame()
{
    Desk desk;
    SaveSetting(setting::BackupFolder, desk.stick);
    SaveSetting(setting::TagLine, u"then"_s);
    SaveSetting(setting::WorkingDate, u"soon"_s);
    desk.backUp();
    SaveSetting(setting::TagLine, u"since"_s);
    SaveSetting(setting::WorkingDate, u"01-Apr-2011"_s);
    desk.show();
    desk.script.expectBox(u"Database restored."_s);
    desk.script.expect(u"QMessageBox"_s, [](QWidget &) { press(Qt::Key_Return); });
    desk.command("Command5");
    QVERIFY(desk.script.isDone());
    QCOMPARE(desk.text("txtTagLine"), u"then"_s);
    QVERIFY(desk.told("lblKept").contains(desk.aside()));
}

void SettingsTest::applyRefusesWhatIsNoPlaceForAShop()
{
    const std::pair<QString, QString> places[]{
        {u"/shops/a=b.mdb"_s,
            u"A path with the sign \"=\" or with a line break cannot be kept in the configuration file."_s},
        {u"shops/new.mdb"_s, u"Please enter the whole path of the file, with all folders."_s},
        {u"/shops/copies/data15-20110401.mdb"_s,
            u"This is a safety copy, which the program takes away when its time has come. Work in it would be lost.\r\n"
            "Please copy the file to another folder first, and apply that one."_s}};
    Desk desk;
    desk.show();
    const QString before = session::DBPath;
    for (const auto &[path, told] : places) {
        desk.enterText("txtDBPath", path);
        desk.script.expectMessage(told);
        desk.command("Command9");
        QVERIFY(desk.script.isDone());
        QCOMPARE(session::DBPath, before);
        QTRY_VERIFY(desk.at<kvTextBox>("txtDBPath").hasFocus());
        QVERIFY(!QFileInfo::exists(desk.folder.filePath(u"cv.ini"_s)));
    }
}

void SettingsTest::applyGoesOverToTheFileThatIsThere()
{
    // Another file; nothing and a file that is not there, which leave the default one.
    for (const QString &name : {u"branch 50% \"o'clock\" ö.mdb"_s, QString(), u"new shop.mdb"_s}) {
        Desk desk;
        const bool isBranch = name.startsWith(u"branch"_s);
        const QString path = name.isEmpty() ? name : desk.folder.filePath(name);
        SaveSetting(setting::TagLine, u"of the branch"_s);
        if (isBranch)
            QVERIFY(QFile::copy(session::DBPath, path));
        SaveSetting(setting::TagLine, u"own"_s);
        desk.show();
        desk.enter("txtDBPath");
        desk.at<kvTextBox>("txtDBPath").setText(path);
        desk.command("Command9", {u"Changes made to Configuration file has been saved."_s});
        QCOMPARE(session::DBPath, isBranch ? path : session::defaultDatabasePath());
        QCOMPARE(desk.text("txtDBPath"), session::DBPath);
        QCOMPARE(desk.text("txtTagLine"), isBranch ? u"of the branch"_s : u"own"_s);
        if (isBranch)
            QVERIFY(contentOf(desk.folder.filePath(u"cv.ini"_s)).endsWith("DBPATH=" + path.toUtf8() + "\r\n"));
        QCOMPARE(QFileInfo::exists(desk.folder.filePath(u"new shop.mdb"_s)), name == u"new shop.mdb"_s);
    }
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
    desk.script.expect(u"frmSelectDB"_s, [](QWidget &) { press({Qt::Key_Tab, Qt::Key_Return}); });
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
    const auto save = [&script](const QString &message) {
        script.expectMessage(message);
        accessKey('s');
        QVERIFY(script.isDone());
    };
    QCOMPARE(text("txtName").Text() + text("txtADDRESS2").Text(), u"Needle"_s);
    QVERIFY(!control<QWidget>(screen, "Frame1").isEnabled());
    type(u"o'clock & sons\r\rfirst floor"_s);
    control<QCheckBox>(screen, "Check1").setFocus();
    press(Qt::Key_Space);
    for (const QString &name : {u"asha"_s, QString()}) {
        save(u"Please enter User Name and Password!"_s);
        QVERIFY(text("txtUserName").hasFocus());
        type(name);
    }
    QCOMPARE(shop.count(u"Settings"_s), 1);
    text("txtPassword").setFocus();
    type(u"needle 7"_s);
    save(u"Shop Info Updated."_s);
    QCOMPARE(shop.lines(u"Select NAME, ADDRESS1, ADDRESS2, ADDRESS3, CONTACTS from SHOP"_s),
        QStringList{u"o'clock & Sons|Mill Road|First Floor||"_s});
    QCOMPARE(shop.lines(u"Select SETTING, VALUE from Settings"_s),
        QStringList({u"16|15"_s, u"7|1"_s, u"8|asha"_s, u"9|needle 7"_s}));
    // Without the lock the login is forgotten; a shop without its row gets one.
    screen.close();
    shop.connection.execute(u"Delete * from SHOP"_s);
    frmShopINFO again;
    QVERIFY(driver::show(again));
    QCOMPARE(control<kvTextBox>(again, "txtPassword").Text(), u"needle 7"_s);
    control<QCheckBox>(again, "Check1").setFocus();
    press(Qt::Key_Space);
    QCOMPARE(control<kvTextBox>(again, "txtUserName").Text(), QString());
    save(u"Shop Info Updated."_s);
    QCOMPARE(GetSetting(setting::UsePasswordLock) + GetSetting(setting::LoginName) + GetSetting(setting::LoginPassword),
        u"0"_s);
    QCOMPARE(shop.count(u"SHOP"_s), 1);
}

CORVANE_TEST(SettingsTest)

#include "tst_frmSettings.moc"
