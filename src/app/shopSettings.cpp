#include "app/shopSettings.h"

#include "store/DataEnvironment.h"

using namespace Qt::StringLiterals;

namespace {

Recordset &openShopRow()
{
    Recordset &row = DE().rsSHOP;
    row.reopen(u"Select * from Shop where id=1"_s);
    return row;
}

} // namespace

shopSettings::Shop shopSettings::readShop()
{
    Shop shop;
    Recordset &row = openShopRow();
    if (!row.eof()) {
        shop.name = row.textOrEmpty(u"Name");
        shop.address1 = row.textOrEmpty(u"Address1");
        shop.address2 = row.textOrEmpty(u"Address2");
        shop.address3 = row.textOrEmpty(u"Address3");
        shop.contacts = row.textOrEmpty(u"Contacts");
    }
    row.close();
    if (settingIsOn(setting::UsePasswordLock))
        shop.login = Login{GetSetting(setting::LoginName), GetSetting(setting::LoginPassword)};
    return shop;
}

void shopSettings::saveShop(const Shop &shop)
{
    WriteGroup::run(DE().CN, [&shop] {
        Recordset &row = openShopRow();
        if (row.eof())
            row.addNew();
        row.set(u"Name", shop.name);
        row.set(u"Address1", shop.address1);
        row.set(u"Address2", shop.address2);
        row.set(u"Address3", shop.address3);
        row.set(u"Contacts", shop.contacts);
        row.update();
        row.close();
        SaveSetting(setting::UsePasswordLock, shop.login ? u"1"_s : u"0"_s);
        SaveSetting(setting::LoginName, shop.login ? shop.login->name : QString());
        SaveSetting(setting::LoginPassword, shop.login ? shop.login->password : QString());
    });
}

void shopSettings::save(std::span<const Change> changes)
{
    WriteGroup::run(DE().CN, [changes] {
        for (const Change &change : changes)
            SaveSetting(change.key, change.value);
    });
}
