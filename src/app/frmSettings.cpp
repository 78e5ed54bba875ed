#include "app/frmSettings.h"

#include "app/BackupPage.h"
#include "app/SettingsPage.h"
#include "app/safetyCopy.h"
#include "app/sessionStart.h"
#include "app/shopSettings.h"
#include "base/RuntimeError.h"
#include "base/session.h"
#include "base/values.h"
#include "comms/kvSMS.h"
#include "comms/modSMS.h"
#include "pictures/frmSelectFile.h"
#include "store/settings.h"
#include "ui/Command.h"
#include "ui/DateField.h"
#include "ui/boxType.h"
#include "ui/complain.h"
#include "ui/entryFilters.h"
#include "ui/entryKeys.h"
#include "ui/fieldTip.h"
#include "ui/formFields.h"
#include "ui/frmMsg.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"
#include "ui/kvTextBoxMultiLine.h"
#include "ui/language.h"
#include "ui/modAutoSearch.h"
#include "ui/platformBox.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QScopeGuard>
#include <QTabWidget>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int lastPort = 16;
constexpr qsizetype longestTitle = 10;
/// Whatever a text is that somebody has pasted, none of it is cut.
constexpr int longestText = 1 << 24;
constexpr int draftHeight = 84;
constexpr int answerHeight = 120;
constexpr int numberWidth = 110;
constexpr auto useFromDateOnScreen = "0"_L1;

const QStringList &periods()
{
    static const QStringList texts{
        u"0 Day"_s, u"1 Day"_s, u"1 Week"_s, u"1 Month"_s, u"2 Months"_s, u"3 Months"_s, u"6 Months"_s, u"1 Year"_s};
    return texts;
}

kvTextBox *textBox(const QString &name, int type = boxType::Plain)
{
    auto *box = new kvTextBox(name, type);
    box->setMaxLength(longestText);
    return box;
}

kvTextBox *numberBox(const QString &name)
{
    auto *box = new kvTextBox(name, boxType::Plain);
    box->setMaximumWidth(numberWidth);
    filterKeys(box, DecimalKeysOnly);
    return box;
}

kvTextBoxMultiLine *draftBox(const QString &name)
{
    auto *box = new kvTextBoxMultiLine(name);
    box->setMinimumHeight(draftHeight / 2);
    box->setMaximumHeight(draftHeight);
    return box;
}

kvComboBox *yesNo(const QString &name)
{
    auto *combo = new kvComboBox(name);
    combo->addItems({u"Yes"_s, u"No"_s});
    installAutoSearch(combo);
    combo->setMaximumWidth(numberWidth);
    return combo;
}

kvComboBox *listOf(const QString &name, const QStringList &entries)
{
    auto *combo = new kvComboBox(name);
    combo->setEditable(false);
    combo->addItems(entries);
    combo->setMaximumWidth(2 * numberWidth);
    return combo;
}

QCheckBox *checkBox(const QString &name, const QString &caption)
{
    auto *box = new QCheckBox(caption);
    box->setObjectName(name);
    return box;
}

QString boxValue(const QCheckBox &box)
{
    return box.isChecked() ? u"1"_s : u"0"_s;
}

QString numberOf(const kvTextBox &box)
{
    return NumberText(Val(box.Text()));
}

/// The text of a list of answers; "No" where it is none of them.
QString answerOf(kvComboBox &combo)
{
    if (SelectComboEntry(combo) < 0)
        combo.setText(u"No"_s);
    return combo.Text();
}

/// A stored text that is no date, which nothing of the program writes, gives way to the default.
QDate storedDate(setting::Key key)
{
    const auto stored = readDateTime(GetSetting(key));
    return stored ? stored->date() : ParseDate(setting::defaultOf(key));
}

void selectInto(kvTextBox &box)
{
    if (const QString file = frmSelectFile::SelFile(); file != u"Cancel")
        box.setText(QDir::toNativeSeparators(file));
}

bool isTooLarge(const kvTextBox &box)
{
    return Val(box.Text()) > std::numeric_limits<qint32>::max();
}

/// The configuration keeps a path in one line, up to its first "=".
bool canBeConfigured(const QString &path)
{
    return !path.contains(u'=') && !path.contains(u'\n') && !path.contains(u'\r')
        && QString::fromUtf8(path.toUtf8()) == path;
}

} // namespace

