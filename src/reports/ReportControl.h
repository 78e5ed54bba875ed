#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QRect>
#include <QString>

/// One control of a report section: what it shows, where, and how.
///
/// Places and sizes are in twips, 1/1440 inch; `place` counts from the section's top left corner. A text that has more
/// lines than its place holds pushes everything below it down, and the section grows by as much; so does a wrapped one.
/// A single line too wide for its place is set smaller until it fits. Nothing is ever cut off.
struct ReportControl {
    enum class Kind { Label, Field, Picture, Line, Frame };
    /// How a field's value is put. A value that isn't of the format's kind stands as it is; Null prints nothing.
    /// The dates are "01-Apr-2011", "01-Apr-11" and "1-Apr-11".
    enum class Format { Plain, DayMonthYear, DayMonthShortYear, ShortDayMonthShortYear, Money, MoneyGrouped };

    Kind kind;
    QString name;
    QRect place;
    /// Of a label: its text; in page heads and feet "%p" and "%P" stand for the page and the number of pages.
    /// Of a field: the column of the record, or "child.column".
    QString text = {};
    Format format = Format::Plain;
    Qt::Alignment alignment = Qt::AlignLeft;
    double pointSize = 10;
    QFont::Weight weight = QFont::Normal;
    bool slanted = false;
    /// Where a text is not in the font of all reports.
    QString family = {};
    /// Breaks into lines at the place's width.
    bool wraps = false;
    /// The name of a control of the same section, with a font of the same size, that it stands level with: where a line
    /// of one is broken, the other waits with its next. Captions stay beside their values so.
    QString levelWith = {};
    QColor ink = Qt::black;
    /// Of a frame: its ground; none where invalid. A frame with a ground has no edge.
    QColor ground = {};
    /// Of a line or a frame's edge.
    int thickness = 10;
    bool dashed = false;
    QImage picture = {};

    /// Changes that read as one sentence in a layout: `head.label(..).points(9).right()`.
    ReportControl &points(double size) { return pointSize = size, *this; }
    ReportControl &bold() { return weight = QFont::Bold, *this; }
    ReportControl &italic() { return slanted = true, *this; }
    ReportControl &right() { return alignment = Qt::AlignRight, *this; }
    ReportControl &centre() { return alignment = Qt::AlignHCenter, *this; }
    ReportControl &wrapped() { return wraps = true, *this; }
    ReportControl &wrappedLevelWith(const QString &other) { return levelWith = other, wrapped(); }
    ReportControl &as(Format shown) { return format = shown, *this; }
    ReportControl &in(const QColor &colour) { return ink = colour, *this; }
    ReportControl &on(const QColor &colour) { return ground = colour, *this; }
    ReportControl &thick(int twips) { return thickness = twips, *this; }
    ReportControl &dashes() { return dashed = true, *this; }
};
