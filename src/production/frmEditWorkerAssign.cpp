#include "production/frmEditWorkerAssign.h"

#include "base/session.h"
#include "base/values.h"
#include "comms/kvSMS.h"
#include "comms/modSMS.h"
#include "pictures/ImageSlot.h"
#include "pictures/clothColor.h"
#include "pictures/printPicture.h"
#include "production/StatusOptions.h"
#include "production/assignment.h"
#include "production/frmFeedBack.h"
#include "production/printAssignment.h"
#include "production/rowGone.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/lookups.h"
#include "store/settings.h"
#include "ui/Command.h"
#include "ui/DateField.h"
#include "ui/NameLabel.h"
#include "ui/accountCombo.h"
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
#include "ui/signs.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QScrollBar>
#include <QtMath>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostStars = 5;
constexpr int workerLetters = 20;
constexpr int noteHeight = 64;
/// So that the screen and its commands are seen whole on a low monitor.
constexpr int leastPictureHeight = 90;
constexpr int rowSpacing = 6;
constexpr int detailsMargin = 8;

QLabel *shownText(const QString &name, bool strong = false)
{
    auto *label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    QFont font = label->font();
    font.setBold(strong);
    label->setFont(font);
    return label;
}

NameLabel *shownName(const QString &name)
{
    auto *label = new NameLabel(name);
    QFont strong = label->font();
    strong.setBold(true);
    label->setFont(strong);
    return label;
}

/// A text of the job card, which is changed there.
kvTextBoxMultiLine *shownLines(const QString &name, const QString &spoken)
{
    auto *box = new kvTextBoxMultiLine(name);
    box->setReadOnly(true);
    nameAloud(box, spoken);
    return box;
}

/// Two boxes whose lines belong together scroll together.
void scrollTogether(QPlainTextEdit &one, QPlainTextEdit &other)
{
    QObject::connect(
        one.verticalScrollBar(), &QScrollBar::valueChanged, other.verticalScrollBar(), &QScrollBar::setValue);
    QObject::connect(
        other.verticalScrollBar(), &QScrollBar::valueChanged, one.verticalScrollBar(), &QScrollBar::setValue);
}

int widthOfLines(const QPlainTextEdit &box)
{
    const double margins = 2 * (box.document()->documentMargin() + box.frameWidth());
    return box.fontMetrics().size(0, box.toPlainText()).width() + qCeil(margins) + box.cursorWidth();
}

/// The amount in the field; none where it is not one. An empty field and a lone point stand for nothing.
std::optional<double> amountIn(const kvTextBox &box)
{
    const QString text = box.Text().trimmed();
    if (text.isEmpty() || text == u".")
        return 0;
    const auto amount = wholeNumberText(text);
    return amount && std::abs(*amount) <= largestAmount ? amount : std::nullopt;
}

} // namespace

frmEditWorkerAssign::frmEditWorkerAssign()
    : Screen(u"frmEditWorkerAssign"_s, u"Assign JOB to Worker"_s), m_sms(new kvSMS(this))
{
    buildForm();
    setTabs();
    connectCommands();
    setEntryKeys(EnterMovesOn);
}

void frmEditWorkerAssign::buildForm()
{
    auto *columns = new QHBoxLayout;
    columns->addLayout(buildWork(), 5);
    columns->addSpacing(8);
    columns->addLayout(buildGarment(), 5);
    columns->addSpacing(8);
    columns->addLayout(buildPictures(), 3);
    auto *whole = new QVBoxLayout(this);
    whole->addLayout(buildHead());
    whole->addLayout(columns, 1);
    whole->addLayout(buildCommands());
    resize(1160, 680);
}

