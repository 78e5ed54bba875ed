#pragma once

#include "accounts/AccountStatement.h"
#include "ui/RegisterScreen.h"

class Command;
class PeriodFields;
class QLabel;
class QLayout;
class kvComboBox;
class kvSMS;

/// "Account Book": the statement of one account for a period, the way to its documents, and the statement on paper.
class frmAccountBook : public RegisterScreen {
    Q_OBJECT

public:
    frmAccountBook();

    /// Shows the statement of that account, a client as a rule, over the shop's default period.
    void ShowAccount(const QString &title);
    /// The accounts of the kind that is chosen.
    void loadList();
    /// The statement of the account that the box's text begins; without one, an empty list.
    void ExecuteSQL();

protected:
    void openRow(const ListRow &row) override;

private:
    void buildForm();
    [[nodiscard]] QLayout *buildQuery();
    [[nodiscard]] QLayout *buildSums();
    [[nodiscard]] QLayout *buildCommands();
    void connectCommands();

    void chooseGroup(int group);
    void view();
    void addEntry();
    void print();
    void sendDue();
    void showWages();
    void showSums();
    [[nodiscard]] bool requireAccount();

    kvComboBox *cmbType;
    kvComboBox *cmbAccount;
    PeriodFields *m_period;
    ListView *lvSummary;
    QLabel *lblOpening;
    QLabel *lblDebits;
    QLabel *lblCredits;
    QLabel *lblClosing;
    Command *cmdView;
    Command *cmdAdd;
    Command *cmdPrint;
    Command *cmdSMS;
    Command *cmdWages;
    Command *cmdDayBook;

    kvSMS *m_sms;
    /// As of the last fill; its rows are in the list.
    AccountStatement m_statement;
};
