#pragma once

#include "ui/Screen.h"

class Command;
class QLabel;
class kvComboBox;
class kvTextBoxMultiLine;

/// "Client Feedback": what the client says of a finished garment, a score and words.
class frmFeedBack : public Screen {
    Q_OBJECT

public:
    frmFeedBack();

    /// Shows the feedback of the item row `id`; with `readOnly` 1 it cannot be saved. Where the row is gone, says so.
    void GiveFeedback(qint32 id, qint16 readOnly);

    /// Shows the stars of the score that is chosen or typed; one that is not 0 to 5 leaves what is shown.
    void ChangeStars();

private:
    void buildForm();
    void save();

    kvComboBox *cmbScore;
    QLabel *imgStars;
    kvTextBoxMultiLine *txtFeedback;
    Command *Command1;
    Command *Command2;

    qint32 m_id = 0;
};