frmSettings::frmSettings()
    : Screen(u"frmSettings"_s, u"Settings"_s), SSTab1(new QTabWidget), m_modem(new kvSMS(this)),
      m_backup(new BackupPage), Command1(new Command(u"Command1"_s, u"&Save"_s))
{
    SSTab1->setObjectName(u"SSTab1"_s);
    SSTab1->tabBar()->setAccessibleName(u"Groups of settings"_s);
    buildForm();
    connectCommands();
    load();
    TranslateForm(*this);
}

void frmSettings::ShowBackup()
{
    SSTab1->setCurrentWidget(m_backup);
    exec();
}

void frmSettings::buildForm()
{
    Command1->setDefault(true);
    SSTab1->addTab(buildJobCard(), u"&Job Card"_s);
    SSTab1->addTab(buildGeneral(), u"&General"_s);
    SSTab1->addTab(buildMessages(), u"&Messages"_s);
    SSTab1->addTab(buildModem(), u"M&odem"_s);
    SSTab1->addTab(m_backup, u"&Backup"_s);
    SSTab1->addTab(buildDatabase(), u"&Database"_s);
    auto *form = new QVBoxLayout(this);
    form->addWidget(SSTab1, 1);
    form->addWidget(Command1, 0, Qt::AlignRight);
    resize(760, 520);
}

QWidget *frmSettings::buildJobCard()
{
    txtLogo = textBox(u"txtLogo"_s);
    txtTagLine = textBox(u"txtTagLine"_s, boxType::Text);
    txtFootNote = textBox(u"txtFootNote"_s);
    txtStartNum = numberBox(u"txtStartNum"_s);
    chManual = checkBox(u"chManual"_s, u"Enter job id number manually"_s);
    txtDelMargin = numberBox(u"txtDelMargin"_s);
    chPrintAfterSave = checkBox(u"chPrintAfterSave"_s, u"Print  After Save Job Card"_s);
    chPreview = checkBox(u"chPreview"_s, u"Print With Print Preview"_s);
    Command2 = new Command(u"Command2"_s, u"Select"_s);

    SettingsPage page(new QWidget);
    page.add(u"Company Logo File :"_s, SettingsPage::together(txtLogo, {Command2}));
    page.add(u"Job Card Tag Line :"_s, txtTagLine, u"Stands below the shop's name on printed matter."_s);
    page.add(u"Job Card Footnote :"_s, txtFootNote);
    page.add(
        u"Start Job Card number from"_s, txtStartNum, u"The number of the shop's first card; the others follow it."_s);
    page.add(chManual, u"The number is then typed on each new card instead of counted."_s);
    page.add(
        u"Delivery Margin in Days"_s, txtDelMargin, u"A new card is promised for so many days after its booking."_s);
    page.add(chPrintAfterSave);
    page.add(chPreview);
    nameAloud(Command2, u"Select Company Logo File"_s);
    return page.finished();
}

QWidget *frmSettings::buildGeneral()
{
    opChangeDateAuto = checkBox(u"opChangeDateAuto"_s, u"Change Current Date automatically to system date "_s);
    txtWall = textBox(u"txtWall"_s);
    Command3 = new Command(u"Command3"_s, u"Select"_s);
    cmbPeriod = listOf(u"cmbPeriod"_s, periods());
    Check1 = checkBox(u"Check1"_s, u"Use Default From Date"_s);
    frmDD = new QWidget;
    frmDD->setObjectName(u"frmDD"_s);
    DateFrom = new DateField(u"DateFrom"_s);
    auto *inFrame = new QHBoxLayout(frmDD);
    inFrame->setContentsMargins({});
    inFrame->addWidget(captionOf(DateFrom, u"Default From Date:"_s));
    inFrame->addWidget(DateFrom);
    inFrame->addStretch();
    cmbLanguage = listOf(u"cmbLanguage"_s, {u"English"_s, u"Hindi"_s});
    cmbHindiSlip = listOf(u"cmbHindiSlip"_s, {u"Yes"_s, u"No"_s});
    chGlance = checkBox(u"chGlance"_s, u"Morning Glance on the main screen"_s);

    SettingsPage page(new QWidget);
    page.add(opChangeDateAuto, u"At each start. Else the working date stays as it was left."_s);
    page.add(
        u"Wallpaper Image File  :"_s, SettingsPage::together(txtWall, {Command3}), u"Shown from the next start on."_s);
    page.add(
        u"Default Period in Reports:"_s, cmbPeriod, u"How long after the first day of a register its last day is."_s);
    page.add(Check1, u"A register then begins with the date below, else with a date of its own."_s);
    page.add(frmDD);
    page.add(u"Language of the Shop :"_s, cmbLanguage);
    page.add(u"Worker Slip in Hindi :"_s, cmbHindiSlip, u"Counts where the language of the shop is Hindi."_s);
    page.add(chGlance, u"What is due today. Ctrl+G on the main screen hides it and shows it again."_s);
    nameAloud(Command3, u"Select Wallpaper Image File"_s);
    return page.finished();
}

