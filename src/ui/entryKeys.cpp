#include "ui/entryKeys.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

#include <array>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#endif

using namespace Qt::StringLiterals;

namespace {

struct KeyCode {
    Qt::Key key;
    int code;
};

constexpr std::array namedKeys{
    KeyCode{Qt::Key_Backspace, keys::Backspace},
    KeyCode{Qt::Key_Return, keys::Enter},
    KeyCode{Qt::Key_Enter, keys::Enter},
    KeyCode{Qt::Key_Escape, keys::Escape},
    KeyCode{Qt::Key_Space, keys::Blank},
    KeyCode{Qt::Key_PageUp, keys::PageUp},
    KeyCode{Qt::Key_PageDown, keys::PageDown},
    KeyCode{Qt::Key_End, keys::End},
    KeyCode{Qt::Key_Home, keys::Home},
    KeyCode{Qt::Key_Up, keys::Up},
    KeyCode{Qt::Key_Down, keys::Down},
};

constexpr int firstFunctionKey = 112;

bool isCommandKey(const QKeyEvent &event)
{
    return event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
}

void setColours(QWidget &control, const QColor &background, const QColor &text)
{
    QPalette palette = control.palette();
    // Not for a disabled field, which is to look like one.
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::Base, background);
        palette.setColor(group, QPalette::Text, text);
    }
    control.setPalette(palette);
    // The ground of a multi-line box does not follow the box by itself.
    if (auto *area = qobject_cast<QAbstractScrollArea *>(&control))
        area->viewport()->setPalette(palette);
}

/// The part of a control that shows its text. A combo's own colours would reach its list too.
QWidget &textPart(QWidget &control)
{
    if (auto *combo = qobject_cast<QComboBox *>(&control); combo && combo->lineEdit())
        return *combo->lineEdit();
    if (auto *spinBox = qobject_cast<QAbstractSpinBox *>(&control)) {
        if (auto *line = spinBox->findChild<QLineEdit *>())
            return *line;
    }
    return control;
}

} // namespace

int keys::keyCode(const QKeyEvent &event)
{
    const int key = event.key();
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12)
        return firstFunctionKey + key - Qt::Key_F1;
    if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z))
        return key;
    for (const auto &named : namedKeys) {
        if (named.key == key)
            return named.code;
    }
    return 0;
}

int keys::characterCode(const QKeyEvent &event)
{
    const int key = event.key();
    if (key == Qt::Key_Backspace || key == Qt::Key_Escape)
        return keyCode(event);
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        return isCommandKey(event) ? 0 : Enter;
    const bool control =
        event.modifiers().testFlag(Qt::ControlModifier) && !event.modifiers().testFlag(Qt::AltModifier);
    if (control && key >= Qt::Key_A && key <= Qt::Key_Z)
        return key - Qt::Key_A + 1;
    // Ctrl and Alt together are how some keyboards type their third characters.
    const bool alt = event.modifiers().testFlag(Qt::AltModifier) && !event.modifiers().testFlag(Qt::ControlModifier);
    if (control || alt || event.modifiers().testFlag(Qt::MetaModifier))
        return 0;
    const QList<uint> letters = event.text().toUcs4();
    return letters.size() == 1 && QChar::isPrint(letters.first()) ? static_cast<int>(letters.first()) : 0;
}

QString keys::textOf(int character)
{
    const auto letter = static_cast<char32_t>(character);
    return QString::fromUcs4(&letter, 1);
}

bool typeComposed(QWidget &control, const QInputMethodEvent &input)
{
    if (input.commitString().isEmpty() || input.replacementLength() > 0)
        return false;
    QInputMethodEvent nothingBegun;
    QCoreApplication::sendEvent(&control, &nothingBegun);
    for (const uint letter : input.commitString().toUcs4()) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, keys::textOf(static_cast<int>(letter)));
        QCoreApplication::sendEvent(&control, &press);
    }
    if (!input.preeditString().isEmpty()) {
        QInputMethodEvent begun(input.preeditString(), input.attributes());
        QCoreApplication::sendEvent(&control, &begun);
    }
    return true;
}

void cSendKeys::SendKeys(const QString &keys)
{
    QWidget *const focused = QApplication::focusWidget();
    const bool back = keys.compare("+{tab}"_L1, Qt::CaseInsensitive) == 0;
    if (!focused || (!back && keys.compare("{tab}"_L1, Qt::CaseInsensitive) != 0))
        return;
    QKeyEvent press(QEvent::KeyPress, back ? Qt::Key_Backtab : Qt::Key_Tab, back ? Qt::ShiftModifier : Qt::NoModifier);
    QCoreApplication::sendEvent(focused, &press);
}

int EnterToTab(int key)
{
    if (key != keys::Enter)
        return key;
    cSendKeys::SendKeys(u"{tab}"_s);
    return keys::Swallowed;
}

int PageKeysToTab(int key)
{
    if (key != keys::PageDown && key != keys::PageUp)
        return key;
    cSendKeys::SendKeys(key == keys::PageDown ? u"{tab}"_s : u"+{tab}"_s);
    return keys::Swallowed;
}

int DigitKeysOnly(int key)
{
    const bool passes = (key >= '0' && key <= '9') || key == keys::Backspace || key == 12;
    return passes ? key : keys::Swallowed;
}

int DecimalKeysOnly(const QString &text, int key)
{
    if (key == '.')
        return text.contains(u'.') ? keys::Swallowed : key;
    return DigitKeysOnly(key);
}

int ListNavKeys(QAbstractItemView &list, int key)
{
    const int count = list.model()->rowCount(list.rootIndex());
    const int row = list.currentIndex().isValid() ? list.currentIndex().row() : -1;
    const auto select = [&](int wanted) {
        if (wanted >= 0 && wanted < count)
            list.setCurrentIndex(list.model()->index(wanted, 0, list.rootIndex()));
    };
    switch (key) {
    case keys::Up: select(row - 1); return keys::Swallowed;
    case keys::Down: select(row + 1); break;
    case keys::End: select(count - 1); break;
    case keys::Home: select(0); break;
    default: break;
    }
    return key;
}

void selectWhole(QLineEdit &line)
{
    const auto end = static_cast<int>(line.text().size());
    line.setSelection(end, -end);
}

void ShowAsSelected(QWidget &control)
{
    QWidget &part = textPart(control);
    setColours(part, Qt::black, Qt::white);
    if (auto *line = qobject_cast<QLineEdit *>(&part))
        selectWhole(*line);
    else if (auto *lines = qobject_cast<QPlainTextEdit *>(&part))
        lines->selectAll();
}

void ShowAsNormal(QWidget &control)
{
    QWidget &part = textPart(control);
    setColours(part, Qt::white, Qt::black);
    if (auto *line = qobject_cast<QLineEdit *>(&part))
        line->home(false);
}

void setTextColour(QWidget &control, const QColor &colour)
{
    QWidget &part = textPart(control);
    setColours(part, part.palette().color(QPalette::Base), colour);
}

QString GetShortPath(const QString &path)
{
#ifdef Q_OS_WIN
    std::array<wchar_t, 164> buffer;
    const DWORD length =
        GetShortPathNameW(reinterpret_cast<const wchar_t *>(path.utf16()), buffer.data(), buffer.size());
    if (length > 0 && length < buffer.size())
        return QString::fromWCharArray(buffer.data(), static_cast<qsizetype>(length));
#endif
    return path;
}
