#include "BooksDesk.h"

#include "accounts/vouchers.h"
#include "base/session.h"
#include "base/values.h"
#include "jobcards/JobCardStore.h"
#include "jobcards/clsJobCardData.h"
#include "store/codes.h"
#include "support/PdfPrinter.h"
#include "support/screenDriver.h"
#include "ui/ListView.h"
#include "ui/theme.h"

#include <QTest>

using namespace Qt::StringLiterals;

BooksDesk::BooksDesk()
{
    session::CurrentDate = {2011, 4, 11};
    session::ShopName = u"Kovrel Tailors"_s;
    session::ShopAddress1 = u"12, Station Road"_s;
    session::ShopContacts = u"Phone 2221"_s;
    addAccount(u"Asha Rao"_s);
    addAccount(u"Vikram Mehta"_s);
    addAccount(u"Mohan"_s, {}, accountType::Worker);
    addAccount(u"Mohini"_s, {}, accountType::Worker);
    addAccount(u"Rent"_s, {}, accountType::Ledger);
    addItem(u"Coat"_s, u"Chest"_s, 900, 300);
    addItem(u"Shirt"_s, u"Chest"_s, 300, 100);
}

qint32 BooksDesk::addVoucher(const QString &kind, const QString &main, const QString &other, const QString &amount,
    QDate date, const QString &remark)
{
    const qint32 number = vouchers::GetNewNum();
    vouchers::SaveNew({.number = number,
        .kind = kind,
        .date = date,
        .mainAccount = main,
        .otherAccount = other,
        .remark = remark,
        .amount = amount});
    return number;
}

int BooksDesk::addWork(double wages, QDate date)
{
    addJobRow({.worker = mohan, .status = rowStatus::Completed, .date = date, .quantity = 2});
    const QString number = lines(u"Select max(id) from Jobs_Detail"_s).first();
    connection.execute(
        u"Update Jobs_Detail set ItemSr=1, CompletedDate=#8-Apr-2011#, WorkerWagesDue=%1 where id=%2"_s.arg(
            NumberText(wages), number));
    return number.toInt();
}

void BooksDesk::addCard(int number, double total, double advance, QDate date)
{
    JobCardRow row;
    row.ItemName = u"Coat"_s;
    row.ItemID = 1;
    row.Qty = 1;
    row.Fees = row.Amount = total;
    clsJobCardData rows;
    rows.AddNewRow(row);
    JobCard card;
    card.JobIDText = QString::number(number);
    card.JobDate = date;
    card.ClientTitle = u"Asha Rao"_s;
    card.ReceiptAccountTitle = u"Cash"_s;
    card.DeliveryDate = date.addDays(7);
    card.TrialDate = date;
    card.TotalText = Money(total);
    card.ReceivedText = Money(advance);
    JobCardStore().SaveNew(card, rows);
}

void BooksDesk::cancelCard(int number)
{
    connection.execute(u"Update Postings set Status=1 where vtype=1 and vid="_s + QString::number(number));
}

QStringList BooksDesk::legs()
{
    return lines(u"Select VID, sr, particulars, AccID, RefID, Amount from Postings where vtype=2 order by id"_s);
}

QStringList BooksDesk::paid()
{
    return lines(u"Select MarkAsPaid, PayrollID from Jobs_Detail order by id"_s);
}

QStringList joined(const ListView &list)
{
    QStringList lines;
    const auto rows = driver::rows(list);
    for (const QStringList &row : rows)
        lines += row.join(u'|');
    return lines;
}

QString lookOf(const ListView &list, int row, int column)
{
    const QModelIndex cell = list.list().index(row, column);
    const auto ink = cell.data(Qt::ForegroundRole).value<QColor>();
    QStringList look;
    if (cell.data(Qt::FontRole).value<QFont>().bold())
        look += u"bold"_s;
    if (ink == theme::warning())
        look += u"red"_s;
    if (ink == theme::good())
        look += u"green"_s;
    return look.join(u' ');
}

void printPreview(ModalScript &script, const QString &file)
{
    script.expect(u"ReportPreview"_s, [&script, file](QWidget &preview) {
        QCOMPARE(preview.windowTitle(), u"Print Preview"_s);
        if (!file.isEmpty())
            QCOMPARE(offeredPdf(script, preview), file);
        driver::accessKey('p');
        driver::press(Qt::Key_Escape);
    });
}
