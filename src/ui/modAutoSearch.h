#pragma once

#include <QStringList>

class QComboBox;

/// Type-ahead of the combos that select from a list. Only text that begins an entry can be typed.

/// Handles a character code (see `keys`) typed in an editable combo and returns the code to pass on: 0, the key being
/// dealt with, but for Enter, which returns 13. A printable character that continues to the beginning of an entry, in
/// any case, opens the list and selects the first such entry, the caret behind what was typed and the rest selected;
/// any other changes nothing and is told in a tip. Backspace cuts what is selected, else the last character, and leaves
/// no entry selected unless the rest is one. Enter puts the caret at the end.
[[nodiscard]] int AutoSearchKey(QComboBox &combo, int key);

/// `SelectComboEntry`, then opens the list.
void SelectTypedEntry(QComboBox &combo);

void ShowDropDown(QComboBox &combo);

/// Selects the first entry that begins with the combo's text, in any case, and returns its index. -1 where there is
/// none, and for an empty text: the combo stays as it is then. What `setComboText` has shown is found whole only: a
/// name that is gone from the list must not turn into another one that begins so.
int SelectComboEntry(QComboBox &combo);

/// Binds `AutoSearchKey` to the keys of `combo`, with its list closed or open, and makes it editable.
/// With the list open, Enter closes it and goes on as Enter in the combo; Escape closes only the list; Tab, access keys
/// and other shortcuts close it and act. Enter right behind a letter that was refused tells so once more and goes no
/// further. The arrows select all, so that the next name is typed over; from half a name, which is written in italics,
/// they go to what it begins. Paste selects by what is pasted, like typing it. REQUIRES: other event filters for the
/// combo are installed before.
void installAutoSearch(QComboBox *combo);

/// `SelectTypedEntry` each time that the user comes to the combo: by Tab, Enter, an access key or a click. Not when its
/// screen opens or comes back to the front. REQUIRES: `installAutoSearch` was called.
void openListOnFocus(QComboBox &combo);

/// Replaces the entries, in one go; afterwards none is selected and the text is empty.
void setComboEntries(QComboBox &combo, const QStringList &entries);

/// Shows `text` and selects the first entry that reads just so, none where there is no such entry. In a combo that has
/// the focus all of it is selected. A combo that isn't editable can only show an entry.
void setComboText(QComboBox &combo, const QString &text);
