#include "jobcards/frmAddItem.h"

#include "base/RuntimeError.h"
#include "base/clock.h"
#include "base/session.h"
#include "base/values.h"
#include "jobcards/ItemDetails.h"
#include "jobcards/clsJobCardData.h"
#include "pictures/ImageSlot.h"
#include "pictures/clothColor.h"
#include "pictures/frmCam.h"
#include "pictures/frmHandNote.h"
#include "pictures/frmSelectFile.h"
#include "store/DataEnvironment.h"
#include "store/lookups.h"
#include "ui/Command.h"
#include "ui/NameLabel.h"
#include "ui/boxType.h"
#include "ui/complain.h"
#include "ui/entryFilters.h"
#include "ui/entryKeys.h"
#include "ui/formFields.h"
#include "ui/frmMsg.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"
#include "ui/kvTextBoxMultiLine.h"
#include "ui/modAutoSearch.h"

#include <QBoxLayout>
#include <QColorDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QRadioButton>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// What of an item's name can be read on the smallest monitor.
constexpr int itemLetters = 16;
/// Behind the client, a picture's name says when it was made.
constexpr qsizetype mostNameBytes = 180;
constexpr int largestQuantity = std::numeric_limits<qint16>::max();
const QString lineEnd = u"\r\n"_s;

/// The lines of a measurement text; an empty text has none.
QStringList linesOf(const QString &text)
{
    return text.isEmpty() ? QStringList() : text.split(lineEnd);
}

} // namespace

frmAddItem::frmAddItem() : Screen(u"frmAddItem"_s, u"Item"_s)
{
    buildForm();
    connectCommands();
    setComboEntries(*cmbItems, FillComboAll(u"Name"_s, u"Name"_s, u"Items"_s, DE().rsITEMS));
    showColor(clothColor::number(Qt::white));
    setEntryKeys(EnterMovesOn);
    keepEnter(cmbItems);
    for (Command *command : {Command1, Command3, Command7, Command6, Command4, Command8, Command5})
        keepEnter(command);
}

void frmAddItem::buildForm()
{
    auto *columns = new QHBoxLayout;
    columns->addLayout(buildOrder(), 2);
    columns->addSpacing(12);
    columns->addLayout(buildCloth(), 3);
    auto *commands = new QHBoxLayout;
    Command2 = new Command(u"Command2"_s, u"Clean Form"_s);
    Command1 = new Command(u"Command1"_s, u"&OK"_s);
    Command1->setDefault(true);
    commands->addWidget(Command2);
    commands->addStretch();
    commands->addWidget(Command1);
    auto *whole = new QVBoxLayout(this);
    whole->addLayout(columns);
    whole->addLayout(commands);
    resize(1080, 620);

    chainTabs({cmbItems, txtQnt, txtFees, ItemDetails1, txtRemark, txtClientRemark, picColor, opIsInv, Command3,
        Command7, Command6, Command4, Command8, Command5, Command2, Command1});
}

QLayout *frmAddItem::buildOrder()
{
    lblClint = new NameLabel(u"lblClint"_s);
    cmbItems = new kvComboBox(u"cmbItems"_s);
    installAutoSearch(cmbItems);
    cmbItems->setMinimumContentsLength(itemLetters);
    lblLast = new QLabel;
    lblLast->setObjectName(u"lblLast"_s);
    txtQnt = new kvTextBox(u"txtQnt"_s, boxType::Plain);
    txtQnt->setText(u"1"_s);
    txtQnt->setAlignment(Qt::AlignRight);
    txtFees = new kvTextBox(u"txtFees"_s, boxType::Plain);
    txtFees->setText(u"0"_s);
    txtFees->setAlignment(Qt::AlignRight);
    ItemDetails1 = new ::ItemDetails(u"ItemDetails1"_s);
    auto *fields = new QGridLayout;
    fields->setColumnStretch(1, 1);
    addField(*fields, 0, u"Client :"_s, lblClint);
    addField(*fields, 1, u"Item :"_s, cmbItems);
    fields->addWidget(lblLast, 2, 1);
    addField(*fields, 3, u"Quantity :"_s, txtQnt);
    addField(*fields, 4, u"Fees :"_s, txtFees);
    auto *column = new QVBoxLayout;
    column->addLayout(fields);
    column->addWidget(ItemDetails1, 1);
    return column;
}

