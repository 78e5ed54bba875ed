#include "fullShop.h"

#include "base/session.h"
#include "base/values.h"
#include "byHand.h"
#include "demoData.h"
#include "store/DataEnvironment.h"
#include "store/schema.h"
#include "store/settings.h"

#include <random>
#include <string>

using namespace Qt::StringLiterals;

namespace {

using namespace fullShop;

constexpr int days = 2000;
constexpr int openCards = 600;
constexpr int highestVoucher = 32'767;
constexpr int accountsOfEveryShop = firstWorkerID - 1;
constexpr int sales = 2;
constexpr int cash = 4;
enum AccountType { Client = 0, Worker = 1 };
enum VoucherType { JobCard = 1, Voucher = 2 };

std::string utf8(const QString &text)
{
    return text.toStdString();
}

std::string stored(QDate day)
{
    return utf8(day.toString(Qt::ISODate));
}

/// What all rows of one item have in common.
struct Item {
    std::string name;
    std::string template_;
    double fees;
    double wages;
    int inventory;
    const demoData::Item *source;
};

class Filler {
public:
    void fill()
    {
        byHand::Statement("begin").run();
        addItems();
        addAccounts();
        // A payroll takes its number from the row of the last voucher, and both are bounded.
        addVoucher(highestVoucher - 1);
        for (int card = 1; card <= cardCount; ++card)
            addCard(card);
        addVouchers();
        byHand::Statement("commit").run();
    }

private:
    int pick(int low, int high) { return low + static_cast<int>(m_random() % static_cast<unsigned>(high - low + 1)); }
    const QString &pickFrom(std::span<const QString> texts)
    {
        return texts[static_cast<size_t>(pick(0, static_cast<int>(texts.size()) - 1))];
    }

    void addItems();
    void addAccounts();
    void addCard(int number);
    double addRow(int card, int serial, int client, QDate day, QDate delivery, bool done);
    void addLegs(int document, VoucherType type, int serial, QDate day, const char *particulars, int account,
        int otherSide, double amount);
    void addVouchers();
    void addVoucher(int pair);
    std::string measurements(const Item &item);

