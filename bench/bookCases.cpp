#include "accounts/frmAccountBook.h"
#include "accounts/frmDayBook.h"
#include "accounts/frmDueRegister.h"
#include "accounts/frmWorkerWagesRegister.h"
#include "accounts/payrolls.h"
#include "accounts/printStatement.h"
#include "accounts/vouchers.h"
#include "base/session.h"
#include "byHand.h"
#include "cases.h"
#include "fullShop.h"
#include "paper.h"
#include "store/DataEnvironment.h"
#include "store/lookups.h"
#include "ui/Command.h"
#include "ui/ListView.h"
#include "ui/PeriodFields.h"
#include "ui/kvComboBox.h"

#include <QApplication>
#include <QPdfWriter>

#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

constexpr QDate firstDay = QDate::fromJulianDay(2451545); // 01-Jan-2000
constexpr int cash = 4;
constexpr int cashLines = 65'000;
constexpr int worker = fullShop::firstWorkerID + 7;

/// Legs of old vouchers, so that cash has that many lines.
void fillCash()
{
    byHand::Statement count("select count(*) from postings where AccID=4");
    count.step();
    const qint64 missing = cashLines - count.integer(0);
    count.reset();
    byHand::Statement leg("insert into postings (VID, Vtype, sr, Date, AccID, RefID, particulars, Remark, Amount) "
                          "values (?, 2, ?, ?, ?, ?, 'Receipt', '', ?)");
    byHand::Statement("begin").run();
    for (qint64 i = 0; i < missing; ++i) {
        const std::string day = fullShop::lastDay.addDays(-(i % 2000)).toString(Qt::ISODate).toStdString();
        const int client = fullShop::firstClientID + static_cast<int>(i % fullShop::clientCount);
        leg.run(i + 1, 5, day, client, cash, 50.25);
        leg.run(i + 1, 6, day, cash, client, -50.25);
    }
    byHand::Statement("commit").run();
    // The program hears of it.
    DE().CN.execute(u"Update Postings set Remark='' where Id=1"_s);
}

/// As when something was changed elsewhere: nothing that is remembered of accounts is good any more.
void forgetAccounts()
{
    DE().CN.execute(u"Update Accounts set City='Jaipur' where Id=1"_s);
    QApplication::processEvents();
}

/// All rows of a statement, each column of each as a text.
template <int columns>
Run readAll(byHand::Statement &statement)
{
    return timed([&statement] {
        std::vector<std::array<std::string, columns>> list;
        while (statement.step()) {
            auto &cells = list.emplace_back();
            for (int column = 0; column < columns; ++column)
                cells[static_cast<size_t>(column)] = statement.text(column);
        }
        statement.reset();
        return static_cast<qint64>(list.size());
    });
}

template <int columns>
std::function<Run()> reading(std::string_view sql)
{
    const auto statement = std::make_shared<byHand::Statement>(sql);
    return [statement] { return readAll<columns>(*statement); };
}

template <typename Screen>
ListView &listOf(const Screen &screen)
{
    return *screen.template findChild<ListView *>(u"lvSummary"_s);
}

/// The cash account from its first line to its last.
struct CashBook : frmAccountBook {
    CashBook()
    {
        findChild<kvComboBox *>(u"cmbType"_s)->setCurrentIndex(2);
        loadList();
        findChild<kvComboBox *>(u"cmbAccount"_s)->setText(u"Cash"_s);
        findChild<PeriodFields *>()->set(firstDay, fullShop::lastDay);
        show();
    }
    /// From the key to the painted list.
    Run view(qint64 more = 0)
    {
        forgetAccounts();
        return timed([this, more] {
            findChild<Command *>(u"cmdView"_s)->trigger();
            listOf(*this).repaint();
            constexpr int sums = 2;
            return listOf(*this).list().rowCount() - sums - more;
        });
    }
};

qint32 addVoucher()
{
    const qint32 number = vouchers::GetNewNum();
    vouchers::SaveNew({.number = number,
        .kind = u"Receipt"_s,
        .date = fullShop::lastDay,
        .mainAccount = GetAccountTitle(fullShop::firstClientID),
        .otherAccount = u"Cash"_s,
        .amount = u"900.00"_s});
    return number;
}

