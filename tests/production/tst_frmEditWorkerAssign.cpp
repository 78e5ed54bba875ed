#include "production/frmEditWorkerAssign.h"

#include "AssignmentDesk.h"
#include "base/session.h"
#include "devices/printer.h"
#include "devices/shell.h"
#include "pictures/PictureBox.h"
#include "store/settings.h"
#include "support/PdfPrinter.h"
#include "support/PseudoTerminal.h"
#include "ui/Command.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"
#include "ui/kvTextBoxMultiLine.h"

#include <QCheckBox>
#include <QFile>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QRadioButton>
#include <QScopeGuard>

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
    void theStatusIsSavedWithItsDay();
    void wages();
    void aRowThatIsGoneIsTold();
    void aWorkerWhoIsGoneIsTold();
    void workerDetailsStayHidden();
    void theRatingFollowsTheWorker();
    void theClientIsToldWhenAllIsFinished();
    void picturesAreShownOpenedAndPrinted();
    void aPictureThatCannotBePrintedIsTold();
};

namespace {

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

void save(ModalScript &script, const QString &answer = u"Job Assign."_s)
{
    script.expectMessage(answer);
    press(Qt::Key_S, Qt::ControlModifier);
}

kvComboBox &workersIn(const QWidget &screen)
{
    return control<kvComboBox>(screen, "cmbWorker");
}

void chooseWorker(const QWidget &screen, const QString &typed)
{
    workersIn(screen).setFocus();
    workersIn(screen).lineEdit()->selectAll();
    type(typed);
}

void click(QWidget &control)
{
    QTest::mouseClick(&control, Qt::LeftButton);
}

QString redPicture(const AssignmentDesk &desk, const QString &name)
{
    const QString path = desk.folder.filePath(name);
    QImage cloth(200, 100, QImage::Format_RGB32);
    cloth.fill(Qt::red);
    [&] { QVERIFY(cloth.save(path)); }();
    return path;
}

} // namespace

void AssignScreenTest::allThatIsKnownOfTheGarmentIsShown()
{
    AssignmentDesk desk;
    desk.addJobRow({.job = 300, .worker = 8, .date = {2011, 3, 1}});
    desk.set(u"WorkerID=6, DoneByWorker=3, AltDate=#10-Apr-2011#, CompletedDate=#9-Apr-2011#, CuttingStatus=1, "
             "MarkAsPaid=1, Loc='Rack 3', WorkerWagesDue=125.5, Color=255"_s);
    onGarment([](QWidget &screen, ModalScript &) {
        QCOMPARE(driver::entries(workersIn(screen)).join(u'|'), u"NA|Mohan|Mohini|Sita"_s);
        QCOMPARE(workersIn(screen).Text(), u"Mohan"_s);
        QStringList labels;
        for (const char *name : {"txtClient", "txtJOBID", "txtItemName", "txtQuantity", "lblBookDate", "lblDelDate",
                 "lblDateCompleted", "lbldateAlt", "lblDateDeltoCust", "lblLastJob"})
            labels += shown(screen, name);
        QCOMPARE(labels.join(u'|'),
            u"Asha Rao|321|Coat|2|01-Apr-2011|20-Apr-2011|09-Apr-2011|10-Apr-2011||"
            "Last Job ID # 300\r\nDate : 01-Mar-2011\r\nJob done by : Sita"_s);
        QStringList lines;
        for (const char *name : {"txtCap", "txtSize", "txtRemark", "txtClientRemark"})
            lines += control<kvTextBoxMultiLine>(screen, name).Text();
        QCOMPARE(lines.join(u'|'), u"Chest\r\nWaist|40\r\n36 1/2|Grey wool|Loose"_s);
        QCOMPARE(control<kvTextBox>(screen, "txtLoc").Text(), u"Rack 3"_s);
        QCOMPARE(statusShown(screen), u"opAlt"_s);
        QVERIFY(control<QCheckBox>(screen, "chCutting").isChecked());
        QVERIFY(control<QCheckBox>(screen, "chMarkasPaid").isChecked());
        QCOMPARE(control<QLabel>(screen, "picColor").grab().toImage().pixelColor(30, 14), QColor(255, 0, 0));
        QVERIFY(screen.width() <= 1366 && screen.height() <= 730);
    });
    QVERIFY(!session::NeedRefresh);
}

