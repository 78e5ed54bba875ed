#pragma once

#include "ui/controlKeys.h"

#include <QFrame>

class QFont;
class QScreen;

/// Keys, told over a screen, in as many columns and in letters as large as its monitor has room for. It does not take
/// the focus; a click anywhere closes it, and so does another window that comes up. Keys are for the screen to see to.
/// Belongs to the screen, and deletes itself when it closes.
class KeyPanel : public QFrame {
    Q_OBJECT

public:
    struct Group {
        QString title;
        std::vector<KeyLine> lines;
    };
    /// A group without lines is left out.
    KeyPanel(QWidget &screen, const std::vector<Group> &groups);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void lay(const std::vector<Group> &groups, int columns, const QFont &font);
    void place(const QScreen &monitor);

    QWidget &m_screen;
};
