#pragma once

#include <QWidget>

#include <functional>

class Command;
class ListView;

/// `picDetails`, beside a register: the pieces of each item of the shop, in the order of their names, as far as there
/// are any. Hidden until it is asked for.
class PiecesPanel : public QWidget {
    Q_OBJECT

public:
    /// `pieces` is the head of that column. Hidden again, it gives the focus back to `list`.
    PiecesPanel(const QString &pieces, ListView &list);

    /// Shows the panel and goes to its list.
    void open();
    /// `piecesOf` is asked for each item. Throws RuntimeError (Overflow) for an item above 32767.
    void fill(const std::function<qint32(qint16 itemID)> &piecesOf);
    void clear();

    /// The menu that sorts them.
    void openOrderMenu();

    /// In the order of their tabs.
    [[nodiscard]] QList<QWidget *> fields() const;

private:
    ListView *lvDetails;
    Command *Image1;
};
