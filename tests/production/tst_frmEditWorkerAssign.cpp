#include "production/frmEditWorkerAssign.h"

#include "AssignmentDesk.h"
#include "base/session.h"
#include "devices/printer.h"
#include "devices/shell.h"
#include "pictures/PictureBox.h"
#include "store/DataEnvironment.h"
#include "store/settings.h"
#include "support/PseudoTerminal.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/Command.h"
#include "ui/DateField.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"
#include "ui/kvTextBoxMultiLine.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QFile>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPageLayout>
#include <QPdfWriter>
#include <QProcess>
#include <QRadioButton>
#include <QScopeGuard>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// The screen on which a garment is given to a worker, by keys and clicks, and its row afterwards.
class AssignScreenTest : public QObject {
    Q_OBJECT

private slots:
    void allThatIsKnownOfTheGarmentIsShown();
    void aGarmentIsAssignedByKeys();
    void whatIsTypedSelectsTheFirstWorkerThatBeginsSo_data();
    void whatIsTypedSelectsTheFirstWorkerThatBeginsSo();
    void aCancelledGarmentKeepsItsState();
    void theStatusIsSavedWithItsDay_data();
    void theStatusIsSavedWithItsDay();
    void wages_data();
    void wages();
    void aLocationOfAnyLengthIsKept_data();
    void aLocationOfAnyLengthIsKept();
    void whatIsNoDateIsNotSaved();
    void aRowThatIsGoneIsTold();
    void aWorkerWhoIsGoneIsTold();
    void aShopWithoutWorkersCanSave();
    void workerDetailsStayHidden();
    void theRatingFollowsTheWorker();
    void feedbackIsGivenForTheGarment();
    void theClientIsToldWhenAllIsFinished_data();
    void theClientIsToldWhenAllIsFinished();
    void theScreenShowsThatAMessageIsSent();
    void picturesAreShownOpenedAndPrinted();
    void aPictureThatCannotBePrintedIsTold_data();
    void aPictureThatCannotBePrintedIsTold();
};

namespace {

constexpr int mohan = 6;
constexpr int sita = 8;
const QString everything =
    u"WorkerID, WorkerName, DoneByWorker, CompletedDate, CuttingStatus, CuttingDate, WorkerWagesDue, MarkAsPaid, Loc"_s;

QString shown(const QWidget &screen, const char *label)
{
    return control<QLabel>(screen, label).text();
}

QString statusShown(const QWidget &screen)
{
    for (const char *option : {"opUcom", "opCom", "opDel", "opAlt"}) {
        if (control<QRadioButton>(screen, option).isChecked())
            return QString::fromLatin1(option);
    }
    return control<QWidget>(screen, "canceled").isVisible() ? u"canceled"_s : u"none"_s;
}

void save(ModalScript &script)
{
    script.expectMessage(u"Job Assign."_s);
    press(Qt::Key_S, Qt::ControlModifier);
}

void chooseWorker(const QWidget &screen, const QString &typed)
{
    auto &workers = control<kvComboBox>(screen, "cmbWorker");
    workers.setFocus();
    workers.lineEdit()->selectAll();
    type(typed);
}

void paste(kvTextBox &field, const QString &text)
{
    field.setFocus();
    QApplication::clipboard()->setText(text);
    press(Qt::Key_V, Qt::ControlModifier);
}

} // namespace

