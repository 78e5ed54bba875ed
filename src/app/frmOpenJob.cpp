#include "app/frmOpenJob.h"

#include "base/values.h"
#include "jobcards/MODPrintJOBCARD.h"
#include "jobcards/frmEditJOB.h"
#include "store/DataEnvironment.h"
#include "store/lookups.h"
#include "ui/Command.h"
#include "ui/ListView.h"
#include "ui/boxType.h"
#include "ui/complain.h"
#include "ui/entryKeys.h"
#include "ui/formFields.h"
#include "ui/kvTextBox.h"

#include <QBoxLayout>
#include <QLabel>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr double largestJobNumber = std::numeric_limits<qint16>::max();
constexpr qsizetype longestJobNumber = 5;
constexpr size_t mostCards = 200;

bool isNumber(const QString &text)
{
    return std::ranges::all_of(text, [](QChar sign) { return sign.isDigit(); });
}

/// More digits are those of a phone.
bool isJobNumber(const QString &text)
{
    return text.size() <= longestJobNumber && isNumber(text);
}

ListRow rowOf(const CardFinder::Card &card)
{
    const QString state = card.isCancelled ? u"Cancelled"_s : card.isFinished ? u"Delivered"_s : u"Open"_s;
    return {.cells = {QString::number(card.number), DayMonthYear(card.date), titleOrBlank(card.client),
                mobileOrBlank(card.client), Money(card.amount.toDouble()), state},
        .tag = card.number};
}

QString whyEmpty(const QString &text)
{
    if (text.isEmpty())
        return u"A number and Enter open that card.\n"
               "A part of a client's name, or six digits or more of a mobile number, lists the cards, the newest first."_s;
    if (isJobNumber(text))
        return u"Enter opens job card %1."_s.arg(text);
    return u"No job card of a client with \"%1\" in the name or mobile number."_s.arg(text);
}

} // namespace

frmOpenJob::frmOpenJob() : Screen(u"frmOpenJob"_s, u"Open Job Card"_s)
{
    buildForm();
    connectCommands();
}

void frmOpenJob::buildForm()
{
    txtJOBID = new kvTextBox(u"txtJOBID"_s, boxType::Plain);
    lvFound = new ListView(u"lvFound"_s,
        {{u"Job Card #"_s, 11, true}, {u"Date"_s, 17}, {u"Client Name"_s, 27}, {u"Mobile"_s, 17},
            {u"Amount"_s, 13, true}, {u"Status"_s, 15}});
    lvFound->setAccessibleName(u"Job cards found"_s);
    lvFound->setEmptyText(whyEmpty({}));
    Command1 = new Command(u"Command1"_s, u"&Open"_s);
    Command1->setDefault(true);
    cmdPrint = new Command(u"cmdPrint"_s, u"&Print"_s);
    lblMore = hintLabel(u"Only the newest %1 are listed: type on to find others."_s.arg(mostCards));
    lblMore->setObjectName(u"lblMore"_s);
    lblMore->hide();

    auto *commands = new QHBoxLayout;
    commands->addWidget(lblMore, 1);
    commands->addStretch();
    commands->addWidget(cmdPrint);
    commands->addWidget(Command1);
    auto *whole = new QVBoxLayout(this);
    whole->addLayout(captionedRow({{u"&Job Card #, or client's name or mobile :"_s, txtJOBID}}));
    whole->addWidget(lvFound, 1);
    whole->addLayout(commands);
    resize(760, 420);
    chainTabs({txtJOBID, lvFound, cmdPrint, Command1});
    txtJOBID->setFocus();
}

void frmOpenJob::connectCommands()
{
    connect(txtJOBID, &kvTextBox::changed, this, &frmOpenJob::listCards);
    connect(lvFound, &ListView::opened, this, &frmOpenJob::openCard);
    connect(Command1, &Command::clicked, this, &frmOpenJob::openCard);
    connect(cmdPrint, &Command::clicked, this, &frmOpenJob::printCard);
    // One number, one Enter: the box would only move on to the command.
    onKey(
        Qt::Key_Return, u"Open"_s, [this] { Command1->trigger(); }, [this] { return !cmdPrint->hasFocus(); });
    printKey(cmdPrint);
    onKey(Qt::Key_Up, u"The card above"_s, [this] { static_cast<void>(ListNavKeys(*lvFound, keys::Up)); });
    onKey(Qt::Key_Down, u"The card below"_s, [this] { static_cast<void>(ListNavKeys(*lvFound, keys::Down)); });
}

void frmOpenJob::listCards()
{
    const QString text = txtJOBID->Text().simplified();
    std::vector<ListRow> rows;
    if (!isJobNumber(text)) {
        if (!m_cards)
            m_cards.emplace();
        const auto cards = m_cards->find(text, mostCards + 1);
        std::ranges::transform(cards, std::back_inserter(rows), rowOf);
    }
    lblMore->setVisible(rows.size() > mostCards);
    if (rows.size() > mostCards)
        rows.pop_back();
    lvFound->setEmptyText(whyEmpty(text));
    lvFound->list().setRows(std::move(rows));
    // Enter right after the last letter takes the newest.
    lvFound->setCurrentRow(0);
}

std::optional<int> frmOpenJob::chosenCard()
{
    const QString text = txtJOBID->Text().simplified();
    const double number = isJobNumber(text) ? Val(text) : lvFound->currentTag().toDouble();
    const bool possible = number >= 1 && number <= largestJobNumber;
    if (possible && GetFieldValueNum(u"ID"_s, u"jobs"_s, u"ID"_s, number, DE().rsJobs2).toDouble() >= 0)
        return Int32(number);
    txtJOBID->selectAll();
    complain(u"Job Card not found!"_s, txtJOBID);
    return {};
}

void frmOpenJob::openCard()
{
    const auto card = chosenCard();
    if (!card)
        return;
    accept();
    bool deleted = false;
    frmEditJOB().ShowEdit(*card, deleted);
}

void frmOpenJob::printCard()
{
    const auto card = chosenCard();
    if (!card)
        return;
    PrintJobCard(*card);
    txtJOBID->setFocus(Qt::OtherFocusReason);
}
