#pragma once

#include "support/ModalScript.h"
#include "support/TestShop.h"

#include <array>

/// A shop with one master of each kind beside those of a new file: the client Asha Rao (account 5), the worker Babu Lal
/// (6), the ledger account Rent (7), and the item Coat (1).
struct MasterDesk : TestShop {
    MasterDesk();

    /// A row of a job card for them.
    void addOrder(int clientID, int itemID, int workerID);
};

/// What the same rule is tried on for each kind.
struct Master {
    const char *kind;
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
    QString missing;
    QString added;
    QString changed;
};

enum Kind { Client, Worker, Item, Account };
[[nodiscard]] const std::array<Master, 4> &masters();

/// Runs `open`, which is to bring up the screen `className`, and does `work` in it; messages are expected on the
/// script.
void inScreen(const QString &className, const std::function<void()> &open,
    const std::function<void(QWidget &, ModalScript &)> &work);

/// Whether `field` has the focus of its screen, which may still be waiting for the keyboard after a message.
[[nodiscard]] bool isEntered(const QWidget &field);

/// Puts `text` into the focused field as from another program.
void paste(const QString &text);