QLayout *frmEditWorkerAssign::buildHead()
{
    txtClient = shownName(u"txtClient"_s);
    txtItemName = shownName(u"txtItemName"_s);
    txtJOBID = shownText(u"txtJOBID"_s, true);
    txtQuantity = shownText(u"txtQuantity"_s, true);
    lblBookDate = shownText(u"lblBookDate"_s);
    lblDelDate = shownText(u"lblDelDate"_s, true);

    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(rowSpacing);
    const auto add = [grid](int row, int column, const QString &caption, QLabel *shown) {
        grid->addWidget(captionOf(shown, caption), row, column);
        grid->addWidget(shown, row, column + 1);
    };
    add(0, 0, u"Client  Name :"_s, txtClient);
    add(0, 2, u"JOB ID"_s, txtJOBID);
    add(0, 4, u"Booking Date :"_s, lblBookDate);
    add(1, 0, u"Item Name :"_s, txtItemName);
    add(1, 2, u"Quantity :"_s, txtQuantity);
    add(1, 4, u"Delivery Date :"_s, lblDelDate);
    grid->setColumnStretch(1, 1);
    for (const int column : {3, 5})
        grid->setColumnMinimumWidth(column, 110);
    return grid;
}

QLayout *frmEditWorkerAssign::buildWork()
{
    cmbWorker = accountCombo(u"cmbWorker"_s);
    cmbWorker->setMinimumContentsLength(workerLetters);
    imgStars = shownText(u"imgStars"_s);
    lblAvgScorer = shownText(u"lblAvgScorer"_s);
    lblLastJob = shownText(u"lblLastJob"_s);
    // A name of any length widens nothing; its tip has it whole.
    lblLastJob->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_status = new StatusOptions;
    chCutting = new QCheckBox(u"Cutting Done"_s);
    chCutting->setObjectName(u"chCutting"_s);
    DtCutting = new DateField(u"DtCutting"_s);
    DtCutting->setAccessibleName(u"Cutting Date"_s);
    txtLoc = new kvTextBox(u"txtLoc"_s);
    lblHideShow = new Command(u"lblHideShow"_s, QString());
    lblHideShow->setFlat(true);

    auto *rating = new QHBoxLayout;
    rating->addWidget(lblAvgScorer);
    rating->addWidget(imgStars);
    rating->addStretch();
    auto *cut = new QHBoxLayout;
    cut->addWidget(chCutting);
    cut->addWidget(DtCutting);
    cut->addStretch();
    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(rowSpacing);
    grid->addWidget(captionOf(cmbWorker, u"Worker Name :"_s), 0, 0);
    grid->addWidget(cmbWorker, 0, 1);
    grid->addLayout(rating, 1, 1);
    grid->addWidget(lblLastJob, 2, 1);
    grid->addWidget(m_status, 3, 0, 1, 2);
    grid->addLayout(cut, 4, 1);
    grid->addWidget(captionOf(txtLoc, u"Location :"_s), 5, 0);
    grid->addWidget(txtLoc, 5, 1);
    grid->addWidget(lblHideShow, 6, 0, 1, 2, Qt::AlignLeft);
    grid->addWidget(buildWorkerDetails(), 7, 0, 1, 2);
    grid->setRowStretch(8, 1);
    grid->setColumnStretch(1, 1);
    return grid;
}

QWidget *frmEditWorkerAssign::buildWorkerDetails()
{
    fWorkerDetails = new QGroupBox(u"Worker Details"_s);
    fWorkerDetails->setObjectName(u"fWorkerDetails"_s);
    QSizePolicy keepsItsRoom = fWorkerDetails->sizePolicy();
    keepsItsRoom.setRetainSizeWhenHidden(true);
    fWorkerDetails->setSizePolicy(keepsItsRoom);
    txtWagesDue = new kvTextBox(u"txtWagesDue"_s, boxType::Plain);
    txtWagesDue->setAlignment(Qt::AlignRight);
    chMarkasPaid = new QCheckBox(u"Mark as Paid"_s);
    chMarkasPaid->setObjectName(u"chMarkasPaid"_s);
    // Payrolls know it; here it has only its place.
    auto *paidDate = new DateField(u"DtWagesPaid"_s);
    paidDate->setForBirthdays();
    paidDate->setEnabled(false);

    auto *grid = new QGridLayout(fWorkerDetails);
    const QMargins around = grid->contentsMargins();
    grid->setContentsMargins(around.left(), detailsMargin, around.right(), detailsMargin);
    grid->setVerticalSpacing(rowSpacing);
    grid->addWidget(captionOf(txtWagesDue, u"Wages Due :"_s), 0, 0);
    grid->addWidget(txtWagesDue, 0, 1);
    grid->addWidget(new QLabel(u"Wages Paid :"_s), 0, 2, Qt::AlignRight);
    grid->addWidget(chMarkasPaid, 0, 3);
    grid->addWidget(captionOf(paidDate, u"Wages Paid Date :"_s), 1, 0);
    grid->addWidget(paidDate, 1, 1);
    grid->setColumnStretch(1, 1);
    return fWorkerDetails;
}

