#include "reports/ReportSection.h"

#include "base/RuntimeError.h"

#include <QFileInfo>

#include <algorithm>

ReportSection::ReportSection(Kind kind, const QString &name, int height) : m_kind(kind), m_name(name), m_height(height)
{
}

ReportControl &ReportSection::add(ReportControl::Kind kind, const QString &name, const QRect &place)
{
    return m_controls.emplace_back(ReportControl{.kind = kind, .name = name, .place = place});
}

ReportControl &ReportSection::label(const QString &name, const QRect &place, const QString &text)
{
    ReportControl &control = add(ReportControl::Kind::Label, name, place);
    control.text = text;
    return control;
}

ReportControl &ReportSection::field(const QString &name, const QString &column, const QRect &place)
{
    ReportControl &control = add(ReportControl::Kind::Field, name, place);
    control.text = column;
    return control;
}

ReportControl &ReportSection::picture(const QString &name, const QRect &place)
{
    return add(ReportControl::Kind::Picture, name, place);
}

ReportControl &ReportSection::line(const QRect &place)
{
    return add(ReportControl::Kind::Line, {}, place);
}

ReportControl &ReportSection::frame(const QRect &place)
{
    return add(ReportControl::Kind::Frame, {}, place);
}

ReportControl &ReportSection::control(QStringView name)
{
    const auto found = std::ranges::find_if(m_controls,
        [name](const ReportControl &control) { return name.compare(control.name, Qt::CaseInsensitive) == 0; });
    if (found == m_controls.end())
        throw RuntimeError(Fault::ItemNotFound, m_name + u'.' + name.toString());
    return *found;
}

void ReportSection::setPicture(QStringView name, const QString &path)
{
    ReportControl &target = control(name);
    if (!QFileInfo::exists(path))
        throw RuntimeError(Fault::FileNotFound, path);
    if (!target.picture.load(path))
        throw RuntimeError(Fault::FileFault, QStringLiteral("The file is not a picture that can be shown."), path);
}
