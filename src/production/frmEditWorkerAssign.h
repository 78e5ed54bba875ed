#pragma once

#include "ui/Screen.h"

class Command;
class DateField;
class ImageSlot;
class NameLabel;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLayout;
class Recordset;
class StatusOptions;
class kvComboBox;
class kvSMS;
class kvTextBox;
class kvTextBoxMultiLine;

/// "Assign JOB to Worker": everything that the shop knows about one garment, who makes it, how far it is and where it
/// lies. It prints the worker's slip and the label, and tells the client when all is finished.
class frmEditWorkerAssign : public Screen {
    Q_OBJECT

public:
    frmEditWorkerAssign();

    /// Shows the item row `id` and returns when the screen has closed. Where the row is gone, says so.
    void ShowEdit(qint32 id);

    /// Shows the overall rating of the worker in `cmbWorker`; with "NA" what is shown stays.
    void RateWorker();

private:
    void buildForm();
    [[nodiscard]] QLayout *buildHead();
    [[nodiscard]] QLayout *buildWork();
    [[nodiscard]] QWidget *buildWorkerDetails();
    [[nodiscard]] QLayout *buildGarment();
    [[nodiscard]] QLayout *buildPictures();
    [[nodiscard]] QLayout *buildCommands();
    void setTabs();
    void connectCommands();

    void fillWorkers();
    void showRow(const Recordset &row);
    void showWorkerDetails(bool shown);
    void toggleWorkerDetails();
    void save();
    void complainOfWorker();
    void sendSMS();

    NameLabel *txtClient;
    QLabel *txtJOBID;
    NameLabel *txtItemName;
    QLabel *txtQuantity;
    QLabel *lblBookDate;
    QLabel *lblDelDate;
    kvComboBox *cmbWorker;
    QLabel *imgStars;
    QLabel *lblAvgScorer;
    QLabel *lblLastJob;
    StatusOptions *m_status;
    QCheckBox *chCutting;
    DateField *DtCutting;
    kvTextBox *txtLoc;
    QGroupBox *fWorkerDetails;
    kvTextBox *txtWagesDue;
    QCheckBox *chMarkasPaid;
    Command *lblHideShow;
    kvTextBoxMultiLine *txtCap;
    kvTextBoxMultiLine *txtSize;
    kvTextBoxMultiLine *txtRemark;
    kvTextBoxMultiLine *txtClientRemark;
    QLabel *picColor;
    ImageSlot *m_image1;
    ImageSlot *m_image2;
    Command *Command1;
    Command *Command2;
    Command *Command3;
    Command *Command4;
    Command *Command5;
    Command *Command6;
    Command *Command7;

    kvSMS *m_sms;
    qint32 m_id = 0;
};
