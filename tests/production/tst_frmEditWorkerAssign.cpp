#include "production/frmEditWorkerAssign.h"

#include "AssignmentDesk.h"
#include "base/session.h"
#include "devices/printer.h"
#include "devices/shell.h"
#include "pictures/PictureBox.h"
#include "store/settings.h"
#include "support/PseudoTerminal.h"
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
    void whatIsTypedSelectsTheFirstWorkerThatBeginsSo();
    void theStatusIsSavedWithItsDay();
    void wages();
    void aLocationOfAnyLengthIsKept();
    void whatIsNoDateIsNotSaved();
    void aRowThatIsGoneIsTold();
    void aWorkerWhoIsGoneIsTold();
    void workerDetailsStayHidden();
    void theRatingFollowsTheWorker();
    void feedbackIsGivenForTheGarment();
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

void paste(kvTextBox &field, const QString &text)
{
    field.setFocus();
    field.selectAll();
    QApplication::clipboard()->setText(text);
    press(Qt::Key_V, Qt::ControlModifier);
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
    onGarment([&desk](QWidget &screen, ModalScript &script) {
        QCOMPARE(workersIn(screen).Text(), u"NA"_s);
        // Worker, status, cutting and its day, location, its button, wages, paid.
        for (const char *keys : {"sit\r", "\t", " \r", "9\r", "rack 3\r", "\r", "125.5.0x\r", " "}) {
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
        QCOMPARE(desk.stored(everything), u"8|Sita|1|11-Apr-2011|1|09-Apr-2011|125.5|1|Rack 3"_s);

        // Saved again the next day, with the cutting off and no worker.
        session::CurrentDate = {2011, 4, 12};
        chooseWorker(screen, u"na"_s);
        click(control<QCheckBox>(screen, "chCutting"));
        script.expectMessage(u"Job Assign."_s);
        accessKey('s');
        QCOMPARE(desk.stored(everything), u"0|Sita|1|12-Apr-2011|0|09-Apr-2011|125.5|1|Rack 3"_s);
    });
    // The one made row of its job is not delivered.
    QCOMPARE(desk.count(u"JOBS"_s), 0);
}

void AssignScreenTest::whatIsTypedSelectsTheFirstWorkerThatBeginsSo()
{
    // Backspace takes the rest, which typing has added, away again.
    const std::pair<QString, QString> cases[]{{u"MOH\b"_s, u"6|Mohan"_s}, {u"mohi\b"_s, u"7|Mohini"_s},
        {u"mohini"_s, u"7|Mohini"_s}, {u"n\b"_s, u"0|"_s}, {u"\b"_s, {}}};
    for (const auto &entry : cases) {
        AssignmentDesk desk;
        const QString before = desk.stored(u"*"_s);
        const bool isNobody = entry.second.isEmpty();
        session::NeedRefresh = false;
        onGarment([&](QWidget &screen, ModalScript &script) {
            type(entry.first);
            save(script, isNobody ? u"Please Select Worker Name!"_s : u"Job Assign."_s);
            QCOMPARE(workersIn(screen).hasFocus(), isNobody);
        });
        if (isNobody)
            QCOMPARE(desk.stored(u"*"_s), before);
        else
            QCOMPARE(desk.stored(u"WorkerID, WorkerName"_s), entry.second);
        QCOMPARE(session::NeedRefresh, !isNobody);
    }
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
    } cases[]{{false, u"1e9-"_s, u"19"_s}, {false, u"."_s, u"0"_s}, {false, {}, u"0"_s},
        {true, u"1,000,000,000"_s, u"1000000000"_s}, {true, u"1,000,000,001"_s, {}}, {false, u"123456789012"_s, {}},
        {true, u"1,250"_s, u"1250"_s}, {true, u"1e400"_s, u"1250"_s}};
    AssignmentDesk desk;
    onGarment([&](QWidget &screen, ModalScript &script) {
        auto &field = control<kvTextBox>(screen, "txtWagesDue");
        for (const auto &entry : cases) {
            const QString before = desk.stored(u"WorkerWagesDue"_s);
            field.setFocus();
            field.selectAll();
            if (entry.pasted) {
                paste(field, entry.given);
            } else {
                press(Qt::Key_Backspace);
                type(entry.given);
            }
            // What is wrong is brought into sight.
            press(Qt::Key_W, Qt::ControlModifier);
            const bool isRefused = entry.stored.isEmpty();
            save(script, isRefused ? u"Wages Due is not a valid amount!"_s : u"Job Assign."_s);
            QCOMPARE(field.hasFocus(), isRefused);
            QCOMPARE(desk.stored(u"WorkerWagesDue"_s), isRefused ? before : entry.stored);
            if (!field.isVisible())
                press(Qt::Key_W, Qt::ControlModifier);
        }
    });
}

