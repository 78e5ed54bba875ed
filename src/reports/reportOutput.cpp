#include "reports/reportOutput.h"

#include "base/RuntimeError.h"
#include "devices/printer.h"
#include "reports/ReportPages.h"
#include "ui/fileChoice.h"
#include "ui/frmMsg.h"
#include "ui/userValues.h"

#include <QDir>
#include <QFileInfo>
#include <QPageLayout>
#include <QRegularExpression>
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

const auto folderKey = u"Folders/Pdf"_s;

/// On whatever disk the file is kept or taken to.
QString asFileName(QString text)
{
    // Disks count bytes and take 255; the file has a longer name while it is written.
    constexpr qsizetype most = 200;
    static const QRegularExpression notAllowed(uR"([\\/:*?"<>|\x00-\x1f\x7f])"_s);
    text.replace(notAllowed, u"_"_s);
    while (text.toUtf8().size() > most)
        text.chop(text.back().isLowSurrogate() ? 2 : 1);
    return text.trimmed() + u".pdf"_s;
}

QDir folderToOffer()
{
    for (const QString &folder : {userValues().value(folderKey).toString(),
             QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)}) {
        if (!folder.isEmpty() && QFileInfo(folder).isDir())
            return QDir(folder);
    }
    return QDir::home();
}

/// False where the file cannot be written: the user was told.
bool writePdf(const ReportPages &pages, const QString &path)
{
    try {
        if (pages.savePdf(path) == ReportPages::Drawn::Whole)
            ShowMessage(u"PDF file has been saved.\r\n"_s + QDir::toNativeSeparators(path));
        return true;
    } catch (const RuntimeError &error) {
        ShowMessage(
            u"The PDF file cannot be written there!\r\n"_s + QDir::toNativeSeparators(path) + u"\r\n"_s + error.text());
        return false;
    }
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
    QString path = folderToOffer().filePath(asFileName(pages.fileName()));
    do {
        path = fileChoice::save(u"Save as PDF"_s, path, u"PDF files (*.pdf)"_s, u"pdf"_s);
        if (path.isEmpty())
            return;
    } while (!writePdf(pages, path));
    userValues().setValue(folderKey, QFileInfo(path).path());
}
