#include "support/PdfPrinter.h"

#include "devices/printer.h"
#include "support/pdfText.h"

#include <QPdfWriter>

PdfPrinter::PdfPrinter(const QString &path) : m_path(path)
{
    printer::replace([this](const printer::Job &job) {
        ++m_jobs;
        m_title = job.title;
        QPdfWriter device(m_path);
        device.setPageLayout(job.layout);
        return job.draw(device, 1, job.pageCount);
    });
}

PdfPrinter::~PdfPrinter()
{
    printer::replace({});
}

QStringList PdfPrinter::printed() const
{
    QStringList pages = pdfText(m_path);
    for (QString &page : pages)
        page = page.simplified();
    return pages;
}
