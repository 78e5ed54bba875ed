#include "ui/platformBox.h"

#include "base/RuntimeError.h"
#include "ui/Screen.h"

#include <QApplication>
#include <QDir>
#include <QInputDialog>
#include <QMessageBox>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

/// The window to come up above. While one closes and the one below gets the keyboard back, the desktop knows none that
/// is active.
QWidget *inFront()
{
    return Screen::front() ? Screen::front() : QApplication::activeWindow();
}

/// Shows a dialog modally above the window in front, which has the keyboard again afterwards.
template <typename Dialog>
int raise(Dialog &dialog)
{
    const QPointer<QWidget> below = dialog.parentWidget();
    dialog.setObjectName(u"platformBox"_s);
    const int answer = dialog.exec();
    if (below)
        below->activateWindow();
    return answer;
}

int raiseBox(QMessageBox::Icon icon, const QString &text, QMessageBox::StandardButtons buttons)
{
    QMessageBox box(icon, u"Corvane"_s, text, buttons, inFront());
    box.setTextFormat(Qt::PlainText);
    return raise(box);
}

} // namespace

void platformBox::show(const QString &text)
{
    raiseBox(QMessageBox::NoIcon, text, QMessageBox::Ok);
}

void platformBox::showCritical(const QString &text)
{
    raiseBox(QMessageBox::Critical, text, QMessageBox::Ok);
}

bool platformBox::ask(const QString &text)
{
    return raiseBox(QMessageBox::Question, text, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

QString platformBox::askText(const QString &text, const QString &title)
{
    QInputDialog box(inFront());
    box.setWindowTitle(title);
    box.setLabelText(text);
    return raise(box) == QDialog::Accepted ? box.textValue() : QString();
}

QString platformBox::toldBy(const RuntimeError &error)
{
    return error.source().isEmpty() ? error.text()
                                    : error.text() + u"\r\n"_s + QDir::toNativeSeparators(error.source());
}
