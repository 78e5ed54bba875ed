#include "base/values.h"
#include "byHand.h"
#include "cases.h"
#include "fullShop.h"
#include "jobcards/JobCardStore.h"
#include "jobcards/clsJobCardData.h"
#include "store/DataEnvironment.h"
#include "store/lookups.h"

#include <sqlite3.h>

#include <cmath>
#include <memory>
#include <random>
#include <string>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

/// Both write the same, to an account and to an item, so that what the program remembers of them is out of date.
void forgetLookups()
{
    DE().CN.execute(u"Update Accounts set City='Jaipur' where Id=1"_s);
    DE().CN.execute(u"Update Items set PendingOrders='' where Id=1"_s);
}

Case lookups()
{
    constexpr int count = 100'000;
    struct Hand {
        byHand::Statement title{"select Title from Accounts where Id=?"};
        byHand::Statement name{"select NAME from ITEMS where Id=?"};
        byHand::Statement fees{"select FEES from ITEMS where Id=?"};
    };
    const auto hand = std::make_shared<Hand>();
    std::mt19937 random(1);
    std::vector<std::pair<int, int>> ids;
    for (int i = 0; i < count; ++i)
        ids.emplace_back(1 + random() % (fullShop::firstClientID + fullShop::clientCount - 1), 1 + random() % 10);

    Case work{u"one-value lookups of random ids, the first after a write"_s, 2.0};
    work.operations = count;
    work.ours = [ids] {
        forgetLookups();
        return timed([&ids] {
            qint64 seen = 0;
            for (size_t i = 0; i < ids.size(); ++i) {
                if (i % 2 == 0)
                    seen += GetAccountTitle(ids[i].first).size();
                else if (i % 4 == 1)
                    seen += GetItemName(ids[i].second).size();
                else
                    seen += std::llround(GetItemFees(ids[i].second));
            }
            return seen;
        });
    };
    work.byHand = [ids, hand] {
        return timed([&ids, &hand] {
            qint64 seen = 0;
            const auto found = [](byHand::Statement &statement, int id) -> byHand::Statement & {
                statement.reset();
                statement.bindAll(id);
                statement.step();
                return statement;
            };
            for (size_t i = 0; i < ids.size(); ++i) {
                if (i % 2 == 0)
                    seen += static_cast<qint64>(std::string(found(hand->title, ids[i].first).text(0)).size());
                else if (i % 4 == 1)
                    seen += static_cast<qint64>(std::string(found(hand->name, ids[i].second).text(0)).size());
                else
                    seen += std::llround(found(hand->fees, ids[i].second).number(0));
            }
            for (byHand::Statement *statement : {&hand->title, &hand->name, &hand->fees})
                statement->reset();
            return seen;
        });
    };
    return work;
}

/// A field's share of the outcome: a number's value, a text's length, 1 for a date.
qint64 outcomeOf(const Value &value)
{
    const auto &data = value.data();
    if (const auto *whole = std::get_if<qint64>(&data))
        return *whole;
    if (const auto *number = std::get_if<double>(&data))
        return std::llround(*number);
    if (const auto *amount = std::get_if<Currency>(&data))
        return std::llround(amount->toDouble());
    if (const auto *text = std::get_if<QString>(&data))
        return text->size();
    return value.isNull() ? 0 : 1;
}

