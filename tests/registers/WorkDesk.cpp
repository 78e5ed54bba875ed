#include "WorkDesk.h"

#include "store/codes.h"
#include "ui/ListView.h"
#include "ui/kvComboBox.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>

using namespace Qt::StringLiterals;
using driver::control;
using driver::press;

Workshop::Workshop()
{
    addAccount(u"Asha Rao"_s);
    addAccount(u"Vikram Mehta"_s);
    addAccount(u"Mohan"_s, {}, accountType::Worker);
    addAccount(u"Sita"_s, {}, accountType::Worker);
    addItem(u"Coat"_s, u"Chest"_s, 900, 300);
    addItem(u"Shirt"_s, u"Chest"_s, 300, 100);
}

int Workshop::add(const JobRow &row, int place, const QString &changes)
{
    addJobRow(row);
    const QString number = lines(u"Select max(id) from Jobs_Detail"_s).first();
    connection.execute(
        u"Update Jobs_Detail set Remarks='Blue', CuttingStatus=0, ItemSr=%1%2 where id=%3"_s.arg(place).arg(
            changes.isEmpty() ? QString() : u", "_s + changes, number));
    return number.toInt();
}

void Workshop::addOfEachStatus(QDate first)
{
    for (int status = 0; status <= 4; ++status)
        add({.job = status + 1, .worker = status >= 3 ? Mohan : 0, .status = status, .date = first.addDays(status)}, 0,
            u"CuttingStatus=%1"_s.arg(status % 2));
}

ListView &listOf(const QWidget &screen)
{
    return control<ListView>(screen, "lvSummary");
}

QString listed(const QWidget &screen)
{
    const auto &columns = listOf(screen).list().columns();
    const auto isJob = [](const ListColumn &column) { return column.title == u"JOB ID"; };
    const auto jobColumn = std::find_if(columns.begin(), columns.end(), isJob) - columns.begin();
    QStringList jobs = driver::column(listOf(screen), static_cast<int>(jobColumn));
    jobs.resize(std::max(jobs.size() - 2, qsizetype(0)));
    jobs.replaceInStrings(u"/0"_s, QString());
    QString closing;
    for (const QStringList &row : driver::rows(listOf(screen)).mid(jobs.size()))
        closing += row.join(u"").trimmed() + u'|';
    const QString right = u"|Total JOBS : %1|"_s.arg(jobs.size());
    return jobs.join(u' ') + (closing == right ? QString() : u" and "_s + closing);
}

QString listTitle(const QWidget &screen)
{
    return control<QLabel>(screen, "lblListed").text();
}

void enter(char field, const QString &text)
{
    driver::accessKey(field);
    driver::type(text);
}

void filter(const QWidget &screen, const QString &word)
{
    driver::accessKey('s');
    press(Qt::Key_Home);
    while (control<kvComboBox>(screen, "cmbCondition").currentText() != word)
        press(Qt::Key_Down);
}

void search(const QString &job)
{
    enter('j', job);
    press(Qt::Key_Return);
}

void pickWorker(const QString &beginning)
{
    enter('w', beginning);
    press(Qt::Key_Return);
}

QMenu *rowMenu(ListView &list)
{
    list.setFocus();
    QContextMenuEvent wanted(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(&list, &wanted);
    return qobject_cast<QMenu *>(QApplication::activePopupWidget());
}

void viaMenu(const QWidget &screen, const QString &caption)
{
    QMenu *menu = rowMenu(listOf(screen));
    QVERIFY(menu);
    for (const QAction *action : menu->actions()) {
        if (action->text().section(u'\t', 0, 0) == caption)
            return QTest::keyClick(menu, Qt::Key_Return);
        if (!action->isSeparator())
            QTest::keyClick(menu, Qt::Key_Down);
    }
    QFAIL("the menu has no such entry");
}
