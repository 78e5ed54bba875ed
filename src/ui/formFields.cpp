#include "ui/formFields.h"

#include <QLabel>

QLabel *captionOf(QWidget *field, const QString &caption)
{
    auto *label = new QLabel(caption);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setBuddy(field);
    nameAloud(field, caption);
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
    control->setAccessibleName(name.simplified());
}

void chainTabs(const QList<QWidget *> &order)
{
    for (qsizetype i = 1; i < order.size(); ++i)
        QWidget::setTabOrder(order[i - 1], order[i]);
}
