#include "Store.h"

namespace faults {

const std::vector<Store> &allStores()
{
    static const std::vector<Store> stores = [] {
        std::vector<Store> all;
        for (const auto &some : {jobCardStores, productionStores, bookStores, settingStores, accountStores,
                 masterStores, reportStores, exportStores, pictureStores, houseStores, startStores}) {
            for (const Store &store : some())
                all.push_back(store);
        }
        return all;
    }();
    return stores;
}

} // namespace faults
