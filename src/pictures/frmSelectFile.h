#pragma once

#include "ui/Screen.h"

class Command;
class NameLabel;
class QComboBox;
class QItemSelectionModel;
class QLabel;
class QListView;
class QListWidget;
class QProgressBar;
class Thumbnails;
class kvTextBox;

/// "Select Picture": the picture files of a folder with their thumbnails, which come while one may already choose.
class frmSelectFile : public Screen {
    Q_OBJECT

public:
    frmSelectFile();

    /// Opens the picker above the screen in front. The full path of a file that is there, or "Cancel".
    [[nodiscard]] static QString SelFile();

protected:
    void activated() override;

private:
    void buildForm();
    [[nodiscard]] QLayout *buildPlaces();
    void buildPictures();
    void connectCommands();
    void openRemembered();
    void enter(const QString &folder);
    void enterChosen();
    void refresh();
    void showProgress(int done, int total);
    void takeChosen();
    void tell(const QString &message);
    void showStatus();
    void lookAtVisible();
    [[nodiscard]] QString currentPath() const;
    void openCurrent();
    void previewCurrent();
    void select();
    void remember();

    QComboBox *m_drives;
    NameLabel *m_path;
    QListWidget *m_directories;
    QComboBox *cmbFIletype;
    QListView *m_files;
    QListView *preview;
    kvTextBox *txtfilename;
    QLabel *lblStatus;
    QProgressBar *m_progress;
    Command *cmdOK;
    Command *Command1;
    Command *Command2;
    Thumbnails *thumbs;

    QString m_folder;
    QString m_message;
    QString m_result;
};