std::vector<Case> statements()
{
    const auto book = std::make_shared<CashBook>();
    const auto joined = reading<6>("select p.Date, p.VID, p.particulars, a.Title, p.Amount, p.Remark from postings p "
                                   "join Accounts a on a.Id=p.RefID where p.status=0 and p.AccID=4 "
                                   "and p.Date between '2000-01-01' and '2011-09-30' order by p.Date, p.VID");
    Case whole{u"statement of cash, 65,000 lines, key to painted list"_s, 2.0};
    whole.rounds = 9;
    whole.most = std::chrono::milliseconds(160);
    whole.ours = [book] { return book->view(); };
    whole.byHand = joined;
    Case after = whole;
    after.what = u"the same with its totals, after a new voucher"_s;
    after.most = std::chrono::nanoseconds::max();
    after.ours = [book] {
        const qint32 number = addVoucher();
        const Run run = book->view(1);
        vouchers::remove(number, false);
        return run;
    };
    return {whole, after};
}

std::vector<Case> dues()
{
    const auto register_ = std::make_shared<frmDueRegister>();
    register_->show();
    const auto fill = [register_] {
        forgetAccounts();
        return timed([&register_] {
            register_->ExcuteSQl();
            listOf(*register_).repaint();
            return listOf(*register_).list().rowCount();
        });
    };
    Case plain{u"dues of 5,000 clients"_s, 2.0};
    plain.ours = fill;
    plain.byHand = reading<2>("select a.Title, total(p.Amount) as due from postings p join Accounts a on a.Id=p.AccID "
                              "where p.status=0 and a.Type=0 and p.Date between '1985-11-17' and '2011-09-30' "
                              "group by a.Id having due<0 order by a.Title");
    Case after = plain;
    after.what = u"the same, right after a new voucher"_s;
    after.ours = [fill] {
        const qint32 number = addVoucher();
        const Run run = fill();
        vouchers::remove(number, false);
        return run;
    };
    return {plain, after};
}

Case dayBook()
{
    const auto book = std::make_shared<frmDayBook>();
    book->findChild<PeriodFields *>()->set(firstDay, fullShop::lastDay);
    book->show();
    Case work{u"day book over all dates"_s, 2.0};
    work.rounds = 9;
    work.ours = [book] {
        forgetAccounts();
        return timed([&book] {
            book->ExecuteSQL();
            listOf(*book).repaint();
            return listOf(*book).list().rowCount() - 1;
        });
    };
    work.byHand = reading<6>("select p.Date, p.VID, p.particulars, a.Title, p.Amount, p.Remark from postings p "
                             "join Accounts a on a.Id=p.AccID where p.status=0 and p.sr=1 "
                             "and p.Date between '2000-01-01' and '2011-09-30' order by p.Date, p.VID");
    return work;
}

Case wages()
{
    const auto screen = std::make_shared<frmWorkerWagesRegister>();
    screen->findChild<kvComboBox *>(u"cmbClient"_s)->setText(GetAccountTitle(worker));
    screen->findChild<PeriodFields *>()->set(firstDay, fullShop::lastDay);
    screen->show();
    const std::string of = " where d.WorkerID=" + std::to_string(worker)
        + " and d.DATE between '2000-01-01' and '2011-09-30' and d.DoneByWorker>0 ";
    const auto rows = reading<9>("select d.DATE, d.JobID, d.ItemSr, d.ClintName, d.QNT, i.NAME, d.WorkerWagesDue, "
                                 "d.CompletedDate, d.MarkAsPaid from JOBS_DETAIL d join ITEMS i on i.Id=d.ItemID"
        + of + "order by d.DATE, d.Id");
    const auto pieces = reading<2>("select i.NAME, total(d.QNT) from JOBS_DETAIL d join ITEMS i on i.Id=d.ItemID" + of
        + "group by i.Id order by i.NAME");
    Case work{u"wages register of 800 rows, with the pieces of 200 items"_s, 2.0};
    work.ours = [screen] {
        forgetAccounts();
        return timed([&screen] {
            screen->ExecuteSQL();
            listOf(*screen).repaint();
            return listOf(*screen).list().rowCount();
        });
    };
    work.byHand = [rows, pieces] {
        Run run = rows();
        run.time += pieces().time;
        return run;
    };
    return work;
}

std::vector<int> garmentsOfWorker()
{
    std::vector<int> rows;
    byHand::Statement ids("select Id from JOBS_DETAIL where MarkAsPaid=0 and DoneByWorker>0 and WorkerID="
        + std::to_string(worker) + " order by DATE, Id");
    while (ids.step())
        rows.push_back(static_cast<int>(ids.integer(0)));
    ids.reset();
    return rows;
}