QLayout *frmAddItem::buildCloth()
{
    txtRemark = new kvTextBox(u"txtRemark"_s);
    txtClientRemark = new kvTextBoxMultiLine(u"txtClientRemark"_s);
    txtClientRemark->setMaximumHeight(84);
    picColor = new QPushButton;
    picColor->setObjectName(u"picColor"_s);
    picColor->setAutoDefault(false);
    picColor->setFixedSize(64, 28);
    auto *colorNote = new QLabel(u" [Click Box to set color]"_s);
    auto *colorRow = new QWidget;
    auto *colorLayout = new QHBoxLayout(colorRow);
    colorLayout->setContentsMargins({});
    colorLayout->addWidget(picColor);
    colorLayout->addWidget(colorNote);
    colorLayout->addStretch();
    colorRow->setFocusProxy(picColor);
    opIsInv = new QRadioButton(u"Mark as Inventory"_s);
    opIsInv->setObjectName(u"opIsInv"_s);
    opIsInv->setAutoExclusive(false);

    auto *fields = new QGridLayout;
    fields->setColumnStretch(1, 1);
    addField(*fields, 0, u"Cloth Remark"_s, txtRemark);
    addField(*fields, 1, u"Cllient Note :"_s, txtClientRemark);
    addField(*fields, 2, u"Cloth Color :"_s, colorRow);
    fields->addWidget(opIsInv, 3, 1);

    Command3 = new Command(u"Command3"_s, u"Web Cam"_s);
    Command7 = new Command(u"Command7"_s, u"Hand Note"_s);
    Command6 = new Command(u"Command6"_s, u"Clear"_s);
    Command4 = new Command(u"Command4"_s, u"Web Cam"_s);
    Command8 = new Command(u"Command8"_s, u"Insert Image"_s);
    Command5 = new Command(u"Command5"_s, u"Clear"_s);
    auto *images = new QHBoxLayout;
    m_image1 = new ImageSlot(u"Image 1"_s, u"pic1"_s, u"picPath1"_s, {Command3, Command7, Command6});
    m_image2 = new ImageSlot(u"Image 2"_s, u"pic2"_s, u"picPath2"_s, {Command4, Command8, Command5});
    images->addWidget(m_image1);
    images->addWidget(m_image2);

    auto *column = new QVBoxLayout;
    column->addLayout(fields);
    column->addLayout(images, 1);
    return column;
}

void frmAddItem::connectCommands()
{
    filterKeys(txtQnt, DigitKeysOnly);
    filterKeys(txtFees, DecimalKeysOnly);

    onKey(Qt::ALT | Qt::Key_1, u"Show image 1"_s, [this] { m_image1->preview(); });
    onKey(Qt::ALT | Qt::Key_2, u"Show image 2"_s, [this] { m_image2->preview(); });
    onKey(Qt::CTRL | Qt::Key_1, u"Open image 1"_s, [this] { m_image1->open(); });
    onKey(Qt::CTRL | Qt::Key_2, u"Open image 2"_s, [this] { m_image2->open(); });

    saveKey(Command1);

    connect(cmbItems, &kvComboBox::gotFocus, this, [this] { SelectComboEntry(*cmbItems); });
    connect(cmbItems, &QComboBox::activated, this, [this] { itemChosen(); });
    connect(cmbItems, &kvComboBox::lostFocus, this, &frmAddItem::itemLeft);
    connect(cmbItems, &kvComboBox::keyPress, this, [this](int &key) {
        if (key != keys::Enter)
            return;
        key = keys::Swallowed;
        itemConfirmed();
    });
    connect(txtClientRemark, &kvTextBoxMultiLine::keyPress, this, [this](int &key) {
        const QTextCursor caret = txtClientRemark->textCursor();
        if (key != keys::Enter || caret.position() != m_caretBehindEnter) {
            m_caretBehindEnter = key == keys::Enter ? caret.selectionStart() + 1 : -1;
            return;
        }
        key = keys::Swallowed;
        m_caretBehindEnter = -1;
        Command1->setFocus(Qt::TabFocusReason);
    });
    connect(txtClientRemark, &kvTextBoxMultiLine::lostFocus, this, [this] { m_caretBehindEnter = -1; });

    connect(picColor, &QPushButton::clicked, this, &frmAddItem::chooseColor);
    // A single option has no other to go to: once on, only loading an item turns it off.
    connect(opIsInv, &QRadioButton::clicked, this, [this] { opIsInv->setChecked(true); });
    connect(Command3, &Command::clicked, this, [this] { photograph(*m_image1, 1); });
    connect(Command4, &Command::clicked, this, [this] { photograph(*m_image2, 2); });
    connect(Command7, &Command::clicked, this, &frmAddItem::drawNote);
    connect(Command8, &Command::clicked, this, &frmAddItem::insertImage);
    connect(Command5, &Command::clicked, this, [this] { m_image2->removeFile(); });
    connect(Command6, &Command::clicked, this, [this] { m_image1->removeFile(); });
    connect(Command2, &Command::clicked, this, &frmAddItem::cleanForm);
    connect(Command1, &Command::clicked, this, &frmAddItem::confirm);
}