void AssignScreenTest::aGarmentIsAssignedByKeys()
{
    AssignmentDesk desk;
    const QString location = u"Asha's \"rack\" 3"_s;
    onGarment([&](QWidget &screen, ModalScript &script) {
        QCOMPARE(workersIn(screen).Text(), u"NA"_s);
        // Worker, status, cutting and its day, location, its button, wages, paid.
        for (const char *keys : {"sit\r", "\t", " \r", "9\r", "asha's \"rack\" 3\r", "\r", "125.5.0x\r", " "}) {
            if (*keys == '\t') {
                press(Qt::Key_Down);
                press(Qt::Key_Return);
            } else {
                type(QString::fromLatin1(keys));
            }
        }
        save(script);
        QVERIFY(screen.isVisible());
        QVERIFY(session::NeedRefresh);
        QCOMPARE(shown(screen, "lblDateCompleted"), u"11-Apr-2011"_s);
        QCOMPARE(desk.stored(everything), u"8|Sita|1|11-Apr-2011|1|09-Apr-2011|125.5|1|"_s + location);
        control<QWidget>(screen, "DtCutting").setFocus();
        type(u"31/4"_s);
        save(script, u"\"31/4\" is not a date!"_s);
        press(Qt::Key_Escape);

        // Saved again the next day, with the cutting off and no worker.
        session::CurrentDate = {2011, 4, 12};
        chooseWorker(screen, u"na"_s);
        click(control<QCheckBox>(screen, "chCutting"));
        script.expectMessage(u"Job Assign."_s);
        accessKey('s');
        QCOMPARE(desk.stored(everything), u"0|Sita|1|12-Apr-2011|0|09-Apr-2011|125.5|1|"_s + location);
    });
    // The one made row of its job is not delivered.
    QCOMPARE(desk.count(u"JOBS"_s), 0);
}

void AssignScreenTest::theStatusIsSavedWithItsDay()
{
    const struct {
        const char *option;
        const char *label;
        QString stored;
    } cases[]{{"opUcom", nullptr, u"0|||"_s}, {"opCom", "lblDateCompleted", u"1|%1||"_s},
        {"opDel", "lblDateDeltoCust", u"2||%1|"_s}, {"opAlt", "lbldateAlt", u"3|||%1"_s}};
    for (const auto &entry : cases) {
        AssignmentDesk desk;
        desk.addJobRow({});
        desk.set(u"DoneByWorker=4"_s);
        const QString other = desk.stored(u"*"_s, 2);
        onGarment([&](QWidget &screen, ModalScript &script) {
            // A cancelled one stays so until another state is chosen.
            QCOMPARE(statusShown(screen), u"canceled"_s);
            chooseWorker(screen, u"sita"_s);
            save(script);
            QCOMPARE(desk.stored(u"DoneByWorker, WorkerID"_s), u"4|8"_s);
            click(control<QRadioButton>(screen, entry.option));
            for (const QString &day : {u"11-Apr-2011"_s, u"12-Apr-2011"_s}) {
                session::CurrentDate = QLocale::c().toDate(day, u"dd-MMM-yyyy"_s);
                save(script);
                if (entry.label)
                    QCOMPARE(shown(screen, entry.label), day);
                QCOMPARE(desk.stored(u"DoneByWorker, CompletedDate, DelToCustDate, AltDate"_s),
                    QString(entry.stored).replace(u"%1"_s, day));
            }
            QVERIFY(!control<QWidget>(screen, "canceled").isVisible());
        });
        QCOMPARE(desk.stored(u"*"_s, 2), other);
        onGarment([&entry](QWidget &screen, ModalScript &) {
            QCOMPARE(statusShown(screen), QString::fromLatin1(entry.option));
        });
    }
}

void AssignScreenTest::wages()
{
    const struct {
        bool pasted;
        QString given;
        /// Nothing where they are refused.
        QString stored;
    } cases[]{{false, u"1e9-"_s, u"19"_s}, {false, u"."_s, u"0"_s}, {true, u"1,000,000,000"_s, u"1000000000"_s},
        {true, u"1,000,000,001"_s, {}}, {false, u"123456789012"_s, {}}};
    AssignmentDesk desk;
    onGarment([&](QWidget &screen, ModalScript &script) {
        auto &field = control<kvTextBox>(screen, "txtWagesDue");
        for (const auto &[pasted, given, stored] : cases) {
            const QString before = desk.stored(u"WorkerWagesDue"_s);
            field.setFocus();
            field.selectAll();
            pasted ? driver::paste(given) : type(given);
            // What is wrong is brought into sight.
            press(Qt::Key_W, Qt::ControlModifier);
            save(script, stored.isEmpty() ? u"Wages Due is not a valid amount!"_s : u"Job Assign."_s);
            QCOMPARE(field.hasFocus(), stored.isEmpty());
            QCOMPARE(desk.stored(u"WorkerWagesDue"_s), stored.isEmpty() ? before : stored);
            if (!field.isVisible())
                press(Qt::Key_W, Qt::ControlModifier);
        }
    });
}

