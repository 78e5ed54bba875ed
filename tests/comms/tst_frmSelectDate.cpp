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
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::control;
using driver::press;

/// The screen that asks for the days and the file of the status report.
class ExportScreenTest : public QObject {
    Q_OBJECT

private slots:
    void theDefaultPathIsAmongTheDocuments();
    void aPeriodGoesForwardFromTheFirstDay();
    void theReportIsMadeByKeys();
    void aPathIsBrowsedFor();
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
    ModalScript script;

    void typePath(const QString &text)
    {
        driver::accessKey('h');
        path.selectAll();
        driver::type(text);
    }
    void makesReport()
    {
        script.expectBox(u"Report Created."_s);
        driver::accessKey('e');
        QVERIFY(script.isDone());
    }
    void isRefused(const QString &message, DateField &field)
    {
        script.expectMessage(message);
        driver::accessKey('e');
        QVERIFY(script.isDone());
        QTRY_VERIFY(field.hasFocus());
    }
    [[nodiscard]] QString told() const { return control<QLabel>(*this, "lblPath").text(); }
};

} // namespace

void ExportScreenTest::theDefaultPathIsAmongTheDocuments()
{
    TestShop shop;
    const QTemporaryDir home;
    const QByteArray before = qgetenv("HOME");
    qputenv("HOME", QFile::encodeName(home.path()));
    const auto back = qScopeGuard([&before] { qputenv("HOME", before); });
    // Where there is no such folder, the home folder itself.
    QCOMPARE(Export().path.Text(), home.filePath(u"data.xml"_s));
    QVERIFY(QDir(home.path()).mkdir(u"Documents"_s));
    QCOMPARE(Export().path.Text(), home.filePath(u"Documents/data.xml"_s));
}

void ExportScreenTest::aPeriodGoesForwardFromTheFirstDay()
{
    TestShop shop;
    session::CurrentDate = {2012, 1, 31};
    Export screen;
    QCOMPARE(screen.period.currentText(), u"1 Month"_s);
    QCOMPARE(screen.from.date(), QDate(2012, 1, 31));
    QCOMPARE(screen.to.date(), QDate(2012, 2, 29));
    screen.from.setFocus();
    driver::type(u"31/8/2011"_s);
    driver::accessKey('p');
    // Typed alone, the first day moves nothing.
    QCOMPARE(screen.to.date(), QDate(2012, 2, 29));
    press(Qt::Key_Home);
    QStringList ends{screen.to.date().toString(Qt::ISODate)};
    for (int more = 1; more < screen.period.count(); ++more) {
        press(Qt::Key_Down);
        ends += screen.to.date().toString(Qt::ISODate);
    }
    QCOMPARE(ends.join(u' '), u"2011-09-01 2011-09-15 2011-09-30 2011-10-31 2011-11-30 2012-02-29 2012-08-31"_s);
    QCOMPARE(screen.from.date(), QDate(2011, 8, 31));
    // From a day that is none there is no period.
    screen.from.setFocus();
    driver::type(u"31/6/2011"_s);
    driver::accessKey('p');
    screen.script.expectMessage(u"\"31/6/2011\" is not a date!"_s);
    press(Qt::Key_Home);
    QTRY_VERIFY(screen.from.hasFocus());
    QCOMPARE(screen.period.currentText(), u"1 Year"_s);
    QCOMPARE(screen.to.date(), QDate(2012, 8, 31));
    // A refused last day is in no period's way: it gives way.
    driver::type(u"30/6/2011\t31/6/2011"_s);
    driver::accessKey('p');
    press(Qt::Key_Home);
    QCOMPARE(screen.to.date(), QDate(2011, 7, 1));
}

void ExportScreenTest::theReportIsMadeByKeys()
{
    TestShop shop;
    for (const int day : {9, 10, 11})
        shop.addJob({.number = day, .date = {2011, 4, day}});
    Export screen;
    const QString file = shop.folder.filePath(u"status report.xml"_s);
    screen.typePath(file);
    screen.from.setFocus();
    driver::type(u"10/4/11"_s);
    press(Qt::Key_Tab);
    driver::type(u"10/4/11"_s);
    screen.script.expectBox(u"Report Created."_s);
    press(Qt::Key_Return);
    QVERIFY(screen.script.isDone());
    QVERIFY(screen.isVisible());
    const QByteArray report = contentOf(file);
    QCOMPARE(report.count("<jobcard id="), 1);
    QVERIFY(report.contains("<jobcard id=\"10\""));
    // Once more, over it, without a question.
    screen.makesReport();
    // Silent where it fails.
    screen.typePath(shop.folder.filePath(u"nowhere/data.xml"_s));
    driver::accessKey('e');
    QVERIFY(driver::waitActive(screen));
    QCOMPARE(contentOf(file), report);
}

void ExportScreenTest::aPathIsBrowsedFor()
{
    TestShop shop;
    Export screen;
    screen.script.expect(u"QFileDialog"_s, [&shop](QWidget &) {
        driver::type(shop.folder.filePath(u"other"_s));
        press(Qt::Key_Return);
    });
    driver::accessKey('b');
    QVERIFY(screen.script.isDone());
    QCOMPARE(screen.path.Text(), shop.folder.filePath(u"other.xml"_s));
    // A choice writes nothing.
    QVERIFY(!QFileInfo::exists(screen.path.Text()));
}

void ExportScreenTest::daysThatAreNoneMakeNoReport()
{
    TestShop shop;
    Export screen;
    screen.typePath(shop.folder.filePath(u"data.xml"_s));
    screen.to.setDate(screen.from.date().addDays(-1));
    screen.isRefused(u"Invalid Dates!"_s, screen.to);
    driver::type(u"31/2/11"_s);
    screen.isRefused(u"\"31/2/11\" is not a date!"_s, screen.to);
    QCOMPARE(contentOf(screen.path.Text()), "nothing"_ba);
    // One day is a range.
    screen.to.setDate(screen.from.date());
    screen.makesReport();
    QVERIFY(contentOf(screen.path.Text()).endsWith("</jobcards>\r\n"));
}

void ExportScreenTest::whatStandsAtThePathIsToldBefore()
{
    TestShop shop;
    Export screen;
    screen.typePath(shop.path());
    QCOMPARE(screen.told(), u"That is the shop's own file. No report can be made."_s);
    screen.typePath(shop.folder.filePath(u"new.xml"_s));
    QCOMPARE(screen.told(), QString());
    screen.makesReport();
    QCOMPARE(screen.told(), u"The file that is there will be replaced."_s);
    // It is looked at again when the screen comes to the front.
    screen.to.setFocus();
    driver::type(u"31/6/2011"_s);
    screen.script.expect(u"frmMsg"_s, [&](QWidget &) {
        QVERIFY(QFile::remove(screen.path.Text()));
        press(Qt::Key_Return);
    });
    driver::accessKey('e');
    QVERIFY(screen.script.isDone());
    QCOMPARE(screen.told(), QString());
}

CORVANE_TEST(ExportScreenTest)
#include "tst_frmSelectDate.moc"
