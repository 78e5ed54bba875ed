#pragma once

#include <QString>

class QWidget;

/// Tells the user what is wrong and puts the focus where it can be mended.
void complain(const QString &text, QWidget *focusTo = nullptr);

/// True where a date field of the screen holds what is no date: the user was told, and the focus is there. Each save
/// asks first.
[[nodiscard]] bool hasRefusedDate(const QWidget &screen);
