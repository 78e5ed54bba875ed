#pragma once

#include <QWidget>

class BackupLook;
class Command;
class QLabel;
class kvTextBox;

/// The page of the settings that makes a backup of the shop's file and restores one. It stores the folder as soon as it
/// is chosen, and tells what the folder's backup holds before anything is done with it.
class BackupPage : public QWidget {
    Q_OBJECT

public:
    BackupPage();

    /// Reads the folder anew from the file in use.
    void load();

signals:
    /// A restore has closed the file that was in use, and one is open again.
    void reopened();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void buildPage();
    void tellLastGood();
    void tellHolding();
    void browse();
    [[nodiscard]] bool isFolderMissing() const;
    void openFolder();
    void backUp();
    void restore();

    kvTextBox *txtBackuppath;
    QLabel *lblLastGood;
    QLabel *lblHolding;
    QLabel *lblKept;
    Command *Command4;
    Command *Command5;
    Command *Command6;
    Command *Command7;
    BackupLook *m_look;
};