void AssignScreenTest::allThatIsKnownOfTheGarmentIsShown()
{
    AssignmentDesk desk;
    desk.addJobRow({.job = 300, .client = 5, .worker = sita, .date = {2011, 3, 1}});
    desk.set(u"WorkerID=6, DoneByWorker=3, AltDate=#10-Apr-2011#, CompletedDate=#9-Apr-2011#, CuttingStatus=1, "
             "MarkAsPaid=1, Loc='Rack 3', WorkerWagesDue=125.5, Color=255"_s);
    ModalScript script;
    onGarment(script, [](QWidget &screen) {
        QCOMPARE(screen.windowTitle(), u"Assign JOB to Worker"_s);
        QCOMPARE(driver::entries(control<kvComboBox>(screen, "cmbWorker")),
            (QStringList{u"NA"_s, u"Mohan"_s, u"Mohini"_s, u"Sita"_s}));
        QCOMPARE(control<kvComboBox>(screen, "cmbWorker").Text(), u"Mohan"_s);
        const std::pair<const char *, QString> labels[]{{"txtClient", u"Asha Rao"_s}, {"txtJOBID", u"321"_s},
            {"txtItemName", u"Coat"_s}, {"txtQuantity", u"2"_s}, {"lblBookDate", u"01-Apr-2011"_s},
            {"lblDelDate", u"20-Apr-2011"_s}, {"lblDateCompleted", u"09-Apr-2011"_s}, {"lbldateAlt", u"10-Apr-2011"_s},
            {"lblDateDeltoCust", QString()},
            {"lblLastJob", u"Last Job ID # 300\r\nDate : 01-Mar-2011\r\nJob done by : Sita"_s}};
        for (const auto &[name, text] : labels)
            QCOMPARE(shown(screen, name), text);
        const std::pair<const char *, QString> lines[]{{"txtCap", u"Chest\r\nWaist"_s}, {"txtSize", u"40\r\n36 1/2"_s},
            {"txtRemark", u"Grey wool"_s}, {"txtClientRemark", u"Loose"_s}};
        for (const auto &[name, text] : lines) {
            QCOMPARE(control<kvTextBoxMultiLine>(screen, name).Text(), text);
            QVERIFY(control<kvTextBoxMultiLine>(screen, name).isReadOnly());
        }
        QCOMPARE(control<kvTextBox>(screen, "txtLoc").Text(), u"Rack 3"_s);
        QCOMPARE(control<kvTextBox>(screen, "txtWagesDue").Text(), u"125.5"_s);
        QCOMPARE(statusShown(screen), u"opAlt"_s);
        QVERIFY(control<QCheckBox>(screen, "chCutting").isChecked());
        QCOMPARE(control<DateField>(screen, "DtCutting").date(), QDate(2011, 4, 2));
        QVERIFY(control<QCheckBox>(screen, "chMarkasPaid").isChecked());
        QCOMPARE(control<QLabel>(screen, "picColor").grab().toImage().pixelColor(30, 14), QColor(255, 0, 0));
        QVERIFY(screen.width() <= 1366 && screen.height() <= 730);
    });
    QVERIFY(!session::NeedRefresh);
}

void AssignScreenTest::aGarmentIsAssignedByKeys()
{
    AssignmentDesk desk;
    ModalScript script;
    onGarment(script, [&](QWidget &screen) {
        QCOMPARE(control<kvComboBox>(screen, "cmbWorker").Text(), u"NA"_s);
        type(u"sit"_s);
        press(Qt::Key_Return);
        press(Qt::Key_Down);
        press(Qt::Key_Return);
        press(Qt::Key_Space);
        press(Qt::Key_Return);
        type(u"9"_s);
        press(Qt::Key_Return);
        type(u"rack 3"_s);
        press(Qt::Key_Return);
        press(Qt::Key_Return);
        type(u"125.5.0x"_s);
        press(Qt::Key_Return);
        press(Qt::Key_Space);
        save(script);
        QVERIFY(screen.isVisible());
        QVERIFY(session::NeedRefresh);
        QCOMPARE(shown(screen, "lblDateCompleted"), u"11-Apr-2011"_s);
        QCOMPARE(desk.stored(everything), u"8|Sita|1|11-Apr-2011|1|09-Apr-2011|125.5|1|Rack 3"_s);

        // Saved again the next day, with the cutting off and no worker.
        session::CurrentDate = {2011, 4, 12};
        chooseWorker(screen, u"na"_s);
        QTest::mouseClick(&control<QCheckBox>(screen, "chCutting"), Qt::LeftButton);
        script.expectMessage(u"Job Assign."_s);
        accessKey('s');
        QCOMPARE(desk.stored(everything), u"0|Sita|1|12-Apr-2011|0|09-Apr-2011|125.5|1|Rack 3"_s);
    });
    // The one made row of its job is not delivered.
    QCOMPARE(desk.count(u"JOBS"_s), 0);
}

void AssignScreenTest::whatIsTypedSelectsTheFirstWorkerThatBeginsSo_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("worker");
    // Backspace takes the rest, which typing has added, away again.
    QTest::newRow("of two") << u"MOH\b"_s << u"6|Mohan"_s;
    QTest::newRow("of the other") << u"mohi\b"_s << u"7|Mohini"_s;
    QTest::newRow("whole") << u"mohini"_s << u"7|Mohini"_s;
    QTest::newRow("nobody") << u"n\b"_s << u"0|"_s;
    QTest::newRow("nothing") << u"\b"_s << QString();
}

