#include "reports/ReportPreview.h"

#include "base/safeFile.h"
#include "devices/printer.h"
#include "reports/PageView.h"
#include "reports/reportOutput.h"
#include "support/ModalScript.h"
#include "support/PdfPrinter.h"
#include "support/pdfText.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPdfWriter>
#include <QScopeGuard>
#include <QScrollBar>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// The preview and the ways out of it, by keys.
class ReportPreviewTest : public QObject {
    Q_OBJECT

private slots:
    void keysTurnThePages();
    void keysGoThroughTheListedSizes();
    void aPageIsReadToItsEndBeforeItIsTurned();
    void thePrinterGetsAllPages();
    void aPrintThatIsBrokenOffIsNotBegun();
    void whatStopsAPrintIsTold();
    void aPdfIsSavedWhereTheUserSays();
    void aPdfIsCalledWhatItIs();
    void aPdfGoesWhereTheLastOneWent();
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

void ReportPreviewTest::keysTurnThePages()
{
    ReportPreview preview(threePages());
    QVERIFY(driver::show(preview));
    const auto &page = control<QLabel>(preview, "lblPage");
    const auto &view = control<PageView>(preview, "pages");
    QCOMPARE(preview.windowTitle(), u"Print Preview"_s);
    QCOMPARE(view.pageCount(), 3);
    QCOMPARE(page.text(), u"Page 1 of 3"_s);
    // The whole page is in sight.
    QCOMPARE(control<QComboBox>(preview, "cmbZoom").currentText(), u"Whole Page"_s);
    QCOMPARE(view.verticalScrollBar()->maximum(), 0);
    press(Qt::Key_PageUp);
    QCOMPARE(page.text(), u"Page 1 of 3"_s);
    press(Qt::Key_PageDown);
    QCOMPARE(page.text(), u"Page 2 of 3"_s);
    press(Qt::Key_PageUp, Qt::ControlModifier);
    QCOMPARE(page.text(), u"Page 1 of 3"_s);
    press(Qt::Key_PageDown, Qt::ControlModifier);
    QCOMPARE(page.text(), u"Page 2 of 3"_s);
    press(Qt::Key_End);
    press(Qt::Key_PageDown);
    QCOMPARE(page.text(), u"Page 3 of 3"_s);
    QCOMPARE(view.currentPage(), 3);
    press(Qt::Key_Home);
    QCOMPARE(view.currentPage(), 1);
    for (const auto &[command, number] :
        {std::pair("cmdLast", 3), std::pair("cmdPrevious", 2), std::pair("cmdNext", 3), std::pair("cmdFirst", 1)}) {
        QTest::mouseClick(&control<QWidget>(preview, command), Qt::LeftButton);
        QCOMPARE(view.currentPage(), number);
    }
    press(Qt::Key_Escape);
    QVERIFY(!preview.isVisible());
}

void ReportPreviewTest::keysGoThroughTheListedSizes()
{
    ReportPreview preview(threePages());
    QVERIFY(driver::show(preview));
    const auto &view = control<PageView>(preview, "pages");
    auto &zoom = control<QComboBox>(preview, "cmbZoom");
    const QStringList listed = driver::entries(zoom).mid(2);
    const auto goThrough = [&](Qt::Key key) {
        QStringList sizes;
        for (qsizetype i = 0; i <= listed.size(); ++i) {
            press(key);
            if (sizes.isEmpty() || sizes.last() != zoom.currentText())
                sizes += zoom.currentText();
        }
        return sizes;
    };
    const double whole = view.zoomFactor();
    press(Qt::Key_Plus);
    QVERIFY(view.zoomFactor() > whole);
    const qsizetype first = listed.indexOf(zoom.currentText());
    QVERIFY(first > 0 && listed.at(first - 1).chopped(1).toInt() <= whole * 100);
    QCOMPARE(goThrough(Qt::Key_Plus), listed.mid(first + 1));
    QStringList down = listed.mid(0, listed.size() - 1);
    std::ranges::reverse(down);
    QCOMPARE(goThrough(Qt::Key_Minus), down);
    QCOMPARE(qRound(view.zoomFactor() * 100), 25);
    zoom.setFocus();
    press(Qt::Key_End);
    QCOMPARE(zoom.currentText(), u"400%"_s);
    QCOMPARE(qRound(view.zoomFactor() * 100), 400);
}

void ReportPreviewTest::aPageIsReadToItsEndBeforeItIsTurned()
{
    ReportPreview preview(threePages());
    QVERIFY(driver::show(preview));
    auto &view = control<PageView>(preview, "pages");
    QVERIFY(view.hasFocus());
    view.setFit(PageView::Fit::Width);
    const QScrollBar &bar = *view.verticalScrollBar();
    QVERIFY(bar.maximum() > 0);
    press(Qt::Key_Down);
    QVERIFY(bar.value() > 0);
    press(Qt::Key_Up);
    QCOMPARE(bar.value(), 0);
    int steps = 0;
    while (bar.value() < bar.maximum() && steps < 9) {
        const int before = bar.value();
        press(Qt::Key_PageDown);
        ++steps;
        QVERIFY(bar.value() > before && bar.value() <= before + view.viewport()->height());
        QCOMPARE(view.currentPage(), 1);
    }
    press(Qt::Key_PageDown);
    QCOMPARE(view.currentPage(), 2);
    QCOMPARE(bar.value(), 0);
    press(Qt::Key_PageUp);
    QCOMPARE(view.currentPage(), 1);
    QCOMPARE(bar.value(), bar.maximum());
    for (; steps > 0; --steps)
        press(Qt::Key_PageUp);
    QCOMPARE(bar.value(), 0);
    press(Qt::Key_PageUp);
    QCOMPARE(bar.value(), 0);
}

void ReportPreviewTest::thePrinterGetsAllPages()
{
    const QTemporaryDir folder;
    const PdfPrinter printer(folder.filePath(u"paper.pdf"_s));
    ReportPreview preview(threePages());
    QVERIFY(driver::show(preview));
    accessKey('p');
    QCOMPARE(printer.title(), u"Three Pages"_s);
    QCOMPARE(printer.printed(), (QStringList{u"This is page 1"_s, u"This is page 2"_s, u"This is page 3"_s}));
    reportOutput::print(threePages());
    QCOMPARE(printer.jobs(), 2);
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

void ReportPreviewTest::whatStopsAPrintIsTold()
{
    const auto putBack = qScopeGuard([] { printer::replace({}); });
    for (const auto &[outcome, told] :
        {std::pair{printer::Outcome::NoPrinter,
             u"No Printer Found!\r\nPlease set up a printer on this computer and print again."_s},
            {printer::Outcome::Failed, u"Printing has been Failed.\r\nPlease check the printer and print again."_s},
            {printer::Outcome::Cancelled, QString()}}) {
        printer::replace([outcome = outcome](const printer::Job &) { return outcome; });
        ReportPreview preview(threePages());
        QVERIFY(driver::show(preview));
        for (const bool atOnce : {true, false}) {
            ModalScript script;
            if (!told.isEmpty())
                script.expectMessage(told);
            atOnce ? reportOutput::print(threePages()) : accessKey('p');
            QTRY_VERIFY(script.isDone());
            QVERIFY(preview.isVisible());
        }
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
        // Asked again, with what was typed.
        script.expect(u"QFileDialog"_s, [&](QWidget &dialog) {
            QCOMPARE(control<QLineEdit>(dialog, "fileNameEdit").text(), u"taken.pdf"_s);
            type(folder.filePath(u"free"_s));
            press(Qt::Key_Return);
        });
        script.expectMessage(
            u"PDF file has been saved.\r\n"_s + QDir::toNativeSeparators(folder.filePath(u"free.pdf"_s)));
        accessKey('s');
        QVERIFY(script.isDone());
    }
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), (QStringList{u"card.pdf"_s, u"free.pdf"_s}));
}

