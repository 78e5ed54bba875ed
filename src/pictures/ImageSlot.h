#pragma once

#include <QWidget>

class Command;
class PictureBox;
class kvTextBox;

/// A place for one picture of a garment: the picture, the path of its file, and commands on it. A double click on the
/// picture opens the file as the system does.
class ImageSlot : public QWidget {
    Q_OBJECT

public:
    /// `picture` and `path` become the object names of the two. The commands stand below and are the screen's to act
    /// on.
    ImageSlot(const QString &caption, const QString &picture, const QString &path, const QList<Command *> &commands);

    /// Of the picture itself, in pixels.
    void setLeastHeight(int height);
    /// The file's path; empty where the slot has none.
    [[nodiscard]] QString path() const;
    /// Shows the file. With an empty path, or one that leads nowhere, the slot stays as it is; an empty one then says
    /// that the file is gone. For a file that is no picture it says why, and keeps the path: a save must not forget it.
    void showFile(const QString &file);
    /// Opens the file as the system does. Nothing where the slot has none; a file that is gone is told.
    void open();
    /// Shows it above the screen, as large as fits; otherwise as `open`.
    void preview();
    /// Deletes the file and empties the slot, also where the file cannot be deleted. A slot whose path leads nowhere
    /// stays as it is.
    void removeFile();

private:
    /// Whether there is a file; one that is gone is told.
    [[nodiscard]] bool isThere() const;

    PictureBox *m_picture;
    kvTextBox *m_path;
};
