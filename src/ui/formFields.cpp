#include "ui/formFields.h"

#include "ui/theme.h"

#include <QAbstractItemView>
#include <QBoxLayout>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

QLabel *captionOf(QWidget *field, const QString &caption)
{
    auto *label = new QLabel(caption);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setBuddy(field);
    nameAloud(field, caption);
    return label;
}

void addField(QGridLayout &grid, int row, const QString &caption, QWidget *field)
{
    // Beside several lines it stands at the first.
    const bool isTall = qobject_cast<const QPlainTextEdit *>(field);
    grid.addWidget(captionOf(field, caption), row, 0, isTall ? Qt::AlignRight | Qt::AlignTop : Qt::Alignment());
    grid.addWidget(field, row, 1);
}

QHBoxLayout *captionedRow(const QList<std::pair<QString, QWidget *>> &fields)
{
    constexpr int gap = 18;
    auto *row = new QHBoxLayout;
    for (const auto &[caption, field] : fields) {
        if (row->count() > 0)
            row->addSpacing(gap);
        row->addWidget(captionOf(field, caption));
        row->addWidget(field);
    }
    return row;
}

QLabel *hintLabel(const QString &text)
{
    constexpr double size = 0.85;
    auto *label = new QLabel(text);
    label->setWordWrap(true);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * size);
    label->setFont(font);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, theme::muted());
    label->setPalette(palette);
    return label;
}

void nameAloud(QWidget *control, const QString &caption)
{
    while (control->focusProxy())
        control = control->focusProxy();
    // A label says what it shows.
    if (qobject_cast<QLabel *>(control))
        return;
    QString name = caption;
    name.remove(u'&');
    name.remove(u':');
    name = name.simplified();
    control->setAccessibleName(name);
    // A screen reader takes the text and the open list for controls of their own.
    const auto *combo = qobject_cast<QComboBox *>(control);
    if (combo && combo->lineEdit()) {
        combo->lineEdit()->setAccessibleName(name);
        combo->view()->setAccessibleName(name);
    }
}

void showOnly(QLineEdit &box)
{
    box.setReadOnly(true);
    QPalette quiet = box.palette();
    quiet.setColor(QPalette::Base, quiet.color(QPalette::Window));
    box.setPalette(quiet);
}

void chainTabs(const QList<QWidget *> &order)
{
    for (qsizetype i = 1; i < order.size(); ++i)
        QWidget::setTabOrder(order[i - 1], order[i]);
}
