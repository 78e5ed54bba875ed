#include "production/frmFeedBack.h"

#include "base/values.h"
#include "production/feedback.h"
#include "production/rowGone.h"
#include "ui/Command.h"
#include "ui/complain.h"
#include "ui/formFields.h"
#include "ui/frmMsg.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBoxMultiLine.h"
#include "ui/signs.h"

#include <QGridLayout>
#include <QLabel>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostStars = 5;
/// A worker's sum has room for tens of thousands of them.
constexpr double highestScore = std::numeric_limits<qint16>::max();

} // namespace

frmFeedBack::frmFeedBack() : Screen(u"frmFeedBack"_s, u"Client Feedback"_s)
{
    buildForm();
    setEntryKeys(EnterMovesOn);
    connect(cmbScore, &kvComboBox::changed, this, &frmFeedBack::ChangeStars);
    connect(cmbScore, &kvComboBox::gotFocus, this, &frmFeedBack::ChangeStars);
    saveKey(Command1);
    connect(Command1, &Command::clicked, this, &frmFeedBack::save);
    connect(Command2, &Command::clicked, this, &QDialog::reject);
}

void frmFeedBack::buildForm()
{
    cmbScore = new kvComboBox(u"cmbScore"_s);
    for (int score = 0; score <= mostStars; ++score)
        cmbScore->addItem(QString::number(score));
    cmbScore->setText(u"0"_s);
    imgStars = new QLabel;
    imgStars->setObjectName(u"imgStars"_s);
    txtFeedback = new kvTextBoxMultiLine(u"txtFeedback"_s);
    Command1 = new Command(u"Command1"_s, u"&Ok"_s);
    Command1->setDefault(true);
    Command2 = new Command(u"Command2"_s, u"&Cancel"_s);

    auto *form = new QGridLayout(this);
    form->addWidget(captionOf(cmbScore, u"&Score :"_s), 0, 0);
    form->addWidget(cmbScore, 0, 1);
    form->addWidget(imgStars, 0, 2);
    form->addWidget(captionOf(txtFeedback, u"&Feedback :"_s), 1, 0, Qt::AlignTop);
    form->addWidget(txtFeedback, 1, 1, 1, 3);
    auto *commands = new QHBoxLayout;
    commands->addStretch();
    commands->addWidget(Command2);
    commands->addWidget(Command1);
    form->addLayout(commands, 2, 0, 1, 4);
    form->setColumnStretch(3, 1);
    resize(560, 320);
    chainTabs({cmbScore, txtFeedback, Command1, Command2});
}

void frmFeedBack::GiveFeedback(qint32 id, qint16 readOnly)
{
    const auto given = feedback::read(id);
    if (!given)
        return tellRowGone();
    m_id = id;
    if (!given->score.isEmpty())
        cmbScore->setText(given->score);
    txtFeedback->setText(given->words);
    ChangeStars();
    Command1->setEnabled(readOnly != 1);
    exec();
}

void frmFeedBack::ChangeStars()
{
    const double score = Val(cmbScore->Text());
    if (score >= 0 && score <= mostStars && score == std::floor(score))
        signs::showStars(*imgStars, static_cast<int>(score));
}

void frmFeedBack::save()
{
    const double score = Val(cmbScore->Text());
    if (std::abs(score) > highestScore)
        return complain(u"Please enter a score from 0 to 5!"_s, cmbScore);
    if (!feedback::save(m_id, score, txtFeedback->Text()))
        return tellRowGone();
    ShowMessage(u"Feedback saved!"_s);
}
