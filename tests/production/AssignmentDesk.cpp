#include "AssignmentDesk.h"

#include "base/session.h"
#include "production/frmEditWorkerAssign.h"

using namespace Qt::StringLiterals;

AssignmentDesk::AssignmentDesk()
{
    session::CurrentDate = {2011, 4, 11};
    session::ShopName = u"Kovrel Tailors"_s;
    addAccount(u"Asha Rao"_s);
    for (const QString &worker : {u"Mohan"_s, u"Mohini"_s, u"Sita"_s})
        addAccount(worker, {}, 1);
    addItem(u"Coat"_s, u"Chest\r\nWaist"_s, 900, 300);
    addJobRow({.job = 321, .client = 5, .date = {2011, 4, 1}, .quantity = 2});
    set(u"ItemSr=2, ItemName='Coat', ClintName='Asha Rao', JobDelDate=#20-Apr-2011#, ItemDetails='Chest\r\nWaist', "
        "ItemDetailsValue='40\r\n36 1/2', Remarks='Grey wool', ClientRemarks='Loose', WorkerWagesDue=300, "
        "CuttingDate=#2-Apr-2011#"_s);
}

void AssignmentDesk::set(const QString &columns, int row)
{
    connection.execute(u"update Jobs_Detail set %1 where id=%2"_s.arg(columns).arg(row));
}

QString AssignmentDesk::stored(const QString &columns, int row)
{
    return lines(u"Select %1 from Jobs_Detail where id=%2"_s.arg(columns).arg(row)).value(0);
}

void onGarment(const std::function<void(QWidget &, ModalScript &)> &work)
{
    ModalScript script;
    script.expect(u"frmEditWorkerAssign"_s, [&](QWidget &screen) {
        work(screen, script);
        driver::press(Qt::Key_Escape);
    });
    frmEditWorkerAssign().ShowEdit(1);
}
