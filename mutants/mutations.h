#pragma once

#include <QList>
#include <QString>

/// Small faults of the kind that slips into a program: what a test should notice.
namespace mutations {

/// A change of a source text: of the `length` characters at `place`.
struct Mutation {
    qsizetype place;
    qsizetype length;
    QString becomes;
};

/// All that can be made to a C++ source, in their order: a comparison that takes in or leaves out its border, or is the
/// other way round, "and" for "or", plus for minus, a number off by one, true for false, a condition or a "not" turned
/// round, a call left out. None in comments, texts and preprocessor lines.
[[nodiscard]] QList<Mutation> of(const QString &source);

[[nodiscard]] QString applied(const Mutation &mutation, QString source);

/// "frmMain.cpp:123: a < b  ->  a <= b", of the lines that it stands in.
[[nodiscard]] QString described(const Mutation &mutation, const QString &source, const QString &fileName);

} // namespace mutations
