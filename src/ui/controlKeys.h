#pragma once

#include <QString>

#include <vector>

class QWidget;

/// A key, or several, as one writes them, and what they do.
struct KeyLine {
    QString keys;
    QString what;
};

/// What the keys of `control` do beyond typing; empty where that is nothing, and for none.
[[nodiscard]] std::vector<KeyLine> keysOf(const QWidget *control);
