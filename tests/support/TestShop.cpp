#include "support/TestShop.h"

#include "base/clock.h"
#include "base/session.h"

#include <QSettings>

TestShop::TestShop()
{
    for (const auto format : {QSettings::NativeFormat, QSettings::IniFormat})
        QSettings::setPath(format, QSettings::UserScope, folder.filePath(QStringLiteral("user")));
    session::CurrentDate = QDate(2011, 4, 1);
    session::NeedRefresh = false;
    machineClock::replace([] { return QDateTime(QDate(2011, 4, 1), QTime(10, 0)); });
}

TestShop::~TestShop()
{
    machineClock::replace({});
}
