#include "ui/fileChoice.h"

#include <QApplication>
#include <QFileDialog>

QString fileChoice::save(const QString &title, const QString &suggestion, const QString &kind, const QString &suffix)
{
    QFileDialog dialog(QApplication::activeWindow(), title, {}, kind);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffix);
    dialog.selectFile(suggestion);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return dialog.selectedFiles().value(0);
}
