#pragma once

#include "jobcards/CardFinder.h"
#include "ui/Screen.h"

#include <optional>

class Command;
class ListView;
class QLabel;
class kvTextBox;

/// Opens or prints a job card: by the number that stands on the client's paper, or by a part of his name or of his
/// mobile number, which lists his cards.
class frmOpenJob : public Screen {
    Q_OBJECT

public:
    frmOpenJob();

private:
    void buildForm();
    void connectCommands();
    void listCards();
    /// The card of the number typed or of the current line, if it is there; what is missing is told.
    [[nodiscard]] std::optional<int> chosenCard();
    void openCard();
    void printCard();

    kvTextBox *txtJOBID;
    ListView *lvFound;
    QLabel *lblMore;
    Command *cmdPrint;
    Command *Command1;
    /// None before a client was sought: whoever types a number waits for nothing.
    std::optional<CardFinder> m_cards;
};
