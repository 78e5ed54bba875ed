#include "base/session.h"
#include "byHand.h"
#include "cases.h"
#include "fullShop.h"
#include "production/frmRatings.h"
#include "production/frmWorkerReport2.h"
#include "production/itemRowMarks.h"
#include "registers/frmDeliveryRegister.h"
#include "registers/frmTrailDate.h"
#include "registers/frmWorkerJobRegister.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/itemRows.h"
#include "ui/Command.h"
#include "ui/ListView.h"
#include "ui/PeriodFields.h"
#include "ui/kvComboBox.h"

#include <QApplication>

#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

constexpr QDate firstDay = QDate::fromJulianDay(2451545); // 01-Jan-2000
constexpr int rowsOfAll = 9;

/// As when a row has been changed elsewhere: nothing that is remembered of accounts is good any more.
void forgetAccounts()
{
    DE().CN.execute(u"Update Accounts set City='Jaipur' where Id=1"_s);
    QApplication::processEvents();
}

/// The closing rows left out.
qint64 garmentsIn(const ListView &list)
{
    return list.list().rowCount() - 2;
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

/// The job register over all dates, whose coming to the front can be called for.
struct JobRegister : frmWorkerJobRegister {
    JobRegister() : list(findChild<ListView *>(u"lvSummary"_s)), condition(findChild<kvComboBox *>(u"cmbCondition"_s))
    {
        findChild<PeriodFields *>()->set(firstDay, fullShop::lastDay.addYears(1));
        show();
    }
    using frmWorkerJobRegister::activated;
    using frmWorkerJobRegister::fillDetails;

    qint64 fill()
    {
        session::NeedRefresh = true;
        activated();
        list->repaint();
        return garmentsIn(*list);
    }

    ListView *list;
    kvComboBox *condition;
};

/// All that the register's columns and tool tips tell, joined by the engine.
std::function<Run()> readJoined()
{
    const auto rows = std::make_shared<byHand::Statement>(
        "select d.Id, d.DATE, d.JobID, d.ItemSr, c.Title, c.Mobile, c.Address, c.City, d.QNT, i.NAME, d.Remarks, "
        "d.JobDelDate, w.Title, w.Mobile, w.Address, w.City, d.CuttingStatus, d.DoneByWorker, d.Loc, b.balance "
        "from JOBS_DETAIL d join Accounts c on c.Id=d.ClintID join ITEMS i on i.Id=d.ItemID "
        "left join Accounts w on w.Id=d.WorkerID left join (select AccID, total(Amount) as balance from postings "
        "where status=0 and Date<='2011-09-30' group by AccID) b on b.AccID=d.ClintID "
        "where d.isInventory=0 order by d.DATE, d.JobID");
    return [rows] { return readAll<20>(*rows); };
}

Case fillJobs(const std::shared_ptr<JobRegister> &screen, const std::function<Run()> &joined)
{
    Case work{u"fill frmWorkerJobRegister with all garments"_s, 2.0};
    work.rounds = rowsOfAll;
    work.ours = [screen] {
        forgetAccounts();
        return timed([&screen] { return screen->fill(); });
    };
    work.byHand = joined;
    return work;
}

Case markCompleted(const std::shared_ptr<JobRegister> &screen, const std::function<Run()> &joined)
{
    Case work{u"mark a garment there, until the list stands again"_s, 2.5};
    work.rounds = rowsOfAll;
    work.ours = [screen] {
        screen->list->setCurrentRow(screen->list->list().rowCount() / 2);
        QApplication::processEvents();
        return timed([&screen] {
            static_cast<void>(itemRowMarks::status(
                screen->list->currentTag().toInt(), rowStatus::Completed, session::CurrentDate, u"Rack 1"_s));
            return screen->fill();
        });
    };
    work.byHand = joined;
    return work;
}

Case filterCompleted(const std::shared_ptr<JobRegister> &screen)
{
    Case work{u"filter \"Completed\" there, against the fill"_s, 1.5};
    work.rounds = rowsOfAll;
    const auto filled = [screen](const QString &condition) {
        screen->condition->setCurrentText(condition);
        QApplication::processEvents();
        const Run run = timed([&screen] {
            screen->fill();
            return 0;
        });
        screen->condition->setCurrentIndex(0);
        return run;
    };
    work.ours = [filled] { return filled(u"Completed"_s); };
    work.byHand = [filled] { return filled(u"*All"_s); };
    return work;
}

Case pieces(const std::shared_ptr<JobRegister> &screen)
{
    const auto sums = std::make_shared<byHand::Statement>(
        "select i.NAME, total(d.QNT) from ITEMS i join JOBS_DETAIL d on d.ItemID=i.Id "
        "where d.DATE between '2000-01-01' and '2012-09-30' group by i.Id having total(d.QNT)>0 order by i.NAME");
    Case work{u"pieces of each of 200 items there"_s, 2.0};
    work.ours = [screen] {
        auto *details = screen->findChild<ListView *>(u"lvDetails"_s);
        return timed([&] {
            screen->fillDetails();
            return details->list().rowCount();
        });
    };
    work.byHand = [sums] {
        return timed([&sums] {
            qint64 rows = 0;
            for (; sums->step(); ++rows)
                static_cast<void>(std::string(sums->text(0)));
            sums->reset();
            return rows;
        });
    };
    return work;
}

Case fillDeliveries()
{
    const auto rows = std::make_shared<byHand::Statement>(
        "select d.Id, d.JobDelDate, d.DATE, d.JobID, d.ItemSr, c.Title, i.NAME, d.Remarks, w.Title, d.DoneByWorker "
        "from JOBS_DETAIL d join Accounts c on c.Id=d.ClintID join ITEMS i on i.Id=d.ItemID "
        "left join Accounts w on w.Id=d.WorkerID "
        "where d.JobDelDate between '2000-01-01' and '2012-09-30' order by d.JobDelDate, d.Id");
    const auto screen = std::make_shared<frmDeliveryRegister>();
    screen->findChild<PeriodFields *>()->set(firstDay, fullShop::lastDay.addYears(1));
    screen->show();
    Case work{u"delivery register, all rows"_s, 2.0};
    work.rounds = rowsOfAll;
    work.ours = [screen] {
        forgetAccounts();
        auto *list = screen->findChild<ListView *>(u"lvSummary"_s);
        return timed([&] {
            screen->ExecuteSQL();
            list->repaint();
            return garmentsIn(*list);
        });
    };
    work.byHand = [rows] { return readAll<10>(*rows); };
    return work;
}

Case fillTrials()
{
    const auto rows = std::make_shared<byHand::Statement>(
        "select j.Id, c.Title, j.TrialDate, j.appeared, j.appearedDate, c.Mobile from JOBS j "
        "join Accounts c on c.Id=j.ClintID "
        "where j.TrialDate between '2000-01-01' and '2012-09-30' order by j.TrialDate, j.Id");
    const auto screen = std::make_shared<frmTrailDate>();
    screen->findChild<PeriodFields *>()->set(firstDay, fullShop::lastDay.addYears(1));
    screen->show();
    Case work{u"trial register, all cards"_s, 3.0};
    work.rounds = rowsOfAll;
    work.ours = [screen] {
        forgetAccounts();
        auto *list = screen->findChild<ListView *>(u"lvSummary"_s);
        return timed([&] {
            screen->findChild<Command *>(u"Command1"_s)->click();
            list->repaint();
            return list->list().rowCount();
        });
    };
    work.byHand = [rows] { return readAll<6>(*rows); };
    return work;
}

Case rankWorkers()
{
    const auto sums = std::make_shared<byHand::Statement>(
        "select w.Title, total(d.Score), count(d.Id), total(case when d.DoneByWorker=0 then d.QNT end) "
        "from Accounts w left join JOBS_DETAIL d on d.WorkerID=w.Id where w.Type=1 group by w.Id order by 2 desc");
    Case work{u"overview and ratings of 40 workers"_s, 2.0};
    const auto ratings = std::make_shared<frmRatings>();
    const auto inHand = std::make_shared<frmWorkerReport2>();
    work.ours = [ratings, inHand] {
        return timed([&] {
            ratings->GetRank();
            inHand->count(itemRows::Dated::Booked, firstDay, fullShop::lastDay);
            inHand->ExecuteSQL();
            return fullShop::workerCount;
        });
    };
    work.byHand = [sums] {
        return timed([&sums] {
            qint64 rows = 0;
            for (; sums->step(); ++rows)
                static_cast<void>(std::string(sums->text(0)));
            sums->reset();
            return rows;
        });
    };
    return work;
}

} // namespace

std::vector<Case> registerCases()
{
    session::CurrentDate = fullShop::lastDay;
    const auto jobs = std::make_shared<JobRegister>();
    const std::function<Run()> joined = readJoined();
    return {fillJobs(jobs, joined), markCompleted(jobs, joined), filterCompleted(jobs), pieces(jobs), fillDeliveries(),
        fillTrials(), rankWorkers()};
}

} // namespace bench
