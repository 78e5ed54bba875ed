#pragma once

#include "ui/Screen.h"

class Command;
class QLabel;
class kvComboBox;
class kvSnap;

/// "Capture Picture from Web Cam". It stays open after a picture is taken, for another one or to be closed.
class frmCam : public Screen {
    Q_OBJECT

public:
    frmCam();

    /// Opens the dialog on the camera of setting 17. `Cancelled` comes back false where a picture was taken; it stands
    /// at `FilePath` then, in place of a file that had the path.
    void TakeSnap(const QString &FilePath, bool &Cancelled);

private:
    void buildForm();
    void connectCommands();
    void listCameras();
    void startCam();
    void stopCam();
    void capture();
    void keepDevice();
    void showState();

    kvComboBox *cmbList;
    kvSnap *m_snap;
    QLabel *lblStatus;
    Command *Command1;
    Command *Command2;
    Command *Command3;
    Command *Command4;

    bool CamCancelled = true;
    bool CamStopped = true;
};