Case everyField()
{
    const auto hand = std::make_shared<byHand::Statement>("select * from JOBS_DETAIL order by Id");
    Case work{u"open JOBS_DETAIL and read every field"_s, 2.0};
    work.rounds = 9;
    work.ours = [] {
        return timed([] {
            qint64 seen = 0;
            Recordset &rows = DE().rsJOBS_DETAIL;
            rows.reopen(u"Select * from JOBS_DETAIL order by id"_s);
            for (; !rows.eof(); rows.moveNext()) {
                for (int column = 0; column < rows.columnCount(); ++column)
                    seen += outcomeOf(rows.value(column));
            }
            rows.close();
            return seen;
        });
    };
    work.byHand = [hand] {
        return timed([&hand] {
            // Each row is copied into the same cells, which is as little as copying can cost.
            struct Cell {
                bool date = false;
                qint64 whole = 0;
                double number = 0;
                std::string text;
            };
            sqlite3_stmt *rows = hand->handle();
            std::vector<Cell> cells(static_cast<size_t>(sqlite3_column_count(rows)));
            for (int i = 0; i < sqlite3_column_count(rows); ++i)
                cells[static_cast<size_t>(i)].date = std::string_view(sqlite3_column_decltype(rows, i)) == "DATETIME";
            qint64 seen = 0;
            while (hand->step()) {
                for (int i = 0; i < static_cast<int>(cells.size()); ++i) {
                    Cell &cell = cells[static_cast<size_t>(i)];
                    switch (sqlite3_column_type(rows, i)) {
                    case SQLITE_NULL: break;
                    case SQLITE_INTEGER: seen += cell.whole = hand->integer(i); break;
                    case SQLITE_FLOAT: seen += std::llround(cell.number = hand->number(i)); break;
                    default: cell.text = hand->text(i); seen += cell.date ? 1 : static_cast<qint64>(cell.text.size());
                    }
                }
            }
            hand->reset();
            return seen;
        });
    };
    return work;
}

Case balances()
{
    const auto update = std::make_shared<byHand::Statement>("update postings set Remark='' where Id=130000");
    // Not sum: there the program has its own in place of the engine's. What total answers differs only for no rows.
    const auto sums = std::make_shared<byHand::Statement>(
        "select AccID, total(Amount) from postings where Status=0 and Date between '1985-11-17' and ? group by AccID");
    const auto inTenThousandths = [](double amount) { return std::llround(amount * Currency::Scale); };
    Case work{u"GetAccountBalance of all 5,000 clients after a write"_s, 3.0};
    work.ours = [inTenThousandths] {
        DE().CN.execute(u"Update Postings set Remark='' where Id=130000"_s);
        return timed([inTenThousandths] {
            qint64 seen = 0;
            for (int i = 0; i < fullShop::clientCount; ++i)
                seen += inTenThousandths(GetAccountBalance(fullShop::firstClientID + i, fullShop::lastDay));
            return seen;
        });
    };
    work.byHand = [update, sums, inTenThousandths] {
        update->run();
        return timed([&] {
            constexpr size_t firstID = fullShop::firstClientID;
            std::vector<double> balances(firstID + fullShop::clientCount);
            sums->bindAll(fullShop::lastDay.toString(Qt::ISODate).toStdString());
            while (sums->step())
                balances[static_cast<size_t>(sums->integer(0))] = sums->number(1);
            sums->reset();
            qint64 seen = 0;
            for (size_t i = firstID; i < balances.size(); ++i)
                seen += inTenThousandths(balances[i]);
            return seen;
        });
    };
    return work;
}

/// The large card, taken off the shop before each go, so that saving it makes the shop full again.
class LargeCard {
public:
    LargeCard()
    {
        m_saved.openSaved(fullShop::largeCard);
        m_saved.readRows(m_rows);
        m_card.JobIDText = QString::number(fullShop::largeCard);
        m_card.JobDate = fullShop::lastDay;
        m_card.ClientTitle = GetAccountTitle(clientID);
        m_card.ReceiptAccountTitle = u"Cash"_s;
        m_card.DeliveryDate = fullShop::lastDay.addDays(10);
        m_card.TrialDate = fullShop::lastDay.addDays(7);
        m_card.TotalText = u"20000.00"_s;
        m_card.ReceivedText = u"5000"_s;
    }

    Run save()
    {
        takeOff();
        return timed([this] {
            JobCardStore().SaveNew(m_card, m_rows);
            return m_rows.Sr(m_rows.RowCount());
        });
    }

