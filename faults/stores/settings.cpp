#include "Store.h"

#include "store/settings.h"

using namespace Qt::StringLiterals;

namespace faults {

namespace {

/// A setting is changed, or stored for the first time.
class SavedSetting : public Task {
public:
    explicit SavedSetting(Random random)
        : m_key(random.chance(50) ? setting::TagLine : setting::FootNote),
          m_value(u"Made to measure %1"_s.arg(random.below(1'000'000'000)))
    {
    }
    void run() override { SaveSetting(m_key, m_value); }

private:
    setting::Key m_key;
    QString m_value;
};

} // namespace

std::vector<Store> settingStores()
{
    return {{u"setting"_s, [](const Random &random) { return std::make_unique<SavedSetting>(random); }}};
}

} // namespace faults
