#include "app/frmOpenJob.h"

#include "base/values.h"
#include "jobcards/frmEditJOB.h"
#include "store/DataEnvironment.h"
#include "store/lookups.h"
#include "ui/Command.h"
#include "ui/boxType.h"
#include "ui/complain.h"
#include "ui/entryFilters.h"
#include "ui/entryKeys.h"
#include "ui/formFields.h"
#include "ui/kvTextBox.h"

#include <QGridLayout>
#include <QLabel>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr double largestJobNumber = std::numeric_limits<qint16>::max();

} // namespace

frmOpenJob::frmOpenJob()
    : Screen(u"frmOpenJob"_s, u"Open Job Card"_s), txtJOBID(new kvTextBox(u"txtJOBID"_s, boxType::Plain)),
      Command1(new Command(u"Command1"_s, u"&Open"_s))
{
    Command1->setDefault(true);

    auto *form = new QGridLayout(this);
    form->setContentsMargins(28, 24, 28, 24);
    addField(*form, 0, u"&Job Card #"_s, txtJOBID);
    form->addWidget(Command1, 1, 1, Qt::AlignRight);
    form->setColumnMinimumWidth(1, 180);
    form->setSizeConstraint(QLayout::SetFixedSize);

    filterKeys(txtJOBID, DigitKeysOnly);
    connect(Command1, &Command::clicked, this, &frmOpenJob::openCard);
    // One number, one Enter: the box would only move on to the command.
    onKey(Qt::Key_Return, u"Open"_s, [this] { Command1->trigger(); });
}

void frmOpenJob::openCard()
{
    const double number = Val(txtJOBID->Text());
    const bool possible = number >= 1 && number <= largestJobNumber;
    if (!possible || GetFieldValueNum(u"ID"_s, u"jobs"_s, u"ID"_s, number, DE().rsJobs2).toDouble() < 0) {
        txtJOBID->selectAll();
        return complain(u"Job Card not found!"_s, txtJOBID);
    }
    accept();
    bool deleted = false;
    frmEditJOB().ShowEdit(Int32(number), deleted);
}
