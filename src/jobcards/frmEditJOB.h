#pragma once

#include "jobcards/JobCardStore.h"
#include "jobcards/clsJobCardData.h"
#include "ui/Screen.h"

class Command;
class DateField;
class JobCardItems;
class QCheckBox;
class QLabel;
class ScrollingText;
class kvComboBox;
class kvSMS;
class kvTextBox;

/// The order desk: one screen on which a job card is booked, changed, cancelled or deleted.
class frmEditJOB : public Screen {
    Q_OBJECT

public:
    frmEditJOB();

    /// Opens a fresh card and returns when the screen has closed.
    void ShowAddNew();
    /// Opens the card `JobID`. `JobDeleted` tells whether it was deleted, here or, which the user is told, by another
    /// program before. Throws RuntimeError: Overflow for a number above 32767.
    void ShowEdit(int JobID, bool &JobDeleted);

    /// Works the totals out from the list. Does nothing while the list is empty: the totals shown stay.
    void DoTotal();

protected:
    void done(int result) override;

private:
    void buildForm();
    [[nodiscard]] QWidget *buildGreeting();
    [[nodiscard]] QLayout *buildHead();
    [[nodiscard]] QLayout *buildFoot();
    [[nodiscard]] QLayout *buildCommands();
    void setTabs();
    void connectCommands();

    void prepareNew();
    /// False where there is no such card.
    [[nodiscard]] bool load(int jobID);
    void showTrialNote(int appeared, const QDate &appearedDate);
    void allowManualNumber();
    void showCards();

    void fillClients();
    void findClient();
    void addClient();
    void greetClient();
    void leaveReceived();
    void suggestAccount();
    void showAmountDue();
    void addItem();
    void editItem();
    void save();
    void complainOfDuplicate();
    void offerSMS();
    void deleteCard();
    [[nodiscard]] JobCard collect() const;

    ScrollingText *m_greeting;
    kvTextBox *txtJOBID;
    DateField *JobDate;
    kvComboBox *cmbClient;
    DateField *DateDel;
    DateField *DateTrial;
    QLabel *lblDelDate;
    QLabel *lblTrialInfo;
    JobCardItems *m_items;
    kvTextBox *txtRemark;
    kvTextBox *txtAmountDue;
    kvTextBox *txtAmountPaid;
    kvTextBox *txtAmount;
    kvComboBox *cmbAccount;
    QCheckBox *chJobStatus;
    QCheckBox *chStatus;
    QWidget *picCancel;
    kvTextBox *txtCancel;
    Command *Command1;
    Command *Command2;
    Command *Command3;
    Command *Command7;
    Command *Command8;
    Command *Command9;
    Command *Command11;
    Command *Command12;

    kvSMS *m_sms;
    JobCardStore m_store;
    clsJobCardData JobRows;
    bool m_jobDeleted = false;
    /// "&New" was chosen: a fresh card opens when this one has closed.
    bool m_freshWanted = false;
};
