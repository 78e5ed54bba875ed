#include "production/frmWorkerReport2.h"

#include "base/values.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "ui/ListView.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int workerColumn = 1;

} // namespace

frmWorkerReport2::frmWorkerReport2()
    : RegisterScreen(u"frmWorkerReport2"_s, u"Work Overview"_s, Refresh::OnCommand), m_chosen(u"-1000"_s)
{
    lvSummary = new ListView(u"lvSummary"_s, {{u"Sr"_s, 12, true}, {u"Worker"_s, 60}, {u"Jobs in Hand"_s, 28, true}});
    lvSummary->setAccessibleName(windowTitle());
    lvSummary->setEmptyText(u"No workers yet.\nMasters, Workers adds them."_s);
    lvSummary->letSort();
    setRegister(lvSummary);
    auto *whole = new QVBoxLayout(this);
    whole->addWidget(lvSummary);
    resize(520, 480);
}

void frmWorkerReport2::ShowWorkerOverView(itemRows::Dated dated, QDate from, QDate to, QString &result)
{
    count(dated, from, to);
    ExecuteSQL();
    exec();
    result = m_chosen;
}

void frmWorkerReport2::count(itemRows::Dated dated, QDate from, QDate to)
{
    DE().rsJOBS_DETAIL2.close();
    m_inHand = itemRows::inHandByWorker(DE().CN, dated, from, to);
}

void frmWorkerReport2::ExecuteSQL()
{
    std::vector<ListRow> rows;
    Recordset &workers = DE().rsaccounts;
    workers.reopen(
        u"Select * from Accounts where type="_s + QString::number(accountType::Worker) + u" order by Title"_s);
    for (; !workers.eof(); workers.moveNext()) {
        const qint16 id = Int16(workers.integer(u"ID"));
        rows.push_back(
            {.cells = {QString::number(rows.size() + 1), workers.text(u"Title"), QString::number(JobCount(id))},
                .tag = id});
    }
    workers.close();
    showRows(std::move(rows), Keep::First);
}

qint16 frmWorkerReport2::JobCount(qint16 workerID) const
{
    return Int16(static_cast<double>(m_inHand.value(workerID)));
}

void frmWorkerReport2::openRow(const ListRow &row)
{
    m_chosen = row.cells.value(workerColumn);
    accept();
}
