#pragma once

#include "ui/Screen.h"

class QLabel;

/// "Assign JOB to Worker": everything that the shop knows about one garment, who makes it and how far it is.
class frmEditWorkerAssign : public Screen {
    Q_OBJECT

public:
    frmEditWorkerAssign();

    /// Shows the item row `id` and returns when the screen has closed. Where the row is gone, says so.
    void ShowEdit(qint32 id);

private:
    QLabel *txtItemName;
    qint32 m_id = 0;
};
