#include "jobcards/MODPrintJOBCARD.h"

#include "base/RuntimeError.h"
#include "base/session.h"
#include "base/values.h"
#include "reports/ReportFlow.h"
#include "reports/ReportPreview.h"
#include "reports/reportOutput.h"
#include "reports/rptJOBCARD.h"
#include "reports/sheet.h"
#include "store/DataEnvironment.h"
#include "store/lookups.h"
#include "store/settings.h"

using namespace Qt::StringLiterals;

namespace {

void dress(Report &report)
{
    sheet::dressShop(report.section(u"Section6"), GetSetting(setting::LogoFile));
    ReportSection &foot = report.section(u"Section7");
    foot.setText(u"lblfootnote", GetSetting(setting::FootNote));
    foot.setText(u"lblForCompany", u"For "_s + session::ShopName);
}

} // namespace

void PrintJobCard(int JobID)
{
    // Rows are shaped on the session's connection. One of its own, as this print had under the old engine, would work
    // the file's key out anew, which takes longer than all the rest.
    Recordset cards(DE().CN);
    // In one group: another program that prints on the same file empties the same tables.
    WriteGroup::runScratch(DE().CN, [&cards, JobID] {
        FillJobCardTemp(JobID);
        cards.open(u"SHAPE {SELECT * FROM tmpHead where JobID="_s + QString::number(JobID) + u" } "_s
            + u"APPEND ({SELECT * FROM tmpBody  order by id} AS Body "_s + u"RELATE JOBID to JOBID)"_s);
    });
    Report report = rptJOBCARD();
    dress(report);
    report.setFileName(u"Job Card %1 %2"_s.arg(JobID).arg(cards.text(u"Name")));
    const auto pages = layOut(report, cards);
    cards.close();
    if (!pages)
        return;

    const QString way = GetSetting(setting::PrintPreview);
    if (way == u"1")
        ReportPreview(*pages).exec();
    else if (way == u"0")
        reportOutput::print(*pages);
}

void FillJobCardTemp(int JobID)
{
    WriteGroup::runScratch(DE().CN, [JobID] {
        DE().CN.execute(u"Delete * from tmpHead"_s);
        DE().CN.execute(u"Delete * from tmpbody"_s);

        const QString number = QString::number(JobID);
        Recordset &job = DE().rsJobs2;
        job.reopen(u"Select * from Jobs where id="_s + number);
        if (job.eof())
            throw RuntimeError(
                Fault::NoCurrentRecord, u"Job card %1 has been deleted."_s.arg(JobID), {}, Written::NotTried);
        Recordset &head = DE().rsPrintHead;
        head.reopen(u"Select * from tmpHead"_s);
        AddTmpHead(head, job, JobID);
        head.close();
        job.close();

        Recordset &row = DE().rsJOBS_DETAIL;
        row.reopen(u"Select * from Jobs_Detail where jobid="_s + number);
        Recordset &body = DE().rsPrintBody;
        body.reopen(u"Select * from tmpBody"_s);
        for (; !row.eof(); row.moveNext())
            AddTmpBody(body, row, JobID);
        body.updateBatch();
        body.close();
        row.close();
    });
}

void AddTmpHead(Recordset &head, const Recordset &job, int JobID)
{
    const Currency due = Currency::fromDouble(job.number(u"AmountDue"));
    const Currency paid = Currency::fromDouble(job.number(u"AmountPaid"));
    const QString client = GetAccountTitle(job.integer(u"ClintID"));
    head.addNew();
    head.set(u"Date", DateText(job.date(u"DATE")));
    head.set(u"JobID", JobID);
    head.set(u"Name", client);
    head.set(u"DelDate", DateText(job.date(u"DeliveryDate")));
    head.set(u"trialdate", DateText(job.date(u"TrialDate")));
    head.set(u"AmountDue", job.text(u"AmountDue"));
    head.set(u"AmountPaid", job.text(u"AmountPaid"));
    head.set(u"Amount", NumberText((due - paid).toDouble()));
    head.update();
}

void AddTmpBody(Recordset &body, const Recordset &row, int JobID)
{
    const QString item = GetItemName(row.integer(u"ItemID"));
    body.addNew();
    body.set(u"JobID", JobID);
    body.set(u"QNT", row.integer(u"QNT"));
    body.set(u"ItemName", item);
    body.set(u"Remarks", row.text(u"Remarks"));
    body.set(u"FESS", row.text(u"FEES"));
    body.set(u"Amount", row.text(u"Amount"));
}

void SetJobCardLogo(Report &report, const QString &path)
{
    sheet::setLogo(report.section(u"Section6"), path);
}
