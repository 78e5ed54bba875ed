#include "Store.h"

#include "masters/masterRows.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "stores/deskWork.h"

using namespace Qt::StringLiterals;

namespace faults {

namespace {

/// A client, a worker, an account or an item, as its editor has it.
class MasterTask : public Task {
public:
    explicit MasterTask(Random random)
        : m_type(random.below(3)), m_kind(random.chance(40) ? masterRows::items() : kindOf(m_type)),
          m_number(random.below(1'000'000)), m_text(1 + random.below(3000), u'm'), m_random(random)
    {
    }

protected:
    [[nodiscard]] QString name() const { return u"Master %1"_s.arg(m_number); }

    void save(int id) const
    {
        std::vector<masterRows::Field> fields{{m_kind.nameColumn, name()}};
        if (isItem())
            fields.insert(fields.end(), {{u"Fees"_s, m_number % 1000}, {u"ItemDetails"_s, m_text}});
        else
            fields.insert(fields.end(), {{u"Type"_s, m_type}, {u"Address"_s, m_text}});
        static_cast<void>(masterRows::save(m_kind, id, fields, {fields.front()}));
    }

    /// One that no card names; 0 where there is none.
    [[nodiscard]] qint32 anyFree()
    {
        Recordset rows(DE().CN);
        rows.open(u"Select Id from %1 where Id>%2 order by Id"_s.arg(m_kind.table)
                      .arg(isItem() ? desk::lastItem : desk::spareClient));
        if (rows.recordCount() == 0)
            return 0;
        rows.moveTo(m_random.below(rows.recordCount()));
        return rows.value(0).toInt();
    }

    int m_type;
    masterRows::Kind m_kind;

private:
    static masterRows::Kind kindOf(int type)
    {
        if (type == accountType::Client)
            return masterRows::clients();
        return type == accountType::Worker ? masterRows::workers() : masterRows::accounts();
    }
    [[nodiscard]] bool isItem() const { return m_kind.table == u"Items"; }

    int m_number;
    QString m_text;
    Random m_random;
};

class NewMaster : public MasterTask {
public:
    using MasterTask::MasterTask;
    void run() override { save(0); }
};

class ChangedMaster : public MasterTask {
public:
    using MasterTask::MasterTask;
    void prepare() override { m_id = anyFree(); }
    void run() override { save(m_id); }

private:
    int m_id = 0;
};

class DeletedMaster : public MasterTask {
public:
    using MasterTask::MasterTask;
    void prepare() override { m_id = anyFree(); }
    void run() override { static_cast<void>(masterRows::remove(m_kind, m_id)); }

private:
    int m_id = 0;
};

template <typename Kind>
std::unique_ptr<Task> made(const Random &random)
{
    return std::make_unique<Kind>(random);
}

} // namespace

std::vector<Store> masterStores()
{
    return {{u"new master"_s, made<NewMaster>}, {u"changed master"_s, made<ChangedMaster>},
        {u"deleted master"_s, made<DeletedMaster>}};
}

} // namespace faults