Case payroll()
{
    const auto rows = std::make_shared<std::vector<int>>(garmentsOfWorker());
    const auto undo = [] {
        DE().CN.execute(u"Delete from Postings where isPayroll=1"_s);
        DE().CN.execute(u"Update JOBS_DETAIL set MarkAsPaid=0, PayrollID=0 where PayrollID>0"_s);
    };
    const QString title = GetAccountTitle(worker);
    Case work{u"payroll of 800 rows, on the disk"_s, 3.0};
    work.ours = [rows, undo, title] {
        const Run run = timed([&] {
            static_cast<void>(payrolls::create({.worker = title,
                .rowIDs = {rows->begin(), rows->end()},
                .amount = 100,
                .from = firstDay,
                .to = fullShop::lastDay}));
            return rows->size();
        });
        undo();
        return run;
    };
    struct ByHand {
        byHand::Statement begin{"begin immediate"};
        byHand::Statement leg{"insert into postings (VID, Vtype, sr, Date, AccID, RefID, particulars, Remark, Amount, "
                              "isPayroll) values (3, 2, ?, '2011-09-30', ?, ?, 'Wages', 'Wages', ?, 1)"};
        byHand::Statement mark{"update JOBS_DETAIL set MarkAsPaid=1, PayrollID=3 where Id=?"};
        byHand::Statement commit{"commit"};
    };
    const auto hand = std::make_shared<ByHand>();
    work.byHand = [rows, undo, hand] {
        const Run run = timed([&] {
            hand->begin.run();
            hand->leg.run(1, worker, 1, 100.0);
            hand->leg.run(2, 1, worker, -100.0);
            for (const int row : *rows)
                hand->mark.run(row);
            hand->commit.run();
            return rows->size();
        });
        undo();
        return run;
    };
    return work;
}

Case saveVoucher()
{
    Case work{u"save a voucher, on the disk"_s, 3.0};
    const qint32 number = vouchers::GetNewNum();
    const vouchers::Voucher voucher{.number = number,
        .kind = u"Receipt"_s,
        .date = fullShop::lastDay,
        .mainAccount = GetAccountTitle(fullShop::firstClientID),
        .otherAccount = u"Cash"_s,
        .amount = u"900.00"_s};
    work.ours = [voucher] {
        const Run run = timed([&voucher] {
            vouchers::SaveNew(voucher);
            return 2;
        });
        vouchers::remove(voucher.number, false);
        return run;
    };
    struct ByHand {
        byHand::Statement begin{"begin immediate"};
        byHand::Statement leg{"insert into postings (VID, Vtype, sr, Date, AccID, RefID, particulars, Remark, Amount) "
                              "values (?, 2, ?, '2011-09-30', ?, ?, 'Receipt', '', ?)"};
        byHand::Statement commit{"commit"};
    };
    const auto hand = std::make_shared<ByHand>();
    work.byHand = [hand, number] {
        const Run run = timed([&] {
            hand->begin.run();
            hand->leg.run(number, 1, fullShop::firstClientID, cash, 900.0);
            hand->leg.run(number, 2, cash, fullShop::firstClientID, -900.0);
            hand->commit.run();
            return 2;
        });
        vouchers::remove(number, false);
        return run;
    };
    return work;
}

/// The last lines of cash as they are printed.
std::optional<ReportPages> statementPages(const AccountStatement &statement)
{
    constexpr size_t lines = 5000;
    ListModel list{std::vector<ListColumn>(AccountStatement::ColumnCount)};
    list.setRows({statement.rows.end() - lines, statement.rows.end()});
    return printStatement(list, statement, u"Cash"_s, firstDay, fullShop::lastDay, true);
}

Case statementOnPaper()
{
    const auto statement = std::make_shared<AccountStatement>(AccountStatement::of(cash, firstDay, fullShop::lastDay));
    Case work{u"statement of 5,000 lines to PDF"_s, 3.0};
    work.rounds = 5;
    work.ours = [statement] {
        return timed([&statement] {
            const auto pages = statementPages(*statement);
            paper::writePdf(pages->pageLayout(),
                [&pages](QPdfWriter &writer) { static_cast<void>(pages->draw(writer, 1, pages->count())); });
            return pages->count();
        });
    };
    const auto made = std::make_shared<paper::Texts>(*statementPages(*statement));
    work.byHand = [made] {
        return timed([&made] {
            made->writePdf();
            return made->pageCount();
        });
    };
    return work;
}

} // namespace

std::vector<Case> bookCases()
{
    session::CurrentDate = fullShop::lastDay;
    fillCash();
    std::vector<Case> cases = statements();
    for (const Case &work : dues())
        cases.push_back(work);
    for (const auto &make : {dayBook, wages, payroll, saveVoucher, statementOnPaper})
        cases.push_back(make());
    return cases;
}

void showCash(const std::function<void()> &shown)
{
    CashBook book;
    static_cast<void>(book.view());
    listOf(book).setCurrentRow(listOf(book).list().rowCount() - 1);
    QApplication::processEvents();
    shown();
}

} // namespace bench
