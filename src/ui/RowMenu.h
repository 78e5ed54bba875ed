#pragma once

#include <QMenu>

#include <functional>

/// What can be done with a line of a list, named "rowMenu". It deletes itself once closed.
class RowMenu : public QMenu {
    Q_OBJECT

public:
    explicit RowMenu(QWidget *screen);

    /// A command, with the key that does the same without the menu, if there is one. `act` is called once the menu has
    /// closed: what it shows comes up above the screen and not above the menu.
    void add(const QString &caption, QKeyCombination key, std::function<void()> act);
    /// At a place of the display, on its first command: Enter gives it at once.
    void open(QPoint place);
};
