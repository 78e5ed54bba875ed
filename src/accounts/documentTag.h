#pragma once

#include <QString>

#include <optional>

/// What a line of a book stands for: a document, by its number and kind (see `documentKind`).
struct DocumentTag {
    qint32 number = 0;
    int kind = 0;

    /// "12|1", as the tag of a list row.
    [[nodiscard]] QString text() const;
    /// None where `text` is none: sums have an empty one.
    [[nodiscard]] static std::optional<DocumentTag> of(const QString &text);
};