QWidget *frmSettings::buildMessages()
{
    cmbSMSJobID = yesNo(u"cmbSMSJobID"_s);
    cmbSendAutoSMS = yesNo(u"cmbSendAutoSMS"_s);
    txtSMSTitle = textBox(u"txtSMSTitle"_s, boxType::Text);
    txtSMS1 = draftBox(u"txtSMS1"_s);
    txtSMS2 = draftBox(u"txtSMS2"_s);
    txtSMS3 = draftBox(u"txtSMS3"_s);
    Command8 = new Command(u"Command8"_s, u"Load Default Draft"_s);

    SettingsPage page(new QWidget);
    page.add(
        u"Send JOB ID via SMS"_s, SettingsPage::together(cmbSMSJobID, {hintLabel(u"(After Registration of a Job)"_s)}));
    page.add(u"Inform Client via SMS"_s,
        SettingsPage::together(cmbSendAutoSMS, {hintLabel(u"(After finished all Jobs)"_s)}));
    page.add(u"Company SMS Title :"_s, txtSMSTitle, u"At most 10 letters. Stands below the text of a message."_s);
    page.add(u"Job Registered SMS Draft"_s, txtSMS1);
    page.add(u"Finish JOB SMS Draft"_s, txtSMS2);
    page.add(u"Due Balance SMS Draft"_s, txtSMS3,
        u"In a draft %eid% stands for the job number and %amount% for the amount."_s);
    page.add(SettingsPage::inRow({Command8}));
    return page.finished();
}

QWidget *frmSettings::buildModem()
{
    cmbSMSPort = new kvComboBox(u"cmbSMSPort"_s);
    for (int port = 1; port <= lastPort; ++port)
        cmbSMSPort->addItem(QString::number(port));
    cmbSMSPort->setMaximumWidth(numberWidth);
    txtTestNumber = textBox(u"txtTestNumber"_s);
    txtTestNumber->setMaximumWidth(2 * numberWidth);
    cmdTest = new Command(u"cmdTest"_s, u"Send &Test Message"_s);
    txtModemAnswer = new kvTextBoxMultiLine(u"txtModemAnswer"_s);
    txtModemAnswer->setReadOnly(true);
    txtModemAnswer->setMaximumHeight(answerHeight);

    SettingsPage page(new QWidget);
    page.add(u"Modem Com Port"_s, cmbSMSPort,
        u"1 is the first modem on USB or, without one, the first serial port of the machine."_s);
    page.add(u"Test Message to :"_s, SettingsPage::inRow({txtTestNumber, cmdTest}),
        u"A mobile number. Without one the modem is only asked whether it is there."_s);
    page.add(u"The modem answered :"_s, txtModemAnswer,
        u"OK at the end says that the network has taken the message. A line with ERROR tells why it did not."_s);
    return page.finished();
}

QWidget *frmSettings::buildDatabase()
{
    txtDBPath = textBox(u"txtDBPath"_s);
    Command9 = new Command(u"Command9"_s, u"Apply"_s);
    Command10 = new Command(u"Command10"_s, u"Select Database"_s);

    SettingsPage page(new QWidget);
    page.add(u"Database file path:"_s, SettingsPage::together(txtDBPath, {Command9}),
        u"Apply goes over to this file at once. Where there is none, a new one is made."_s);
    page.add(SettingsPage::inRow({Command10}), u"Offers the shop's own file and the demo shop."_s);
    return page.finished();
}

