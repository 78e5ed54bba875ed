#pragma once

#include <QString>

#include <span>

/// The shop's options, kept inside its database as numbered texts, so that they move with it.
namespace setting {

enum Key {
    Language = 0,
    WorkingDate = 1,
    InformWhenFinished = 2,
    SendJobNumber = 3,
    ModemPort = 4,
    LogoFile = 5,
    TagLine = 6,
    UsePasswordLock = 7,
    LoginName = 8,
    LoginPassword = 9,
    SmsTitle = 10,
    WallpaperFile = 11,
    HindiSlip = 12,
    DeliveryMargin = 13,
    PrintAfterSave = 14,
    PrintPreview = 15,
    DatabaseVersion = 16,
    Webcam = 17,
    BirthdayGreeting = 18,
    BackupFolder = 19,
    ShowWorkerDetails = 20,
    TrialReminder = 21,
    FollowSystemDate = 22,
    FirstJobNumber = 23,
    BookedSms = 24,
    CompletedSms = 25,
    DueSms = 26,
    ShowUndelivered = 28,
    PickerDrive = 31,
    PickerFolder = 32,
    ManualJobNumber = 33,
    DefaultPeriod = 34,
    DefaultFromDate = 35,
    UseDefaultFromDate = 36,
    FootNote = 37,
    ShowMorningGlance = 40,
};

struct Default {
    Key key;
    QString value;
};

/// Every key with the default that its readers pass, those of 18 and 21 with lines of their own before it. Key 36 is
/// shown as "0" on the settings screen until it is first saved; that screen passes its own.
[[nodiscard]] std::span<const Default> defaults();
[[nodiscard]] const QString &defaultOf(Key key);

} // namespace setting

/// The text stored for `key`, or `defaultValue` where none was ever saved. A stored empty text is an answer.
[[nodiscard]] QString GetSetting(int key, const QString &defaultValue);
/// The same with the default of the table.
[[nodiscard]] QString GetSetting(setting::Key key);
/// Whether the flag is on, that is, its text equals the number 1.
[[nodiscard]] bool settingIsOn(setting::Key key);

/// Stores `value`, adding the row on the first save. Durable when it returns.
void SaveSetting(int key, const QString &value);
