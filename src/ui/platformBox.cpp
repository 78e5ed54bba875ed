#include "ui/platformBox.h"

#include <QApplication>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace {

void raise(QMessageBox::Icon icon, const QString &text)
{
    QMessageBox box(icon, u"Corvane"_s, text, QMessageBox::Ok, QApplication::activeWindow());
    box.setObjectName(u"platformBox"_s);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

} // namespace

void platformBox::show(const QString &text)
{
    raise(QMessageBox::NoIcon, text);
}

void platformBox::showCritical(const QString &text)
{
    raise(QMessageBox::Critical, text);
}