    Run saveByHand()
    {
        takeOff();
        return timed([this] {
            m_begin.run();
            m_insertCard.run(fullShop::largeCard, day, clientID, m_title, delivery, trial, 20000, 5000, cashID);
            for (int i = 1; i <= m_rows.RowCount(); ++i)
                m_insertRow.run(day, fullShop::largeCard, i, clientID, m_title, static_cast<int>(m_rows.ItemID(i)),
                    static_cast<int>(m_rows.isInv(i)), m_rows.ItemName(i).toStdString(),
                    static_cast<int>(m_rows.Qty(i)), m_rows.Fees(i), m_rows.Amount(i), m_rows.Remarks(i).toStdString(),
                    m_rows.ItemDetails(i).toStdString(), m_rows.ItemDetailsValue(i).toStdString(), delivery, 100.0,
                    m_rows.Color(i).toDouble(), m_rows.ClientRemarks(i).toStdString(), day);
            const qint64 last = sqlite3_last_insert_rowid(sqlite3_db_handle(m_insertRow.handle()));
            const int legs[][3]{{clientID, salesID, -20000}, {salesID, clientID, 20000}, {cashID, clientID, -5000},
                {clientID, cashID, 5000}};
            int serial = 0;
            for (const auto &[account, otherSide, amount] : legs) {
                ++serial;
                m_insertLeg.run(fullShop::largeCard, serial, day, account, otherSide, serial < 3 ? "Sales" : "Receipt",
                    "Job Card # :16000", amount);
            }
            m_commit.run();
            return last;
        });
    }

private:
    void takeOff()
    {
        m_saved.deleteCard();
        // The row numbers of a full shop are used up; those of this card are needed once more.
        byHand::Statement("update sqlite_sequence set seq=(select max(Id) from JOBS_DETAIL) where name='JOBS_DETAIL'")
            .run();
    }

    static constexpr int salesID = 2;
    static constexpr int cashID = 4;
    static constexpr int clientID = fullShop::firstClientID + 2500;
    static constexpr auto day = "2011-09-30";
    static constexpr auto trial = "2011-10-07";
    static constexpr auto delivery = "2011-10-10";
    JobCardStore m_saved;
    JobCard m_card;
    clsJobCardData m_rows;
    std::string m_title = GetAccountTitle(clientID).toStdString();
    byHand::Statement m_begin{"begin immediate"};
    byHand::Statement m_commit{"commit"};
    byHand::Statement m_insertCard{
        "insert into JOBS (Id, DATE, ClintID, ClintName, DeliveryDate, TrialDate, AmountDue, AmountPaid, JobFinished, "
        "Remark, CashAccID, Status, CancelReason) values (?, ?, ?, ?, ?, ?, ?, ?, 0, '', ?, 0, '')"};
    byHand::Statement m_insertRow{
        "insert into JOBS_DETAIL (DATE, JobID, ItemSr, ClintID, ClintName, ItemID, isInventory, ItemName, QNT, FEES, "
        "Amount, Remarks, ItemDetails, ItemDetailsValue, JobDelDate, WorkerWagesDue, Img1, Img2, color, ClientRemarks, "
        "CuttingDate, CuttingStatus) values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, '', '', ?, ?, ?, 0)"};
    byHand::Statement m_insertLeg{"insert into postings (VID, Vtype, sr, Date, AccID, RefID, particulars, Remark, "
                                  "Amount, Status) values (?, 1, ?, ?, ?, ?, ?, ?, ?, 0)"};
};

Case saveCard()
{
    const auto card = std::make_shared<LargeCard>();
    Case work{u"save a card of 20 rows"_s, 3.0};
    work.ours = [card] { return card->save(); };
    work.byHand = [card] { return card->saveByHand(); };
    return work;
}

} // namespace

std::vector<Case> storeCases()
{
    return {lookups(), everyField(), balances(), saveCard()};
}

} // namespace bench
