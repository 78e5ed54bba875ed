#include "app/frmOpenJob.h"
#include "base/session.h"
#include "byHand.h"
#include "cases.h"
#include "devices/printer.h"
#include "fullShop.h"
#include "jobcards/MODPrintJOBCARD.h"
#include "masters/MasterList.h"
#include "masters/frmSearchClient.h"
#include "paper.h"
#include "reports/ReportFlow.h"
#include "reports/rptJOBCARD.h"
#include "statement.h"
#include "store/DataEnvironment.h"
#include "store/settings.h"
#include "ui/ListView.h"
#include "ui/kvTextBox.h"

#include <QApplication>
#include <QListView>
#include <QPdfWriter>
#include <QStringListModel>

#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

/// The list of clients, whose coming to the front can be called for.
struct Clients : frmClients {
    using MasterList::activated;
};

Case fillClients()
{
    const auto titles =
        std::make_shared<byHand::Statement>("select Title from Accounts where Type=0 order by Title collate nocase");
    Case work{u"fill frmClients with 5,000 titles"_s, 2.0};
    const auto screen = std::make_shared<Clients>();
    work.ours = [screen] {
        auto *list = screen->findChild<ListView *>(u"lstSummary"_s);
        screen->show();
        QApplication::processEvents();
        session::NeedRefresh = true;
        return timed([&] {
            screen->activated();
            list->repaint();
            return list->list().rowCount();
        });
    };
    const auto view = std::make_shared<QListView>();
    const auto model = std::make_shared<QStringListModel>();
    view->setModel(model.get());
    view->setUniformItemSizes(true);
    work.byHand = [titles, view, model] {
        view->resize(400, 400);
        view->show();
        QApplication::processEvents();
        return timed([&] {
            QStringList entries;
            while (titles->step()) {
                const auto title = titles->text(0);
                entries += QString::fromUtf8(title.data(), static_cast<qsizetype>(title.size()));
            }
            titles->reset();
            model->setStringList(entries);
            view->repaint();
            return model->rowCount();
        });
    };
    return work;
}

Case searchKey()
{
    // The engine's own pattern match that the program did not put its own in the place of.
    const auto hits =
        std::make_shared<byHand::Statement>("select * from Accounts where Type=0 and Title glob '*[Ss][Hh]*'");
    Case work{u"one key stroke in frmSearchClient, 5,000 clients"_s, 2.0};
    const auto screen = std::make_shared<frmSearchClient>();
    work.ours = [screen] {
        auto *box = screen->findChild<kvTextBox *>(u"txtName"_s);
        auto *list = screen->findChild<ListView *>(u"lvResults"_s);
        screen->show();
        box->setText(u"s"_s);
        QApplication::processEvents();
        return timed([&] {
            box->setText(u"sh"_s);
            return list->list().rowCount();
        });
    };
    work.byHand = [hits] {
        return timed([&hits] {
            std::vector<std::array<std::string, 12>> rows;
            while (hits->step()) {
                auto &row = rows.emplace_back();
                for (int column = 0; column < 12; ++column)
                    row[static_cast<size_t>(column)] = hits->text(column);
            }
            hits->reset();
            return static_cast<qint64>(rows.size());
        });
    };
    return work;
}

/// The newest cards of all clients with a text in their names: the letter that brings the first ones, or the next one.
Case cardKey(const QString &what, const QString &before, const QString &typed, std::string_view glob)
{
    const auto newest = std::make_shared<byHand::Statement>(
        "select Jobs.Id, Date, Title, Mobile, AmountDue, JobFinished, Jobs.Status from Jobs join Accounts on "
        "Accounts.Id=ClintID where Title glob '"
        + std::string(glob) + "' order by Date desc, Jobs.Id desc limit 200");
    Case work{what, 2.5};
    work.most = std::chrono::milliseconds(30);
    work.ours = [before, typed] {
        frmOpenJob screen;
        auto *box = screen.findChild<kvTextBox *>(u"txtJOBID"_s);
        auto *list = screen.findChild<ListView *>(u"lvFound"_s);
        screen.show();
        box->setText(before);
        QApplication::processEvents();
        return timed([&] {
            box->setText(typed);
            list->repaint();
            // Behind the cards a line says that there are more.
            return list->list().rowCount() - 1;
        });
    };
    work.byHand = [newest] {
        return timed([&newest] {
            std::vector<std::array<std::string, 7>> rows;
            while (newest->step()) {
                auto &row = rows.emplace_back();
                for (int column = 0; column < 7; ++column)
                    row[static_cast<size_t>(column)] = newest->text(column);
            }
            newest->reset();
            return static_cast<qint64>(rows.size());
        });
    };
    return work;
}

constexpr int longCard = fullShop::largeCard - 1;
constexpr int longCardRows = 200;

/// The long card as it is printed.
ReportPages longCardPages()
{
    FillJobCardTemp(longCard);
    Recordset cards(DE().CN);
    cards.open(
        u"SHAPE {SELECT * FROM tmpHead} APPEND ({SELECT * FROM tmpBody order by id} AS Body RELATE JOBID to JOBID)"_s);
    return layOut(rptJOBCARD(), cards).value();
}

Case printCard()
{
    // The shop has room for no more rows: other cards lend theirs.
    DE().CN.execute(u"Update JOBS_DETAIL set JobID=%1 where JobID=%1 or id<=%2"_s.arg(longCard).arg(longCardRows));
    SaveSetting(setting::PrintPreview, u"0"_s);
    Case work{u"fill and lay out a job card of 200 rows to PDF"_s, 3.0};
    work.ours = [] {
        int pages = 0;
        printer::replace([&pages](const printer::Job &job) {
            pages = job.pageCount;
            paper::writePdf(
                job.layout, [&job](QPdfWriter &writer) { static_cast<void>(job.draw(writer, 1, job.pageCount)); });
            return printer::Outcome::Printed;
        });
        const Run run = timed([&pages] {
            PrintJobCard(longCard);
            return pages;
        });
        printer::replace({});
        return run;
    };
    const auto made = std::make_shared<paper::Texts>(longCardPages());
    work.byHand = [made] {
        return timed([&made] {
            made->writePdf();
            return made->pageCount();
        });
    };
    return work;
}

} // namespace

std::vector<Case> counterCases()
{
    return {fillClients(), searchKey(),
        cardKey(u"first letter of a client in frmOpenJob, 16,000 cards"_s, {}, u"s"_s, "*[Ss]*"),
        cardKey(u"the next letter there"_s, u"s"_s, u"sh"_s, "*[Ss][Hh]*"), statement::preview(), printCard()};
}

} // namespace bench
