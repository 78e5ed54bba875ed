#include "base/session.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace session {

QString DBPath;
QDate CurrentDate;
QString ShopName;
QString ShopAddress1;
QString ShopAddress2;
QString ShopAddress3;
QString ShopContacts;
bool NeedRefresh = false;
QString ProgramFolder;

QString programPath(QStringView name)
{
    return QDir::toNativeSeparators(QDir(ProgramFolder).filePath(name.toString()));
}

QString defaultDatabasePath()
{
    return programPath(u"data%1.mdb"_s.arg(SupportedDatabaseVersion));
}

} // namespace session
