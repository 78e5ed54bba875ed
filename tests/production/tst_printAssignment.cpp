#include "production/printAssignment.h"

#include "AssignmentDesk.h"
#include "base/session.h"
#include "reports/qrCode.h"
#include "reports/rptLabel.h"
#include "reports/rptWorkerJobCard.h"
#include "store/settings.h"
#include "support/PdfPrinter.h"
#include "support/fileContent.h"

#include <QFile>
#include <QProcess>

using namespace Qt::StringLiterals;

/// The worker's slip and the label, from the screen to the text on paper.
class PrintAssignmentTest : public QObject {
    Q_OBJECT

private slots:
    void theSlipTellsTheWorkerWhatToMake();
    void measurementsStayBesideTheirNames();
    void theLabelFitsItsPaper();
    void theCodeNamesTheGarment();
    void theSlipIsInHindiWhereTheShopWantsIt();
    void aTableOfTranslationsThatCannotBeReadIsTold();
};

namespace {

struct PrintDesk : AssignmentDesk {
    PrintDesk() { set(u"WorkerID=6, WorkerName='Mohan'"_s); }

    /// Prints the garment by a key of its screen, through the preview, and returns the pages' texts.
    QStringList print(Qt::Key key, Qt::KeyboardModifier modifier, const QString &toldBefore = {})
    {
        onGarment([&](QWidget &, ModalScript &script) {
            if (!toldBefore.isEmpty())
                script.expectMessage(toldBefore);
            script.expect(u"ReportPreview"_s, [&](QWidget &preview) {
                QCOMPARE(preview.windowTitle(), u"Print Preview"_s);
                file = offeredPdf(script, preview);
                driver::accessKey('p');
                driver::press(Qt::Key_Escape);
            });
            driver::press(key, modifier);
        });
        return printer.printed();
    }
    QStringList slip(const QString &toldBefore = {}) { return print(Qt::Key_P, Qt::ControlModifier, toldBefore); }
    QStringList label() { return print(Qt::Key_L, Qt::AltModifier); }

    PdfPrinter printer{folder.filePath(u"paper.pdf"_s)};
    /// What the last one would be called as a file.
    QString file;
};

void compareTexts(const QStringList &pages, const QStringList &texts)
{
    QCOMPARE(pages.size(), 1);
    for (const QString &text : texts)
        QVERIFY2(pages.first().contains(text), qPrintable(text + u" is not in "_s + pages.first()));
}

} // namespace

void PrintAssignmentTest::theSlipTellsTheWorkerWhatToMake()
{
    PrintDesk desk;
    // The setting by which job cards are printed without a preview is not about slips.
    SaveSetting(setting::PrintPreview, u"0"_s);
    compareTexts(desk.slip(),
        {u"Kovrel Tailors"_s, u"JobID: 321 / 2"_s, u"DATE: 01-Apr-2011"_s, u"Delivery Date: 20-Apr-2011"_s,
            u"Worker Name: Mohan"_s, u"Client Name: Asha Rao"_s, u"Item Name: Coat"_s, u"QNT: 2"_s,
            u"Specifications Chest 40 Waist 36 1/2"_s, u"Remark: Grey wool"_s, u"Client Note : Loose"_s});
    QCOMPARE(desk.printer.title(), u"Job Order"_s);
    QCOMPARE(desk.file, u"Slip 321-2 Coat.pdf"_s);
    QCOMPARE(desk.printer.jobs(), 1);
}

void PrintAssignmentTest::measurementsStayBesideTheirNames()
{
    PrintDesk desk;
    const QString longName = u"The length from the collar over the shoulder to the wrist"_s;
    const QString longValue = u"25 with the cuff turned twice, and two fingers more to let out later on"_s;
    desk.set(
        u"ItemDetails='Chest\r\n%1\r\nWaist\r\nHem\r\n\r\nCuff', ItemDetailsValue='40\r\n25\r\n%2\r\n31\r\n\r\n9'"_s
            .arg(longName, longValue));
    compareTexts(desk.slip(), {u"Chest 40 The length"_s, u"25 with the cuff"_s, u"Hem 31 Cuff 9"_s});
}

