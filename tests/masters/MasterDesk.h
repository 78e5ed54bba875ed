#pragma once

#include "support/ModalScript.h"
#include "support/TestShop.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"

#include <array>

/// A shop with one master of each kind beside those of a new file: the client Asha Rao (account 5), the worker Babu Lal
/// (6), the ledger account Rent (7), and the item Coat (1).
struct MasterDesk : TestShop {
    MasterDesk();
};

enum Kind { Client, Worker, Item, Account };

/// What a test does in a screen; messages are expected on the script.
using Work = std::function<void(QWidget &, ModalScript &)>;

/// What the same rule is tried on for each kind.
struct Master {
    Kind kind;
    QString list;
    QString editor;
    void (*openList)();
    void (*add)();
    void (*edit)(int id);
    QString table;
    QString column;
    /// The one that the shop has.
    QString name;
    int id;
    QString adding;
    QString editing;
    QString missing;
    QString added;
    QString changed;

    void inList(const Work &work) const;
    /// In the editor: on a new one, or on the one that the shop has.
    void inNew(const Work &work) const;
    void inEdit(const Work &work) const;
    /// The next screen is its editor, which is left at once.
    void expectLeft(ModalScript &script) const;
};

[[nodiscard]] const std::array<Master, 4> &masters();

/// Runs `open`, which is to bring up the screen `className`, and does `work` in it. What is open after that is left
/// with Escape.
void inScreen(const QString &className, const std::function<void()> &open, const Work &work);

/// Gives the command of that letter, which says `message`.
void tells(ModalScript &script, char command, const QString &message);
/// Deletes what an editor shows, and says yes.
void deleteIt(ModalScript &script, const QString &outcome = QStringLiteral("Deleted."));

/// Whether `field` has the focus of its screen, which may still be waiting for the keyboard after a message.
[[nodiscard]] bool isEntered(const QWidget &field);