void AssignScreenTest::whatIsTypedSelectsTheFirstWorkerThatBeginsSo()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, worker);
    AssignmentDesk desk;
    const QString before = desk.stored(u"*"_s);
    ModalScript script;
    onGarment(script, [&](QWidget &screen) {
        for (const QChar letter : typed)
            letter == u'\b' ? press(Qt::Key_Backspace) : type(letter);
        script.expectMessage(worker.isEmpty() ? u"Please Select Worker Name!"_s : u"Job Assign."_s);
        accessKey('s');
        QCOMPARE(control<kvComboBox>(screen, "cmbWorker").hasFocus(), worker.isEmpty());
    });
    if (worker.isEmpty())
        QCOMPARE(desk.stored(u"*"_s), before);
    else
        QCOMPARE(desk.stored(u"WorkerID, WorkerName"_s), worker);
    QCOMPARE(session::NeedRefresh, !worker.isEmpty());
}

void AssignScreenTest::aCancelledGarmentKeepsItsState()
{
    AssignmentDesk desk;
    desk.set(u"DoneByWorker=4"_s);
    ModalScript script;
    onGarment(script, [&](QWidget &screen) {
        QCOMPARE(statusShown(screen), u"canceled"_s);
        chooseWorker(screen, u"sita"_s);
        save(script);
        QCOMPARE(desk.stored(u"DoneByWorker, WorkerID"_s), u"4|8"_s);
        QTest::mouseClick(&control<QRadioButton>(screen, "opAlt"), Qt::LeftButton);
        save(script);
        QCOMPARE(desk.stored(u"DoneByWorker, AltDate"_s), u"3|11-Apr-2011"_s);
        QVERIFY(!control<QWidget>(screen, "canceled").isVisible());
    });
}

void AssignScreenTest::theStatusIsSavedWithItsDay_data()
{
    QTest::addColumn<QByteArray>("option");
    QTest::addColumn<QByteArray>("label");
    QTest::addColumn<QString>("stored");
    QTest::newRow("uncompleted") << QByteArray("opUcom") << QByteArray() << u"0|||"_s;
    QTest::newRow("completed") << QByteArray("opCom") << QByteArray("lblDateCompleted") << u"1|11-Apr-2011||"_s;
    QTest::newRow("delivered") << QByteArray("opDel") << QByteArray("lblDateDeltoCust") << u"2||11-Apr-2011|"_s;
    QTest::newRow("alteration") << QByteArray("opAlt") << QByteArray("lbldateAlt") << u"3|||11-Apr-2011"_s;
}

void AssignScreenTest::theStatusIsSavedWithItsDay()
{
    QFETCH(const QByteArray, option);
    QFETCH(const QByteArray, label);
    AssignmentDesk desk;
    ModalScript script;
    onGarment(script, [&](QWidget &screen) {
        QTest::mouseClick(&control<QRadioButton>(screen, option.constData()), Qt::LeftButton);
        save(script);
        if (!label.isEmpty())
            QCOMPARE(shown(screen, label.constData()), u"11-Apr-2011"_s);
    });
    QTEST(desk.stored(u"DoneByWorker, CompletedDate, DelToCustDate, AltDate"_s), "stored");
    onGarment(script, [&](QWidget &screen) { QCOMPARE(statusShown(screen), QString::fromLatin1(option)); });
}

void AssignScreenTest::wages_data()
{
    QTest::addColumn<bool>("pasted");
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("stored");
    QTest::newRow("letters are not typed") << false << u"1e9-"_s << u"19"_s;
    QTest::newRow("a point alone") << false << u"."_s << u"0"_s;
    QTest::newRow("nothing") << false << u"\b"_s << u"0"_s;
    QTest::newRow("the most there can be") << true << u"1,000,000,000"_s << u"1000000000"_s;
    QTest::newRow("more") << true << u"1,000,000,001"_s << QString();
    QTest::newRow("twelve digits") << false << u"123456789012"_s << QString();
    QTest::newRow("grouped") << true << u"1,250"_s << u"1250"_s;
    QTest::newRow("no number") << true << u"1e400"_s << u"300"_s;
}

