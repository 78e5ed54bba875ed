#include "reports/ReportPreview.h"

#include "base/safeFile.h"
#include "devices/printer.h"
#include "reports/PageView.h"
#include "reports/reportOutput.h"
#include "support/ModalScript.h"
#include "support/pdfText.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPdfWriter>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// The preview and the ways out of it, by keys.
class ReportPreviewTest : public QObject {
    Q_OBJECT

private slots:
    void keysTurnAndZoom();
    void thePrinterGetsAllPages();
    void aPrintThatIsBrokenOffIsNotBegun();
    void whatStopsAPrintIsTold_data();
    void whatStopsAPrintIsTold();
    void aPdfIsSavedWhereTheUserSays();
};

namespace {

ReportPages threePages()
{
    return ReportPages(u"Three Pages"_s, {11906, 16838}, 3, [](int index) {
        ReportPages::Item item{.kind = ReportPages::Item::Kind::Text, .place = {1000, 1000, 4000, 300}};
        item.text = u"This is page %1"_s.arg(index + 1);
        item.font = ReportPages::font(10, QFont::Normal, false);
        return ReportPages::Page{item};
    });
}

} // namespace

void ReportPreviewTest::keysTurnAndZoom()
{
    ReportPreview preview(threePages());
    QVERIFY(driver::show(preview));
    const auto &page = control<QLabel>(preview, "lblPage");
    const auto &view = control<PageView>(preview, "pages");
    QCOMPARE(preview.windowTitle(), u"Print Preview"_s);
    QCOMPARE(view.pageCount(), 3);
    QCOMPARE(page.text(), u"Page 1 of 3"_s);
    press(Qt::Key_PageUp);
    QCOMPARE(page.text(), u"Page 1 of 3"_s);
    press(Qt::Key_PageDown);
    QCOMPARE(page.text(), u"Page 2 of 3"_s);
    press(Qt::Key_End);
    press(Qt::Key_PageDown);
    QCOMPARE(page.text(), u"Page 3 of 3"_s);
    QCOMPARE(view.currentPage(), 3);
    press(Qt::Key_Home);
    QCOMPARE(view.currentPage(), 1);

    const double before = view.zoomFactor();
    press(Qt::Key_Plus);
    QVERIFY(view.zoomFactor() > before);
    for (int i = 0; i < 40; ++i)
        press(Qt::Key_Plus);
    QVERIFY(view.zoomFactor() <= 4.01);
    for (int i = 0; i < 40; ++i)
        press(Qt::Key_Minus);
    QVERIFY(view.zoomFactor() >= 0.24);
    auto &zoom = control<QComboBox>(preview, "cmbZoom");
    zoom.setFocus();
    press(Qt::Key_End);
    QCOMPARE(zoom.currentText(), u"400%"_s);
    QCOMPARE(qRound(view.zoomFactor() * 100), 400);
    press(Qt::Key_Escape);
    QVERIFY(!preview.isVisible());
}

void ReportPreviewTest::thePrinterGetsAllPages()
{
    const QTemporaryDir folder;
    const QString paper = folder.filePath(u"paper.pdf"_s);
    QStringList titles;
    printer::replace([&](const printer::Job &job) {
        titles += job.title;
        QPdfWriter device(paper);
        device.setPageLayout(job.layout);
        return job.draw(device, 1, job.pageCount);
    });
    const auto putBack = qScopeGuard([] { printer::replace({}); });

    ReportPreview preview(threePages());
    QVERIFY(driver::show(preview));
    accessKey('p');
    QCOMPARE(titles, QStringList{u"Three Pages"_s});
    const QStringList read = pdfText(paper);
    QCOMPARE(read.size(), 3);
    QVERIFY(read.at(2).contains(u"This is page 3"_s));

    reportOutput::print(threePages());
    QCOMPARE(titles.size(), 2);
}

