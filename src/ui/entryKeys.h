#pragma once

#include <QString>

class QAbstractItemView;
class QColor;
class QInputMethodEvent;
class QKeyEvent;
class QLineEdit;
class QWidget;

/// Key codes as the entry helpers know them. A key press has two: the code of the key (`keyCode`), which arrow and page
/// keys have too, and the code of the character that it types (`characterCode`). The two overlap: 38 is Up or "&".
namespace keys {

inline constexpr int Backspace = 8;
inline constexpr int Enter = 13;
inline constexpr int Escape = 27;
inline constexpr int Blank = 32;
inline constexpr int PageUp = 33;
inline constexpr int PageDown = 34;
inline constexpr int End = 35;
inline constexpr int Home = 36;
inline constexpr int Up = 38;
inline constexpr int Down = 40;
inline constexpr int Swallowed = 0;

/// Code of the key: those named above, letters and digits by their upper case character, F1 to F12 as 112 to 123.
/// 0 for keys that have none here.
[[nodiscard]] int keyCode(const QKeyEvent &event);

/// Code of the character typed; Backspace, Enter and Escape have one, Ctrl with a letter gives 1 to 26.
/// 0 for keys that type nothing.
[[nodiscard]] int characterCode(const QKeyEvent &event);

/// The character of a code from `Blank` on.
[[nodiscard]] QString textOf(int character);

} // namespace keys

/// Lets what an input method has composed, an accented letter or a word of another script, go the way of typed keys,
/// and begins in `control` what it composes next. False where it has finished nothing, or replaces what stands there.
bool typeComposed(QWidget &control, const QInputMethodEvent &input);

/// Sends keys to the control that has the focus, in the place of the user.
class cSendKeys {
public:
    /// "{tab}" or "+{tab}" (with Shift); anything else sends nothing. The focus has moved when it returns.
    static void SendKeys(const QString &keys);
};

/// Each takes a code and returns the one to go on with, 0 where the key is swallowed.

/// For a character code: Enter moves the focus on and is swallowed.
[[nodiscard]] int EnterToTab(int key);
/// For a key code: Page Down moves the focus on, Page Up back; both are swallowed.
[[nodiscard]] int PageKeysToTab(int key);
/// For a character code: digits, Backspace and 12 pass.
[[nodiscard]] int DigitKeysOnly(int key);
/// For a character code: also passes a point, unless `text` holds one already.
[[nodiscard]] int DecimalKeysOnly(const QString &text, int key);
/// For a key code pressed in a search box above `list`: Up, Down, Home and End move the list's current row; past either
/// end nothing happens. Up is swallowed, all others pass.
[[nodiscard]] int ListNavKeys(QAbstractItemView &list, int key);

/// Selects all of a line so that the next key replaces it, and shows its beginning.
void selectWhole(QLineEdit &line);

/// Selects the whole text of a field and shows it white on black. For text boxes, editable combos and date fields; on
/// other controls only the colours change.
void ShowAsSelected(QWidget &control);
/// Black on white again.
void ShowAsNormal(QWidget &control);
/// Changes the colour of a field's text alone.
void setTextColour(QWidget &control, const QColor &colour);

/// The form of a path that a command line takes without quotes. Where the system keeps no short names, which is
/// everywhere but on Windows, that is the path itself.
[[nodiscard]] QString GetShortPath(const QString &path);
