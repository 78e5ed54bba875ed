#pragma once

#include "ui/Screen.h"

#include <QAbstractSlider>

class Command;
class QLabel;
class QScrollArea;

/// The message screen, through which all screens tell and ask. A text of any length fits: the window grows with it up
/// to the screen's size, from there on the text scrolls.
class frmMsg : public Screen {
    Q_OBJECT

public:
    enum Mode { Information = 1, Question = 2 };

    frmMsg();

    /// Shows `text` modally. Mode 1 has one button; mode 2 has Yes, which Enter means, and No, which Escape means.
    /// `result` is 1 for Ok and Yes, 0 otherwise.
    void ShowMessage(const QString &text, int mode, int &result);

private:
    friend class MessageTest;

    /// Shows the Hindi text that `Lang.mdb` has for `text`, the English one where it has none. No screen calls it so
    /// far. Throws RuntimeError where the file is missing or cannot be read.
    void ShowHindiMessage(const QString &text, int &result);

    void buildForm();
    void layOut(int mode);
    void scroll(QAbstractSlider::SliderAction step);
    void finish(int result);

    QLabel *lblTitle;
    QScrollArea *m_textArea;
    QLabel *lblMsg;
    Command *cmdOK;
    Command *cmdYes;
    Command *cmdNo;
    int Result = 0;
};

/// The one way to tell or ask the user something. `mode` 1 informs, with one button; `mode` 2 asks, and `result` is 1
/// for Yes and 0 for anything else.
void ShowMessage(const QString &text, int mode, int &result);
/// Informs.
void ShowMessage(const QString &text);
/// As `ShowMessage`, with the answer as result.
[[nodiscard]] int AskUser(const QString &text, int mode = frmMsg::Question);
