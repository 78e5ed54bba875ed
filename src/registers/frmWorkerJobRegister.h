#pragma once

#include "ui/RegisterScreen.h"

#include <QHash>

#include <optional>

class Command;
class ListView;
class MarkedRows;
class NameLabel;
class PeriodFields;
class PiecesPanel;
class QLayout;
class QRadioButton;
class kvComboBox;
class kvTextBox;

/// The shop's working list: the garments of a period, of one worker, one client or one job, where they stand and hang,
/// and the marks by which a day's work on them is recorded. Bought goods are never listed.
class frmWorkerJobRegister : public RegisterScreen {
    Q_OBJECT

public:
    frmWorkerJobRegister();

    /// Lists all garments that were asked for last, whatever their state, and beside them the pieces of each item.
    void ExecuteSQL();
    /// Each keeps the rows of one word and counts them anew: a status; "Cutting Done" or "Cutting Not Done"; "Assigned"
    /// or "Not Assigned".
    void RemoveUnwanted(const QString &word);
    void RemoveUnwanted2(const QString &word);
    void RemoveUnwanted3(const QString &word);

    /// Pieces of the item that were booked in the period, whatever their state, bought goods among them, as of the last
    /// fill: where a worker is listed, his; where all are, theirs. Throws RuntimeError (Overflow) beyond 32 bits.
    [[nodiscard]] qint32 GetItemWiseDetails(qint16 itemID) const;
    [[nodiscard]] qint32 GetItemWiseDetails2(qint16 itemID) const;

protected:
    void refill() override;
    void openRow(const ListRow &row) override;
    void fillDetails();

private:
    void buildForm();
    [[nodiscard]] QLayout *buildQuery();
    [[nodiscard]] QLayout *buildSearch();
    [[nodiscard]] QLayout *buildLists();
    [[nodiscard]] QLayout *buildCommands();
    void connectCommands();
    void setMarks();

    void fillWorkers();
    void findAccount();
    [[nodiscard]] QString statement() const;
    [[nodiscard]] std::vector<ListRow> readRows();
    void tellWhatIsListed(const QString &condition);
    void filterChosen();
    void keepFiltered(const std::function<void(std::vector<ListRow> &rows)> &filter);

    void view();
    void searchJob();
    void quickFind();
    void overview();
    void openAccount(const ListRow &row);
    void afterMark(const QString &what, const ListRow &row, const std::optional<MarkedRows> &marked);
    void takeBack(const QString &what, const MarkedRows &marked, const ListRow &row);

    PeriodFields *m_period;
    QRadioButton *opDt1;
    QRadioButton *opDt2;
    QRadioButton *OpInc;
    QRadioButton *OpDesc;
    kvComboBox *cmbClient;
    kvComboBox *cmbCondition;
    kvTextBox *txtSearchID;
    NameLabel *lblListed;
    ListView *lvSummary;
    PiecesPanel *m_pieces;
    Command *Command1;
    Command *Command3;
    Command *Command4;
    Command *Command8;

    QString mode;
    QString dateColumn;
    QString sortOrder;
    /// The name that Quick Find gave.
    QString m_client;
    /// The worker or the client whose rows are listed, and the title that he was found by.
    qint32 m_account = 0;
    QString m_whom;
    QHash<int, qint64> m_quantities;
};
