#pragma once

#include "ui/RegisterScreen.h"

#include <QDate>

class Command;
class NameLabel;
class PeriodFields;
class QLabel;
class QLayout;
class QTreeView;
class kvComboBox;
class kvTextBox;

/// The garments by the day that they are promised for: what is due between two days, how many days are left, who has
/// it, and where it stands. Bought goods are among them.
class frmDeliveryRegister : public RegisterScreen {
    Q_OBJECT

public:
    frmDeliveryRegister();

    /// Lists what was asked for last anew, whatever its status.
    void ExecuteSQL();
    /// Keeps the rows of that status, by its word, and counts them anew.
    void RemoveUnwanted(const QString &word);

    /// Modal. Lists what is promised for these days, both included, and is neither handed over nor cancelled, until the
    /// list is asked for by another command.
    void ShowOpen(QDate from, QDate to);

protected:
    void activated() override;
    void refill() override;
    void openRow(const ListRow &row) override;

private:
    void buildForm();
    [[nodiscard]] QLayout *buildQuery();
    [[nodiscard]] QLayout *buildSearch();
    [[nodiscard]] QLayout *buildCommands();
    void connectCommands();
    void takeHindiHeads();
    void fillWorkers();

    void joinStatement();
    /// Whom the list is about. Where nobody has that title any more, it is the one that had it.
    [[nodiscard]] QString accountID(const QString &title);
    [[nodiscard]] std::vector<ListRow> readRows();
    void filterChosen();
    void tellWhatIsListed(const QString &status);

    void showAll();
    void searchJob();
    void quickFind();
    void readAgain();

    PeriodFields *m_period;
    kvComboBox *cmbClient;
    kvComboBox *cmbCondition;
    kvTextBox *txtSearchID;
    NameLabel *lblListed;
    QLabel *lblCurrentDate;
    ListView *lvSummary;
    /// Never shown: where the list's head has its Hindi font from.
    QTreeView *ListView1;
    Command *Command4;
    Command *Command8;

    /// What is listed: "C" the garments of all workers, "S" of one, "SID" of a job, "CUST" of a client.
    QString mode;
    /// The statement joined last.
    QString sql;
    /// The name that Quick Find gave.
    QString m_client;
    qint32 m_account = 0;
    /// The title that he was found by.
    QString m_whom;
    bool m_openOnly = false;
};