void AssignScreenTest::aLocationOfAnyLengthIsKept()
{
    AssignmentDesk desk;
    for (const QString &location : {QString(10'000, u'x'), u"   "_s, u"Asha's \"rack\" | 3"_s, QString()}) {
        onGarment([&location](QWidget &screen, ModalScript &script) {
            control<kvTextBox>(screen, "txtLoc").setText({});
            paste(control<kvTextBox>(screen, "txtLoc"), location);
            save(script);
        });
        QCOMPARE(desk.stored(u"Loc"_s), location);
        onGarment([&location](QWidget &screen, ModalScript &) {
            QCOMPARE(control<kvTextBox>(screen, "txtLoc").Text(), location);
        });
    }
}

void AssignScreenTest::whatIsNoDateIsNotSaved()
{
    AssignmentDesk desk;
    const QString before = desk.stored(u"*"_s);
    onGarment([](QWidget &screen, ModalScript &script) {
        auto &date = control<DateField>(screen, "DtCutting");
        date.setFocus();
        type(u"31/4"_s);
        save(script, u"\"31/4\" is not a date!"_s);
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
        const QString caption = control<Command>(screen, "lblHideShow").text();
        const bool visible = control<QGroupBox>(screen, "fWorkerDetails").isVisible();
        return caption == (visible ? u"Hide Worker Details"_s : u"Show Worker Details"_s) && visible;
    };
    onGarment([&](QWidget &screen, ModalScript &script) {
        QVERIFY(areShown(screen));
        click(control<Command>(screen, "lblHideShow"));
        QVERIFY(!areShown(screen));
        QCOMPARE(GetSetting(setting::ShowWorkerDetails), u"0"_s);
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
    onGarment([](QWidget &screen, ModalScript &) {
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
        QCOMPARE(workersIn(screen).Text(), u"Moha"_s);
        QCOMPARE(rating(), u"Overall Ratting : 0|0 of 5 stars"_s);
        // The list.
        press(Qt::Key_Escape);
    });
}

void AssignScreenTest::feedbackIsGivenForTheGarment()
{
    AssignmentDesk desk;
    desk.set(u"WorkerID=6"_s);
    onGarment([](QWidget &screen, ModalScript &script) {
        QCOMPARE(shown(screen, "lblAvgScorer"), u"Overall Ratting : 0"_s);
        script.expect(u"frmFeedBack"_s, [&script](QWidget &) {
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
            const QByteArray port = qgetenv("CORVANE_MODEM");
            qputenv("CORVANE_MODEM", "/dev/no-such-modem");
            script.expectMessage(u"Send SMS Now?"_s);
            script.expectBox(u"The modem at /dev/no-such-modem is not there: No such file or directory"_s);
            accessKey('m');
            QVERIFY(!screen.findChild<QLabel *>(u"notice"_s));
            qputenv("CORVANE_MODEM", port);
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
    onGarment([&](QWidget &screen, ModalScript &) {
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

void AssignScreenTest::aPictureThatCannotBePrintedIsTold()
{
    enum Picture { Empty, Good, GoneBefore, GoneMeanwhile };
    const struct {
        Picture picture;
        printer::Outcome outcome;
        QString told;
    } cases[]{{Empty, printer::Outcome::Failed, u"Unsupported image format"_s},
        {GoneBefore, printer::Outcome::Failed, u"There is no picture"_s},
        {GoneMeanwhile, printer::Outcome::Failed, u"No such file or directory"_s},
        {Good, printer::Outcome::NoPrinter, u"No printer is set up on this computer"_s},
        {Good, printer::Outcome::Failed, u"The printer did not take the picture"_s}};
    const auto putBack = qScopeGuard([] { printer::replace({}); });
    for (const auto &entry : cases) {
        AssignmentDesk desk;
        const QString path = redPicture(desk, u"cloth.png"_s);
        if (entry.picture == Empty)
            QVERIFY(QFile::resize(path, 0));
        else if (entry.picture == GoneBefore)
            QVERIFY(QFile::remove(path));
        desk.set(u"img1='%1'"_s.arg(path));
        printer::replace([&entry](const printer::Job &) { return entry.outcome; });
        onGarment([&](QWidget &screen, ModalScript &script) {
            QCOMPARE(control<kvTextBox>(screen, "txtPic1").Text(), entry.picture == GoneBefore ? QString() : path);
            if (entry.picture == GoneMeanwhile)
                QVERIFY(QFile::remove(path));
            script.expectBox(entry.told);
            control<Command>(screen, "Command5").click();
            // Whatever becomes of the picture, the row keeps its path.
            save(script);
        });
        QCOMPARE(desk.stored(u"img1"_s), path);
    }
}

CORVANE_TEST(AssignScreenTest)
#include "tst_frmEditWorkerAssign.moc"
