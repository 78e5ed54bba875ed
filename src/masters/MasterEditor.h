#pragma once

#include "masters/masterRows.h"
#include "ui/Screen.h"

#include <vector>

class Command;
class QGridLayout;
class QLabel;
class kvTextBox;

/// What the editors of clients, workers, items and accounts share: a name that must be given and may not be taken, the
/// fields that are plain texts of the row, the row's writing and deleting, and one fresh editor after the other while
/// new ones are added.
class MasterEditor : public Screen {
    Q_OBJECT

protected:
    MasterEditor(const QString &name, masterRows::Kind kind);

    /// Adds a row to a grid of labels and fields.
    static void addField(QGridLayout *grid, const QString &caption, QWidget *field, const QString &hintText = {});
    /// Gives the room that is left to the fields' width, and below the last row. REQUIRES: all rows are there.
    static void stretch(QGridLayout *grid);
    /// The heading above and the commands below what a screen lays out between them.
    void buildFrame(QLayout *content);
    /// Makes a field that shows and writes `column` as it is.
    kvTextBox *textField(const QString &name, const QString &column);

    /// Runs `first` for a new row, and after each one that was saved a fresh editor for the next. Each has closed
    /// before the next opens: a morning of entering clients must not pile screens up.
    template <typename Editor>
    static void addOneAfterAnother(Editor &first)
    {
        bool saved = first.addOne();
        while (saved) {
            Editor next;
            saved = next.addOne();
        }
    }
    /// True when a new row was saved.
    bool addOne();
    /// Makes the screen ready for a new row: calls `start` and presets what a new row begins with.
    virtual void startNew() = 0;
    void start(const QString &mode, const QString &heading);
    /// Starts in mode "E" on a row and shows its name and texts. Returns the row, open, for the rest.
    /// Throws RuntimeError (NoCurrentRecord) where there is no such row.
    [[nodiscard]] Recordset &startEdit(const QString &heading, int id);

    virtual void save() = 0;
    /// True where the user was told that the name is missing, and the focus is on it.
    [[nodiscard]] bool isNameMissing(const QString &message);
    /// A field whose text no other row may have. What it was `loaded` with, in any case, is the row's own; an empty one
    /// is never taken.
    struct Unique {
        QString column;
        kvTextBox *box;
        QString loaded;
        QString message;
    };
    /// Writes the row in hand or a new one: name, texts and `fields`. False where the user was told why it was not: the
    /// name or the text of `other` is taken, and the focus is on it, or the row is gone.
    [[nodiscard]] bool store(std::vector<masterRows::Field> fields, const std::vector<Unique> &other = {});
    /// What comes after the writing of a row, by mode: a new one closes the screen, a changed one leaves it open.
    void finishSave(const QString &added, const QString &changed);

    virtual void deleteRow();

    [[nodiscard]] bool isNew() const { return EditMode == QLatin1String("N"); }

    QString EditMode;
    int m_id = 0;
    QString OldTitle;
    kvTextBox *txtName;
    Command *Command1;
    Command *Command2;

private:
    struct TextField {
        kvTextBox *box;
        QString column;
    };

    masterRows::Kind m_kind;
    QLabel *lblTitle;
    std::vector<TextField> m_texts;
    bool m_addedOne = false;
};
