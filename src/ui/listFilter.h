#pragma once

#include "ui/ListModel.h"

#include <functional>

/// Keeps the rows whose text in `column` passes. Closing rows are rows like others: a filter is followed by a new
/// closing.
void keepRows(std::vector<ListRow> &rows, int column, const std::function<bool(const QString &text)> &passes);

/// What stands below the last row of a register.
struct Closing {
    /// Of the list. All cells but the one with the count hold a blank.
    int columns = 0;
    /// Where the count stands, behind the words.
    int column = 0;
    QString words;
    CellLook look = {};
    /// Of columns that look otherwise.
    QList<std::pair<int, CellLook>> looks = {};
    /// A row of blanks comes first.
    bool afterBlankRow = true;
};

/// Adds the closing, which counts the rows that stand for something. Its rows have no tag and never open.
void closeWithCount(std::vector<ListRow> &rows, const Closing &closing);
