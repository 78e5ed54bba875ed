#include "PaintWatch.h"
#include "accounts/frmTransiction.h"
#include "byHand.h"
#include "cases.h"
#include "fullShop.h"
#include "itemList.h"
#include "jobcards/frmEditJOB.h"
#include "production/frmEditWorkerAssign.h"
#include "store/DataEnvironment.h"
#include "ui/ListView.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <array>
#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

Case fillList()
{
    const auto rows = std::make_shared<byHand::Statement>(
        "select d.DATE, d.JobID, c.Title, i.NAME, d.QNT, d.Amount, w.Title, d.JobDelDate, d.Id from JOBS_DETAIL d "
        "join Accounts c on c.Id=d.ClintID join ITEMS i on i.Id=d.ItemID left join Accounts w on w.Id=d.WorkerID "
        "order by d.Id");
    const auto view = std::make_shared<ListView>(u"lvItems"_s, itemList::columns());
    Case work{u"fill a list of 32,767 rows, titles and items looked up"_s, 3.0};
    work.rounds = 9;
    work.ours = [view] {
        view->resize(1000, 600);
        view->show();
        view->list().clear();
        DE().CN.execute(u"Update Accounts set City='Jaipur' where Id=1"_s);
        QApplication::processEvents();
        return timed([&view] {
            itemList::fill(view->list());
            view->repaint();
            return view->list().rowCount();
        });
    };
    work.byHand = [rows] {
        return timed([&rows] {
            std::vector<std::array<std::string, 8>> list;
            while (rows->step()) {
                auto &cells = list.emplace_back();
                for (int column = 0; column < 8; ++column)
                    cells[static_cast<size_t>(column)] = rows->text(column);
            }
            rows->reset();
            return static_cast<qint64>(list.size());
        });
    };
    return work;
}

/// Qt's own control of the same kind; none for a widget that only holds others.
QWidget *plainControl(const QWidget &control)
{
    if (const auto *label = qobject_cast<const QLabel *>(&control))
        return new QLabel(label->text());
    if (qobject_cast<const QLineEdit *>(&control))
        return new QLineEdit;
    if (qobject_cast<const QDateEdit *>(&control))
        return new QDateEdit;
    if (const auto *combo = qobject_cast<const QComboBox *>(&control)) {
        auto *plain = new QComboBox;
        plain->setEditable(combo->isEditable());
        return plain;
    }
    if (const auto *box = qobject_cast<const QCheckBox *>(&control))
        return new QCheckBox(box->text());
    if (const auto *button = qobject_cast<const QPushButton *>(&control))
        return new QPushButton(button->text());
    if (qobject_cast<const QTreeView *>(&control))
        return new QTreeView;
    return nullptr;
}

/// Goes into those widgets that are no controls themselves.
template <typename Action>
void forEachControl(const QWidget &parent, Action &action)
{
    for (const QWidget *child : parent.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (QWidget *plain = plainControl(*child))
            action(plain);
        else
            forEachControl(*child, action);
    }
}

/// The time from the call of `open`, which shows the window modally, until it is painted; then it is closed.
template <typename Open>
Run timedOpening(const QString &windowName, const Open &open)
{
    Run run;
    const auto start = Clock::now();
    const PaintWatch watch(windowName, [&run, start](QWidget &window) {
        run.time = Clock::now() - start;
        window.close();
    });
    open();
    return run;
}

/// Opening a screen against an empty dialog with as many of Qt's own controls.
template <typename Screen>
Case opening(const QString &what, double bar, const QString &name, const std::function<void()> &open)
{
    Case work{what, bar};
    work.ours = [name, open] { return timedOpening(name, open); };
    work.byHand = [] {
        const Screen model;
        return timedOpening(u"empty"_s, [&model] {
            QDialog dialog;
            dialog.setObjectName(u"empty"_s);
            auto *grid = new QGridLayout(&dialog);
            auto add = [grid](QWidget *plain) { grid->addWidget(plain, grid->count() / 4, grid->count() % 4); };
            forEachControl(model, add);
            dialog.resize(model.size());
            dialog.exec();
        });
    };
    return work;
}

void openCard()
{
    bool deleted = false;
    frmEditJOB().ShowEdit(fullShop::largeCard, deleted);
}

void openAssignment()
{
    frmEditWorkerAssign().ShowEdit(fullShop::itemRowCount);
}

void openVoucher()
{
    bool changed = false;
    frmTransiction().ShowEdit(1, changed);
}

} // namespace

std::vector<Case> screenCases()
{
    Case assignment = opening<frmEditWorkerAssign>(
        u"open the assignment of the last item row"_s, 5.0, u"frmEditWorkerAssign"_s, openAssignment);
    Case voucher = opening<frmTransiction>(u"open a voucher"_s, 2.0, u"frmTransiction"_s, openVoucher);
    for (Case *work : {&assignment, &voucher})
        work->most = std::chrono::milliseconds(50);
    return {fillList(),
        opening<frmEditJOB>(u"open the job card screen on a card of 20 rows"_s, 5.0, u"frmEditJOB"_s, openCard),
        assignment, voucher};
}

} // namespace bench
