#include "support/PdfPrinter.h"

#include "devices/printer.h"
#include "support/ModalScript.h"
#include "support/pdfText.h"
#include "support/screenDriver.h"

#include <QLineEdit>
#include <QPdfWriter>

using namespace Qt::StringLiterals;

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

QString offeredPdf(ModalScript &script, QWidget &preview)
{
    QString name;
    script.expect(u"QFileDialog"_s, [&](QWidget &dialog) {
        name = driver::control<QLineEdit>(dialog, "fileNameEdit").text();
        driver::press(Qt::Key_Escape);
        // Without a window manager nobody gives it the keyboard back.
        preview.activateWindow();
    });
    driver::accessKey('s');
    return driver::waitActive(preview) ? name : QString();
}
