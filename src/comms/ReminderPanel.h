#pragma once

#include "store/settings.h"

#include <QWidget>

class Command;
class ListView;
class NameLabel;
class QLabel;
class kvSMS;
class kvTextBoxMultiLine;

/// What the screens that remind clients have below their list: the message, which the shop keeps, and its way to the
/// client of the current row. It goes to the number that the list's third column begins with, whatever that column is
/// about; which one that is stands beside the command at any time.
class ReminderPanel : public QWidget {
    Q_OBJECT

public:
    /// The message is kept under `key`. Until one is saved it is the shop's name and, below it, `usual`. REQUIRES:
    /// `list` outlives the panel.
    ReminderPanel(ListView &list, setting::Key key, const QString &usual);

    /// To the number of the current row. Nothing in an empty list.
    void send();
    void save();

    /// In the order of their tabs.
    [[nodiscard]] QList<QWidget *> fields() const;

private:
    void buildForm();
    [[nodiscard]] QString number() const;
    void showNumber();

    ListView &m_list;
    setting::Key m_key;
    kvSMS *m_sms;
    kvTextBoxMultiLine *txtMessage;
    NameLabel *lblNumber;
    QLabel *lblSaved;
    Command *Command2;
    Command *Command3;
};