void AssignScreenTest::wages()
{
    QFETCH(const bool, pasted);
    QFETCH(const QString, given);
    QFETCH(const QString, stored);
    AssignmentDesk desk;
    ModalScript script;
    onGarment(script, [&](QWidget &screen) {
        auto &field = control<kvTextBox>(screen, "txtWagesDue");
        field.setFocus();
        if (pasted)
            paste(field, given);
        else if (given == u"\b")
            press(Qt::Key_Backspace);
        else
            type(given);
        // What is wrong is brought into sight.
        press(Qt::Key_W, Qt::ControlModifier);
        script.expectMessage(stored.isEmpty() ? u"Wages Due is not a valid amount!"_s : u"Job Assign."_s);
        press(Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(field.hasFocus(), stored.isEmpty());
    });
    QCOMPARE(desk.stored(u"WorkerWagesDue"_s), stored.isEmpty() ? u"300"_s : stored);
}

void AssignScreenTest::aLocationOfAnyLengthIsKept_data()
{
    QTest::addColumn<QString>("location");
    QTest::newRow("long") << QString(10'000, u'x');
    QTest::newRow("blanks") << u"   "_s;
    QTest::newRow("quotes") << u"Asha's \"rack\" | 3"_s;
    QTest::newRow("none") << QString();
}

void AssignScreenTest::aLocationOfAnyLengthIsKept()
{
    QFETCH(const QString, location);
    AssignmentDesk desk;
    ModalScript script;
    onGarment(script, [&](QWidget &screen) {
        paste(control<kvTextBox>(screen, "txtLoc"), location);
        save(script);
    });
    QCOMPARE(desk.stored(u"Loc"_s), location);
    onGarment(script, [&](QWidget &screen) { QCOMPARE(control<kvTextBox>(screen, "txtLoc").Text(), location); });
}

void AssignScreenTest::whatIsNoDateIsNotSaved()
{
    AssignmentDesk desk;
    const QString before = desk.stored(u"*"_s);
    ModalScript script;
    onGarment(script, [&](QWidget &screen) {
        auto &date = control<DateField>(screen, "DtCutting");
        date.setFocus();
        type(u"31/4"_s);
        script.expectMessage(u"\"31/4\" is not a date!"_s);
        press(Qt::Key_S, Qt::ControlModifier);
        QVERIFY(date.hasFocus());
        press(Qt::Key_Escape);
        QVERIFY(screen.isVisible());
    });
    QCOMPARE(desk.stored(u"*"_s), before);
}

void AssignScreenTest::aRowThatIsGoneIsTold()
{
    AssignmentDesk desk;
    const QString gone = u"This item is no longer on its job card!"_s;
    ModalScript script;
    script.expectMessage(gone);
    frmEditWorkerAssign().ShowEdit(2);
    onGarment(script, [&](QWidget &screen) {
        control<kvTextBox>(screen, "txtLoc").setText(u"Rack"_s);
        desk.connection.execute(u"Delete * from Jobs_Detail"_s);
        for (const char key : {'s', 'p', 'l', 'f'}) {
            script.expectMessage(gone);
            accessKey(key);
        }
        QVERIFY(session::NeedRefresh);
        QCOMPARE(control<kvTextBox>(screen, "txtLoc").Text(), u"Rack"_s);
    });
    QCOMPARE(desk.count(u"Jobs_Detail"_s), 0);
}

void AssignScreenTest::aWorkerWhoIsGoneIsTold()
{
    AssignmentDesk desk;
    desk.set(u"WorkerID=6, WorkerName='Mohan'"_s);
    const QString before = desk.stored(u"*"_s);
    ModalScript script;
    onGarment(script, [&](QWidget &screen) {
        const auto &workers = control<kvComboBox>(screen, "cmbWorker");
        desk.connection.execute(u"update Accounts set Title='Mohan Lal' where id=6"_s);
        script.expectMessage(
            u"This worker is no longer there!\r\nPlease select another one. Nothing has been saved."_s);
        press(Qt::Key_S, Qt::ControlModifier);
        QVERIFY(workers.hasFocus());
        QCOMPARE(desk.stored(u"*"_s), before);
        // The list has the new name.
        type(u"mohan l"_s);
        save(script);
    });
    QCOMPARE(desk.stored(u"WorkerID, WorkerName"_s), u"6|Mohan Lal"_s);
    desk.connection.execute(u"Delete * from Accounts where id=6"_s);
    onGarment(script, [&](QWidget &screen) {
        QCOMPARE(control<kvComboBox>(screen, "cmbWorker").Text(), QString());
        script.expectMessage(u"Please Select Worker Name!"_s);
        press(Qt::Key_S, Qt::ControlModifier);
    });
}

void AssignScreenTest::aShopWithoutWorkersCanSave()
{
    AssignmentDesk desk;
    desk.connection.execute(u"Delete * from Accounts where type=1"_s);
    ModalScript script;
    onGarment(script, [&](QWidget &screen) {
        QCOMPARE(driver::entries(control<kvComboBox>(screen, "cmbWorker")), QStringList{u"NA"_s});
        save(script);
    });
    QCOMPARE(desk.stored(u"WorkerID"_s), u"0"_s);
}

void AssignScreenTest::workerDetailsStayHidden()
{
    AssignmentDesk desk;
    const auto areShown = [](const QWidget &screen) {
        const QString caption = control<Command>(screen, "lblHideShow").text();
        const bool visible = control<QGroupBox>(screen, "fWorkerDetails").isVisible();
        return caption == (visible ? u"Hide Worker Details"_s : u"Show Worker Details"_s) && visible;
    };
    ModalScript script;
    onGarment(script, [&](QWidget &screen) {
        QVERIFY(areShown(screen));
        QTest::mouseClick(&control<Command>(screen, "lblHideShow"), Qt::LeftButton);
        QVERIFY(!areShown(screen));
        QCOMPARE(GetSetting(setting::ShowWorkerDetails), u"0"_s);
        save(script);
    });
    // What is hidden is saved as it was.
    QCOMPARE(desk.stored(u"WorkerWagesDue"_s), u"300"_s);
    onGarment(script, [&](QWidget &screen) {
        QVERIFY(!areShown(screen));
        press(Qt::Key_W, Qt::ControlModifier);
        QVERIFY(areShown(screen));
        QCOMPARE(GetSetting(setting::ShowWorkerDetails), u"1"_s);
    });
}

void AssignScreenTest::theRatingFollowsTheWorker()
{
    AssignmentDesk desk;
    for (const int worker : {mohan, mohan, sita})
        desk.addJobRow({.job = 9, .client = 1, .worker = worker});
    desk.set(u"Score=4"_s, 2);
    desk.set(u"Score=1"_s, 3);
    desk.set(u"Score=7"_s, 4);
    ModalScript script;
    onGarment(script, [&](QWidget &screen) {
        const auto rating = [&screen] {
            const auto &stars = control<QLabel>(screen, "imgStars");
            return shown(screen, "lblAvgScorer") + u'|'
                + (stars.pixmap().isNull() ? QString() : stars.accessibleName());
        };
        QCOMPARE(rating(), u"|"_s);
        // 5 of 2 rows is halved to the even 2.
        chooseWorker(screen, u"mohan"_s);
        QCOMPARE(rating(), u"Overall Ratting : 2|2 of 5 stars"_s);
        chooseWorker(screen, u"sita"_s);
        QCOMPARE(rating(), u"Overall Ratting : 7|"_s);
        chooseWorker(screen, u"na"_s);
        QCOMPARE(rating(), u"Overall Ratting : 7|"_s);
        press(Qt::Key_Down);
        QCOMPARE(rating(), u"Overall Ratting : 2|2 of 5 stars"_s);
        chooseWorker(screen, u"moha"_s);
        press(Qt::Key_Backspace);
        QCOMPARE(control<kvComboBox>(screen, "cmbWorker").Text(), u"Moha"_s);
        QCOMPARE(rating(), u"Overall Ratting : 0|0 of 5 stars"_s);
        // The list.
        press(Qt::Key_Escape);
    });
}

void AssignScreenTest::feedbackIsGivenForTheGarment()
{
    AssignmentDesk desk;
    desk.set(u"WorkerID=6"_s);
    ModalScript script;
    onGarment(script, [&](QWidget &screen) {
        QCOMPARE(shown(screen, "lblAvgScorer"), u"Overall Ratting : 0"_s);
        script.expect(u"frmFeedBack"_s, [&](QWidget &feedback) {
            QVERIFY(control<Command>(feedback, "Command1").isEnabled());
            type(u"5"_s);
            script.expectMessage(u"Feedback saved!"_s);
            accessKey('o');
            press(Qt::Key_Escape);
        });
        accessKey('f');
        QCOMPARE(shown(screen, "lblAvgScorer"), u"Overall Ratting : 5"_s);
    });
    QCOMPARE(desk.stored(u"Score"_s), u"5"_s);
}

void AssignScreenTest::theClientIsToldWhenAllIsFinished_data()
{
    QTest::addColumn<int>("secondRow");
    QTest::addColumn<bool>("yes");
    QTest::addColumn<QString>("mobile");
    QTest::addColumn<QString>("port");
    QTest::addColumn<QString>("told");
    const QString open = u"All jobs not completed!"_s;
    const QString mobile = u"98290 12345"_s;
    QTest::newRow("one waits") << 0 << true << mobile << u"3"_s << open;
    QTest::newRow("one is handed over") << 2 << true << QString() << QString() << open;
    QTest::newRow("no") << 1 << false << QString() << QString() << QString();
    QTest::newRow("neither number nor port")
        << 1 << true << QString() << QString() << u"Mobile Number Not Found!\r\nSMS Sending has been Failed."_s;
    QTest::newRow("no port") << 1 << true << mobile << QString()
                             << u"Modem Com Port Error!\r\nSMS Sending has been Failed."_s;
    QTest::newRow("sent") << 1 << true << mobile << u"3"_s << QString();
}

void AssignScreenTest::theClientIsToldWhenAllIsFinished()
{
    QFETCH(const int, secondRow);
    QFETCH(const bool, yes);
    QFETCH(const QString, mobile);
    QFETCH(const QString, port);
    QFETCH(const QString, told);
    AssignmentDesk desk;
    desk.set(u"DoneByWorker=1"_s);
    desk.addJobRow({.job = 321, .client = 5, .status = secondRow});
    // What is bought does not count.
    desk.addJobRow({.job = 321, .client = 5, .inventory = true});
    desk.connection.execute(u"update Accounts set Mobile='%1' where id=5"_s.arg(mobile));
    SaveSetting(setting::ModemPort, port);
    SaveSetting(setting::CompletedSms, u"Job %eid% at %amount%"_s);
    SaveSetting(setting::SmsTitle, u"Kovrel"_s);
    const PseudoTerminal modem;
    ModalScript script;
    onGarment(script, [&](QWidget &) {
        const bool isAsked = secondRow == 1;
        if (isAsked)
            script.expectMessage(u"Send SMS Now?"_s, yes ? Qt::Key_Return : Qt::Key_Escape);
        if (!told.isEmpty())
            script.expectMessage(told);
        accessKey('m');
    });
    const QByteArray sent = "AT+CMGF=1\rAT+CMGS=\"9829012345\"\rJob 321 at 0\rKovrel\x1a";
    QCOMPARE(modem.received(), yes && told.isEmpty() ? sent : QByteArray());
}

void AssignScreenTest::theScreenShowsThatAMessageIsSent()
{
    AssignmentDesk desk;
    desk.set(u"DoneByWorker=1"_s);
    desk.connection.execute(u"update Accounts set Mobile='98290' where id=5"_s);
    SaveSetting(setting::ModemPort, u"1"_s);
    ModalScript script;
    onGarment(script, [&](QWidget &screen) {
        {
            const PseudoTerminal modem;
            script.expectMessage(u"Send SMS Now?"_s);
            accessKey('m');
            QCOMPARE(shown(screen, "notice"), u"The message is being sent..."_s);
            QTRY_VERIFY(!screen.findChild<QLabel *>(u"notice"_s));
        }
        qputenv("CORVANE_MODEM", "/dev/no-such-modem");
        const auto putBack = qScopeGuard([] { qunsetenv("CORVANE_MODEM"); });
        script.expectMessage(u"Send SMS Now?"_s);
        script.expectBox(u"The modem at /dev/no-such-modem is not there: No such file or directory"_s);
        accessKey('m');
        QVERIFY(!screen.findChild<QLabel *>(u"notice"_s));
    });
}

void AssignScreenTest::picturesAreShownOpenedAndPrinted()
{
    AssignmentDesk desk;
    const QString file = desk.folder.filePath(u"cloth's.png"_s);
    QImage cloth(200, 100, QImage::Format_RGB32);
    cloth.fill(Qt::red);
    QVERIFY(cloth.save(file));
    desk.set(u"img2='%1'"_s.arg(QString(file).replace(u'\'', u"''"_s)));
    QString opened;
    shell::replaceOpener([&opened](const QString &path) { opened = path; });
    const QString paper = desk.folder.filePath(u"paper.pdf"_s);
    int jobs = 0;
    printer::replace([&](const printer::Job &job) {
        ++jobs;
        QPdfWriter device(paper);
        device.setPageLayout(job.layout);
        return job.draw(device, 1, job.pageCount);
    });
    const auto putBack = qScopeGuard([] {
        shell::replaceOpener({});
        printer::replace({});
    });
    ModalScript script;
    onGarment(script, [&](QWidget &screen) {
        QVERIFY(!control<PictureBox>(screen, "pic1").hasPicture());
        QVERIFY(control<PictureBox>(screen, "pic2").hasPicture());
        QCOMPARE(control<kvTextBox>(screen, "txtPic1").Text(), QString());
        QCOMPARE(control<kvTextBox>(screen, "txtPic2").Text(), file);
        QTest::mouseDClick(&control<PictureBox>(screen, "pic1"), Qt::LeftButton);
        QCOMPARE(opened, QString());
        QTest::mouseDClick(&control<PictureBox>(screen, "pic2"), Qt::LeftButton);
        QCOMPARE(opened, file);
        opened.clear();
        press(Qt::Key_2, Qt::ControlModifier);
        QCOMPARE(opened, file);
        control<Command>(screen, "Command6").click();
    });
    QCOMPARE(jobs, 1);
    QProcess::execute(u"pdftoppm"_s, {u"-r"_s, u"144"_s, u"-png"_s, u"-singlefile"_s, paper, paper});
    const QImage page(paper + u".png"_s);
    // 100 twips are 10 dots here, a pixel of the picture 1.5.
    const QRect red(10, 10, 300, 150);
    for (const QPoint inside : {red.center(), red.topLeft() + QPoint(2, 2), red.bottomRight() - QPoint(2, 2)})
        QVERIFY(page.pixelColor(inside).red() > 200 && page.pixelColor(inside).green() < 60);
    for (const QPoint outside : {red.topLeft() - QPoint(3, 3), red.bottomRight() + QPoint(3, 3)})
        QCOMPARE(page.pixelColor(outside), QColor(Qt::white));
}

void AssignScreenTest::aPictureThatCannotBePrintedIsTold_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<bool>("hasPath");
    QTest::addColumn<QString>("told");
    QTest::newRow("a text") << u"no picture"_s << true << u"Unsupported image format"_s;
    QTest::newRow("nothing in it") << u""_s << true << u"Unsupported image format"_s;
    QTest::newRow("gone before") << QString() << false << u"There is no picture"_s;
    QTest::newRow("gone meanwhile") << u"gone"_s << true << u"No such file or directory"_s;
    QTest::newRow("no printer") << u"picture"_s << true << u"No printer is set up on this computer"_s;
    QTest::newRow("a printer that fails") << u"picture"_s << true << u"The printer did not take the picture"_s;
}

void AssignScreenTest::aPictureThatCannotBePrintedIsTold()
{
    QFETCH(const QString, content);
    QFETCH(const bool, hasPath);
    QFETCH(const QString, told);
    AssignmentDesk desk;
    const QString path = desk.folder.filePath(u"cloth.png"_s);
    if (content == u"picture") {
        QImage cloth(20, 10, QImage::Format_RGB32);
        cloth.fill(Qt::red);
        QVERIFY(cloth.save(path));
    } else if (!content.isNull()) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content.toUtf8());
    }
    desk.set(u"img1='%1'"_s.arg(path));
    printer::replace([&told](const printer::Job &) {
        return told.startsWith(u"No printer"_s) ? printer::Outcome::NoPrinter : printer::Outcome::Failed;
    });
    const auto putBack = qScopeGuard([] { printer::replace({}); });
    ModalScript script;
    onGarment(script, [&](QWidget &screen) {
        QCOMPARE(control<kvTextBox>(screen, "txtPic1").Text(), hasPath ? path : QString());
        if (content == u"gone")
            QVERIFY(QFile::remove(path));
        script.expectBox(told);
        control<Command>(screen, "Command5").click();
        // Whatever becomes of the picture, the row keeps its path.
        save(script);
    });
    QCOMPARE(desk.stored(u"img1"_s), path);
}

CORVANE_TEST(AssignScreenTest)
#include "tst_frmEditWorkerAssign.moc"