void frmSettings::connectCommands()
{
    setEntryKeys(EnterMovesOn);
    for (Command *command : findChildren<Command *>())
        keepEnter(command);
    connect(Command1, &Command::clicked, this, &frmSettings::save);
    saveKey(Command1);
    connect(Command2, &Command::clicked, this, [this] { selectInto(*txtLogo); });
    connect(Command3, &Command::clicked, this, [this] { selectInto(*txtWall); });
    connect(Command8, &Command::clicked, this, &frmSettings::loadDefaultDrafts);
    connect(Command9, &Command::clicked, this, &frmSettings::apply);
    connect(Command10, &Command::clicked, this, &frmSettings::selectDatabase);
    connect(m_backup, &BackupPage::reopened, this, &frmSettings::load);
    connect(cmdTest, &Command::clicked, this, &frmSettings::askModem);
    connect(Check1, &QCheckBox::toggled, frmDD, &QWidget::setEnabled);
    connect(txtSMSTitle, &kvTextBox::keyPress, this, [this](int &key) {
        // Keys that type nothing, Backspace and the shortcuts go on.
        if (key < keys::Blank || txtSMSTitle->Text().size() < longestTitle)
            return;
        showFieldTip(*txtSMSTitle, u"At most 10 letters. Backspace makes room."_s);
        key = keys::Swallowed;
    });
    // What is pasted is cut; a longer title that is stored can be shortened letter by letter.
    connect(txtSMSTitle, &kvTextBox::textEdited, this, [this](const QString &text) {
        if (text.size() > longestTitle && text.size() > m_titleLength)
            txtSMSTitle->setText(text.left(std::max(longestTitle, m_titleLength)));
    });
    connect(txtSMSTitle, &kvTextBox::textChanged, this, [this] { m_titleLength = txtSMSTitle->Text().size(); });
}

void frmSettings::load()
{
    txtLogo->setText(GetSetting(setting::LogoFile));
    txtTagLine->setText(GetSetting(setting::TagLine));
    txtFootNote->setText(GetSetting(setting::FootNote));
    txtStartNum->setText(GetSetting(setting::FirstJobNumber));
    chManual->setChecked(settingIsOn(setting::ManualJobNumber));
    txtDelMargin->setText(GetSetting(setting::DeliveryMargin));
    chPrintAfterSave->setChecked(settingIsOn(setting::PrintAfterSave));
    chPreview->setChecked(settingIsOn(setting::PrintPreview));
    loadGeneral();
    loadMessages();
    m_backup->load();
    txtDBPath->setText(session::DBPath);
}

void frmSettings::loadGeneral()
{
    opChangeDateAuto->setChecked(settingIsOn(setting::FollowSystemDate));
    txtWall->setText(GetSetting(setting::WallpaperFile));
    const double period = Val(GetSetting(setting::DefaultPeriod));
    const bool isPeriod = period >= 0 && period < cmbPeriod->count();
    cmbPeriod->setCurrentIndex(Int32(isPeriod ? period : Val(setting::defaultOf(setting::DefaultPeriod))));
    DateFrom->setDate(storedDate(setting::DefaultFromDate));
    Check1->setChecked(Val(GetSetting(setting::UseDefaultFromDate, useFromDateOnScreen)) == 1);
    frmDD->setEnabled(Check1->isChecked());
    cmbLanguage->setText(GetSetting(setting::Language));
    cmbHindiSlip->setText(GetSetting(setting::HindiSlip));
    chGlance->setChecked(settingIsOn(setting::ShowMorningGlance));
}

void frmSettings::loadMessages()
{
    cmbSMSPort->setText(GetSetting(setting::ModemPort));
    cmbSMSJobID->setText(GetSetting(setting::SendJobNumber));
    cmbSendAutoSMS->setText(GetSetting(setting::InformWhenFinished));
    txtSMSTitle->setText(GetSetting(setting::SmsTitle));
    txtSMS1->setText(GetSetting(setting::BookedSms));
    txtSMS2->setText(GetSetting(setting::CompletedSms));
    txtSMS3->setText(GetSetting(setting::DueSms));
}