void frmAddItem::activated()
{
    QFont font(u"Verdana"_s, lblClint->font().pointSize());
    font.setBold(true);
    lblClint->setFont(font);
}

void frmAddItem::ItemDetails(clsJobCardData &Rows, int ClientID, bool &Cancelled)
{
    ItemCancelled = true;
    ItemEditMode = u"N"_s;
    m_rows = &Rows;
    m_clientID = ClientID;
    lblClint->setText(GetAccountTitle(ClientID));
    cmbItems->setFocus();
    exec();
    Cancelled = ItemCancelled;
}

void frmAddItem::EditItemDetails(clsJobCardData &Rows, int ClientID, int Index, bool &Cancelled)
{
    ItemCancelled = true;
    ItemEditMode = u"E"_s;
    m_clientID = ClientID;
    RowIndex = Index;
    m_rows = &Rows;
    lblClint->setText(GetAccountTitle(ClientID));
    LoadEditItems(Rows.ItemDetails(Index), Rows.ItemDetailsValue(Index));
    txtFees->setText(NumberText(Rows.Fees(Index)));
    txtQnt->setText(QString::number(Rows.Qty(Index)));
    txtRemark->setText(Rows.Remarks(Index));
    m_image1->showFile(Rows.img1(Index));
    m_image2->showFile(Rows.img2(Index));
    showColor(Value(Rows.Color(Index)).toDouble());
    cmbItems->setText(Rows.ItemName(Index));
    m_loadedItem = cmbItems->Text();
    txtClientRemark->setText(Rows.ClientRemarks(Index));
    opIsInv->setChecked(Rows.isInv(Index) != 0);
    // Not on the item: Enter there would bring the last order's values over this row's.
    focusMeasurements();
    exec();
    Cancelled = ItemCancelled;
}

void frmAddItem::itemChosen()
{
    if (cmbItems->Text().isEmpty())
        return;
    m_loadedItem = cmbItems->Text();
    const qint32 item = GetItemID(m_loadedItem);
    LoadLastConfig(item, m_clientID);
    txtFees->setText(NumberText(GetItemFees(item)));
}

void frmAddItem::itemConfirmed()
{
    if (cmbItems->Text().isEmpty()) {
        reject();
        return;
    }
    if (SelectComboEntry(*cmbItems) < 0)
        return complain(u"Please Select Item!"_s, cmbItems);
    ItemDetails1->ClearList();
    itemChosen();
    focusMeasurements();
}

/// Left in any way, an item brings its values as with Enter. Not on the way to OK with no item before it: the checks
/// tell then what the row lacks, instead of values being stored that nobody has seen.
void frmAddItem::itemLeft()
{
    if (SelectComboEntry(*cmbItems) < 0 || cmbItems->Text() == m_loadedItem)
        return;
    if (m_loadedItem.isEmpty() && Command1->hasFocus())
        return;
    const bool isOnMeasurements = ItemDetails1->isAncestorOf(focusWidget());
    itemChosen();
    if (isOnMeasurements)
        focusMeasurements();
}

