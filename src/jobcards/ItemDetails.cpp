#include "jobcards/ItemDetails.h"

#include "ui/NameLabel.h"
#include "ui/kvTextBox.h"

#include <QGridLayout>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

/// More of a measurement's name would leave its value no room.
constexpr int captionLetters = 30;
constexpr int spaceAround = 8;

} // namespace

ItemDetails::ItemDetails(const QString &name, QWidget *parent)
    : QScrollArea(parent), m_panel(new QWidget), m_grid(new QGridLayout)
{
    setObjectName(name);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    auto *column = new QVBoxLayout(m_panel);
    column->addLayout(m_grid);
    column->addStretch();
    m_grid->setColumnStretch(1, 1);
    m_grid->setVerticalSpacing(4);
    setWidget(m_panel);
    addSlot();
    ClearList();
}

QSize ItemDetails::minimumSizeHint() const
{
    const int aside = verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
    return {m_panel->minimumSizeHint().width() + aside, QScrollArea::minimumSizeHint().height()};
}

void ItemDetails::addSlot()
{
    auto *label = new NameLabel(u"lblCap"_s, captionLetters);
    label->setMargin(3);
    auto *value = new kvTextBox(u"txtValue"_s);
    const int row = static_cast<int>(m_fields.size());
    m_grid->addWidget(label, row, 0);
    m_grid->addWidget(value, row, 1);
    QWidget *before = m_fields.empty() ? nullptr : m_fields.back().txtValue;
    if (before)
        setTabOrder(before, value);
    m_fields.push_back({label, value});
    connect(value, &kvTextBox::gotFocus, this, [this, label, value] {
        lblGotFocus(label);
        // Not by ensureWidgetVisible, which is content when the caret is in view.
        const QRect field = value->geometry();
        ensureVisible(0, field.center().y(), 0, field.height() / 2 + spaceAround);
    });
    connect(value, &kvTextBox::lostFocus, this, [this, label] { lbllostFocus(label); });
}

void ItemDetails::AddFeild(const QString &Caption, const QString &Value)
{
    if (m_count == static_cast<int>(m_fields.size()))
        addSlot();
    const Field &field = m_fields[static_cast<size_t>(m_count)];
    field.lblCap->setText(Caption);
    field.txtValue->setAccessibleName(Caption);
    field.txtValue->setText(Value);
    field.txtValue->setCursorPosition(0);
    field.txtValue->setEnabled(true);
    ++m_count;
}

void ItemDetails::ClearList()
{
    while (m_fields.size() > 1) {
        delete m_fields.back().lblCap;
        delete m_fields.back().txtValue;
        m_fields.pop_back();
    }
    m_fields.front().lblCap->clear();
    m_fields.front().txtValue->setAccessibleName(u"Measurement"_s);
    m_fields.front().txtValue->setText({});
    m_fields.front().txtValue->setEnabled(false);
    m_count = 0;
}

void ItemDetails::ListItemText(int Index, QString &Caption, QString &Value) const
{
    const Field &field = m_fields.at(static_cast<size_t>(Index));
    Caption = field.lblCap->text();
    Value = field.txtValue->Text();
}

void ItemDetails::SetFocusToList()
{
    m_fields.front().txtValue->setFocus(Qt::OtherFocusReason);
}

void ItemDetails::lblGotFocus(QLabel *label)
{
    label->setStyleSheet(u"background: black; color: white"_s);
}

void ItemDetails::lbllostFocus(QLabel *label)
{
    label->setStyleSheet({});
}
