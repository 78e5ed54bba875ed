#include "reports/reportOutput.h"

#include "base/RuntimeError.h"
#include "devices/printer.h"
#include "reports/ReportPages.h"
#include "ui/fileChoice.h"
#include "ui/frmMsg.h"

#include <QDir>
#include <QPageLayout>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

void tell(printer::Outcome outcome)
{
    if (outcome == printer::Outcome::NoPrinter)
        ShowMessage(u"No Printer Found!\r\nPlease set up a printer on this computer and print again."_s);
    else if (outcome == printer::Outcome::Failed)
        ShowMessage(u"Printing has been Failed.\r\nPlease check the printer and print again."_s);
}

/// Calls `way` with the job that prints `pages`.
template <typename Way>
void printBy(const ReportPages &pages, Way way)
{
    const QPageLayout layout = pages.pageLayout();
    tell(way(
        printer::Job{pages.title(), pages.count(), layout, [&pages](QPagedPaintDevice &device, int first, int last) {
                         switch (pages.drawWhole(device, first, last)) {
                         case ReportPages::Drawn::Whole: return printer::Outcome::Printed;
                         case ReportPages::Drawn::Broken: return printer::Outcome::Cancelled;
                         case ReportPages::Drawn::Failed: break;
                         }
                         return printer::Outcome::Failed;
                     }}));
}

} // namespace

void reportOutput::print(const ReportPages &pages)
{
    printBy(pages, printer::print);
}

void reportOutput::askAndPrint(const ReportPages &pages, QWidget *parent)
{
    printBy(pages, [parent](const printer::Job &job) { return printer::askAndPrint(job, parent); });
}

void reportOutput::saveAsPdf(const ReportPages &pages)
{
    const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    const QString path = fileChoice::save(
        u"Save as PDF"_s, documents.filePath(pages.title() + u".pdf"_s), u"PDF files (*.pdf)"_s, u"pdf"_s);
    if (path.isEmpty())
        return;
    try {
        if (pages.savePdf(path) == ReportPages::Drawn::Whole)
            ShowMessage(u"PDF file has been saved.\r\n"_s + QDir::toNativeSeparators(path));
    } catch (const RuntimeError &error) {
        ShowMessage(
            u"The PDF file cannot be written there!\r\n"_s + QDir::toNativeSeparators(path) + u"\r\n"_s + error.text());
    }
}