QLayout *frmEditWorkerAssign::buildGarment()
{
    txtCap = shownLines(u"txtCap"_s, u"Measurements"_s);
    txtSize = shownLines(u"txtSize"_s, u"Size"_s);
    for (kvTextBoxMultiLine *box : {txtCap, txtSize})
        box->setLineWrapMode(QPlainTextEdit::NoWrap);
    txtCap->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scrollTogether(*txtCap, *txtSize);
    txtRemark = shownLines(u"txtRemark"_s, u"Remark"_s);
    txtClientRemark = shownLines(u"txtClientRemark"_s, u"Client Note"_s);
    for (kvTextBoxMultiLine *box : {txtRemark, txtClientRemark})
        box->setMaximumHeight(noteHeight);

    auto *measurements = new QHBoxLayout;
    measurements->setSpacing(2);
    measurements->addWidget(txtCap, 1);
    measurements->addWidget(txtSize, 1);
    auto *column = new QVBoxLayout;
    column->addWidget(new QLabel(u"Size :"_s));
    column->addLayout(measurements, 1);
    column->addWidget(new QLabel(u"Remark :"_s));
    column->addWidget(txtRemark);
    column->addWidget(new QLabel(u"Client Note :"_s));
    column->addWidget(txtClientRemark);
    return column;
}

QLayout *frmEditWorkerAssign::buildPictures()
{
    Command5 = new Command(u"Command5"_s, u"Print"_s);
    Command6 = new Command(u"Command6"_s, u"Print"_s);
    m_image1 = new ImageSlot(u"Image 1"_s, u"pic1"_s, u"txtPic1"_s, {Command5});
    m_image2 = new ImageSlot(u"Image 2"_s, u"pic2"_s, u"txtPic2"_s, {Command6});
    picColor = new QLabel;
    picColor->setObjectName(u"picColor"_s);
    picColor->setFixedSize(64, 28);

    auto *color = new QHBoxLayout;
    color->addWidget(new QLabel(u"Cloth Color :"_s));
    color->addWidget(picColor);
    color->addStretch();
    auto *column = new QVBoxLayout;
    column->addLayout(color);
    column->addWidget(m_image1, 1);
    column->addWidget(m_image2, 1);
    for (ImageSlot *slot : {m_image1, m_image2})
        slot->setLeastHeight(leastPictureHeight);
    return column;
}

QLayout *frmEditWorkerAssign::buildCommands()
{
    Command1 = new Command(u"Command1"_s, u"&Save"_s);
    Command1->setDefault(true);
    Command2 = new Command(u"Command2"_s, u"&Feedback"_s);
    Command3 = new Command(u"Command3"_s, u"&Print Slip"_s);
    Command4 = new Command(u"Command4"_s, u"Send S&MS"_s);
    Command7 = new Command(u"Command7"_s, u"Print &Label"_s);
    auto *row = new QHBoxLayout;
    row->addWidget(Command2);
    row->addWidget(Command4);
    row->addStretch();
    for (Command *command : {Command7, Command3, Command1})
        row->addWidget(command);
    return row;
}

