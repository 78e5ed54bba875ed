#include "comms/frmSelectDate.h"

#include "base/session.h"
#include "support/ModalScript.h"
#include "support/TestShop.h"
#include "support/fileContent.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/DateField.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"

#include <QDir>
#include <QLabel>
#include <QStandardPaths>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::control;
using driver::press;

/// The screen that asks for the days and the file of the status report.
class ExportScreenTest : public QObject {
    Q_OBJECT

private slots:
    void itBeginsWithAMonth();
    void theDefaultPathIsAPlaceThatIsThere();
    void aPeriodGoesForwardFromTheFirstDay_data();
    void aPeriodGoesForwardFromTheFirstDay();
    void theReportIsMadeByKeys();
    void daysThatAreNoneMakeNoReport();
    void whatStandsAtThePathIsToldBefore();
};

namespace {

struct Export : frmSelectDate {
    Export() { QVERIFY(driver::show(*this)); }

    DateField &from = control<DateField>(*this, "DateFrom");
    DateField &to = control<DateField>(*this, "DateTo");
    kvComboBox &period = control<kvComboBox>(*this, "cmbPeriod");
    kvTextBox &path = control<kvTextBox>(*this, "Text1");

    void typePath(const QString &text)
    {
        driver::accessKey('h');
        path.selectAll();
        driver::type(text);
    }
    [[nodiscard]] QString told() const { return control<QLabel>(*this, "lblPath").text(); }
};

} // namespace

void ExportScreenTest::itBeginsWithAMonth()
{
    TestShop shop;
    session::CurrentDate = {2012, 1, 31};
    Export screen;
    QCOMPARE(screen.windowTitle(), u"Export Job Card Status Report"_s);
    QCOMPARE(driver::entries(screen.period).join(u'|'), u"1 Day|1 Week|1 Month|2 Months|3 Months|6 Months|1 Year"_s);
    QCOMPARE(screen.period.currentText(), u"1 Month"_s);
    QCOMPARE(screen.from.date(), QDate(2012, 1, 31));
    QCOMPARE(screen.to.date(), QDate(2012, 2, 29));
    press(Qt::Key_Escape);
    QVERIFY(!screen.isVisible());
}

void ExportScreenTest::theDefaultPathIsAPlaceThatIsThere()
{
    TestShop shop;
    Export screen;
    const QFileInfo path(screen.path.Text());
    QCOMPARE(path.fileName(), u"data.xml"_s);
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QCOMPARE(path.absolutePath(), QFileInfo::exists(documents) ? documents : QDir::homePath());
}

void ExportScreenTest::aPeriodGoesForwardFromTheFirstDay_data()
{
    QTest::addColumn<QString>("period");
    QTest::addColumn<QDate>("to");
    QTest::newRow("day") << u"1 Day"_s << QDate(2011, 9, 1);
    QTest::newRow("week") << u"1 Week"_s << QDate(2011, 9, 15);
    QTest::newRow("month") << u"1 Month"_s << QDate(2011, 9, 30);
    QTest::newRow("two") << u"2 Months"_s << QDate(2011, 10, 31);
    QTest::newRow("three") << u"3 Months"_s << QDate(2011, 11, 30);
    QTest::newRow("half a year") << u"6 Months"_s << QDate(2012, 2, 29);
    QTest::newRow("year") << u"1 Year"_s << QDate(2012, 8, 31);
}

void ExportScreenTest::aPeriodGoesForwardFromTheFirstDay()
{
    QFETCH(const QString, period);
    TestShop shop;
    Export screen;
    screen.from.setFocus();
    driver::type(u"31/8/2011"_s);
    driver::accessKey('p');
    // Typed alone, the first day moves nothing.
    QCOMPARE(screen.to.date(), QDate(2011, 5, 1));
    press(Qt::Key_End);
    while (screen.period.currentText() != period)
        press(Qt::Key_Up);
    QTEST(screen.to.date(), "to");
    QCOMPARE(screen.from.date(), QDate(2011, 8, 31));
}

void ExportScreenTest::theReportIsMadeByKeys()
{
    TestShop shop;
    for (const int day : {9, 10, 11})
        shop.addJob({.number = day, .date = {2011, 4, day}});
    Export screen;
    ModalScript script;
    const QString file = shop.folder.filePath(u"status report.xml"_s);
    screen.typePath(file);
    screen.from.setFocus();
    driver::type(u"10/4/11"_s);
    press(Qt::Key_Tab);
    driver::type(u"10/4/11"_s);
    script.expectBox(u"Report Created."_s);
    press(Qt::Key_Return);
    QVERIFY(script.isDone());
    QVERIFY(screen.isVisible());
    const QByteArray report = contentOf(file);
    QCOMPARE(report.count("<jobcard id="), 1);
    QVERIFY(report.contains("<jobcard id=\"10\""));
    // Once more, over it, without a question.
    script.expectBox(u"Report Created."_s);
    driver::accessKey('e');
    QVERIFY(script.isDone());
    // Silent where it fails.
    screen.typePath(shop.folder.filePath(u"nowhere/data.xml"_s));
    driver::accessKey('e');
    QVERIFY(driver::waitActive(screen));
    QCOMPARE(contentOf(file), report);
}

void ExportScreenTest::daysThatAreNoneMakeNoReport()
{
    TestShop shop;
    Export screen;
    ModalScript script;
    screen.typePath(shop.folder.filePath(u"data.xml"_s));
    screen.to.setDate(screen.from.date().addDays(-1));
    script.expectMessage(u"Invalid Dates!"_s);
    driver::accessKey('e');
    QVERIFY(script.isDone());
    QVERIFY(screen.to.hasFocus());
    driver::type(u"31/2/11"_s);
    script.expectMessage(u"\"31/2/11\" is not a date!"_s);
    driver::accessKey('e');
    QVERIFY(script.isDone());
    QCOMPARE(contentOf(screen.path.Text()), "nothing"_ba);
    // One day is a range.
    screen.to.setDate(screen.from.date());
    script.expectBox(u"Report Created."_s);
    driver::accessKey('e');
    QVERIFY(script.isDone());
    QVERIFY(contentOf(screen.path.Text()).endsWith("</jobcards>\r\n"));
}

void ExportScreenTest::whatStandsAtThePathIsToldBefore()
{
    TestShop shop;
    Export screen;
    ModalScript script;
    screen.typePath(shop.path());
    QCOMPARE(screen.told(), u"That is the shop's own file. No report can be made."_s);
    screen.typePath(shop.folder.filePath(u"new.xml"_s));
    QCOMPARE(screen.told(), QString());
    script.expectBox(u"Report Created."_s);
    driver::accessKey('e');
    QVERIFY(script.isDone());
    QCOMPARE(screen.told(), u"The file that is there will be replaced."_s);
}

CORVANE_TEST(ExportScreenTest)
#include "tst_frmSelectDate.moc"
