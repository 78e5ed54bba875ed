#pragma once

#include "base/clock.h"
#include "base/session.h"
#include "support/StoreFile.h"

#include <QSettings>

/// A shop to test screens on: a new database in a folder of its own, per-user values of its own, and the first of April
/// 2011 as the working date and as the machine's date.
struct TestShop : StoreFile {
    TestShop()
    {
        for (const auto format : {QSettings::NativeFormat, QSettings::IniFormat})
            QSettings::setPath(format, QSettings::UserScope, folder.filePath(QStringLiteral("user")));
        session::CurrentDate = QDate(2011, 4, 1);
        session::NeedRefresh = false;
        machineClock::replace([] { return QDateTime(QDate(2011, 4, 1), QTime(10, 0)); });
    }
    ~TestShop() { machineClock::replace({}); }
};
