#pragma once

#include "ui/ListModel.h"
#include "ui/Screen.h"

class Command;
class ListView;
class PeriodFields;

/// A screen that is a list over rows of the file: it fills itself when it has to, keeps what the user looks at in view,
/// opens rows, finds a text in them (Ctrl+L), sorts them where its list lets them be sorted (Ctrl+O), and has commands
/// on a row, by a menu and by keys.
class RegisterScreen : public Screen {
    Q_OBJECT

public:
    /// A command on the current row. It answers to no row without a tag.
    struct RowAction {
        /// In the menu, which shows the key too. An empty one is a line between two groups.
        QString caption = {};
        QKeyCombination key = Qt::Key_unknown;
        /// Asked first; empty where nothing is to be asked.
        QString question = {};
        /// Receives the row as it was when the command was given: behind the question the list may have been filled
        /// anew, with another row in its place.
        std::function<void(const ListRow &row)> act = {};
    };

protected:
    /// When the screen fills its list by itself: never; each time that it comes to the front while
    /// `session::NeedRefresh` is set, which its `refill` may clear; each time that it comes to the front.
    enum class Refresh { OnCommand, WhenNeeded, InFront };
    RegisterScreen(const QString &name, const QString &title, Refresh refresh);

    /// The list that all of the following is about, and whether Enter opens its rows. REQUIRES: set once, before the
    /// screen is shown.
    enum class Rows { Open, AreOnlyRead };
    void setRegister(ListView *list, Rows rows = Rows::Open);

    /// Its keys to go from month to month. From the list they lead to `view`, which lists the period. REQUIRES: as
    /// above.
    void setPeriod(PeriodFields *period, Command *view);

    virtual void refill() { }
    /// Enter or a double click on a row with a tag. Nothing by default.
    virtual void openRow(const ListRow &row);
    /// As Enter in the list, for a search box above it.
    void openCurrent();

    /// Which row is current in the new rows: the one with the same tag, of several the nearest, or its neighbour where
    /// it is gone; the one at the place where a row was opened or a command given last, before that the first; the
    /// first. What was in view stays there.
    enum class Keep { Tag, Place, First };
    /// Replaces all rows, in one go.
    void showRows(std::vector<ListRow> rows, Keep keep);

    /// The menu of a row, by the right mouse button or the menu key, and the keys of its entries. REQUIRES: called
    /// once.
    void setRowActions(std::vector<RowAction> actions);

    /// From now on, for as long as the screen is there, the last thing kept so can be undone from the row menu and by
    /// Ctrl+Z, and then the one before it. `what` names it; `takeBack` tells itself where it can't; it runs once, and
    /// again only where it has thrown. REQUIRES: `setRowActions` was called.
    void keepForUndo(const QString &what, std::function<void()> takeBack);

    void activated() override;

private:
    /// The current row; none where it has no tag.
    [[nodiscard]] const ListRow *currentRow() const;
    void run(const RowAction &action);
    void openMenu(QPoint place);
    void undo();

    struct Undo {
        QString what;
        std::function<void()> takeBack;
    };
    Refresh m_refresh;
    ListView *m_list = nullptr;
    std::vector<RowAction> m_actions;
    std::vector<Undo> m_undos;
    int m_place = -1;
};
