#include "store/settings.h"

#include "base/RuntimeError.h"
#include "base/values.h"
#include "store/DataEnvironment.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace setting {

std::span<const Default> defaults()
{
    static const Default table[]{
        {Language, u"English"_s},
        {WorkingDate, u"1-April-2011"_s},
        {InformWhenFinished, u"No"_s},
        {SendJobNumber, u"No"_s},
        {ModemPort, {}},
        {LogoFile, {}},
        {TagLine, {}},
        {UsePasswordLock, u"0"_s},
        {LoginName, {}},
        {LoginPassword, {}},
        {SmsTitle, {}},
        {WallpaperFile, {}},
        {HindiSlip, u"No"_s},
        {DeliveryMargin, u"0"_s},
        {PrintAfterSave, u"0"_s},
        {PrintPreview, u"1"_s},
        {DatabaseVersion, u"0"_s},
        {Webcam, u"0"_s},
        {BirthdayGreeting, u"wishes you a very Happy Birthday..."_s},
        {BackupFolder, {}},
        {ShowWorkerDetails, u"1"_s},
        {TrialReminder, u"Please don't forgot visit our shop for a trial."_s},
        {FollowSystemDate, u"0"_s},
        {FirstJobNumber, u"1"_s},
        {BookedSms,
            u"Dear Customer\r Your Job ID # %eid%\r of Rs. %amount% has been booked. "
            "To track job status call us with this ID.\r\r"_s},
        {CompletedSms,
            u"Dear Customer Your Job ID # %eid% has been completed. Please visit our shop to collect clothes.\r\r"_s},
        {DueSms, u"Dear Customer\r Your Due Balance is : Rs. %amount%\r\r\r"_s},
        {ShowUndelivered, u"0"_s},
        {PickerDrive, {}},
        {PickerFolder, {}},
        {ManualJobNumber, u"0"_s},
        {DefaultPeriod, u"3"_s},
        {DefaultFromDate, u"1-Apr-2011"_s},
        {UseDefaultFromDate, u"1"_s},
        {FootNote, u"Corvane | Made to measure | www.corvane.example | mail@corvane.example"_s},
        {ShowMorningGlance, u"1"_s},
    };
    return table;
}

const QString &defaultOf(Key key)
{
    const auto table = defaults();
    const auto found =
        std::find_if(table.begin(), table.end(), [key](const Default &entry) { return entry.key == key; });
    if (found == table.end())
        throw RuntimeError(Fault::ItemNotFound, u"setting %1"_s.arg(static_cast<int>(key)));
    return found->value;
}

} // namespace setting

namespace {

Recordset &openSetting(int key)
{
    Recordset &settings = DE().rsSettings;
    settings.reopen(u"Select * from Settings where SETTING='%1'"_s.arg(key));
    return settings;
}

} // namespace

QString GetSetting(int key, const QString &defaultValue)
{
    Recordset &settings = openSetting(key);
    const QString value = settings.recordCount() < 1 ? defaultValue : settings.text(u"value");
    settings.close();
    return value;
}

QString GetSetting(setting::Key key)
{
    return GetSetting(key, setting::defaultOf(key));
}

bool settingIsOn(setting::Key key)
{
    return Val(GetSetting(key)) == 1;
}

void SaveSetting(int key, const QString &value)
{
    // Another program may store the same key for the first time.
    WriteGroup::run(DE().CN, [&] {
        Recordset &settings = openSetting(key);
        if (settings.recordCount() < 1)
            settings.addNew();
        settings.set(u"setting", QString::number(key));
        settings.set(u"value", value);
        settings.update();
        settings.close();
    });
}
