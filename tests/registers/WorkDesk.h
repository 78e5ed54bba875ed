#pragma once

#include "support/ModalScript.h"
#include "support/TestShop.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"

class ListView;
class QMenu;
class QWidget;

/// Two clients, two workers and two items.
struct Workshop : TestShop {
    enum : int { Asha = 5, Vikram, Mohan, Sita };

    Workshop();

    /// The number of a garment, `place` of its card; `changes` are columns that a statement sets.
    int add(const JobRow &row, int place = 0, const QString &changes = {});
    /// A row of each status on the jobs 1 to 5, the last two with a worker, every other one cut.
    void addOfEachStatus(QDate first);
};

[[nodiscard]] ListView &listOf(const QWidget &screen);
/// The jobs that a register lists, with the place on the card where there is one, and what is wrong with its closing
/// rows.
[[nodiscard]] QString listed(const QWidget &screen);
/// What the screen says of its list.
[[nodiscard]] QString listTitle(const QWidget &screen);

/// Goes to the field of that access key and types.
void enter(char field, const QString &text);
/// Chooses a status by the arrows.
void filter(const QWidget &screen, const QString &word);
void search(const QString &job);
void pickWorker(const QString &beginning);

/// The menu of the row, by the menu key; null where there is none.
[[nodiscard]] QMenu *rowMenu(ListView &list);
/// What an entry of it does.
void viaMenu(const QWidget &screen, const QString &caption);
