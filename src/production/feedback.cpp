#include "production/feedback.h"

#include "base/values.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/lookups.h"

using namespace Qt::StringLiterals;

namespace {

QString rowStatement(qint32 rowID)
{
    return u"Select * from Jobs_Detail where id="_s + QString::number(rowID);
}

} // namespace

std::optional<feedback::Feedback> feedback::read(qint32 rowID)
{
    Recordset &row = DE().rsJOBS_DETAIL;
    row.reopen(rowStatement(rowID));
    std::optional<Feedback> found;
    if (!row.eof())
        found = {row.textOrEmpty(u"Score"), row.textOrEmpty(u"ClientFeedBack")};
    row.close();
    return found;
}

bool feedback::save(qint32 rowID, double score, const QString &words)
{
    bool isThere = false;
    WriteGroup::run(DE().CN, [&] {
        Recordset &row = DE().rsJOBS_DETAIL;
        row.reopen(rowStatement(rowID));
        isThere = !row.eof();
        if (isThere) {
            row.set(u"Score", Int32(score));
            row.set(u"ClientFeedBack", words);
            row.update();
        }
        row.close();
    });
    return isThere;
}

std::vector<feedback::Ranked> feedback::rank()
{
    std::vector<Ranked> ranking;
    WriteGroup::run(DE().CN, [&ranking] {
        DE().CN.execute(u"Delete from Rank"_s);
        Recordset &workers = DE().rsaccounts;
        workers.reopen(u"Select * from Accounts where type="_s + QString::number(accountType::Worker));
        Recordset &rows = DE().rsrank;
        if (workers.eof())
            return workers.close();
        rows.reopen(u"Select * from Rank"_s);
        for (; !workers.eof(); workers.moveNext()) {
            const qint32 id = workers.integer(u"ID");
            rows.addNew();
            rows.set(u"Name", workers.text(u"Title"));
            rows.set(u"Score", GetWorkerScore(id));
            rows.set(u"Rating", GetWorkerRating(id));
        }
        workers.close();
        rows.updateBatch();
        rows.reopen(u"Select * from Rank order by Score desc"_s);
        for (; !rows.eof(); rows.moveNext())
            ranking.push_back({rows.text(u"Name"), rows.number(u"Score"), Int32(rows.number(u"Rating"))});
        rows.close();
    });
    return ranking;
}