void frmEditWorkerAssign::setTabs()
{
    chainTabs(QList<QWidget *>{cmbWorker} + m_status->tabOrder()
        + QList<QWidget *>{chCutting, DtCutting, txtLoc, lblHideShow, txtWagesDue, chMarkasPaid, Command1, Command3,
            Command7, Command4, Command2, txtCap, txtSize, txtRemark, txtClientRemark, Command5, Command6});
}

void frmEditWorkerAssign::connectCommands()
{
    connect(cmbWorker, &kvComboBox::changed, this, &frmEditWorkerAssign::RateWorker);
    connect(cmbWorker, &QComboBox::activated, this, &frmEditWorkerAssign::RateWorker);
    connect(cmbWorker, &kvComboBox::lostFocus, this, &frmEditWorkerAssign::RateWorker);
    filterKeys(txtWagesDue, DecimalKeysOnly);
    saveKey(Command1);
    printKey(Command3);
    onKey(Qt::ALT | Qt::Key_1, u"Show image 1"_s, [this] { m_image1->preview(); });
    onKey(Qt::ALT | Qt::Key_2, u"Show image 2"_s, [this] { m_image2->preview(); });
    onKey(Qt::CTRL | Qt::Key_1, u"Open image 1"_s, [this] { m_image1->open(); });
    onKey(Qt::CTRL | Qt::Key_2, u"Open image 2"_s, [this] { m_image2->open(); });
    onKey(Qt::CTRL | Qt::Key_W, u"Worker details: show or hide"_s, [this] { lblHideShow->trigger(); });

    connect(lblHideShow, &Command::clicked, this, &frmEditWorkerAssign::toggleWorkerDetails);
    connect(Command1, &Command::clicked, this, &frmEditWorkerAssign::save);
    connect(Command2, &Command::clicked, this, [this] {
        frmFeedBack().GiveFeedback(m_id, 0);
        RateWorker();
    });
    connect(Command3, &Command::clicked, this, [this] { printAssignment::slip(m_id); });
    connect(Command4, &Command::clicked, this, &frmEditWorkerAssign::sendSMS);
    connect(Command5, &Command::clicked, this, [this] { printPicture(m_image1->path()); });
    connect(Command6, &Command::clicked, this, [this] { printPicture(m_image2->path()); });
    connect(Command7, &Command::clicked, this, [this] { printAssignment::label(m_id); });
}

void frmEditWorkerAssign::ShowEdit(qint32 id)
{
    m_id = id;
    fillWorkers();
    showWorkerDetails(settingIsOn(setting::ShowWorkerDetails));
    Recordset &row = DE().rsJOBS_DETAIL;
    row.reopen(u"Select * from jobs_detail where ID="_s + QString::number(id));
    if (row.eof()) {
        row.close();
        return tellRowGone();
    }
    showRow(row);
    const QString lastJob = assignment::lastJob(row.date(u"Date"), row.integer(u"ItemID"), row.integer(u"ClintID"));
    row.close();
    lblLastJob->setText(lastJob);
    lblLastJob->setToolTip(plainTip(lastJob));
    exec();
}

void frmEditWorkerAssign::fillWorkers()
{
    // Nobody is rated who was not chosen.
    const QSignalBlocker quiet(cmbWorker);
    fillWithTitles(*cmbWorker, u" where Type="_s + QString::number(accountType::Worker), assignment::noWorker());
}

