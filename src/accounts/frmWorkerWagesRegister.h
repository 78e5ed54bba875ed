#pragma once

#include "ui/RegisterScreen.h"

#include <QHash>

class Command;
class PeriodFields;
class PiecesPanel;
class QLabel;
class QLayout;
class QRadioButton;
class kvComboBox;

/// "WAGES REGISTER": the finished garments of a worker in a period, what they come to, and their payroll.
class frmWorkerWagesRegister : public RegisterScreen {
    Q_OBJECT

public:
    frmWorkerWagesRegister();

    /// Lists the garments of the worker that the box's text begins, and the pieces of each item beside them. Without
    /// one the list is empty, and all else stays.
    void ExecuteSQL();
    /// Finished pieces of the item in the period, paid or not. As of the last fill. Throws RuntimeError (Overflow)
    /// beyond 32 bits.
    [[nodiscard]] qint32 GetItemWiseDetails(qint16 itemID) const;

protected:
    void refill() override { ExecuteSQL(); }
    void openRow(const ListRow &row) override;

private:
    void buildForm();
    [[nodiscard]] QLayout *buildQuery();
    [[nodiscard]] QLayout *buildLists();
    [[nodiscard]] QLayout *buildCommands();
    void connectCommands();
    void buildStatement(qint32 worker);
    void tellWhatAPayrollPosts();

    void view();
    void createPayroll();

    PeriodFields *m_period;
    kvComboBox *cmbClient;
    QRadioButton *op1;
    QRadioButton *op2;
    QRadioButton *op3;
    ListView *lvSummary;
    PiecesPanel *m_pieces;
    QLabel *lblPayroll;
    Command *cmdView;
    Command *cmdPayroll;
    Command *cmdPrint;
    Command *cmdDetails;

    QString WagesSQL;
    bool ViewIsUnpaid = false;
    QHash<int, qint64> m_quantities;
};
