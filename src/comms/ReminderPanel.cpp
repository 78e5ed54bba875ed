#include "comms/ReminderPanel.h"

#include "comms/kvSMS.h"
#include "store/DataEnvironment.h"
#include "ui/Command.h"
#include "ui/ListView.h"
#include "ui/NameLabel.h"
#include "ui/formFields.h"
#include "ui/kvTextBoxMultiLine.h"
#include "ui/platformBox.h"

#include <QGridLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int numberColumn = 2;
constexpr int messageLines = 5;

/// As the main screen shows it.
QString shopName()
{
    Recordset &shop = DE().rsSHOP;
    shop.reopen(u"Select * from Shop"_s);
    const QString name = shop.eof() ? QString() : shop.text(u"Name");
    shop.close();
    return name;
}

} // namespace

ReminderPanel::ReminderPanel(ListView &list, setting::Key key, const QString &usual)
    : m_list(list), m_key(key), m_sms(new kvSMS(this))
{
    buildForm();
    txtMessage->setText(GetSetting(key, shopName() + u"\r\n"_s + usual));
    showNumber();
    connect(&list, &ListView::currentRowChanged, this, &ReminderPanel::showNumber);
    connect(Command2, &Command::clicked, this, &ReminderPanel::send);
    connect(Command3, &Command::clicked, this, &ReminderPanel::save);
    connect(txtMessage, &kvTextBoxMultiLine::changed, lblSaved, &QLabel::clear);
}

void ReminderPanel::buildForm()
{
    txtMessage = new kvTextBoxMultiLine(u"txtMessage"_s);
    txtMessage->setFixedHeight(txtMessage->fontMetrics().lineSpacing() * (messageLines + 1));
    lblNumber = new NameLabel(u"lblNumber"_s);
    lblNumber->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lblSaved = new QLabel;
    lblSaved->setObjectName(u"lblSaved"_s);
    Command2 = new Command(u"Command2"_s, u"Send SMS to selected"_s);
    Command3 = new Command(u"Command3"_s, u"Save Message"_s);

    auto *commands = new QHBoxLayout;
    commands->addWidget(Command3);
    commands->addWidget(lblSaved);
    commands->addWidget(lblNumber, 1);
    commands->addWidget(Command2);
    auto *form = new QGridLayout(this);
    form->setContentsMargins({});
    form->addWidget(captionOf(txtMessage, u"&Message :"_s), 0, 0, Qt::AlignTop);
    form->addWidget(txtMessage, 0, 1);
    form->addLayout(commands, 1, 1);
    form->setColumnStretch(1, 1);
}

QList<QWidget *> ReminderPanel::fields() const
{
    return {txtMessage, Command3, Command2};
}

QString ReminderPanel::number() const
{
    return m_list.list().cell(m_list.currentRow(), numberColumn);
}

void ReminderPanel::showNumber()
{
    if (m_list.currentRow() < 0)
        return lblNumber->clear();
    const QString column = m_list.list().columns().at(numberColumn).title;
    lblNumber->setText(number().isEmpty() ? u"No number in the column \"%1\""_s.arg(column)
                                          : u"Goes to %1 (column \"%2\")"_s.arg(kvSMS::dialled(number()), column));
}

void ReminderPanel::send()
{
    if (m_list.currentRow() >= 0 && m_sms->sendAtShopPort(number(), txtMessage->Text()))
        platformBox::show(u"Message Sent"_s);
}

void ReminderPanel::save()
{
    SaveSetting(m_key, txtMessage->Text());
    lblSaved->setText(u"The message is kept."_s);
}
