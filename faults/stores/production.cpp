#include "Store.h"

#include "production/assignment.h"
#include "production/feedback.h"
#include "production/itemRowMarks.h"
#include "registers/trialMarks.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"

using namespace Qt::StringLiterals;

namespace faults {

namespace {

/// Work on one of the shop's garments.
class RowTask : public Task {
public:
    explicit RowTask(Random random) : m_random(random) { }
    void prepare() override
    {
        Recordset rows(DE().CN);
        rows.open(u"Select id, JobID from Jobs_Detail order by id"_s);
        if (rows.recordCount() == 0)
            return;
        rows.moveTo(m_random.below(rows.recordCount()));
        m_row = rows.integer(u"id");
        m_job = rows.integer(u"JobID");
        m_number = m_random.below(4);
    }

protected:
    Random m_random;
    qint32 m_row = 0;
    qint32 m_job = 0;
    int m_number = 0;
};

/// What a client says of it.
class Told : public RowTask {
public:
    using RowTask::RowTask;
    void run() override { static_cast<void>(feedback::save(m_row, m_number, QString(3000, u'f'))); }
};

class Assigned : public RowTask {
public:
    using RowTask::RowTask;
    void run() override
    {
        const assignment::Assignment given{.worker = assignment::noWorker(),
            .status = m_number,
            .cuttingDone = m_number > 1,
            .cuttingDate = {2011, 4, 9},
            .wages = 150,
            .location = QString(2000, u'l')};
        static_cast<void>(assignment::save(m_row, given));
    }
};

class Marked : public RowTask {
public:
    using RowTask::RowTask;
    void run() override
    {
        static_cast<void>(itemRowMarks::status(m_row, rowStatus::Completed, {2011, 4, 9}, QString(2000, u'l')));
    }
};

/// A mark given by mistake is taken back, and the right one given. In one group: before it and behind it the file says
/// two different things, and nothing between them.
class MarkUndone : public RowTask {
public:
    using RowTask::RowTask;
    void run() override
    {
        WriteGroup::run(DE().CN, [this] {
            if (const auto mistaken = itemRowMarks::jobDelivered(m_job, {2011, 4, 10}))
                static_cast<void>(mistaken->takeBack());
            static_cast<void>(itemRowMarks::cuttingDone(m_row));
        });
    }
};

class JobHandedOver : public RowTask {
public:
    using RowTask::RowTask;
    void run() override { static_cast<void>(itemRowMarks::jobDelivered(m_job, {2011, 4, 9})); }
};

/// A trial at another day.
class TrialMoved : public RowTask {
public:
    using RowTask::RowTask;
    void run() override { static_cast<void>(trialMarks::movedTo(m_job, QDate(2011, 4, 9).addDays(m_number))); }
};

class TrialKept : public RowTask {
public:
    using RowTask::RowTask;
    void run() override { static_cast<void>(trialMarks::appeared(m_job)); }
};

class Ranking : public Task {
public:
    void run() override { static_cast<void>(feedback::rank()); }
};

template <typename Kind>
std::unique_ptr<Task> made(const Random &random)
{
    return std::make_unique<Kind>(random);
}

} // namespace

std::vector<Store> productionStores()
{
    return {{u"feedback"_s, made<Told>}, {u"assignment"_s, made<Assigned>}, {u"mark"_s, made<Marked>},
        {u"job handed over"_s, made<JobHandedOver>}, {u"trial moved"_s, made<TrialMoved>},
        {u"mark undone"_s, made<MarkUndone>}, {u"trial kept"_s, made<TrialKept>},
        {u"ranking"_s, [](const Random &) { return std::make_unique<Ranking>(); }}};
}

} // namespace faults
