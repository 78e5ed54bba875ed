#pragma once

#include "reports/ReportControl.h"

#include <deque>

/// A named band of a report with its controls.
class ReportSection {
public:
    /// Report head and foot print once, page head and foot on every page. A group head and foot stand around the
    /// details of each record of the source; the head is repeated where its group flows on to a further page.
    enum class Kind { ReportHead, PageHead, GroupHead, Detail, GroupFoot, PageFoot, ReportFoot };

    ReportSection(Kind kind, const QString &name, int height);

    [[nodiscard]] Kind kind() const { return m_kind; }
    [[nodiscard]] const QString &name() const { return m_name; }
    [[nodiscard]] int height() const { return m_height; }
    [[nodiscard]] const std::deque<ReportControl> &controls() const { return m_controls; }
    [[nodiscard]] std::deque<ReportControl> &controls() { return m_controls; }

    /// Adds a control. The reference is good as long as the section. A caption without a name is a label without one.
    ReportControl &label(const QString &name, const QRect &place, const QString &text = {});
    ReportControl &caption(const QString &text, const QRect &place) { return label({}, place, text); }
    ReportControl &field(const QString &name, const QString &column, const QRect &place);
    ReportControl &picture(const QString &name, const QRect &place);
    /// Horizontal where it is wider than high. A vertical one stretches with what stands beside it, as a frame does.
    ReportControl &line(const QRect &place);
    ReportControl &frame(const QRect &place);

    /// A control by name, without regard to case. Throws RuntimeError (ItemNotFound).
    [[nodiscard]] ReportControl &control(QStringView name);
    /// Sets the text of a label.
    void setText(QStringView name, const QString &text) { control(name).text = text; }
    /// Loads the picture file `path`. Throws RuntimeError: FileNotFound, or FileFault where it holds no picture.
    void setPicture(QStringView name, const QString &path);

private:
    ReportControl &add(ReportControl::Kind kind, const QString &name, const QRect &place);

    Kind m_kind;
    QString m_name;
    int m_height;
    /// References to controls outlive additions.
    std::deque<ReportControl> m_controls;
};
