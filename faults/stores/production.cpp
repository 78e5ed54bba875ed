#include "Store.h"

#include "production/feedback.h"
#include "store/DataEnvironment.h"

using namespace Qt::StringLiterals;

namespace faults {

namespace {

/// What a client says of one of the shop's garments.
class Told : public Task {
public:
    explicit Told(Random random) : m_pick(random.below(1'000'000)), m_score(random.below(6)) { }
    void prepare() override
    {
        Recordset rows(DE().CN);
        rows.open(u"Select id from Jobs_Detail order by id"_s);
        if (rows.recordCount() == 0)
            return;
        rows.moveTo(m_pick % rows.recordCount());
        m_row = rows.integer(u"id");
    }
    void run() override { static_cast<void>(feedback::save(m_row, m_score, QString(3000, u'f'))); }

private:
    int m_pick;
    int m_score;
    qint32 m_row = 0;
};

class Ranking : public Task {
public:
    void run() override { static_cast<void>(feedback::rank()); }
};

} // namespace

std::vector<Store> productionStores()
{
    return {{u"feedback"_s, [](const Random &random) { return std::make_unique<Told>(random); }},
        {u"ranking"_s, [](const Random &) { return std::make_unique<Ranking>(); }}};
}

} // namespace faults
