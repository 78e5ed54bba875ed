#pragma once

#include "ui/RegisterScreen.h"

class Command;
class ListView;
class QCheckBox;
class QWidget;
class kvTextBox;

/// Finds a client by a part of his name, address, city, state, mobile number or key, while it is typed.
class frmSearchClient : public RegisterScreen {
    Q_OBJECT

public:
    frmSearchClient();

    /// Shows the screen modally and gives back the title chosen, empty where none was.
    [[nodiscard]] QString SearchClient();
    /// The same with the tick for all jobs shown; `ShowAllUndel` receives its state when a title was chosen.
    [[nodiscard]] QString SearchClient2(bool &ShowAllUndel);

    /// Fills the list with the clients that have `text` anywhere in `column` of `Accounts`; with an empty text the list
    /// is empty. "%" and "_" in it stand for any characters and any one, "[..]" for one of a set.
    void SearchText(const QString &text, const QString &column);
    /// Selects the first line that holds `text` within as many of its first characters. Without one the selection is
    /// left alone.
    static void FindListItem(ListView &list, const QString &text);
    /// For a key code pressed in a search box: Up and Down move the list's selection; past either end nothing happens.
    static void ScrollLV(ListView &list, int key);

protected:
    void openRow(const ListRow &row) override;

private:
    struct Search {
        QString name;
        QString caption;
        QString column;
    };

    void buildForm();
    [[nodiscard]] kvTextBox *searchBox(const Search &search);

    ListView *lvResults;
    QWidget *fmQuery;
    QCheckBox *opShowAllUndel;
    Command *Command1;
    Command *Command2;
    QString m_chosen;
    bool m_showAll = false;
};
