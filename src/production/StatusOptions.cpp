#include "production/StatusOptions.h"

#include "base/values.h"
#include "store/Recordset.h"
#include "store/codes.h"
#include "ui/signs.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>
#include <QRadioButton>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

constexpr int verticalMargin = 8;
constexpr int rowSpacing = 4;

} // namespace

StatusOptions::StatusOptions()
    : QGroupBox(u"Status"_s), m_grid(new QGridLayout(this)), m_options(new QButtonGroup(this))
{
    const QMargins around = m_grid->contentsMargins();
    m_grid->setContentsMargins(around.left(), verticalMargin, around.right(), verticalMargin);
    m_grid->setVerticalSpacing(rowSpacing);
    add(rowStatus::Uncompleted, u"opUcom"_s, u"Uncompleted"_s);
    add(rowStatus::Completed, u"opCom"_s, u"Completed"_s, u"lblDateCompleted"_s);
    add(rowStatus::Delivered, u"opDel"_s, u"Delivered to Client"_s, u"lblDateDeltoCust"_s);
    add(rowStatus::Alteration, u"opAlt"_s, u"Alteration"_s, u"lbldateAlt"_s);
    addCanceled();
    m_grid->setColumnStretch(1, 1);
}

void StatusOptions::add(int status, const QString &option, const QString &caption, const QString &dateLabel)
{
    auto *button = new QRadioButton(caption);
    button->setObjectName(option);
    button->setIcon(signs::status(static_cast<signs::Status>(status)));
    m_options->addButton(button, status);
    const int row = m_grid->rowCount();
    m_grid->addWidget(button, row, 0);
    if (dateLabel.isEmpty())
        return;
    auto *date = new QLabel;
    date->setObjectName(dateLabel);
    m_grid->addWidget(date, row, 1);
    m_dates.at(static_cast<size_t>(status)) = date;
}

/// No option stands for it: a row becomes so with its job card.
void StatusOptions::addCanceled()
{
    m_canceled = new QWidget;
    m_canceled->setObjectName(u"canceled"_s);
    auto *sign = new QLabel;
    const int signSize = style()->pixelMetric(QStyle::PM_ButtonIconSize);
    sign->setPixmap(signs::status(signs::Status::Canceled).pixmap(QSize(signSize, signSize), devicePixelRatio()));
    auto *line = new QHBoxLayout(m_canceled);
    const int besideOptions = style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth)
        + style()->pixelMetric(QStyle::PM_RadioButtonLabelSpacing);
    line->setContentsMargins(besideOptions, 0, 0, 0);
    line->setSpacing(4);
    line->addWidget(sign);
    line->addWidget(new QLabel(rowStatus::word(rowStatus::Canceled)), 1);
    m_grid->addWidget(m_canceled, m_grid->rowCount(), 0);
    m_canceled->hide();
}

void StatusOptions::showRow(const Recordset &row)
{
    const int status = row.integer(u"DoneByWorker");
    if (QAbstractButton *option = m_options->button(status))
        option->setChecked(true);
    m_canceled->setVisible(status == rowStatus::Canceled);
    for (size_t code = 0; code < m_dates.size(); ++code) {
        const QString column = rowStatus::dateColumn(static_cast<int>(code));
        if (!column.isEmpty() && !row.isNull(column))
            m_dates.at(code)->setText(DayMonthYear(row.date(column)));
    }
}

std::optional<int> StatusOptions::chosen() const
{
    const int status = m_options->checkedId();
    return status < 0 ? std::nullopt : std::optional(status);
}

void StatusOptions::showSaved(QDate day)
{
    const auto status = chosen();
    if (!status)
        return;
    m_canceled->hide();
    if (QLabel *date = m_dates.at(static_cast<size_t>(*status)))
        date->setText(DayMonthYear(day));
}

QList<QWidget *> StatusOptions::tabOrder() const
{
    const auto options = m_options->buttons();
    return {options.begin(), options.end()};
}
