#include "masters/masterRows.h"

#include "base/session.h"
#include "store/DataEnvironment.h"
#include "store/lookups.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString statementOf(const masterRows::Kind &kind, int id)
{
    return u"Select * from "_s + kind.table + u" where id="_s + QString::number(id);
}

bool isTaken(const masterRows::Kind &kind, const masterRows::Field &field)
{
    return GetFieldValue(u"ID"_s, kind.table, field.column, field.value.toText(), kind.lookups).toInt() > 0;
}

bool isInUse(const masterRows::Use &use, int id)
{
    use.rows.reopen(use.statement + QString::number(id));
    const bool isUsed = use.rows.recordCount() > 0;
    use.rows.close();
    return isUsed;
}

} // namespace

masterRows::Kind masterRows::clients()
{
    // Its postings don't keep a client: they go with its job cards.
    return {u"Accounts"_s, u"Title"_s, u"Select * from Accounts"_s, DE().rsaccounts, DE().rsaccounts,
        {{DE().rsJOBS_DETAIL, u"Select * from JOBS_DETAIL where ClintID="_s}}};
}

masterRows::Kind masterRows::workers()
{
    return {u"Accounts"_s, u"Title"_s, u"Select * from Accounts"_s, DE().rsaccounts, DE().rsaccounts,
        {{DE().rsJOBS_DETAIL, u"Select * from JOBS_DETAIL where WorkerID="_s},
            {DE().rspostings, u"Select * from Postings where AccID="_s}}};
}

masterRows::Kind masterRows::items()
{
    return {u"Items"_s, u"Name"_s, u"Select * from Items"_s, DE().rsITEMS, DE().rsItems2,
        {{DE().rsJOBS_DETAIL, u"Select * from JOBS_DETAIL where ItemID="_s}}};
}

masterRows::Kind masterRows::accounts()
{
    // Cancelled postings count too.
    return {u"Accounts"_s, u"Title"_s, u"Select * from accounts order by id"_s, DE().rsaccounts, DE().rsaccounts,
        {{DE().rspostings, u"Select * from Postings where AccID="_s},
            {DE().rspostings, u"Select * from Postings where RefID="_s}}};
}

masterRows::Saved masterRows::save(
    const Kind &kind, int id, const std::vector<Field> &fields, const std::vector<Field> &unique)
{
    Saved saved{.id = id};
    WriteGroup::run(DE().CN, [&] {
        const auto taken = std::ranges::find_if(unique, [&kind](const Field &field) { return isTaken(kind, field); });
        if (taken != unique.end()) {
            saved.what = Saved::Taken;
            saved.column = taken->column;
            return;
        }
        Recordset &row = kind.rows;
        if (id == 0) {
            row.openToAdd(kind.allRows);
            row.addNew();
        } else {
            row.reopen(statementOf(kind, id));
        }
        if (row.eof()) {
            saved.what = Saved::Gone;
            return row.close();
        }
        for (const Field &field : fields)
            row.set(field.column, field.value);
        row.update();
        saved.id = row.integer(u"ID");
        row.close();
    });
    if (saved.what == Saved::Yes)
        session::NeedRefresh = true;
    return saved;
}

bool masterRows::remove(const Kind &kind, int id)
{
    bool isFree = false;
    WriteGroup::run(DE().CN, [&] {
        isFree = std::ranges::none_of(kind.uses, [id](const Use &use) { return isInUse(use, id); });
        if (isFree)
            DE().CN.execute(u"Delete from "_s + kind.table + u" where id="_s + QString::number(id));
    });
    if (isFree)
        session::NeedRefresh = true;
    return isFree;
}
