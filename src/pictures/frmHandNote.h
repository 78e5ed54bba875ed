#pragma once

#include "ui/Screen.h"

class Command;
class NoteCanvas;

/// "Hand Note": a sketch, on a white sheet or over a picture.
class frmHandNote : public Screen {
    Q_OBJECT

public:
    frmHandNote();

    /// Opens the dialog, over the picture that stands at `FilePath`. `Cancelled` comes back false where "&Ok" put the
    /// drawing there in its place. A file that is no picture is told, and left alone.
    void TakeSnap(const QString &FilePath, bool &Cancelled);

private:
    void buildForm();
    void connectCommands();
    void choosePen();
    void chooseEraser();
    void keep();

    NoteCanvas *picCanvas;
    Command *Command1;
    Command *Command2;
    Command *Command3;
    Command *Command4;
    Command *Command5;
    Command *cmdUndo;

    QString m_filePath;
    bool NoteCancelled = true;
};
