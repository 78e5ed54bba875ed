#pragma once

#include "ui/controlKeys.h"

#include <QDialog>
#include <QKeyCombination>
#include <QPointer>

#include <functional>
#include <vector>

class Command;
class QKeyEvent;

/// Base of all screens: a window that is shown modally, closes on Escape, has keys of its own, which Ctrl+/ lists, and
/// is told when it comes to the front. F1 opens the guide. It is never larger than its monitor, and has the size that
/// the user gave it last.
class Screen : public QDialog {
    Q_OBJECT

public:
    /// Which keys move through the fields. With `EnterMovesOn` Enter acts as Tab on every control and never reaches a
    /// default button, a focused one neither; lists with rows, multi-line boxes that can be written in and what
    /// `keepEnter` names keep it. With `PageKeysMove` Page Down and Page Up act as Tab and Shift+Tab everywhere.
    enum EntryKey { NoEntryKeys = 0, EnterMovesOn = 1, PageKeysMove = 2 };
    Q_DECLARE_FLAGS(EntryKeys, EntryKey)

    /// A key that acts wherever the focus is. `what` tells what it does.
    struct Key {
        QKeyCombination key;
        QString what;
        std::function<void()> act;
        std::function<bool()> applies;
    };

    /// `name` is the class name of the screen; it becomes its object name.
    explicit Screen(const QString &name, const QString &title = {});
    ~Screen() override;

    /// Shows the screen modally above the one in front. When it has closed, activates that one and returns.
    int exec() override;
    void setVisible(bool visible) override;
    bool event(QEvent *event) override;

    /// The screen that takes the input; none before the first is shown.
    [[nodiscard]] static Screen *front();

    /// Offers a key press to the screen that `receiver` belongs to; true when it took it. `Application` calls it.
    static bool previewKey(QObject *receiver, QKeyEvent *event);

    /// The keys that `onKey` has given it, in that order.
    [[nodiscard]] const std::vector<Key> &keys() const { return m_keys; }

    /// What F1 does on every screen that has no such key of its own; it receives the class name of the screen.
    using Guide = std::function<void(const QString &screen)>;
    static void setGuide(Guide guide);

protected:
    void setEntryKeys(EntryKeys keys) { m_entryKeys = keys; }
    /// `control` gets Enter itself, whatever the entry keys say.
    static void keepEnter(QWidget *control);
    /// The size that `resize` gave it counts each time it is shown, not the one that the user gave it last.
    void fitContentEachTime() { m_remembersSize = false; }
    /// Until the user gives it another size: at least `least`, and most of a large monitor, for lists and pages.
    void useRoom(QSize least);

    /// From now on `key` runs `act` before the focused control, the entry keys and Escape see it, and is swallowed; but
    /// not while `applies` says no, and not F2 in a date field, which has its own use for it. Both Enter keys are
    /// Qt::Key_Return. Of a key that types a character Shift is not looked at. Held, only arrows, page keys, plus and
    /// minus act again.
    void onKey(QKeyCombination key, const QString &what, std::function<void()> act, std::function<bool()> applies = {});
    /// Ctrl+S, and Ctrl+P, as a click on `command`: what is half typed in the field that has the focus counts first;
    /// nothing happens while the command is disabled or hidden.
    void saveKey(Command *command);
    void printKey(Command *command);
    /// Lists a key that a control sees to itself.
    void tellKey(const KeyLine &line) { m_toldKeys.push_back(line); }

    /// What Escape does where no date is half typed: closes the screen, rejected.
    virtual void escapePressed();

    /// The screen came to the front: once when it is first shown, once each time a screen above it has closed, the
    /// message screen included. It does not run when the user comes back from another program.
    virtual void activated() { }

private:
    bool preview(QKeyEvent *event);
    [[nodiscard]] const Key *keyFor(const QKeyEvent &event) const;
    [[nodiscard]] bool closeKeyPanel(const QKeyEvent &event);
    void tellKeys();
    [[nodiscard]] std::vector<KeyLine> ownKeys() const;
    [[nodiscard]] std::vector<KeyLine> commonKeys() const;
    static void noticeOtherWriters();
    void comeToFront();
    void takeRememberedSize();
    void rememberSize();
    [[nodiscard]] QString sizeKey() const;

    EntryKeys m_entryKeys = NoEntryKeys;
    std::vector<Key> m_keys;
    std::vector<KeyLine> m_toldKeys;
    QPointer<QWidget> m_keyPanel;
    bool m_remembersSize = true;
    bool m_hasOwnSize = false;
    QSize m_sizeShown;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(Screen::EntryKeys)
