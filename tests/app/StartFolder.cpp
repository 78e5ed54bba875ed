#include "StartFolder.h"

#include "app/frmMain.h"
#include "app/startup.h"
#include "base/clock.h"
#include "base/session.h"
#include "store/DataEnvironment.h"
#include "store/lookups.h"
#include "store/settings.h"
#include "support/fileContent.h"
#include "support/screenDriver.h"
#include "ui/userValues.h"

#include <QApplication>
#include <QPointer>
#include <QSettings>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

StartFolder::StartFolder()
{
    session::ProgramFolder = folder.path();
    session::DBPath.clear();
    session::CurrentDate = {};
    for (QString *copy : {&session::ShopName, &session::ShopContacts, &session::ShopAddress1, &session::ShopAddress2,
             &session::ShopAddress3})
        copy->clear();
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, path(u"user"_s));
    machineClock::replace([] { return QDateTime(QDate(2026, 6, 1), QTime(10, 0)); });
}

StartFolder::~StartFolder()
{
    renewDE();
    machineClock::replace({});
}

QByteArray StartFolder::content(const QString &name) const
{
    return contentOf(path(name));
}

void StartFolder::write(const QString &name, const QByteArray &content) const
{
    writeContent(path(name), content);
}

void StartFolder::configure(const QString &databasePath) const
{
    write(u"cv.ini"_s, "DBPATH=" + databasePath.toUtf8() + "\r\n");
}

void StartFolder::addDatabase(const QString &name, const QString &version) const
{
    {
        StoreFile shop;
        shop.addAccount(u"Asha"_s);
        SaveSetting(setting::DatabaseVersion, version);
        DE().CN.close();
        QVERIFY(QFile::copy(shop.path(), path(name)));
    }
    session::ProgramFolder = folder.path();
}

namespace {

frmMain *shownMainScreen()
{
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        auto *mainScreen = qobject_cast<frmMain *>(window);
        if (mainScreen && mainScreen->isVisible())
            return mainScreen;
    }
    return nullptr;
}

} // namespace

bool runProgram(const std::function<void(frmMain &)> &work)
{
    bool shown = false;
    QTimer::singleShot(0, qApp, [&work, &shown] {
        Main();
        const QPointer<frmMain> mainScreen = shownMainScreen();
        shown = mainScreen && driver::waitActive(*mainScreen);
        if (shown)
            work(*mainScreen);
        if (mainScreen)
            mainScreen->close();
    });
    QCoreApplication::exec();
    return shown;
}

QString storedMarker()
{
    return userValues().value(u"Setup/Run"_s).toString();
}

void storeMarker(const QString &value)
{
    userValues().setValue(u"Setup/Run"_s, value);
}

QStringList accounts()
{
    return FillCombo(u"Title"_s, u"Accounts"_s, {}, DE().rsaccounts);
}
