#include "masters/frmEditItem.h"

#include "base/values.h"
#include "ui/Command.h"
#include "ui/boxType.h"
#include "ui/complain.h"
#include "ui/formFields.h"
#include "ui/kvTextBox.h"
#include "ui/kvTextBoxMultiLine.h"

#include <QFontDatabase>
#include <QGridLayout>
#include <QLabel>
#include <QRadioButton>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// The forecast of delivery dates counts in small whole numbers.
constexpr int largestCount = std::numeric_limits<qint16>::max();
const QString lineEnd = u"\r\n"_s;

kvTextBox *numberField(const QString &name, int boxType)
{
    auto *box = new kvTextBox(name, boxType);
    box->setAlignment(Qt::AlignRight);
    return box;
}

QRadioButton *option(const QString &name, const QString &caption)
{
    auto *button = new QRadioButton(caption);
    button->setObjectName(name);
    return button;
}

} // namespace

frmEditItem::frmEditItem() : MasterEditor(u"frmEditItem"_s, masterRows::items())
{
    buildForm();
    connect(txtItemDetails, &kvTextBoxMultiLine::lostFocus, this, &frmEditItem::dropBlankLines);
    // What is typed there would not be kept.
    connect(ckProduct, &QRadioButton::toggled, txtItemDetails, &QWidget::setDisabled);
}

void frmEditItem::buildForm()
{
    auto *columns = new QHBoxLayout;
    columns->addLayout(buildFields(), 5);
    columns->addSpacing(16);
    columns->addLayout(buildTemplate(), 4);
    buildFrame(columns);
    resize(760, 470);

    chainTabs({txtName, txtFees, txtWorkerFees, txtProductionCap, txtPendingOrdersBal, ckProduct, ckNotInv,
        txtItemDetails, Command1, Command2});
}

QLayout *frmEditItem::buildFields()
{
    txtFees = numberField(u"txtFees"_s, boxType::Amount);
    txtWorkerFees = numberField(u"txtWorkerFees"_s, boxType::Amount);
    txtProductionCap = numberField(u"txtProductionCap"_s, boxType::Plain);
    txtPendingOrdersBal = numberField(u"txtPendingOrdersBal"_s, boxType::Plain);
    ckProduct = option(u"ckProduct"_s, u"Inventory"_s);
    ckNotInv = option(u"ckNotInv"_s, u"Non Inventory"_s);
    auto *types = new QWidget;
    auto *typeRow = new QHBoxLayout(types);
    typeRow->setContentsMargins({});
    typeRow->addWidget(ckProduct);
    typeRow->addWidget(ckNotInv);
    typeRow->addStretch();

    auto *fields = new QGridLayout;
    addField(fields, u"Name :"_s, txtName, u"e.g. Shirt,Trouser"_s);
    addField(fields, u"Fees :"_s, txtFees);
    addField(fields, u"Worker's Fees :"_s, txtWorkerFees);
    addField(fields, u"Per day production capacity :"_s, txtProductionCap);
    addField(fields, u"Pending orders :"_s, txtPendingOrdersBal);
    addField(fields, u"Item Type :"_s, types);
    stretch(fields);
    return fields;
}

QLayout *frmEditItem::buildTemplate()
{
    txtItemDetails = new kvTextBoxMultiLine(u"txtItemDetails"_s);
    txtItemDetails->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    txtItemDetails->setLineWrapMode(QPlainTextEdit::NoWrap);
    auto *caption = captionOf(txtItemDetails, u"Item's Measurement Fields"_s);
    caption->setAlignment(Qt::AlignLeft);
    auto *column = new QVBoxLayout;
    column->addWidget(caption);
    column->addWidget(txtItemDetails, 1);
    column->addWidget(
        hintLabel(u"Enter Field name line by line, if field has default value, enter field name and ="_s));
    return column;
}

void frmEditItem::startNew()
{
    start(u"N"_s, u"Add New Item"_s);
    ckNotInv->setChecked(true);
    // A pattern for the user to write over.
    txtItemDetails->setText(
        QStringList{u"Measurement 1"_s, u"Measurement 2"_s, u"Measurement 3=Default Value"_s}.join(lineEnd));
}

void frmEditItem::AddNew()
{
    addOneAfterAnother(*this);
}

void frmEditItem::Edit(int id)
{
    Recordset &row = startEdit(u"Edit Item"_s, id);
    txtFees->setText(NumberText(row.number(u"Fees")));
    txtWorkerFees->setText(NumberText(row.number(u"WorkerFees")));
    txtItemDetails->setText(row.text(u"ItemDetails"));
    txtProductionCap->setText(row.textOrEmpty(u"ProdcutionCap"));
    txtPendingOrdersBal->setText(row.textOrEmpty(u"OpPendingOrders"));
    (row.integer(u"isInventory") == 0 ? ckNotInv : ckProduct)->setChecked(true);
    row.close();
    exec();
}

void frmEditItem::dropBlankLines()
{
    const QString text = txtItemDetails->Text();
    QStringList lines = text.split(lineEnd);
    lines.removeIf([](const QString &line) { return line.trimmed().isEmpty(); });
    if (const QString kept = lines.join(lineEnd); kept != text)
        txtItemDetails->setText(kept);
}

void frmEditItem::save()
{
    if (isNameMissing(u"Please Enter Item Name!"_s) || isNumberWrong())
        return;
    // An inventory item has no measurements.
    if (ckProduct->isChecked())
        txtItemDetails->setText(u"Inventory"_s);
    if (!store({{u"Fees"_s, Val(txtFees->Text())}, {u"WorkerFees"_s, Val(txtWorkerFees->Text())},
            {u"ItemDetails"_s, txtItemDetails->Text()}, {u"ProdcutionCap"_s, Val(txtProductionCap->Text())},
            {u"OpPendingOrders"_s, Val(txtPendingOrdersBal->Text())},
            {u"isInventory"_s, ckProduct->isChecked() ? 1 : 0}}))
        return;
    finishSave(u"New Item Added."_s, u"Item Edited."_s);
}

bool frmEditItem::isNumberWrong()
{
    // A minus sign can be typed into the counts alone.
    const QString count = u" must be a number from 0 to %1!"_s.arg(largestCount);
    return isBeyond(txtFees, largestAmount, u"Fees are too high!"_s)
        || isBeyond(txtWorkerFees, largestAmount, u"Worker's fees are too high!"_s)
        || isBeyond(txtProductionCap, largestCount, u"Production capacity"_s + count)
        || isBeyond(txtPendingOrdersBal, largestCount, u"Pending orders"_s + count);
}

bool frmEditItem::isBeyond(kvTextBox *box, double limit, const QString &message)
{
    const double number = Val(box->Text());
    if (number >= 0 && number <= limit)
        return false;
    complain(message, box);
    return true;
}
