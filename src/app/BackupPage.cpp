#include "app/BackupPage.h"

#include "app/BackupLook.h"
#include "app/SettingsPage.h"
#include "app/backup.h"
#include "app/sessionStart.h"
#include "base/RuntimeError.h"
#include "base/clock.h"
#include "base/session.h"
#include "base/values.h"
#include "devices/shell.h"
#include "store/DataEnvironment.h"
#include "store/settings.h"
#include "ui/Command.h"
#include "ui/Progress.h"
#include "ui/boxType.h"
#include "ui/fileChoice.h"
#include "ui/formFields.h"
#include "ui/kvTextBox.h"
#include "ui/platformBox.h"
#include "ui/theme.h"

#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

QLabel *toldLine(const QString &name)
{
    auto *label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

void setInk(QLabel &label, const QColor &ink)
{
    QPalette colours = label.palette();
    colours.setColor(QPalette::WindowText, ink);
    label.setPalette(colours);
}

QString momentText(const QDateTime &moment)
{
    return DateText(moment.date()) + moment.toString(u" 'at' hh:mm"_s);
}

QString counted(int cards)
{
    const QString number = QLocale(QLocale::English, QLocale::UnitedStates).toString(cards);
    return cards == 1 ? u"1 card"_s : number + u" cards"_s;
}

/// What a backup holds, for whoever thinks of restoring it.
QString holdingText(const QString &backup, const fileCheck::Holding &holding)
{
    const QFileInfo file(backup);
    if (!holding.obstacle.isEmpty())
        return u"The backup %1 in this folder was not looked at. %2"_s.arg(file.fileName(), holding.obstacle);
    if (!holding.failure.isEmpty())
        return u"The backup %1 in this folder cannot be restored: %2"_s.arg(file.fileName(), holding.failure);
    QString text = u"The backup %1 in this folder, written on %2, holds %3"_s.arg(
        file.fileName(), momentText(file.lastModified()), counted(holding.cards));
    if (holding.lastCard.isValid())
        text += u", last on "_s + DateText(holding.lastCard);
    text += u'.';
    if (holding.version != session::SupportedDatabaseVersion)
        text += u" It is of version %1; this program works with version %2."_s.arg(
            NumberText(holding.version), QString::number(session::SupportedDatabaseVersion));
    return text;
}

} // namespace

BackupPage::BackupPage()
    : txtBackuppath(new kvTextBox(u"txtBackuppath"_s, boxType::Plain)), lblLastGood(toldLine(u"lblLastGood"_s)),
      lblHolding(toldLine(u"lblHolding"_s)), lblKept(toldLine(u"lblKept"_s)),
      Command4(new Command(u"Command4"_s, u"Backup Database"_s)),
      Command5(new Command(u"Command5"_s, u"Restore Database"_s)), Command6(new Command(u"Command6"_s, u"Browse..."_s)),
      Command7(new Command(u"Command7"_s, u"Open Folder"_s)), m_look(new BackupLook(this))
{
    buildPage();
    connect(Command4, &Command::clicked, this, &BackupPage::backUp);
    connect(Command5, &Command::clicked, this, &BackupPage::restore);
    connect(Command6, &Command::clicked, this, &BackupPage::browse);
    connect(Command7, &Command::clicked, this, &BackupPage::openFolder);
    connect(m_look, &BackupLook::told, this, [this](const QString &backup, const fileCheck::Holding &holding) {
        lblHolding->setText(holdingText(backup, holding));
    });
}

void BackupPage::buildPage()
{
    txtBackuppath->setReadOnly(true);
    lblKept->hide();
    SettingsPage page(this);
    page.add(u"Backup file path  :"_s, SettingsPage::together(txtBackuppath, {Command6, Command7}),
        u"Best on another disk, such as a memory stick. The folder has room for one backup; each replaces the last."_s);
    page.add(lblLastGood);
    page.add(lblHolding);
    page.add(SettingsPage::inRow({Command4, Command5}),
        u"Restoring puts what the backup holds in the place of the shop's file. "
        "The file that stood there is kept beside it, with the date in its name."_s);
    page.add(lblKept);
    page.addNote(
        u"Besides, the program puts a copy of the shop's file into the folder \"copies\" beside it once a day. "
        "It keeps the last seven, and one of each of the last twelve months. "
        "These do not help when the disk breaks."_s);
    page.finished();
    nameAloud(Command6, u"Browse for the backup folder"_s);
}

