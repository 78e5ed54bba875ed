#pragma once

#include <QString>

#include <functional>

class kvComboBox;
class kvTextBox;

/// Lets only those typed characters into the box that `accept` passes on, which may look at the text that stays beside
/// them; for a box that holds a number. Of what is pasted or dropped the number that it names is taken, if it passes
/// (see `numberFor`). Shortcuts such as Ctrl+C are left alone.
void filterKeys(kvTextBox *box, int (*accept)(int key));
void filterKeys(kvTextBox *box, int (*accept)(const QString &text, int key));

/// Enter in the field runs `act` and goes no further. A text box must not move on by itself (`setAutoTab`).
void onEnter(kvTextBox *field, const std::function<void()> &act);
void onEnter(kvComboBox *field, const std::function<void()> &act);
