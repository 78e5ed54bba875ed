#include "stores/deskWork.h"

#include "base/Currency.h"
#include "base/values.h"
#include "store/DataEnvironment.h"

#include <array>

using namespace Qt::StringLiterals;

namespace faults {

namespace {

constexpr int clients = 12;
constexpr int firstCards = 12;

struct Item {
    const char *name;
    int fee;
};

constexpr std::array items{
    Item{"Shirt", 350}, Item{"Trousers", 420}, Item{"Coat", 2600}, Item{"Waistcoat", 900}, Item{"Sherwani", 5200}};

QString clientTitle(int number)
{
    return u"Client %1"_s.arg(number);
}

} // namespace

void desk::furnish(Random &random)
{
    const QString measurements = u"Length\r\nChest\r\nWaist\r\nShoulder\r\nSleeve"_s;
    WriteGroup::run(DE().CN, [&] {
        Recordset accounts(DE().CN);
        accounts.open(u"Select * from Accounts"_s);
        for (int i = 0; i < clients; ++i) {
            accounts.addNew();
            accounts.set(u"Title", clientTitle(i));
            accounts.set(u"Type", 0);
            accounts.set(u"ADDRESS", QString(40 * i, u'r'));
        }
        accounts.addNew();
        accounts.set(u"Title", u"Spare"_s);
        accounts.set(u"Type", 0);
        accounts.updateBatch();
        Recordset made(DE().CN);
        made.open(u"Select * from Items"_s);
        for (const Item &item : items) {
            made.addNew();
            made.set(u"Name", QString::fromLatin1(item.name));
            made.set(u"ItemDetails", measurements);
            made.set(u"Fees", item.fee);
            made.set(u"WorkerFees", item.fee / 4);
        }
        made.updateBatch();
        for (int i = 0; i < firstCards; ++i) {
            clsJobCardData rows;
            for (int count = 2 + random.below(3); count > 0; --count)
                rows.AddNewRow(row(random));
            JobCardStore().SaveNew(card(JobCardStore::GetNewNum(), rows, random), rows);
        }
    });
}

JobCardRow desk::row(Random &random)
{
    const int number = random.below(items.size());
    JobCardRow row;
    row.ItemName = QString::fromLatin1(items[static_cast<size_t>(number)].name);
    row.ItemID = static_cast<qint16>(number + 1);
    row.Qty = static_cast<qint16>(1 + random.below(4));
    row.Fees = items[static_cast<size_t>(number)].fee + random.below(100) / 100.0;
    row.Amount = row.Qty * row.Fees;
    row.Remarks = u"Cloth %1"_s.arg(random.below(1000));
    row.ItemDetails = u"Length\r\nChest\r\nWaist"_s;
    // Some so long that a row takes pages of its own.
    row.ItemDetailsValue = QString(random.chance(20) ? 9000 : 30, u'4');
    return row;
}

JobCard desk::card(int number, const clsJobCardData &rows, Random &random)
{
    Currency total;
    for (int i = 1; i <= rows.RowCount(); ++i)
        total += Currency::fromDouble(rows.Amount(i));
    JobCard card;
    card.JobIDText = QString::number(number);
    card.JobDate = QDate(2011, 4, 1).addDays(random.below(60));
    card.ClientTitle = clientTitle(random.below(clients));
    card.ReceiptAccountTitle = u"Cash"_s;
    card.DeliveryDate = card.JobDate.addDays(7);
    card.TrialDate = card.JobDate.addDays(4);
    card.TotalText = Money(total.toDouble());
    card.ReceivedText = random.chance(50) ? QString::number(50 + random.below(100)) : u"0"_s;
    card.Remark = u"Remark %1"_s.arg(random.below(100'000));
    return card;
}

QList<qint32> desk::cardNumbers()
{
    QList<qint32> numbers;
    Recordset cards(DE().CN);
    cards.open(u"Select Id from JOBS order by Id"_s);
    for (; !cards.eof(); cards.moveNext())
        numbers += cards.value(0).toInt();
    return numbers;
}

} // namespace faults
