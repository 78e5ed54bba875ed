#pragma once

#include "reports/ReportPages.h"
#include "reports/ReportSection.h"

/// A banded report: sections of controls, filled from the rows of a recordset and laid out on as many pages as it
/// takes. A layout is a function that makes one (see rptJOBCARD); a caller then sets its labels and lays it out
/// (`layOut`).
class Report {
public:
    /// A4 upright; width and margins in twips.
    struct Paper {
        QSize size{11906, 16838};
        int left = 1129;
        int top = 720;
        int bottom = 600;
    };

    /// `title` names the print job. Without `details` each row of the source is a detail. With it, each row
    /// is a group whose details are the rows of its child of that name.
    Report(const QString &title, const Paper &paper, const QString &details = {});

    /// Adds a section; at most one of each kind. The reference is good as long as the report. `height` in twips.
    ReportSection &add(ReportSection::Kind kind, const QString &name, int height);
    /// A section by name, without regard to case. Throws RuntimeError (ItemNotFound).
    [[nodiscard]] ReportSection &section(QStringView name);

    [[nodiscard]] const QString &title() const { return m_title; }
    /// What a file of it is called, in the user's words and without a suffix; the title unless it is set.
    void setFileName(const QString &name) { m_fileName = name; }
    [[nodiscard]] const QString &fileName() const { return m_fileName.isEmpty() ? m_title : m_fileName; }
    [[nodiscard]] const Paper &paper() const { return m_paper; }

private:
    friend class ReportFlow;
    [[nodiscard]] const ReportSection *find(ReportSection::Kind kind) const;

    QString m_title;
    QString m_fileName;
    Paper m_paper;
    QString m_details;
    std::deque<ReportSection> m_sections;
};