void frmAddItem::focusMeasurements()
{
    if (ItemDetails1->count() > 0)
        ItemDetails1->SetFocusToList();
    else
        txtQnt->setFocus(Qt::TabFocusReason);
}

void frmAddItem::LoadLastConfig(int ItemID, int ClientID)
{
    ItemDetails1->ClearList();
    Recordset &orders = DE().rsJOBS_DETAIL;
    orders.openLast(u"Select * from JOBS_DETAIL where ItemID="_s + QString::number(ItemID) + u" and ClintID="_s
        + QString::number(ClientID));
    if (orders.eof()) {
        orders.close();
        LoadEmptyItems(ItemID);
        return;
    }
    const QStringList labels = linesOf(orders.text(u"ItemDetails"));
    const QString valuesText = orders.text(u"ItemDetailsValue");
    const QStringList values = valuesText.isEmpty() ? QStringList{u"NA"_s} : valuesText.split(lineEnd);
    lblLast->setText(u"Previous JOB : "_s + DayMonthYear(orders.date(u"DATE")));
    if (!orders.isNull(u"ClientRemarks"))
        txtClientRemark->setText(orders.text(u"ClientRemarks"));
    opIsInv->setChecked(orders.integer(u"isInventory") != 0);
    orders.close();
    if (labels.size() > values.size())
        throw RuntimeError(Fault::SubscriptOutOfRange, labels.at(values.size()));
    for (qsizetype i = 0; i < labels.size(); ++i)
        addSplitLine(labels.at(i) + u'=' + values.at(i));
}

void frmAddItem::LoadEmptyItems(int ItemID)
{
    ItemDetails1->ClearList();
    lblLast->setText(u"No Previous record found!"_s);
    Recordset &items = DE().rsItems2;
    items.reopen(u"Select * from Items where id="_s + QString::number(ItemID));
    QStringList lines;
    if (!items.eof()) {
        lines = linesOf(items.text(u"ItemDetails"));
        if (!items.isNull(u"isInventory"))
            opIsInv->setChecked(items.integer(u"isInventory") != 0);
    }
    items.close();
    for (const QString &line : std::as_const(lines)) {
        if (!line.isEmpty())
            addSplitLine(line);
    }
    txtClientRemark->setText({});
}

void frmAddItem::addSplitLine(const QString &line)
{
    const QStringList parts = line.split(u'=');
    ItemDetails1->AddFeild(parts.at(0), parts.value(1));
}

void frmAddItem::LoadEditItems(const QString &labels, const QString &values)
{
    ItemDetails1->ClearList();
    const QStringList labelLines = linesOf(labels);
    const QStringList valueLines = linesOf(values);
    for (qsizetype i = 0; i < valueLines.size(); ++i) {
        if (i >= labelLines.size())
            throw RuntimeError(Fault::SubscriptOutOfRange, valueLines.at(i));
        ItemDetails1->AddFeild(labelLines.at(i), valueLines.at(i));
    }
}

/// A path that no file has yet: the client, the machine's day and the time.
QString frmAddItem::newPicturePath(int number) const
{
    QString client = lblClint->text();
    client.replace(u'/', u'_').replace(QChar::Null, u'_');
    // A name of the file system has room for so much, whatever the script.
    while (client.toUtf8().size() > mostNameBytes)
        client.chop(client.back().isLowSurrogate() ? 2 : 1);
    QString path;
    QDateTime moment = machineClock::now();
    do {
        path = session::programPath(
            u"images/%1_%2_%3.bmp"_s.arg(client, moment.toString(u"dd_MM_yyyy_h_m_ss"_s), QString::number(number)));
        moment = moment.addSecs(1);
    } while (QFileInfo::exists(path));
    return path;
}

void frmAddItem::photograph(ImageSlot &image, int number)
{
    const QString path = newPicturePath(number);
    bool cancelled = true;
    frmCam().TakeSnap(path, cancelled);
    if (!cancelled)
        image.showFile(path);
}

