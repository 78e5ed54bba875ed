#include "comms/frmSelectDate.h"

#include "base/session.h"
#include "comms/modBuildCVJS.h"
#include "ui/Command.h"
#include "ui/DateField.h"
#include "ui/NameLabel.h"
#include "ui/boxType.h"
#include "ui/complain.h"
#include "ui/fileChoice.h"
#include "ui/formFields.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"
#include "ui/theme.h"

#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

struct Period {
    QString words;
    int days;
    int months;
};

/// A week gives half a month on purpose.
const std::vector<Period> &periods()
{
    static const std::vector<Period> all{{u"1 Day"_s, 1, 0}, {u"1 Week"_s, 15, 0}, {u"1 Month"_s, 0, 1},
        {u"2 Months"_s, 0, 2}, {u"3 Months"_s, 0, 3}, {u"6 Months"_s, 0, 6}, {u"1 Year"_s, 0, 12}};
    return all;
}

constexpr int usualPeriod = 2;
const auto fileName = u"data.xml"_s;

/// On the first hard disk, where the programs that read the report look for it; on a system without drives, among the
/// user's documents.
QString usualPath()
{
    const auto drives = QDir::drives();
    for (const QFileInfo &drive : drives) {
        if (drive.path().startsWith(u"C:"_s))
            return u"C:\\"_s + fileName;
    }
    const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    return QDir::toNativeSeparators((documents.exists() ? documents : QDir::home()).filePath(fileName));
}

} // namespace

frmSelectDate::frmSelectDate() : Screen(u"frmSelectDate"_s, u"Export Job Card Status Report"_s)
{
    buildForm();
    connectCommands();
    cmbPeriod->setCurrentIndex(usualPeriod);
    DateFrom->setDate(session::CurrentDate);
    takePeriod();
    Text1->setText(usualPath());
    cmbPeriod->setFocus();
}

void frmSelectDate::buildForm()
{
    cmbPeriod = new kvComboBox(u"cmbPeriod"_s);
    cmbPeriod->setEditable(false);
    for (const Period &period : periods())
        cmbPeriod->addItem(period.words);
    DateFrom = new DateField(u"DateFrom"_s);
    DateTo = new DateField(u"DateTo"_s);
    cmdExport = new Command(u"cmdExport"_s, u"&Export"_s);
    cmdExport->setDefault(true);

    auto *form = new QGridLayout(this);
    form->setContentsMargins(28, 24, 28, 24);
    addField(*form, 0, u"Select &Period :"_s, cmbPeriod);
    QHBoxLayout *days = captionedRow({{u"&TO"_s, DateTo}});
    days->insertWidget(0, DateFrom);
    days->addStretch();
    form->addWidget(captionOf(DateFrom, u"&FROM"_s), 1, 0);
    form->addLayout(days, 1, 1);
    form->addLayout(buildPath(), 2, 1);
    form->addWidget(captionOf(Text1, u"File Pat&h:"_s), 2, 0);
    form->addWidget(lblPath, 3, 1);
    form->addWidget(cmdExport, 4, 1, Qt::AlignRight);
    form->setColumnStretch(1, 1);
    form->setRowStretch(5, 1);
    resize(620, 230);
    chainTabs({cmbPeriod, DateFrom, DateTo, Text1, cmdBrowse, cmdExport});
}

QLayout *frmSelectDate::buildPath()
{
    Text1 = new kvTextBox(u"Text1"_s, boxType::Plain);
    Text1->setAutoTab(false);
    cmdBrowse = new Command(u"cmdBrowse"_s, u"&Browse..."_s);
    lblPath = new NameLabel(u"lblPath"_s);
    auto *row = new QHBoxLayout;
    row->addWidget(Text1, 1);
    row->addWidget(cmdBrowse);
    return row;
}

void frmSelectDate::connectCommands()
{
    // Nothing can be typed there: a change is always a choice.
    connect(cmbPeriod, &QComboBox::activated, this, &frmSelectDate::choosePeriod);
    connect(Text1, &kvTextBox::changed, this, &frmSelectDate::tellOfPath);
    connect(cmdBrowse, &Command::clicked, this, &frmSelectDate::browse);
    connect(cmdExport, &Command::clicked, this, &frmSelectDate::exportReport);
}

void frmSelectDate::choosePeriod()
{
    if (const QString typed = DateFrom->refused(); !typed.isEmpty()) {
        cmbPeriod->setCurrentIndex(m_period);
        return complain(u"\"%1\" is not a date!"_s.arg(typed), DateFrom);
    }
    takePeriod();
}

void frmSelectDate::takePeriod()
{
    m_period = cmbPeriod->currentIndex();
    const Period &period = periods()[static_cast<size_t>(m_period)];
    DateTo->setDate(DateFrom->date().addDays(period.days).addMonths(period.months));
}

void frmSelectDate::browse()
{
    const QString path =
        fileChoice::save(windowTitle(), QDir::fromNativeSeparators(Text1->Text()), u"XML files (*.xml)"_s, u"xml"_s);
    if (!path.isEmpty())
        Text1->setText(QDir::toNativeSeparators(path));
}

/// A report that fails is silent, so what can be known of the place is told before.
void frmSelectDate::tellOfPath()
{
    const QString refusal = statusReport::refusal(Text1->Text());
    QPalette colours = lblPath->palette();
    colours.setColor(QPalette::WindowText, refusal.isEmpty() ? theme::muted() : theme::warning());
    lblPath->setPalette(colours);
    if (!refusal.isEmpty())
        return lblPath->setText(refusal + u" No report can be made."_s);
    lblPath->setText(QFileInfo::exists(Text1->Text()) ? u"The file that is there will be replaced."_s : QString());
}

void frmSelectDate::exportReport()
{
    if (hasRefusedDate(*this))
        return;
    if (DateFrom->date() > DateTo->date())
        return complain(u"Invalid Dates!"_s, DateTo);
    BuildStatusReport(DateFrom->date(), DateTo->date(), Text1->Text());
    tellOfPath();
}
