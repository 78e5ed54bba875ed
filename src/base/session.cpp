#include "base/session.h"

#include <QDir>
#include <QFileInfo>

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

bool isDefaultDatabase(const QString &path)
{
    const QFileInfo wanted(defaultDatabasePath());
    const QFileInfo asked(path);
    return asked.fileName() == wanted.fileName() && asked.dir().canonicalPath() == wanted.dir().canonicalPath();
}

} // namespace session