/// Over the picture that is there, else on a new sheet.
void frmAddItem::drawNote()
{
    const QString path = m_image1->path().isEmpty() ? newPicturePath(1) : m_image1->path();
    bool cancelled = true;
    frmHandNote().TakeSnap(path, cancelled);
    if (!cancelled)
        m_image1->showFile(path);
}

void frmAddItem::insertImage()
{
    if (const QString path = frmSelectFile::SelFile(); path != u"Cancel" && !path.isEmpty())
        m_image2->showFile(path);
}

void frmAddItem::cleanForm()
{
    m_image2->removeFile();
    m_image1->removeFile();
    if (!cmbItems->Text().isEmpty() && SelectComboEntry(*cmbItems) >= 0)
        LoadEmptyItems(GetItemID(cmbItems->Text()));
}

void frmAddItem::chooseColor()
{
    const QColor chosen = QColorDialog::getColor(clothColor::of(m_color), this);
    activateWindow();
    if (chosen.isValid() && clothColor::number(chosen) > 0)
        showColor(clothColor::number(chosen));
}

void frmAddItem::showColor(double number)
{
    m_color = number;
    clothColor::show(*picColor, number);
}

void frmAddItem::measurementTexts(QString &labels, QString &values) const
{
    QStringList labelLines;
    QStringList valueLines;
    for (int i = 0; i < ItemDetails1->count(); ++i) {
        QString label;
        QString value;
        ItemDetails1->ListItemText(i, label, value);
        labelLines += label.remove(u'\r');
        valueLines += value.isEmpty() ? u"NA"_s : value;
    }
    labels = labelLines.join(lineEnd);
    values = valueLines.join(lineEnd);
}

void frmAddItem::confirm()
{
    if (cmbItems->Text().isEmpty() || SelectComboEntry(*cmbItems) < 0)
        return complain(u"Please Select Item!"_s, cmbItems);
    const double fees = Val(txtFees->Text());
    const double quantity = Val(txtQnt->Text());
    if (fees == 0)
        return complain(u"Please Enter Fees!"_s, txtFees);
    if (quantity == 0)
        return complain(u"Please Enter Quantity!"_s, txtQnt);
    if (std::abs(quantity) > largestQuantity || quantity != std::floor(quantity))
        return complain(u"Quantity must be a whole number up to %1!"_s.arg(largestQuantity), txtQnt);
    if (std::abs(fees) > largestAmount || std::abs(fees * quantity) > largestAmount)
        return complain(u"Fees are too high!"_s, txtFees);

    JobCardRow row;
    row.ItemName = cmbItems->Text();
    row.ItemID = Int16(GetItemID(row.ItemName));
    row.isInv = opIsInv->isChecked() ? -1 : 0;
    row.Qty = Int16(quantity);
    row.Fees = fees;
    row.Amount = quantity * fees;
    row.Remarks = txtRemark->Text();
    measurementTexts(row.ItemDetails, row.ItemDetailsValue);
    row.img1 = m_image1->path();
    row.img2 = m_image2->path();
    row.Color = NumberText(m_color);
    row.ClientRemarks = txtClientRemark->Text();
    ItemCancelled = false;
    if (ItemEditMode == u"N") {
        m_rows->AddNewRow(row);
    } else {
        m_rows->SetItemName(RowIndex, row.ItemName);
        m_rows->SetItemID(RowIndex, row.ItemID);
        m_rows->SetQty(RowIndex, row.Qty);
        m_rows->SetFees(RowIndex, row.Fees);
        m_rows->SetAmount(RowIndex, row.Amount);
        m_rows->SetisInv(RowIndex, row.isInv);
        m_rows->SetRemarks(RowIndex, row.Remarks);
        m_rows->SetItemDetails(RowIndex, row.ItemDetails);
        m_rows->SetItemDetailsValue(RowIndex, row.ItemDetailsValue);
        m_rows->SetImg1(RowIndex, row.img1);
        m_rows->SetImg2(RowIndex, row.img2);
        m_rows->SetColor(RowIndex, row.Color);
        m_rows->SetClientRemarks(RowIndex, row.ClientRemarks);
    }
    accept();
}