void AssignScreenTest::aRowThatIsGoneIsTold()
{
    AssignmentDesk desk;
    const QString gone = u"This item is no longer on its job card!"_s;
    {
        ModalScript script;
        script.expectMessage(gone);
        frmEditWorkerAssign().ShowEdit(2);
    }
    onGarment([&](QWidget &screen, ModalScript &script) {
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
    onGarment([&](QWidget &screen, ModalScript &script) {
        desk.connection.execute(u"update Accounts set Title='Mohan Lal' where id=6"_s);
        save(script, u"This worker is no longer there!\r\nPlease select another one. Nothing has been saved."_s);
        QVERIFY(workersIn(screen).hasFocus());
        QCOMPARE(desk.stored(u"*"_s), before);
        // The list has the new name.
        type(u"mohan l"_s);
        save(script);
    });
    QCOMPARE(desk.stored(u"WorkerID, WorkerName"_s), u"6|Mohan Lal"_s);
    // A shop without workers can save that nobody has it.
    desk.connection.execute(u"Delete * from Accounts where type=1"_s);
    onGarment([](QWidget &screen, ModalScript &script) {
        QCOMPARE(driver::entries(workersIn(screen)), QStringList{u"NA"_s});
        QCOMPARE(workersIn(screen).Text(), QString());
        save(script, u"Please Select Worker Name!"_s);
        type(u"na"_s);
        save(script);
    });
    QCOMPARE(desk.stored(u"WorkerID"_s), u"0"_s);
}

void AssignScreenTest::workerDetailsStayHidden()
{
    AssignmentDesk desk;
    const auto areShown = [](const QWidget &screen) {
        const bool visible = control<QGroupBox>(screen, "fWorkerDetails").isVisible();
        return visible && control<Command>(screen, "lblHideShow").text() == u"Hide Worker Details"_s;
    };
    onGarment([&](QWidget &screen, ModalScript &script) {
        QVERIFY(areShown(screen));
        click(control<Command>(screen, "lblHideShow"));
        save(script);
    });
    // What is hidden is saved as it was.
    QCOMPARE(desk.stored(u"WorkerWagesDue"_s), u"300"_s);
    onGarment([&](QWidget &screen, ModalScript &) {
        QVERIFY(!areShown(screen));
        press(Qt::Key_W, Qt::ControlModifier);
        QVERIFY(areShown(screen));
        QCOMPARE(GetSetting(setting::ShowWorkerDetails), u"1"_s);
    });
}

void AssignScreenTest::theRatingFollowsTheWorker()
{
    AssignmentDesk desk;
    int row = 1;
    for (const auto &[worker, score] : {std::pair{6, 4}, {6, 1}, {8, 7}}) {
        desk.addJobRow({.job = 9, .client = 1, .worker = worker});
        desk.set(u"Score=%1"_s.arg(score), ++row);
    }
    desk.set(u"WorkerID=7"_s);
    onGarment([](QWidget &screen, ModalScript &script) {
        const auto rating = [&screen] {
            const auto &stars = control<QLabel>(screen, "imgStars");
            return shown(screen, "lblAvgScorer") + u'|'
                + (stars.pixmap().isNull() ? QString() : stars.accessibleName());
        };
        QCOMPARE(rating(), u"Overall Ratting : 0|0 of 5 stars"_s);
        script.expect(u"frmFeedBack"_s, [&script](QWidget &) {
            type(u"5"_s);
            script.expectMessage(u"Feedback saved!"_s);
            accessKey('o');
            press(Qt::Key_Escape);
        });
        accessKey('f');
        QCOMPARE(rating(), u"Overall Ratting : 5|5 of 5 stars"_s);
        chooseWorker(screen, u"sita"_s);
        QCOMPARE(rating(), u"Overall Ratting : 7|"_s);
        chooseWorker(screen, u"na"_s);
        QCOMPARE(rating(), u"Overall Ratting : 7|"_s);
        press(Qt::Key_Down);
        QCOMPARE(rating(), u"Overall Ratting : 2|2 of 5 stars"_s);
        // The list.
        press(Qt::Key_Escape);
    });
    QCOMPARE(desk.stored(u"Score"_s), u"5"_s);
}

void AssignScreenTest::theClientIsToldWhenAllIsFinished()
{
    const QString open = u"All jobs not completed!"_s;
    const QString failed = u"\r\nSMS Sending has been Failed."_s;
    const QString mobile = u"98290 12345"_s;
    const struct {
        int secondRow;
        Qt::Key answer;
        QString mobile;
        QString port;
        QString told;
    } cases[]{{0, Qt::Key_Return, mobile, u"3"_s, open}, {2, Qt::Key_Return, {}, {}, open},
        {1, Qt::Key_Escape, {}, {}, {}}, {1, Qt::Key_Return, {}, {}, u"Mobile Number Not Found!"_s + failed},
        {1, Qt::Key_Return, mobile, {}, u"Modem Com Port Error!"_s + failed}, {1, Qt::Key_Return, mobile, u"3"_s, {}}};
    for (const auto &entry : cases) {
        AssignmentDesk desk;
        desk.set(u"DoneByWorker=1"_s);
        desk.addJobRow({.job = 321, .status = entry.secondRow});
        // What is bought does not count.
        desk.addJobRow({.job = 321, .inventory = true});
        desk.connection.execute(u"update Accounts set Mobile='%1' where id=5"_s.arg(entry.mobile));
        SaveSetting(setting::ModemPort, entry.port);
        SaveSetting(setting::CompletedSms, u"Job %eid% at %amount%"_s);
        SaveSetting(setting::SmsTitle, u"Kovrel"_s);
        const PseudoTerminal modem;
        onGarment([&entry](QWidget &screen, ModalScript &script) {
            if (entry.secondRow == 1)
                script.expectMessage(u"Send SMS Now?"_s, entry.answer);
            if (!entry.told.isEmpty())
                script.expectMessage(entry.told);
            accessKey('m');
            if (entry.port.isEmpty() || entry.secondRow != 1)
                return;
            QCOMPARE(shown(screen, "notice"), u"The message is being sent..."_s);
            QTRY_VERIFY(!screen.findChild<QLabel *>(u"notice"_s));
        });
        const bool isSent = entry.answer == Qt::Key_Return && entry.told.isEmpty();
        const QByteArray sent = "AT+CMGF=1\rAT+CMGS=\"9829012345\"\rJob 321 at 0\rKovrel\x1a";
        QCOMPARE(modem.received(), isSent ? sent : QByteArray());
    }
}

void AssignScreenTest::picturesAreShownOpenedAndPrinted()
{
    AssignmentDesk desk;
    const QString file = redPicture(desk, u"cloth's.png"_s);
    desk.set(u"img2='%1'"_s.arg(QString(file).replace(u'\'', u"''"_s)));
    QString opened;
    shell::replaceOpener([&opened](const QString &path) { opened = path; });
    const auto putBack = qScopeGuard([] { shell::replaceOpener({}); });
    const QString paper = desk.folder.filePath(u"paper.pdf"_s);
    const PdfPrinter printer(paper);
    onGarment([&](QWidget &screen, ModalScript &) {
        QVERIFY(!control<PictureBox>(screen, "pic1").hasPicture());
        QVERIFY(control<PictureBox>(screen, "pic2").hasPicture());
        press(Qt::Key_1, Qt::ControlModifier);
        QCOMPARE(opened, QString());
        press(Qt::Key_2, Qt::ControlModifier);
        QCOMPARE(opened, file);
        control<Command>(screen, "Command6").click();
    });
    QCOMPARE(printer.jobs(), 1);
    QProcess::execute(u"pdftoppm"_s, {u"-r"_s, u"144"_s, u"-png"_s, u"-singlefile"_s, paper, paper});
    const QImage page(paper + u".png"_s);
    // 100 twips are 10 dots here, a pixel of the picture 1.5.
    const QRect red(10, 10, 300, 150);
    for (const QPoint inside : {red.topLeft() + QPoint(2, 2), red.bottomRight() - QPoint(2, 2)})
        QVERIFY(page.pixelColor(inside).green() < 60);
    for (const QPoint outside : {red.topLeft() - QPoint(3, 3), red.bottomRight() + QPoint(3, 3)})
        QCOMPARE(page.pixelColor(outside), QColor(Qt::white));
}

void AssignScreenTest::aPictureThatCannotBePrintedIsTold()
{
    enum Picture { Empty, Good, GoneBefore };
    const struct {
        Picture picture;
        printer::Outcome outcome;
        QString told;
    } cases[]{{Empty, printer::Outcome::Failed, u"Unsupported image format"_s},
        {GoneBefore, printer::Outcome::Failed, u"There is no picture"_s},
        {Good, printer::Outcome::NoPrinter, u"No printer is set up on this computer"_s},
        {Good, printer::Outcome::Failed, u"The printer did not take the picture"_s}};
    const auto putBack = qScopeGuard([] { printer::replace({}); });
    for (const auto &[picture, outcome, told] : cases) {
        AssignmentDesk desk;
        const QString path = redPicture(desk, u"cloth.png"_s);
        if (picture != Good)
            QVERIFY(picture == Empty ? QFile::resize(path, 0) : QFile::remove(path));
        desk.set(u"img1='%1'"_s.arg(path));
        printer::replace([outcome = outcome](const printer::Job &) { return outcome; });
        onGarment([&told = told](QWidget &screen, ModalScript &script) {
            script.expectBox(told);
            control<Command>(screen, "Command5").click();
            // Whatever becomes of the picture, the row keeps its path.
            save(script);
        });
        QCOMPARE(desk.stored(u"img1"_s), path);
    }
}

CORVANE_TEST(AssignScreenTest)
#include "tst_frmEditWorkerAssign.moc"
