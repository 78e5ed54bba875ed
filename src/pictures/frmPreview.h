#pragma once

#include "ui/Screen.h"

class Command;
class PictureBox;
class QLabel;
class QScrollArea;
class QStackedWidget;

/// "Show Full Size Image": one picture, at its full size where the screen has room for it, else as large as fits; the
/// whole of such a one comes by a command. It can be printed, and opened as the system does.
class frmPreview : public Screen {
    Q_OBJECT

public:
    frmPreview();

    /// Shows the picture modally, the window fitted around it. A file that is no picture is told.
    void ShowImage(const QString &FilePath);

private:
    void buildForm();
    void connectCommands();
    void fitWindow();
    void changeSize();
    void showFitted();
    void showFull();
    void tell(const QString &how);

    QStackedWidget *m_sizes;
    PictureBox *m_fitted;
    QScrollArea *m_full;
    QLabel *m_fullPicture;
    QLabel *lblStatus;
    Command *cmdSize;
    Command *cmdPrint;
    Command *cmdOpen;

    QString m_path;
    QSize m_size;
};