void BackupPage::load()
{
    txtBackuppath->setText(GetSetting(setting::BackupFolder));
    tellLastGood();
    tellHolding();
}

void BackupPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    tellHolding();
}

void BackupPage::tellLastGood()
{
    const QDateTime last = backup::lastGood();
    lblLastGood->setText(
        last.isValid() ? u"Last good backup: "_s + momentText(last) : u"No good backup of this shop is known yet."_s);
    setInk(*lblLastGood, backup::isDue() ? theme::warning() : theme::good());
}

void BackupPage::tellHolding()
{
    m_look->end();
    const QString folder = txtBackuppath->Text();
    if (folder.isEmpty())
        return lblHolding->setText(u"No folder is chosen yet."_s);
    if (!QFileInfo(folder).isDir())
        return lblHolding->setText(u"This folder is not there at the moment."_s);
    const QString found = backup::find(folder);
    if (found.isEmpty())
        return lblHolding->setText(u"This folder has no backup yet."_s);
    lblHolding->setText(u"Looking into the backup..."_s);
    // Whoever came for another page need not wait for it.
    if (isVisible())
        m_look->lookAt(found);
}

void BackupPage::browse()
{
    const QString folder = fileChoice::folder(u"Select a Folder"_s, txtBackuppath->Text());
    if (folder.isEmpty())
        return;
    txtBackuppath->setText(QDir::toNativeSeparators(folder));
    SaveSetting(setting::BackupFolder, txtBackuppath->Text());
    tellHolding();
}

bool BackupPage::isFolderMissing() const
{
    if (!txtBackuppath->Text().isEmpty())
        return false;
    platformBox::showCritical(u"Please select backup file path!"_s);
    return true;
}

void BackupPage::openFolder()
{
    if (isFolderMissing())
        return;
    if (!QFileInfo(txtBackuppath->Text()).isDir())
        return platformBox::showCritical(u"This folder is not there:\r\n"_s + txtBackuppath->Text());
    shell::openFile(txtBackuppath->Text());
}

void BackupPage::backUp()
{
    if (isFolderMissing())
        return;
    // The look would keep a file open that is replaced, which a memory stick may not bear.
    m_look->end();
    QString failure;
    bool isMade = false;
    try {
        Progress progress(u"The backup is being made and proven..."_s);
        isMade = backup::make(DE().CN.content(), txtBackuppath->Text(),
            [&progress](qint64 done, qint64 total) { return progress.at(done, total); });
        if (isMade)
            backup::noteGood(machineClock::now());
    } catch (const RuntimeError &error) {
        failure = platformBox::toldBy(error);
    }
    if (!failure.isEmpty())
        platformBox::showCritical(failure);
    else if (isMade)
        platformBox::show(u"Database Backup Created."_s);
    tellLastGood();
    tellHolding();
}

void BackupPage::restore()
{
    if (isFolderMissing())
        return;
    const QString found = backup::find(txtBackuppath->Text());
    if (found.isEmpty())
        return platformBox::showCritical(u"No backup file found!"_s);
    m_look->end();
    QString failure;
    backup::Restored restored;
    try {
        Progress progress(u"The backup is being checked and restored..."_s);
        restored = backup::restore(found, [&progress](qint64 done, qint64 total) { return progress.at(done, total); });
    } catch (const RuntimeError &error) {
        failure = platformBox::toldBy(error);
    }
    const bool isClosed = !DE().CN.isOpen();
    if (!failure.isEmpty()) {
        if (isClosed)
            OpenDatabase();
        platformBox::showCritical(failure);
    } else if (isClosed) {
        platformBox::show(u"Database restored."_s);
        RestartUnderScreen();
        // What the shop's file holds now stands in that backup, however old it is.
        backup::noteGood(QFileInfo(found).lastModified());
        lblKept->setText(u"The file that stood there is kept as "_s + QDir::toNativeSeparators(restored.keptAs));
        lblKept->setVisible(!restored.keptAs.isEmpty());
    }
    if (isClosed)
        emit reopened();
    else
        tellHolding();
}