void PrintAssignmentTest::theLabelFitsItsPaper()
{
    PrintDesk desk;
    const QString name = u"Maharaja Sawai "_s.repeated(3).trimmed();
    desk.set(
        u"ClintName='%1', WorkerName='%1', ItemName='%1', Remarks='Maroon silk with cream lining, %1'"_s.arg(name));
    compareTexts(desk.label(),
        {u"Kovrel Tailors"_s, u"Job Card #: 321 / 2"_s, u"Date : 01-Apr-11"_s, u"Client Name: Maharaja"_s,
            u"Worker Name: Maharaja"_s, u"Item Name: Maharaja"_s,
            u"Remark: Maroon silk with cream lining, Maharaja"_s});
    QCOMPARE(desk.printer.title(), u"Print Label"_s);
    QCOMPARE(desk.file, u"Label 321-2 Coat.pdf"_s);
    QProcess info;
    info.start(u"pdfinfo"_s, {desk.folder.filePath(u"paper.pdf"_s)});
    QVERIFY(info.waitForFinished());
    // 100 by 50 millimetres in points.
    QVERIFY(info.readAllStandardOutput().contains("Page size:       283 x 142 pts"));
}

/// The paper is looked at dot by dot where the layout has the code.
void PrintAssignmentTest::theCodeNamesTheGarment()
{
    for (const bool isLabel : {false, true}) {
        PrintDesk desk;
        isLabel ? desk.label() : desk.slip();
        constexpr int resolution = 288;
        const QString paper = desk.folder.filePath(u"paper.pdf"_s);
        QProcess::execute(
            u"pdftoppm"_s, {u"-r"_s, QString::number(resolution), u"-png"_s, u"-singlefile"_s, paper, paper});
        const QImage page(paper + u".png"_s);

        Report report = isLabel ? rptLabel() : rptWorkerJobCard();
        const int headHeight = isLabel ? 0 : report.section(u"Section2").height();
        const QRect place = report.section(u"Section1")
                                .control(u"code")
                                .place.translated(report.paper().left, report.paper().top + headHeight);
        const QImage code = qrCode(u"321/2"_s);
        // With the quiet margin of four modules around the 21 of so short a text.
        constexpr int modules = 29;
        int differing = 0;
        for (int i = 0; i < modules * modules; ++i) {
            const int line = i / modules;
            const QPointF share((i % modules + 0.5) / modules, (line + 0.5) / modules);
            const QPointF spot = QPointF(place.topLeft()) + share * place.width();
            const bool isPrinted = qGray(page.pixel((spot * resolution / 1440).toPoint())) < 128;
            const bool isGiven = qGray(code.pixel((share * code.width()).toPoint())) < 128;
            differing += isPrinted != isGiven;
        }
        QCOMPARE(differing, 0);
    }
}

void PrintAssignmentTest::theSlipIsInHindiWhereTheShopWantsIt()
{
    const struct {
        QString language;
        QString wanted;
        bool isHindi;
    } cases[]{{u"Hindi"_s, {}, false}, {u"Hindi"_s, u"1"_s, false}, {u"English"_s, u"Yes"_s, false},
        {u"Hindi"_s, u"Yes"_s, true}};
    PrintDesk desk;
    writeLanguageFile(desk.folder.path(),
        {{u"Worker Name:"_s, u"dkjhxj"_s}, {u"Remark:"_s, u"fVIi.kh"_s}, {u"Coat"_s, u"dksV"_s},
            {u"Client Name:"_s, u" "_s}});
    for (const auto &entry : cases) {
        SaveSetting(setting::Language, entry.language);
        // At first it was never asked for.
        if (!entry.wanted.isNull())
            SaveSetting(setting::HindiSlip, entry.wanted);
        // What the table lacks or leaves empty, and what is no caption, stays.
        compareTexts(desk.slip(),
            {entry.isHindi ? u"dkjhxj Mohan"_s : u"Worker Name: Mohan"_s,
                entry.isHindi ? u"fVIi.kh Grey"_s : u"Remark: Grey"_s, u"Client Name: Asha Rao"_s,
                u"Item Name: Coat"_s});
    }
}

void PrintAssignmentTest::aTableOfTranslationsThatCannotBeReadIsTold()
{
    PrintDesk desk;
    SaveSetting(setting::Language, u"Hindi"_s);
    SaveSetting(setting::HindiSlip, u"Yes"_s);
    QFile file(session::programPath(u"Lang.mdb"));
    const QString other = u"The file is not a database of this program, or its password differs."_s;
    for (const QString &told : {u"File not found"_s, other}) {
        if (told == other) {
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(QByteArray("no database ").repeated(100));
            file.close();
        }
        compareTexts(desk.slip(told + u"\r\n"_s + file.fileName()), {u"Worker Name: Mohan"_s, u"Remark: Grey wool"_s});
    }
}

CORVANE_TEST(PrintAssignmentTest)
#include "tst_printAssignment.moc"
