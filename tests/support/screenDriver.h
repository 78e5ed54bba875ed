#pragma once

#include <QKeyCombination>
#include <QStringList>
#include <QWidget>

#include <initializer_list>

class QAbstractItemView;
class QComboBox;

/// Hands and eyes of a test: keys go through the window that has the focus, as the keyboard's do, so shortcuts, open
/// lists and key previews see them as they would.
namespace driver {

/// Shows a window and waits until it has the keyboard.
[[nodiscard]] bool show(QWidget &window);
/// Waits until a window that is shown already has the keyboard.
[[nodiscard]] bool waitActive(QWidget &window);

void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// One after the other.
void press(std::initializer_list<QKeyCombination> keys);
/// Alt and a letter.
void accessKey(char letter);
void type(const QString &text);
/// Puts a text on the clipboard and presses Ctrl+V.
void paste(const QString &text);
/// What an input method has just begun, and what it has finished; or a text from its first letter on.
void compose(QWidget &field, const QString &begun, const QString &done);
void compose(QWidget &field, const QString &text);
/// One notch towards the user.
void turnWheel(QWidget &over);

/// A named control. A test that asks for one that isn't there fails and ends.
template <typename Control>
[[nodiscard]] Control &control(const QWidget &window, const char *name)
{
    auto *found = window.findChild<Control *>(QLatin1StringView(name));
    if (!found)
        qFatal("%s has no %s of that kind", qPrintable(window.objectName()), name);
    return *found;
}

/// Texts of all rows, or of one column.
[[nodiscard]] QList<QStringList> rows(const QAbstractItemView &list);
[[nodiscard]] QStringList column(const QAbstractItemView &list, int column);
[[nodiscard]] QStringList entries(const QComboBox &combo);

} // namespace driver
