#include "support/screenDriver.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

namespace {

/// Whether the window that keys are for has the keyboard: with a modal window open, that one, or the list that is open
/// above it.
bool isReady()
{
    const QWidget *const modal = QApplication::activeModalWidget();
    const QWindow *const window = QGuiApplication::focusWindow();
    return window && (QApplication::activePopupWidget() || !modal || modal->windowHandle() == window);
}

/// Windows get the keyboard some time after they ask.
QWindow *keyboardWindow()
{
    if (!QTest::qWaitFor(isReady))
        QTest::qFail("no window has the keyboard", __FILE__, __LINE__);
    return QGuiApplication::focusWindow();
}

/// Sends a key. Where a message came up on it and is answered, it returns when the window below has the keyboard again,
/// so that the test finds the focus there.
template <typename Key>
void click(Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    const QWidget *const modal = QApplication::activeModalWidget();
    if (QWindow *window = keyboardWindow())
        QTest::keyClick(window, key, modifiers);
    if (modal && modal == QApplication::activeModalWidget())
        static_cast<void>(QTest::qWaitFor(isReady));
}

} // namespace

bool driver::show(QWidget &window)
{
    window.show();
    return waitActive(window);
}

bool driver::waitActive(QWidget &window)
{
    window.activateWindow();
    return QTest::qWaitForWindowActive(&window);
}

void driver::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    click(key, modifiers);
}

void driver::press(std::initializer_list<QKeyCombination> keys)
{
    for (const QKeyCombination key : keys)
        click(key.key(), key.keyboardModifiers());
}

void driver::accessKey(char letter)
{
    click(letter, Qt::AltModifier);
}

void driver::type(const QString &text)
{
    for (const QChar character : text)
        click(character.toLatin1());
}

void driver::paste(const QString &text)
{
    QApplication::clipboard()->setText(text);
    press(Qt::Key_V, Qt::ControlModifier);
}

void driver::compose(QWidget &field, const QString &begun, const QString &done)
{
    QInputMethodEvent input(begun, {});
    input.setCommitString(done);
    QApplication::sendEvent(&field, &input);
}

void driver::compose(QWidget &field, const QString &text)
{
    compose(field, text.left(1), {});
    compose(field, {}, text);
}

void driver::turnWheel(QWidget &over)
{
    QWheelEvent turn(QPointF(5, 5), over.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
        Qt::NoScrollPhase, false);
    QApplication::sendEvent(&over, &turn);
}

QList<QStringList> driver::rows(const QAbstractItemView &list)
{
    const QAbstractItemModel &model = *list.model();
    QList<QStringList> all;
    for (int row = 0; row < model.rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model.columnCount(); ++column)
            cells += model.index(row, column).data().toString();
        all += cells;
    }
    return all;
}

QStringList driver::column(const QAbstractItemView &list, int column)
{
    QStringList texts;
    const auto all = rows(list);
    for (const QStringList &row : all)
        texts += row.value(column);
    return texts;
}

QStringList driver::entries(const QComboBox &combo)
{
    QStringList texts;
    for (int i = 0; i < combo.count(); ++i)
        texts += combo.itemText(i);
    return texts;
}
