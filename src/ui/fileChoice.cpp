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

QString fileChoice::open(const QString &title, const QString &kind)
{
    QFileDialog dialog(QApplication::activeWindow(), title, {}, kind);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

QString fileChoice::folder(const QString &title, const QString &start)
{
    QFileDialog dialog(QApplication::activeWindow(), title, start);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}
