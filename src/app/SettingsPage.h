#pragma once

#include <QList>
#include <QString>

class QGridLayout;
class QWidget;

/// A page of settings in the making: rows of captions and fields, and hints that stand close below their field. Whoever
/// has begun one finishes it.
class SettingsPage {
public:
    /// `page` is empty.
    explicit SettingsPage(QWidget *page);

    void add(const QString &caption, QWidget *field, const QString &hint = {});
    void add(QWidget *field, const QString &hint = {});
    /// Over the whole width.
    void addNote(const QString &note);
    /// Returns the page.
    QWidget *finished();

    /// A field that takes what room there is, and what stands beside it. The row's caption is the field's.
    [[nodiscard]] static QWidget *together(QWidget *field, const QList<QWidget *> &others);
    /// Controls of their own width side by side. The row's caption is that of the first.
    [[nodiscard]] static QWidget *inRow(const QList<QWidget *> &controls);

private:
    void addHint(const QString &hint);

    QWidget *m_page;
    QGridLayout *m_grid;
};