void frmEditWorkerAssign::showRow(const Recordset &row)
{
    const qint32 worker = row.integer(u"WorkerID");
    cmbWorker->setText(worker == 0 ? assignment::noWorker() : titleOrBlank(worker));
    txtClient->setText(titleOrBlank(row.integer(u"ClintID")));
    txtJOBID->setText(QString::number(row.integer(u"JobID")));
    txtItemName->setText(itemNameOrBlank(row.integer(u"ItemID")));
    txtQuantity->setText(QString::number(row.integer(u"QNT")));
    txtLoc->setText(row.textOrEmpty(u"Loc"));
    txtRemark->setText(row.text(u"Remarks"));
    txtCap->setText(row.text(u"ItemDetails"));
    // The values have the rest.
    txtCap->setMaximumWidth(qMax(widthOfLines(*txtCap), txtCap->minimumSizeHint().width()));
    txtSize->setText(row.text(u"ItemDetailsValue"));
    m_status->showRow(row);
    chCutting->setChecked(!row.isNull(u"CuttingStatus") && row.integer(u"CuttingStatus") != cutting::NotDone);
    DtCutting->setDate(row.date(u"CuttingDate"));
    txtWagesDue->setText(NumberText(row.number(u"WorkerWagesDue")));
    lblDelDate->setText(DayMonthYear(row.date(u"JobDelDate")));
    lblBookDate->setText(DayMonthYear(row.date(u"Date")));
    txtClientRemark->setText(row.text(u"ClientRemarks"));
    chMarkasPaid->setChecked(row.integer(u"MarkAsPaid") != 0);
    m_image1->showFile(row.textOrEmpty(u"img1"));
    m_image2->showFile(row.textOrEmpty(u"img2"));
    if (!row.isNull(u"Color"))
        clothColor::show(*picColor, row.number(u"Color"));
}

void frmEditWorkerAssign::showWorkerDetails(bool shown)
{
    fWorkerDetails->setVisible(shown);
    lblHideShow->setText(shown ? u"Hide Worker Details"_s : u"Show Worker Details"_s);
}

void frmEditWorkerAssign::toggleWorkerDetails()
{
    const bool shown = fWorkerDetails->isHidden();
    showWorkerDetails(shown);
    SaveSetting(setting::ShowWorkerDetails, shown ? u"1"_s : u"0"_s);
}

void frmEditWorkerAssign::RateWorker()
{
    const QString worker = cmbWorker->Text();
    if (worker == assignment::noWorker())
        return;
    const int rating = assignment::isAccount(worker) ? GetWorkerRating(GetAccountID(worker)) : 0;
    lblAvgScorer->setText(u"Overall Ratting : "_s + QString::number(rating));
    if (rating <= mostStars)
        return signs::showStars(*imgStars, rating);
    imgStars->clear();
    imgStars->setAccessibleName({});
}

void frmEditWorkerAssign::save()
{
    if (hasRefusedDate(*this))
        return;
    if (!requireEntry(*cmbWorker, u"Please Select Worker Name!"_s))
        return;
    const auto wages = amountIn(*txtWagesDue);
    if (!wages) {
        showWorkerDetails(true);
        return complain(u"Wages Due is not a valid amount!"_s, txtWagesDue);
    }
    const assignment::Assignment given{.worker = cmbWorker->Text(),
        .status = m_status->chosen(),
        .cuttingDone = chCutting->isChecked(),
        .cuttingDate = DtCutting->date(),
        .wages = *wages,
        .paid = chMarkasPaid->isChecked(),
        .location = txtLoc->Text()};
    switch (assignment::save(m_id, given)) {
    case assignment::Saved::Yes: break;
    case assignment::Saved::WorkerGone: return complainOfWorker();
    case assignment::Saved::RowGone: session::NeedRefresh = true; return tellRowGone();
    }
    session::NeedRefresh = true;
    m_status->showSaved(session::CurrentDate);
    ShowMessage(u"Job Assign."_s);
}

void frmEditWorkerAssign::complainOfWorker()
{
    const QString worker = cmbWorker->Text();
    fillWorkers();
    cmbWorker->setText(worker);
    complain(u"This worker is no longer there!\r\nPlease select another one. Nothing has been saved."_s, cmbWorker);
}

void frmEditWorkerAssign::sendSMS()
{
    const qint32 jobID = txtJOBID->text().toInt();
    if (!IsJobCompleted(jobID))
        return ShowMessage(u"All jobs not completed!"_s);
    if (AskUser(u"Send SMS Now?"_s) != 1)
        return;
    m_sms->sendAtShopPort(GetClientMobile(txtClient->text(), 0), GetCompletedSMS(jobID, 0));
}