void ReportPreviewTest::aPdfIsCalledWhatItIs()
{
    for (const auto &[name, file] : {std::pair{u"Job Card 322 Asha Rao"_s, u"Job Card 322 Asha Rao.pdf"_s},
             {u"Slip 1/2 <A:B>\\\"C\" *?|\n"_s, u"Slip 1_2 _A_B___C_ ____.pdf"_s}, {QString(), u"Three Pages.pdf"_s},
             {u"Job Card 1 \u0905"_s + QString(300, QChar(0x0905)),
                 u"Job Card 1 "_s + QString(63, QChar(0x0905)) + u".pdf"_s}}) {
        ReportPreview preview(ReportPages(
            u"Three Pages"_s, {11906, 16838}, 1, [](int) { return ReportPages::Page(); }, name));
        QVERIFY(driver::show(preview));
        ModalScript script;
        QCOMPARE(offeredPdf(script, preview), file);
    }
}

void ReportPreviewTest::aPdfGoesWhereTheLastOneWent()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(u"prints"_s));
    const QString prints = folder.filePath(u"prints"_s);
    const auto offered = [](const QString &typed) {
        ReportPreview preview(threePages());
        QString where;
        if (!driver::show(preview))
            return where;
        ModalScript script;
        script.expect(u"QFileDialog"_s, [&](QWidget &dialog) {
            where = dynamic_cast<QFileDialog &>(dialog).directory().path();
            if (!typed.isEmpty())
                type(typed);
            press(typed.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
        });
        if (!typed.isEmpty())
            script.expectMessage(u"PDF file has been saved.\r\n"_s + QDir::toNativeSeparators(typed) + u".pdf"_s);
        accessKey('s');
        return where;
    };
    const QString atFirst = offered(prints + u"/one"_s);
    QVERIFY(QDir(atFirst).exists());
    QCOMPARE(offered({}), prints);
    // On a stick that is no longer there.
    QVERIFY(QDir(prints).removeRecursively());
    QCOMPARE(offered({}), atFirst);
}

CORVANE_TEST(ReportPreviewTest)
#include "tst_ReportPreview.moc"
