#pragma once

#include "ui/Screen.h"

class BackupPage;
class Command;
class DateField;
class QCheckBox;
class QTabWidget;
class kvComboBox;
class kvSMS;
class kvTextBox;
class kvTextBoxMultiLine;

/// The shop's options on tabs, its backup, and the choice of its file. Nothing is stored before Save, but for what
/// `BackupPage` does.
class frmSettings : public Screen {
    Q_OBJECT

public:
    frmSettings();

    /// Modally, with the backup's page in front.
    void ShowBackup();

private:
    void buildForm();
    [[nodiscard]] QWidget *buildJobCard();
    [[nodiscard]] QWidget *buildGeneral();
    [[nodiscard]] QWidget *buildMessages();
    [[nodiscard]] QWidget *buildModem();
    [[nodiscard]] QWidget *buildDatabase();
    void connectCommands();

    /// Reads every field anew from the file in use.
    void load();
    void loadMessages();
    void loadGeneral();
    void save();
    void loadDefaultDrafts();
    void askModem();

    void selectDatabase();
    void apply();

    QTabWidget *SSTab1;
    kvTextBox *txtLogo;
    kvTextBox *txtTagLine;
    kvTextBox *txtFootNote;
    kvTextBox *txtStartNum;
    QCheckBox *chManual;
    kvTextBox *txtDelMargin;
    QCheckBox *chPrintAfterSave;
    QCheckBox *chPreview;

    QCheckBox *opChangeDateAuto;
    kvTextBox *txtWall;
    kvComboBox *cmbPeriod;
    QCheckBox *Check1;
    QWidget *frmDD;
    DateField *DateFrom;
    kvComboBox *cmbLanguage;
    kvComboBox *cmbHindiSlip;
    QCheckBox *chGlance;

    kvComboBox *cmbSMSJobID;
    kvComboBox *cmbSendAutoSMS;
    kvTextBox *txtSMSTitle;
    kvTextBoxMultiLine *txtSMS1;
    kvTextBoxMultiLine *txtSMS2;
    kvTextBoxMultiLine *txtSMS3;

    kvComboBox *cmbSMSPort;
    kvTextBox *txtTestNumber;
    kvTextBoxMultiLine *txtModemAnswer;
    kvSMS *m_modem;

    BackupPage *m_backup;

    kvTextBox *txtDBPath;

    Command *Command1;
    Command *Command2;
    Command *Command3;
    Command *Command8;
    Command *Command9;
    Command *Command10;
    Command *cmdTest;
    /// Of the title, before what the user does to it next.
    qsizetype m_titleLength = 0;
};
