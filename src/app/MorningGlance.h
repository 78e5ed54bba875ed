#pragma once

#include <QDate>
#include <QFrame>
#include <QTimer>

#include <functional>
#include <vector>

class Command;
class QLabel;

/// What the working day begins with, on the main screen: a command a line, by Alt and its number, that leads to its
/// register. In a shop without a job card it begins with what leads to the first. It is shown once all lines have been
/// read, each in a turn of the event loop of its own, so that a key waits for one line at most; a line is read anew
/// when its tables were written to or the working date is another one.
class MorningGlance : public QFrame {
    Q_OBJECT

public:
    /// The parent is on a screen.
    explicit MorningGlance(QWidget *parent);

    /// Reads what is not as it was, as long as the screen is in front. Hides where the shop in use has switched it off.
    void lookAgain();
    /// Switches it off or on, for good and for the shop in use.
    void toggle();

signals:
    /// `open` shows the register of the line.
    void chosen(const std::function<void()> &open);

private:
    struct Entry {
        Command *command;
        QString text = {};
        std::function<void()> open = {};
    };
    /// What a source was last read from.
    struct Reading {
        size_t firstLine;
        QDate day = {};
        std::vector<quint64> stamps = {};
        bool hasFailed = false;
    };

    void buildForm();
    void readOn();
    [[nodiscard]] bool isAsRead(size_t number) const;
    void read(size_t number);
    void numberLines();

    QLabel *lblDay;
    Command *cmdHide;
    std::vector<Entry> m_lines;
    std::vector<Reading> m_readings;
    QTimer m_turn;
};