void ReportPreviewTest::aPrintThatIsBrokenOffIsNotBegun()
{
    const QTemporaryDir folder;
    const QString paper = folder.filePath(u"paper.pdf"_s);
    QList<printer::Outcome> outcomes;
    printer::replace([&](const printer::Job &job) {
        QPdfWriter device(paper);
        outcomes += job.draw(device, 1, job.pageCount);
        return outcomes.last();
    });
    const auto putBack = qScopeGuard([] { printer::replace({}); });
    ReportPreview preview(threePages());
    QVERIFY(driver::show(preview));
    // What a printer has is printed: of a long job it has nothing before it has all.
    ModalScript script;
    script.expect(u"QProgressDialog"_s, [](QWidget &) { press(Qt::Key_Escape); });
    reportOutput::print(ReportPages(u"Many"_s, {11906, 16838}, 100000, [](int) { return ReportPages::Page(); }));
    QCOMPARE(outcomes, QList{printer::Outcome::Cancelled});
    QVERIFY(!QFile::exists(paper));

    reportOutput::print(ReportPages(u"Some"_s, {11906, 16838}, 42, [](int) { return ReportPages::Page(); }));
    QCOMPARE(outcomes.last(), printer::Outcome::Printed);
    QCOMPARE(pdfText(paper).size(), 42);
}

void ReportPreviewTest::whatStopsAPrintIsTold_data()
{
    QTest::addColumn<int>("outcome");
    QTest::addColumn<QString>("told");
    QTest::newRow("no printer") << static_cast<int>(printer::Outcome::NoPrinter)
                                << u"No Printer Found!\r\nPlease set up a printer on this computer and print again."_s;
    QTest::newRow("failed") << static_cast<int>(printer::Outcome::Failed)
                            << u"Printing has been Failed.\r\nPlease check the printer and print again."_s;
    QTest::newRow("cancelled") << static_cast<int>(printer::Outcome::Cancelled) << QString();
}

void ReportPreviewTest::whatStopsAPrintIsTold()
{
    QFETCH(int, outcome);
    QFETCH(QString, told);
    printer::replace([outcome](const printer::Job &) { return static_cast<printer::Outcome>(outcome); });
    const auto putBack = qScopeGuard([] { printer::replace({}); });
    for (const bool atOnce : {true, false}) {
        ReportPreview preview(threePages());
        QVERIFY(driver::show(preview));
        ModalScript script;
        if (!told.isEmpty())
            script.expectMessage(told);
        if (atOnce)
            reportOutput::print(threePages());
        else
            accessKey('p');
        QTRY_VERIFY(script.isDone());
        QVERIFY(preview.isVisible());
    }
}

void ReportPreviewTest::aPdfIsSavedWhereTheUserSays()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"card.pdf"_s);
    ReportPreview preview(threePages());
    QVERIFY(driver::show(preview));
    const auto answerWith = [](const QString &text) {
        return [text](QWidget &) {
            type(text);
            press(Qt::Key_Return);
        };
    };
    {
        ModalScript script;
        script.expect(u"QFileDialog"_s, answerWith(folder.filePath(u"card"_s)));
        script.expectMessage(u"PDF file has been saved.\r\n"_s + QDir::toNativeSeparators(file));
        accessKey('s');
    }
    QCOMPARE(pdfText(file).size(), 3);
    {
        ModalScript script;
        script.expect(u"QFileDialog"_s, [](QWidget &) { press(Qt::Key_Escape); });
        accessKey('s');
    }
    {
        const UnfinishedFile other(folder.filePath(u"taken.pdf"_s));
        ModalScript script;
        script.expect(u"QFileDialog"_s, answerWith(folder.filePath(u"taken"_s)));
        QVERIFY(driver::waitActive(preview));
        script.expectMessage(u"The PDF file cannot be written there!\r\n"_s
            + QDir::toNativeSeparators(folder.filePath(u"taken.pdf"_s))
            + u"\r\nThe file is in use by another program."_s);
        accessKey('s');
    }
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

CORVANE_TEST(ReportPreviewTest)
#include "tst_ReportPreview.moc"
