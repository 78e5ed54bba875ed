#pragma once

#include <QByteArrayList>
#include <QDate>
#include <QIcon>
#include <QStringList>

#include <functional>
#include <vector>

/// What the morning glance tells, line by line.
namespace glanceLines {

struct Line {
    /// A line without one is not shown.
    QString text;
    /// Whether there is something to be seen to.
    bool isSomething = false;
    QIcon icon = {};
    /// Shows the register that the line is about, modally.
    std::function<void()> open = {};
};

/// Lines that come from one reading.
struct Source {
    /// Of the lines' commands.
    QStringList names;
    /// What is read, in small letters. Empty where it is no part of the file: then it is read each time that the screen
    /// comes to the front.
    QByteArrayList tables;
    /// As many lines as names, for that working date. Throws RuntimeError.
    std::vector<Line> (*read)(QDate day);
};

/// In the order of their lines.
[[nodiscard]] const std::vector<Source> &sources();

} // namespace glanceLines