    std::mt19937 m_random{20110930};
    std::vector<Item> m_items;
    std::vector<std::string> m_titles;
    byHand::Statement m_card{"insert into JOBS (Id, DATE, ClintID, ClintName, DeliveryDate, ClientDeliveryDate, "
                             "TrialDate, AmountDue, AmountPaid, JobFinished, Remark, CashAccID, Status, CancelReason) "
                             "values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, '', ?, 0, '')"};
    byHand::Statement m_row{
        "insert into JOBS_DETAIL (DATE, JobID, ItemSr, ClintID, ClintName, ItemID, isInventory, ItemName, QNT, FEES, "
        "Amount, Remarks, ItemDetails, ItemDetailsValue, WorkerID, WorkerName, JobDelDate, CompletedDate, "
        "DelToCustDate, DoneByWorker, WorkerWagesDue, Loc, Img1, Img2, color, Score, ClientRemarks, CuttingDate, "
        "CuttingStatus) values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, '', '', ?, ?, ?, ?, "
        "?)"};
    byHand::Statement m_leg{"insert into postings (VID, Vtype, sr, Date, AccID, RefID, particulars, Remark, Amount) "
                            "values (?, ?, ?, ?, ?, ?, ?, ?, ?)"};
};

void Filler::addItems()
{
    byHand::Statement add("insert into ITEMS (NAME, ItemDetails, FEES, WorkerFees, OpPendingOrders, ProdcutionCap, "
                          "isInventory) values (?, ?, ?, ?, '0', ?, ?)");
    // A shop of that age has given many of its items a second and a third name.
    const auto sources = demoData::items();
    for (int i = 0; i < itemCount; ++i) {
        const demoData::Item &source = sources[static_cast<size_t>(i) % sources.size()];
        const int turn = i / static_cast<int>(sources.size());
        QStringList lines;
        for (const demoData::Measure &measure : source.measures)
            lines += measure.fixed.isEmpty() ? measure.label : measure.label + u'=' + measure.fixed;
        const Item item{utf8(turn == 0 ? source.name : u"%1 %2"_s.arg(source.name).arg(turn + 1)),
            utf8(lines.join(u"\r\n"_s)), static_cast<double>(source.fees), static_cast<double>(source.workerFees),
            source.inventory ? 1 : 0, &source};
        add.run(item.name, item.template_, item.fees, item.wages, source.capacity, item.inventory);
        m_items.push_back(item);
    }
}

void Filler::addAccounts()
{
    byHand::Statement add("insert into Accounts (Key, Title, Type, ADDRESS, CITY, STATE, MOBILE, DOB) "
                          "values (?, ?, ?, ?, 'Jaipur', 'Rajasthan', ?, ?)");
    m_titles.resize(firstWorkerID);
    for (int i = 0; i < workerCount + clientCount; ++i) {
        const bool client = i >= workerCount;
        const int number = client ? i - workerCount + 1 : i + 1;
        // The number makes a title of its own; a shop with as many clients tells them apart in some such way too.
        const QString title =
            u"%1 %2 %3"_s.arg(pickFrom(demoData::firstNames()), pickFrom(demoData::lastNames())).arg(number);
        m_titles.push_back(utf8(client ? title : title + u" (worker)"_s));
        const QDate birthday(pick(1945, 1995), pick(1, 12), pick(1, 28));
        add.run(utf8(QString::number(number)), m_titles.back(), client ? Client : Worker,
            utf8(u"%1, %2"_s.arg(pick(1, 180)).arg(pickFrom(demoData::streets()))),
            utf8(u"98%1"_s.arg(pick(10'000'000, 99'999'999))), stored(birthday));
    }
}

std::string Filler::measurements(const Item &item)
{
    QStringList values;
    for (const demoData::Measure &measure : item.source->measures)
        values += measure.fixed.isEmpty() ? QString::number(pick(measure.from, measure.to)) : measure.fixed;
    return utf8(values.join(u"\r\n"_s));
}

void Filler::addCard(int number)
{
    constexpr int otherRows = itemRowCount - largeCardRows;
    constexpr int withOneMore = otherRows - 2 * (cardCount - 1);
    static_assert((cardCount - 1) % 3 == 0);
    const int rows = number == largeCard ? largeCardRows : 1 + number % 3 + (number <= withOneMore ? 1 : 0);
    const int client = pick(firstClientID, firstClientID + clientCount - 1);
    const QDate day = lastDay.addDays(-days + static_cast<int>(qint64(number) * days / cardCount));
    const QDate delivery = day.addDays(pick(7, 15));
    const bool done = number <= cardCount - openCards;
    double total = 0;
    for (int serial = 1; serial <= rows; ++serial)
        total += addRow(number, serial, client, day, delivery, done);
    const double advance = std::floor(total * pick(2, 6) / 1000) * 100 + 50;
    const std::string trial = stored(delivery.addDays(-3));
    const std::string &title = m_titles[static_cast<size_t>(client)];
    if (done)
        m_card.run(
            number, stored(day), client, title, stored(delivery), stored(delivery), trial, total, advance, 1, cash);
    else
        m_card.run(number, stored(day), client, title, stored(delivery), nullptr, trial, total, advance, 0, cash);
    addLegs(number, JobCard, 1, day, "Sales", client, sales, -total);
    addLegs(number, JobCard, 3, day, "Receipt", cash, client, -advance);
}

double Filler::addRow(int card, int serial, int client, QDate day, QDate delivery, bool done)
{
    const int itemID = pick(1, static_cast<int>(m_items.size()));
    const Item &item = m_items[static_cast<size_t>(itemID - 1)];
    const int quantity = item.fees < 1000 ? pick(1, 4) : 1;
    const int worker = pick(firstWorkerID, firstClientID - 1);
    const auto run = [&](const auto &...production) {
        m_row.run(stored(day), card, serial, client, m_titles[static_cast<size_t>(client)], itemID, item.inventory,
            item.name, quantity, item.fees, item.fees * quantity, utf8(pickFrom(demoData::cloths())), item.template_,
            measurements(item), production...);
    };
    const double wages = item.wages * quantity;
    const double colour = pick(0x202020, 0xf0f0f0);
    const std::string note = utf8(pickFrom(demoData::clientNotes()));
    if (done)
        run(worker, m_titles[static_cast<size_t>(worker)], stored(delivery), stored(delivery.addDays(-1)),
            stored(delivery), 2, wages, utf8(u"Rack %1"_s.arg(pick(1, 6))), colour, pick(2, 5), note,
            stored(delivery.addDays(-6)), 1);
    else
        run(0, nullptr, stored(delivery), nullptr, nullptr, 0, wages, nullptr, colour, 0, note, stored(day), 0);
    return item.fees * quantity;
}

void Filler::addLegs(int document, VoucherType type, int serial, QDate day, const char *particulars, int account,
    int otherSide, double amount)
{
    const std::string remark = type == JobCard ? "Job Card # :" + std::to_string(document) : std::string();
    m_leg.run(document, type, serial, stored(day), account, otherSide, particulars, remark, amount);
    m_leg.run(document, type, serial + 1, stored(day), otherSide, account, particulars, remark, -amount);
}

void Filler::addVouchers()
{
    constexpr int pairs = (postingCount - 4 * cardCount) / 2;
    for (int pair = 0; pair < pairs; ++pair) {
        if (pair != highestVoucher - 1)
            addVoucher(pair);
    }
}

void Filler::addVoucher(int pair)
{
    // The numbers do not suffice for all: the first vouchers have two pairs of legs.
    const int number = pair < highestVoucher ? pair + 1 : pair - highestVoucher + 1;
    const int serial = pair < highestVoucher ? 1 : 3;
    const QDate day = lastDay.addDays(-days + static_cast<int>(qint64(number) * days / highestVoucher));
    const int client = pick(firstClientID, firstClientID + clientCount - 1);
    addLegs(number, Voucher, serial, day, "Receipt", client, cash, pick(1, 60) * 50 + 0.25);
}

} // namespace

void fullShop::make(const QString &folder)
{
    session::ProgramFolder = folder;
    session::DBPath = session::defaultDatabasePath();
    CreateDatabase([] {
        renewDE();
        DE().CN.open(session::DBPath);
    });
    static_assert(accountsOfEveryShop == 4);
    byHand::Statement("insert into SHOP (NAME, ADDRESS1) values ('Kovrel Tailors', '12, Station Road')").run();
    Filler().fill();
    session::CurrentDate = lastDay;
    SaveSetting(setting::WorkingDate, DateText(lastDay));
    SaveSetting(setting::DeliveryMargin, u"10"_s);
}
