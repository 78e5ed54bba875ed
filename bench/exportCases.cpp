#include "base/session.h"
#include "byHand.h"
#include "cases.h"
#include "comms/frmBirthDayRimenders.h"
#include "comms/modBuildCVJS.h"
#include "fullShop.h"
#include "ui/Command.h"
#include "ui/DateField.h"
#include "ui/ListView.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>

#include <array>
#include <cstdio>
#include <memory>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

constexpr QDate firstDay = QDate::fromJulianDay(2451545); // 01-Jan-2000
constexpr int rounds = 9;

void addDate(std::string &text, std::string_view stored)
{
    static constexpr std::array<std::string_view, 12> months{
        "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const int month = (stored[5] - '0') * 10 + stored[6] - '0';
    text.append(stored, 8, 2)
        .append("-")
        .append(months[static_cast<size_t>(month - 1)])
        .append("-")
        .append(stored, 0, 4);
}

void addEscaped(std::string &text, std::string_view name)
{
    for (const char c : name)
        c == '&' ? text.append("&amp;") : text.append(1, c);
}

void addItem(std::string &text, const byHand::Statement &item)
{
    static constexpr std::array<std::string_view, 5> words{
        "Uncompleted", "Completed", "Delivered", "Alteration", "Canceled"};
    text.append("<item id=\"").append(item.text(1)).append("\" name=\"");
    addEscaped(text, item.text(2));
    text.append("\" status=\"").append(words[static_cast<size_t>(item.integer(3))]).append("\"></item>");
}

void addCard(std::string &text, const byHand::Statement &card)
{
    text.append("\r\n<jobcard id=\"").append(card.text(0)).append("\" client=\"").append(card.text(1));
    text.append("\" date=\"");
    addDate(text, card.text(2));
    text.append("\" deldate=\"");
    addDate(text, card.text(3));
    text.append("\" status=\"").append(card.integer(4) == 1 ? "Delivered" : "Undelivered").append("\" amount=\"");
    std::array<char, 32> amount{};
    text.append(
        amount.data(), static_cast<size_t>(std::snprintf(amount.data(), amount.size(), "%.15g", card.number(5))));
    text.append("\" mobile=\"").append(card.text(6)).append("\">\r\n");
}

struct TwoStatements {
    byHand::Statement cards{
        "select j.Id, j.ClintName, j.DATE, j.DeliveryDate, j.JobFinished, j.AmountDue, a.MOBILE from JOBS j "
        "left join Accounts a on a.Id=j.ClintID and a.Type=0 where j.DATE between '2000-01-01' and '2012-09-30' "
        "order by j.Id"};
    byHand::Statement items{"select JobID, ItemSr, ItemName, DoneByWorker from JOBS_DETAIL order by JobID, ItemSr"};

    qint64 writeTo(const QString &path)
    {
        std::string text("<jobcards created=\"01-Apr-2011 10:00:00\">\r\n");
        bool isItem = items.step();
        while (cards.step()) {
            addCard(text, cards);
            bool isFirst = true;
            for (; isItem && items.integer(0) == cards.integer(0); isItem = items.step(), isFirst = false) {
                text.append(isFirst ? "" : "\r\n");
                addItem(text, items);
            }
            text.append("\r\n</jobcard>");
        }
        text.append("\r\n</jobcards>\r\n");
        cards.reset();
        items.reset();
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(text.data(), static_cast<qint64>(text.size())) < 0
            || !file.flush() || fsync(file.handle()) != 0)
            return -1;
        return file.size();
    }
};

Case exportStatus()
{
    const QString path = session::programPath(u"data.xml"_s);
    const auto statements = std::make_shared<TwoStatements>();
    Case work{u"status report of 16,000 cards and 32,767 rows"_s, 2.0};
    work.rounds = rounds;
    work.ours = [path] {
        return timed([&path] {
            statusReport::write(firstDay, fullShop::lastDay.addYears(1), path);
            return QFileInfo(path).size();
        });
    };
    work.byHand = [path, statements] { return timed([&] { return statements->writeTo(path); }); };
    return work;
}

Case showBirthdays()
{
    const auto clients = std::make_shared<byHand::Statement>(
        "select Title, DOB, MOBILE from Accounts where Type=0 and substr(DOB, 6, 2)='09' and substr(DOB, 9, 2)='28'");
    const auto screen = std::make_shared<frmBirthDayRimenders>();
    // Nobody is born after the 28th of a month.
    screen->findChild<DateField *>(u"DateSel"_s)->setDate(fullShop::lastDay.addDays(-2));
    screen->show();
    Case work{u"birthdays of 5,000 clients"_s, 2.0};
    work.ours = [screen] {
        QApplication::processEvents();
        auto *list = screen->findChild<ListView *>(u"lvSummary"_s);
        return timed([&] {
            screen->findChild<Command *>(u"Command1"_s)->click();
            return list->list().rowCount();
        });
    };
    work.byHand = [clients] {
        return timed([&clients] {
            std::vector<std::array<std::string, 3>> list;
            while (clients->step())
                list.push_back(
                    {std::string(clients->text(0)), std::string(clients->text(1)), std::string(clients->text(2))});
            clients->reset();
            return static_cast<qint64>(list.size());
        });
    };
    return work;
}

} // namespace

std::vector<Case> exportCases()
{
    session::CurrentDate = fullShop::lastDay;
    return {exportStatus(), showBirthdays()};
}

} // namespace bench
