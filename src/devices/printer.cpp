#include "devices/printer.h"

#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

namespace printer {

namespace {

std::function<Outcome(const Job &)> &replacement()
{
    static std::function<Outcome(const Job &)> printer;
    return printer;
}

void prepare(QPrinter &printer, const Job &job)
{
    printer.setDocName(job.title);
    printer.setFullPage(true);
    printer.setPageLayout(job.layout);
}

Outcome run(QPrinter &printer, const Job &job)
{
    const bool some = printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0;
    const int first = some ? printer.fromPage() : 1;
    const int last = some ? qMin(printer.toPage(), job.pageCount) : job.pageCount;
    return job.draw(printer, first, last);
}

} // namespace

Outcome print(const Job &job)
{
    if (replacement())
        return replacement()(job);
    const QPrinterInfo usual = QPrinterInfo::defaultPrinter();
    if (usual.isNull())
        return Outcome::NoPrinter;
    QPrinter printer(usual, QPrinter::HighResolution);
    prepare(printer, job);
    return run(printer, job);
}

Outcome askAndPrint(const Job &job, QWidget *parent)
{
    if (replacement())
        return replacement()(job);
    if (QPrinterInfo::availablePrinterNames().isEmpty())
        return Outcome::NoPrinter;
    QPrinter printer(QPrinter::HighResolution);
    prepare(printer, job);
    QPrintDialog dialog(&printer, parent);
    dialog.setMinMax(1, job.pageCount);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    if (dialog.exec() != QDialog::Accepted)
        return Outcome::Cancelled;
    return run(printer, job);
}

void replace(std::function<Outcome(const Job &)> replacementPrinter)
{
    replacement() = std::move(replacementPrinter);
}

} // namespace printer