void frmSettings::save()
{
    if (hasRefusedDate(*this))
        return;
    for (kvTextBox *number : {txtStartNum, txtDelMargin}) {
        if (!isTooLarge(*number))
            continue;
        SSTab1->setCurrentIndex(0);
        return complain(u"This number is too large."_s, number);
    }
    if (Val(txtStartNum->Text()) < 1)
        txtStartNum->setText(u"1"_s);
    if (txtDBPath->Text().isEmpty())
        txtDBPath->setText(session::programPath(u"data.mdb"));
    std::vector<shopSettings::Change> changes{
        {setting::ModemPort, cmbSMSPort->Text()},
        {setting::InformWhenFinished, answerOf(*cmbSendAutoSMS)},
        {setting::SendJobNumber, answerOf(*cmbSMSJobID)},
        {setting::LogoFile, txtLogo->Text()},
        {setting::TagLine, txtTagLine->Text()},
        {setting::SmsTitle, txtSMSTitle->Text()},
        {setting::WallpaperFile, txtWall->Text()},
        {setting::DeliveryMargin, numberOf(*txtDelMargin)},
        {setting::PrintAfterSave, boxValue(*chPrintAfterSave)},
        {setting::PrintPreview, boxValue(*chPreview)},
        {setting::FollowSystemDate, boxValue(*opChangeDateAuto)},
        {setting::FirstJobNumber, numberOf(*txtStartNum)},
        {setting::BookedSms, txtSMS1->Text()},
        {setting::CompletedSms, txtSMS2->Text()},
        {setting::DueSms, txtSMS3->Text()},
        {setting::ManualJobNumber, boxValue(*chManual)},
        {setting::DefaultPeriod, QString::number(cmbPeriod->currentIndex())},
        {setting::DefaultFromDate, DateText(DateFrom->date())},
        {setting::UseDefaultFromDate, boxValue(*Check1)},
        {setting::FootNote, txtFootNote->Text()},
    };
    // These have a row only in a shop that once chose otherwise.
    for (const auto &[key, combo] :
        {std::pair(setting::Language, cmbLanguage), std::pair(setting::HindiSlip, cmbHindiSlip)}) {
        if (!combo->Text().isEmpty() && combo->Text() != GetSetting(key))
            changes.push_back({key, combo->Text()});
    }
    if (chGlance->isChecked() != settingIsOn(setting::ShowMorningGlance))
        changes.push_back({setting::ShowMorningGlance, boxValue(*chGlance)});
    shopSettings::save(changes);
    ShowMessage(u"Settings Updated."_s);
}

void frmSettings::loadDefaultDrafts()
{
    if (!platformBox::ask(u"Are you sure to load default SMS drafts?"_s))
        return;
    txtSMS1->setText(DefaultBookedSMS());
    txtSMS2->setText(DefaultCompletedSMS());
    txtSMS3->setText(DefaultDueSMS());
}

void frmSettings::askModem()
{
    if (cmbSMSPort->Text().isEmpty())
        return complain(u"Modem Com Port Error!"_s, cmbSMSPort);
    txtModemAnswer->setText({});
    const QString message = u"This is a test message of "_s + session::ShopName + u'.';
    txtModemAnswer->setText(m_modem->answerTo(kvSMS::portOf(cmbSMSPort->Text()), txtTestNumber->Text(), message));
}

void frmSettings::selectDatabase()
{
    const auto showPath = qScopeGuard([this] { txtDBPath->setText(session::DBPath); });
    if (offerDatabases())
        load();
}

void frmSettings::apply()
{
    const QString path = txtDBPath->Text();
    if (!canBeConfigured(path))
        return complain(
            u"A path with the sign \"=\" or with a line break cannot be kept in the configuration file."_s, txtDBPath);
    if (!path.isEmpty() && QDir::isRelativePath(path))
        return complain(u"Please enter the whole path of the file, with all folders."_s, txtDBPath);
    if (safetyCopy::isCopy(path))
        return complain(
            u"This is a safety copy, which the program takes away when its time has come. Work in it would be lost.\r\n"
            "Please copy the file to another folder first, and apply that one."_s,
            txtDBPath);
    const QString before = session::DBPath;
    session::DBPath = path;
    QString failure;
    try {
        WriteConfig();
    } catch (const RuntimeError &error) {
        session::DBPath = before;
        failure = platformBox::toldBy(error);
    }
    if (!failure.isEmpty())
        return platformBox::showCritical(failure);
    platformBox::show(u"Changes made to Configuration file has been saved."_s);
    RestartUnderScreen();
    load();
}
