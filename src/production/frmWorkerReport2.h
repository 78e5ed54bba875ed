#pragma once

#include "store/itemRows.h"
#include "ui/RegisterScreen.h"

/// "Work Overview": the pieces that each worker has in hand, among those of a period. Lets the user choose a worker.
class frmWorkerReport2 : public RegisterScreen {
    Q_OBJECT

public:
    frmWorkerReport2();

    /// Shows the screen; `result` becomes the title of the worker that was chosen, "-1000" where none was. Throws
    /// RuntimeError (Overflow) where a worker has more than 32,767 pieces in hand.
    void ShowWorkerOverView(itemRows::Dated dated, QDate from, QDate to, QString &result);

    /// What `ExecuteSQL` shows from then on.
    void count(itemRows::Dated dated, QDate from, QDate to);
    void ExecuteSQL();
    /// Pieces that the worker has in hand. Throws as `ShowWorkerOverView`.
    [[nodiscard]] qint16 JobCount(qint16 workerID) const;

protected:
    void openRow(const ListRow &row) override;

private:
    ListView *lvSummary;
    QHash<int, qint64> m_inHand;
    QString m_chosen;
};
