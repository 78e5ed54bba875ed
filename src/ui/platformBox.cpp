#include "ui/platformBox.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

void raise(QMessageBox::Icon icon, const QString &text)
{
    const QPointer<QWidget> below = QApplication::activeWindow();
    QMessageBox box(icon, u"Corvane"_s, text, QMessageBox::Ok, below);
    box.setObjectName(u"platformBox"_s);
    box.setTextFormat(Qt::PlainText);
    box.exec();
    if (below)
        below->activateWindow();
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
