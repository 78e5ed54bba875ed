#include "reports/Report.h"

#include "base/RuntimeError.h"

#include <algorithm>

Report::Report(const QString &title, const Paper &paper, const QString &details)
    : m_title(title), m_paper(paper), m_details(details)
{
}

ReportSection &Report::add(ReportSection::Kind kind, const QString &name, int height)
{
    Q_ASSERT(!find(kind));
    return m_sections.emplace_back(kind, name, height);
}

ReportSection &Report::section(QStringView name)
{
    const auto found = std::ranges::find_if(m_sections,
        [name](const ReportSection &section) { return name.compare(section.name(), Qt::CaseInsensitive) == 0; });
    if (found == m_sections.end())
        throw RuntimeError(Fault::ItemNotFound, name.toString());
    return *found;
}

const ReportSection *Report::find(ReportSection::Kind kind) const
{
    const auto found = std::ranges::find(m_sections, kind, &ReportSection::kind);
    return found == m_sections.end() ? nullptr : &*found;
}
