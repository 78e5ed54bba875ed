#include "OrderDesk.h"

#include "base/session.h"
#include "jobcards/frmEditJOB.h"
#include "ui/kvTextBox.h"

#include <QApplication>

using namespace Qt::StringLiterals;

OrderDesk::OrderDesk()
{
    session::CurrentDate = QDate(2011, 4, 10);
    session::ShopName = u"Kovrel"_s;
    session::NeedRefresh = false;
    addAccount(u"Asha Rao"_s);
    addItem(u"Coat"_s, u"Chest\r\nWaist"_s, 400, 150);
}

JobCard OrderDesk::card(const QString &number) const
{
    JobCard card;
    card.JobIDText = number;
    card.JobDate = {2011, 4, 10};
    card.ClientTitle = u"Asha Rao"_s;
    card.ReceiptAccountTitle = u"Cash"_s;
    card.DeliveryDate = {2011, 4, 17};
    card.TrialDate = {2011, 4, 12};
    card.TotalText = u"1600.00"_s;
    card.ReceivedText = u"100"_s;
    card.Remark = u"By hand"_s;
    return card;
}

JobCardRow OrderDesk::row()
{
    JobCardRow row;
    row.ItemName = u"Coat"_s;
    row.ItemID = 1;
    row.isInv = -1;
    row.Qty = 2;
    row.Fees = 400;
    row.Amount = 800;
    row.Remarks = u"Wool"_s;
    row.ItemDetails = u"Chest\r\nWaist"_s;
    row.ItemDetailsValue = u"40\r\nNA"_s;
    row.Color = u"255"_s;
    row.ClientRemarks = u"Loose"_s;
    return row;
}

clsJobCardData OrderDesk::rows(int count) const
{
    clsJobCardData rows;
    for (int i = 0; i < count; ++i)
        rows.AddNewRow(row());
    return rows;
}

JobCardStore OrderDesk::book(const QString &number, int rowCount)
{
    JobCardStore store;
    clsJobCardData items = rows(rowCount);
    store.SaveNew(card(number), items);
    return store;
}

QStringList OrderDesk::postings()
{
    return lines(
        u"Select VID, Vtype, sr, Date, AccID, RefID, particulars, Remark, Amount, Status, isPayroll from Postings order by sr"_s);
}

QString focused()
{
    for (const QWidget *widget = QApplication::focusWidget(); widget; widget = widget->parentWidget()) {
        if (!widget->objectName().isEmpty() && !widget->objectName().startsWith(u"qt_"))
            return widget->objectName();
    }
    return {};
}

void onCard(int jobID, const std::function<void(QWidget &, ModalScript &)> &work)
{
    ModalScript script;
    script.expect(u"frmEditJOB"_s, [&](QWidget &screen) {
        work(screen, script);
        driver::press(Qt::Key_Escape);
    });
    bool deleted = true;
    frmEditJOB card;
    if (jobID > 0)
        card.ShowEdit(jobID, deleted);
    else
        card.ShowAddNew();
}

void tells(ModalScript &script, char command, const QString &message)
{
    script.expectMessage(message);
    driver::accessKey(command);
    QVERIFY(script.isDone());
}

void saveEdit(ModalScript &script)
{
    tells(script, 's', u"Job Edited."_s);
}

void addItem(ModalScript &script, const QString &item, int quantity)
{
    expectItem(script, item, quantity);
    driver::accessKey('a');
}

void expectItem(ModalScript &script, const QString &item, int quantity)
{
    script.expect(u"frmAddItem"_s, [item, quantity](QWidget &editor) {
        driver::type(item);
        driver::press(Qt::Key_Return);
        driver::control<kvTextBox>(editor, "txtQnt").setFocus();
        driver::type(QString::number(quantity));
        driver::accessKey('o');
    });
}
