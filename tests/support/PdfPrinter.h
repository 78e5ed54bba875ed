#pragma once

#include <QStringList>

class ModalScript;
class QWidget;

/// Takes the place of the machine's printers: what is printed goes into a PDF file, at once and nothing asked.
class PdfPrinter {
public:
    /// `path` is where each job's paper goes.
    explicit PdfPrinter(const QString &path);
    ~PdfPrinter();
    Q_DISABLE_COPY_MOVE(PdfPrinter)

    [[nodiscard]] int jobs() const { return m_jobs; }
    [[nodiscard]] const QString &title() const { return m_title; }
    /// Texts on the pages of the last job, blanks put together.
    [[nodiscard]] QStringList printed() const;

private:
    QString m_path;
    QString m_title;
    int m_jobs = 0;
};

/// The name that "Save as PDF" offers in the preview, which is in front. Nothing is saved.
[[nodiscard]] QString offeredPdf(ModalScript &script, QWidget &preview);
